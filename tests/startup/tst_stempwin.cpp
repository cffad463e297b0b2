#include "settings/AdminForm.h"
#include "support/RunningCopy.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString jobsFile = u"Jobs.mdb"_s;
const QString timeFile = u"ANNA.mdb"_s;

// A started copy whose company list has three jobs, its main window active.
struct Clocked
{
    Clocked()
    {
        folder.Copy(u"Blank Jobs.mdb"_s, jobsFile);
        folder.Sql(jobsFile, u"INSERT INTO Projects (JobID, JobName) VALUES ('A1', 'Alpha lab'), "
                             "('B2', 'Ærø ferry'), ('LAB', 'Beta')"_s);
        copy = std::make_unique<RunningCopy>(folder);
        started = copy->Start();
        window = copy->main.Window();
        text = copy->Find<QLineEdit>(u"TextUtil"_s);
        list = copy->Find<QListView>(u"XList"_s);
        button = copy->Find<QPushButton>(u"InOutButton"_s);
        started = started && QTest::qWaitForWindowActive(window);
    }

    QStringList Shown() const
    {
        QStringList items;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            items.append(list->model()->index(row, 0).data().toString());
        return items;
    }
    void ClickText() const { QTest::mouseClick(text, Qt::LeftButton); }
    void ClickEntry(int row) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    }
    void Menu(const char *name) const { copy->Find<QAction>(QLatin1String(name))->trigger(); }
    QList<QVariantList> Rows() const
    {
        return folder.Sql(timeFile, u"SELECT JobID, StempOutTime IS NULL FROM Stemp ORDER BY Id"_s);
    }
    bool IsIn() const { return copy->Clock().IsStempedIn; }

    const ProgramFolder folder;
    std::unique_ptr<RunningCopy> copy;
    bool started = false;
    StempWin *window = nullptr;
    QLineEdit *text = nullptr;
    QListView *list = nullptr;
    QPushButton *button = nullptr;
};

} // namespace

class TestStempWin : public QObject
{
    Q_OBJECT

private slots:
    void StempsOnlyByClickAndEnter()
    {
        Clocked clocked;
        QVERIFY(clocked.started);
        clocked.ClickText();
        QVERIFY(clocked.list->isVisible());
        QTest::keyClick(clocked.text, Qt::Key_Down); // into the list, whose first entry is selected then
        QCOMPARE(clocked.window->focusWidget(), clocked.list);
        QCOMPARE(clocked.list->currentIndex().row(), 0);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Home, Qt::Key_Down, Qt::Key_Space, Qt::Key_B})
            QTest::keyClick(clocked.list, key);
        QVERIFY(clocked.Rows().isEmpty());
        QTest::keyClick(clocked.list, Qt::Key_Return);
        QCOMPARE(clocked.copy->Clock().CurrentJob, u"B2 : Ærø ferry"_s);
        QCOMPARE(clocked.window->windowTitle(), u"B2 : Ærø ferry"_s);
        QCOMPARE(clocked.window->BackColor(), QColor(0, 128, 0));
        QVERIFY(!clocked.list->isVisible());

        clocked.ClickText(); // a click right after is a click: nothing is swallowed
        clocked.ClickEntry(0);
        QCOMPARE(clocked.Rows(), QList<QVariantList>({{u"B2"_s, 0}, {u"A1"_s, 1}}));

        clocked.ClickText();
        QTest::keyClicks(clocked.text, u"no such job"_s);
        QTest::keyClick(clocked.text, Qt::Key_Down);
        QTest::keyClick(clocked.list, Qt::Key_Return); // there is no entry: the person stays in
        QVERIFY(clocked.IsIn());
        QTest::keyClick(clocked.list, Qt::Key_Escape);
        QVERIFY(!clocked.list->isVisible());
        QCOMPARE(clocked.text->text(), u"A1 : Alpha lab"_s);
    }

    void SearchesAnywhereInAnyCase()
    {
        Clocked clocked;
        QVERIFY(clocked.started);
        clocked.ClickText();
        QTest::keyClicks(clocked.text, u"lab"_s);
        QCOMPARE(clocked.Shown(), QStringList({u"A1 : Alpha lab"_s, u"LAB : Beta"_s}));
        clocked.text->selectAll();
        QTest::keyClicks(clocked.text, u"æRØ"_s);
        QCOMPARE(clocked.Shown(), QStringList(u"B2 : Ærø ferry"_s));
        clocked.text->selectAll();
        clocked.text->insert(u"LAB : something else"_s); // a whole item: its id is searched
        QCOMPARE(clocked.Shown(), QStringList({u"A1 : Alpha lab"_s, u"LAB : Beta"_s}));
        clocked.text->selectAll();
        QTest::keyClick(clocked.text, Qt::Key_Delete);
        QCOMPARE(clocked.Shown().size(), 3);
    }

    void SwitchesAndTogglesTheLists()
    {
        Clocked clocked;
        QVERIFY(clocked.started);
        const JobLists &lists = clocked.copy->program.lists;
        QCOMPARE(lists.Mode, ListMode::Company); // nothing recent yet
        clocked.Menu("mnuRecent");
        QCOMPARE(lists.Mode, ListMode::Company);
        QVERIFY(!clocked.list->isVisible());
        clocked.Menu("mnuFull");
        QVERIFY(clocked.list->isVisible());
        clocked.Menu("mnuFull");
        QVERIFY(!clocked.list->isVisible());
        clocked.ClickText();
        clocked.ClickEntry(2);
        clocked.Menu("mnuPersonal");
        QCOMPARE(lists.Mode, ListMode::Personal);
        QCOMPARE(clocked.Shown(), QStringList(u"LAB : Beta"_s));
        QTest::mouseClick(clocked.copy->Find<QTableView>(u"StempGrid"_s)->viewport(), Qt::LeftButton, {}, {5, 5});
        QVERIFY(!clocked.list->isVisible());
        clocked.copy.reset();
        QCOMPARE(clocked.folder.Sql(u"ANNA Stemp.mdb"_s, u"SELECT JobID, JobName FROM Projects"_s),
                 QList<QVariantList>({{u"LAB"_s, u"Beta"_s}}));
    }

    void StempsWithTheButton()
    {
        Clocked clocked;
        QVERIFY(clocked.started);
        clocked.button->setFocus();
        QTest::keyClick(clocked.button, Qt::Key_Space); // no job yet
        QVERIFY(!clocked.IsIn());
        clocked.ClickText();
        clocked.list->setCurrentIndex(clocked.list->model()->index(2, 0));
        QTest::mouseClick(clocked.button, Qt::LeftButton); // the selected entry of the visible list
        QCOMPARE(clocked.copy->Clock().CurrentJob, u"LAB : Beta"_s);
        QCOMPARE(clocked.button->text(), u"Stemp &OUT"_s);
        clocked.button->setFocus();
        QTest::keyClick(clocked.button, Qt::Key_Return);
        QVERIFY(!clocked.IsIn());
        QCOMPARE(clocked.button->text(), u"Stemp &IN"_s);
        QCOMPARE(clocked.window->BackColor(), QColor(192, 0, 0));
        QTest::keyClick(clocked.button, Qt::Key_Space); // the job in the search box
        QVERIFY(clocked.IsIn());
        clocked.window->StempIn(QString());
        QVERIFY(!clocked.IsIn());
        QCOMPARE(clocked.Rows(), QList<QVariantList>({{u"LAB"_s, 0}, {u"LAB"_s, 0}}));
    }

    void DeletesCompanyJobsOnlyForAdministrators()
    {
        Clocked clocked;
        QVERIFY(clocked.started);
        const auto pressDelete = [&] {
            clocked.ClickText();
            QTest::keyClick(clocked.text, Qt::Key_Down);
            QTest::keyClick(clocked.list, Qt::Key_Delete);
        };
        pressDelete();
        QVERIFY(clocked.copy->prompts.messages.isEmpty());
        clocked.copy->program.options.AdminMode = true;
        clocked.copy->prompts.yes = false;
        pressDelete();
        QCOMPARE(clocked.copy->prompts.messages, QStringList(u"Do you want to DELETE A1 : Alpha lab ?"_s));
        QCOMPARE(clocked.Shown().size(), 3);
        clocked.copy->prompts.yes = true;
        pressDelete();
        QCOMPARE(clocked.Shown(), QStringList({u"B2 : Ærø ferry"_s, u"LAB : Beta"_s}));
        QCOMPARE(clocked.folder.Sql(jobsFile, u"SELECT * FROM Projects"_s).size(), 2);
    }

    void ShowsTheNewestRowButKeepsAPersonsScrolling()
    {
        Clocked clocked;
        QVERIFY(clocked.started);
        for (int i = 0; i < 60; ++i) {
            clocked.copy->time.Advance(60);
            clocked.window->StempIn(u"J%1 : job"_s.arg(i));
        }
        const QScrollBar *bar = clocked.copy->Find<QTableView>(u"StempGrid"_s)->verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
        const_cast<QScrollBar *>(bar)->setValue(0);
        clocked.window->repaint();
        clocked.window->resize(clocked.window->size() + QSize(10, 10));
        QTest::qWait(0);
        QCOMPARE(bar->value(), 0);
    }

    void KeepsAllOptionsThroughARestart()
    {
        const ProgramFolder folder;
        const QStringList checks{u"AdminCheck"_s, u"SuperCheck"_s, u"PopCheck"_s, u"TipsCheck"_s};
        {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            AdminForm *settings = copy.main.Settings();
            WhenShown dialog(u"AdminForm"_s, [&](QWidget &window) {
                for (const QString &name : checks)
                    window.findChild<QCheckBox *>(name)->click();
                window.findChild<QRadioButton *>(u"Round1Hour"_s)->click();
                window.findChild<QLineEdit *>(u"DaysInGrid"_s)->setText(u"30"_s);
                window.findChild<QLineEdit *>(u"PollDelay"_s)->setText(u"90"_s);
                QVERIFY(window.findChild<QLineEdit *>(u"UserName"_s)->isReadOnly());
                QTest::keyClick(window.focusWidget(), Qt::Key_Return);
            });
            copy.Find<QAction>(u"mnuAdmin"_s)->trigger();
            QVERIFY(dialog.done && !settings->isVisible() && settings->IsLoaded());
            QVERIFY(copy.program.options.AdminMode);
            copy.Close();
        }
        RunningCopy again(folder);
        QVERIFY(again.Start());
        const Options &options = again.program.options;
        QVERIFY(options.AdminMode && options.CanSetOthersStatus && !options.PopUpMessages && !options.ShowToolTips);
        QCOMPARE(options.SummaryRounding, Rounding::WholeHours);
        QCOMPARE(options.DaysInGrid, u"30"_s);
        QCOMPARE(options.PollDelay, u"90"_s);
    }

    void KeepsStoredTipsWhileTheyAreOff()
    {
        const ProgramFolder folder;
        const QString tips = u"SELECT TipEnglish FROM %1 WHERE Name = '%2'"_s;
        for (const bool on : {true, false, false, true}) {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            QCOMPARE(!copy.Find<QListView>(u"XList"_s)->toolTip().isEmpty(), copy.program.options.ShowToolTips);
            auto *check = copy.main.Settings()->findChild<QCheckBox *>(u"TipsCheck"_s);
            QCOMPARE(!check->toolTip().isEmpty(), copy.program.options.ShowToolTips);
            WhenShown dialog(u"AdminForm"_s, [&](QWidget &window) {
                check->setChecked(on);
                QTest::keyClick(window.focusWidget(), Qt::Key_Return);
            });
            copy.Find<QAction>(u"mnuAdmin"_s)->trigger();
            copy.Close();
        }
        const auto stored = [&](const char *form, const char *control) {
            return folder.Sql(u"ANNA Stemp.mdb"_s, tips.arg(QLatin1String(form), QLatin1String(control)))
                .value(0)
                .value(0)
                .toString();
        };
        QCOMPARE(stored("StempWin", "XList"), u"Click a job to stemp IN"_s);
        QCOMPARE(stored("AdminForm", "OKButton"), u"Some changes will require a program restart"_s);
        QVERIFY(!stored("MessageBoard", "UserGrid").isEmpty());
    }
};

QTEST_MAIN(TestStempWin)
#include "tst_stempwin.moc"

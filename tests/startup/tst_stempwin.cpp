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

namespace {

const QString jobsFile = QStringLiteral("Jobs.mdb");
const QString timeFile = QStringLiteral("ANNA.mdb");

// A started copy whose company list has three jobs, its main window active.
struct Clocked
{
    Clocked()
    {
        folder.Copy(QStringLiteral("Blank Jobs.mdb"), jobsFile);
        folder.Sql(jobsFile, QStringLiteral("INSERT INTO Projects (JobID, JobName) VALUES ('A1', 'Alpha lab'), "
                                            "('B2', 'Ærø ferry'), ('LAB', 'Beta')"));
        copy = std::make_unique<RunningCopy>(folder);
        started = copy->Start();
        window = copy->main.Window();
        text = copy->Find<QLineEdit>(QStringLiteral("TextUtil"));
        list = copy->Find<QListView>(QStringLiteral("XList"));
        button = copy->Find<QPushButton>(QStringLiteral("InOutButton"));
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
        return folder.Sql(timeFile, QStringLiteral("SELECT JobID, StempOutTime IS NULL FROM Stemp ORDER BY Id"));
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
    void StempsOnlyByClickAndEnter();
    void SearchesAnywhereInAnyCase();
    void SwitchesAndTogglesTheLists();
    void KeepsTheListsAsJobsArePicked();
    void StempsWithTheButton();
    void DeletesCompanyJobsOnlyForAdministrators();
    void ShowsTheNewestRowButKeepsAPersonsScrolling();
    void KeepsAllOptionsThroughARestart();
    void KeepsStoredTipsWhileTheyAreOff();
};

void TestStempWin::StempsOnlyByClickAndEnter()
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
    QCOMPARE(clocked.copy->Clock().CurrentJob, QStringLiteral("B2 : Ærø ferry"));
    QCOMPARE(clocked.window->windowTitle(), QStringLiteral("B2 : Ærø ferry"));
    QCOMPARE(clocked.window->BackColor(), QColor(0, 128, 0));
    QVERIFY(!clocked.list->isVisible());

    clocked.ClickText(); // a click right after is a click: nothing is swallowed
    clocked.ClickEntry(0);
    QCOMPARE(clocked.Rows(), QList<QVariantList>({{QStringLiteral("B2"), 0}, {QStringLiteral("A1"), 1}}));

    clocked.ClickText();
    QTest::keyClicks(clocked.text, QStringLiteral("no such job"));
    QTest::keyClick(clocked.text, Qt::Key_Down);
    QTest::keyClick(clocked.list, Qt::Key_Return); // there is no entry: the person stays in
    QVERIFY(clocked.IsIn());
    QTest::keyClick(clocked.list, Qt::Key_Escape);
    QVERIFY(!clocked.list->isVisible());
    QCOMPARE(clocked.text->text(), QStringLiteral("A1 : Alpha lab"));
}

void TestStempWin::SearchesAnywhereInAnyCase()
{
    Clocked clocked;
    QVERIFY(clocked.started);
    clocked.ClickText();
    QTest::keyClicks(clocked.text, QStringLiteral("lab"));
    QCOMPARE(clocked.Shown(), QStringList({QStringLiteral("A1 : Alpha lab"), QStringLiteral("LAB : Beta")}));
    clocked.text->selectAll();
    QTest::keyClicks(clocked.text, QStringLiteral("æRØ"));
    QCOMPARE(clocked.Shown(), QStringList(QStringLiteral("B2 : Ærø ferry")));
    clocked.text->selectAll();
    clocked.text->insert(QStringLiteral("LAB : something else")); // a whole item: its id is searched
    QCOMPARE(clocked.Shown(), QStringList({QStringLiteral("A1 : Alpha lab"), QStringLiteral("LAB : Beta")}));
    clocked.text->selectAll();
    QTest::keyClick(clocked.text, Qt::Key_Delete);
    QCOMPARE(clocked.Shown().size(), 3);
}

void TestStempWin::SwitchesAndTogglesTheLists()
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
    QCOMPARE(clocked.Shown(), QStringList(QStringLiteral("LAB : Beta")));
    QTest::mouseClick(clocked.copy->Find<QTableView>(QStringLiteral("StempGrid"))->viewport(), Qt::LeftButton, {},
                      {5, 5});
    QVERIFY(!clocked.list->isVisible());
}

void TestStempWin::KeepsTheListsAsJobsArePicked()
{
    Clocked clocked;
    QVERIFY(clocked.started);
    clocked.ClickText();
    clocked.ClickEntry(1);
    const QStringList ferry(QStringLiteral("B2 : Ærø ferry"));
    QCOMPARE(clocked.copy->program.lists.RecentList.Items(), ferry);
    QCOMPARE(clocked.copy->program.lists.PersonalList.Items(), ferry);
    clocked.copy.reset();
    QCOMPARE(
        clocked.folder.Sql(QStringLiteral("ANNA Stemp.mdb"), QStringLiteral("SELECT JobID, JobName FROM Projects")),
        QList<QVariantList>({{QStringLiteral("B2"), QStringLiteral("Ærø ferry")}}));
}

void TestStempWin::StempsWithTheButton()
{
    Clocked clocked;
    QVERIFY(clocked.started);
    clocked.button->setFocus();
    QTest::keyClick(clocked.button, Qt::Key_Space); // no job yet
    QVERIFY(!clocked.IsIn());
    clocked.ClickText();
    clocked.list->setCurrentIndex(clocked.list->model()->index(2, 0));
    QTest::mouseClick(clocked.button, Qt::LeftButton); // the selected entry of the visible list
    QCOMPARE(clocked.copy->Clock().CurrentJob, QStringLiteral("LAB : Beta"));
    QCOMPARE(clocked.button->text(), QStringLiteral("Stemp &OUT"));
    clocked.button->setFocus();
    QTest::keyClick(clocked.button, Qt::Key_Return);
    QVERIFY(!clocked.IsIn());
    QCOMPARE(clocked.button->text(), QStringLiteral("Stemp &IN"));
    QCOMPARE(clocked.window->BackColor(), QColor(192, 0, 0));
    QTest::keyClick(clocked.button, Qt::Key_Space); // the job in the search box
    QVERIFY(clocked.IsIn());
    clocked.window->StempIn(QString());
    QVERIFY(!clocked.IsIn());
    QCOMPARE(clocked.Rows(), QList<QVariantList>({{QStringLiteral("LAB"), 0}, {QStringLiteral("LAB"), 0}}));
}

void TestStempWin::DeletesCompanyJobsOnlyForAdministrators()
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
    QCOMPARE(clocked.copy->prompts.messages, QStringList(QStringLiteral("Do you want to DELETE A1 : Alpha lab ?")));
    QCOMPARE(clocked.Shown().size(), 3);
    clocked.copy->prompts.yes = true;
    pressDelete();
    QCOMPARE(clocked.Shown(), QStringList({QStringLiteral("B2 : Ærø ferry"), QStringLiteral("LAB : Beta")}));
    QCOMPARE(clocked.folder.Sql(jobsFile, QStringLiteral("SELECT * FROM Projects")).size(), 2);
}

void TestStempWin::ShowsTheNewestRowButKeepsAPersonsScrolling()
{
    Clocked clocked;
    QVERIFY(clocked.started);
    for (int i = 0; i < 60; ++i) {
        clocked.copy->time.Advance(60);
        clocked.window->StempIn(QStringLiteral("J%1 : job").arg(i));
    }
    const QScrollBar *bar = clocked.copy->Find<QTableView>(QStringLiteral("StempGrid"))->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), bar->maximum());
    const_cast<QScrollBar *>(bar)->setValue(0);
    clocked.window->repaint();
    clocked.window->resize(clocked.window->size() + QSize(10, 10));
    QTest::qWait(0);
    QCOMPARE(bar->value(), 0);
}

void TestStempWin::KeepsAllOptionsThroughARestart()
{
    const ProgramFolder folder;
    const QStringList checks{QStringLiteral("AdminCheck"), QStringLiteral("SuperCheck"), QStringLiteral("PopCheck"),
                             QStringLiteral("TipsCheck")};
    {
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        AdminForm *settings = copy.main.Settings();
        WhenShown dialog(QStringLiteral("AdminForm"), [&](QWidget &window) {
            for (const QString &name : checks)
                window.findChild<QCheckBox *>(name)->click();
            window.findChild<QRadioButton *>(QStringLiteral("Round1Hour"))->click();
            window.findChild<QLineEdit *>(QStringLiteral("DaysInGrid"))->setText(QStringLiteral("30"));
            window.findChild<QLineEdit *>(QStringLiteral("PollDelay"))->setText(QStringLiteral("90"));
            QVERIFY(window.findChild<QLineEdit *>(QStringLiteral("UserName"))->isReadOnly());
            QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        });
        copy.Find<QAction>(QStringLiteral("mnuAdmin"))->trigger();
        QVERIFY(dialog.done && !settings->isVisible() && settings->IsLoaded());
        QVERIFY(copy.program.options.AdminMode);
        copy.Close();
    }
    RunningCopy again(folder);
    QVERIFY(again.Start());
    const Options &options = again.program.options;
    QVERIFY(options.AdminMode && options.CanSetOthersStatus && !options.PopUpMessages && !options.ShowToolTips);
    QCOMPARE(options.SummaryRounding, Rounding::WholeHours);
    QCOMPARE(options.DaysInGrid, QStringLiteral("30"));
    QCOMPARE(options.PollDelay, QStringLiteral("90"));
}

void TestStempWin::KeepsStoredTipsWhileTheyAreOff()
{
    const ProgramFolder folder;
    const QString tips = QStringLiteral("SELECT TipEnglish FROM %1 WHERE Name = '%2'");
    for (const bool on : {true, false, false, true}) {
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        QCOMPARE(!copy.Find<QListView>(QStringLiteral("XList"))->toolTip().isEmpty(),
                 copy.program.options.ShowToolTips);
        auto *check = copy.main.Settings()->findChild<QCheckBox *>(QStringLiteral("TipsCheck"));
        QCOMPARE(!check->toolTip().isEmpty(), copy.program.options.ShowToolTips);
        WhenShown dialog(QStringLiteral("AdminForm"), [&](QWidget &window) {
            check->setChecked(on);
            QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        });
        copy.Find<QAction>(QStringLiteral("mnuAdmin"))->trigger();
        copy.Close();
    }
    const auto stored = [&](const char *form, const char *control) {
        return folder.Sql(QStringLiteral("ANNA Stemp.mdb"), tips.arg(QLatin1String(form), QLatin1String(control)))
            .value(0)
            .value(0)
            .toString();
    };
    QCOMPARE(stored("StempWin", "XList"), QStringLiteral("Click a job to stemp IN"));
    QCOMPARE(stored("AdminForm", "OKButton"), QStringLiteral("Some changes will require a program restart"));
    QVERIFY(!stored("MessageBoard", "UserGrid").isEmpty());
}

QTEST_MAIN(TestStempWin)
#include "tst_stempwin.moc"

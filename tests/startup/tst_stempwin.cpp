#include "settings/AdminForm.h"
#include "support/RunningCopy.h"

#include <QCheckBox>
#include <QListView>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

// A started copy whose company list has three jobs, its main window active.
struct Clocked
{
    Clocked()
    {
        folder.MakeJobs(jobsFile);
        folder.Sql(jobsFile, u"INSERT INTO Projects (JobID, JobName) VALUES ('A1', 'Alpha lab'), "
                             "('B2', 'Ærø ferry'), ('LAB', 'Beta')"_s);
        copy = std::make_unique<RunningCopy>(folder);
        const bool started = copy->Start();
        window = copy->main.Window();
        text = copy->Find<QLineEdit>("TextUtil");
        list = copy->Find<QListView>("XList");
        button = copy->Find<QPushButton>("InOutButton");
        if (!started || !QTest::qWaitForWindowActive(window))
            throw std::logic_error("no main window");
    }

    QStringList Shown() const { return ShownRows(*list); }
    void ClickText() const { QTest::mouseClick(text, Qt::LeftButton); }
    QString Rows() const
    {
        return folder.Rows(timeFile, u"SELECT JobID, StempOutTime IS NULL FROM Stemp ORDER BY Id"_s);
    }
    bool IsIn() const { return copy->Clock().IsStempedIn; }

    const ProgramFolder folder;
    std::unique_ptr<RunningCopy> copy;
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
        ClickCell(*clocked.list, 0);
        QCOMPARE(clocked.Rows(), u"B2 0, A1 1"_s);

        clocked.ClickText();
        QTest::keyClicks(clocked.text, u"no such job"_s);
        QTest::keyClick(clocked.text, Qt::Key_Down);
        QTest::keyClick(clocked.list, Qt::Key_Return); // there is no entry: the person stays in
        QVERIFY(clocked.IsIn());
        QTest::keyClick(clocked.list, Qt::Key_Escape);
        QVERIFY(!clocked.list->isVisible());
        QCOMPARE(clocked.text->text(), u"A1 : Alpha lab"_s);
    }

    void AClickPicksTheEntryUnderThePointer()
    {
        Clocked clocked;
        QStringList items;
        for (int i = 100; i < 400; ++i)
            items.append(u"K%1 : Company"_s.arg(i));
        const auto arrive = [&] { // with a poll
            clocked.copy->program.lists.CompanyList.Assign(items);
            emit clocked.copy->program.jobDatabase.JobListFilled();
        };
        QScrollBar *bar = clocked.list->verticalScrollBar();
        const auto atTop = [&] { return clocked.list->indexAt({5, 2}).data().toString(); };
        arrive();
        clocked.ClickText();
        bar->setValue(bar->maximum());
        TypeInto(clocked.text, u"k1"_s);
        QCOMPARE(atTop(), items[0]); // filled anew
        bar->setValue(bar->maximum() / 2);
        const QString wanted = atTop();
        QVERIFY(wanted != items[0]);
        QTest::mouseClick(clocked.list->viewport(), Qt::LeftButton, {}, {5, 2});
        QCOMPARE(clocked.copy->Clock().CurrentJob, wanted);

        clocked.ClickText();
        QCOMPARE(atTop(), wanted);
        bar->setValue(bar->value() - bar->pageStep() / 2);
        const QString top = atTop();
        items.prepend(u"A : new"_s);
        items.removeAt(9);
        arrive();
        QCOMPARE(atTop(), top);
        QCOMPARE(clocked.list->currentIndex().data().toString(), wanted);

        clocked.text->insert(u"k215 : something else"_s); // of a whole item the id is searched
        QCOMPARE(clocked.Shown(), QStringList(u"K215 : Company"_s));
        QTest::keyClick(clocked.text, Qt::Key_Down);
        QTest::mouseClick(clocked.list->viewport(), Qt::LeftButton, {}, clocked.list->viewport()->rect().bottomLeft());
        QTest::keyClick(clocked.list, Qt::Key_Return); // no entry is highlighted
        QCOMPARE(clocked.copy->Clock().CurrentJob, wanted);
        QVERIFY(clocked.list->isVisible());
    }

    void SwitchesAndTogglesTheLists()
    {
        Clocked clocked;
        const JobLists &lists = clocked.copy->program.lists;
        QCOMPARE(lists.Mode, ListMode::Company); // nothing recent yet
        clocked.copy->Choose("mnuRecent");
        QCOMPARE(lists.Mode, ListMode::Company);
        QVERIFY(!clocked.list->isVisible());
        clocked.copy->Choose("mnuFull");
        QVERIFY(clocked.list->isVisible());
        clocked.copy->Choose("mnuFull");
        QVERIFY(!clocked.list->isVisible());
        clocked.ClickText();
        ClickCell(*clocked.list, 2);
        clocked.copy->Choose("mnuPersonal");
        QCOMPARE(lists.Mode, ListMode::Personal);
        QCOMPARE(clocked.Shown(), QStringList(u"LAB : Beta"_s));
        QTest::mouseClick(clocked.copy->Find<QTableView>("StempGrid")->viewport(), Qt::LeftButton, {}, {5, 5});
        QVERIFY(!clocked.list->isVisible());
        clocked.copy.reset();
        QCOMPARE(clocked.folder.Rows(personalFile, u"SELECT JobID, JobName FROM Projects"_s), u"LAB Beta"_s);
    }

    void StempsWithTheButton()
    {
        Clocked clocked;
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
        QCOMPARE(clocked.Rows(), u"LAB 0, LAB 0"_s);

        clocked.text->selectAll();
        clocked.text->insert(u"X :Typed\tjob"_s);
        const QPoint at = clocked.button->mapTo(clocked.window, clocked.button->rect().center());
        QTest::mouseDClick(clocked.window->windowHandle(), Qt::LeftButton, {}, at); // one stemp
        QVERIFY(clocked.IsIn());
        QCOMPARE(clocked.Rows(), u"LAB 0, LAB 0, X 1"_s);
        clocked.window->StempOut();
        QCOMPARE(clocked.copy->Clock().CurrentJob, u"X : Typed job"_s);
        QCOMPARE(clocked.text->text(), u"X : Typed job"_s);
        clocked.folder.Sql(timeFile, u"INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) "
                                     "VALUES ('Y', 'Later', 46083.4, 46083.5)"_s);
        clocked.window->FillRecentList(); // as at the start: the row that was open is not the last
        QCOMPARE(clocked.text->text(), u"Y : Later"_s);

        QTest::keyClick(clocked.window->windowHandle(), Qt::Key_I, Qt::AltModifier); // presses the button for a while
        QVERIFY(clocked.button->isDown());
        clocked.copy->main.EndSession();
        QTest::qWait(150);
        QVERIFY(!clocked.IsIn()); // there is no file any more
    }

    void DeletesCompanyJobsOnlyForAdministrators()
    {
        Clocked clocked;
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
        clocked.folder.Sql(jobsFile, u"ALTER TABLE Projects RENAME TO Away"_s);
        pressDelete();
        QVERIFY(clocked.copy->prompts.messages.constLast().contains(u"A1 : Alpha lab\ncould not be deleted"_s));
        clocked.folder.Sql(jobsFile, u"ALTER TABLE Away RENAME TO Projects"_s);
        pressDelete();
        QCOMPARE(clocked.Shown(), QStringList({u"B2 : Ærø ferry"_s, u"LAB : Beta"_s}));
        QCOMPARE(clocked.folder.Sql(jobsFile, u"SELECT * FROM Projects"_s).size(), 2);
    }

    void TheGridFollowsTheWindowAndShowsTheNewestRow()
    {
        Clocked clocked;
        for (int i = 0; i < 60; ++i) {
            clocked.copy->time.Advance(60);
            clocked.window->StempIn(u"J%1 : job"_s.arg(i));
        }
        const auto *grid = clocked.copy->Find<QTableView>("StempGrid");
        const QScrollBar *bar = grid->verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
        const_cast<QScrollBar *>(bar)->setValue(0);
        clocked.window->repaint();
        clocked.window->resize(clocked.window->size() + QSize(10, 10));
        QTest::qWait(0);
        QCOMPARE(bar->value(), 0);

        const int beside = clocked.window->width() - grid->width();
        clocked.window->resize(900, 100); // too low for the grid to get lower
        QCOMPARE(grid->width(), 900 - beside);
        QCOMPARE(clocked.text->geometry().right(), grid->geometry().right());
    }

    void KeepsAllOptionsThroughARestart()
    {
        const ProgramFolder folder;
        {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.Accept([](QWidget &window) {
                for (const char *name : {"AdminCheck", "SuperCheck", "PopCheck", "ShowJobCheck", "TipsCheck"})
                    Child<QCheckBox>(window, name)->click();
                Child<QRadioButton>(window, "Round1Hour")->click();
                Child<QLineEdit>(window, "DaysInGrid")->setText(u"30"_s);
                Child<QLineEdit>(window, "PollDelay")->setText(u"90"_s);
                QVERIFY(Child<QLineEdit>(window, "UserName")->isReadOnly());
            });
            QVERIFY(!copy.main.Settings()->isVisible() && copy.main.Settings()->IsLoaded());
            QVERIFY(copy.program.options.AdminMode);
            copy.Close();
        }
        RunningCopy again(folder);
        QVERIFY(again.Start());
        const Options &options = again.program.options;
        QVERIFY(options.AdminMode && options.CanSetOthersStatus && !options.PopUpMessages && !options.ShowJob
                && !options.ShowToolTips);
        QCOMPARE(options.SummaryRounding, Rounding::WholeHours);
        QCOMPARE(options.DaysInGrid + u' ' + options.PollDelay, u"30 60"_s);
    }
};

QTEST_MAIN(TestStempWin)
#include "tst_stempwin.moc"

#include "board/MessageBoard.h"
#include "support/RunningCopy.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString allRows = u"SELECT JobID, JobName, StempOutTime IS NULL FROM Stemp ORDER BY Id"_s;
const QString allUsers = u"SELECT User, State FROM Users"_s;

} // namespace

class TestMain : public QObject
{
    Q_OBJECT

private slots:
    void SaysWhyItCannotRun()
    {
        const ProgramFolder folder;
        RunningCopy elsewhere(folder);
        elsewhere.system.executable = u"other"_s;
        QVERIFY(!elsewhere.Start());
        QCOMPARE(elsewhere.prompts.messages, QStringList(u"Cannot run the program!\r\nCheck shortcut 'Start In' "
                                                         "(must point to location of other.EXE)"_s));
        QFile::remove(folder.File(u"Blank.mdb"_s));
        RunningCopy without(folder);
        QVERIFY(!without.Start());
        QCOMPARE(without.prompts.messages, QStringList(u"File missing: Blank.mdb"_s));
    }

    void MakesItsFilesAndFindsThemAgain()
    {
        const ProgramFolder folder;
        {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            QCOMPARE(copy.main.Window()->windowTitle(), u"ANNA Out"_s);
            QCOMPARE(copy.Find<QLineEdit>("TextUtil")->text(), QString());
            copy.main.Window()->StempIn(u"K-12 : Kolding"_s);
            copy.time.Advance(3600);
            Click(*copy.main.Window(), "InOutButton");
            QSignalSpy ended(&copy.main, &Main::Ended);
            copy.Close();
            QCOMPARE(ended.size(), 1);
            QVERIFY(copy.prompts.messages.isEmpty());
        }
        QVERIFY(folder.Has(personalFile) && folder.Has(jobsFile));
        {
            RunningCopy again(folder);
            QVERIFY(again.Start());
            QCOMPARE(again.Find<QLineEdit>("TextUtil")->text(), u"K-12 : Kolding"_s);
            QCOMPARE(again.program.lists.RecentList.Items(), QStringList(u"K-12 : Kolding"_s));
            QCOMPARE(again.program.lists.Mode, ListMode::Recent);
            again.main.Window()->StempIn(u"Old : job"_s);
            again.Close(); // remains stemped in
        }
        RunningCopy later(folder, SettableTime().Now().addDays(30)); // an open row of any age is offered
        QString offered;
        WhenShown query(u"IOQuery"_s, [&](QWidget &window) {
            offered = Child<QLabel>(window, "Labels_0")->text();
            window.close();
        });
        QVERIFY(later.Start());
        QCOMPARE(offered, u"Old : job"_s);
        QVERIFY(later.Clock().IsStempedIn);
        QCOMPARE(later.main.Window()->windowTitle(), u"Old : job"_s);
        later.main.Window()->StempOut();
        QCOMPARE(folder.Rows(timeFile, allRows), u"K-12 Kolding 0, Old job 0"_s);
    }

    void AsksForInitialsOnANetworkDriveOnce()
    {
        const ProgramFolder folder;
        for (const bool isKnown : {false, true}) { // the second time by the login that was stored
            RunningCopy copy(folder);
            copy.system.network = true;
            copy.system.login = u"anna.hansen"_s;
            WhenShown user(u"User"_s, [](QWidget &window) {
                auto *initials = Child<QLineEdit>(window, "UserName");
                initials->setText(u"åh"_s);
                Child<QLineEdit>(window, "FullName")->setText(u"Åse Holm"_s);
                QTest::keyClick(initials, Qt::Key_Return);
            });
            QVERIFY(copy.Start());
            QCOMPARE(user.done, !isKnown);
            QCOMPARE(copy.program.identity.UserInitials, u"ÅH"_s);
            copy.Close();
        }
        QVERIFY(folder.Has(u"ÅH Stemp.mdb"_s) && folder.Has(u"ÅH.mdb"_s));
    }

    void AsksForInitialsUntilTheyServe()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        copy.system.login = u"con"_s;
        WhenShown user(u"User"_s, [&](QWidget &window) {
            auto *initials = Child<QLineEdit>(window, "UserName");
            TypeInto(initials, u"  "_s);
            QVERIFY(!window.close());
            QCOMPARE(copy.prompts.messages.size(), 1); // the login's
            TypeInto(initials, u" Jobs "_s);
            QTest::keyClick(initials, Qt::Key_Return);
            QCOMPARE(copy.prompts.messages.size(), 2);
            QVERIFY(window.isVisible());
            QCOMPARE(initials->selectedText(), u" Jobs "_s);
            TypeInto(initials, u"æn"_s);
            Click(window, "Command1");
        });
        QVERIFY(copy.Start());
        copy.Close();
        QVERIFY(folder.Has(u"%CON Stemp.mdb"_s) && folder.Has(u"ÆN.mdb"_s));
        QCOMPARE(folder.Rows(jobsFile, u"SELECT User, FullName, Login FROM Users"_s), u"ÆN con "_s);
        RunningCopy again(folder); // they are asked for once
        again.system.login = u"con"_s;
        QVERIFY(again.Start());
        QCOMPARE(again.program.identity.UserInitials, u"ÆN"_s);
        QVERIFY(again.prompts.messages.isEmpty());
    }

    void AsksUntilALockedTimeDbCanBeRead()
    {
        const ProgramFolder folder;
        {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.main.Window()->StempIn(u"A : a"_s);
            copy.Close();
        }
        Holder backup(folder.File(timeFile));
        RunningCopy again(folder);
        again.prompts.whileAsking = [&backup] { backup.LetGo(); };
        WhenShown query(u"IOQuery"_s, [](QWidget &window) { window.close(); });
        QVERIFY(again.Start());
        QCOMPARE(again.prompts.messages.size(), 1);
        QVERIFY(query.done && again.Clock().IsStempedIn);
    }

    void OffersANewJobListForADamagedOne()
    {
        const ProgramFolder folder;
        folder.MakeJobs(jobsFile, {u"K-1"_s});
        folder.Sql(jobsFile, u"DROP TABLE Users"_s);
        for (const bool yes : {false, true, true}) {
            RunningCopy copy(folder);
            copy.prompts.yes = yes;
            QVERIFY(copy.Start());
            QCOMPARE(copy.main.Window()->Notice().isEmpty(), yes);
            copy.Close();
        }
        QCOMPARE(folder.Names().filter(u"Jobs.mdb.damaged-"_s).size(), 1);
        QCOMPARE(folder.Rows(jobsFile, u"SELECT JobID FROM Projects"_s), u"K-1"_s);
    }

    void SaysWhyTheCompanyFileIsNotUsed()
    {
        const ProgramFolder folder;
        QDir(folder.Path()).mkdir(u"folder"_s);
        folder.Write(u"diary.mdb"_s, "Dear diary");
        QVERIFY(RunningCopy(folder).Start());
        for (const auto &[file, cause] : {std::pair(u"folder"_s, u"is a folder"_s),
                                          {u"diary.mdb"_s, u"is no database"_s},
                                          {u"Blank.mdb"_s, u"of another program"_s},
                                          {u"away.mdb"_s, u"is not there"_s}}) {
            folder.Sql(personalFile, u"UPDATE AdminForm SET Value = ? WHERE Name = 'EnterpriseMDBText'"_s,
                       {folder.File(file)});
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            const QString notice = copy.main.Desk()->Window().Notice();
            QVERIFY2(notice.contains(cause), qPrintable(notice));
        }
    }

    void SwitchesOverToWhatTheSettingsSay()
    {
        const ProgramFolder folder;
        folder.MakeJobs(companyFile);
        folder.MakeJobs(u"other.mdb"_s);
        folder.Write(u"diary.mdb"_s, "Dear diary");
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        const auto menus = [&copy] {
            return std::pair(copy.Find<QAction>("mnuFull")->isEnabled(),
                             copy.Find<QAction>("mnuCreateJob")->isEnabled());
        };
        QCOMPARE(menus(), std::pair(true, true)); // a list of one's own
        copy.main.Window()->StempIn(u"A : a"_s);

        copy.Accept(RunningCopy::TypePath(folder.File(companyFile)));
        QCOMPARE(folder.Rows(companyFile, allUsers), u"ANNA -1"_s);
        QCOMPARE(menus(), std::pair(true, true)); // never taken back with a company database
        QVERIFY(copy.Clock().IsStempedIn);
        copy.Accept(RunningCopy::TypePath(folder.File(u"other.mdb"_s)));
        QCOMPARE(folder.Rows(companyFile, allUsers), u"ANNA 1"_s);
        QCOMPARE(folder.Rows(u"other.mdb"_s, allUsers), u"ANNA -1"_s);
        copy.Accept(RunningCopy::TypePath(folder.File(u"diary.mdb"_s)));
        QCOMPARE(copy.prompts.messages.size(), 1);
        QVERIFY(copy.program.jobDatabase.LocalJobs && !copy.program.jobDatabase.EnterpriseOn);
        QCOMPARE(menus(), std::pair(true, false));
    }

    // The dialog stays loaded until the end, however often it was shown by then.
    void KeepsTheSettingsAtTheEnd()
    {
        const ProgramFolder folder;
        const QString stored = u"SELECT Value, CapEnglish FROM AdminForm WHERE Name IN ('DaysInGrid', 'OKButton')"_s;
        for (const bool sessionEnds : {false, true}) {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.Accept([](QWidget &) {});
            const auto before = copy.program.LocalDB.Select(stored, {}, {});
            copy.Accept([&](QWidget &window) {
                Child<QLineEdit>(window, "DaysInGrid")->setText(sessionEnds ? u"30"_s : u"20"_s);
                Child<QPushButton>(window, "OKButton")
                    ->setText(sessionEnds ? u"Fine"_s : u"Good"_s); // as the editor does
            });
            copy.program.LocalDB.Execute(u"UPDATE AdminForm SET HelpEnglish = 'mine' WHERE Name = 'OKButton'"_s, {},
                                         {});
            copy.Choose("mnuAdmin");
            auto *ok = Child<QPushButton>(*ShownWindow(u"AdminForm"_s), "OKButton");
            ok->setFocus();
            QTest::keyClick(ok, Qt::Key_F1);
            QCOMPARE(Child<QPlainTextEdit>(*ShownWindow(u"Help"_s), "HelpText")->toPlainText(), u"mine"_s);
            QCOMPARE(copy.program.LocalDB.Select(stored, {}, {}), before); // a kill would lose it
            if (sessionEnds) {
                copy.main.Window()->StempIn(u"A : a"_s); // the row stays open
                copy.main.EndSession();
                QVERIFY(copy.prompts.messages.isEmpty());
                QCOMPARE(folder.Rows(timeFile, allRows), u"A a 1"_s);
            } else {
                copy.Close();
            }
            QCOMPARE(folder.Rows(personalFile, stored), sessionEnds ? u"30 ,  Fine"_s : u"20 ,  Good"_s);
        }
    }

    void RenewsTheLocalCopyAtExitIfAskedTo()
    {
        const ProgramFolder folder;
        folder.MakeJobs(companyFile, {u"C1"_s});
        for (const bool asked : {false, true}) {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.Accept([&](QWidget &window) {
                RunningCopy::TypePath(folder.File(companyFile))(window);
                Child<QCheckBox>(window, "AutoCheck")->setChecked(asked);
            });
            if (asked)
                copy.main.EndSession(); // a logoff does it, too
            else
                copy.Close();
            QCOMPARE(folder.Sql(jobsFile, u"SELECT JobID FROM Projects"_s).size(), asked ? 1 : 0);
        }
        QCOMPARE(folder.Rows(jobsFile, allUsers), u"ANNA 1"_s); // "off" came first
    }

    void ClosingThatIsTakenBackChangesNothing()
    {
        const ProgramFolder folder;
        folder.MakeJobs(companyFile);
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        copy.Accept(RunningCopy::TypePath(folder.File(companyFile)));
        copy.main.Window()->StempIn(u"A : a"_s);
        WhenShown query(u"IOQuery"_s, [&](QWidget &window) {
            folder.Sql(companyFile, u"INSERT INTO Users (User, State) VALUES ('BO', 0)"_s);
            Click(window, "StayButton");
        });
        copy.main.Window()->close();
        QTRY_VERIFY(copy.program.board.UserNames.contains(u"BO"_s)); // the polls go on
        QVERIFY(copy.main.Window()->isVisible() && copy.main.Window()->IsLoaded());
        QCOMPARE(folder.Rows(companyFile, allUsers), u"ANNA -1, BO 0"_s);
        QCOMPARE(folder.Rows(timeFile, allRows), u"A a 1"_s);
    }

    // Parked until the next start, or, as neither file takes it, asked about at closing.
    void KeepsAStempThatItsFileRefuses()
    {
        for (const bool parked : {true, false}) {
            const ProgramFolder folder;
            {
                RunningCopy copy(folder);
                QVERIFY(copy.Start());
                const auto *note = copy.Find<QLabel>("UnsavedLabel");
                QVERIFY(note->isHidden());
                Holder backup(folder.File(timeFile), Holder::Writing);
                if (!parked)
                    copy.program.LocalDB.Execute(u"ALTER TABLE ParkedStemps RENAME COLUMN Person TO Nobody"_s, {}, {});
                copy.main.Window()->StempIn(u"A : a"_s);
                QVERIFY(copy.Clock().IsStempedIn); // the look changes all the same
                QVERIFY(!note->isHidden());
                QCOMPARE(note->text().contains(u"in memory only"_s), !parked);
                copy.main.Window()->StempOut();
                copy.prompts.whileAsking = [&] { backup.LetGo(); }; // the person waits
                copy.Close();
                QCOMPARE(copy.prompts.messages.size(), parked ? 0 : 1);
                QCOMPARE(folder.Rows(timeFile, allRows), parked ? QString() : u"A a 0"_s);
            }
            RunningCopy next(folder);
            QVERIFY(next.Start());
            QCOMPARE(next.Clock().CurrentJob, u"A : a"_s);
            QCOMPARE(folder.Rows(timeFile, allRows), u"A a 0"_s);
        }
    }

    void MakesTheTimeFileAnewWhereverItIsMissed()
    {
#ifdef Q_OS_WIN
        QSKIP("an open file can be neither removed nor overwritten here");
#endif
        const ProgramFolder folder;
        const QByteArray blank = folder.Content(u"Blank.mdb"_s);
        QVERIFY(QFile::remove(folder.File(u"Blank.mdb"_s)) && QDir().mkdir(folder.File(timeFile)));
        folder.Write(u"Blank.mdb"_s, {}); // as on a full disk
        RunningCopy copy(folder);
        copy.prompts.whileAsking = [&] { // until there is room
            QVERIFY(QDir().rmdir(folder.File(timeFile)));
            folder.Write(u"Blank.mdb"_s, blank);
        };
        QVERIFY(copy.Start());
        QCOMPARE(copy.prompts.messages.size(), 1);
        copy.prompts.whileAsking = nullptr;

        QVERIFY(QFile::remove(folder.File(timeFile)));
        copy.main.Window()->StempIn(u"A : a"_s);
        QCOMPARE(folder.Rows(timeFile, allRows), u"A a 1"_s);
        folder.Write(timeFile, "no database any more");
        copy.main.Window()->StempOut(); // it may be just being copied
        QCOMPARE(folder.Names().filter(u".damaged-"_s).size(), 0);
        copy.time.now = copy.time.now.addSecs(3);
        copy.main.Window()->StempIn(u"B : b"_s);
        QCOMPARE(folder.Rows(timeFile, allRows), u"A a 0, B b 1"_s);
        QTRY_COMPARE(copy.prompts.messages.size(), 2);
        QVERIFY(copy.prompts.messages.constLast().contains(u".damaged-"_s));
    }
};

QTEST_MAIN(TestMain)
#include "tst_main.moc"

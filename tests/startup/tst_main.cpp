#include "platform/forms/Form.h"
#include "support/RunningCopy.h"
#include "texts/Danish.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString timeFile = u"ANNA.mdb"_s;
const QString jobsFile = u"Jobs.mdb"_s;
const QString companyFile = u"company.mdb"_s;
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
            QCOMPARE(copy.Find<QLineEdit>(u"TextUtil"_s)->text(), QString());
            copy.main.Window()->StempIn(u"K-12 : Kolding"_s);
            copy.time.Advance(3600);
            QTest::mouseClick(copy.Find<QPushButton>(u"InOutButton"_s), Qt::LeftButton);
            QSignalSpy ended(&copy.main, &Main::Ended);
            copy.Close();
            QCOMPARE(ended.size(), 1);
            QVERIFY(copy.prompts.messages.isEmpty());
        }
        for (const QString &name : {timeFile, u"ANNA Stemp.mdb"_s, u"Jobs.mdb"_s})
            QVERIFY2(folder.Has(name), qPrintable(name));
        QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{u"K-12"_s, u"Kolding"_s, 0}}));

        RunningCopy again(folder);
        QVERIFY(again.Start());
        QCOMPARE(again.Find<QLineEdit>(u"TextUtil"_s)->text(), u"K-12 : Kolding"_s);
        QCOMPARE(again.program.lists.RecentList.Items(), QStringList(u"K-12 : Kolding"_s));
        QCOMPARE(again.program.lists.Mode, ListMode::Recent);
        QCOMPARE(again.main.Window()->windowTitle(), u"ANNA Out"_s);
    }

    void OffersAnOpenRowOfAnyAge()
    {
        const ProgramFolder folder;
        {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.main.Window()->StempIn(u"Old : job"_s);
            copy.Close(); // remains stemped in
        }
        RunningCopy later(folder, SettableTime().Now().addDays(30));
        QString offered;
        WhenShown query(u"IOQuery"_s, [&](QWidget &window) {
            offered = window.findChild<QWidget *>(u"Labels_0"_s)->property("text").toString();
            window.close();
        });
        QVERIFY(later.Start());
        QCOMPARE(offered, u"Old : job"_s);
        QVERIFY(later.Clock().IsStempedIn);
        QCOMPARE(later.main.Window()->windowTitle(), u"Old : job"_s);
        later.main.Window()->StempOut();
        QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{u"Old"_s, u"job"_s, 0}}));
    }

    void AsksForInitialsOnANetworkDriveOnce()
    {
        const ProgramFolder folder;
        {
            RunningCopy copy(folder);
            copy.system.network = true;
            copy.system.login = u"anna.hansen"_s;
            WhenShown user(u"User"_s, [](QWidget &window) {
                auto *initials = window.findChild<QLineEdit *>(u"UserName"_s);
                initials->setText(u"åh"_s);
                QTest::keyClick(initials, Qt::Key_Return);
            });
            QVERIFY(copy.Start());
            QVERIFY(user.done);
            QCOMPARE(copy.program.identity.UserInitials, u"ÅH"_s);
            copy.Close();
        }
        QVERIFY(folder.Has(u"ÅH Stemp.mdb"_s));
        QVERIFY(folder.Has(u"ÅH.mdb"_s));

        RunningCopy again(folder); // the login is found by the full name that was stored
        again.system.network = true;
        again.system.login = u"anna.hansen"_s;
        QVERIFY(again.Start());
        QCOMPARE(again.program.identity.UserInitials, u"ÅH"_s);
    }

    void AsksForInitialsWhenTheLoginCannotServe()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        copy.system.login = u"con"_s;
        WhenShown user(u"User"_s, [&](QWidget &window) {
            auto *initials = window.findChild<QLineEdit *>(u"UserName"_s);
            initials->setText(u"Jobs"_s); // refused too
            QTest::keyClick(initials, Qt::Key_Return);
            QCOMPARE(copy.prompts.messages.size(), 2); // the login's, and this
            QVERIFY(window.isVisible());
            initials->setText(u"cn"_s);
            QTest::keyClick(initials, Qt::Key_Return);
        });
        QVERIFY(copy.Start());
        QVERIFY(folder.Has(u"CN Stemp.mdb"_s));
        QVERIFY(folder.Has(u"CN.mdb"_s));
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
        auto lock = std::make_unique<dao::Database>(dao::Database::OpenDatabase(folder.File(timeFile)));
        lock->Execute(u"BEGIN EXCLUSIVE"_s, {}, u"a backup"_s);
        RunningCopy again(folder);
        again.prompts.whileAsking = [&lock] { lock.reset(); };
        WhenShown query(u"IOQuery"_s, [](QWidget &window) { window.close(); });
        QVERIFY(again.Start());
        QCOMPARE(again.prompts.messages.size(), 1);
        QVERIFY(query.done && again.Clock().IsStempedIn);
    }

    void PublishesTheState()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        copy.system.network = true; // makes the file beside the program the shared one
        folder.Copy(u"Blank Jobs.mdb"_s, u"Jobs.mdb"_s);
        const auto users = [&] { return folder.Sql(u"Jobs.mdb"_s, u"SELECT User, State FROM Users"_s); };
        const auto anna = [](int state) { return QList<QVariantList>{{u"ANNA"_s, state}}; };
        QVERIFY(copy.Start());
        QCOMPARE(users(), anna(0));
        copy.main.Window()->StempIn(u"A : a"_s);
        QCOMPARE(users(), anna(-1));
        copy.Close();
        QCOMPARE(users(), anna(1));
    }

    void SwitchesOverToWhatTheSettingsSay()
    {
        const ProgramFolder folder;
        folder.Copy(u"Blank Jobs.mdb"_s, companyFile);
        folder.Copy(u"Blank Jobs.mdb"_s, u"other.mdb"_s);
        folder.Write(u"diary.mdb"_s, "Dear diary");
        const auto anna = [](int state) { return QList<QVariantList>{{u"ANNA"_s, state}}; };
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        const auto menus = [&copy] {
            return std::pair(copy.Find<QAction>(u"mnuFull"_s)->isEnabled(),
                             copy.Find<QAction>(u"mnuCreateJob"_s)->isEnabled());
        };
        QCOMPARE(menus(), std::pair(true, true)); // a list of one's own
        copy.main.Window()->StempIn(u"A : a"_s);

        copy.Accept(RunningCopy::TypePath(folder.File(companyFile)));
        QCOMPARE(folder.Sql(companyFile, allUsers), anna(-1));
        QCOMPARE(menus(), std::pair(true, true)); // never taken back with a company database
        QVERIFY(copy.Clock().IsStempedIn);
        copy.Accept(RunningCopy::TypePath(folder.File(u"other.mdb"_s)));
        QCOMPARE(folder.Sql(companyFile, allUsers), anna(1));
        QCOMPARE(folder.Sql(u"other.mdb"_s, allUsers), anna(-1));
        copy.Accept(RunningCopy::TypePath(folder.File(u"diary.mdb"_s)));
        QCOMPARE(copy.prompts.messages.size(), 1);
        QVERIFY(copy.program.jobDatabase.LocalJobs && !copy.program.jobDatabase.EnterpriseOn);
        QCOMPARE(menus(), std::pair(true, false));
    }

    void TakesUpTheCompanyFileWhenItIsThere()
    {
        const ProgramFolder folder;
        folder.Copy(u"Blank Jobs.mdb"_s, companyFile);
        folder.Sql(companyFile, u"INSERT INTO Projects (JobID) VALUES ('C1')"_s);
        {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.Accept(RunningCopy::TypePath(folder.File(companyFile)));
            copy.Close();
        }
        QVERIFY(QFile::rename(folder.File(companyFile), folder.File(u"away.mdb"_s)));
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        QVERIFY(!copy.Find<QAction>(u"mnuCreateJob"_s)->isEnabled());
        copy.main.Window()->StempIn(u"A : a"_s);
        QVERIFY(QFile::rename(folder.File(u"away.mdb"_s), folder.File(companyFile)));
        copy.program.jobDatabase.LookForConfigured();
        QVERIFY(copy.program.jobDatabase.EnterpriseOn);
        QCOMPARE(folder.Sql(companyFile, allUsers), QList<QVariantList>({{u"ANNA"_s, -1}}));

        // It can't be read for a while, under the running program.
        folder.Sql(companyFile, u"ALTER TABLE Users RENAME TO Away"_s);
        copy.main.Window()->StempOut();
        copy.Poll();
        QCOMPARE(copy.program.lists.CompanyList.Count(), 1);
        folder.Sql(companyFile, u"ALTER TABLE Away RENAME TO Users"_s);
        copy.Poll();
        QCOMPARE(folder.Sql(companyFile, allUsers), QList<QVariantList>({{u"ANNA"_s, 0}}));
        QVERIFY(copy.prompts.messages.isEmpty());
    }

    void RenewsTheLocalCopyAtExitIfAskedTo()
    {
        const ProgramFolder folder;
        folder.Copy(u"Blank Jobs.mdb"_s, companyFile);
        folder.Sql(companyFile, u"INSERT INTO Projects (JobID, JobName) VALUES ('C1', 'x')"_s);
        for (const bool asked : {false, true}) {
            RunningCopy copy(folder);
            QVERIFY(copy.Start());
            copy.Accept([&](QWidget &window) {
                RunningCopy::TypePath(folder.File(companyFile))(window);
                window.findChild<QCheckBox *>(u"AutoCheck"_s)->setChecked(asked);
            });
            if (asked)
                copy.main.EndSession(); // a logoff does it, too
            else
                copy.Close();
            QCOMPARE(folder.Sql(jobsFile, u"SELECT JobID FROM Projects"_s).size(), asked ? 1 : 0);
        }
        QCOMPARE(folder.Sql(jobsFile, allUsers), QList<QVariantList>({{u"ANNA"_s, 1}})); // "off" came first
    }

    void LeavesTheRowOpenWhenTheSessionEnds()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        copy.main.Window()->StempIn(u"A : a"_s);
        copy.main.EndSession();
        QVERIFY(copy.prompts.messages.isEmpty());
        QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{u"A"_s, u"a"_s, 1}}));
    }

    void WarnsOfAnUnsavedRowAtClosing()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        auto *note = copy.Find<QWidget>(u"UnsavedLabel"_s);
        QVERIFY(note->isHidden());
        auto lock = std::make_unique<dao::Database>(dao::Database::OpenDatabase(folder.File(timeFile)));
        auto transaction = std::make_unique<dao::Transaction>(*lock, u"a backup"_s);
        copy.main.Window()->StempIn(u"A : a"_s);
        QVERIFY(copy.Clock().IsStempedIn); // the look changes all the same
        QVERIFY(copy.prompts.messages.isEmpty());
        QVERIFY(!note->isHidden());
        copy.main.Window()->StempOut();
        copy.prompts.whileAsking = [&] { // the person waits; the backup ends
            transaction.reset();
            lock.reset();
        };
        copy.Close();
        QCOMPARE(copy.prompts.messages.size(), 1);
        QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{u"A"_s, u"a"_s, 0}}));
    }

    // What a design can't hold, such as timers; the windows that the menu opens as well.
    void EveryControlWithoutAWidgetHasHelp()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        QSet<QString> windows;
        QSet<QString> wanting;
        const auto check = [&] {
            for (const QWidget *window : QApplication::topLevelWidgets()) {
                const auto *form = qobject_cast<const Form *>(window);
                if (!form)
                    continue;
                windows.insert(form->Name());
                for (const auto &control : form->Controls())
                    if (!control->Widget() && DanishText(form->Name(), control->Design().help).isEmpty())
                        wanting.insert(form->Name() + u'.' + control->Key());
            }
        };
        QTimer timer;
        timer.callOnTimeout(this, [&] {
            check();
            if (auto *opened = qobject_cast<Form *>(QApplication::activeModalWidget()))
                opened->Unload();
        });
        timer.start(5);
        for (QAction *entry : copy.main.Window()->findChildren<QAction *>(QRegularExpression(u"^mnu"_s)))
            entry->trigger();
        check();
        QVERIFY(windows.contains({u"StempWin"_s, u"AdminForm"_s, u"MessageBoard"_s, u"RepGen"_s}));
        QCOMPARE(wanting, QSet<QString>());
    }
};

QTEST_MAIN(TestMain)
#include "tst_main.moc"

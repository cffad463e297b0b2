#include "support/RunningCopy.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

namespace {

const QString timeFile = QStringLiteral("ANNA.mdb");
const QString allRows = QStringLiteral("SELECT JobID, JobName, StempOutTime IS NULL FROM Stemp ORDER BY Id");

} // namespace

class TestMain : public QObject
{
    Q_OBJECT

private slots:
    void SaysWhyItCannotRun();
    void MakesItsFilesAndFindsThemAgain();
    void OffersAnOpenRowOfAnyAge();
    void EndsWhenTheFileIsHeld();
    void AsksForInitialsOnANetworkDriveOnce();
    void AsksForInitialsWhenTheLoginCannotServe();
    void TakesTheIdentityOfTheMatchingUser();
    void PublishesTheState();
    void LeavesTheRowOpenWhenTheSessionEnds();
    void SetsADamagedTimeDbAsideAndSaysSo();
    void WarnsOfAnUnsavedRowAtClosing();
};

void TestMain::SaysWhyItCannotRun()
{
    const ProgramFolder folder;
    RunningCopy elsewhere(folder);
    elsewhere.system.executable = QStringLiteral("other");
    QVERIFY(!elsewhere.Start());
    QCOMPARE(
        elsewhere.prompts.messages,
        QStringList(QStringLiteral("Cannot run the program!\r\nCheck shortcut 'Start In' (must point to location of "
                                   "other.EXE)")));
    QFile::remove(folder.File(QStringLiteral("Blank.mdb")));
    RunningCopy without(folder);
    QVERIFY(!without.Start());
    QCOMPARE(without.prompts.messages, QStringList(QStringLiteral("File missing: Blank.mdb")));
}

void TestMain::MakesItsFilesAndFindsThemAgain()
{
    const ProgramFolder folder;
    {
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        QCOMPARE(copy.main.Window()->windowTitle(), QStringLiteral("ANNA Out"));
        QCOMPARE(copy.Find<QLineEdit>(QStringLiteral("TextUtil"))->text(), QString());
        copy.main.Window()->StempIn(QStringLiteral("K-12 : Kolding"));
        copy.time.Advance(3600);
        QTest::mouseClick(copy.Find<QPushButton>(QStringLiteral("InOutButton")), Qt::LeftButton);
        QSignalSpy ended(&copy.main, &Main::Ended);
        copy.Close();
        QCOMPARE(ended.size(), 1);
        QVERIFY(copy.prompts.messages.isEmpty());
    }
    for (const QString &name : {timeFile, QStringLiteral("ANNA Stemp.mdb"), QStringLiteral("Jobs.mdb")})
        QVERIFY2(folder.Has(name), qPrintable(name));
    QCOMPARE(folder.Sql(timeFile, allRows),
             QList<QVariantList>({{QStringLiteral("K-12"), QStringLiteral("Kolding"), 0}}));

    RunningCopy again(folder);
    QVERIFY(again.Start());
    QCOMPARE(again.Find<QLineEdit>(QStringLiteral("TextUtil"))->text(), QStringLiteral("K-12 : Kolding"));
    QCOMPARE(again.program.lists.RecentList.Items(), QStringList(QStringLiteral("K-12 : Kolding")));
    QCOMPARE(again.program.lists.Mode, ListMode::Recent);
    QCOMPARE(again.main.Window()->windowTitle(), QStringLiteral("ANNA Out"));
}

void TestMain::OffersAnOpenRowOfAnyAge()
{
    const ProgramFolder folder;
    {
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        copy.main.Window()->StempIn(QStringLiteral("Old : job"));
        copy.Close(); // remains stemped in
    }
    RunningCopy later(folder, SettableTime().Now().addDays(30));
    QString offered;
    WhenShown query(QStringLiteral("IOQuery"), [&](QWidget &window) {
        offered = window.findChild<QWidget *>(QStringLiteral("Labels_0"))->property("text").toString();
        window.close();
    });
    QVERIFY(later.Start());
    QCOMPARE(offered, QStringLiteral("Old : job"));
    QVERIFY(later.Clock().IsStempedIn);
    QCOMPARE(later.main.Window()->windowTitle(), QStringLiteral("Old : job"));
    later.main.Window()->StempOut();
    QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{QStringLiteral("Old"), QStringLiteral("job"), 0}}));
}

void TestMain::EndsWhenTheFileIsHeld()
{
    const ProgramFolder folder;
    RunningCopy first(folder);
    QVERIFY(first.Start());
    const QStringList before = folder.Names();
    RunningCopy second(folder);
    QVERIFY(!second.Start());
    QCOMPARE(second.prompts.messages.size(), 1);
    QVERIFY(second.prompts.messages.first().contains(QStringLiteral("already running")));
    QCOMPARE(folder.Names(), before);
}

void TestMain::AsksForInitialsOnANetworkDriveOnce()
{
    const ProgramFolder folder;
    {
        RunningCopy copy(folder);
        copy.system.network = true;
        copy.system.login = QStringLiteral("anna.hansen");
        WhenShown user(QStringLiteral("User"), [](QWidget &window) {
            auto *initials = window.findChild<QLineEdit *>(QStringLiteral("UserName"));
            initials->setText(QStringLiteral("åh"));
            QTest::keyClick(initials, Qt::Key_Return);
        });
        QVERIFY(copy.Start());
        QVERIFY(user.done);
        QCOMPARE(copy.program.identity.UserInitials, QStringLiteral("ÅH"));
        copy.Close();
    }
    QVERIFY(folder.Has(QStringLiteral("ÅH Stemp.mdb")));
    QVERIFY(folder.Has(QStringLiteral("ÅH.mdb")));

    RunningCopy again(folder); // the login is found by the full name that was stored
    again.system.network = true;
    again.system.login = QStringLiteral("anna.hansen");
    QVERIFY(again.Start());
    QCOMPARE(again.program.identity.UserInitials, QStringLiteral("ÅH"));
}

void TestMain::AsksForInitialsWhenTheLoginCannotServe()
{
    const ProgramFolder folder;
    RunningCopy copy(folder);
    copy.system.login = QStringLiteral("con");
    WhenShown user(QStringLiteral("User"), [&](QWidget &window) {
        auto *initials = window.findChild<QLineEdit *>(QStringLiteral("UserName"));
        initials->setText(QStringLiteral("Jobs")); // refused too
        QTest::keyClick(initials, Qt::Key_Return);
        QCOMPARE(copy.prompts.messages.size(), 1);
        QVERIFY(window.isVisible());
        initials->setText(QStringLiteral("cn"));
        QTest::keyClick(initials, Qt::Key_Return);
    });
    QVERIFY(copy.Start());
    QVERIFY(folder.Has(QStringLiteral("CN Stemp.mdb")));
    QVERIFY(folder.Has(QStringLiteral("CN.mdb")));
}

void TestMain::TakesTheIdentityOfTheMatchingUser()
{
    const ProgramFolder folder;
    folder.Copy(QStringLiteral("Blank Jobs.mdb"), QStringLiteral("Jobs.mdb"));
    folder.Sql(QStringLiteral("Jobs.mdb"), QStringLiteral("INSERT INTO Users (User, FullName) VALUES ('ah', 'Anna')"));
    RunningCopy copy(folder);
    copy.system.network = true;
    QVERIFY(copy.Start());
    QCOMPARE(copy.program.identity.UserInitials, QStringLiteral("AH"));
    QVERIFY(folder.Has(QStringLiteral("AH Stemp.mdb")));
}

void TestMain::PublishesTheState()
{
    const ProgramFolder folder;
    RunningCopy copy(folder);
    copy.system.network = true; // makes the file beside the program the shared one
    folder.Copy(QStringLiteral("Blank Jobs.mdb"), QStringLiteral("Jobs.mdb"));
    const auto state = [&] {
        return folder.Sql(QStringLiteral("Jobs.mdb"), QStringLiteral("SELECT State FROM Users WHERE User = 'ANNA'"))
            .value(0)
            .value(0)
            .toInt();
    };
    QVERIFY(copy.Start());
    QCOMPARE(state(), 0);
    copy.main.Window()->StempIn(QStringLiteral("A : a"));
    QCOMPARE(state(), -1);
    copy.Close();
    QCOMPARE(state(), 1);
}

void TestMain::LeavesTheRowOpenWhenTheSessionEnds()
{
    const ProgramFolder folder;
    RunningCopy copy(folder);
    QVERIFY(copy.Start());
    copy.main.Window()->StempIn(QStringLiteral("A : a"));
    copy.main.EndSession();
    QVERIFY(copy.prompts.messages.isEmpty());
    QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{QStringLiteral("A"), QStringLiteral("a"), 1}}));
}

void TestMain::SetsADamagedTimeDbAsideAndSaysSo()
{
    const ProgramFolder folder;
    folder.Write(timeFile, "no database");
    RunningCopy copy(folder);
    QVERIFY(copy.Start());
    QCOMPARE(copy.prompts.messages.size(), 1);
    QVERIFY(copy.prompts.messages.first().contains(QStringLiteral("damaged-20260302-090000")));
    copy.main.Window()->StempIn(QStringLiteral("A : a"));
    QCOMPARE(folder.Sql(timeFile, allRows).size(), 1);
}

void TestMain::WarnsOfAnUnsavedRowAtClosing()
{
    const ProgramFolder folder;
    RunningCopy copy(folder);
    QVERIFY(copy.Start());
    auto *note = copy.Find<QWidget>(QStringLiteral("UnsavedLabel"));
    QVERIFY(note->isHidden());
    auto lock = std::make_unique<dao::Database>(dao::Database::OpenDatabase(folder.File(timeFile)));
    auto transaction = std::make_unique<dao::Transaction>(*lock, QStringLiteral("a backup"));
    copy.main.Window()->StempIn(QStringLiteral("A : a"));
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
    QCOMPARE(folder.Sql(timeFile, allRows), QList<QVariantList>({{QStringLiteral("A"), QStringLiteral("a"), 0}}));
}

QTEST_MAIN(TestMain)
#include "tst_main.moc"

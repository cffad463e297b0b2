#include "platform/dao/Database.h"
#include "startup/DataFiles.h"
#include "startup/Module1.h"
#include "support/FakeSystem.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QFile>
#include <QTest>

namespace {

Identity Anna(const ProgramFolder &folder)
{
    Identity identity;
    identity.AppFolder = folder.Path();
    identity.UserInitials = QStringLiteral("ANNA");
    identity.LocalDBPath = folder.File(QStringLiteral("ANNA Stemp.mdb"));
    return identity;
}

const QDateTime now = SettableTime().Now();

} // namespace

class TestDataFiles : public QObject
{
    Q_OBJECT

private slots:
    void FindsTheProgramFolderByItsExecutable();
    void MakesAnEmptyTimeDbFromATemplateWithRows();
    void SetsADamagedFileAside_data();
    void SetsADamagedFileAside();
    void SetsASecondDamagedFileOfTheSameSecondAside();
    void NeverTouchesAFileThatIsHeld();
    void SeesOneFileUnderSeveralSpellings();
};

void TestDataFiles::FindsTheProgramFolderByItsExecutable()
{
    const ProgramFolder folder;
    FakeSystem system;
    system.folder = folder.Path();
    Identity identity;
    QVERIFY(Module1::FindAppFolder(system, identity));
    QCOMPARE(identity.AppFolder, folder.Path());
    QVERIFY(!identity.DevMode);
    system.executable = QStringLiteral("other");
    QVERIFY(!Module1::FindAppFolder(system, identity));
}

void TestDataFiles::MakesAnEmptyTimeDbFromATemplateWithRows()
{
    const ProgramFolder folder;
    folder.Sql(QStringLiteral("Blank.mdb"), QStringLiteral("INSERT INTO Stemp (JobID) VALUES ('X')"));
    QCOMPARE(Module1::PrepareTimeDb(Anna(folder), now).path, folder.File(QStringLiteral("ANNA.mdb")));
    QVERIFY(folder.Sql(QStringLiteral("ANNA.mdb"), QStringLiteral("SELECT * FROM Stemp")).isEmpty());
    QCOMPARE(folder.Sql(QStringLiteral("Blank.mdb"), QStringLiteral("SELECT * FROM Stemp")).size(), 1);
    // Made once: rows that came since are still there at the next start.
    folder.Sql(QStringLiteral("ANNA.mdb"), QStringLiteral("INSERT INTO Stemp (JobID) VALUES ('Y')"));
    QVERIFY(Module1::PrepareTimeDb(Anna(folder), now).message.isEmpty());
    QCOMPARE(folder.Sql(QStringLiteral("ANNA.mdb"), QStringLiteral("SELECT * FROM Stemp")).size(), 1);
}

void TestDataFiles::SetsADamagedFileAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << QByteArray("this is no database, whatever its name says").repeated(100);
    QTest::newRow("empty") << QByteArray();
    QByteArray other;
    {
        const ProgramFolder folder;
        QFile jobs(folder.File(QStringLiteral("Blank Jobs.mdb")));
        if (jobs.open(QIODevice::ReadOnly))
            other = jobs.readAll();
    }
    QTest::newRow("another program's database") << other;
    QTest::newRow("cut off") << other.left(4096 + 100);
}

void TestDataFiles::SetsADamagedFileAside()
{
    QFETCH(QByteArray, content);
    const ProgramFolder folder;
    const QString aside = QStringLiteral(".damaged-20260302-090000");
    folder.Write(QStringLiteral("ANNA.mdb"), content);
    folder.Write(QStringLiteral("ANNA Stemp.mdb"), content);

    QVERIFY(Module1::PrepareTimeDb(Anna(folder), now).message.contains(aside));
    QVERIFY(folder.Has(QStringLiteral("ANNA.mdb") + aside));
    QVERIFY(folder.Sql(QStringLiteral("ANNA.mdb"), QStringLiteral("SELECT * FROM Stemp")).isEmpty());

    {
        const Module1::OpenedLocalDB opened = Module1::OpenLocalDB(Anna(folder), now);
        QVERIFY(opened.database.IsOpen());
        QVERIFY(opened.message.contains(aside));
    }
    QFile kept(folder.File(QStringLiteral("ANNA Stemp.mdb") + aside));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), content);
    for (const char *table : {"Projects", "NotesList", "MessageBuffer", "PersonalStatus"})
        folder.Sql(QStringLiteral("ANNA Stemp.mdb"), QStringLiteral("SELECT * FROM ") + QLatin1String(table));
}

void TestDataFiles::SetsASecondDamagedFileOfTheSameSecondAside()
{
    const ProgramFolder folder;
    for (const QByteArray content : {"first", "second"}) {
        folder.Write(QStringLiteral("x.mdb"), content);
        QVERIFY(DataFiles::SetAside(folder.File(QStringLiteral("x.mdb")), now));
    }
    QCOMPARE(folder.Names().filter(QStringLiteral("x.mdb.damaged")).size(), 2);
}

void TestDataFiles::NeverTouchesAFileThatIsHeld()
{
    const ProgramFolder folder;
    const Module1::OpenedLocalDB first = Module1::OpenLocalDB(Anna(folder), now);
    QVERIFY(first.database.IsOpen());
    const QStringList before = folder.Names();
    const Module1::OpenedLocalDB second = Module1::OpenLocalDB(Anna(folder), now);
    QVERIFY(!second.database.IsOpen());
    QVERIFY(second.message.contains(QStringLiteral("already running")));
    QCOMPARE(folder.Names(), before);
}

void TestDataFiles::SeesOneFileUnderSeveralSpellings()
{
    const ProgramFolder folder;
    const QString blank = folder.File(QStringLiteral("Blank.mdb"));
    QVERIFY(QFile::link(blank, folder.File(QStringLiteral("link.mdb"))));
    QVERIFY(DataFiles::SameFile(blank, folder.File(QStringLiteral("link.mdb"))));
    QVERIFY(DataFiles::SameFile(blank, folder.Path() + QStringLiteral("/./Blank.mdb")));
    QVERIFY(!DataFiles::SameFile(blank, folder.File(QStringLiteral("Blank Jobs.mdb"))));
    QVERIFY(!DataFiles::SameFile(blank, folder.File(QStringLiteral("missing.mdb"))));
}

QTEST_GUILESS_MAIN(TestDataFiles)
#include "tst_datafiles.moc"

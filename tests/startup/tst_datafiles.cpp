#include "platform/dao/Database.h"
#include "startup/DataFiles.h"
#include "startup/Module1.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

Identity Anna(const ProgramFolder &folder)
{
    Identity identity;
    identity.AppFolder = folder.Path();
    identity.UserInitials = u"ANNA"_s;
    identity.LocalDBPath = folder.File(u"ANNA Stemp.mdb"_s);
    return identity;
}

const QDateTime now = SettableTime().Now();

} // namespace

class TestDataFiles : public QObject
{
    Q_OBJECT

private slots:
    void MakesAnEmptyTimeDbFromATemplateWithRows()
    {
        const ProgramFolder folder;
        folder.Sql(u"Blank.mdb"_s, u"INSERT INTO Stemp (JobID) VALUES ('X')"_s);
        QCOMPARE(Module1::PrepareTimeDb(Anna(folder), now).path, folder.File(u"ANNA.mdb"_s));
        QVERIFY(folder.Sql(u"ANNA.mdb"_s, u"SELECT * FROM Stemp"_s).isEmpty());
        QCOMPARE(folder.Sql(u"Blank.mdb"_s, u"SELECT * FROM Stemp"_s).size(), 1);
    }

    void ACopyThatWasFasterWins()
    {
        const ProgramFolder folder;
        folder.Write(u"ANNA.mdb"_s, "of the other copy");
        DataFiles::CreateTimeDb(folder.File(u"Blank.mdb"_s), folder.File(u"ANNA.mdb"_s));
        QCOMPARE(QFileInfo(folder.File(u"ANNA.mdb"_s)).size(), 17);
        QVERIFY(folder.Names().filter(u".new"_s).isEmpty());
    }

    void SetsADamagedFileAside_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("text") << QByteArray("this is no database, whatever its name says").repeated(100);
        QTest::newRow("empty") << QByteArray();
        const ProgramFolder folder;
        QFile jobs(folder.File(u"Blank Jobs.mdb"_s));
        QVERIFY(jobs.open(QIODevice::ReadOnly));
        const QByteArray other = jobs.readAll();
        QTest::newRow("another program's database") << other;
        QTest::newRow("cut off") << other.left(4096 + 100);
    }

    void SetsADamagedFileAside()
    {
        QFETCH(QByteArray, content);
        const ProgramFolder folder;
        const QString aside = u".damaged-20260302-090000"_s;
        folder.Write(u"ANNA.mdb"_s, content);
        folder.Write(u"ANNA Stemp.mdb"_s, content);

        QVERIFY(Module1::PrepareTimeDb(Anna(folder), now).message.contains(aside));
        QVERIFY(folder.Has(u"ANNA.mdb"_s + aside));
        QVERIFY(folder.Sql(u"ANNA.mdb"_s, u"SELECT * FROM Stemp"_s).isEmpty());

        {
            const Module1::OpenedLocalDB opened = Module1::OpenLocalDB(Anna(folder), now);
            QVERIFY(opened.database.IsOpen());
            QVERIFY(opened.message.contains(aside));
        }
        QFile kept(folder.File(u"ANNA Stemp.mdb"_s + aside));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), content);
        for (const char *table : {"Projects", "NotesList", "MessageBuffer", "PersonalStatus"})
            folder.Sql(u"ANNA Stemp.mdb"_s, u"SELECT * FROM "_s + QLatin1String(table));
    }
};

QTEST_GUILESS_MAIN(TestDataFiles)
#include "tst_datafiles.moc"

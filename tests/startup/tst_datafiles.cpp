#include "platform/system/System.h"
#include "startup/DataFiles.h"
#include "startup/Identity.h"
#include "startup/Module1.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

Identity Anna(const ProgramFolder &folder)
{
    Identity identity;
    identity.AppFolder = folder.Path();
    identity.UserInitials = u"ANNA"_s;
    identity.LocalDBPath = folder.File(personalFile);
    return identity;
}

const QDateTime now = SettableTime().Now();

// Tables with their fields, and how many indexes each has.
const QString schema =
    u"SELECT name, (SELECT group_concat(field) FROM (SELECT name || type || pk AS field FROM pragma_table_info(t.name) "
    "ORDER BY name)), (SELECT count(*) FROM pragma_index_list(t.name)) FROM sqlite_master t WHERE type = 'table' "
    "ORDER BY name"_s;

} // namespace

class TestDataFiles : public QObject
{
    Q_OBJECT

private slots:
    void MakesAnEmptyTimeDbFromATemplateWithRows()
    {
        const ProgramFolder folder;
        folder.Sql(u"Blank.mdb"_s, u"INSERT INTO Stemp (JobID) VALUES ('X')"_s);
        for (const QString &orphan : {u"-journal"_s, u"-wal"_s, u"-shm"_s})
            folder.Write(timeFile + orphan, "of a file that was removed");
        QCOMPARE(Module1::PrepareTimeDb(Anna(folder), now).path, folder.File(timeFile));
        QCOMPARE(folder.Names().filter(timeFile), QStringList(timeFile));
        QCOMPARE(folder.Rows(timeFile, u"SELECT JobID FROM Stemp"_s), QString());
        QCOMPARE(folder.Rows(u"Blank.mdb"_s, u"SELECT JobID FROM Stemp"_s), u"X"_s);
    }

    void ACopyThatWasFasterWins()
    {
        const ProgramFolder folder;
        folder.Write(timeFile, "of the other copy");
        DataFiles::CreateTimeDb(folder.File(u"Blank.mdb"_s), folder.File(timeFile));
        QCOMPARE(folder.Content(timeFile), QByteArray("of the other copy"));
        QVERIFY(folder.Names().filter(u".new"_s).isEmpty());
    }

    void SetsADamagedFileAside_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("text") << QByteArray("this is no database, whatever its name says").repeated(100);
        QTest::newRow("empty") << QByteArray();
        const QByteArray other = ProgramFolder().Content(u"Blank Jobs.mdb"_s);
        QTest::newRow("another program's database") << other;
        QTest::newRow("cut off") << other.left(4096 + 100);
    }

    void SetsADamagedFileAside()
    {
        QFETCH(QByteArray, content);
        const ProgramFolder folder;
        const QString aside = u".damaged-20260302-090000"_s;
        folder.Write(timeFile, content);
        folder.Write(personalFile, content);
        const QByteArray journal(512, '\0'); // one that has been played back
        const bool keepsJournal = !content.isEmpty();
        folder.Write(timeFile + u"-journal"_s, journal);

        QVERIFY(Module1::PrepareTimeDb(Anna(folder), now).message.contains(aside));
        QVERIFY(folder.Has(timeFile + aside));
        QCOMPARE(folder.Content(timeFile + aside + u"-journal"_s), keepsJournal ? journal : QByteArray());
        QCOMPARE(folder.Rows(timeFile, u"SELECT * FROM Stemp"_s), QString());

        {
            const Module1::OpenedLocalDB opened = Module1::OpenLocalDB(Anna(folder), now);
            QVERIFY(opened.database.IsOpen());
            QVERIFY(opened.message.contains(aside));
        }
        QCOMPARE(folder.Content(personalFile + aside), content);
    }

    void ANewFileTakesItsPermissionsFromItsFolder()
    {
#ifdef Q_OS_UNIX
        constexpr gid_t team = 65534;
        const ProgramFolder folder;
        const QByteArray path = QFile::encodeName(folder.Path());
        if (geteuid() != 0 || chown(path.constData(), 0, team) != 0 || chmod(path.constData(), 02775) != 0)
            QSKIP("only root can give a folder to another group");
        QFile::setPermissions(folder.File(u"blank Stemp.mdb"_s), QFile::ReadOwner);
        const mode_t before = umask(0002);
        Module1::OpenLocalDB(Anna(folder), now);
        umask(before);
        struct stat made = {};
        QCOMPARE(stat(QFile::encodeName(folder.File(personalFile)).constData(), &made), 0);
        QCOMPARE(made.st_mode & 0777, 0664U);
        QCOMPARE(made.st_gid, team);
#endif
    }

    void CompletesWhatAFileLacks()
    {
        const ProgramFolder folder;
        folder.MakePersonal();
        folder.Sql(personalFile, u"INSERT INTO PersonalStatus (Status) VALUES ('Lunch')"_s);
        const QStringList losses{u"DROP TABLE MessageHistory"_s,
                                 u"DROP TABLE MessageAcknowledgements"_s,
                                 u"DROP INDEX \"MessageBuffer.MessageId\""_s,
                                 u"ALTER TABLE MessageBuffer DROP COLUMN MessageId"_s,
                                 u"DROP TABLE NotesList"_s,
                                 u"DROP INDEX JobID"_s,
                                 u"INSERT INTO Projects (JobID) VALUES ('k1'), ('K1')"_s,
                                 u"CREATE TABLE S AS SELECT Status FROM PersonalStatus"_s,
                                 u"DROP TABLE PersonalStatus"_s,
                                 u"ALTER TABLE S RENAME TO PersonalStatus"_s};
        for (const QString &loss : losses)
            folder.Sql(personalFile, loss);
        QCOMPARE(Module1::OpenLocalDB(Anna(folder), now).message, QString());
        QCOMPARE(folder.Rows(personalFile, schema), folder.Rows(u"blank Stemp.mdb"_s, schema));
        QCOMPARE(folder.Rows(personalFile, u"SELECT Status FROM PersonalStatus"_s), u"Lunch"_s);
        QCOMPARE(folder.Rows(personalFile, u"SELECT JobID FROM Projects"_s), u"k1"_s);
    }

    void CopiesWhatCanBeReadOfADamagedFile()
    {
        const ProgramFolder folder;
        folder.MakePersonal();
        folder.Sql(personalFile,
                   u"INSERT INTO NotesList (Note) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                   "FROM n WHERE i < 300) SELECT 'note ' || i || hex(zeroblob(120)) FROM n"_s);
        folder.Sql(personalFile,
                   u"CREATE TABLE StempWin (Id INTEGER PRIMARY KEY, Name TEXT, CapEnglish TEXT, Visible)"_s);
        folder.Sql(personalFile, u"INSERT INTO StempWin (Name, Visible) VALUES ('Me', -1)"_s);
        QByteArray content = folder.Content(personalFile);
        constexpr qsizetype page = 4096;
        content.replace(content.indexOf("note 150") / page * page, page, QByteArray(page, 'z'));
        folder.Write(personalFile, content);
        folder.Write(u"blank Stemp.mdb"_s, "a damaged template"); // is done without
        const QString message = Module1::OpenLocalDB(Anna(folder), now).message;
        QVERIFY2(message.contains(u"windows with their texts, places and settings: 1."_s), qPrintable(message));
        QCOMPARE(folder.Rows(personalFile, u"SELECT Name, Visible FROM StempWin"_s), u"Me -1"_s);
        QVERIFY(folder.Rows(personalFile, u"SELECT count(*) FROM NotesList"_s).toInt() > 280);
        QCOMPARE(folder.Rows(personalFile, u"SELECT count(*) FROM NotesList WHERE Note LIKE 'note 299%'"_s), u"1"_s);
        QCOMPARE(Module1::OpenLocalDB(Anna(folder), now).message, QString());
        QCOMPARE(folder.Names().filter(u".damaged-"_s).size(), 1);

        folder.Write(personalFile, content.left(content.indexOf("note 299") / page * page)); // cut off
        folder.Write(personalFile + u".mended-journal"_s, "of a copying that was ended");
        const QString again = Module1::OpenLocalDB(Anna(folder), now).message;
        QVERIFY2(again.contains(u"came along: notes"_s), qPrintable(again));
        QVERIFY(folder.Rows(personalFile, u"SELECT count(*) FROM NotesList"_s).toInt() > 100);
    }

    void RefusesWhatCannotBeAFileOrATable()
    {
        QStringList names =
            u"a/b;a\\b;a:b;a*b;what?;<a>;a|b;say \"hi\";a\tb;CON;con;NUL;NUL.x;COM1;lpt9;CON ;.anna;anna.;"
            " anna;BLANK;Jobs;stemp;Blank Jobs;BLANK STEMP;ANNA STEMP;Users;projects;sqlite_master;all;"
            "User;JobID"_s.split(u';');
        names << QString(201, u'A') << QString(101, u'Å');
        for (const QString &name : std::as_const(names))
            QVERIFY2(!IdentityRefusal(name).isEmpty(), qPrintable(name));
        QStringList people = u"AB;ÆØÅ;O'BRIEN;ANNA B. HANSEN;STEMPEL;CONNY;100%;SELECT"_s.split(u';');
        people << QString(200, u'A');
        for (const QString &name : std::as_const(people))
            QCOMPARE(name + IdentityRefusal(name), name);
    }

    void KnowsNetworkDrives()
    {
        for (const QString &path : {u"\\\\server\\share"_s, u"c:\\stemp"_s, u"E:\\stemp"_s, QString()})
            QVERIFY2(Module1::IsNetworkPath(path), qPrintable(path));
        for (const QString &path : {u"C:\\stemp"_s, u"D:\\"_s})
            QVERIFY2(!Module1::IsNetworkPath(path), qPrintable(path));
        for (const QString &type : {u"nfs4"_s, u"cifs"_s, u"smb3"_s, u"SMB2"_s, u"fuse.sshfs"_s, u"fuse.rclone"_s})
            QVERIFY2(System::IsNetworkFileSystem(type), qPrintable(type));
        for (const QString &type : {u""_s, u"ext4"_s, u"NTFS"_s, u"fuse.ntfs-3g"_s, u"fuseblk"_s, u"9p"_s, u"nfsd"_s})
            QVERIFY2(!System::IsNetworkFileSystem(type), qPrintable(type));
    }
};

QTEST_GUILESS_MAIN(TestDataFiles)
#include "tst_datafiles.moc"

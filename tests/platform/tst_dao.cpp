#include "OrdinaryUser.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateLiterals.h"
#include "platform/dao/DateValue.h"
#include "platform/dao/Error.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"
#include "support/EmptyDatabase.h"
#include "support/ProgramFolder.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <optional>

using namespace dao;
using namespace Qt::Literals::StringLiterals;

namespace {

const TableDef people{
    u"People"_s, {{u"Name"_s, u"TEXT"_s, true, true}, {u"Born"_s, u"REAL"_s}}, {{u"Name"_s, {u"Name"_s}, true}}};

template <class Work> std::optional<ErrorKind> KindThrownBy(Work work)
{
    try {
        work();
    } catch (const Error &error) {
        return error.Kind();
    }
    return std::nullopt;
}

QVariant Value(Database &database, const QString &expression, const QVariantList &values = {})
{
    return database.Select(u"SELECT "_s + expression, values, u"evaluating"_s).value(0).value(0);
}

} // namespace

class TestDao : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        database_ = Database::OpenDatabase(NewFile()); // with people, and with jobs
        database_.CreateTableDef({u"Jobs"_s,
                                  {{u"Name"_s, u"TEXT"_s, true}, {u"Hours"_s, u"REAL NOT NULL DEFAULT 1.5"_s}},
                                  {{u"ByName"_s, {u"Name"_s}}}});
        database_.Execute(u"INSERT INTO Jobs (Name) VALUES ('delta'), ('Alpha'), ('charlie'), ('Bravo')"_s, {},
                          u"preparing"_s);
    }

    void PathsOfAnyCharacters()
    {
        QStringList names{u"ÆØÅ æøå"_s, u"100% 50%25"_s, u"a#b;c&d=e"_s, u"it's so"_s};
#ifndef Q_OS_WIN // where they are no characters of file names
        names += {u"what?mode=memory"_s, u"say \"so\""_s};
#endif
        for (const QString &name : names) {
            const QString path = folder_.filePath(name + u".mdb"_s);
            EmptyDatabase(path).CreateTableDef(people);
            QVERIFY(QDir(folder_.path()).entryList(QDir::Files).contains(name + u".mdb"_s));
            QVERIFY(Database::OpenDatabase(path).HasTable(u"people"_s));
        }
    }

    void PutsItsFilesWriteAheadLogBackWhenAlone()
    {
        const QString path = NewFile();
        const auto open = [&path](const QString &table) {
            return Database::OpenDatabase(path, std::chrono::milliseconds(10), {}, {table});
        };
        const auto add = [](Database &database) {
            Transaction transaction(database, {});
            database.Execute(u"INSERT INTO People (Name) VALUES (hex(randomblob(8)))"_s, {}, {});
            transaction.Commit();
        };
        Database ours = open(u"people"_s); // while it is open, another program switches
        Database::OpenDatabase(path).Select(u"PRAGMA journal_mode = WAL"_s, {}, {});
        add(ours);
        QCOMPARE(Database::OpenDatabase(path).HasTable(u"People"_s), true);

        Database other = Database::OpenDatabase(path); // switches, and keeps the file open
        other.Select(u"PRAGMA journal_mode = WAL"_s, {}, {});
        other.Execute(u"INSERT INTO People (Name) VALUES ('other')"_s, {}, {});
        QCOMPARE(KindThrownBy([&] { add(ours); }), ErrorKind::JournalMode);
        QCOMPARE(KindThrownBy([&] { ours.KeepJournalMode(); }), ErrorKind::JournalMode);
        ours.Close();
        QCOMPARE(KindThrownBy([&] { open(u"People"_s); }), ErrorKind::JournalMode);
        other.Close();
        const QByteArray before = Content(path);
        QCOMPARE(KindThrownBy([&] { open(u"Stemp"_s); }), ErrorKind::JournalMode); // another program's file
        QCOMPARE(Content(path), before);
        ours = open(u"People"_s);
        QCOMPARE(Value(ours, u"count(*) FROM People"_s).toInt(), 2);
        QVERIFY(!QFile::exists(path + u"-wal"_s));
    }

    void WhatCannotBeWrittenCanBeRead()
    {
#ifndef Q_OS_UNIX
        QSKIP("needs file permissions");
#endif
        const QString path = NewFile();
        for (const auto permissions : {QFile::ReadOwner | QFile::ReadOther,
                                       QFile::ReadOwner | QFile::ReadOther | QFile::WriteOther}) { // its folder cannot
            QVERIFY(QFile::setPermissions(path, permissions));
            const OrdinaryUser user(folder_.path());
            Database database = Database::OpenDatabase(path);
            QCOMPARE(Value(database, u"count(*) FROM People"_s).toInt(), 0);
            QCOMPARE(KindThrownBy([&] { database.Execute(u"DELETE FROM People"_s, {}, {}); }), ErrorKind::ReadOnly);
        }
    }

    void ValuesAreStoredAsTheProgramNeedsThem()
    {
        QCOMPARE(Value(database_, u"?"_s, {true}).toInt(), -1);
        QCOMPARE(Value(database_, u"?"_s, {false}).toInt(), 0);
        QCOMPARE(Value(database_, u"?"_s, {WallTime({1900, 1, 1}, {12, 0})}).toDouble(), 2.5);
        QCOMPARE(Value(database_, u"? IS NULL"_s, {QVariant()}).toInt(), 1);
        QCOMPARE(database_.Insert(u"INSERT INTO People (Name) VALUES (?)"_s, {u"Anna"_s}, u"adding"_s), 1);
        QCOMPARE(database_.Insert(u"INSERT OR IGNORE INTO People (Name) VALUES (?)"_s, {u"anna"_s}, u"adding"_s), 0);
        // A misspelt field is no text.
        QCOMPARE(KindThrownBy([&] { Value(database_, u"1 FROM People WHERE \"Nmae\" = 'Anna'"_s); }), ErrorKind::Other);
    }

    void DatesAreExactToTheSecond()
    {
        const QDateTime first = WallTime({1000, 1, 1}, {0, 0});
        const qint64 span = first.secsTo(WallTime({9999, 12, 31}, {0, 0}));
        QRandomGenerator random(1899);
        for (int i = 0; i < 100'000; ++i) {
            const QDateTime time = first.addSecs(random.bounded(span));
            if (FromDays(ToDays(time)) != time || DateOf(ToDays(time)) != time.date())
                QFAIL(qPrintable(time.toString(Qt::ISODate)));
        }
        QCOMPARE(ToDays(WallTime({1899, 12, 30}, {6, 0})), 0.25);
        QCOMPARE(FromDays(36526), WallTime({2000, 1, 1}, {0, 0}));
        for (const QVariant &none : {QVariant(), QVariant(u"45000"_s), QVariant(std::nan("")), QVariant(-1e300)})
            QVERIFY(!ReadDateField(none));
        // A wall-clock time that summer time skips is a time like any other.
        const QDateTime skipped = WallTime({2024, 3, 31}, {2, 30});
        QCOMPARE(ReadDateField(DateField(skipped)), skipped);
    }

    void DateLiteralsAreTheVeryDates()
    {
        QCOMPARE(TranslateDateLiterals(u"a>#3/3/2001# AND b<#2/30/2001#OR c<#1/1/1900 24:00:00#"_s),
                 u"a>(36953) AND b<(NULL)OR c<(NULL)"_s);
        const QString quoted = u"'#3/3/2001#''#3/3/2001#' \"#3/3/2001#\" [#3/3/2001#] # #x#"_s;
        QCOMPARE(TranslateDateLiterals(quoted), quoted);
    }

    void DateFunctions()
    {
        QDateTime now = WallTime({2024, 2, 29}, {23, 59, 59});
        database_.RegisterFunctions([&now] { return now; });
        QCOMPARE(Value(database_, u"Now()"_s).toDouble(), ToDays(now));
        QCOMPARE(Value(database_, TranslateDateLiterals(u"Now() = #2/29/2024 23:59:59#"_s)).toInt(), 1);
        const QString day = u"Year(Now()) * 10000 + Month(Now()) * 100 + Day(Now())"_s;
        QCOMPARE(Value(database_, day).toInt(), 20240229);
        now = now.addSecs(1);
        QCOMPARE(Value(database_, day).toInt(), 20240301);
        // Halves go to the even number, and so does what is as good as a half.
        for (const QString &fact :
             {u"Year(NULL) IS NULL"_s, u"Day('x') IS NULL"_s, u"Month(1e300) IS NULL"_s, u"CInt(NULL) IS NULL"_s,
              u"CInt(2.5) = 2"_s, u"CInt(3.5) = 4"_s, u"CInt(-2.5) = -2"_s, u"CInt(2.5001) = 2"_s,
              u"CInt(2.5 + 1 / 3600.0) = 3"_s, u"CInt(1e15 + 1) = 1e15 + 1"_s})
            QVERIFY2(Value(database_, fact).toBool(), qPrintable(fact));
    }

    void TakesAFileForHostile()
    {
        for (const QString &statement :
             {u"CREATE TABLE pragma_index_list (x)"_s, u"CREATE VIEW Seen AS SELECT * FROM Jobs"_s,
              u"CREATE TRIGGER Endless AFTER INSERT ON Jobs BEGIN INSERT INTO pragma_index_list WITH RECURSIVE n(i) AS "
              "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n; END"_s,
              u"INSERT INTO Jobs (Name) VALUES ('Echo')"_s})
            database_.Execute(statement, {}, u"a test"_s);
        database_.OpenRecordset(u"Jobs"_s).Index(u"ByName"_s);
        QCOMPARE(KindThrownBy([&] { Value(database_, u"count(*) FROM Seen"_s); }), ErrorKind::Other);

        const QString insert = u"INSERT INTO Jobs (Name, Hours) VALUES (zeroblob(2000000), 7)"_s;
        QCOMPARE(KindThrownBy([&] { database_.Execute(insert, {}, u"a test"_s); }), ErrorKind::TooLarge);
        database_.ExecuteOnLarge(insert, {}, u"a test"_s);
        const auto hours = [&] { return database_.SelectRows({u"Jobs"_s, {u"Name"_s, u"Hours"_s}, 0}, u"a test"_s); };
        QVERIFY(hours().size() == 6 && IsTooLarge(hours()[0][0]) && hours()[0][1] == 7);
        database_.ExecuteOnLarge(u"DELETE FROM Jobs WHERE Hours = 7"_s, {}, u"a test"_s);
        QCOMPARE(hours().size(), 5);

        const auto never = [&] {
            Transaction transaction(database_, u"a test"_s);
            const TimeLimit limit(database_, std::chrono::milliseconds(20));
            database_.Execute(u"DELETE FROM Jobs"_s, {}, u"a test"_s);
            Value(database_,
                  u"(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n)"_s);
        };
        QCOMPARE(KindThrownBy(never), ErrorKind::Stopped);
        QCOMPARE(hours().size(), 5);
    }

    void WalksInOrderAndSeeks()
    {
        Recordset rows = Jobs(false);
        QVERIFY(rows.IsOpen() && rows.Eof());
        QCOMPARE(All(rows), u"delta Alpha charlie Bravo"_s);
        rows.MoveNext(); // past the end already
        QVERIFY(rows.Eof());
        rows.Index(u"BYNAME"_s);
        QCOMPARE(All(rows), u"Alpha Bravo charlie delta"_s);

        // What was read is kept, and no read stays open in the way of a writer.
        Database writer = Database::OpenDatabase(database_.Path(), std::chrono::milliseconds(10));
        QCOMPARE(writer.Execute(u"DELETE FROM Jobs WHERE Name = 'delta'"_s, {}, u"writing"_s), 1);
        QCOMPARE(All(rows), u"Alpha Bravo charlie delta"_s);
        QCOMPARE(Count(), 3);

        rows.AddNew();
        rows.SetField(u"name"_s, u"Dora"_s);
        rows.SetField(u"no such field"_s, 1);
        rows.Update();
        QCOMPARE(rows.Field(u"Hours"_s).toDouble(), 1.5);
        database_.Insert(u"INSERT INTO Jobs (Name) VALUES ('Beta')"_s, {}, u"another's row"_s);
        rows.Seek(u"BETA"_s); // reads anew
        QCOMPARE(Rest(rows), u"Beta Bravo charlie Dora"_s);
        rows.Seek(u"nobody"_s);
        QVERIFY(rows.NoMatch() && rows.Eof());
    }

    void EditWritesOnlyWhatWasSet()
    {
        Recordset rows = Jobs();
        rows.Seek(u"bravo"_s);
        rows.Edit();
        database_.Execute(u"UPDATE Jobs SET Hours = 7"_s, {}, u"another's change"_s);
        rows.SetField(u"Name"_s, u"Brava"_s);
        rows.Update();
        QCOMPARE(rows.Field(u"Hours"_s).toDouble(), 7.0);
        QCOMPARE(All(rows), u"Alpha Brava charlie delta"_s);

        rows.MoveFirst();
        rows.Edit();
        rows.SetField(u"Name"_s, u"lost"_s);
        rows.MoveNext(); // a move gives up the edit
        QVERIFY_THROWS_EXCEPTION(Error, rows.Update());
        QCOMPARE(All(rows), u"Alpha Brava charlie delta"_s);
    }

    void FailedUpdateCanBeTriedAgain()
    {
        Recordset rows = Jobs();
        rows.AddNew();
        rows.SetField(u"Name"_s, u"echo"_s);
        {
            const Holder other(database_.Path(), Holder::Writing);
            database_.SetBusyWait(std::chrono::milliseconds(10));
            QVERIFY_THROWS_EXCEPTION(Error, rows.Update());
        }
        rows.Update();
        QCOMPARE(Count(), 5);

        database_.Execute(u"DELETE FROM Jobs"_s, {}, u"another's deletion"_s);
        rows.Edit();
        rows.SetField(u"Hours"_s, 2);
        QVERIFY_THROWS_EXCEPTION(Error, rows.Update());
    }

private:
    QTemporaryDir folder_;
    int files_ = 0;
    Database database_;

    QString NewPath()
    {
        return folder_.filePath(u"%1.mdb"_s.arg(++files_));
    }

    QString NewFile()
    {
        const QString path = NewPath();
        EmptyDatabase(path).CreateTableDef(people);
        return path;
    }

    // The names from the current row on.
    static QString Rest(Recordset &rows)
    {
        QStringList names;
        for (; !rows.Eof(); rows.MoveNext())
            names.append(rows.Field(u"Name"_s).toString());
        return names.join(u' ');
    }
    static QString All(Recordset &rows)
    {
        rows.MoveFirst();
        return Rest(rows);
    }

    Recordset Jobs(bool byName = true)
    {
        Recordset rows = database_.OpenRecordset(u"Jobs"_s);
        if (byName)
            rows.Index(u"ByName"_s);
        return rows;
    }

    int Count()
    {
        return database_.Select(u"SELECT count(*) FROM Jobs"_s, {}, u"counting"_s)[0][0].toInt();
    }
};

QTEST_GUILESS_MAIN(TestDao)
#include "tst_dao.moc"

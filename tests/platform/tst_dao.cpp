#include "OrdinaryUser.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateLiterals.h"
#include "platform/dao/DateValue.h"
#include "platform/dao/Error.h"
#include "platform/dao/TableDef.h"
#include "support/EmptyDatabase.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <optional>

using namespace dao;
using namespace Qt::Literals::StringLiterals;

namespace {

const TableDef people{
    u"People"_s, {{u"Name"_s, u"TEXT"_s, true, true}, {u"Born"_s, u"REAL"_s}}, {{u"Name"_s, u"Name"_s, true}}};

template <class Work> std::optional<ErrorKind> KindThrownBy(Work work)
{
    try {
        work();
    } catch (const Error &error) {
        return error.Kind();
    }
    return std::nullopt;
}

int CountPeople(Database &database)
{
    return database.Select(u"SELECT count(*) FROM People"_s, {}, u"counting"_s)[0][0].toInt();
}

void AddPerson(Database &database, const QString &name)
{
    database.Insert(u"INSERT INTO People (Name) VALUES (?)"_s, {name}, u"adding a person"_s);
}

QVariant Value(Database &database, const QString &expression, const QVariantList &values = {})
{
    return database.Select(u"SELECT "_s + expression, values, u"evaluating"_s).value(0).value(0);
}

} // namespace

class TestDao : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder_;
    int files_ = 0;

    QString NewPath() { return folder_.filePath(u"%1.mdb"_s.arg(++files_)); }

    QString NewFile()
    {
        const QString path = NewPath();
        EmptyDatabase(path).CreateTableDef(people);
        return path;
    }

private slots:
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

    void LeavesAnotherProgramsWriteAheadLogAlone()
    {
        QFile file(NewFile());
        Database::OpenDatabase(file.fileName()).Select(u"PRAGMA journal_mode = WAL"_s, {}, u"a test"_s);
        QVERIFY(file.open(QFile::ReadOnly));
        const QByteArray before = file.readAll();
        file.close();
        QCOMPARE(KindThrownBy([&] { Database::OpenDatabase(file.fileName()); }), ErrorKind::Other);
        QVERIFY(file.open(QFile::ReadOnly));
        QCOMPARE(file.readAll(), before);
        QVERIFY(!QFile::exists(file.fileName() + u"-wal"_s));
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
            QCOMPARE(CountPeople(database), 0);
            QCOMPARE(KindThrownBy([&] { AddPerson(database, u"Anna"_s); }), ErrorKind::ReadOnly);
        }
    }

    void ValuesAreStoredAsTheProgramNeedsThem()
    {
        Database database = Database::OpenDatabase(NewFile());
        QCOMPARE(Value(database, u"?"_s, {true}).toInt(), -1);
        QCOMPARE(Value(database, u"?"_s, {false}).toInt(), 0);
        QCOMPARE(Value(database, u"?"_s, {WallTime({1900, 1, 1}, {12, 0})}).toDouble(), 2.5);
        QCOMPARE(Value(database, u"? IS NULL"_s, {QVariant()}).toInt(), 1);
        QCOMPARE(database.Insert(u"INSERT INTO People (Name) VALUES (?)"_s, {u"Anna"_s}, u"adding"_s), 1);
        QCOMPARE(database.Insert(u"INSERT OR IGNORE INTO People (Name) VALUES (?)"_s, {u"anna"_s}, u"adding"_s), 0);
        // A misspelt field is no text.
        QCOMPARE(KindThrownBy([&] { Value(database, u"1 FROM People WHERE \"Nmae\" = 'Anna'"_s); }), ErrorKind::Other);
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
        Database database = Database::OpenDatabase(NewFile());
        QDateTime now = WallTime({2024, 2, 29}, {23, 59, 59});
        database.RegisterFunctions([&now] { return now; });
        QCOMPARE(Value(database, u"Now()"_s).toDouble(), ToDays(now));
        QCOMPARE(Value(database, TranslateDateLiterals(u"Now() = #2/29/2024 23:59:59#"_s)).toInt(), 1);
        QCOMPARE(Value(database, u"Year(Now()) * 10000 + Month(Now()) * 100 + Day(Now())"_s).toInt(), 20240229);
        now = now.addSecs(1);
        QCOMPARE(Value(database, u"Day(Now())"_s).toInt(), 1);
        QCOMPARE(Value(database,
                       u"Year(NULL) IS NULL AND Day('x') IS NULL AND Month(1e300) IS NULL AND CInt(NULL) IS NULL"_s)
                     .toInt(),
                 1);

        // Halves go to the even number, and so does what is as good as a half.
        QCOMPARE(Value(database, u"CInt(2.5) = 2 AND CInt(3.5) = 4 AND CInt(-2.5) = -2 AND CInt(2.5001) = 2 "
                                 "AND CInt(2.5 + 1 / 3600.0) = 3 AND CInt(1e15 + 1) = 1e15 + 1"_s)
                     .toInt(),
                 1);
    }
};

QTEST_GUILESS_MAIN(TestDao)
#include "tst_dao.moc"

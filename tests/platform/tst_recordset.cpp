#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/TableDef.h"
#include "support/EmptyDatabase.h"

#include <QTemporaryDir>
#include <QTest>

using namespace dao;
using namespace Qt::Literals::StringLiterals;

class TestRecordset : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder_;
    int files_ = 0;
    Database database_;

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

    int Count() { return database_.Select(u"SELECT count(*) FROM Jobs"_s, {}, u"counting"_s)[0][0].toInt(); }

private slots:
    void init()
    {
        database_ = EmptyDatabase(folder_.filePath(u"%1.mdb"_s.arg(++files_)));
        database_.CreateTableDef({u"Jobs"_s,
                                  {{u"Name"_s, u"TEXT"_s, true}, {u"Hours"_s, u"REAL NOT NULL DEFAULT 1.5"_s}},
                                  {{u"ByName"_s, u"Name"_s}}});
        database_.Execute(u"INSERT INTO Jobs (Name) VALUES ('delta'), ('Alpha'), ('charlie'), ('Bravo')"_s, {},
                          u"preparing"_s);
    }

    void WalksInOrder()
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
        QCOMPARE(writer.Execute(u"DELETE FROM Jobs"_s, {}, u"writing"_s), 4);
        QCOMPARE(All(rows), u"Alpha Bravo charlie delta"_s);
        QCOMPARE(Count(), 0);
    }

    void ReadsAnewWhatIsNew()
    {
        Recordset rows = Jobs();
        rows.MoveFirst();
        rows.AddNew();
        rows.SetField(u"name"_s, u"Dora"_s);
        rows.SetField(u"no such field"_s, 1);
        rows.Update();
        QCOMPARE(rows.Field(u"Hours"_s).toDouble(), 1.5);
        QCOMPARE(Rest(rows), u"Dora"_s);
        database_.Insert(u"INSERT INTO Jobs (Name) VALUES ('Beta')"_s, {}, u"another's row"_s);
        rows.Seek(u"BETA"_s);
        QCOMPARE(Rest(rows), u"Beta Bravo charlie delta Dora"_s);
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
            Database other = Database::OpenDatabase(database_.Path());
            const Transaction transaction(other, u"being in the way"_s);
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

    void TableNamesOfAnyKind()
    {
        for (const QString &name : {u"say \"hi\""_s, u"a.b"_s, u"it's"_s, u"SELECT x"_s, u"Åse Æbelø"_s, u"x]y["_s}) {
            database_.CreateTableDef(
                {name, {{u"From"_s, u"TEXT"_s, true}, {u"a \"b\""_s, u"TEXT"_s}}, {{u"From"_s, u"From"_s}}});
            Recordset rows = database_.OpenRecordset(name);
            rows.Index(u"From"_s);
            rows.AddNew();
            rows.SetField(u"From"_s, u"Anna"_s);
            rows.SetField(u"a \"b\""_s, name);
            rows.Update();
            rows.Seek(u"ANNA"_s);
            QCOMPARE(rows.Field(u"a \"b\""_s).toString(), name);
        }
    }
};

QTEST_GUILESS_MAIN(TestRecordset)
#include "tst_recordset.moc"

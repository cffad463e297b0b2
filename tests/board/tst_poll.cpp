#include "board/Poll.h"
#include "platform/dao/DateValue.h"
#include "platform/dao/Error.h"
#include "support/ProgramFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Poll::Acknowledgement;
using Poll::News;

namespace {

int statements = 0;
int failing = 0; // the number of the statement that fails, from now on; 0 for none

// One person's connection to the company file, with what a running copy remembers.
class Copy
{
public:
    Copy(const ProgramFolder &folder, const QString &user)
        : user_(user), database(dao::Database::OpenDatabase(folder.File(jobsFile), std::chrono::milliseconds(1)))
    {
    }
    void Join() { Presence::AddSelfToUsers(database, user_, {}); }

    // What Mail does, in few words: `outbox` and `acknowledgements` are what the private transaction would change.
    News Look()
    {
        const News news = Poll::Run(database, memory_, {user_, now, outbox, acknowledgements});
        for (const Acknowledgement &done : news.acknowledged)
            acknowledgements.removeAll(done);
        for (const QString &id : news.delivered)
            acknowledgements.append({news.fileId, id, Acknowledgement::Of::Receipt});
        outbox.removeIf([&](const Poll::OutgoingMessage &message) { return news.delivered.contains(message.id); });
        for (const Poll::IncomingMessage &message : news.incoming) {
            if (!seen.contains(message.id))
                seen.insert(message.id, message.from + u": "_s + message.message);
            acknowledgements.removeAll({news.fileId, message.id, Acknowledgement::Of::Message});
            acknowledgements.append({news.fileId, message.id, Acknowledgement::Of::Message});
        }
        return news;
    }
    void Restart() { memory_ = {}; }
    void Sql(const QString &statement) { database.Execute(statement, {}, u"a test"_s); }
    int Count(const QString &table)
    {
        return database.Select(u"SELECT count(*) FROM "_s + dao::Quoted(table), {}, u"a test"_s)[0][0].toInt();
    }
    QDateTime now = dao::WallTime(QDate(2026, 3, 7), QTime(15, 7));
    QList<Poll::OutgoingMessage> outbox;
    QList<Acknowledgement> acknowledgements;
    QMap<QString, QString> seen;

private:
    QString user_;
    Poll::Memory memory_;

public:
    dao::Database database;
};

} // namespace

class TestPoll : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        dao::SetStatementHook([] {
            ++statements;
            if (failing > 0 && --failing == 0)
                throw dao::Error(dao::ErrorKind::Other, u"a test"_s, {}, u"made to fail"_s);
        });
    }

    void init()
    {
        anna_.reset();
        bo_.reset();
        folder_ = std::make_unique<ProgramFolder>();
        folder_->MakeJobs(jobsFile);
        anna_ = std::make_unique<Copy>(*folder_, u"ANNA"_s);
        bo_ = std::make_unique<Copy>(*folder_, u"BO"_s);
        for (Copy *copy : {anna_.get(), bo_.get(), anna_.get()}) {
            copy->Join();
            copy->Look();
        }
    }

    void DeliversOnceWhateverIsRepeated()
    {
        Copy &anna = *anna_;
        Copy &bo = *bo_;
        anna.Sql(u"UPDATE Users SET User = 'Anna' WHERE User = 'ANNA'"_s);
        anna.outbox = {
            {u"1"_s, u"BO"_s, u"first"_s}, {u"2"_s, u"bo"_s, u"second"_s}, {u"3"_s, u"NOBODY"_s, u"third"_s}};
        const auto unsent = anna.outbox;
        for (int lost = 0; lost < 3; ++lost) { // the sender dies each time before it can remember what it delivered
            anna.Restart();
            anna.outbox = unsent;
            anna.acknowledgements.clear();
            QCOMPARE(anna.Look().delivered, (QStringList{u"1"_s, u"2"_s}));
            QCOMPARE(anna.Count(u"BO"_s), lost < 2 ? 2 : 0);
            bo.Look(); // sees them, and deletes them with the next look
        }
        QCOMPARE(bo.seen.values(), (QStringList{u"Anna: first"_s, u"Anna: second"_s}));
        QCOMPARE(anna.outbox.size(), 1);
        QCOMPARE(anna.Count(u":Receipts"_s), 2);
        anna.Look();
        bo.Look();
        QCOMPARE(anna.Count(u":Receipts"_s), 0);
        QCOMPARE(anna.Count(u"BO"_s), 0);
        QVERIFY(anna.acknowledgements.isEmpty() && bo.acknowledgements.isEmpty());

        // What is to be acknowledged in another file waits; who joins gets what was queued, in the same look.
        anna.acknowledgements = {{u"another file"_s, u"1"_s, Acknowledgement::Of::Receipt}};
        QVERIFY(anna.Look().acknowledged.isEmpty());
        Copy(*folder_, u"NOBODY"_s).Join();
        QCOMPARE(anna.Look().delivered, QStringList{u"3"_s});
    }

    void WorksBesideCopiesThatKnowLess()
    {
        Copy &other = *anna_;
        Copy &bo = *bo_;
        for (const QString &statement :
             {u"DROP TABLE \":Receipts\""_s, u"DROP TABLE \":File\""_s, u"DROP TABLE Users"_s,
              u"CREATE TABLE Users (User TEXT, State INTEGER, Comment TEXT)"_s,
              u"INSERT INTO Users VALUES ('bo', NULL, 'here'), ('Anna', -1, NULL), (NULL, 1, NULL)"_s,
              u"CREATE TABLE pragma_data_version (x)"_s, u"CREATE VIEW pragma_table_info AS SELECT 1"_s,
              u"DROP TABLE BO"_s, u"CREATE TABLE BO (\"from\" TEXT, message TEXT)"_s,
              u"INSERT INTO BO VALUES ('Anna', 'a'), ('Anna', 'a')"_s})
            other.Sql(statement);
        bo.Restart();
        // As long as nothing can be written, the users are read, and messages wait.
        bo.Sql(u"PRAGMA query_only = ON"_s);
        for (int look = 0; look < 2; ++look) {
            const News news = bo.Look();
            QVERIFY(news.refusedWrite && news.refusedWrite->Kind() == dao::ErrorKind::ReadOnly);
            QVERIFY(news.users.size() == 2 && news.users[1].comment == u"here" && news.incoming.isEmpty());
        }
        bo.Sql(u"PRAGMA query_only = OFF"_s);
        const News news = bo.Look();
        QVERIFY(!news.refusedWrite && news.users[1].lastSign == bo.now);
        QCOMPARE(bo.seen.values(), (QStringList{u"Anna: a"_s, u"Anna: a"_s}));
        other.Sql(u"INSERT INTO BO (\"From\", Message) VALUES (NULL, 'b')"_s);
        bo.Look();
        QCOMPARE(bo.seen.size(), 3);
        bo.Look();
        QCOMPARE(bo.Count(u"BO"_s), 0);

        // A table that refuses messages keeps back its own only.
        other.Sql(u"INSERT INTO Users (User) VALUES ('Carl')"_s);
        other.Sql(u"CREATE TABLE Carl (\"From\", Message, Colour NOT NULL)"_s);
        bo.outbox = {{u"1"_s, u"CARL"_s, u"text"_s}, {u"2"_s, u"ANNA"_s, u"text"_s}};
        for (int look = 0; look < 2; ++look) {
            QVERIFY(!bo.Look().refusedWrite);
            QCOMPARE(bo.outbox.size(), 1);
            bo.Restart();
        }
        other.Look();
        QCOMPARE(other.seen.keys(), QStringList{u"2"_s});
        other.Sql(u"DROP TABLE Carl"_s);
        QCOMPARE(bo.Look().delivered, QStringList{u"1"_s});
    }

    void TakesNamesOfAnyKind_data()
    {
        QTest::addColumn<bool>("hasTable");
        for (const QString &name : {u"say \"hi\" :it ?"_s, u"O'Neil"_s, u"a.b"_s, u" select "_s, u"From"_s, u"[x]"_s,
                                    u"\u00e6\u00f8\u00e5"_s, u"dbstat"_s, QString(255, u'\u00d8'), u"x;--"_s})
            QTest::newRow(name.toUtf8().constData()) << true;
        for (const QString &name : {u"Users"_s, u"user"_s, u":file"_s, u"sqlite_x"_s, u"Pragma_data_version"_s})
            QTest::newRow(name.toUtf8().constData()) << false;
    }

    void TakesNamesOfAnyKind()
    {
        QFETCH(const bool, hasTable);
        const QString name = QString::fromUtf8(QTest::currentDataTag());
        Copy &anna = *anna_;
        Copy named(*folder_, name.toUpper());
        anna.database.Insert(u"INSERT INTO Users (User) VALUES (?)"_s, {name}, u"a test"_s);
        anna.outbox = {{u"1"_s, name.toUpper(), u"text"_s}};
        QCOMPARE(anna.Look().delivered.size(), hasTable ? 1 : 0);
        named.outbox = {{u"2"_s, u"ANNA"_s, u"text"_s}};
        QVERIFY(!named.Look().refusedWrite);
        QCOMPARE(named.seen.size(), hasTable ? 1 : 0);
        named.Look();
        anna.Look();
        QCOMPARE(anna.seen.value(u"2"_s), name + u": text"_s);
        anna.Look();
        statements = 0; // a message that can't be delivered costs nothing
        QVERIFY(!anna.Look().changed);
        QCOMPARE(statements, 1);
    }

    void TakesOtherCaseForTheSamePerson()
    {
        Copy aase(*folder_, u"\u00c5SE"_s);
        aase.Sql(u"INSERT INTO Users (User) VALUES ('\u00c5se')"_s);
        aase.Sql(u"CREATE TABLE \"\u00e5se\" (\"From\", Message)"_s);
        aase.Look();
        Copy &anna = *anna_;
        anna.outbox = {{u"1"_s, u"\u00e5sE"_s, u"text"_s}};
        QCOMPARE(anna.Look().delivered.size(), 1);
        QCOMPARE(aase.Look().incoming.size(), 1);
        Presence::DeleteUser(anna.database, u"\u00c5SE"_s);
        QVERIFY(anna.database.HasTable(u"\u00e5se"_s)); // the message waits
        QCOMPARE(aase.Look().users.size(), 2);          // deletes what it has taken
        Presence::AddSelfToUsers(aase.database, u"\u00c5SE"_s, {});
        Presence::DeleteUser(anna.database, u"\u00e5SE"_s);
        QVERIFY(!anna.database.HasTable(u"\u00e5se"_s));
        QCOMPARE(aase.Look().users.size(), 2);
        QVERIFY(!anna.database.HasTable(u"\u00c5se"_s)); // not for one who is no user
        Presence::AddSelfToUsers(aase.database, u"\u00c5SE"_s, {});
        aase.Sql(u"DROP TABLE \"\u00c5SE\""_s);
        aase.Look();
        QVERIFY(anna.database.HasTable(u"\u00c5SE"_s));
    }

    void CostsOneStatementUntilSomethingChanges()
    {
        Copy &anna = *anna_;
        Copy &bo = *bo_;
        const auto cost = [&](int expected) {
            statements = 0;
            const bool changed = anna.Look().changed;
            return statements == expected && changed == (expected > 1);
        };
        QVERIFY(cost(1));
        bo.Sql(u"INSERT INTO Projects (JobID) VALUES ('new')"_s);
        QVERIFY(cost(7));
        anna.Sql(u"UPDATE Users SET Comment = 'own' WHERE User = 'ANNA'"_s); // by the same connection
        QVERIFY(cost(7));
        QVERIFY(cost(1));

        // A heartbeat a minute, by a clock that may be set back; it is no news to oneself.
        anna.now = anna.now.addSecs(59);
        QVERIFY(cost(1));
        for (const int seconds : {1, -7200}) {
            anna.now = anna.now.addSecs(seconds);
            anna.Look();
            QCOMPARE(Presence::ReadUsers(bo.database)[0].lastSign, anna.now);
            QVERIFY(cost(1));
        }
    }

    void TakesWhatIsTooLargeOrTooMuch()
    {
        Copy &bo = *bo_;
        for (const QString &statement :
             {u"UPDATE Users SET Comment = zeroblob(10000000) WHERE User = 'BO'"_s,
              u"INSERT INTO Users (User) VALUES (zeroblob(10000000))"_s,
              u"INSERT INTO BO (\"From\", Message, MessageId) VALUES ('a', zeroblob(10000000), '0'), "
              "('a', printf('%.*c', 1000000, 'x'), zeroblob(10000000))"_s,
              u"INSERT INTO BO (Message) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 450) "
              "SELECT i FROM n"_s})
            anna_->database.ExecuteOnLarge(statement, {}, u"a test"_s);
        int looks = 1;
        while (bo.Look().moreWait)
            ++looks;
        QVERIFY(looks == 3 && bo.seen.size() == 452);
        QCOMPARE(bo.seen[u"0"_s], u"a: (too large to be read)"_s);
        QVERIFY(std::all_of(bo.seen.cbegin(), bo.seen.cend(), [](const QString &text) { return text.size() < 100; }));
        bo.now = bo.now.addSecs(60);
        const News news = bo.Look();
        QVERIFY(!news.refusedWrite && news.users.size() == 3 && bo.Count(u"BO"_s) == 0);
        QVERIFY(news.users[2].comment == u"(too large to be read)" && news.users[2].lastSign == bo.now);
        for (const Presence::UserRow &user : news.users)
            if (!user.isNamed)
                Presence::DeleteUser(bo.database, user.user);
        QCOMPARE(bo.Look().users.size(), 2);
    }

    void LosesNothingWhileAnotherWrites()
    {
        Copy &anna = *anna_;
        Copy &bo = *bo_;
        anna.Sql(u"INSERT INTO BO (\"From\", Message, MessageId) VALUES ('a', 'with id', '1'), ('a', 'bare', NULL)"_s);
        {
            const dao::Transaction lock(anna.database, u"a test"_s);
            const News news = bo.Look();
            QVERIFY(news.refusedWrite && news.refusedWrite->Kind() == dao::ErrorKind::Busy);
            QCOMPARE(news.users.size(), 2);
            QCOMPARE(bo.seen.keys(), QStringList{u"1"_s}); // the other one's id could not be kept
        }
        bo.acknowledgements.clear(); // so that nothing else makes the next look write
        bo.Look();
        QCOMPARE(bo.seen.size(), 2);

        // While the file can't even be read, nothing is remembered.
        anna.Sql(u"UPDATE Users SET State = 1"_s);
        anna.Sql(u"BEGIN EXCLUSIVE"_s);
        QVERIFY_THROWS_EXCEPTION(dao::Error, bo.Look());
        anna.Sql(u"COMMIT"_s);
        QCOMPARE(bo.Look().users[0].state, 1);
    }

    void LosesNothingWhicheverStatementFails()
    {
        Copy &anna = *anna_;
        Copy &bo = *bo_;
        constexpr int most = 60; // a look has fewer
        for (int n = 1; n <= most; ++n) {
            anna.outbox.append({QString::number(n), u"BO"_s, u"text"_s});
            for (Copy *copy : {&anna, &bo}) {
                copy->Sql(u"UPDATE Users SET State = %1"_s.arg(n));
                copy->Sql(u"INSERT INTO BO (\"From\", Message) VALUES ('other', '%1')"_s.arg(n));
                if (n % 2)
                    copy->Restart();
                failing = n;
                try {
                    copy->Look();
                } catch (const dao::Error &) {
                }
                failing = 0;
            }
        }
        for (int look = 0; look < 3; ++look) {
            anna.Look();
            bo.Look();
        }
        QCOMPARE(bo.seen.size(), 3 * most);
        QVERIFY(anna.outbox.isEmpty() && anna.acknowledgements.isEmpty() && bo.acknowledgements.isEmpty());
        QCOMPARE(bo.Count(u"BO"_s), 0);
        QCOMPARE(bo.Count(u":Receipts"_s), 0);
        QCOMPARE(bo.Count(u":File"_s), 1);
    }

private:
    std::unique_ptr<ProgramFolder> folder_; // outlives the connections
    std::unique_ptr<Copy> anna_;
    std::unique_ptr<Copy> bo_; // both joined, and up to date
};

QTEST_GUILESS_MAIN(TestPoll)

#include "tst_poll.moc"

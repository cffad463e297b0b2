#include "board/Presence.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "support/ProgramFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Presence::State;

namespace {

const QString jobs = u"Jobs.mdb"_s;

// A job database with people in it.
class People
{
public:
    explicit People(const QList<std::pair<QString, QVariant>> &people)
    {
        folder_.Copy(u"Blank Jobs.mdb"_s, jobs);
        database = dao::Database::OpenDatabase(folder_.File(jobs));
        dao::Transaction transaction(database, u"a test"_s);
        for (const auto &[user, fullName] : people)
            database.Execute(u"INSERT INTO Users (User, FullName) VALUES (?, ?)"_s, {user, fullName}, u"a test"_s);
        transaction.Commit();
    }

    // "user=field", in the order in which they were added.
    QString Listed(const QString &field)
    {
        QStringList rows;
        for (const QVariantList &row :
             database.Select(u"SELECT User, "_s + field + u" FROM Users ORDER BY Id"_s, {}, u"a test"_s))
            rows.append(row[0].toString() + u'=' + row[1].toString());
        return rows.join(u", "_s);
    }

private:
    ProgramFolder folder_; // outlives the connection

public:
    dao::Database database;
};

} // namespace

class TestPresence : public QObject
{
    Q_OBJECT

private slots:
    void MatchesTheLogin()
    {
        People people({{u"T2"_s, u"Twin"_s},
                       {u"T1"_s, u"Twin"_s},
                       {u"Aa"_s, u"anna"_s},
                       {u"anna"_s, {}},
                       {u"Bo"_s, u""_s},
                       {u"O'Neil"_s, u"Bo's \"Boss\""_s},
                       {u"\u00c5se"_s, {}},
                       {u"s\u00e6"_s, u"S\u00f8ren \u00c6bler\u00f8d"_s}});
        const QMap<QString, QString> matches{{u"nobody"_s, {}},
                                             {QString(), {}}, // no login matches no empty name
                                             {u"bo"_s, u"BO"_s},
                                             {u"Anna"_s, u"ANNA"_s}, // the user before a full name
                                             {u"TWIN"_s, u"T1"_s},
                                             {u"bo's \"BOSS\""_s, u"O'NEIL"_s},
                                             {u"\u00e5SE"_s, u"\u00c5SE"_s},
                                             {u"S\u00d8ren \u00e6bler\u00f8d"_s, u"S\u00c6"_s},
                                             {u"%"_s, {}}};
        for (const QString &login : matches.keys())
            QCOMPARE(Presence::MatchLogin(people.database, login).value_or(QString()), matches[login]);
    }

    void AddsSelfOnce()
    {
        People people({{u"Anna"_s, {}}, {u"\u00e5se"_s, u""_s}, {u"EVA"_s, u"Eva"_s}});
        for (int start = 0; start < 2; ++start) {
            Presence::AddSelfToUsers(people.database, u"ANNA"_s, u"Anna A"_s); // known, without a full name
            Presence::AddSelfToUsers(people.database, u"\u00c5SE"_s, u"\u00c5se B"_s);
            Presence::AddSelfToUsers(people.database, u"EVA"_s, u"Eva Two"_s); // never another's
            Presence::AddSelfToUsers(people.database, u"BO"_s, u"Bo Bo"_s);
        }
        QCOMPARE(people.Listed(u"FullName"_s), u"Anna=Anna A, \u00e5se=\u00c5se B, EVA=Eva, BO=Bo Bo"_s);
    }

    void WritesTheState()
    {
        People people({{u"Anna"_s, {}}, {u"\u00e5se"_s, {}}});
        Presence::WriteState(people.database, u"ANNA"_s, State::In);
        Presence::WriteState(people.database, u"\u00c5SE"_s, State::Off);
        Presence::WriteState(people.database, u"NOBODY"_s, State::In);
        QCOMPARE(people.Listed(u"State"_s), u"Anna=-1, \u00e5se=1"_s);

        // While another writes, only a state that is there already goes through: nothing is written for it.
        dao::Database other = dao::Database::OpenDatabase(people.database.Path());
        const dao::Transaction lock(other, u"a test"_s);
        people.database.SetBusyWait(std::chrono::milliseconds(1));
        Presence::WriteState(people.database, u"ANNA"_s, State::In);
        QVERIFY_THROWS_EXCEPTION(dao::Error, Presence::WriteState(people.database, u"ANNA"_s, State::Out));
    }
};

QTEST_GUILESS_MAIN(TestPresence)

#include "tst_presence.moc"

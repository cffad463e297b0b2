#include "board/Presence.h"
#include "platform/dao/Error.h"
#include "support/ProgramFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Presence::State;

namespace {

// Adds people to a job database.
void Add(dao::Database &jobs, const QList<std::pair<QString, QVariant>> &people)
{
    for (const auto &[user, fullName] : people)
        jobs.Insert(u"INSERT INTO Users (User, FullName) VALUES (?, ?)"_s, {user, fullName}, {});
}

} // namespace

class TestPresence : public QObject
{
    Q_OBJECT

private:
    ProgramFolder folder_;
    dao::Database jobs_;

private slots:
    void init()
    {
        jobs_.Close();
        QFile::remove(folder_.File(jobsFile));
        folder_.MakeJobs(jobsFile);
        jobs_ = dao::Database::OpenDatabase(folder_.File(jobsFile), std::chrono::milliseconds(1));
    }

    void MatchesTheLogin()
    {
        Add(jobs_, {{u"T2"_s, u"Twin"_s},
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
            QCOMPARE(Presence::MatchLogin(jobs_, login).value_or(QString()), matches[login]);
    }

    void AddsSelfOnce()
    {
        Add(jobs_, {{u"Anna"_s, {}}, {u"\u00e5se"_s, u""_s}, {u"EVA"_s, u"Eva"_s}});
        for (int start = 0; start < 2; ++start) {
            Presence::AddSelfToUsers(jobs_, u"ANNA"_s, u"Anna A"_s, u"%1"_s.arg(start)); // known, without a full name
            Presence::AddSelfToUsers(jobs_, u"\u00c5SE"_s, u"\u00c5se B"_s);
            Presence::AddSelfToUsers(jobs_, u"EVA"_s, u"Eva Two"_s); // never another's
            Presence::AddSelfToUsers(jobs_, u"BO"_s, u"Bo Bo"_s);
        }
        QCOMPARE(folder_.Rows(jobsFile, u"SELECT User, FullName, Login FROM Users ORDER BY Id"_s),
                 u"Anna Anna A 0, \u00e5se \u00c5se B , EVA Eva , BO Bo Bo "_s);
        QCOMPARE(Presence::MatchLogin(jobs_, u"0"_s), u"ANNA"_s);
    }

    void WritesTheState()
    {
        Add(jobs_, {{u"Anna"_s, {}}, {u"\u00e5se"_s, {}}});
        Presence::WriteState(jobs_, u"ANNA"_s, State::In);
        Presence::WriteState(jobs_, u"\u00c5SE"_s, State::Off);
        Presence::WriteState(jobs_, u"NOBODY"_s, State::In);
        QCOMPARE(folder_.Rows(jobsFile, u"SELECT User, State FROM Users ORDER BY Id"_s), u"Anna -1, \u00e5se 1"_s);

        // While another writes, only a state that is there already goes through: nothing is written for it.
        const Holder other(jobs_.Path(), Holder::Writing);
        Presence::WriteState(jobs_, u"ANNA"_s, State::In);
        QVERIFY_THROWS_EXCEPTION(dao::Error, Presence::WriteState(jobs_, u"ANNA"_s, State::Out));
    }

    void WritesTheJobWithTheState()
    {
        Add(jobs_, {{u"Anna"_s, {}}});
        const Presence::Work work{u"K-1 : "_s + QString(300, u'x'), QDateTime({2026, 3, 7}, {14, 5}, Qt::UTC)};
        const Presence::Work cut{work.job.left(Presence::longestJob), work.since};
        Presence::WriteState(jobs_, u"ANNA"_s, State::In, work);
        QCOMPARE(Presence::ReadUsers(jobs_)[0].work, cut);
        const Presence::Work next{u"K-2 : y"_s, work.since.addSecs(60)}; // the state stays
        Presence::WriteState(jobs_, u"ANNA"_s, State::In, next);
        QCOMPARE(Presence::ReadUsers(jobs_)[0].work, next);
        Presence::WriteState(jobs_, u"ANNA"_s, State::Off);
        QCOMPARE(folder_.Rows(jobsFile, u"SELECT State, Job IS NULL, JobSince IS NULL FROM Users"_s), u"1 1 1"_s);
        folder_.Sql(jobsFile, u"ALTER TABLE Users RENAME COLUMN JobSince TO Other"_s); // as another version leaves it
        Presence::WriteState(jobs_, u"ANNA"_s, State::In, work);
        QCOMPARE(folder_.Rows(jobsFile, u"SELECT State, Job IS NULL FROM Users"_s), u"-1 1"_s);
    }
};

QTEST_GUILESS_MAIN(TestPresence)

#include "tst_presence.moc"

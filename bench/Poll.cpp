// poll FOLDER: what a look at the company database with 1,000 users costs in processor time, both of the file's thread and of
// the windows' thread, up to what the board shows.

#include "board/Poll.h"
#include "bench/Figures.h"
#include "bench/ProgramFolder.h"
#include "board/Board.h"
#include "board/Mail.h"
#include "board/Presence.h"
#include "platform/dao/Database.h"
#include "platform/dao/DateValue.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int people = 1000;
constexpr int senders = 50; // whose messages wait on the board
constexpr int rounds = 200;

QString NameOf(int person)
{
    return u"PERSON %1"_s.arg(person, 4, 10, QLatin1Char('0'));
}

// One running copy without windows, on both of its files.
class Copy
{
public:
    Copy(const QString &companyFile, const QString &localFile)
        : company_(dao::Database::OpenDatabase(companyFile)), local_(dao::Database::OpenDatabase(localFile))
    {
    }

    bool Look() // whether there was news
    {
        const Poll::News news = Poll::Run(company_, memory_, mail_.MakeRequest(NameOf(0), now_));
        mail_.Take(news, now_);
        if (news.changed)
            board_.TakeUsers(news.users, NameOf(0), now_);
        board_.ShowMessages(mail_.Unread());
        return news.changed;
    }
    const Board &Shown() const { return board_; }

private:
    const QDateTime now_ = dao::WallTime({2026, 3, 2}, {9, 0}); // stands still: no heartbeat is due
    dao::Database company_;
    dao::Database local_;
    Mail mail_{local_};
    Poll::Memory memory_;
    Board board_;
};

void Fill(dao::Database &company)
{
    dao::Transaction transaction(company, u"making data"_s);
    for (int person = 0; person < people; ++person) {
        company.Execute(u"INSERT INTO Users (User, FullName, State, Comment, LastSign) VALUES (?, ?, ?, ?, 46083)"_s,
                        {NameOf(person), u"Full Name of Number %1"_s.arg(person), person % 3 - 1,
                         u"at the customer's until three, then in the other office"_s},
                        u"a user"_s);
        company.Execute(
            u"CREATE TABLE "_s + dao::Quoted(NameOf(person))
                + u" (Id INTEGER PRIMARY KEY, \"From\" TEXT COLLATE NOCASE, Message TEXT, MessageId TEXT)"_s,
            {}, u"a user's messages"_s);
    }
    for (int sender = 1; sender <= senders; ++sender)
        company.Execute(u"INSERT INTO "_s + dao::Quoted(NameOf(0)) + u" (\"From\", Message) VALUES (?, ?)"_s,
                        {NameOf(sender), u"Mon 09:00 - Your parts have come"_s}, u"a message"_s);
    transaction.Commit();
}

template <class Work> double Milliseconds(Work work) // of the processor
{
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

void Expect(bool holds, const char *what)
{
    if (!holds)
        throw std::runtime_error(what);
}

void Measure(const QString &folder, Figures &figures)
{
    MakeProgramFolder(folder, {});
    const QString companyFile = QDir(folder).filePath(u"Jobs.mdb"_s);
    dao::Database other = dao::Database::OpenDatabase(companyFile);
    Fill(other);
    Copy copy(companyFile, QDir(folder).filePath(BenchSystem().LoginName() + u" Stemp.mdb"_s));
    while (copy.Look()) { // takes the messages and acknowledges them
    }
    Expect(copy.Shown().UserCount() == people && copy.Shown().Alert, "the board does not show what is in the file");

    std::vector<double> oneStatement;
    std::vector<double> nothingNew;
    std::vector<double> users;
    std::vector<double> all;
    for (int round = 0; round < rounds; ++round) {
        oneStatement.push_back(Milliseconds([&] { other.Select(u"PRAGMA data_version"_s, {}, u"the floor"_s); }));
        nothingNew.push_back(Milliseconds([&] { Expect(!copy.Look(), "news where nothing has happened"); }));
        Presence::WriteComment(other, NameOf(round + 1), u"back at %1"_s.arg(round));
        users.push_back(Milliseconds([&] {
            other.Select(u"SELECT User, FullName, State, Comment, LastSign FROM Users ORDER BY User"_s, {},
                         u"the floor"_s);
        }));
        all.push_back(Milliseconds([&] { Expect(copy.Look(), "no news where something has happened"); }));
    }
    figures.AddValue(u"a poll that finds nothing new, 1,000 users"_s, Median(oneStatement), Median(nothingNew), u"ms"_s,
                     2);
    figures.AddValue(u"a poll that reads all, 1,000 users"_s, Median(users), Median(all), u"ms"_s, 10);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: bench_poll FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        Figures figures;
        Measure(arguments[1], figures);
        return figures.OverLimit() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}

// storm_copy FOLDER COPY RUN POLL MESSAGE KILL DELAY: one running copy of the program, as far as messages go.
//   RUN      how often this copy was started before: makes its texts unique
//   POLL     the longest time between two polls, in milliseconds; the shortest is half of it
//   MESSAGE  the same for what it sends; 0: it sends nothing, and ends once there is nothing more to be done
//   KILL     the number of the statement at which it dies, whichever thread runs it; 0: it lives
//   DELAY    microseconds that it lives on from then, so that it dies in the middle of a commit, too

#include "bench/storm/Storm.h"
#include "board/Mail.h"
#include "board/MessageTables.h"
#include "board/Poll.h"
#include "board/Presence.h"
#include "company/CompanyLink.h"
#include "platform/dao/Error.h"
#include "platform/system/TimeSource.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTimer>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using Storm::Journal;

namespace {

std::atomic<int> statementsLeft;
std::chrono::microseconds killDelay;

void CountStatement()
{
    if (--statementsLeft != 0)
        return;
    if (killDelay.count() == 0)
        Storm::Die();
    std::thread([] {
        std::this_thread::sleep_for(killDelay);
        Storm::Die();
    }).detach();
}

int Random(int longest)
{
    return QRandomGenerator::global()->bounded(longest / 2, longest + 1);
}

bool OneIn(int count)
{
    return QRandomGenerator::global()->bounded(count) == 0;
}

struct Settings
{
    QString folder;
    int copy = 0;
    int run = 0;
    int poll = 0;
    int message = 0;
};

class Copy : public QObject
{
public:
    explicit Copy(const Settings &settings)
        : settings_(settings), user_(Storm::NameOf(settings.copy)), journal_(settings.folder, settings.copy)
    {
        pollTimer_.setSingleShot(true);
        messageTimer_.setSingleShot(true);
        connect(
            &pollTimer_, &QTimer::timeout, this, [this] { Try(&Copy::Look); });
        connect(&messageTimer_, &QTimer::timeout, this, [this] { Try(&Copy::Send); });
    }

    bool Start()
    {
        const QString path = Storm::LocalFile(settings_.folder, settings_.copy);
        dao::Held held = dao::Database::OpenHeld(path, {u"MessageBuffer"_s});
        if (held.failure != dao::HeldFailure::None) {
            journal_.Write(Journal::Kind::Error, {u"the private file: "_s + held.detail});
            return false;
        }
        localDB_ = std::move(held.database);
        localDB_.Execute(u"CREATE TABLE IF NOT EXISTS Arrived (Id INTEGER PRIMARY KEY, Person TEXT, Message TEXT)"_s,
                         {}, u"the storm's own table"_s);
        link_.Open(Storm::CompanyFile(settings_.folder));
        link_.Ask(
            this, [user = user_](dao::Database &database) { Presence::AddSelfToUsers(database, user, {}); },
            [this](const Answer<void> &answer) { Note(answer.error); });
        pollTimer_.start(0);
        if (settings_.message > 0)
            messageTimer_.start(Random(settings_.message));
        return true;
    }

    bool Stop() { return link_.Stop(std::chrono::seconds(10)); }

private:
    void Try(void (Copy::*step)())
    {
        try {
            (this->*step)();
        } catch (const dao::Error &error) { // of the private file, which nobody else has
            journal_.Write(Journal::Kind::Error, {error.Text()});
            QCoreApplication::exit(EXIT_FAILURE);
        }
    }

    void Note(const std::optional<dao::Error> &error)
    {
        if (error)
            journal_.Write(error->Kind() == dao::ErrorKind::Busy ? Journal::Kind::Locked : Journal::Kind::Error,
                           {error->Text()});
    }

    void Look()
    {
        if (QFile::exists(Storm::StopFile(settings_.folder)) || Storm::StartedBy() != driver_)
            return QCoreApplication::quit();
        const Poll::Request request = mail_.MakeRequest(user_, TimeSource().Now());
        const bool idle = request.outbox.isEmpty() && request.acknowledgements.isEmpty();
        asked_.start();
        link_.Ask(
            this,
            [request, memory = memory_](dao::Database &database) { return Poll::Run(database, *memory, request); },
            [this, idle](const Answer<Poll::News> &answer) {
                journal_.Write(Journal::Kind::Poll,
                               {QString::number(static_cast<double>(asked_.nsecsElapsed()) / 1e6)});
                news_ = answer.value;
                idle_ = idle;
                Note(answer.error);
                Try(&Copy::Take);
            });
    }

    void Take()
    {
        pollTimer_.start(Random(settings_.poll));
        if (!news_)
            return;
        Note(news_->refusedWrite);
        mail_.Take(*news_, TimeSource().Now());
        if (!news_->incoming.isEmpty())
            ForgetHistory();
        if (news_->changed) {
            others_.clear();
            for (const Presence::UserRow &row : news_->users)
                if (!Presence::SameName(row.user, user_))
                    others_.append(row.user.toUpper());
        }
        if (settings_.message == 0 && idle_ && news_->incoming.isEmpty() && !news_->refusedWrite)
            QCoreApplication::quit();
    }

    // A history has an end, so what fell out of it may come again after a long time. Here that is at once: nothing but receipts
    // and acknowledgements can tell.
    void ForgetHistory()
    {
        const QString purpose = u"forgetting the history"_s;
        dao::Transaction transaction(localDB_, purpose);
        localDB_.Execute(u"INSERT INTO Arrived (Person, Message) SELECT Person, Message FROM MessageHistory "
                         "WHERE Received ORDER BY Id"_s,
                         {}, purpose);
        localDB_.Execute(u"DELETE FROM MessageHistory"_s, {}, purpose);
        transaction.Commit();
    }

    void Send()
    {
        messageTimer_.start(Random(settings_.message));
        if (others_.isEmpty())
            return;
        const QStringList recipients =
            OneIn(10) ? others_ : QStringList(others_.at(QRandomGenerator::global()->bounded(others_.size())));
        const QString text =
            u"%1.%2.%3 to %4"_s.arg(settings_.copy).arg(settings_.run).arg(++sent_).arg(recipients.size());
        if (recipients.size() == 1 && OneIn(8))
            return SendAsOthersDo(recipients.first(), text);
        mail_.Queue(recipients, text);
        journal_.Write(Journal::Kind::Queued, QStringList(text) + recipients);
    }

    // As a copy does that knows only the two fields.
    void SendAsOthersDo(const QString &recipient, const QString &text)
    {
        link_.Ask(
            this,
            [from = user_, recipient, text](dao::Database &database) {
                dao::Transaction transaction(database, u"sending without an id"_s);
                const QString table = MessageTables(database).Find(recipient).value();
                database.Insert(u"INSERT INTO "_s + dao::Quoted(table) + u" (\"From\", Message) VALUES (?, ?)"_s,
                                {from, text}, u"sending without an id"_s);
                transaction.Commit();
            },
            [this, recipient, text](const Answer<void> &answer) {
                Note(answer.error);
                if (!answer.error)
                    journal_.Write(Journal::Kind::Queued, {text, recipient});
            });
    }

    const Settings settings_;
    const QString user_;
    const qint64 driver_ = Storm::StartedBy();
    Journal journal_;
    dao::Database localDB_;
    Mail mail_{localDB_};
    CompanyLink link_{CompanyLink::Mode::Thread};
    std::shared_ptr<Poll::Memory> memory_ = std::make_shared<Poll::Memory>();
    QTimer pollTimer_;
    QTimer messageTimer_;
    QElapsedTimer asked_;
    std::optional<Poll::News> news_; // of the last poll
    bool idle_ = false;              // it had nothing to deliver or to acknowledge
    QStringList others_;             // in upper case
    int sent_ = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 8) {
        std::fputs("usage: storm_copy FOLDER COPY RUN POLL MESSAGE KILL DELAY\n", stderr);
        return EXIT_FAILURE;
    }
    const auto number = [&arguments](int index) { return arguments.at(index).toInt(); };
    statementsLeft = number(6);
    killDelay = std::chrono::microseconds(number(7));
    if (statementsLeft > 0)
        dao::SetStatementHook(CountStatement);
    try {
        Copy copy({arguments.at(1), number(2), number(3), number(4), number(5)});
        if (!copy.Start())
            return EXIT_FAILURE;
        const int result = QCoreApplication::exec();
        return copy.Stop() ? result : EXIT_FAILURE;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}

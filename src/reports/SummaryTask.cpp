#include "reports/SummaryTask.h"

#include "platform/dao/Database.h"

#include <QMetaObject>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

namespace {

// Many times what a read takes to stop, unless the file system hangs.
constexpr std::chrono::milliseconds longestWait{500};

} // namespace

struct SummaryTask::Run
{
    Read read;
    std::atomic<bool> stopped = false;
};

// Shared with the thread, which may outlive the task.
struct SummaryTask::State
{
    std::mutex mutex;
    std::condition_variable changed;
    SummaryTask *task = nullptr; // null once it is gone
    std::shared_ptr<Run> next;
    bool ended = false;
};

SummaryTask::SummaryTask(const QString &timeDbPath) : timeDbPath_(timeDbPath), state_(std::make_shared<State>())
{
    state_->task = this;
}

SummaryTask::~SummaryTask()
{
    if (!thread_.joinable())
        return;
    if (run_)
        run_->stopped = true;
    std::unique_lock lock(state_->mutex);
    state_->task = nullptr;
    state_->changed.notify_all();
    const bool ended = state_->changed.wait_for(lock, longestWait, [this] { return state_->ended; });
    lock.unlock();
    if (ended)
        thread_.join();
    else
        thread_.detach();
}

void SummaryTask::Begin(Read read, Done done)
{
    if (run_)
        run_->stopped = true;
    run_ = std::make_shared<Run>();
    run_->read = std::move(read);
    done_ = std::move(done);
    {
        const std::lock_guard lock(state_->mutex);
        state_->next = run_;
    }
    state_->changed.notify_all();
    if (!thread_.joinable())
        thread_ = std::thread([state = state_, path = timeDbPath_] { Work(*state, path); });
}

bool SummaryTask::IsRunning() const
{
    return run_ != nullptr;
}

void SummaryTask::Work(State &state, const QString &timeDbPath)
{
    std::unique_lock lock(state.mutex);
    for (;;) {
        state.changed.wait(lock, [&state] { return state.next || !state.task; });
        if (!state.task)
            break;
        const std::shared_ptr<Run> run = std::exchange(state.next, nullptr);
        lock.unlock();
        const std::optional<dao::Error> error = Perform(run, timeDbPath);
        lock.lock();
        if (SummaryTask *task = state.task)
            QMetaObject::invokeMethod(
                task, [task, run, error] { task->Take(run, error); }, Qt::QueuedConnection);
    }
    state.ended = true;
    state.changed.notify_all();
}

std::optional<dao::Error> SummaryTask::Perform(const std::shared_ptr<Run> &run, const QString &timeDbPath)
{
    const Read read = std::exchange(run->read, nullptr); // what it captured goes with this thread
    try {
        dao::Database timeDb = dao::Database::OpenDatabase(timeDbPath, dao::Database::defaultBusyWait,
                                                           {run, &run->stopped}, {QStringLiteral("Stemp")});
        timeDb.RegisterFunctions([] { return QDateTime(); });
        if (!run->stopped)
            read(timeDb);
        return std::nullopt;
    } catch (const dao::Error &error) {
        return error;
    } catch (const std::exception &error) {
        return dao::Error(dao::ErrorKind::Other, QStringLiteral("a report"), timeDbPath,
                          QString::fromUtf8(error.what()));
    }
}

void SummaryTask::Take(const std::shared_ptr<Run> &run, const std::optional<dao::Error> &error)
{
    if (run != run_)
        return; // another read was begun meanwhile
    run_ = nullptr;
    const Done done = std::exchange(done_, nullptr);
    done(error);
}

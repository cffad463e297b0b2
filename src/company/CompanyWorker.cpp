#include "company/CompanyWorker.h"

#include "company/CompanyFile.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

struct CompanyWorker::State
{
    explicit State(const QString &path) : file(path) {}

    CompanyFile file; // touched by the thread only
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Task> tasks;
    quint64 tasksPosted = 0;
    quint64 tasksEnded = 0;
    quint64 overdue = 0; // the number of the last task that was waited for in vain
    bool finishing = false;
    bool ended = false;
};

CompanyWorker::CompanyWorker(const QString &path, bool onThread)
    : onThread_(onThread), state_(std::make_shared<State>(path))
{
}

CompanyWorker::~CompanyWorker()
{
    Finish();
    FinishedBy({});
    if (thread_.joinable())
        thread_.detach();
}

void CompanyWorker::Post(Task task)
{
    if (!onThread_) {
        task(state_->file);
        return;
    }
    {
        const std::lock_guard lock(state_->mutex);
        state_->tasks.push_back(std::move(task));
        ++state_->tasksPosted;
    }
    state_->changed.notify_all();
    if (!thread_.joinable())
        thread_ = std::thread([state = state_] { Run(*state); });
}

bool CompanyWorker::PostAndWait(Task task, std::chrono::milliseconds limit)
{
    Post(std::move(task));
    if (!onThread_)
        return true;
    std::unique_lock lock(state_->mutex);
    if (state_->tasksEnded < state_->overdue)
        return false; // it stands behind that one
    const quint64 number = state_->tasksPosted;
    if (state_->changed.wait_for(lock, limit, [this, number] { return state_->tasksEnded >= number; }))
        return true;
    state_->overdue = number;
    return false;
}

void CompanyWorker::Run(State &state)
{
    std::unique_lock lock(state.mutex);
    for (;;) {
        state.changed.wait(lock, [&state] { return !state.tasks.empty() || state.finishing; });
        if (state.tasks.empty())
            break;
        Task task = std::move(state.tasks.front());
        state.tasks.pop_front();
        lock.unlock();
        task(state.file);
        task = nullptr; // what it captured may be slow to go
        lock.lock();
        ++state.tasksEnded;
        state.changed.notify_all();
    }
    lock.unlock();
    state.file.Close(); // may hang as well
    lock.lock();
    state.ended = true;
    state.changed.notify_all();
}

bool CompanyWorker::IsIdle() const
{
    const std::lock_guard lock(state_->mutex);
    return state_->tasksEnded == state_->tasksPosted;
}

void CompanyWorker::Finish()
{
    if (!thread_.joinable()) {
        state_->file.Close();
        return;
    }
    {
        const std::lock_guard lock(state_->mutex);
        state_->finishing = true;
    }
    state_->changed.notify_all();
}

bool CompanyWorker::FinishedBy(std::chrono::steady_clock::time_point deadline)
{
    if (!thread_.joinable())
        return true;
    std::deque<Task> dropped; // destroyed after the lock
    std::unique_lock lock(state_->mutex);
    if (!state_->changed.wait_until(lock, deadline, [this] { return state_->ended; })) {
        dropped.swap(state_->tasks);
        return false;
    }
    lock.unlock();
    thread_.join(); // it has no more to do
    return true;
}

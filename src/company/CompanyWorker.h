#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

class CompanyFile;

// Runs tasks on one file in the order in which they were posted, on a thread of its own or, without one, at once. It may be
// left behind in the middle of a task that hangs: what the task touches is the thread's own by then.
class CompanyWorker
{
public:
    // Runs on the worker's thread; must not throw.
    using Task = std::function<void(CompanyFile &)>;

    CompanyWorker(const QString &path, bool onThread);
    ~CompanyWorker(); // waits for nothing; tasks not begun are dropped
    CompanyWorker(const CompanyWorker &) = delete;
    CompanyWorker &operator=(const CompanyWorker &) = delete;

    void Post(Task task);
    // Posts it and waits for its end at most `limit`; whether that came. While a task that was waited for in vain has not
    // ended, nothing is waited for: a file that hangs costs one wait, however much is asked of it.
    bool PostAndWait(Task task, std::chrono::milliseconds limit);

    bool IsIdle() const; // every task has ended

    // No task is posted after this. Those posted before are done, then the file is closed.
    void Finish();
    // Whether all that came to its end by then; if not, tasks not begun are dropped.
    bool FinishedBy(std::chrono::steady_clock::time_point deadline);

private:
    struct State; // shared with the thread

    static void Run(State &state);

    const bool onThread_;
    std::shared_ptr<State> state_;
    std::thread thread_; // begins with the first task
};

#pragma once

#include "platform/dao/Error.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace dao {
class Database;
}

// Reads from the time database beside the windows, on a thread and a connection of its own, so that a long sum freezes none.
// One read at a time: beginning another, or destroying the task, stops the one before and drops its result. It stops within
// milliseconds, whether it computes or waits for a lock; only a file system that hangs can't be stopped.
class SummaryTask : public QObject
{
    Q_OBJECT

public:
    explicit SummaryTask(const QString &timeDbPath);
    // Waits for the thread. A file system that hangs costs half a second, and the thread is left behind: it ends when the
    // drive answers, or with the process, which the drive may keep from going until then.
    ~SummaryTask() override;

    using Read = std::function<void(dao::Database &)>;
    using Done = std::function<void(const std::optional<dao::Error> &)>;

    // `read` runs on the thread, captures values only and may throw dao::Error. `done` is called in the owner's thread, with the
    // error that stopped it, if any; what the read found it leaves where `done` looks for it (a shared value). The connection
    // has the functions of the statements, but no time for Now.
    void Begin(Read read, Done done);
    bool IsRunning() const; // no longer when `done` is called

private:
    struct Run;
    struct State;

    static void Work(State &state, const QString &timeDbPath);
    static std::optional<dao::Error> Perform(const std::shared_ptr<Run> &run, const QString &timeDbPath);
    void Take(const std::shared_ptr<Run> &run, const std::optional<dao::Error> &error);

    const QString timeDbPath_;
    const std::shared_ptr<State> state_;
    std::thread thread_;       // begins with the first read
    std::shared_ptr<Run> run_; // the read that is under way, if any
    Done done_;                // its end
};

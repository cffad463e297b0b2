#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QObject>
#include <QPointer>

#include <any>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

// What a request came back with: a value, or the error that stopped it.
template <class R> struct Answer
{
    std::optional<R> value;
    std::optional<dao::Error> error;
};
template <> struct Answer<void>
{
    std::optional<dao::Error> error;
};

// The only way to the job database (the company's file, or its local copy). Requests are values; they run in order on a
// thread of the link's own, so that a file system that hangs freezes no window, and their answers come back as values to
// the thread that owns the link. Answers that belong to a file no longer in use are dropped. Nothing else opens the file,
// not even to ask whether it exists.
class CompanyLink : public QObject
{
    Q_OBJECT

public:
    enum class Mode {
        Inline, // requests run where they are asked: for tests
        Thread
    };
    explicit CompanyLink(Mode mode, QObject *parent = nullptr);
    ~CompanyLink() override; // never waits for a hanging request

    // Makes `path` the file in use. It is opened by the first request that follows, and again by a later one after a failure:
    // a file that was away is used again as soon as it is back.
    void Open(const QString &path);
    QString Path() const;

    // Work: R(dao::Database &), run on the link's thread, captures values only. Done: void(Answer<R>), called in the owner's
    // thread unless `context` is gone by then or another file was opened since.
    template <class Work, class Done> void Ask(QObject *context, Work work, Done done)
    {
        using R = std::invoke_result_t<Work, dao::Database &>;
        Enqueue(Box<R>(std::move(work)),
                [context = QPointer<QObject>(context), done = std::move(done)](const Result &result) mutable {
                    if (context)
                        done(Unbox<R>(result));
                });
    }

    // Needs no answer; an error goes to the log.
    template <class Work> void Tell(Work work)
    {
        Enqueue(Box<void>(std::move(work)), [](const Result &result) { LogError(result); });
    }

    // Waits for the answer at most `limit`; nothing when it did not come in time (the request still runs later). At start and
    // at exit only.
    template <class Work, class R = std::invoke_result_t<Work, dao::Database &>>
    std::optional<Answer<R>> AskWithin(std::chrono::milliseconds limit, Work work)
    {
        const std::optional<Result> result = EnqueueAndWait(Box<R>(std::move(work)), limit);
        if (!result)
            return std::nullopt;
        return Unbox<R>(*result);
    }

    // Whether a file exists and can be read, asked on the link's thread without opening it; nothing when that took too long.
    std::optional<bool> FileExistsWithin(std::chrono::milliseconds limit, const QString &path);
    // Runs work on files that needs no database (copying a template), in order with the requests; false when it took too long.
    bool RunWithin(std::chrono::milliseconds limit, std::function<void()> work);

    // Lets the requests asked so far finish, closes the file and ends the thread. False when that took longer than `limit`: the
    // thread is then left behind, never joined.
    bool Stop(std::chrono::milliseconds limit);

private:
    struct Result
    {
        std::any value;
        std::optional<dao::Error> error;
    };
    using Job = std::function<Result(dao::Database &)>;
    using Deliver = std::function<void(const Result &)>;

    template <class R, class Work> static Job Box(Work work)
    {
        return [work = std::move(work)](dao::Database &database) mutable {
            Result result;
            if constexpr (std::is_void_v<R>)
                work(database);
            else
                result.value = std::any(R(work(database)));
            return result;
        };
    }
    template <class R> static Answer<R> Unbox(const Result &result)
    {
        Answer<R> answer;
        answer.error = result.error;
        if constexpr (!std::is_void_v<R>) {
            if (!result.error)
                answer.value = std::any_cast<R>(result.value);
        }
        return answer;
    }

    void Enqueue(Job job, Deliver deliver);
    std::optional<Result> EnqueueAndWait(Job job, std::chrono::milliseconds limit);
    static void LogError(const Result &result);

    struct Worker; // shared with the thread, which may outlive the link
    std::shared_ptr<Worker> worker_;
};

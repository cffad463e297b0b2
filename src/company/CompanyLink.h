#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QObject>
#include <QPointer>

#include <any>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <type_traits>
#include <unordered_map>
#include <utility>

class CompanyFile;
class CompanyWorker;

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

// The only way to the job database (the company's file, or its local copy). Requests are values; those on one file run in
// order on a thread of its own, so that a file system that hangs freezes no window and stops no other file, and their
// answers come back as values to the thread that owns the link. Nothing else opens the file, not even to ask whether it
// exists.
//
// A request on a missing file gets ErrorKind::CannotOpen, on a file that is no job database ErrorKind::Corrupt or Other, and
// leaves that file as it is. An exception of the request's work comes back as an error too. An error that reaches nobody
// goes to the log.
class CompanyLink : public QObject
{
    Q_OBJECT

public:
    enum class Mode {
        Inline, // requests run where they are asked, and are answered before Ask returns: for tests
        Thread
    };
    explicit CompanyLink(Mode mode);
    ~CompanyLink() override; // never waits; requests that have not begun are dropped

    // Makes `path` the file in use; a file that is in use already stays so. It is opened by the first request that follows,
    // and again by a later one after a failure: a file that was away is used again as soon as it is back. Requests made before
    // still run, on the file that they were made for, but their answers are dropped.
    void Open(const QString &path);
    QString Path() const { return path_; }

    // Work: R(dao::Database &), run on the link's thread, captures values only. Done: void(Answer<R>), called in the owner's
    // thread unless `context` is gone by then or another file was opened since.
    template <class Work, class Done> void Ask(QObject *context, Work work, Done done)
    {
        AskOf(path_, context, std::move(work), std::move(done));
    }

    // The same of the file at `path`, which need not be the one in use. Another file than that is closed again after the work.
    template <class Work, class Done> void AskOf(const QString &path, QObject *context, Work work, Done done)
    {
        using R = std::invoke_result_t<Work, dao::Database &>;
        Enqueue(path, Box<R>(std::move(work)),
                [context = QPointer<QObject>(context), done = std::move(done)](const Result &result) mutable {
                    if (context)
                        done(Unbox<R>(result));
                    else
                        LogError(result);
                });
    }

    // Needs no answer; an error goes to the log.
    template <class Work> void Tell(Work work) { EnqueueUnanswered(Box<void>(std::move(work))); }

    // Waits for the answer at most `limit`; nothing when it did not come in time (the request still runs later, and its error
    // goes to the log). The windows stand still meanwhile, so it is for start and exit, for a path in the settings, and for
    // the program folder's own file when it has to stand in for another. While a file has not ended what was waited for in
    // vain, nothing that is asked of it is waited for: one that hangs costs one limit, however often it is asked.
    template <class Work, class R = std::invoke_result_t<Work, dao::Database &>>
    std::optional<Answer<R>> AskWithin(std::chrono::milliseconds limit, Work work)
    {
        const std::optional<Result> result = EnqueueAndWait(Box<R>(std::move(work)), limit);
        if (!result)
            return std::nullopt;
        return Unbox<R>(*result);
    }

    // Runs work that asks the file system about the file at `path`, which need not be the one in use, without opening it; in
    // order with the requests on that file. Waits as AskWithin does; false when the work did not end in time.
    bool RunWithin(std::chrono::milliseconds limit, const QString &path, std::function<void()> work);

    // Lets the requests asked so far finish, closes the file and ends the thread. False when that took longer than `limit`: the
    // thread is then left behind in the request that hangs, never joined, and the requests after that one are dropped. No
    // answer comes after this, and what is asked is dropped.
    bool Stop(std::chrono::milliseconds limit);

signals:
    // Another file has taken the place of the one in use, which did not fail meanwhile: it may lack what was written. Comes
    // before the answer of the request that noticed, which is dropped when another file is opened then.
    void Replaced();

private:
    struct Result
    {
        std::any value;
        std::optional<dao::Error> error;
        bool replaced = false;
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
                result.value.template emplace<R>(work(database));
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

    CompanyWorker &WorkerOf(const QString &path);
    void DropIdleWorkers();
    void Enqueue(const QString &path, Job job, Deliver deliver);
    void EnqueueUnanswered(Job job);
    std::optional<Result> EnqueueAndWait(Job job, std::chrono::milliseconds limit);
    void TakeAnswer(quint64 request, const Result &result);
    static Result Run(CompanyFile &file, Job &job);
    static void LogError(const Result &result);

    struct Mailbox;

    const Mode mode_;
    bool stopped_ = false;
    QString path_;
    // A file's worker is kept while it is at work, so that a file that comes into use again goes on in order.
    std::map<QString, std::unique_ptr<CompanyWorker>> workers_;
    CompanyWorker *worker_ = nullptr; // of the file in use
    std::shared_ptr<Mailbox> mailbox_;
    std::unordered_map<quint64, Deliver> waiting_; // for answers; they never leave the owner's thread
    quint64 lastRequest_ = 0;
};

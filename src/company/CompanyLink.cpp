#include "company/CompanyLink.h"

#include "company/CompanyFile.h"
#include "company/CompanyWorker.h"

#include <QLoggingCategory>
#include <QMetaObject>

#include <atomic>
#include <exception>
#include <mutex>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.company")

constexpr std::chrono::milliseconds endLimit{50}; // of a thread that has no more to do

} // namespace

// Where workers, which may outlive the link, leave their answers.
struct CompanyLink::Mailbox
{
    std::mutex mutex;
    CompanyLink *link = nullptr; // null once it is gone

    void Post(quint64 request, Result result)
    {
        const std::lock_guard lock(mutex); // so that the link is not destroyed meanwhile
        if (!link)
            return LogError(result);
        QMetaObject::invokeMethod(
            link, [to = link, request, result = std::move(result)] { to->TakeAnswer(request, result); },
            Qt::QueuedConnection);
    }
};

CompanyLink::CompanyLink(Mode mode) : mode_(mode), mailbox_(std::make_shared<Mailbox>())
{
    mailbox_->link = this;
    Open({});
}

CompanyLink::~CompanyLink()
{
    const std::lock_guard lock(mailbox_->mutex);
    mailbox_->link = nullptr;
}

void CompanyLink::Open(const QString &path)
{
    if (stopped_ || (worker_ && path == path_))
        return;
    waiting_.clear();
    if (worker_)
        worker_->Post([](CompanyFile &file) { file.Close(); });
    path_ = path;
    worker_ = &WorkerOf(path);
}

CompanyWorker &CompanyLink::WorkerOf(const QString &path)
{
    std::unique_ptr<CompanyWorker> &worker = workers_[path];
    if (!worker) {
        DropIdleWorkers(); // a path that is being typed is another file with each key
        worker = std::make_unique<CompanyWorker>(path, mode_ == Mode::Thread);
    }
    return *worker;
}

void CompanyLink::DropIdleWorkers()
{
    std::erase_if(
        workers_,
        [this](const auto &entry) {
            CompanyWorker *worker = entry.second.get();
            if (!worker || worker == worker_ || !worker->IsIdle())
                return false;
            worker->Finish(); // its file is closed already, so that its thread ends at once
            worker->FinishedBy(std::chrono::steady_clock::now() + endLimit);
            return true;
        });
}

void CompanyLink::Enqueue(const QString &path, Job job, Deliver deliver)
{
    if (stopped_)
        return;
    const auto run = [inUse = path == path_](CompanyFile &file, Job &work) {
        Result result = Run(file, work);
        result.replaced = file.TakeReplaced();
        if (!inUse)
            file.Close();
        return result;
    };
    CompanyWorker &worker = WorkerOf(path);
    const quint64 request = ++lastRequest_;
    waiting_.emplace(request, std::move(deliver));
    if (mode_ == Mode::Inline) {
        Result result;
        worker.Post([&](CompanyFile &file) { result = run(file, job); });
        TakeAnswer(request, result);
        return;
    }
    worker.Post([run, job = std::move(job), mailbox = mailbox_, request](CompanyFile &file) mutable {
        mailbox->Post(request, run(file, job));
    });
}

void CompanyLink::EnqueueUnanswered(Job job)
{
    if (!stopped_)
        worker_->Post([job = std::move(job)](CompanyFile &file) mutable { LogError(Run(file, job)); });
}

std::optional<CompanyLink::Result> CompanyLink::EnqueueAndWait(Job job, std::chrono::milliseconds limit)
{
    if (stopped_)
        return std::nullopt;
    struct Request
    {
        Result result;
        std::atomic<bool> settled = false; // by the first of the two, who leaves the result to the other
    };
    const auto request = std::make_shared<Request>();
    worker_->PostAndWait(
        [job = std::move(job), request](CompanyFile &file) mutable {
            request->result = Run(file, job);
            if (request->settled.exchange(true))
                LogError(request->result); // nobody waits for it any longer
        },
        limit);
    if (!request->settled.exchange(true))
        return std::nullopt;
    return request->result;
}

void CompanyLink::TakeAnswer(quint64 request, const Result &result)
{
    if (result.replaced && waiting_.contains(request))
        emit Replaced();
    auto asked = waiting_.extract(request); // before it is called, as it may ask again
    if (!asked)                             // or another file was opened just now
        return LogError(result);
    asked.mapped()(result);
}

CompanyLink::Result CompanyLink::Run(CompanyFile &file, Job &job)
{
    Result result;
    try {
        dao::Database &database = file.Connection();
        const dao::TimeLimit limit(database); // of all its statements together
        result = job(database);
    } catch (const dao::Error &error) {
        result.error = error;
    } catch (const std::exception &error) {
        result.error.emplace(dao::ErrorKind::Other, QStringLiteral("a request to the job database"), QString(),
                             QString::fromUtf8(error.what()));
    }
    if (result.error && result.error->Kind() != dao::ErrorKind::Busy
        && result.error->Kind() != dao::ErrorKind::Constraint)
        file.Close(); // it may be the connection that is at fault: the next request tries a new one
    return result;
}

void CompanyLink::LogError(const Result &result)
{
    if (result.error)
        qCWarning(log).noquote() << result.error->Text();
}

bool CompanyLink::RunWithin(std::chrono::milliseconds limit, const QString &path, std::function<void()> work)
{
    if (stopped_)
        return false;
    return WorkerOf(path).PostAndWait(
        [path, work = std::move(work)](CompanyFile &) {
            try {
                work();
            } catch (const std::exception &error) {
                qCWarning(log).noquote() << "looking for" << path << error.what();
            }
        },
        limit);
}

bool CompanyLink::Stop(std::chrono::milliseconds limit)
{
    stopped_ = true;
    waiting_.clear();
    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (const auto &[path, worker] : workers_)
        worker->Finish();
    bool finished = true;
    for (const auto &[path, worker] : workers_)
        finished = worker->FinishedBy(deadline) && finished;
    return finished;
}

#include "company/CompanyLink.h"
#include "support/ProgramFolder.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto plenty = 20s;  // for what must come
constexpr auto little = 20ms; // for what must not

auto AddUser(const QString &name)
{
    return [name](dao::Database &database) {
        return database.Execute(u"INSERT INTO Users (User) VALUES (?)"_s, {name}, u"a test"_s);
    };
}

QString UserNames(dao::Database &database)
{
    const QList<QVariantList> rows =
        database.Select(u"SELECT group_concat(User, ' ') FROM (SELECT User FROM Users ORDER BY Id)"_s, {}, u"a test"_s);
    return rows[0][0].toString();
}

struct Files : ProgramFolder
{
    Files()
    {
        MakeJobs(u"a.mdb"_s);
        MakeJobs(u"b.mdb"_s);
    }
    QString Users(const QString &name) const
    {
        return Rows(name, u"SELECT group_concat(User, ' ') FROM (SELECT User FROM Users ORDER BY Id)"_s);
    }
};

#ifdef Q_CC_MINGW // whose threads free such an object before they destroy it
#define PER_THREAD
#else
#define PER_THREAD thread_local
#endif

// A request that hangs until it is let go, even though its link is gone, and then waits for the end of its thread.
class Hanging
{
public:
    ~Hanging()
    {
        state_->letGo.release();
        state_->threadEnded.acquire();
    }
    auto Request() const
    {
        return [state = state_](dao::Database &) {
            PER_THREAD std::unique_ptr<AtThreadEnd> atThreadEnd;
            atThreadEnd = std::make_unique<AtThreadEnd>(state);
            state->begun.release();
            state->letGo.acquire();
        };
    }
    void WaitUntilBegun() const { state_->begun.acquire(); }

private:
    struct State
    {
        QSemaphore begun;
        QSemaphore letGo;
        QSemaphore threadEnded;
    };
    struct AtThreadEnd
    {
        explicit AtThreadEnd(std::shared_ptr<State> ofRequest) : state(std::move(ofRequest)) {}
        ~AtThreadEnd() { state->threadEnded.release(); }
        std::shared_ptr<State> state;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace

class TestCompanyLink : public QObject
{
    Q_OBJECT

private slots:
    void AnswersInOrderInTheOwnersThread()
    {
        const Files files;
        CompanyLink link(CompanyLink::Mode::Thread);
        link.Open(files.File(u"a.mdb"_s));
        const QThread *own = QThread::currentThread();
        QStringList answers;
        const auto names = [own](dao::Database &database) {
            return QThread::currentThread() != own ? UserNames(database) : u"in the wrong thread"_s;
        };
        const auto note = [&answers, own](const Answer<QString> &answer) {
            answers.append(QThread::currentThread() == own ? answer.value.value() : u"in the wrong thread"_s);
        };
        for (const QString &name : {u"ANNA"_s, u"BO"_s, u"CARL"_s}) {
            link.Tell(AddUser(name));
            link.Ask(this, names, note);
        }
        QCOMPARE(link.AskWithin(plenty, UserNames)->value.value(), u"ANNA BO CARL"_s);
        QVERIFY(answers.isEmpty()); // they come through the event loop only
        QTRY_COMPARE(answers.join(u", "_s), u"ANNA, ANNA BO, ANNA BO CARL"_s);
        QVERIFY(link.Stop(plenty));
    }

    void TurnsWhatWorkThrowsIntoAnError()
    {
        const Files files;
        CompanyLink link(CompanyLink::Mode::Thread);
        link.Open(files.File(u"a.mdb"_s));
        const auto answer = link.AskWithin(plenty, [](dao::Database &) -> int { throw std::runtime_error("no luck"); });
        QVERIFY(answer && !answer->value);
        QCOMPARE(answer->error->Kind(), dao::ErrorKind::Other);
        QVERIFY(answer->error->Text().contains(u"no luck"_s));
        QVERIFY(link.AskWithin(plenty, AddUser(u"ANNA"_s))->value);
        QCOMPARE(link.AskWithin(plenty, AddUser(u"anna"_s))->error->Kind(), dao::ErrorKind::Constraint);
        // A connection that has failed is not used again, unless it was only refused a row.
        const auto number = [&link] {
            return *link.AskWithin(plenty, [](dao::Database &database) { return database.Number(); })->value;
        };
        const quint64 kept = number();
        link.AskWithin(plenty, AddUser(u"anna"_s));
        QCOMPARE(number(), kept);
        link.AskWithin(plenty, [](dao::Database &database) { database.Execute(u"no SQL"_s, {}, u"a test"_s); });
        QVERIFY(number() != kept);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"UNIQUE"_s));
        link.Tell(AddUser(u"ANNA"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"no disk"_s));
        QVERIFY(link.RunWithin(plenty, files.File(u"b.mdb"_s), [] { throw std::runtime_error("no disk"); }));
        QVERIFY(link.Stop(plenty));
    }

    void DropsAnswersNobodyWaitsFor()
    {
        const Files files;
        int answers = 0;
        const auto count = [&answers](const Answer<int> &) { ++answers; };
        {
            CompanyLink link(CompanyLink::Mode::Thread);
            link.Open(files.File(u"a.mdb"_s));
            auto context = std::make_unique<QObject>();
            link.Ask(context.get(), AddUser(u"ANNA"_s), count);
            QVERIFY(link.AskWithin(plenty, UserNames)); // the answer is on its way now
            context.reset();
            QCoreApplication::processEvents();

            link.Ask(this, AddUser(u"BO"_s), count);
            link.Open(files.File(u"b.mdb"_s));
            QCOMPARE(link.AskWithin(plenty, UserNames)->value.value(), QString());
            link.Open(files.File(u"a.mdb"_s));
            link.Ask(this, AddUser(u"DORA"_s), count);
            QVERIFY(link.Stop(plenty));
            link.Ask(this, AddUser(u"LATE"_s), count);
            QVERIFY(!link.AskWithin(plenty, AddUser(u"LATE"_s)));
            QVERIFY(!link.RunWithin(plenty, files.File(u"b.mdb"_s), [] {}));
        }
        QCoreApplication::processEvents();
        QCOMPARE(answers, 0);
        QCOMPARE(files.Users(u"a.mdb"_s), u"ANNA BO DORA"_s);
    }

    void HangingRequestHoldsUpNobody()
    {
        const Files files;
        int answers = 0;
        const auto ran = std::make_shared<std::atomic<bool>>(false);
        {
            const Hanging hanging;
            {
                CompanyLink link(CompanyLink::Mode::Thread);
                link.Open(files.File(u"a.mdb"_s));
                link.Ask(this, hanging.Request(), [&answers](const Answer<void> &) { ++answers; });
                hanging.WaitUntilBegun();
                QVERIFY(!link.AskWithin(little, UserNames));
                // It was waited for once; from now on it costs no time.
                QElapsedTimer timer;
                timer.start();
                QVERIFY(!link.AskWithin(plenty, UserNames));
                QVERIFY(!link.RunWithin(plenty, files.File(u"a.mdb"_s), [] {}));
                QVERIFY(!timer.hasExpired(std::chrono::milliseconds(plenty).count()));
                link.Tell([ran](dao::Database &) { *ran = true; });
                // Another file is free to be used meanwhile.
                QVERIFY(link.RunWithin(plenty, files.File(u"b.mdb"_s), [] {}));
                link.Open(files.File(u"b.mdb"_s));
                QVERIFY(link.AskWithin(plenty, AddUser(u"ANNA"_s)));
                QVERIFY(!link.Stop(little));
            }
        }
        QCoreApplication::processEvents();
        QCOMPARE(answers, 0);
        QVERIFY(!*ran);
        QCOMPARE(files.Users(u"b.mdb"_s), u"ANNA"_s);
    }

    void LockedFileIsWaitedForWithinTheLimit()
    {
        const Files files;
        CompanyLink link(CompanyLink::Mode::Thread);
        link.Open(files.File(u"a.mdb"_s));
        QVERIFY(link.AskWithin(plenty, UserNames));
        {
            const Holder other(files.File(u"a.mdb"_s), Holder::Writing);
            QVERIFY(!link.AskWithin(little, AddUser(u"ANNA"_s)));
        }
        QTRY_VERIFY(link.AskWithin(plenty, UserNames));
        QCOMPARE(link.AskWithin(plenty, UserNames)->value.value(), u"ANNA"_s); // late, not lost
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"UNIQUE"_s));   // nor is a late error
        {
            const Holder other(files.File(u"a.mdb"_s), Holder::Writing);
            QVERIFY(!link.AskWithin(little, AddUser(u"ANNA"_s)));
        }
        QTRY_VERIFY(link.AskWithin(plenty, UserNames));
        {
            const Holder other(files.File(u"a.mdb"_s), Holder::Writing);
            QVERIFY(link.AskWithin(plenty, [](dao::Database &database) { database.SetBusyWait(little); }));
            QCOMPARE(link.AskWithin(plenty, AddUser(u"BO"_s))->error->Kind(), dao::ErrorKind::Busy);
        }
        QVERIFY(link.AskWithin(plenty, AddUser(u"BO"_s))->value);
        QVERIFY(link.Stop(plenty));
    }

    void AnotherFileTakesItsPlace()
    {
#ifdef Q_OS_WIN
        QSKIP("an open file cannot be renamed here");
#endif
        const Files files;
        const QString path = files.File(u"a.mdb"_s);
        CompanyLink link(CompanyLink::Mode::Inline);
        link.Open(path);
        int answers = 0;
        const auto count = [&answers](const Answer<int> &) { ++answers; };
        link.Ask(this, AddUser(u"ANNA"_s), count);
        connect(&link, &CompanyLink::Replaced, this, [&] { link.Open(files.File(u"c.mdb"_s)); });
        QVERIFY(QFile::remove(path) && QFile::rename(files.File(u"b.mdb"_s), path));
        link.Ask(this, AddUser(u"BO"_s), count); // done, but its answer is not one of the file in use
        QCOMPARE(answers, 1);
        QCOMPARE(files.Users(u"a.mdb"_s), u"BO"_s);
    }
};

QTEST_GUILESS_MAIN(TestCompanyLink)

#include "tst_companylink.moc"

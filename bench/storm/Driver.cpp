// storm FOLDER COPIES SECONDS KILLS POLL MESSAGE: that many copies of the program on one company file for that long, and
// until that many have died (at most three times as long); each that dies is started again at once. Then all deliver and
// take what is under way, and their files are looked at.
//   FOLDER   new, or that of an earlier storm, which is removed
//   KILLS    0: none dies
//   POLL     the longest time between two polls of a copy, in milliseconds; the shortest is half of it
//   MESSAGE  the same for what it sends
// Prints what was found, and ends with an error when anything was lost, doubled, damaged, left behind or refused.

#include "bench/storm/Findings.h"
#include "bench/storm/Storm.h"
#include "board/Presence.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int longestLife = 250;     // in statements
constexpr int longestDelay = 20'000; // microseconds

struct Settings
{
    QString folder;
    int copies = 0;
    int seconds = 0;
    int kills = 0;
    QString poll;
    QString message;
};

class Driver
{
public:
    explicit Driver(Settings settings) : settings_(std::move(settings)), runs_(settings_.copies) {}

    void MakeFiles() const
    {
        const QString &folder = settings_.folder;
        if (QFile::exists(Storm::CompanyFile(folder)))
            QDir(folder).removeRecursively();
        const QString templates = QStringLiteral(STEMP_TEMPLATES "/");
        bool made = QDir().mkdir(folder) && QFile::copy(templates + u"Blank Jobs.mdb"_s, Storm::CompanyFile(folder));
        for (int copy = 0; copy < settings_.copies; ++copy)
            made = made && QFile::copy(templates + u"blank Stemp.mdb"_s, Storm::LocalFile(folder, copy));
        if (!made)
            throw std::runtime_error("the files can't be made");
        // Some have been there before, and spell themselves in another case.
        dao::Database company = dao::Database::OpenDatabase(Storm::CompanyFile(folder));
        for (int copy = 1; copy < settings_.copies; copy += 3)
            Presence::AddSelfToUsers(company, Storm::NameOf(copy).toLower(), {});
    }

    void Rage()
    {
        QElapsedTimer time;
        time.start();
        RunAll(true, [&] {
            const qint64 seconds = time.elapsed() / 1000;
            const bool over = seconds >= settings_.seconds && kills >= settings_.kills;
            if ((over || seconds >= 3 * settings_.seconds) && !QFile::exists(Storm::StopFile(settings_.folder)))
                QFile(Storm::StopFile(settings_.folder)).open(QIODevice::WriteOnly);
        });
        QFile::remove(Storm::StopFile(settings_.folder));
        if (kills < settings_.kills)
            faults.append(u"only %1 copies died"_s.arg(kills));
    }

    // Once for delivering all, once for taking all.
    void Drain()
    {
        for (int i = 0; i < 2; ++i)
            RunAll(
                false, [] {});
    }

    int kills = 0;
    QStringList faults;

private:
    template <class Watch> void RunAll(bool storm, Watch watch)
    {
        QEventLoop loop;
        QTimer watching;
        watching.callOnTimeout([&] {
            watch();
            if (running_.empty())
                loop.quit();
        });
        QTimer::singleShot(std::chrono::seconds(3 * settings_.seconds + 60), &loop, [this] {
            faults.append(u"%1 copies did not end"_s.arg(running_.size()));
            givenUp_ = true;
            for (const auto &[copy, process] : running_)
                process->kill();
        });
        for (int copy = 0; copy < settings_.copies; ++copy)
            Start(copy, storm);
        watching.start(100);
        loop.exec();
    }

    void Start(int copy, bool storm)
    {
        auto &random = *QRandomGenerator::global();
        const bool dies = storm && settings_.kills > 0;
        const int statement = dies ? random.bounded(1, longestLife) : 0;
        const int delay = random.bounded(2) * random.bounded(longestDelay); // half of them die before the statement
        const std::shared_ptr<QProcess> process(new QProcess, [](QProcess *old) { old->deleteLater(); });
        running_[copy] = process;
        process->setProcessChannelMode(QProcess::ForwardedChannels);
        QObject::connect(process.get(), &QProcess::finished, process.get(),
                         [this, copy, storm, dies](int code, QProcess::ExitStatus status) {
                             Ended(copy, storm, dies, code, status);
                         });
        process->start(QStringLiteral(STORM_COPY),
                       {settings_.folder, QString::number(copy), QString::number(++runs_[copy]),
                        storm ? settings_.poll : u"20"_s, storm ? settings_.message : u"0"_s,
                        QString::number(statement), QString::number(delay)});
        if (!process->waitForStarted())
            throw std::runtime_error("a copy can't be started");
    }

    void Ended(int copy, bool storm, bool dies, int code, QProcess::ExitStatus status)
    {
        running_.erase(copy);
        const bool killed = status == QProcess::CrashExit && Storm::HasDied(code);
        if (killed && dies && !givenUp_) {
            ++kills;
            Start(copy, storm);
        } else if (killed || code != 0) {
            faults.append(u"copy %1 ended with %2"_s.arg(copy).arg(code));
        }
    }

    const Settings settings_;
    QList<int> runs_;
    bool givenUp_ = false;
    std::map<int, std::shared_ptr<QProcess>> running_;
};

int Run(const Settings &settings)
{
    Driver driver(settings);
    driver.MakeFiles();
    driver.Rage();
    driver.Drain();
    const Findings findings = FindAll(settings.folder, settings.copies);
    const QStringList faults = driver.faults + findings.faults;
    std::printf("%d copies, %d kills: %d messages, lost %d, doubled %d\n"
                "%zu polls: median %.1f ms, p99 %.1f ms, longest %.1f ms; kept out by a lock %d times\n",
                settings.copies, driver.kills, findings.messages, findings.lost, findings.doubled,
                findings.polls.size(), findings.Poll(0.5), findings.Poll(0.99), findings.Poll(1), findings.locked);
    for (const QString &fault : faults)
        std::printf("FAULT: %s\n", fault.toUtf8().constData());
    const bool holds = faults.isEmpty() && findings.messages > 0 && findings.lost == 0 && findings.doubled == 0;
    return holds ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 7) {
        std::fputs("usage: storm FOLDER COPIES SECONDS KILLS POLL MESSAGE\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        return Run({QDir(arguments.at(1)).absolutePath(), arguments.at(2).toInt(), arguments.at(3).toInt(),
                    arguments.at(4).toInt(), arguments.at(5), arguments.at(6)});
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}

#include "bench/ProgramFolder.h"

#include "platform/dao/Database.h"
#include "platform/dao/DateValue.h"
#include "platform/system/TimeSource.h"

#include <QDir>
#include <QFile>

#include <array>
#include <functional>
#include <random>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr unsigned seed = 1961;
constexpr int rowsPerDay = 8;

const std::array customers{u"Aalborg Shipyard"_s,   u"Brønshøj Dairy"_s, u"Esbjerg Harbour"_s,  u"Fåborg Tannery"_s,
                           u"Helsingør Library"_s,  u"Køge Timber"_s,    u"Møn Windows"_s,      u"Næstved Paper"_s,
                           u"Odense Robotics"_s,    u"Ringsted Foods"_s, u"Skive Furniture"_s,  u"Vejle Textiles"_s,
                           u"Lyngby Instruments"_s, u"Grenaa Ferries"_s, u"Sønderborg Pumps"_s, u"Ærø Branch"_s};
const std::array tasks{u"annual inspection"_s, u"bookkeeping"_s,   u"cabling"_s,       u"drawings"_s,
                       u"energy report"_s,     u"fault finding"_s, u"inventory"_s,     u"meetings"_s,
                       u"pump station"_s,      u"purchasing"_s,    u"quality audit"_s, u"spare parts"_s,
                       u"test and handover"_s};

template <class Texts> const QString &Pick(const Texts &texts, int number)
{
    return texts[static_cast<std::size_t>(number) % texts.size()];
}

void Fill(const QString &blank, const QString &path, const std::function<void(dao::Database &)> &addRows)
{
    QFile::remove(path);
    if (!QFile::copy(QDir(QStringLiteral(STEMP_TEMPLATE_FOLDER)).filePath(blank), path))
        throw std::runtime_error("cannot make " + path.toStdString());
    dao::Database database = dao::Database::OpenDatabase(path);
    dao::Transaction transaction(database, u"making data"_s);
    addRows(database);
    transaction.Commit();
}

void AddJobs(dao::Database &database, int count)
{
    for (int i = 0; i < count; ++i)
        database.Insert(u"INSERT INTO Projects (JobID, JobName) VALUES (?, ?)"_s, {JobIdOf(i), JobNameOf(i)},
                        u"a job"_s);
}

void AddTimeRows(dao::Database &database, int count, int jobs)
{
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QDateTime today = dao::WallTime(TimeSource().Now().date(), QTime(7, 0));
    for (int i = 0; i < count; ++i) {
        const int left = count - i - 1;
        const QDateTime in = today.addDays(-1 - left / rowsPerDay).addSecs((rowsPerDay - 1 - left % rowsPerDay) * 3600);
        const int job = below(jobs);
        database.Insert(u"INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) VALUES (?, ?, ?, ?)"_s,
                        {JobIdOf(job), JobNameOf(job), in, in.addSecs(600 + below(3000))}, u"a time row"_s);
    }
}

} // namespace

QString JobIdOf(int number)
{
    return u"K%1-%2"_s.arg(number, 6, 10, QLatin1Char('0')).arg(100 + number * 37 % 900);
}

QString JobNameOf(int number)
{
    return Pick(customers, number * 7) + u", "_s + Pick(tasks, number * 5);
}

void MakeProgramFolder(const QString &folder, const Amounts &amounts)
{
    const QDir dir(folder);
    if (!dir.mkpath(u"."_s))
        throw std::runtime_error("cannot make " + folder.toStdString());
    for (const QString &blank : {u"Blank.mdb"_s, u"blank Stemp.mdb"_s, u"Blank Jobs.mdb"_s}) {
        QFile::remove(dir.filePath(blank));
        QFile::copy(QDir(QStringLiteral(STEMP_TEMPLATE_FOLDER)).filePath(blank), dir.filePath(blank));
    }
    const BenchSystem system;
    QFile executable(dir.filePath(system.ExecutableName() + system.ExecutableSuffix()));
    executable.open(QIODevice::WriteOnly); // only looked for
    const QString login = system.LoginName();
    Fill(
        u"Blank Jobs.mdb"_s, dir.filePath(u"Jobs.mdb"_s),
        [&](dao::Database &jobs) { AddJobs(jobs, amounts.companyJobs); });
    Fill(
        u"blank Stemp.mdb"_s, dir.filePath(login + u" Stemp.mdb"_s),
        [&](dao::Database &personal) { AddJobs(personal, amounts.personalJobs); });
    Fill(u"Blank.mdb"_s, dir.filePath(login + u".mdb"_s),
         [&](dao::Database &times) { AddTimeRows(times, amounts.timeRows, amounts.personalJobs); });
}

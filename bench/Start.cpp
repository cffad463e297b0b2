// start FOLDER RUNS LIMIT: starts an empty window and the whole program in turn and compares their medians. LIMIT says how
// many times as long the program may take.

#include "bench/Figures.h"
#include "bench/ProgramFolder.h"

#include <QCoreApplication>
#include <QProcess>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

using Measured = std::map<QString, std::vector<double>>;

// The lines "name number" that a run reports.
void Run(const QString &program, const QString &folder, Measured &measured)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
    process.start(program, {QString::number(now.count())});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() + " failed");
    for (const QString &line : QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts))
        measured[line.section(u' ', 0, 0)].push_back(line.section(u' ', 1, 1).toDouble());
}

int Compare(const QString &folder, int runs, double limit)
{
    MakeProgramFolder(folder, {25000, 5000, 20000});
    const QString empty = QStringLiteral(BENCH_EMPTY);
    const QString program = QStringLiteral(BENCH_PROGRAM);
    Measured first; // makes the tables of the texts and warms the disk's cache
    for (int i = 0; i < 2; ++i) {
        Run(empty, folder, first);
        Run(program, folder, first);
    }
    Measured emptyRuns;
    Measured programRuns;
    for (int i = 0; i < runs; ++i) {
        Run(empty, folder, emptyRuns);
        Run(program, folder, programRuns);
    }
    const auto median = [](Measured &measured, const QString &name) { return Median(measured[name]); };
    Figures figures;
    const double painted = median(programRuns, u"painted"_s);
    figures.AddRatio(u"start to painted window"_s, median(emptyRuns, u"painted"_s), painted, u"ms"_s, limit);
    figures.AddDifference(u"company list there, after the window"_s, painted, median(programRuns, u"lists"_s), u"ms"_s,
                          100);
    figures.AddDifference(u"peak memory"_s, median(emptyRuns, u"peak"_s), median(programRuns, u"peak"_s), u"MiB"_s, 30);
    return figures.OverLimit() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: bench_start FOLDER RUNS LIMIT\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        return Compare(arguments[1], arguments[2].toInt(), arguments[3].toDouble());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}

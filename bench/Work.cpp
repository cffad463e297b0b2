// work FOLDER: what is measured inside one process.

#include "bench/Work.h"

#include <QApplication>
#include <QFileInfo>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

QString folder;

class MediansReporter : public benchmark::BenchmarkReporter
{
public:
    Medians medians;
    bool failed = false;

    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                failed = true;
            } else if (run.aggregate_name == "median") {
                medians.Set(run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args),
                            run.GetAdjustedRealTime());
            }
        }
    }
};

int Measure()
{
    MediansReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (reporter.failed)
        return EXIT_FAILURE;
    Figures figures;
    AddStempFigures(figures, reporter.medians);
    AddSearchFigures(figures, reporter.medians);
    AddSummaryWindowFigures(figures, reporter.medians);
    return figures.OverLimit() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

QString BenchFolder()
{
    return folder;
}

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fputs("usage: bench_work FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    folder = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    try {
        return Measure();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}

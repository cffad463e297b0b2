// Opening the summary window until the sums of 25,000 rows are painted, in processor time of all threads, beside an empty
// dialog of the same owner.

#include "bench/ProgramFolder.h"
#include "bench/Work.h"
#include "clock/StempWin.h"
#include "platform/forms/Prompts.h"
#include "platform/system/TimeSource.h"
#include "startup/Main.h"
#include "startup/Program.h"

#include <QAction>
#include <QApplication>
#include <QDateEdit>
#include <QDialog>
#include <QDir>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <ctime>
#include <memory>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Closes a window once a widget of it was painted with what it is to show.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &painted) : painted_(painted) { painted.installEventFilter(this); }

    double paintedAt = 0; // processor time

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *grid = qobject_cast<QTableView *>(watched->parent());
        if (event->type() == QEvent::Paint && paintedAt == 0 && (!grid || grid->model()->rowCount() > 0)) {
            painted_.removeEventFilter(this);
            // After this event and the painting in it.
            QTimer::singleShot(0, this, [this] {
                paintedAt = ProcessorSeconds();
                painted_.window()->close();
            });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget &painted_;
};

class SummaryProgram
{
public:
    SummaryProgram() : start_(program_, prompts_)
    {
        const QString folder = BenchFolder() + u"/summary"_s;
        MakeProgramFolder(folder, {25000, 500, 500});
        QDir::setCurrent(folder);
        if (!start_.Run())
            throw std::runtime_error("the program did not start");
    }
    ~SummaryProgram() { start_.EndSession(); }

    double Summarise()
    {
        const double begin = ProcessorSeconds();
        start_.Window()->findChild<QAction *>(u"mnuSummary"_s)->trigger();
        const QPointer<QWidget> window = QApplication::activeModalWidget();
        PaintWatch watch(*window->findChild<QTableView *>(u"SummaryGrid"_s)->viewport());
        window->findChild<QDateEdit *>(u"DTPickerFrom"_s)->setDate({2000, 1, 1});
        window->findChild<QPushButton *>(u"UpdateButton"_s)->click();
        while (window) // it goes once it is painted
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return watch.paintedAt - begin;
    }

    double ShowEmptyDialog()
    {
        const double begin = ProcessorSeconds();
        QDialog dialog(start_.Window());
        const PaintWatch watch(dialog);
        dialog.exec();
        return watch.paintedAt - begin;
    }

private:
    const BenchSystem system_;
    const TimeSource time_;
    ScreenPrompts prompts_;
    Program program_{system_, time_, CompanyLink::Mode::Inline};
    Main start_;
};

SummaryProgram &TheProgram()
{
    static std::unique_ptr<SummaryProgram> program;
    if (!program) {
        program = std::make_unique<SummaryProgram>();
        qAddPostRoutine([] { program.reset(); }); // windows go before the application does
    }
    return *program;
}

void EmptyDialog(benchmark::State &state)
{
    for (auto _ : state)
        state.SetIterationTime(TheProgram().ShowEmptyDialog());
}

void SummaryWindow(benchmark::State &state)
{
    for (auto _ : state)
        state.SetIterationTime(TheProgram().Summarise());
}

void Rounds(benchmark::internal::Benchmark *measured)
{
    measured->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)->Repetitions(11);
}

BENCHMARK(EmptyDialog)->Apply(Rounds);
BENCHMARK(SummaryWindow)->Apply(Rounds);

} // namespace

void AddSummaryWindowFigures(Figures &figures, const Medians &medians)
{
    figures.AddDifference(u"summary window with sums, processor time"_s, medians.Milliseconds("EmptyDialog"),
                          medians.Milliseconds("SummaryWindow"), u"ms"_s, 100);
}

// One keystroke in the search box until the list under it is filled and painted anew: in a list of 100,000 jobs, and, as the
// floor, in one of ten.

#include "bench/ProgramFolder.h"
#include "bench/Work.h"
#include "clock/StempWin.h"
#include "platform/forms/Application.h"
#include "platform/forms/Prompts.h"
#include "platform/system/TimeSource.h"
#include "startup/Main.h"
#include "startup/Program.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>

#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <memory>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

// What stands in the box, and the key that is pressed then.
struct Keystroke
{
    QString what;
    QString before;
    int key;
    QString text;
};

const std::array keystrokes{Keystroke{u"first letter, found in all"_s, u""_s, Qt::Key_K, u"k"_s},
                            Keystroke{u"first letter, found in a part"_s, u""_s, Qt::Key_AE, u"æ"_s},
                            Keystroke{u"third letter"_s, u"dr"_s, Qt::Key_A, u"a"_s},
                            Keystroke{u"first letter, found nowhere"_s, u""_s, Qt::Key_X, u"x"_s},
                            Keystroke{u"back to the whole list"_s, u"k"_s, Qt::Key_Backspace, u""_s}};

// A running program with the company list dropped down.
class OpenList : public QObject
{
public:
    explicit OpenList(int jobs) : start_(program_, prompts_)
    {
        const QString folder = BenchFolder() + u"/search-%1"_s.arg(jobs);
        MakeProgramFolder(folder, {1000, 5, jobs});
        QDir::setCurrent(folder);
        if (!start_.Run())
            throw std::runtime_error("the program did not start");
        box_ = start_.Window()->findChild<QLineEdit *>(u"TextUtil"_s);
        list_ = start_.Window()->findChild<QListView *>(u"XList"_s);
        start_.Window()->findChild<QAction *>(u"mnuFull"_s)->trigger();
        list_->viewport()->installEventFilter(this);
        if (list_->model()->rowCount() != jobs)
            throw std::runtime_error("the list is not there");
    }

    ~OpenList() override { start_.EndSession(); }

    void Prepare(const QString &text)
    {
        if (text == box_->text())
            return;
        while (!box_->text().isEmpty())
            Press(Qt::Key_Backspace, {});
        for (const QChar letter : text)
            Press(Qt::Key_A, letter);
    }

    void Press(int key, const QString &text)
    {
        painted_ = false;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(box_, &press);
        while (!painted_)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    const BenchSystem system_;
    const TimeSource time_;
    ScreenPrompts prompts_;
    Program program_{system_, time_, CompanyLink::Mode::Inline};
    Main start_;
    QLineEdit *box_ = nullptr;
    QListView *list_ = nullptr;
    bool painted_ = false;
};

std::map<int, std::unique_ptr<OpenList>> openLists;

OpenList &ListOf(int jobs)
{
    if (openLists.empty())
        qAddPostRoutine([] { openLists.clear(); }); // windows go before the application does
    std::unique_ptr<OpenList> &list = openLists[jobs];
    if (!list)
        list = std::make_unique<OpenList>(jobs);
    return *list;
}

// Arguments: the number of jobs, and which keystroke.
void Press(benchmark::State &state)
{
    OpenList &list = ListOf(static_cast<int>(state.range(0)));
    const Keystroke &keystroke = keystrokes.at(static_cast<std::size_t>(state.range(1)));
    for (auto _ : state) {
        list.Prepare(keystroke.before);
        const Stopwatch stopwatch;
        list.Press(keystroke.key, keystroke.text);
        state.SetIterationTime(stopwatch.Seconds());
    }
}

constexpr int fewJobs = 10;
constexpr int manyJobs = 100000;

BENCHMARK(Press)
    ->ArgsProduct({{fewJobs, manyJobs}, benchmark::CreateDenseRange(0, keystrokes.size() - 1, 1)})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5)
    ->Repetitions(11);

} // namespace

void AddSearchFigures(Figures &figures, const Medians &medians)
{
    for (std::size_t i = 0; i < keystrokes.size(); ++i) {
        const auto median = [&](int jobs) {
            return medians.Milliseconds("Press/" + std::to_string(jobs) + "/" + std::to_string(i));
        };
        figures.AddValue(u"key: "_s + keystrokes[i].what, median(fewJobs), median(manyJobs), u"ms"_s, 16);
    }
}

// walk SEED STEPS: somebody who presses keys, clicks, drags and turns the wheel anywhere in the program, at random, in a program
// folder with a company database. Each step is printed before it is taken, so that the last line tells what ended a walk, and
// a seed that found something can be walked again. Exits non-zero when
//  - a job was stemped in on that was neither under the pointer before the press, nor chosen by keys, nor typed,
//  - a row is stored of which nothing was seen, or one is missing, or
//  - the end of the session did not end the program within 5 s.
// A program that dies, or that the sanitizers find at fault, ends the walk with it.
#include "board/Poll.h"
#include "clock/JobItem.h"
#include "clock/StempWin.h"
#include "platform/forms/Application.h"
#include "platform/forms/Prompts.h"
#include "startup/Main.h"
#include "startup/Program.h"
#include "support/FakeSystem.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"
#include "texts/TextTable.h"

#include <QAbstractPrintDialog>
#include <QApplication>
#include <QCalendarWidget>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <cstdio>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int endLimit = 5000; // milliseconds

const QStringList keys =
    u"E K 1 7 : Space Return Return Escape Escape Up Down Down PgDown End Home Tab Shift+Tab Del Backspace F1 F4 Y "
    u"Alt+Down "
    "Alt+I Alt+O Alt+F Alt+R Alt+P Alt+N Alt+S Alt+C Alt+A Alt+M Alt+Y Ctrl+E Ctrl+V Ctrl+C Ctrl+Shift+Backspace"_s
        .split(u' ');

// As the system sends them: modality is Qt's own, and a window may go during a click. QTest would process other events, too.
void SendKey(const QPointer<QWindow> &window, QKeyCombination stroke)
{
    const QString text(QChar::fromLatin1(QTest::keyToAscii(stroke.key())));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        if (window)
            qt_handleKeyEvent(window, type, stroke.key(), stroke.keyboardModifiers(), text);
}

// One that goes while a date is being typed in it leaks Qt's own validator of that date.
bool IsCalendar(const QWidget *popup)
{
    return popup && (qobject_cast<const QCalendarWidget *>(popup) || popup->findChild<QCalendarWidget *>());
}

// Dialogs of the system reach beyond the program folder.
bool IsSystemDialog(const QWidget *window)
{
    return qobject_cast<const QFileDialog *>(window) || qobject_cast<const QAbstractPrintDialog *>(window);
}

class Walk : public QObject
{
public:
    Walk(quint32 seed, int steps) : random_(seed), left_(steps)
    {
        qputenv("HOME", folder_.Path().toLocal8Bit()); // the file dialogs begin there
        system_.folder = folder_.Path();
        folder_.MakeJobs(companyFile);
        folder_.Sql(
            companyFile,
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300) INSERT INTO Projects "
            "(JobID, JobName) SELECT printf('K%03d', i), printf('Company %d', i) FROM n"_s);
        folder_.Sql(companyFile,
                    u"INSERT INTO Users (User, State, Comment) VALUES ('BO', 0, 'here'), ('EVA', -1, '')"_s);
        folder_.MakePersonal();
        dao::Database personal = dao::Database::OpenDatabase(folder_.File(personalFile));
        TextTable::Open(personal, u"AdminForm"_s);
        personal.Execute(u"INSERT INTO AdminForm (Name, Value) VALUES ('EnterpriseMDBText', ?)"_s,
                         {folder_.File(companyFile)}, {});
    }

    bool Run();

private:
    bool RunProgram();
    void Step();
    void PressKey(QWindow *window);
    void UseMouse(QWidget &window);
    void SendMouse(const QPointer<QWindow> &window, QEvent::Type type, Qt::MouseButton button, QPoint at);
    void TurnWheel(QWindow &window, QPoint at, const QString &name);
    QWidget *AnyWindow();
    QWidget *AnyWidget(QWidget &window);
    QStringList ChosenByKeys() const;
    QStringList UnderPointer(const QWidget *pressed, QPoint at) const;
    void Stemped();
    void WriteAsColleague();
    void Say(const QString &what) const;
    int Any(int below) { return random_.bounded(below); }

    const ProgramFolder folder_;
    SettableTime time_;
    FakeSystem system_;
    QRandomGenerator random_;
    int left_;
    int clock_ = 0; // of the mouse, in milliseconds
    Main *main_ = nullptr;
    const Program *program_ = nullptr;
    Poll::Memory colleague_;
    QStringList mayStempIn_; // the jobs that the step under way may choose
    QStringList rows_;       // that were stemped in on
    QElapsedTimer ending_;
    bool isFaulty_ = false;
};

void Walk::Say(const QString &what) const
{
    std::printf("%d %s\n", left_, qPrintable(what));
    std::fflush(stdout);
}

bool Walk::Run()
{
    while (left_ > 0 && !isFaulty_)
        if (!RunProgram())
            return false;
    const QString stored = folder_.Rows(timeFile, u"SELECT JobID || ' : ' || JobName FROM Stemp ORDER BY Id"_s);
    if (stored == rows_.join(u", "_s))
        return !isFaulty_;
    std::printf("stored: %s\nseen: %s\n", qPrintable(stored), qPrintable(rows_.join(u", "_s)));
    return false;
}

// As main() does it, up to the end of the program or of the walk.
bool Walk::RunProgram()
{
    ScreenPrompts prompts;
    Program program(system_, time_, CompanyLink::Mode::Thread);
    Main start(program, prompts);
    program_ = &program;
    main_ = &start;
    connect(
        &start, &Main::Ended, qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    ending_.invalidate();
    QTimer::singleShot(0, this, &Walk::Step);
    if (start.Run()) {
        connect(start.Window(), &StempWin::Stemped, this, &Walk::Stemped);
        // Its access key presses it for a while, and other steps follow meanwhile.
        connect(start.Window()->findChild<QPushButton *>(u"InOutButton"_s), &QPushButton::released, this,
                [this] { mayStempIn_ += ChosenByKeys(); });
        QApplication::exec();
    } else if (!start.HasEnded()) {
        Say(u"the program did not start"_s);
        return false;
    }
    main_ = nullptr;
    if (ending_.isValid() && ending_.elapsed() > endLimit) {
        Say(u"it took %1 ms to end"_s.arg(ending_.elapsed()));
        return false;
    }
    return program.CloseDatabases();
}

void Walk::Step()
{
    if (!main_ || main_->HasEnded())
        return;
    if (left_-- <= 0 || isFaulty_) {
        ending_.start();
        main_->EndSession();
        QCoreApplication::exit();
        return;
    }
    QTimer::singleShot(0, this, &Walk::Step); // first, as this one may open a question and wait in it
    time_.Advance(7);
    if (left_ % 100 == 50)
        WriteAsColleague();
    QWidget *window = AnyWindow();
    if (!window || !window->windowHandle())
        return;
    const bool isBlockedSystemDialog = IsSystemDialog(window);
    if (isBlockedSystemDialog || Any(2) == 0)
        PressKey(isBlockedSystemDialog ? window->windowHandle() : QGuiApplication::focusWindow());
    else if (Any(150) == 0) {
        Say(u"close "_s + window->objectName());
        window->close();
    } else {
        UseMouse(*window);
    }
}

void Walk::SendMouse(const QPointer<QWindow> &window, QEvent::Type type, Qt::MouseButton button, QPoint at)
{
    if (!window)
        return;
    const bool isDown = type != QEvent::MouseButtonRelease;
    qt_handleMouseEvent(window, at, window->mapToGlobal(at), isDown ? button : Qt::NoButton,
                        type == QEvent::MouseMove ? Qt::NoButton : button, type, {}, ++clock_);
}

QWidget *Walk::AnyWindow()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    QWidgetList windows;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!widget->isVisible() || widget->windowType() == Qt::ToolTip)
            continue;
        if (IsSystemDialog(widget))
            return widget;
        windows.append(widget);
    }
    return windows.isEmpty() ? nullptr : windows.at(Any(int(windows.size())));
}

QWidget *Walk::AnyWidget(QWidget &window)
{
    QWidgetList widgets{&window};
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->window() != &window || widget->visibleRegion().isEmpty())
            continue;
        widgets.append(widget);
        if (widget->parentWidget()->objectName() == "XList"_L1 && Any(2) == 0) // what hides all else
            return widget;
    }
    return widgets.at(Any(int(widgets.size())));
}

void Walk::PressKey(QWindow *window)
{
    if (!window)
        return;
    const QString name =
        IsSystemDialog(QApplication::activeModalWidget()) || IsCalendar(QApplication::activePopupWidget())
            ? u"Escape"_s
            : keys.at(Any(int(keys.size())));
    const QKeyCombination stroke = QKeySequence::fromString(name)[0];
    Say(u"key %1 in %2"_s.arg(name, window->objectName()));
    mayStempIn_ = ChosenByKeys();
    SendKey(window, stroke);
}

void Walk::UseMouse(QWidget &window)
{
    QWidget *widget = AnyWidget(window);
    const QPoint inWidget(Any(std::max(1, widget->width())), Any(std::max(1, widget->height())));
    const QPoint at = widget->mapTo(&window, inWidget);
    const QWidget *pressed = window.childAt(at);
    const QWidget *named = pressed ? pressed : &window;
    while (named != &window && (named->objectName().isEmpty() || named->objectName().startsWith("qt_"_L1)))
        named = named->parentWidget();
    const QString name = u"%1.%2 (%3, %4)"_s.arg(QLatin1String(window.metaObject()->className()), named->objectName())
                             .arg(at.x())
                             .arg(at.y());
    const QPointer<QWindow> native(window.windowHandle());
    if (!window.rect().contains(at))
        return;
    if (Any(4) == 0)
        return TurnWheel(*native, at, name);
    mayStempIn_ = UnderPointer(pressed, pressed ? pressed->mapFrom(&window, at) : at);
    if (pressed && Any(3) > 0) // as window managers do
        window.activateWindow();
    const Qt::MouseButton button = Any(12) == 0 ? Qt::RightButton : Qt::LeftButton;
    const bool drags = Any(12) == 0;
    const QPoint to = drags ? QPoint(Any(window.width()), Any(window.height())) : at;
    const int clicks = Any(12) == 0 ? 2 : 1;
    Say(u"%1 %2 %3 %4"_s.arg(drags ? u"drag"_s : u"click"_s).arg(clicks).arg(button).arg(name));
    clock_ += QApplication::doubleClickInterval();
    for (int click = 0; click < clicks; ++click) {
        SendMouse(native, QEvent::MouseButtonPress, button, at);
        if (drags)
            SendMouse(native, QEvent::MouseMove, button, to);
        SendMouse(native, QEvent::MouseButtonRelease, button, to);
    }
}

void Walk::TurnWheel(QWindow &window, QPoint at, const QString &name)
{
    Say(u"wheel "_s + name);
    for (int notch = Any(10); notch >= 0; --notch) {
        QWheelEvent wheel(at, window.mapToGlobal(at), {}, {0, Any(4) == 0 ? 120 : -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window, &wheel);
    }
}

// By the button or Enter: the current entry of the list, or the text of the box.
QStringList Walk::ChosenByKeys() const
{
    const StempWin *window = main_->Window();
    if (!window)
        return {};
    const auto *list = window->findChild<QListView *>(u"XList"_s);
    const auto *box = window->findChild<QLineEdit *>(u"TextUtil"_s);
    if (list->isVisible())
        return {list->currentIndex().data().toString()};
    return {box->text()};
}

QStringList Walk::UnderPointer(const QWidget *pressed, QPoint at) const
{
    if (!pressed || !main_->Window() || pressed->window() != main_->Window())
        return {};
    const auto *list = qobject_cast<const QListView *>(pressed->parentWidget());
    if (!list || list->objectName() != "XList"_L1)
        return {};
    return {list->indexAt(at).data().toString()};
}

void Walk::Stemped()
{
    const ClockState &clock = program_->clock.state;
    if (!clock.IsStempedIn)
        return;
    const QString job = clock.CurrentJobID + u" : "_s + clock.CurrentJobName;
    rows_.append(job);
    for (const QString &item : mayStempIn_)
        if (const JobItem chosen = SplitJobItem(item);
            job.simplified()
            == QString(chosen.id + u" : "_s + chosen.name).simplified()) // blanks replace control characters
            return;
    Say(u"stemped in on \"%1\", while \"%2\" was chosen"_s.arg(job, mayStempIn_.join(u"\" or \""_s)));
    isFaulty_ = true;
}

void Walk::WriteAsColleague()
{
    try {
        dao::Database company = dao::Database::OpenDatabase(folder_.File(companyFile));
        Poll::Run(company, colleague_, {u"BO"_s, time_.Now(), {{Poll::RandomId(), u"ANNA"_s, u"Lunch?"_s}}, {}});
    } catch (const dao::Error &error) {
        Say(error.Text());
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Stemp"));
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyApplicationFont(application);
    const QStringList arguments = QCoreApplication::arguments();
    Walk walk(arguments.value(1).toUInt(), arguments.value(2).toInt());
    return walk.Run() ? EXIT_SUCCESS : EXIT_FAILURE;
}

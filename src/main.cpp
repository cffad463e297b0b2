#include "startup/Main.h"
#include "platform/forms/Application.h"
#include "platform/forms/Prompts.h"
#include "platform/system/System.h"
#include "platform/system/TimeSource.h"
#include "startup/Program.h"
#include "startup/SessionEnd.h"

#include <QApplication>
#include <QIcon>

#include <cstdlib>

int main(int argc, char *argv[])
{
#ifdef Q_CC_MINGW
    // With this compiler, what Qt keeps of a regular expression for each thread is freed before it is destroyed: a thread that
    // has used one would crash at its end. Nothing is kept when expressions are interpreted.
    qputenv("QT_ENABLE_REGEXP_JIT", "0");
#endif
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Stemp"));
    QApplication::setQuitOnLastWindowClosed(false); // the program lives as long as its main window is loaded
    ApplyApplicationFont(application);
    const ToolkitWarmUp warmUp; // as early as can be
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/stemp.svg")));

    const System system;
    const TimeSource time;
    ScreenPrompts prompts;
    Program program(system, time, CompanyLink::Mode::Thread);
    Main start(program, prompts);
    const SessionEnd sessionEnd;
    QObject::connect(
        &sessionEnd, &SessionEnd::Ending, &start,
        [&start] {
            start.EndSession();
            QCoreApplication::exit(); // leaves a start that waits for an answer, too
        });
    QObject::connect(
        &start, &Main::Ended, &application, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    int result = EXIT_SUCCESS;
    if (start.Run())
        result = QApplication::exec();
    else if (!start.HasEnded())
        result = EXIT_FAILURE;
    // A thread that hangs in a file system would keep the process alive, or crash it at its end.
    if (!program.CloseDatabases())
        std::_Exit(result);
    return result;
}

#include "startup/Main.h"
#include "platform/forms/Application.h"
#include "platform/forms/Prompts.h"
#include "platform/system/System.h"
#include "platform/system/TimeSource.h"
#include "startup/Program.h"
#include "startup/SessionEnd.h"

#include <QApplication>

#include <cstdlib>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Stemp"));
    QApplication::setQuitOnLastWindowClosed(false); // the program lives as long as its main window is loaded
    ApplyApplicationFont(application);
    const ToolkitWarmUp warmUp;

    const System system;
    const TimeSource time;
    ScreenPrompts prompts;
    int result = EXIT_SUCCESS;
    {
        Program program(system, time, CompanyLink::Mode::Thread);
        Main start(program, prompts);
        const SessionEnd sessionEnd;
        QObject::connect(&sessionEnd, &SessionEnd::Ending, &start, &Main::EndSession);
        QObject::connect(&start, &Main::Ended, &application, [](bool clean) {
            // A thread that hangs in a file system would keep the process alive, or crash it at its end.
            if (!clean)
                std::_Exit(EXIT_SUCCESS);
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        });
        if (start.Run())
            result = QApplication::exec();
    }
    return result;
}

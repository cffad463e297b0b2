// The program as src/main.cpp starts it, until its window is painted and the lists are there.

#include "bench/FirstPaint.h"
#include "bench/ProgramFolder.h"
#include "platform/forms/Application.h"
#include "platform/forms/Prompts.h"
#include "platform/system/TimeSource.h"
#include "startup/Main.h"
#include "startup/Program.h"

#include <QApplication>
#include <QIcon>

#include <cstdlib>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc < 2)
        return EXIT_FAILURE;
    QApplication::setApplicationName(QStringLiteral("Stemp"));
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyApplicationFont(application);
    const ToolkitWarmUp warmUp;
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/stemp.svg")));

    const BenchSystem system;
    const TimeSource time;
    ScreenPrompts prompts;
    Program program(system, time, CompanyLink::Mode::Thread);
    Main start(program, prompts);
    bool painted = false;
    bool filled = false;
    const auto endWhenBoth = [&] {
        if (!painted || !filled)
            return;
        ReportPeakMemory();
        start.EndSession();
        QCoreApplication::exit();
    };
    const FirstPaint firstPaint([&] {
        ReportTime("painted", argv[1]);
        painted = true;
        endWhenBoth();
    });
    QObject::connect(&program.jobDatabase, &JobDatabase::JobListFilled, &application, [&] {
        if (program.lists.CompanyList.IsEmpty())
            return; // emptied, as another file comes into use
        ReportTime("lists", argv[1]);
        filled = true;
        endWhenBoth();
    });
    return start.Run() ? QApplication::exec() : EXIT_FAILURE;
}

// The floor of a start: an empty main window.

#include "bench/FirstPaint.h"

#include <QApplication>
#include <QMainWindow>

#include <cstdlib>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc < 2)
        return EXIT_FAILURE;
    QMainWindow window;
    window.resize(640, 480);
    window.show();
    const FirstPaint firstPaint([argv] {
        ReportTime("painted", argv[1]);
        ReportPeakMemory();
        QCoreApplication::quit();
    });
    return QApplication::exec();
}

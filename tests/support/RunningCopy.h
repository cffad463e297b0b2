#pragma once

#include "board/BoardDesk.h"
#include "clock/StempWin.h"
#include "startup/Main.h"
#include "startup/Program.h"
#include "support/AtWindow.h"
#include "support/FakeSystem.h"

#include <QApplication>
#include <QTimer>

#include <functional>

// Does something once as soon as a window of that name is on the screen: the way into one that is waited for.
class WhenShown : public QObject
{
public:
    WhenShown(const QString &window, std::function<void(QWidget &)> action)
    {
        timer_.callOnTimeout(this, [this, window, action = std::move(action)] {
            if (QWidget *shown = ShownWindow(window)) {
                timer_.stop();
                done = true;
                action(*shown);
            }
        });
        timer_.start(5);
    }

    bool done = false;

private:
    QTimer timer_;
};

// One running copy of the program in a folder, in this process, its answers given beforehand.
struct RunningCopy
{
    explicit RunningCopy(const ProgramFolder &folder, const QDateTime &now = SettableTime().Now(),
                         CompanyLink::Mode mode = CompanyLink::Mode::Inline)
        : program(system, time, mode)
    {
        system.folder = folder.Path();
        time.now = now;
    }
    ~RunningCopy()
    {
        if (main.Window())
            main.EndSession();
    }

    bool Start() { return main.Run(); }
    // Closes the main window as a person does; the out-query, if it comes, is left as it opens.
    void Close()
    {
        WhenShown query(QStringLiteral("IOQuery"), [](QWidget &window) { window.close(); });
        main.Window()->close();
        QTRY_VERIFY(!main.Window()->IsLoaded());
    }
    // Opens the settings, changes them and presses OK.
    void Accept(const std::function<void(QWidget &)> &change)
    {
        Choose("mnuAdmin");
        QWidget *settings = ShownWindow(QStringLiteral("AdminForm"));
        QVERIFY(settings);
        change(*settings);
        QTest::keyClick(settings->windowHandle(), Qt::Key_Return);
    }
    static auto TypePath(const QString &path)
    {
        return [path](QWidget &window) { Child<QLineEdit>(window, "EnterpriseMDBText")->setText(path); };
    }
    void Poll() { main.Desk()->Refresh_Enterprise(); }
    template <class T> T *Find(const char *name) const { return Child<T>(*main.Window(), name); }
    void Choose(const char *menu) const { Find<QAction>(menu)->trigger(); }
    const ClockState &Clock() const { return program.clock.state; }

    FakeSystem system;
    SettableTime time;
    AnsweredPrompts prompts;
    Program program;
    Main main{program, prompts};
};

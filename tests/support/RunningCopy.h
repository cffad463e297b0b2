#pragma once

#include "board/BoardDesk.h"
#include "clock/StempWin.h"
#include "startup/Main.h"
#include "startup/Program.h"
#include "support/AnsweredPrompts.h"
#include "support/FakeSystem.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

// Does something once as soon as a window of that name is on the screen: the way into a modal window.
class WhenShown : public QObject
{
public:
    WhenShown(const QString &window, std::function<void(QWidget &)> action)
    {
        timer_.callOnTimeout(this, [this, window, action = std::move(action)] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible() && widget->objectName() == window) {
                    timer_.stop();
                    done = true;
                    action(*widget);
                    return;
                }
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
    explicit RunningCopy(const ProgramFolder &folder, const QDateTime &now = SettableTime().Now())
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
    }
    // Opens the settings, changes them and presses OK.
    void Accept(const std::function<void(QWidget &)> &change)
    {
        WhenShown dialog(QStringLiteral("AdminForm"), [&](QWidget &window) {
            change(window);
            QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        });
        Find<QAction>(QStringLiteral("mnuAdmin"))->trigger();
    }
    static auto TypePath(const QString &path)
    {
        return [path](QWidget &window) {
            window.findChild<QLineEdit *>(QStringLiteral("EnterpriseMDBText"))->setText(path);
        };
    }
    void Poll() { main.Desk()->Refresh_Enterprise(); }
    template <class T> T *Find(const QString &name) const { return main.Window()->findChild<T *>(name); }
    const ClockState &Clock() const { return program.clock.state; }

    FakeSystem system;
    SettableTime time;
    AnsweredPrompts prompts;
    Program program{system, time, CompanyLink::Mode::Inline};
    Main main{program, prompts};
};

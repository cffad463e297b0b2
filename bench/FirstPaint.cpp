#include "bench/FirstPaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

FirstPaint::FirstPaint(std::function<void()> painted) : painted_(std::move(painted))
{
    qApp->installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject *watched, QEvent *event)
{
    if (!seen_ && event->type() == QEvent::Paint) {
        const auto *widget = qobject_cast<QWidget *>(watched);
        if (widget && qobject_cast<QMainWindow *>(widget->window())) {
            seen_ = true;
            // Comes when this round of painting, its flush included, is over, and before all else that waits.
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
    }
    return QObject::eventFilter(watched, event);
}

bool FirstPaint::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    qApp->removeEventFilter(this);
    painted_();
    return true;
}

void ReportTime(const char *name, const char *start)
{
    const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
    const std::chrono::duration<double, std::milli> passed = now - std::chrono::nanoseconds(std::atoll(start));
    std::printf("%s %.3f\n", name, passed.count());
}

void ReportPeakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak %.3f\n", static_cast<double>(usage.ru_maxrss) / 1024);
}

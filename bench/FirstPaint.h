#pragma once

#include <QObject>

#include <functional>

// Tells when a main window was painted for the first time, after its pixels went to the screen.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(std::function<void()> painted);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;

private:
    std::function<void()> painted_;
    bool seen_ = false;
};

// A line for the program that started this one: the name, and the milliseconds since the moment it gave as first argument.
void ReportTime(const char *name, const char *start);
void ReportPeakMemory(); // a line "peak" with MiB

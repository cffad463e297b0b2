#pragma once

#include <QString>

#include <chrono>

enum class Rounding { Quarters, HalfHours, WholeHours };

// The options of one running copy, as accepted in the settings dialog; the values here are those of a first run.
struct Options
{
    QString UserName;
    bool AdminMode = false;          // may add and delete company jobs
    bool CanSetOthersStatus = false; // may change the status text of others
    bool AutoUpdate = false;         // rebuild the local copy of the company job list at exit
    bool PopUpMessages = true;
    bool ShowJob = true; // colleagues see the current job on the board
    bool ShowToolTips = true;
    Rounding SummaryRounding = Rounding::Quarters;
    QString DaysInGrid = QStringLiteral("7"); // as typed; DaysToShow reads it
    QString PollDelay = QStringLiteral("15"); // as typed; PollPeriod reads it
    QString EnterpriseMDBText; // path of the company database as the person chose it, native separators; may be empty
};

// The leading number of `text`, rounded to a whole number, halves to the even one; 0 when there is none. Clamped to 16 bits.
int LeadingNumber(const QString &text);

int DaysToShow(const QString &daysInGrid);                 // below 1: 7
std::chrono::seconds PollPeriod(const QString &pollDelay); // below 1: 15, over 60: 60

#pragma once

#include "settings/Options.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

namespace dao {
class Database;
}

enum class SummaryKind { None = 0, PerJob = 1, PerDay = 2 };

struct SummaryRow
{
    QDate day; // invalid in a summary per job
    QString jobID;
    QString jobName;
    std::optional<double> hours;   // exact; nothing when the job has only an open row
    std::optional<double> rounded; // hours, too
};

// The result of one of the two statements, with the range and the rounding that it was asked for.
struct Summary
{
    SummaryKind kind = SummaryKind::None;
    QDate from;
    QDate to;
    Rounding rounding = Rounding::Quarters;
    QList<SummaryRow> rows; // in the order of the statement

    double TotalHours() const;   // of the exact values
    double TotalRounded() const; // of the rounded values of the rows
};

// Hours without the floating error of dates: what is a whole number of seconds but for that is one exactly.
double ExactHours(double hours);

// Runs the statement of `kind` on the time database. Throws dao::Error. The connection must have the functions of the
// statements.
Summary ReadSummary(dao::Database &timeDb, SummaryKind kind, const QDate &from, const QDate &to, Rounding rounding);

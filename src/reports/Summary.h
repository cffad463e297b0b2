#pragma once

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

// The result of one of the two statements, with the range that it was asked for.
struct Summary
{
    SummaryKind kind = SummaryKind::None;
    QDate from;
    QDate to;
    QList<SummaryRow> rows; // in the order of the statement

    double TotalHours() const;   // of the exact values
    double TotalRounded() const; // of the rounded values of the rows
};

// Runs the statement of `kind` on the time database; `roundingFragment` as RoundingFragment gives it. Throws dao::Error. The
// connection must have the functions of the statements.
Summary ReadSummary(dao::Database &timeDb, SummaryKind kind, const QDate &from, const QDate &to,
                    const QString &roundingFragment);

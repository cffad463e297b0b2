#pragma once

#include "reports/Summary.h"
#include "reports/TimeRows.h"

#include <QByteArray>
#include <QList>

// Tables for other programs: RFC 4180 in UTF-8, with a line of column names, numbers with a decimal point and dates as ISO
// 8601 writes them, whatever the locale. Texts are kept as they are. A byte order mark comes first: without it the common
// spreadsheets take the file for one in the system's old encoding and spoil Danish letters.

// Day (per day only), JobID, Hours (exact), Rounded, JobName. No totals: the program that reads it sums.
QByteArray SummaryCsv(const Summary &summary);

// JobID, JobName, StempInTime, StempOutTime; an open row has no last field.
QByteArray TimeRowsCsv(const QList<RawTimeRow> &rows);

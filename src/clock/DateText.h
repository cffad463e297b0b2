#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <optional>

// Dates and times as people read and type them. Wall-clock times, to the second.

// The locale's short date with a four-digit year, and its short time with seconds. ReadDateTime reads it back exactly.
QString DateTimeText(const QDateTime &time, const QLocale &locale);

// For reading only: "08:02" of today, "12 Oct 08:02" of this year, "12 Oct 2025 08:02" of another, as the locale writes it.
QString BriefTimeText(const QDateTime &time, const QDate &today, const QLocale &locale);

// Accepts what DateTimeText writes, the locale's short and long formats with and without seconds, ISO ("2026-03-01 08:30",
// "2026-03-01T08:30:15"), and a bare time of today: "8:30", "08:30:15", "0830", "8.30". Nothing for any other text.
std::optional<QDateTime> ReadDateTime(const QString &text, const QLocale &locale, const QDateTime &now);

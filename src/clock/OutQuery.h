#pragma once

#include <QDateTime>

#include <optional>

// What the out-query's options stand for, numbered as the members of its control array "Options".
enum class OutChoice { Remain = 1, OutAt = 2, OutNow = 3 };

enum class OutWarning { None, Future, EarlierThanIn };

// The warning that goes before stemping out at `out`; it never stops the stemp-out. Later than now comes first.
OutWarning WarningFor(const QDateTime &out, const QDateTime &now, const std::optional<QDateTime> &lastIn);

#pragma once

#include <QDateTime>
#include <QStringList>

#include <optional>

// What the out-query's options stand for, numbered as the members of its control array "Options".
enum class OutChoice { Remain = 1, OutAt = 2, OutNow = 3 };

// The warnings that go before stemping out at `out`, in their order; they never stop the stemp-out. Both are possible when the
// clock was set back.
QStringList OutWarnings(const QDateTime &out, const QDateTime &now, const std::optional<QDateTime> &lastIn);

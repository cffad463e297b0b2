#pragma once

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include <optional>

// When the out-query is asked: at the start, or because the person closes the program.
enum class OutQueryAt { Start, Closing };

// The warnings that go before stemping out at `out`, in their order; they never stop the stemp-out. Both are possible when the
// clock was set back.
QStringList OutWarnings(const QDateTime &out, const QDateTime &now, const std::optional<QDateTime> &lastIn);

// Since when a row is open and for how long: "since 12 Oct 08:02, 40 days". No length when the clock was set back meanwhile.
QString SinceText(const QDateTime &in, const QDateTime &now, const QLocale &locale);

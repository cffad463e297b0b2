#include "settings/Options.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

int LeadingNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral(R"(^\s*([+-]?(?:\d+\.?\d*|\.\d+)))"));

    // The limits come first: a number with hundreds of digits is infinite.
    const double value =
        std::clamp(number.match(text).captured(1).toDouble(), double(std::numeric_limits<qint16>::min()),
                   double(std::numeric_limits<qint16>::max()));
    return static_cast<int>(std::nearbyint(value));
}

int DaysToShow(const QString &daysInGrid)
{
    const int days = LeadingNumber(daysInGrid);
    return days < 1 ? 7 : days;
}

std::chrono::seconds PollPeriod(const QString &pollDelay)
{
    const int seconds = LeadingNumber(pollDelay);
    return std::chrono::seconds(seconds < 1 ? 15 : std::min(seconds, 60));
}

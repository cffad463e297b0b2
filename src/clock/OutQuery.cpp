#include "clock/OutQuery.h"

#include "clock/DateText.h"
#include "platform/system/Say.h"

namespace {

constexpr qint64 minutesOfHour = 60;
constexpr qint64 minutesOfDay = 24 * minutesOfHour;

QString Length(qint64 minutes)
{
    if (minutes < 1)
        return Say("less than a minute");
    if (minutes < minutesOfHour)
        return Say("%1 min").arg(minutes);
    if (minutes < minutesOfDay)
        return Say("%1 h %2 min").arg(minutes / minutesOfHour).arg(minutes % minutesOfHour);
    if (minutes < 2 * minutesOfDay)
        return Say("1 day");
    return Say("%1 days").arg(minutes / minutesOfDay);
}

} // namespace

QStringList OutWarnings(const QDateTime &out, const QDateTime &now, const std::optional<QDateTime> &lastIn)
{
    QStringList warnings;
    if (out > now)
        warnings.append(Say("You are stemping out in the FUTURE! (but that's ok)"));
    if (lastIn && out < *lastIn)
        warnings.append(Say("You are stemping out EARLIER than IN! (if I could turn back time...)"));
    return warnings;
}

QString SinceText(const QDateTime &in, const QDateTime &now, const QLocale &locale)
{
    const QString when = Say("since %1").arg(BriefTimeText(in, now.date(), locale));
    return in > now ? when : when + QStringLiteral(", ") + Length(in.secsTo(now) / 60);
}

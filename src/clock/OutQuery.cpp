#include "clock/OutQuery.h"

QStringList OutWarnings(const QDateTime &out, const QDateTime &now, const std::optional<QDateTime> &lastIn)
{
    QStringList warnings;
    if (out > now)
        warnings.append(QStringLiteral("You are stemping out in the FUTURE! (but that's ok)"));
    if (lastIn && out < *lastIn)
        warnings.append(QStringLiteral("You are stemping out EARLIER than IN! (if I could turn back time...)"));
    return warnings;
}

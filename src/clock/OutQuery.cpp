#include "clock/OutQuery.h"

OutWarning WarningFor(const QDateTime &out, const QDateTime &now, const std::optional<QDateTime> &lastIn)
{
    if (out > now)
        return OutWarning::Future;
    if (lastIn && out < *lastIn)
        return OutWarning::EarlierThanIn;
    return OutWarning::None;
}

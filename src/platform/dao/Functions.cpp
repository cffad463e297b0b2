#include "platform/dao/Functions.h"

#include "platform/dao/DateValue.h"

#include <sqlite3.h>

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

namespace dao {

namespace {

using NowFunction = std::function<QDateTime()>;

std::optional<double> Number(sqlite3_value *value)
{
    const int type = sqlite3_value_numeric_type(value);
    if (type != SQLITE_INTEGER && type != SQLITE_FLOAT)
        return std::nullopt;
    return sqlite3_value_double(value);
}

void Now(sqlite3_context *context, int, sqlite3_value **)
{
    const auto *now = static_cast<const NowFunction *>(sqlite3_user_data(context));
    sqlite3_result_double(context, ToDays((*now)()));
}

// Times are whole seconds, so that a sum of them in quarters, half or whole hours is a whole number of 3600ths, as a half is.
// Dates as doubles miss that by up to 7e-10 a row, which adds up where rows begin at the same time of each day: snapping makes
// sums of 190,000 rows exact again.
constexpr double snapsPerUnit = 3600;

void CInt(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (const std::optional<double> number = Number(arguments[0]))
        sqlite3_result_double(context, std::nearbyint(std::round(*number * snapsPerUnit) / snapsPerUnit));
}

template <int (QDate::*part)() const> void DatePart(sqlite3_context *context, int, sqlite3_value **arguments)
{
    const std::optional<double> days = Number(arguments[0]);
    const QDate date = days ? DateOf(*days) : QDate();
    if (date.isValid())
        sqlite3_result_int(context, (date.*part)());
}

} // namespace

bool RegisterFunctions(sqlite3 *handle, std::function<QDateTime()> now)
{
    // Now is not declared deterministic, or SQLite might keep its value in an index.
    auto ownedNow = std::make_unique<NowFunction>(std::move(now));
    const auto destroy = [](void *function) { delete static_cast<NowFunction *>(function); };
    // SQLite takes the function over, and destroys it also when it refuses.
    const bool hasNow =
        sqlite3_create_function_v2(handle, "Now", 0, SQLITE_UTF8, ownedNow.release(), Now, nullptr, nullptr, destroy)
        == SQLITE_OK;
    const auto add = [handle](const char *name, auto function) {
        return sqlite3_create_function_v2(handle, name, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, function,
                                          nullptr, nullptr, nullptr)
               == SQLITE_OK;
    };
    return hasNow && add("CInt", CInt) && add("Day", DatePart<&QDate::day>) && add("Month", DatePart<&QDate::month>)
           && add("Year", DatePart<&QDate::year>);
}

} // namespace dao

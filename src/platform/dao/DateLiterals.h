#pragma once

#include <QString>

namespace dao {

// The statement with its date literals, "#month/day/year#" or "#month/day/year hours:minutes:seconds#", as the numbers of days
// that SQLite compares with; a date that does not exist becomes a null. "#" inside quoted texts and names stays.
QString TranslateDateLiterals(const QString &sql);

} // namespace dao

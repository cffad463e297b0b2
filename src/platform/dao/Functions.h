#pragma once

#include <QDateTime>

#include <functional>

struct sqlite3;

namespace dao {

// Makes the functions of the program's own query texts known to a connection, until it closes. A null gives a null, and
// so does what is no number or no date.
//   Now()                      the time that `now` gives, in days
//   CInt(number)               the nearest whole number as a REAL, halves to the even one; nearer to a half than
//                              1/7200, which is less than a second in any unit, counts as a half
//   Day(d), Month(d), Year(d)  of a date in days
// False when SQLite refuses one.
bool RegisterFunctions(sqlite3 *handle, std::function<QDateTime()> now);

} // namespace dao

#pragma once

namespace dao {

class Database;
struct TableDef;

// Makes what the file lacks of `wanted`: the table, its Id, fields and indexes. What the table has beyond that stays. Of rows that
// are equal where an index is unique, the first stays. A complete table is not written to. Everything happens in one transaction,
// the caller's where there is one. True when something was made. Throws Error.
bool CompleteTable(Database &database, const TableDef &wanted);

} // namespace dao

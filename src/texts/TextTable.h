#pragma once

#include "platform/dao/Recordset.h"

#include <QString>

namespace dao {
class Database;
}

// Which columns of the text tables are in use.
struct TextLanguage
{
    QString LanguageName = QStringLiteral("English");

    QString CapField() const { return QStringLiteral("Cap") + LanguageName; }
    QString TipField() const { return QStringLiteral("Tip") + LanguageName; }
    QString HelpField() const { return QStringLiteral("Help") + LanguageName; }
};

// One table a window in the per-login database, named like the window; a row a control, found through NameIndex. Throws
// dao::Error.
namespace TextTable {

// The table as a record set with its index NameIndex. What it lacks is made; the field Visible never is. What is too large to be
// read is removed.
dao::Recordset Open(dao::Database &database, const QString &form);

} // namespace TextTable

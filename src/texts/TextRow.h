#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/Form.h"
#include "texts/TextTable.h"

#include <QLatin1String>
#include <QList>
#include <QString>
#include <QVariantMap>

// Some fields of one row of a text table; the others are left as they are. A value is never null: an empty text says that
// there is nothing to show, a null that nobody has said anything.
struct TextRow
{
    QString key; // "Me", a control's name, or "Name(Index)"
    QVariantMap fields;
};

namespace TextRows {

// The key of the form's own row.
inline constexpr QLatin1String me("Me");

// A row for the form and for each control of its design, as it was shipped.
QList<TextRow> Designed(const Form &form);

// The rows that the table lacks, as the form was designed: texts in both languages, tips and help, geometry, tag, value.
QList<TextRow> Missing(const Form &form, dao::Recordset &table);

// What the table does not hold of the form's present state. Tips are left out unless `withTips`; whether a control is
// visible is left out as long as the form itself is not.
QList<TextRow> Changed(const Form &form, dao::Recordset &table, const TextLanguage &language, bool withTips);

// Adds or edits the rows, all or none of them. No rows: touches nothing.
void Write(dao::Database &database, dao::Recordset &table, const QList<TextRow> &rows, const QString &purpose);

} // namespace TextRows

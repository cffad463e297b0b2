#include "texts/TextTable.h"

#include "platform/dao/Completion.h"
#include "platform/dao/Database.h"
#include "platform/dao/TableDef.h"

#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1String nameIndex("NameIndex");

dao::TableDef Layout(const QString &form)
{
    dao::TableDef table{form, {{u"Name"_s, u"TEXT"_s, true, true}}, {{nameIndex, {u"Name"_s}, true}}};
    for (const QString &text : {u"Value"_s, u"CapEnglish"_s, u"CapDanish"_s, u"TipEnglish"_s, u"TipDanish"_s,
                                u"HelpEnglish"_s, u"HelpDanish"_s})
        table.fields.append({text, u"TEXT"_s});
    for (const QString &twips : {u"Left"_s, u"Top"_s, u"Width"_s, u"Height"_s})
        table.fields.append({twips, u"REAL"_s});
    table.fields.append({u"Tag"_s, u"TEXT"_s});
    return table;
}

// A value over SQLite's limit, which another program put there, would keep all the others from being read. No text of a window
// comes near this length, and without its own the control shows that of the design.
void RemoveTooLarge(dao::Database &database, const QString &form)
{
    const QString purpose = u"removing texts that are too large"_s;
    const auto isLarge = [](const QString &field) -> QString {
        return u"length(CAST("_s % dao::Quoted(field) % u" AS BLOB)) > 65536"_s;
    };
    const QString table = dao::Quoted(form);
    database.ExecuteOnLarge(u"DELETE FROM "_s % table % u" WHERE "_s % isLarge(u"Name"_s), {}, purpose);
    for (const QString &field : database.FieldNames(form))
        if (field.compare("Id"_L1, Qt::CaseInsensitive) != 0)
            database.ExecuteOnLarge(u"UPDATE "_s % table % u" SET "_s % dao::Quoted(field) % u" = NULL WHERE "_s
                                        % isLarge(field),
                                    {}, purpose);
}

} // namespace

dao::Recordset TextTable::Open(dao::Database &database, const QString &form)
{
    dao::CompleteTable(database, Layout(form));
    dao::Recordset rows = database.OpenRecordset(form);
    rows.Index(nameIndex);
    try {
        rows.MoveFirst();
    } catch (const dao::Error &error) {
        if (error.Kind() != dao::ErrorKind::TooLarge)
            throw;
        RemoveTooLarge(database, form);
        rows.Requery();
    }
    return rows;
}

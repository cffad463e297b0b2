#include "texts/TextTable.h"

#include "platform/dao/Completion.h"
#include "platform/dao/Database.h"
#include "platform/dao/TableDef.h"

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

} // namespace

dao::Recordset TextTable::Open(dao::Database &database, const QString &form)
{
    dao::CompleteTable(database, Layout(form));
    dao::Recordset rows = database.OpenRecordset(form);
    rows.Index(nameIndex);
    return rows;
}

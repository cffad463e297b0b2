#include "texts/TextRow.h"

#include "texts/Danish.h"

#include <QHash>
#include <QSet>
#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace {

// A null string would be stored as a null.
QString Text(const QString &text)
{
    return text.isNull() ? u""_s : text;
}

// Captions of columns and pages are designed one by one, so the translator sees the pieces of "Job|Hours|".
QString DanishOf(const QString &form, const QString &english)
{
    const QString whole = DanishText(form, english);
    if (!whole.isEmpty() || !english.contains(u'|'))
        return whole;
    QStringList pieces = english.split(u'|');
    for (QString &piece : pieces)
        if (const QString danish = DanishText(form, piece); !danish.isEmpty())
            piece = danish;
    const QString pieced = pieces.join(u'|');
    return pieced == english ? QString() : pieced;
}

void PutDesignText(TextRow &row, const QString &form, const QString &prefix, const QString &english)
{
    row.fields[prefix + u"English"_s] = Text(english);
    row.fields[prefix + u"Danish"_s] = Text(english.isEmpty() ? QString() : DanishOf(form, english));
}

void PutGeometry(TextRow &row, const Geometry &place)
{
    row.fields[u"Left"_s] = place.left;
    row.fields[u"Top"_s] = place.top;
    row.fields[u"Width"_s] = place.width;
    row.fields[u"Height"_s] = place.height;
}

void PutVisible(TextRow &row, bool visible)
{
    row.fields[u"Visible"_s] = visible ? -1 : 0;
}

TextRow DesignRow(const Form &form)
{
    TextRow row{TextRows::me, {}};
    PutDesignText(row, form.Name(), u"Cap"_s, form.DesignCaption());
    PutDesignText(row, form.Name(), u"Help"_s, form.DesignHelp());
    PutGeometry(row, form.DesignGeometry());
    return row;
}

TextRow DesignRow(const Form &form, const Control &control)
{
    const ControlDesign &design = control.Design();
    TextRow row{control.Key(), {}};
    if (control.Caption())
        PutDesignText(row, form.Name(), u"Cap"_s, design.caption);
    if (control.HasToolTip())
        PutDesignText(row, form.Name(), u"Tip"_s, design.toolTip);
    PutDesignText(row, form.Name(), u"Help"_s, design.help);
    if (control.Place())
        PutGeometry(row, design.geometry);
    if (control.Visible())
        PutVisible(row, design.visible);
    row.fields[u"Tag"_s] = Text(design.tag);
    if (control.Value())
        row.fields[u"Value"_s] = Text(design.value);
    return row;
}

TextRow CurrentRow(const Form &form, const TextLanguage &language)
{
    TextRow row{TextRows::me, {}};
    row.fields[language.CapField()] = Text(form.windowTitle());
    PutGeometry(row, form.StoredGeometry());
    return row;
}

TextRow CurrentRow(const Form &form, const Control &control, const TextLanguage &language, bool withTips)
{
    TextRow row{control.Key(), {}};
    if (withTips && control.HasToolTip())
        row.fields[language.TipField()] = Text(control.ToolTip());
    if (const std::optional<Geometry> place = control.Place())
        PutGeometry(row, *place);
    row.fields[u"Tag"_s] = Text(control.Tag());
    if (const std::optional<bool> visible = control.Visible(); visible && form.isVisible())
        PutVisible(row, *visible);
    if (const std::optional<QString> caption = control.Caption())
        row.fields[language.CapField()] = Text(*caption);
    if (const std::optional<QString> value = control.Value())
        row.fields[u"Value"_s] = Text(*value);
    return row;
}

// Takes out what the table's current row holds already, or has no field for.
void DropStored(TextRow &row, const dao::Recordset &table)
{
    for (auto field = row.fields.begin(); field != row.fields.end();) {
        const QVariant stored = table.Field(field.key());
        const bool keep = table.HasField(field.key()) && (stored.isNull() || stored != field.value());
        field = keep ? std::next(field) : row.fields.erase(field);
    }
}

} // namespace

QList<TextRow> TextRows::Designed(const Form &form)
{
    QList<TextRow> rows{DesignRow(form)};
    for (const std::unique_ptr<Control> &control : form.Controls())
        if (form.IsShipped(*control))
            rows.append(DesignRow(form, *control));
    return rows;
}

QList<TextRow> TextRows::Missing(const Form &form, dao::Recordset &table)
{
    QSet<QString> present;
    for (table.MoveFirst(); !table.Eof(); table.MoveNext())
        present.insert(table.Field(u"Name"_s).toString().toLower());
    QList<TextRow> rows;
    if (!present.contains(QString(me).toLower()))
        rows.append(DesignRow(form));
    for (const std::unique_ptr<Control> &control : form.Controls())
        if (!present.contains(control->Key().toLower()))
            rows.append(DesignRow(form, *control));
    return rows;
}

QList<TextRow> TextRows::Changed(const Form &form, dao::Recordset &table, const TextLanguage &language, bool withTips)
{
    QList<TextRow> rows{CurrentRow(form, language)};
    for (const std::unique_ptr<Control> &control : form.Controls())
        rows.append(CurrentRow(form, *control, language, withTips));
    QHash<QString, qsizetype> positions;
    for (qsizetype position = 0; position < rows.size(); ++position)
        positions.insert(rows.at(position).key.toLower(), position);
    for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
        const auto found = positions.constFind(table.Field(u"Name"_s).toString().toLower());
        if (found != positions.constEnd())
            DropStored(rows[*found], table);
    }
    rows.removeIf([](const TextRow &row) { return row.fields.isEmpty(); });
    return rows;
}

void TextRows::Write(dao::Database &database, dao::Recordset &table, const QList<TextRow> &rows, const QString &purpose)
{
    if (rows.isEmpty())
        return;
    dao::Transaction transaction(database, purpose);
    for (const TextRow &row : rows) {
        table.Seek(row.key);
        if (table.NoMatch()) {
            table.AddNew();
            table.SetField(u"Name"_s, row.key);
        } else {
            table.Edit();
        }
        for (auto field = row.fields.cbegin(); field != row.fields.cend(); ++field)
            table.SetField(field.key(), field.value());
        table.Update();
    }
    transaction.Commit();
    table.Requery();
}

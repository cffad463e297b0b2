#include "texts/ShippedTexts.h"

#include "texts/ControlIndex.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype longestText = 60;

bool HasRunTimeTexts(const QObject *object)
{
    return object && object->property("RunTimeTexts").toBool();
}

QString Quoted(QString text)
{
    text.replace(u'\n', u' ');
    return text.size() > longestText ? u"\"%1…\""_s.arg(text.left(longestText)) : u"\"%1\""_s.arg(text);
}

// A text that was never translated is shown in English.
QString TextOr(const TextRow &row, const QString &field, const QString &english)
{
    const QString text = row.fields.value(field).toString();
    return text.isEmpty() ? english : text;
}

} // namespace

QList<TextRow> ShippedTexts::Rows(const Form &form, const TextLanguage &language)
{
    const QStringList places{u"Left"_s, u"Top"_s, u"Width"_s, u"Height"_s};
    QList<TextRow> rows = TextRows::Designed(form);
    const ControlIndex index(form);
    for (TextRow &row : rows) {
        const Control *control = index.FindControl(row.key);
        QStringList kept = places + QStringList{language.HelpField()};
        if (!HasRunTimeTexts(control ? static_cast<const QObject *>(control->Widget()) : &form))
            kept += {language.CapField(), language.TipField()};
        row.fields.removeIf([&kept](const auto &field) { return !kept.contains(field.key()); });
    }
    return rows;
}

QStringList ShippedTexts::Changed(const Form &form, const QList<TextRow> &rows, const TextLanguage &language,
                                  dao::Recordset *table)
{
    QStringList changed;
    const ControlIndex index(form);
    for (const TextRow &row : rows) {
        const Control *control = index.FindControl(row.key);
        const QString caption = control ? control->Caption().value_or(QString()) : form.windowTitle();
        const QString english = control ? control->Design().caption : form.DesignCaption();
        if (row.fields.contains(language.CapField()) && caption != TextOr(row, language.CapField(), english))
            changed.append(Quoted(caption));
        if (!table)
            continue;
        table->Seek(row.key);
        for (const QString &field : {language.TipField(), language.HelpField()}) {
            const QString stored = table->NoMatch() ? QString() : table->Field(field).toString();
            if (row.fields.contains(field) && !stored.isEmpty() && stored != row.fields.value(field).toString())
                changed.append(Quoted(stored));
        }
    }
    return changed;
}

void ShippedTexts::Show(Form &form, const QList<TextRow> &rows, const TextLanguage &language, bool withTips)
{
    form.ShowShippedLayout();
    const ControlIndex index(form);
    for (const TextRow &row : rows) {
        Control *control = index.FindControl(row.key);
        const bool hasCaption = row.fields.contains(language.CapField());
        if (!control && hasCaption)
            form.setWindowTitle(TextOr(row, language.CapField(), form.DesignCaption()));
        if (control && hasCaption)
            control->SetCaption(TextOr(row, language.CapField(), control->Design().caption));
        if (control && withTips && row.fields.contains(language.TipField()))
            control->SetToolTip(TextOr(row, language.TipField(), control->Design().toolTip));
    }
    form.ShowRunTimeTexts();
}

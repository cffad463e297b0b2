#include "texts/TextApply.h"

#include "platform/forms/Form.h"
#include "texts/ControlIndex.h"
#include "texts/TextRow.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

// The control arrays that grow from data.
constexpr std::array growingArrays{QLatin1String("Labels"), QLatin1String("Texts"),  QLatin1String("Commands"),
                                   QLatin1String("Frames"), QLatin1String("Checks"), QLatin1String("Options"),
                                   QLatin1String("Lines")};

constexpr int lastIndex = 32767;
constexpr int optionsPerFrame = 10;
constexpr double farOff = 1e7; // twips; beyond it lies only damage

void TakeNumber(double &number, const QVariant &field)
{
    bool isNumber = false;
    const double stored = field.toDouble(&isNumber);
    if (!field.isNull() && isNumber && std::abs(stored) < farOff)
        number = stored;
}

// `place` with those of its numbers replaced that the row has.
Geometry StoredPlace(Geometry place, const dao::Recordset &row)
{
    TakeNumber(place.left, row.Field(u"Left"_s));
    TakeNumber(place.top, row.Field(u"Top"_s));
    TakeNumber(place.width, row.Field(u"Width"_s));
    TakeNumber(place.height, row.Field(u"Height"_s));
    return place;
}

// The text in the language's column or, when that is empty, the English one; null when nobody has said anything.
QString StoredText(const dao::Recordset &row, const QString &field, const QString &englishField)
{
    const QString text = row.Field(field).toString();
    return text.isEmpty() ? row.Field(englishField).toString() : text;
}

bool IsOptionButton(const Control &control)
{
    return control.TypeName() == u"OptionButton"_s;
}

// Brings a member to life that only the table knows; nothing when the key names none.
Control *CreateMember(Form &form, ControlIndex &index, const QString &key)
{
    const qsizetype bracket = key.indexOf(u'(');
    const QString arrayName = key.left(bracket);
    if (bracket < 0 || std::find(growingArrays.begin(), growingArrays.end(), arrayName) == growingArrays.end())
        return nullptr;
    const int number = QStringView(key).mid(bracket + 1, key.size() - bracket - 2).toInt();
    // Of all ways to write a number only the one in which the row is found again.
    if (number < 0 || number > lastIndex || key != u"%1(%2)"_s.arg(arrayName).arg(number))
        return nullptr;
    Control *member = form.CreateMember(arrayName, number);
    if (member != nullptr) {
        index.Update();
        member->SetVisible(true);
    }
    return member;
}

// Option buttons 0 to 9 of an array belong into frame 0, 10 to 19 into frame 1, and so on.
void GroupOptionButtons(Form &form, const ControlIndex &index)
{
    for (const std::unique_ptr<Control> &control : form.Controls()) {
        if (!IsOptionButton(*control) || !control->Index())
            continue;
        const Control *frame = index.FindControl(u"Frames(%1)"_s.arg(*control->Index() / optionsPerFrame));
        if (frame != nullptr && frame->Widget() != nullptr)
            form.SetContainer(*control, frame->Widget());
    }
}

void ApplyToolTip(Control &control, const dao::Recordset &row, const TextLanguage &language)
{
    if (const QString tip = StoredText(row, language.TipField(), u"TipEnglish"_s); !tip.isNull())
        control.SetToolTip(tip);
}

void ApplyControlRow(Control &control, const dao::Recordset &row, const TextLanguage &language, bool withTips)
{
    if (const std::optional<Geometry> place = control.Place())
        control.SetPlace(StoredPlace(*place, row));
    bool isNumber = false;
    const int visible = row.Field(u"Visible"_s).toInt(&isNumber);
    if (isNumber)
        control.SetVisible(visible != 0);
    if (const QVariant tag = row.Field(u"Tag"_s); !tag.isNull())
        control.SetTag(tag.toString());
    if (withTips)
        ApplyToolTip(control, row, language);
    if (const QString caption = StoredText(row, language.CapField(), u"CapEnglish"_s); !caption.isNull())
        control.SetCaption(caption);
    if (const QVariant value = row.Field(u"Value"_s); !value.isNull())
        control.SetValue(value.toString());
}

void ApplyFormRow(Form &form, const dao::Recordset &row, const TextLanguage &language)
{
    bool isNumber = false;
    const short value = row.Field(u"Value"_s).toString().toShort(&isNumber);
    if (isNumber)
        form.FormValue = value;
    // Unlike a control's caption, the form's has no English one to fall back on.
    if (const QVariant caption = row.Field(language.CapField()); !caption.isNull())
        form.setWindowTitle(caption.toString());
    form.SetStoredGeometry(KeptOnScreen(StoredPlace(form.StoredGeometry(), row), ScreenPixels()));
}

} // namespace

void ApplyRows(Form &form, dao::Recordset &table, const TextLanguage &language, bool withTips)
{
    ControlIndex index(form);
    QHash<QString, QString> selections;
    for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
        const QString key = table.Field(u"Name"_s).toString();
        if (key.compare(TextRows::me, Qt::CaseInsensitive) == 0) {
            ApplyFormRow(form, table, language);
            continue;
        }
        Control *control = index.FindControl(key);
        if (control == nullptr)
            control = CreateMember(form, index, key);
        if (control != nullptr) {
            ApplyControlRow(*control, table, language, withTips);
            selections.insert(key.toLower(), table.Field(u"Value"_s).toString());
        }
    }
    GroupOptionButtons(form, index);
    // A button that changes its container may take the selection of its new group along, or lose its own.
    for (const std::unique_ptr<Control> &control : form.Controls()) {
        const auto selection = selections.constFind(control->Key().toLower());
        if (IsOptionButton(*control) && selection != selections.constEnd() && !selection->isNull())
            control->SetValue(*selection);
    }
}

void ApplyToolTips(const Form &form, dao::Recordset &table, const TextLanguage &language)
{
    const ControlIndex index(form);
    for (table.MoveFirst(); !table.Eof(); table.MoveNext())
        if (Control *control = index.FindControl(table.Field(u"Name"_s).toString()))
            ApplyToolTip(*control, table, language);
}

void ClearToolTips(const Form &form)
{
    for (const std::unique_ptr<Control> &control : form.Controls())
        control->SetToolTip({});
}

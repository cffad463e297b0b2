#include "platform/forms/ControlTypes.h"

#include "platform/forms/ChartWidget.h"
#include "platform/forms/LineWidget.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>

#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

// Each of the numbers that were set stays as it is while its pixels do.
Geometry KeptWherePut(const Geometry &set, const Geometry &setTwips, const Geometry &nowTwips)
{
    const auto kept = [](double number, double before, double now) { return before == now ? number : now; };
    return {kept(set.left, setTwips.left, nowTwips.left), kept(set.top, setTwips.top, nowTwips.top),
            kept(set.width, setTwips.width, nowTwips.width), kept(set.height, setTwips.height, nowTwips.height)};
}

const QDate dayZero(1899, 12, 30);

} // namespace

QString NumberText(double number)
{
    return QString::number(number, 'g', 15);
}

std::optional<double> NumberIn(const QString &text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QStringList PiecesOf(const QString &list, QChar separator)
{
    QStringList pieces = list.split(separator);
    if (pieces.last().isEmpty())
        pieces.removeLast();
    return pieces;
}

QString AsPlainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

WidgetControl::WidgetControl(ControlId id, QWidget &widget)
    : Control(std::move(id.name), id.index, std::move(id.typeName)), widget_(widget), toolTip_(widget.toolTip())
{
}

std::optional<Geometry> WidgetControl::Place() const
{
    const Geometry now = ToTwips(widget_.geometry());
    return placed_ ? KeptWherePut(*placed_, placedTwips_, now) : now;
}

void WidgetControl::SetPlace(const Geometry &twips)
{
    widget_.setGeometry(ToPixels(twips));
    placed_ = twips;
    placedTwips_ = ToTwips(widget_.geometry());
}

std::optional<bool> WidgetControl::Visible() const
{
    return !widget_.isHidden();
}

void WidgetControl::SetVisible(bool visible)
{
    widget_.setVisible(visible);
}

void WidgetControl::SetToolTip(const QString &text)
{
    toolTip_ = text;
    widget_.setToolTip(AsPlainToolTip(text));
}

LabelControl::LabelControl(ControlId id, QLabel &label) : WidgetControl(std::move(id), label), label_(label)
{
    label.setTextFormat(Qt::PlainText);
}

std::optional<QString> LabelControl::Caption() const
{
    return label_.text();
}

void LabelControl::SetCaption(const QString &text)
{
    label_.setText(text);
}

ButtonControl::ButtonControl(ControlId id, QAbstractButton &button)
    : WidgetControl(std::move(id), button), button_(button)
{
}

std::optional<QString> ButtonControl::Caption() const
{
    return button_.text();
}

void ButtonControl::SetCaption(const QString &text)
{
    button_.setText(text);
}

std::optional<QString> ButtonControl::Value() const
{
    return button_.isCheckable() ? std::optional(button_.isChecked() ? u"1"_s : u"0"_s) : std::nullopt;
}

void ButtonControl::SetValue(const QString &text)
{
    if (const auto number = NumberIn(text); number && button_.isCheckable())
        button_.setChecked(*number != 0);
}

OptionButtonControl::OptionButtonControl(ControlId id, QRadioButton &button)
    : ButtonControl(std::move(id), button), button_(button)
{
}

std::optional<QString> OptionButtonControl::Value() const
{
    return button_.isChecked() ? u"-1"_s : u"0"_s;
}

void OptionButtonControl::SetValue(const QString &text)
{
    const auto number = NumberIn(text);
    if (!number)
        return;
    // An exclusive button can be selected, but not cleared.
    QButtonGroup *group = button_.group();
    const auto setExclusive = [&](bool on) { group ? group->setExclusive(on) : button_.setAutoExclusive(on); };
    const bool exclusive = group ? group->exclusive() : button_.autoExclusive();
    setExclusive(exclusive && *number != 0);
    button_.setChecked(*number != 0);
    setExclusive(exclusive);
}

FrameControl::FrameControl(ControlId id, QGroupBox &box) : WidgetControl(std::move(id), box), box_(box) {}

std::optional<QString> FrameControl::Caption() const
{
    return box_.title();
}

void FrameControl::SetCaption(const QString &text)
{
    box_.setTitle(text);
}

TextBoxControl::TextBoxControl(ControlId id, QLineEdit &edit) : WidgetControl(std::move(id), edit), edit_(edit) {}

std::optional<QString> TextBoxControl::Value() const
{
    return edit_.text();
}

void TextBoxControl::SetValue(const QString &text)
{
    edit_.setText(text);
}

MultiLineControl::MultiLineControl(ControlId id, QPlainTextEdit &edit) : WidgetControl(std::move(id), edit), edit_(edit)
{
}

std::optional<QString> MultiLineControl::Value() const
{
    return edit_.toPlainText();
}

void MultiLineControl::SetValue(const QString &text)
{
    edit_.setPlainText(text);
}

ComboBoxControl::ComboBoxControl(ControlId id, QComboBox &box) : WidgetControl(std::move(id), box), box_(box) {}

std::optional<QString> ComboBoxControl::Value() const
{
    return box_.currentText();
}

void ComboBoxControl::SetValue(const QString &text)
{
    const int at = box_.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (at >= 0)
        box_.setCurrentIndex(at);
    else if (box_.isEditable())
        box_.setEditText(text);
}

ScrollBarControl::ScrollBarControl(ControlId id, QScrollBar &bar) : WidgetControl(std::move(id), bar), bar_(bar) {}

void ScrollBarControl::SetValue(const QString &text)
{
    if (const auto number = NumberIn(text))
        bar_.setValue(qRound(*number));
}

TabControl::TabControl(ControlId id, QTabWidget &tabs) : WidgetControl(std::move(id), tabs), tabs_(tabs) {}

std::optional<QString> TabControl::Caption() const
{
    QString captions;
    for (int i = 0; i < tabs_.count(); ++i)
        captions += tabs_.tabText(i) + u'|';
    return captions;
}

void TabControl::SetCaption(const QString &text)
{
    const QStringList captions = PiecesOf(text, u'|');
    for (int i = 0; i < tabs_.count() && i < captions.size(); ++i)
        tabs_.setTabText(i, captions.at(i));
}

DatePickerControl::DatePickerControl(ControlId id, QDateTimeEdit &edit)
    : WidgetControl(std::move(id), edit), edit_(edit)
{
}

std::optional<QString> DatePickerControl::Value() const
{
    return QString::number(dayZero.daysTo(edit_.date()));
}

void DatePickerControl::SetValue(const QString &text)
{
    if (const auto days = NumberIn(text); days && std::abs(*days) < 4e6)
        edit_.setDate(dayZero.addDays(static_cast<qint64>(std::floor(*days))));
}

LineControl::LineControl(ControlId id, LineWidget &line) : WidgetControl(std::move(id), line), line_(line) {}

std::optional<Geometry> LineControl::Place() const
{
    const Geometry now = EndsInTwips();
    return placed_ ? KeptWherePut(*placed_, placedTwips_, now) : now;
}

void LineControl::SetPlace(const Geometry &twips)
{
    const QRect ends = ToPixels(twips);
    line_.SetEnds(ends.topLeft(), {ends.width(), ends.height()});
    placed_ = twips;
    placedTwips_ = EndsInTwips();
}

Geometry LineControl::EndsInTwips() const
{
    return ToTwips({line_.Start(), QSize(line_.End().x(), line_.End().y())});
}

std::optional<QString> LineControl::Value() const
{
    const QColor color = line_.BorderColor();
    return QString::number(color.red() | color.green() << 8 | color.blue() << 16);
}

void LineControl::SetValue(const QString &text)
{
    const auto number = NumberIn(text);
    if (number && *number >= 0 && *number <= 0xFFFFFF) {
        const int bytes = static_cast<int>(*number);
        line_.SetBorderColor(QColor(bytes & 0xFF, bytes >> 8 & 0xFF, bytes >> 16));
    }
}

ChartControl::ChartControl(ControlId id, ChartWidget &chart) : WidgetControl(std::move(id), chart), chart_(chart) {}

std::optional<QString> ChartControl::Caption() const
{
    return chart_.TitleText();
}

void ChartControl::SetCaption(const QString &text)
{
    chart_.SetTitleText(text);
}

MenuControl::MenuControl(ControlId id, QAction &action)
    : Control(std::move(id.name), id.index, std::move(id.typeName)), action_(action)
{
    // Where no tip was designed, an action gives its own text for one.
    QAction bare(action.text());
    if (action.toolTip() != bare.toolTip())
        toolTip_ = action.toolTip();
}

std::optional<QString> MenuControl::Caption() const
{
    return action_.text();
}

void MenuControl::SetCaption(const QString &text)
{
    action_.setText(text);
}

std::optional<bool> MenuControl::Visible() const
{
    return action_.isVisible();
}

void MenuControl::SetVisible(bool visible)
{
    action_.setVisible(visible);
}

void MenuControl::SetToolTip(const QString &text)
{
    toolTip_ = text;
    action_.setToolTip(AsPlainToolTip(text));
}

#include "platform/forms/ChartWidget.h"

#include "platform/forms/ControlTypes.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"

#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int margin = 8;
constexpr int gap = 5; // between a text and what it belongs to
constexpr int leastColumn = 6;
constexpr int mostMarks = 5;
constexpr qsizetype mostDescribed = 30;

// Halves of a hundredth away from zero.
QString ValueText(double value)
{
    const double hundredths = std::round(std::round(value * 1e6) / 1e4);
    return QLocale().toString(hundredths / 100 + 0.0, 'f', 2); // never -0
}

QString MarkText(double hours)
{
    return QLocale().toString(hours, 'f', QLocale::FloatingPointShortest);
}

QString LastMarkText(double hours)
{
    return MarkText(hours) + u" h"_s;
}

double StepOfMarks(double most, int marks)
{
    for (const double step : {0.25, 0.5})
        if (most <= step * marks)
            return step;
    for (double unit = 1;; unit *= 10)
        for (const double step : {1., 2., 5.})
            if (most <= step * unit * marks)
                return step * unit;
}

QColor Mixed(const QPalette &palette, double text)
{
    const QColor front = palette.color(QPalette::Text);
    const QColor back = palette.color(QPalette::Base);
    const auto mix = [text](int one, int other) { return qRound(one * text + other * (1 - text)); };
    return {mix(front.red(), back.red()), mix(front.green(), back.green()), mix(front.blue(), back.blue())};
}

QColor LineColor(const QPalette &palette)
{
    return Mixed(palette, 0.18);
}

QColor ScaleTextColor(const QPalette &palette)
{
    return Mixed(palette, 0.7);
}

// Blue is told from its surroundings by readers with any kind of colour blindness.
QColor BarColor(const QPalette &palette)
{
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    return dark ? QColor(86, 180, 233) : QColor(0, 114, 178);
}

QFont TitleFont(QFont font)
{
    font.setBold(true);
    return font;
}

} // namespace

// Where things go at the present size.
struct ChartWidget::Plan
{
    Layout layout = Layout::Rows;
    QRect plot;    // from the first bar to the last one, and from no hours to the last mark
    int pitch = 1; // from one bar to the next
    int shown = 0;
    double step = 1;    // hours from mark to mark
    double last = 1;    // hours at the last mark
    int labelEvery = 1; // column
    bool hasValues = true;

    int Along(double hours) const
    {
        const int whole = layout == Layout::Rows ? plot.width() : plot.height();
        const int along = qRound(std::clamp(hours / last, 0.0, 1.0) * whole);
        return hours > 0 ? std::max(along, 1) : along;
    }
    QRect BarRect(int at, double hours) const
    {
        const int thick = std::max(pitch * 7 / 10, 1);
        const int from = at * pitch + (pitch - thick) / 2;
        const int length = Along(hours);
        return layout == Layout::Rows ? QRect(plot.left(), plot.top() + from, length, thick)
                                      : QRect(plot.left() + from, plot.bottom() + 1 - length, thick, length);
    }
    QRect Band(int at, const QRect &area) const // a bar with its label and value
    {
        return layout == Layout::Rows ? QRect(area.left(), plot.top() + at * pitch, area.width(), pitch)
                                      : QRect(plot.left() + at * pitch, area.top(), pitch, area.height());
    }
    int Marks() const { return qRound(last / step); }
    void SetScale(double most, int marks)
    {
        step = StepOfMarks(most, std::clamp(marks, 1, mostMarks));
        last = std::max(std::ceil(most / step), 1.0) * step;
    }
};

ChartWidget::ChartWidget(QWidget *parent) : QWidget(parent) {}

void ChartWidget::SetTitleText(const QString &title)
{
    title_ = title;
    setAccessibleName(title);
    update();
}

void ChartWidget::SetEmptyText(const QString &text)
{
    emptyText_ = text;
    Describe();
    update();
}

void ChartWidget::SetBars(QList<Bar> bars, Layout layout)
{
    bars_ = std::move(bars);
    layout_ = layout;
    for (Bar &bar : bars_) {
        bar.label = ShownText(bar.label);
        if (!std::isfinite(bar.value)) // times of a damaged row
            bar.value = 0;
    }
    Describe();
    update();
}

int ChartWidget::MostBars(Layout layout) const
{
    const int line = fontMetrics().height();
    const int most = layout == Layout::Rows
                         ? (Area().height() - line - gap) / (line + 2)
                         : (Area().width() - fontMetrics().horizontalAdvance(u"000 h"_s) - gap) / leastColumn;
    return std::max(most, 1);
}

QRect ChartWidget::Area() const
{
    const int title = title_.isEmpty() ? 0 : QFontMetrics(TitleFont(font())).height() + gap;
    return rect().adjusted(margin, margin + title, -margin, -margin);
}

ChartWidget::Plan ChartWidget::MakePlan() const
{
    return layout_ == Layout::Rows ? RowsPlan() : ColumnsPlan();
}

ChartWidget::Plan ChartWidget::RowsPlan() const
{
    const QFontMetrics metrics = fontMetrics();
    const QRect area = Area();
    Plan plan;
    plan.shown = std::min(static_cast<int>(bars_.size()), MostBars(Layout::Rows));
    int labels = 0;
    int values = 0;
    double most = 0;
    for (const Bar &bar : bars_.first(plan.shown)) {
        labels = std::max(labels, metrics.horizontalAdvance(bar.label));
        values = std::max(values, metrics.horizontalAdvance(ValueText(bar.value)));
        if (!bar.isRest)
            most = std::max(most, bar.value);
    }
    const int left = std::min(labels + 1, area.width() * 2 / 5) + gap;
    plan.pitch = std::min((area.height() - metrics.height() - gap) / plan.shown, 2 * metrics.height());
    plan.plot = {area.left() + left, area.top(), area.width() - left - gap - values, plan.pitch * plan.shown};
    const auto fits = [&] {
        const int text = std::max(metrics.horizontalAdvance(MarkText(plan.step)),
                                  metrics.horizontalAdvance(LastMarkText(plan.last)));
        return plan.Marks() * (text + 3 * gap) <= plan.plot.width();
    };
    int marks = mostMarks;
    do
        plan.SetScale(most, marks);
    while (!fits() && --marks > 0);
    return plan;
}

ChartWidget::Plan ChartWidget::ColumnsPlan() const
{
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.height();
    QRect area = Area();
    area.setBottom(area.bottom() - line - gap); // labels
    area.setTop(area.top() + line);             // values, or half of the last mark's text
    Plan plan;
    plan.layout = Layout::Columns;
    plan.shown = std::min(static_cast<int>(bars_.size()), std::max(area.width(), 1));
    int labels = 0;
    int values = 0;
    double most = 0;
    for (const Bar &bar : bars_.first(plan.shown)) {
        labels = std::max(labels, metrics.horizontalAdvance(bar.label));
        values = std::max(values, metrics.horizontalAdvance(ValueText(bar.value)));
        most = std::max(most, bar.value);
    }
    plan.SetScale(most, area.height() / (2 * line));
    area.setLeft(area.left() + metrics.horizontalAdvance(LastMarkText(plan.last)) + gap);
    plan.shown = std::min(plan.shown, std::max(area.width(), 1));
    const int labelled = labels + 2 * gap; // a column that has room for its label
    plan.pitch = std::clamp(area.width() / plan.shown, 1, std::max(4 * line, labelled));
    plan.plot = {area.left(), area.top(), plan.pitch * plan.shown, area.height()};
    plan.labelEvery = (labelled - 1) / plan.pitch + 1;
    plan.hasValues = values + 2 <= plan.pitch;
    return plan;
}

void ChartWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(LineColor(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    const QRect area = Area();
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(TitleFont(font()));
    painter.drawText(area.left(), margin + painter.fontMetrics().ascent(),
                     painter.fontMetrics().elidedText(title_, Qt::ElideRight, area.width()));
    painter.setFont(font());
    if (bars_.isEmpty()) {
        painter.setPen(ScaleTextColor(palette()));
        painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
        return;
    }

    const Plan plan = MakePlan();
    if (plan.plot.isEmpty()) // no room
        return;
    PaintScale(painter, plan);
    for (int i = 0; i < plan.shown; ++i)
        plan.layout == Layout::Rows ? PaintRow(painter, plan, i) : PaintColumn(painter, plan, i);
}

void ChartWidget::PaintScale(QPainter &painter, const Plan &plan) const
{
    const QFontMetrics metrics = fontMetrics();
    const int marks = plan.Marks();
    for (int i = 0; i <= marks; ++i) {
        const QString text = i == marks ? LastMarkText(plan.last) : MarkText(i * plan.step);
        const int along = plan.Along(i * plan.step);
        const QColor line = i == 0 ? ScaleTextColor(palette()) : LineColor(palette());
        painter.setPen(ScaleTextColor(palette()));
        if (plan.layout == Layout::Rows) {
            const int x = plan.plot.left() + along;
            const int textLeft = x - metrics.horizontalAdvance(text) / 2;
            painter.fillRect(x - 1, plan.plot.top(), 1, plan.plot.height(), line);
            painter.drawText(std::min(textLeft, width() - margin - metrics.horizontalAdvance(text)),
                             plan.plot.bottom() + gap + metrics.ascent(), text);
        } else {
            const int y = plan.plot.bottom() + 1 - along;
            const QRect place(0, y - metrics.height() / 2, plan.plot.left() - gap, metrics.height());
            painter.fillRect(plan.plot.left(), y, width() - margin - plan.plot.left(), 1, line);
            painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, text);
        }
    }
}

void ChartWidget::PaintRow(QPainter &painter, const Plan &plan, int at) const
{
    const Bar &bar = bars_.at(at);
    const QRect band = plan.Band(at, Area());
    const QRect drawn = plan.BarRect(at, bar.isRest ? 0 : bar.value);
    painter.fillRect(drawn, BarColor(palette()));

    const int labels = plan.plot.left() - gap - band.left();
    const QString label = fontMetrics().elidedText(bar.label, Qt::ElideMiddle, labels);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(band.left(), band.top(), labels, band.height()), Qt::AlignLeft | Qt::AlignVCenter, label);
    const QString value = ValueText(bar.value);
    const QRect place(drawn.left() + drawn.width() + gap, band.top(), fontMetrics().horizontalAdvance(value) + 1,
                      band.height());
    painter.fillRect(place, palette().base()); // not over the lines of the scale
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, value);
}

void ChartWidget::PaintColumn(QPainter &painter, const Plan &plan, int at) const
{
    const Bar &bar = bars_.at(at);
    const QFontMetrics metrics = fontMetrics();
    const QRect drawn = plan.BarRect(at, bar.value);
    painter.fillRect(drawn, BarColor(palette()));

    const auto centered = [&](const QString &text, int top) {
        const int wide = metrics.horizontalAdvance(text) + 1;
        const int left = drawn.left() + (drawn.width() - wide) / 2;
        return QRect(std::max(std::min(left, width() - margin - wide), 1), top, wide, metrics.height());
    };
    painter.setPen(palette().color(QPalette::Text));
    if (plan.hasValues && bar.value != 0) {
        const QString value = ValueText(bar.value);
        const QRect place = centered(value, drawn.top() - metrics.height());
        painter.fillRect(place, palette().base()); // not over the lines of the scale
        painter.drawText(place, Qt::AlignCenter, value);
    }
    if (at % plan.labelEvery == 0)
        painter.drawText(centered(bar.label, plan.plot.bottom() + gap), Qt::AlignCenter, bar.label);
}

void ChartWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    emit Resized();
}

bool ChartWidget::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && ShowTip(*static_cast<QHelpEvent *>(event)))
        return true;
    return QWidget::event(event);
}

bool ChartWidget::ShowTip(const QHelpEvent &event)
{
    if (bars_.isEmpty())
        return false;
    const Plan plan = MakePlan();
    for (int i = 0; i < plan.shown; ++i) {
        const QRect band = plan.Band(i, Area());
        if (band.contains(event.pos())) {
            QToolTip::showText(event.globalPos(), AsPlainToolTip(bars_.at(i).tip), this, band);
            return true;
        }
    }
    return false;
}

void ChartWidget::Describe()
{
    QStringList values;
    for (const Bar &bar : bars_.first(std::min(bars_.size(), mostDescribed)))
        values.append(Say("%1: %2 hours").arg(bar.label, ValueText(bar.value)));
    if (bars_.size() > mostDescribed)
        values.append(Say("and %1 more").arg(bars_.size() - mostDescribed));
    setAccessibleDescription(bars_.isEmpty() ? emptyText_ : values.join(u"; "_s));
}

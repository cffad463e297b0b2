#include "reports/TimesheetPages.h"

#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

using Page = TimesheetLayout::Page;
using Column = TimesheetLayout::Column;

// Heights in lines of the font.
constexpr double topMargin = 8;
constexpr double emptyLine = 1;
constexpr double headingsHeight = 1.5;
constexpr double pageNumberHeight = 1;
constexpr double rowGap = 0.25;
constexpr double totalsGap = 0.5; // a rule in its middle

QFont Bold(QFont font)
{
    font.setBold(true);
    return font;
}

// Of the columns; a summary per job lacks the first.
QStringList Headings(qsizetype columns)
{
    const QStringList headings{Say("Day"), Say("Job"), Say("Hours"), Say("Rounded"), Say("Description")};
    return headings.mid(headings.size() - std::min(columns, headings.size()));
}

// Blanks inside a text tell ids apart; those at its end would make its column too wide.
QString WithoutTrailingBlanks(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

QFont FootFont(QFont font)
{
    font.setPointSizeF(font.pointSizeF() * 0.8);
    return font;
}

double FootHeight(const TimesheetLayout &layout)
{
    return emptyLine + static_cast<double>(layout.foot.size()) + pageNumberHeight;
}

double BodyTop(const TimesheetLayout &layout)
{
    return topMargin + static_cast<double>(layout.header.size()) + emptyLine + headingsHeight;
}

// The text in lines of at most `width`; a word longer than that is broken. One empty line for an empty text.
QStringList Broken(const QString &text, const QFont &font, double width, const QPagedPaintDevice &device)
{
    QTextLayout layout(text, font, &device);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(WithoutTrailingBlanks(text.mid(line.textStart(), line.textLength())));
    }
    layout.endLayout();
    return lines.isEmpty() ? QStringList(QString()) : lines;
}

// The columns that are aligned left share what the numbers leave: each but the last is as wide as its widest text, unless that
// leaves the last less than a quarter of the page.
QList<Column> Columns(const PrintedTimesheet &timesheet, const QFont &font, const QPagedPaintDevice &device)
{
    const QFontMetricsF metrics(font, &device);
    const QFontMetricsF boldMetrics(Bold(font), &device);
    const double gap = 2 * metrics.horizontalAdvance(u'n');
    const double overhang = gap / 8; // lines are also broken for what the last letter reaches beyond its width
    const qsizetype count = timesheet.alignRight.size();
    const QStringList headings = Headings(count);

    QList<Column> columns(count);
    double taken = 0;
    for (qsizetype i = 0; i < count - 1; ++i) {
        double width = boldMetrics.horizontalAdvance(headings.value(i));
        for (const QStringList &row : timesheet.rows)
            width = std::max(width, metrics.horizontalAdvance(WithoutTrailingBlanks(row.value(i))));
        columns[i].width = std::max(width, boldMetrics.horizontalAdvance(timesheet.totals.value(i)));
        if (!timesheet.alignRight[i])
            columns[i].width += overhang;
        taken += columns[i].width + gap;
    }
    double missing = device.width() / 4.0 - (device.width() - taken);
    double left = 0;
    for (qsizetype i = 0; i < count; ++i) {
        Column &column = columns[i];
        column.alignment = timesheet.alignRight[i] ? Qt::AlignRight : Qt::AlignLeft;
        if (i == count - 1)
            column.width = device.width() - left;
        else if (missing > 0 && !timesheet.alignRight[i]) {
            const double narrowed = std::max(column.width - missing, gap);
            missing -= column.width - narrowed;
            column.width = narrowed;
        }
        column.left = left;
        left += column.width + gap;
    }
    return columns;
}

// The texts of the lines that a row takes, a text for each column. Numbers always fit their column.
QList<QStringList> Lines(const QStringList &row, const QList<Column> &columns, const QFont &font,
                         const QPagedPaintDevice &device)
{
    QList<QStringList> cells;
    qsizetype height = 1;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        const QString text = WithoutTrailingBlanks(row.value(i));
        cells.append(columns[i].alignment == Qt::AlignRight ? QStringList(text)
                                                            : Broken(text, font, columns[i].width, device));
        height = std::max(height, cells.last().size());
    }
    QList<QStringList> lines(height);
    for (qsizetype i = 0; i < height; ++i)
        for (const QStringList &cell : std::as_const(cells))
            lines[i].append(cell.value(i));
    return lines;
}

// Fills pages between two heights, in lines.
class PageFiller
{
public:
    PageFiller(double top, double bottom) : top_(top), bottom_(bottom), y_(top) {}

    // Keeps the lines of a row together, with what follows it on the same page. A row that is higher than a page begins a
    // page and goes on on the next; what follows it then stays with its last line.
    void AddRow(const QList<QStringList> &lines, double follows)
    {
        MakeRoom(static_cast<double>(lines.size()) + follows);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            MakeRoom(i == lines.size() - 1 ? 1 + follows : 1);
            AddLine(lines[i]);
        }
        y_ += rowGap;
    }

    void AddTotals(const QStringList &totals)
    {
        y_ += totalsGap;
        AddLine(totals);
    }

    const QList<Page> &Pages() const { return pages_; }

private:
    void MakeRoom(double height)
    {
        if (pages_.last().isEmpty() || y_ + height <= bottom_)
            return;
        pages_.append(Page());
        y_ = top_;
    }

    void AddLine(const QStringList &cells)
    {
        pages_.last().append({y_, cells});
        ++y_;
    }

    double top_;
    double bottom_;
    double y_;
    QList<Page> pages_{Page()};
};

class PagePainter
{
public:
    PagePainter(QPainter &painter, const TimesheetLayout &layout) : painter_(painter), layout_(layout) {}

    void Paint(qsizetype page)
    {
        const QPaintDevice &device = *painter_.device();
        painter_.setPen(QPen(Qt::black, device.logicalDpiY() / 144.0)); // half a point

        painter_.setFont(Bold(layout_.font));
        double y = topMargin;
        for (const QString &line : layout_.header)
            Text(0, y++, device.width(), Qt::AlignLeft, line);
        Cells(y + emptyLine, Headings(layout_.columns.size()));
        Rule(BodyTop(layout_) - rowGap);

        painter_.setFont(layout_.font);
        const Page &lines = layout_.pages[page];
        for (const TimesheetLayout::Line &line : lines) {
            if (page == layout_.pages.size() - 1 && &line == &lines.last()) {
                if (lines.size() > 1)
                    Rule(line.top - totalsGap / 2);
                painter_.setFont(Bold(layout_.font));
            }
            Cells(line.top, line.cells);
        }
        y = device.height() / layout_.lineHeight - FootHeight(layout_) + emptyLine;
        painter_.setFont(FootFont(layout_.font));
        for (const QString &line : layout_.foot)
            Text(0, y++, device.width(), Qt::AlignLeft, line);
        painter_.setFont(layout_.font);
        Text(0, y, device.width(), Qt::AlignHCenter, Say("Page %1 of %2").arg(page + 1).arg(layout_.pages.size()));
    }

private:
    // `y` is in lines.
    void Text(double x, double y, double width, Qt::Alignment alignment, const QString &text)
    {
        painter_.drawText(QRectF(x, y * layout_.lineHeight, width, layout_.lineHeight),
                          static_cast<int>(alignment) | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                          ShownText(text));
    }

    void Cells(double y, const QStringList &cells)
    {
        for (qsizetype i = 0; i < layout_.columns.size(); ++i) {
            const Column &column = layout_.columns[i];
            Text(column.left, y, column.width, column.alignment, cells.value(i));
        }
    }

    void Rule(double y)
    {
        y *= layout_.lineHeight;
        painter_.drawLine(QLineF(0, y, painter_.device()->width(), y));
    }

    QPainter &painter_;
    const TimesheetLayout &layout_;
};

} // namespace

TimesheetLayout LayOut(const PrintedTimesheet &timesheet, const QPagedPaintDevice &device)
{
    TimesheetLayout layout;
    layout.font = QGuiApplication::font();
    layout.font.setPointSizeF(10);
    layout.lineHeight = std::ceil(QFontMetricsF(layout.font, &device).lineSpacing());
    layout.header = Broken(timesheet.header.join(u"    "_s), Bold(layout.font), device.width(), device);
    if (!timesheet.foot.isEmpty())
        layout.foot = Broken(timesheet.foot, FootFont(layout.font), device.width(), device);
    layout.columns = Columns(timesheet, layout.font, device);

    PageFiller filler(BodyTop(layout), device.height() / layout.lineHeight - FootHeight(layout));
    for (const QStringList &row : timesheet.rows) {
        const bool isLast = &row == &timesheet.rows.last();
        filler.AddRow(Lines(row, layout.columns, layout.font, device), isLast ? rowGap + totalsGap + 1 : 0);
    }
    filler.AddTotals(timesheet.totals);
    layout.pages = filler.Pages();
    return layout;
}

bool PaintPages(const TimesheetLayout &layout, QPagedPaintDevice &device, const QPageRanges &wanted)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    PagePainter pagePainter(painter, layout);
    bool isFirst = true;
    for (qsizetype page = 0; page < layout.pages.size(); ++page) {
        if (!wanted.isEmpty() && !wanted.contains(static_cast<int>(page) + 1))
            continue;
        if (!std::exchange(isFirst, false) && !device.newPage())
            return false;
        pagePainter.Paint(page);
    }
    return painter.end();
}

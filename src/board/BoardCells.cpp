#include "board/BoardCells.h"

#include "board/BoardModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int margin = 6;    // pixels, beside the job and the badge
constexpr int leastJob = 10; // letters; a shorter piece of a job says nothing
// How much of its colour a quiet letter keeps: well readable on white, yellow and dark cells.
constexpr double quiet = 0.7;
constexpr QRgb badgeColor = 0xff404040;

QColor Mixed(const QColor &letters, const QColor &ground)
{
    const auto mix = [](int letter, int behind) { return static_cast<int>(letter * quiet + behind * (1 - quiet)); };
    return {mix(letters.red(), ground.red()), mix(letters.green(), ground.green()), mix(letters.blue(), ground.blue())};
}

// Draws the badge at the right end of `cell`; what is left of the cell.
QRect DrawBadge(QPainter &painter, const QRect &cell, const QFont &cellFont, int waiting)
{
    const QString text = u"+%1"_s.arg(waiting);
    QFont font = cellFont;
    font.setBold(true);
    const QFontMetrics metrics(font);
    const int height = std::min(metrics.height(), cell.height() - 4);
    const int width = std::max(metrics.horizontalAdvance(text) + 2 * margin, height);
    QRect badge(0, 0, width, height);
    badge.moveCenter(cell.center());
    badge.moveRight(cell.right() - margin);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(badgeColor));
    painter.drawRoundedRect(badge, height / 2.0, height / 2.0);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(badge, Qt::AlignCenter, text);
    return cell.adjusted(0, 0, -(width + margin), 0);
}

// By the style, as the text before it is.
void DrawJob(QPainter &painter, const QStyle &style, const QStyleOptionViewItem &cell, const QRect &room,
             const QString &job)
{
    const QFontMetrics &metrics = cell.fontMetrics;
    if (room.width() < std::min(metrics.horizontalAdvance(job) + margin, metrics.averageCharWidth() * leastJob))
        return;
    const bool isPlain = cell.backgroundBrush.style() == Qt::NoBrush;
    const QColor ground = isPlain ? cell.palette.color(QPalette::Base) : cell.backgroundBrush.color();
    QStyleOptionViewItem text = cell;
    text.rect = room;
    text.text = job;
    text.displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    text.features = QStyleOptionViewItem::HasDisplay;
    text.backgroundBrush = Qt::NoBrush;
    text.palette.setColor(QPalette::Text, Mixed(cell.palette.color(QPalette::Text), ground));
    style.drawControl(QStyle::CE_ItemViewItem, &text, &painter, cell.widget);
}

void DrawFrame(QPainter &painter, const QRect &cell)
{
    // One of the two is seen on a cell of any colour.
    const QRect frame = cell.adjusted(0, 0, -1, -1);
    painter.setPen(Qt::black);
    painter.drawRect(frame);
    painter.drawRect(frame.adjusted(1, 1, -1, -1));
    painter.setPen(Qt::white);
    painter.drawRect(frame.adjusted(2, 2, -2, -2));
}

} // namespace

void BoardCells::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    painter->save();
    painter->fillRect(option.rect, cell.backgroundBrush); // also below the badge
    if (const int waiting = index.data(BoardModel::WaitingRole).toInt(); waiting > 0)
        cell.rect = DrawBadge(*painter, option.rect, cell.font, waiting);
    painter->restore();

    const QStyle &style = option.widget ? *option.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);

    painter->save();
    if (const QString job = index.data(BoardModel::WorkRole).toString(); !job.isEmpty()) {
        const QRect text = style.subElementRect(QStyle::SE_ItemViewItemText, &cell, option.widget);
        const int end = cell.text.isEmpty() ? text.left() : text.left() + cell.fontMetrics.horizontalAdvance(cell.text);
        QRect room = cell.rect;
        room.setLeft(end + 4 * margin);
        DrawJob(*painter, style, cell, room, job);
    }
    if (option.state & QStyle::State_HasFocus)
        DrawFrame(*painter, option.rect);
    painter->restore();
}

bool BoardCells::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                           const QModelIndex &index)
{
    const QString cellTip = index.data(Qt::ToolTipRole).toString();
    if (event->type() != QEvent::ToolTip || cellTip.isEmpty())
        return ShownTextDelegate::helpEvent(event, view, option, index);
    const QString gridTip = view->toolTip();
    const QString asMarkup = Qt::mightBeRichText(gridTip) ? gridTip : gridTip.toHtmlEscaped();
    if (gridTip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), cellTip + u"<p>"_s + asMarkup, view, option.rect);
    return true;
}

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

constexpr int margin = 6; // pixels, beside the badge
0.7;                      // how much of its colour a quiet letter keeps; well readable on white, yellow and dark cells
constexpr QRgb badgeColor = 0xff404040;

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

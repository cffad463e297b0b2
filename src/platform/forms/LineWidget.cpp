#include "platform/forms/LineWidget.h"

#include <QPainter>

#include <algorithm>

LineWidget::LineWidget(QWidget *parent) : QWidget(parent), color_(palette().color(QPalette::WindowText))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QPoint LineWidget::Start() const
{
    const QRect area = geometry();
    if (hasEnds_)
        return {startsRight_ ? area.right() : area.left(), startsBelow_ ? area.bottom() : area.top()};
    return area.width() >= area.height() ? QPoint(area.left(), area.center().y())
                                         : QPoint(area.center().x(), area.top());
}

QPoint LineWidget::End() const
{
    const QRect area = geometry();
    if (hasEnds_)
        return {startsRight_ ? area.left() : area.right(), startsBelow_ ? area.top() : area.bottom()};
    return area.width() >= area.height() ? QPoint(area.right(), area.center().y())
                                         : QPoint(area.center().x(), area.bottom());
}

void LineWidget::SetEnds(QPoint start, QPoint end)
{
    hasEnds_ = true;
    startsRight_ = start.x() > end.x();
    startsBelow_ = start.y() > end.y();
    const QPoint topLeft(std::min(start.x(), end.x()), std::min(start.y(), end.y()));
    const QPoint bottomRight(std::max(start.x(), end.x()), std::max(start.y(), end.y()));
    setGeometry(QRect(topLeft, bottomRight));
    update();
}

void LineWidget::SetBorderColor(const QColor &color)
{
    color_ = color;
    update();
}

void LineWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(color_);
    painter.drawLine(mapFromParent(Start()), mapFromParent(End()));
}

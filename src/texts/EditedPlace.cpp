#include "texts/EditedPlace.h"

#include "platform/forms/Control.h"
#include "platform/forms/Geometry.h"

#include <QWidget>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int leastExtent = 8; // 120 twips
constexpr int leastInSight = 8;
constexpr int roomAroundLine = 4;

// Smaller than may be, and smaller than it was: a control designed that small may still grow.
bool ShrinksTooFar(int now, int before)
{
    return now < leastExtent && now < before;
}

void Put(double &twips, int before, int now, int origin)
{
    if (now != before)
        twips = (now - origin) * twipsPerPixel;
}

int Right(const QRect &box)
{
    return box.x() + box.width();
}

int Bottom(const QRect &box)
{
    return box.y() + box.height();
}

} // namespace

EditedPlace::EditedPlace(Control &control, const QWidget &surface)
    : control_(control),
      surface_(surface),
      origin_(control.Widget()->parentWidget()->mapTo(&surface, QPoint())),
      isLine_(control.TypeName() == "Line"_L1)
{
    box_ = ToPixels(control.Place().value_or(Geometry()));
    if (isLine_) {
        const QPoint start = box_.topLeft();
        const QPoint end(box_.width(), box_.height());
        startsRight_ = start.x() > end.x();
        startsBelow_ = start.y() > end.y();
        box_ = {std::min(start.x(), end.x()), std::min(start.y(), end.y()), std::abs(end.x() - start.x()),
                std::abs(end.y() - start.y())};
    }
    box_.translate(origin_);
    boxBefore_ = box_;
}

QRect EditedPlace::EditorRect() const
{
    return isLine_ ? box_.adjusted(-roomAroundLine, -roomAroundLine, roomAroundLine + 1, roomAroundLine + 1) : box_;
}

std::optional<QLine> EditedPlace::Line() const
{
    if (!isLine_)
        return std::nullopt;
    QPoint start = box_.topLeft();
    QPoint end(Right(box_), Bottom(box_));
    if (startsRight_)
        std::swap(start.rx(), end.rx());
    if (startsBelow_)
        std::swap(start.ry(), end.ry());
    return QLine(start, end);
}

// What lies outside its container is not drawn.
QRect EditedPlace::ReachableArea() const
{
    const QRect container(origin_, control_.Widget()->parentWidget()->size());
    return container.intersected(surface_.rect());
}

void EditedPlace::MoveTo(QPoint topLeft)
{
    const QRect area = ReachableArea();
    const auto kept = [](int edge, int extent, int low, int high) {
        const int inSight = std::min(extent, leastInSight);
        return std::max(std::min(edge, high - inSight), low + inSight - extent);
    };
    box_.moveTo(kept(topLeft.x(), box_.width(), area.x(), Right(area)),
                kept(topLeft.y(), box_.height(), area.y(), Bottom(area)));
}

void EditedPlace::ResizeTo(QSize size)
{
    const QRect area = ReachableArea();
    const QRect box(box_.topLeft(), size);
    const bool tooSmall =
        isLine_ ? size.width() < 0 || size.height() < 0 || std::max(size.width(), size.height()) < leastExtent
                : ShrinksTooFar(size.width(), box_.width()) || ShrinksTooFar(size.height(), box_.height());
    const auto leaves = [](int edge, int before, int low) { return edge < before && edge < low + leastInSight; };
    if (!tooSmall && !leaves(Right(box), Right(box_), area.x()) && !leaves(Bottom(box), Bottom(box_), area.y()))
        box_ = box;
}

void EditedPlace::Apply()
{
    const auto now = control_.Place();
    if (!now || box_ == boxBefore_)
        return;
    Geometry twips = *now;
    if (isLine_) {
        Put(startsRight_ ? twips.width : twips.left, boxBefore_.x(), box_.x(), origin_.x());
        Put(startsRight_ ? twips.left : twips.width, Right(boxBefore_), Right(box_), origin_.x());
        Put(startsBelow_ ? twips.height : twips.top, boxBefore_.y(), box_.y(), origin_.y());
        Put(startsBelow_ ? twips.top : twips.height, Bottom(boxBefore_), Bottom(box_), origin_.y());
    } else {
        Put(twips.left, boxBefore_.x(), box_.x(), origin_.x());
        Put(twips.top, boxBefore_.y(), box_.y(), origin_.y());
        Put(twips.width, boxBefore_.width(), box_.width(), 0);
        Put(twips.height, boxBefore_.height(), box_.height(), 0);
    }
    control_.SetPlace(twips);
}

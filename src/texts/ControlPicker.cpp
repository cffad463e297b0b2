#include "texts/ControlPicker.h"

#include "platform/forms/Form.h"
#include "texts/EditedPlace.h"

namespace {

constexpr int mostCandidates = 4;
constexpr double areaLimit = 1e9 / (twipsPerPixel * twipsPerPixel); // of 1e9 square twips; larger is never chosen

bool HoldsWithEdges(const QRect &box, QPoint point)
{
    const QPoint inside = point - box.topLeft();
    return inside.x() >= 0 && inside.x() <= box.width() && inside.y() >= 0 && inside.y() <= box.height();
}

} // namespace

Control *ControlUnder(const Form &form, QPoint surfacePoint)
{
    const QWidget &surface = *form.Surface();
    Control *chosen = nullptr;
    double smallest = areaLimit;
    int candidates = 0;
    for (const auto &control : form.Controls()) {
        const QWidget *widget = control->Widget();
        if (!widget || !widget->isVisibleTo(&surface))
            continue;
        const QRect box = EditedPlace(*control, surface).Box();
        if (!HoldsWithEdges(box, surfacePoint))
            continue;
        if (++candidates > mostCandidates)
            break;
        const double area = 1.0 * box.width() * box.height();
        if (area < smallest) {
            smallest = area;
            chosen = control.get();
        }
    }
    return chosen;
}

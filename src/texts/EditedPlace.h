#pragma once

#include <QLine>
#include <QRect>

#include <optional>

class Control;
class QWidget;

// Place and size of a control while it is edited, in pixels on the form's surface, whatever its container is.
class EditedPlace
{
public:
    EditedPlace(Control &control, const QWidget &surface); // the control must have a widget below the surface

    // From the left and upper edge to the right and lower one: a level line's height is 0.
    const QRect &Box() const { return box_; }
    QRect EditorRect() const;          // the same; of a line with room around it to get hold of
    std::optional<QLine> Line() const; // nothing when it is not a line

    void MoveTo(QPoint topLeft); // as far as some of it stays in sight
    void ResizeTo(QSize size);   // not taken when the control would get too small to get hold of, or out of sight

    // Sets the control's numbers that were changed; the others keep their fractions of a pixel.
    void Apply();

private:
    QRect ReachableArea() const;

    Control &control_;
    const QWidget &surface_;
    QPoint origin_; // of the container
    bool isLine_;
    bool startsRight_ = false; // the line, in its box
    bool startsBelow_ = false;
    QRect box_;
    QRect boxBefore_;
};

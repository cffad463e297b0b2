#pragma once

#include <QList>
#include <QRect>

// Places and sizes as the text store keeps them: in twips, 15 to a logical pixel.
constexpr double twipsPerPixel = 15.0;

struct Geometry
{
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const Geometry &) const = default;
};

// A Line's four numbers are its end points: left = x1, top = y1, width = x2, height = y2.

QRect ToPixels(const Geometry &twips); // each number rounded to the nearest pixel
Geometry ToTwips(const QRect &pixels);

// A window whose left edge is off a screen of that size, or within 100 twips of its right edge, is put at 0; its top alike.
Geometry KeptOnScreen(Geometry window, QSize screenPixels);
QSize ScreenPixels(); // right and lower edge of all screens together

// Where to put a window so that a person can get hold of its title bar: its own place, or the nearest on the first screen.
QPoint ReachablePosition(const QRect &outerPixels, const QList<QRect> &screens);

// Where it is in view as a whole, or as much of it as a screen can hold, with its upper left corner.
QPoint WholePosition(const QRect &outerPixels, const QList<QRect> &screens);

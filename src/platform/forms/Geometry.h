#pragma once

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

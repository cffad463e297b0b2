#pragma once

#include "platform/forms/ControlTypes.h"

#include <memory>
#include <vector>

class QObject;

// Name, index and type of a design's object: object name "Options_2" with the property "Index" is member 2 of "Options"; the
// property "ControlType" takes the place of the class's own type.
ControlId IdOf(const QObject &object, const QString &classType);

std::unique_ptr<Control> MakeControl(QWidget &widget); // with its tag

// Whether a widget is there to hold controls: a frame, not one of the widgets that happen to be built on a frame.
bool IsFrame(const QWidget &widget);

// A further widget of the pattern's kind, font and alignment, without a text, hidden. Nothing for a kind that has no arrays.
QWidget *NewWidgetLike(const QWidget &pattern, QWidget *parent);

#pragma once

#include <QPoint>

class Control;
class Form;

// The control that a click on a form being edited means: the smallest one under the point of the surface, the earlier
// one of two of the same size. Nothing where no control lies. Controls that are not to be seen are passed over, for a
// person clicks on what is seen.
Control *ControlUnder(const Form &form, QPoint surfacePoint);

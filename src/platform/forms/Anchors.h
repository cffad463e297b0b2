#pragma once

#include <QRect>

#include <initializer_list>
#include <vector>

class Form;
class QWidget;

// Lets controls move and grow with their window, each by its share of what the window grew: wherever a person put them, they
// stay there. Shrinking undoes growing to the pixel, and so no place that is stored ever drifts.
class Anchors
{
public:
    // Of the growth in width what `x` and `width` take, of that in height what `y` and `height` take.
    struct Share
    {
        double x = 0;
        double y = 0;
        double width = 0;
        double height = 0;
    };

    explicit Anchors(Form &form); // outlives this
    void Add(std::initializer_list<QWidget *> controls, const Share &share);

    // After each resize of the window, in every state. A window that is not settled moves nothing: the controls stand where
    // they were stored for its size, which has no notice. Only what the screen cuts off they follow at once.
    void Follow();
    // Before the places are stored, for that is done together with the size in the normal state.
    void PutBack();

private:
    struct Anchor
    {
        QWidget *control;
        Share share;
        QRect wanted; // what is exact: a control takes no size below its least one
        QRect taken;  // what became of it
    };

    void FitTo(QSize size);
    void UndoCut();

    Form &form_;
    std::vector<Anchor> anchors_;
    QSize fitted_;         // the window's size that the controls stand for
    QSize cutTaken_{0, 0}; // of the cut, what they have followed while the window was not settled
    QSize uncut_;          // what they stood for before that
};

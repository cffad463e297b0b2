#pragma once

class Form;
class QKeyEvent;
class QMouseEvent;

// What a form needs of the text store, and what all forms do alike with keys and the mouse. `Common` is the one
// implementation. Services without the shared behaviour keep the defaults.
class FormServices
{
public:
    virtual ~FormServices() = default;

    virtual void LoadProperties(Form &form) = 0;
    virtual void SaveProperties(Form &form) = 0;

    // A key, before the form and its controls see it. True: consumed.
    virtual bool FormKeyDown(Form &, QKeyEvent &) { return false; }
    // The mouse on the form's surface: on a spot without a control, or on one that leaves the mouse to what is below it.
    virtual void FormMouseDown(Form &, const QMouseEvent &) {}
    virtual void FormMouseMove(Form &, const QMouseEvent &) {}
};

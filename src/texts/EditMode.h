#pragma once

#include <QObject>
#include <QPointer>

#include <array>

class Form;
class FormServices;

// The mode in which a click on a form opens the editor of the control that lies there. It is one of the program: at most one
// form is in it. That form is light grey, and none of its controls and menus sees a key, the mouse or a shortcut; message
// boxes and other windows work as ever.
class EditMode : public QObject
{
public:
    explicit EditMode(FormServices &services);

    void Begin(Form &form); // ends it on another form first
    void Leave();           // colour and visibility are again what they were; an open editor is cancelled
    bool IsOn(const Form &form) const { return form_ == &form; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void MeetPress(QEvent &event);
    void OpenEditor(QPoint surfacePoint);
    bool IsInForm(const QObject &object) const;
    bool IsInEditor(QPoint formPoint) const;

    FormServices &services_;
    QPointer<Form> form_;
    std::array<bool, 201> SavedVisible{}; // by position in Controls; controls beyond are not recorded
};

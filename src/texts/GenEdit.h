#pragma once

#include "texts/EditView.h"
#include "texts/EditedPlace.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class Control;
class Form;
class QKeyEvent;
class QMouseEvent;

// Edits the text, place and size of one control on the running form: lies over it as a child of the surface, in its
// looks, while the control itself is hidden. Tab accepts, and so does Enter, but in a text of several lines; Escape
// cancels. Ctrl with an arrow moves by a pixel, with Shift besides it resizes. Changes the live control only.
class GenEdit : public QWidget
{
    Q_OBJECT

public:
    enum class Outcome { Accepted, Cancelled };

    // Picks the control under the point (ControlPicker.h) and opens an editor over it, which ends with Ended and then
    // deletes itself; nothing when none was picked. The form may be hidden or unloaded meanwhile: that cancels. It may be
    // destroyed, too, without a word. One editor at a time on a form: while one is open, nothing is picked.
    static GenEdit *Open(Form &form, QPoint surfacePoint);
    static bool IsOn(const Form &form); // one is open on it

    // Cancels the editing on a form, if there is any; the control is visible again at once, before its visibility is
    // read.
    static void CancelOn(const Form &form);

signals:
    void Ended(GenEdit::Outcome outcome); // the control is visible again, and changed if that was accepted

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    enum class Zone { Inside, Right, Bottom, Corner };
    struct Drag
    {
        Zone zone;
        QPoint from; // global
        QRect box;   // as it was then
        bool moves;  // beyond a click
    };

    GenEdit(Form &form, Control &control);

    static GenEdit *EditorOn(const Form &form); // the open one

    bool PressKey(const QKeyEvent &key); // false: for the text
    bool HandleMouse(QWidget &target, const QMouseEvent &mouse);
    void FollowPointer(QPoint global);
    Zone ZoneAt(QPoint point) const;
    void Arrange();
    void End(Outcome outcome);

    Control &control_;
    EditedPlace place_;
    EditView view_;
    QPointer<QWidget> hidden_; // the edited control's widget
    QPointer<QWidget> focusBefore_;
    std::optional<Drag> drag_;
    bool ended_ = false;
};

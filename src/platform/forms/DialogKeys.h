#pragma once

#include <QPointer>
#include <QPushButton>

class QKeyEvent;

// Whether a key belongs to the focused control alone and key preview leaves it alone: Tab, Space and Enter on buttons, and Alt
// combinations but for Escape, F1 and the arrows up and down.
bool BelongsToControl(const QKeyEvent &key, const QWidget *focus);

// Enter and Escape of a dialog.
class DialogKeys
{
public:
    void SetDefaultButton(QPushButton *button);
    void SetCancelButton(QPushButton *button) { cancel_ = button; }

    bool Press(const QKeyEvent &key, QWidget *focus); // true: the key was meant for a button

private:
    QPointer<QPushButton> default_;
    QPointer<QPushButton> cancel_;
};

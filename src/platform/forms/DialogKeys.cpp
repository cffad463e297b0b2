#include "platform/forms/DialogKeys.h"

#include "platform/forms/AltKeys.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>

namespace {

bool IsEnter(const QKeyEvent &key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool IsCellEditor(const QWidget *widget)
{
    const QWidget *viewport = widget ? widget->parentWidget() : nullptr;
    return viewport && qobject_cast<const QAbstractItemView *>(viewport->parentWidget());
}

bool TakesNewLines(const QWidget *widget)
{
    const auto *text = qobject_cast<const QPlainTextEdit *>(widget);
    return text && !text->isReadOnly();
}

// A held key presses a button once: it may still be down from the window before.
bool PressOnce(QPushButton *button, const QKeyEvent &key)
{
    if (!button || !button->isVisible())
        return false;
    if (!key.isAutoRepeat())
        button->click();
    return true;
}

} // namespace

bool BelongsToControl(const QKeyEvent &key, const QWidget *focus)
{
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Alt:
        return true;
    case Qt::Key_Space:
        return qobject_cast<const QAbstractButton *>(focus) != nullptr || IsAltCombination(key);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return qobject_cast<const QPushButton *>(focus) != nullptr || IsAltCombination(key);
    case Qt::Key_Escape:
    case Qt::Key_F1:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return false;
    default:
        return IsAltCombination(key);
    }
}

void DialogKeys::SetDefaultButton(QPushButton *button)
{
    if (default_)
        default_->setDefault(false);
    default_ = button;
    if (button)
        button->setDefault(true);
}

bool DialogKeys::Press(const QKeyEvent &key, QWidget *focus)
{
    if (IsCellEditor(focus) || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    if (IsEnter(key)) {
        if (auto *button = qobject_cast<QPushButton *>(focus))
            return PressOnce(button, key);
        return !TakesNewLines(focus) && PressOnce(default_, key);
    }
    return key.key() == Qt::Key_Escape && PressOnce(cancel_, key);
}

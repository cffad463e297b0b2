#include "platform/forms/AltKeys.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace {

bool IsOrdinaryKey(int key)
{
    switch (key) {
    case 0: // a sign that the system has put together, of Alt and digits of the keypad for one
    case Qt::Key_unknown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
        return false;
    default:
        return true;
    }
}

// What a menu, a button or a label answers never comes here: that is a shortcut.
bool AnswersItself(const QWidget &widget, const QKeyEvent &key)
{
    if (qobject_cast<const QMenu *>(&widget) || qobject_cast<const QMenuBar *>(&widget))
        return true;
    if (key.key() == Qt::Key_Down || key.key() == Qt::Key_Up) // drop-down lists; boxes of dates and numbers would step
        return !qobject_cast<const QAbstractSpinBox *>(&widget);
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

} // namespace

bool IsAltCombination(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers held = key.modifiers();
    return held.testFlag(Qt::AltModifier) && !held.testFlag(Qt::ControlModifier) && IsOrdinaryKey(key.key());
}

void AltKeys::Install()
{
    const QObjectList &there = qApp->children();
    if (std::none_of(there.begin(), there.end(), [](auto *child) { return dynamic_cast<const AltKeys *>(child); }))
        qApp->installEventFilter(new AltKeys(qApp));
}

bool AltKeys::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = event->type() == QEvent::KeyPress ? qobject_cast<const QWidget *>(watched) : nullptr;
    if (!widget)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (!IsAltCombination(key) || AnswersItself(*widget, key))
        return false;
    event->ignore();
    return true;
}

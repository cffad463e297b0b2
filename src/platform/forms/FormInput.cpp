#include "platform/forms/ControlTypes.h"
#include "platform/forms/Form.h"
#include "platform/forms/FormServices.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QToolTip>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

// The part of Form that sees keys and the mouse, and knows which control they are for.

const Control *Form::ActiveControl() const
{
    const QWidget *popup = QApplication::activePopupWidget();
    const QWidget *active = IsOwnPopup(popup) ? popup : focusWidget();
    for (; active && active != this; active = active->parentWidget()) {
        if (const auto *menu = qobject_cast<const QMenu *>(active)) {
            if (const Control *entry = MenuOf(menu->activeAction() ? menu->activeAction() : menu->menuAction()))
                return entry;
        } else if (const auto *bar = qobject_cast<const QMenuBar *>(active)) {
            return MenuOf(bar->activeAction());
        } else if (const Control *control = ControlOf(*active)) {
            return control;
        }
    }
    return nullptr;
}

// A menu, a drop-down list or a calendar of this form.
bool Form::IsOwnPopup(const QWidget *popup) const
{
    const QWidget *owner = popup;
    while (owner && (owner == popup || owner->windowType() == Qt::Popup || !owner->isWindow()))
        owner = owner->parentWidget();
    return owner == this;
}

const Control *Form::MenuOf(const QAction *action) const
{
    for (const auto &control : controls_) {
        const auto *menu = dynamic_cast<const MenuControl *>(control.get());
        if (action && menu && &menu->Action() == action)
            return menu;
    }
    return nullptr;
}

bool Form::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (SeeKey(*watched, static_cast<QKeyEvent &>(*event)))
            return true;
        break;
    case QEvent::Shortcut:
    case QEvent::FocusOut:
        EndCompletion(*watched, *event);
        break;
    case QEvent::MouseButtonPress:
        if (watched == windowHandle()) { // which sees each press first
            surfaceIsPressed_ = false;
        } else if (watched == Surface()) {
            surfaceIsPressed_ = true;
            services_.FormMouseDown(*this, static_cast<const QMouseEvent &>(*event));
        }
        break;
    case QEvent::MouseMove: // a button passes it on, too, while the mouse is held beside it
        if (watched == Surface() && surfaceIsPressed_)
            services_.FormMouseMove(*this, static_cast<const QMouseEvent &>(*event));
        break;
    case QEvent::ToolTip:
        if (auto *bar = qobject_cast<QMenuBar *>(watched); bar && bar->parent() == this) {
            ShowMenuTip(*bar, static_cast<const QHelpEvent &>(*event));
            return true;
        }
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

// An access key does its work while a box offers completions, but Qt leaves these open, and what is typed from then on goes to
// the box still.
void Form::EndCompletion(const QObject &receiver, const QEvent &event)
{
    QWidget *popup = QApplication::activePopupWidget();
    const QWidget *box = popup ? popup->focusProxy() : nullptr;
    if (!box || box->window() != this)
        return;
    while (box->focusProxy()) // the box of a combo box
        box = box->focusProxy();
    const auto *widget = qobject_cast<const QWidget *>(&receiver);
    const bool isShortcut = event.type() == QEvent::Shortcut && widget && widget->window() == this;
    const bool losesFocus = widget == box && event.type() == QEvent::FocusOut
                            && static_cast<const QFocusEvent &>(event).reason() != Qt::PopupFocusReason;
    if (isShortcut || losesFocus)
        popup->hide();
}

// True: the key is not for the receiver.
bool Form::SeeKey(QObject &receiver, QKeyEvent &key)
{
    if (QWidget *popup = QApplication::activePopupWidget(); IsOwnPopup(popup)) { // which keeps its keys but for help
        const QWidget *inPopup = popup->focusWidget() ? popup->focusWidget() : popup;
        return &receiver == inPopup && key.key() == Qt::Key_F1 && services_.FormKeyDown(*this, key);
    }
    QWidget *focus = focusWidget();
    if (&receiver != (focus ? focus : this))
        return false;
    const bool consumed = !BelongsToControl(key, focus) && (services_.FormKeyDown(*this, key) || Form_KeyDown(key));
    return consumed || dialogKeys_.Press(key, focus);
}

// A menu bar shows no tips of its own.
void Form::ShowMenuTip(QMenuBar &bar, const QHelpEvent &help)
{
    if (const Control *menu = MenuOf(bar.actionAt(help.pos())))
        QToolTip::showText(help.globalPos(), AsPlainToolTip(menu->ToolTip()), &bar);
}

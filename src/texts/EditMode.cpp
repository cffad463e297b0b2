#include "texts/EditMode.h"

#include "platform/forms/Form.h"
#include "platform/forms/FormServices.h"
#include "texts/GenEdit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

#include <algorithm>

namespace {

constexpr QRgb lightGrey = 0xffe0e0e0;

} // namespace

EditMode::EditMode(FormServices &services) : services_(services) {}

void EditMode::Begin(Form &form)
{
    Leave();
    if (!form.isVisible()) // a key may come to a window that was closed just now
        return;
    form_ = &form;
    form.CoverBackColor(lightGrey);
    const std::size_t recorded = std::min(form.Controls().size(), SavedVisible.size());
    for (std::size_t position = 0; position < recorded; ++position)
        SavedVisible[position] = form.Controls()[position]->Visible().value_or(true);
    qApp->installEventFilter(this); // the last one installed is the first that sees an event
}

void EditMode::Leave()
{
    qApp->removeEventFilter(this);
    if (!form_)
        return;
    Form &form = *form_;
    form_ = nullptr;
    GenEdit::CancelOn(form);
    form.UncoverBackColor();
    const std::size_t recorded = std::min(form.Controls().size(), SavedVisible.size());
    for (std::size_t position = 0; position < recorded; ++position) {
        Control &control = *form.Controls()[position];
        if (control.Visible().value_or(SavedVisible[position]) != SavedVisible[position])
            control.SetVisible(SavedVisible[position]);
    }
    form.ShowRunTimeControls(); // as the program wanted it meanwhile; edited texts stay until it writes them again
}

bool EditMode::eventFilter(QObject *watched, QEvent *event)
{
    if (!form_)
        return false;
    if (watched == form_ && event->type() == QEvent::Hide && !event->spontaneous()) { // a window that stays loaded
        Leave();
        return false;
    }
    // A click goes first to the window, which gives the focus to what was clicked. What lies in the editor is its own.
    const bool isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (watched == form_->windowHandle()) {
        if (!isPress || IsInEditor(static_cast<const QMouseEvent *>(event)->position().toPoint()))
            return false;
        MeetPress(*event);
        return true;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::ToolTip:
    case QEvent::WhatsThis:
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        break;
    default:
        return false;
    }
    if (!IsInForm(*watched))
        return false;
    if (isPress)
        MeetPress(*event);
    else if (event->type() == QEvent::ShortcutOverride) // what is accepted here becomes no shortcut
        event->accept();
    else if (event->type() == QEvent::KeyPress && !GenEdit::IsOn(*form_))
        services_.FormKeyDown(*form_, static_cast<QKeyEvent &>(*event));
    return true;
}

// The editor is not to take the focus in the middle of a press.
void EditMode::MeetPress(QEvent &event)
{
    const auto &mouse = static_cast<const QMouseEvent &>(event);
    const QWidget &surface = *form_->Surface();
    const QPoint point = surface.mapFromGlobal(mouse.globalPosition().toPoint());
    if (mouse.button() == Qt::LeftButton && surface.rect().contains(point))
        QMetaObject::invokeMethod(
            this, [this, point] { OpenEditor(point); }, Qt::QueuedConnection);
}

void EditMode::OpenEditor(QPoint surfacePoint)
{
    if (!form_)
        return;
    if (GenEdit *editor = GenEdit::Open(*form_, surfacePoint))
        connect(editor, &GenEdit::Ended, this, [this, form = form_](GenEdit::Outcome outcome) {
            if (outcome == GenEdit::Outcome::Cancelled && form && form == form_)
                Leave();
        });
}

// Its surface, controls, menus and drop-downs; not the editor, nor a window that the form merely owns.
bool EditMode::IsInForm(const QObject &object) const
{
    for (const QObject *at = &object; at; at = at->parent()) {
        if (at == form_)
            return true;
        const auto *widget = qobject_cast<const QWidget *>(at);
        const bool isOtherWindow = widget && widget->isWindow() && widget->windowType() != Qt::Popup;
        if (isOtherWindow || qobject_cast<const GenEdit *>(at))
            return false;
    }
    return false;
}

bool EditMode::IsInEditor(QPoint formPoint) const
{
    const QWidget *at = form_->childAt(formPoint);
    while (at && !qobject_cast<const GenEdit *>(at))
        at = at->parentWidget();
    return at;
}

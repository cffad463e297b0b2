#include "texts/GenEdit.h"

#include "platform/forms/Form.h"
#include "platform/system/Say.h"
#include "texts/ControlPicker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

// How far from the right and the lower edge a press takes hold of it: 80 twips, and 120 at the right of controls that
// have no text there. A third of a small control at most, so that it can still be moved.
constexpr int usualGrip = 5;
constexpr int wideGrip = 8;

bool HasWideGrip(const QString &type)
{
    return type == "Frame"_L1 || type == "MSChart"_L1 || type.endsWith("Grid"_L1);
}

Qt::CursorShape PointerOver(bool right, bool bottom)
{
    if (right && bottom)
        return Qt::SizeFDiagCursor;
    return right ? Qt::SizeHorCursor : bottom ? Qt::SizeVerCursor : Qt::SizeAllCursor;
}

QPoint StepOf(int arrow)
{
    switch (arrow) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    default:
        return {0, 1};
    }
}

} // namespace

GenEdit *GenEdit::Open(Form &form, QPoint surfacePoint)
{
    Control *control = EditorOn(form) || !form.isVisible() ? nullptr : ControlUnder(form, surfacePoint);
    return control ? new GenEdit(form, *control) : nullptr;
}

// One that has ended is still to be deleted.
GenEdit *GenEdit::EditorOn(const Form &form)
{
    if (const QWidget *surface = form.Surface()) // gone already while the form is destroyed
        for (auto *editor : surface->findChildren<GenEdit *>(QString(), Qt::FindDirectChildrenOnly))
            if (!editor->ended_)
                return editor;
    return nullptr;
}

bool GenEdit::IsOn(const Form &form)
{
    return EditorOn(form) != nullptr;
}

void GenEdit::CancelOn(const Form &form)
{
    if (GenEdit *editor = EditorOn(form))
        editor->End(Outcome::Cancelled);
}

GenEdit::GenEdit(Form &form, Control &control)
    : QWidget(form.Surface()),
      control_(control),
      place_(control, *form.Surface()),
      view_(control, *this),
      hidden_(control.Widget()),
      focusBefore_(form.focusWidget())
{
    const QString name = Say("Editing ") + control.Key();
    const QString tip = control.Widget()->property("RunTimeTexts").toBool()
                            ? Say("The program writes this text itself: what you type stays until it writes the text "
                                  "again.")
                            : QString();
    QWidget &focus = view_.FocusArea();
    for (QWidget *named : {static_cast<QWidget *>(this), &focus}) {
        named->setAccessibleName(name);
        named->setAccessibleDescription(
            Say("Tab accepts and Escape cancels. Ctrl and an arrow key move the control, with "
                "Shift they resize it.")
            + u' ' + tip);
    }
    for (QWidget *pointed : {static_cast<QWidget *>(this), view_.TextArea()})
        if (pointed)
            pointed->setMouseTracking(true);
    focus.setFocusPolicy(Qt::StrongFocus);

    qApp->installEventFilter(this);
    show();
    raise();
    Arrange(); // now that text in it wraps
    focus.setFocus(Qt::OtherFocusReason);
    hidden_->hide(); // now that the focus is not in it
    setToolTip(tip);
    if (!tip.isEmpty()) // at once: a person who edits with the keys points at nothing
        QToolTip::showText(mapToGlobal(QPoint(0, height())), tip, this);
}

bool GenEdit::eventFilter(QObject *watched, QEvent *event)
{
    auto *target = qobject_cast<QWidget *>(watched);
    if (!target || (target != this && !isAncestorOf(target)))
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride: // no access key and no menu takes the key
        event->accept();
        return true;
    case QEvent::KeyPress: // at once, for the form has keys of its own for what the text takes
        if (!PressKey(*static_cast<QKeyEvent *>(event)) && target != this)
            watched->event(event);
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return HandleMouse(*target, *static_cast<QMouseEvent *>(event));
    case QEvent::Wheel:
    case QEvent::ContextMenu: // else it goes on to the form
        return true;
    default:
        return false;
    }
}

bool GenEdit::PressKey(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (view_.HasSeveralLines())
            return false;
        [[fallthrough]];
    case Qt::Key_Tab:
        if (modifiers == Qt::NoModifier)
            End(Outcome::Accepted);
        return true;
    case Qt::Key_Escape:
        End(Outcome::Cancelled);
        return true;
    case Qt::Key_Backtab:
    case Qt::Key_F1:
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const QPoint step = StepOf(key.key());
        const QRect box = place_.Box();
        if (modifiers == Qt::ControlModifier)
            place_.MoveTo(box.topLeft() + step);
        else if (modifiers == (Qt::ControlModifier | Qt::ShiftModifier))
            place_.ResizeTo(box.size() + QSize(step.x(), step.y()));
        else
            return false;
        Arrange();
        return true;
    }
    default: // an access key writes no letter; AltGr arrives as Ctrl+Alt on some systems
        return modifiers.testFlag(Qt::AltModifier) && !modifiers.testFlag(Qt::ControlModifier);
    }
}

bool GenEdit::HandleMouse(QWidget &target, const QMouseEvent &mouse)
{
    const bool isText = &target == view_.TextArea();
    const QPoint point = target.mapTo(this, mouse.position().toPoint());
    const QPoint global = mouse.globalPosition().toPoint();
    if (mouse.type() == QEvent::MouseMove) {
        if (drag_ && mouse.buttons() & Qt::LeftButton) {
            FollowPointer(global);
        } else {
            const Zone zone = ZoneAt(point);
            target.setCursor(
                PointerOver(zone == Zone::Right || zone == Zone::Corner, zone == Zone::Bottom || zone == Zone::Corner));
        }
        return true;
    }
    if (mouse.button() != Qt::LeftButton)
        return true;
    if (mouse.type() != QEvent::MouseButtonRelease)
        drag_ = Drag{ZoneAt(point), global, place_.Box(), false};
    // A press in the text goes on to it, too, and puts the caret there.
    const bool isClick = isText && drag_ && drag_->zone == Zone::Inside;
    if (mouse.type() == QEvent::MouseButtonRelease)
        drag_.reset();
    return !isClick;
}

void GenEdit::FollowPointer(QPoint global)
{
    const QPoint way = global - drag_->from;
    const QRect &box = drag_->box;
    if (drag_->zone == Zone::Inside) {
        drag_->moves = drag_->moves || way.manhattanLength() >= QApplication::startDragDistance();
        if (drag_->moves)
            place_.MoveTo(box.topLeft() + way);
    } else {
        const int wider = drag_->zone == Zone::Bottom ? 0 : way.x();
        const int higher = drag_->zone == Zone::Right ? 0 : way.y();
        place_.ResizeTo(box.size() + QSize(wider, higher));
    }
    Arrange();
}

GenEdit::Zone GenEdit::ZoneAt(QPoint point) const
{
    const int wanted = HasWideGrip(control_.TypeName()) ? wideGrip : usualGrip;
    const bool right = point.x() >= width() - std::min(wanted, width() / 3);
    const bool bottom = point.y() >= height() - std::min(usualGrip, height() / 3);
    if (right && bottom)
        return Zone::Corner;
    return right ? Zone::Right : bottom ? Zone::Bottom : Zone::Inside;
}

void GenEdit::Arrange()
{
    setGeometry(place_.EditorRect());
    view_.Arrange(place_);
}

// Its form, or what it lies on, went out of sight.
void GenEdit::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        End(Outcome::Cancelled);
}

void GenEdit::End(Outcome outcome)
{
    if (ended_)
        return;
    ended_ = true;
    qApp->removeEventFilter(this);
    if (hidden_)
        hidden_->show();
    if (outcome == Outcome::Accepted) {
        if (const auto text = view_.ChangedText())
            control_.SetCaption(*text);
        place_.Apply();
    }
    if (isVisible() && focusBefore_)
        focusBefore_->setFocus(Qt::OtherFocusReason);
    hide();
    deleteLater();
    emit Ended(outcome);
}

#include "platform/forms/Form.h"

#include "platform/forms/AltKeys.h"
#include "platform/forms/ControlFactory.h"
#include "platform/forms/FormServices.h"
#include "platform/forms/NoticeLine.h"
#include "platform/forms/ScreenReaders.h"
#include "platform/forms/WindowPlace.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>
#include <QTimer>
#include <QToolTip>
#include <QWindow>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

// The surface takes its colour from a role that no child draws itself with, so that the children, which inherit the palette,
// look as ever; but labels on it write in the text colour that belongs to the role.
constexpr QPalette::ColorRole surfaceRole = QPalette::ToolTipBase;
constexpr QPalette::ColorRole surfaceTextRole = QPalette::ToolTipText;

constexpr const char *madeAtRunTime = "MadeAtRunTime"; // a property of the widget

constexpr QMargins usualFrame(8, 31, 8, 8); // of a window whose frame is not known yet

Geometry DesignOf(const QWidget &form)
{
    QRect outer(form.pos(), form.size().grownBy(usualFrame));
    if (!form.testAttribute(Qt::WA_Moved))
        outer.moveCenter(form.screen()->availableGeometry().center());
    return ToTwips(outer);
}

} // namespace

Form::Form(QString name, FormServices &services, QWidget *parent)
    : QMainWindow(parent), name_(std::move(name)), services_(services), place_(std::make_unique<WindowPlace>(*this))
{
    AltKeys::Install();             // sees only what the preview of all windows leaves
    qApp->installEventFilter(this); // key preview
    connect(place_.get(), &WindowPlace::Settled, this, [this] { anchors_.Follow(); });
    connect(place_.get(), &WindowPlace::WasCut, this, &Form::ScrollWhatIsCut);
}

Form::~Form()
{
    disconnect(this, &Form::QuestionsToEnd, nullptr, nullptr); // nobody is left who could take an answer
    removeEventFilter(place_.get()); // a control that is resized now would call the subclass, which is gone
    hide();                          // while it is still a form to those who watch it
}

void Form::Load()
{
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
}

void Form::Unload()
{
    if (!loaded_ || unloading_)
        return;
    unloading_ = true;
    emit QuestionsToEnd();
    ShowNotice({});
    Form_Unload();
    unloading_ = false;
    loaded_ = false;
    hide();
    emit Unloaded();
}

void Form::OpenModal(QWidget *owner)
{
    Load();
    if (!loaded_ || isModal_)
        return;
    isModal_ = true;
    QWidget *ownerWindow = owner && owner->window()->isVisible() ? owner->window() : nullptr;
    setWindowModality(ownerWindow ? Qt::WindowModal : Qt::ApplicationModal);
    if (!parentWidget()) {
        winId(); // makes the window that the owner is set of
        // Only of a dialog do all systems know the owner: that it lies above it, and blocks it alone.
        windowHandle()->setFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
        windowHandle()->setTransientParent(ownerWindow ? ownerWindow->windowHandle() : nullptr);
    }
    show();
    if (!isVisible()) // a first paint or resize has unloaded it
        EndModal();
    else if (ownerWindow) // a double click on the owner leaves that the active window, though it is blocked
        QTimer::singleShot(QApplication::doubleClickInterval(), this, [this, owned = QPointer(ownerWindow)] {
            if (isModal_ && owned && owned->isActiveWindow())
                activateWindow();
        });
}

void Form::EndModal()
{
    if (!isModal_)
        return;
    isModal_ = false;
    setWindowModality(Qt::NonModal);
    QMetaObject::invokeMethod(this, &Form::Closed, Qt::QueuedConnection);
}

Control *Form::ControlOf(const QWidget &widget) const
{
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&widget](const auto &control) { return control->Widget() == &widget; });
    return found == controls_.end() ? nullptr : found->get();
}

Control *Form::CreateMember(const QString &arrayName, int index)
{
    const auto memberOf = [&](const auto &wanted) {
        const auto found = std::find_if(
            controls_.begin(), controls_.end(),
            [&](const auto &control) {
                return control->Name() == arrayName && control->Index() && wanted(*control->Index());
            });
        return found == controls_.end() ? nullptr : found->get();
    };
    if (Control *there = memberOf([index](int other) { return other == index; }))
        return there;
    const Control *pattern = memberOf([](int) { return true; });
    if (!pattern || !pattern->Widget() || index < 0)
        return nullptr;
    QWidget *widget = NewWidgetLike(*pattern->Widget(), pattern->Widget()->parentWidget());
    if (!widget)
        return nullptr;
    widget->setObjectName(u"%1_%2"_s.arg(arrayName).arg(index));
    widget->setProperty("Index", index);
    widget->setProperty("ControlType", pattern->TypeName());
    widget->setProperty(madeAtRunTime, true);
    RegisterControl(MakeControl(*widget));
    MemberCreated(*controls_.back());
    return controls_.back().get();
}

void Form::SetContainer(Control &control, QWidget *container)
{
    QWidget *widget = control.Widget();
    if (!widget || !container || widget->parentWidget() == container)
        return;
    const bool visible = !widget->isHidden();
    widget->setParent(container); // hides it
    widget->setVisible(visible);
    // One selection a container: that of the buttons that are there already.
    auto *option = qobject_cast<QRadioButton *>(widget);
    const auto others = container->findChildren<QRadioButton *>(QString(), Qt::FindDirectChildrenOnly);
    if (option && option->isChecked() && std::any_of(others.begin(), others.end(), [&](auto *other) {
            return other != option && other->isChecked();
        }))
        control.SetValue(u"0"_s);
}

void Form::SetStoredGeometry(const Geometry &twips)
{
    place_->SetStored(twips);
}

Geometry Form::StoredGeometry() const
{
    return place_->Stored();
}

QSize Form::NormalSize() const
{
    return place_->NormalSize();
}

bool Form::IsSettled() const
{
    return place_->IsSettled();
}

void Form::ShowShippedLayout()
{
    for (const auto &control : controls_)
        if (IsShipped(*control) && control->Place())
            control->SetPlace(control->Design().geometry);
    SetStoredGeometry(designGeometry_);
    if (loaded_ && IsNormal())
        Form_Resize();
}

bool Form::IsShipped(const Control &control) const
{
    return !control.Widget() || !control.Widget()->property(madeAtRunTime).toBool();
}

void Form::SetBackColor(const QColor &color)
{
    if (savedBackColor_)
        savedBackColor_ = color;
    else
        ShowBackColor(color);
}

void Form::CoverBackColor(const QColor &color)
{
    if (!savedBackColor_)
        savedBackColor_ = Surface()->autoFillBackground() ? BackColor() : QColor();
    ShowBackColor(color);
}

void Form::UncoverBackColor()
{
    if (savedBackColor_)
        ShowBackColor(*std::exchange(savedBackColor_, std::nullopt));
}

void Form::ShowBackColor(const QColor &color)
{
    if (color == BackColor())
        return;
    QWidget *surface = Surface();
    const bool isOwn = color.isValid();
    if (isOwn) {
        QPalette colors = surface->palette();
        const bool isDark = qGray(color.rgb()) < 128;
        colors.setColor(surfaceRole, color);
        colors.setColor(surfaceTextRole, isDark ? QColor(Qt::white) : colors.color(QPalette::WindowText));
        surface->setPalette(colors);
    }
    surface->setBackgroundRole(isOwn ? surfaceRole : QPalette::NoRole);
    surface->setAutoFillBackground(isOwn);
    for (const auto &control : controls_) {
        QWidget *widget = control->Widget();
        const bool onSurface = widget && widget->parentWidget() == surface;
        if (onSurface && (IsFrame(*widget) || qobject_cast<QTabWidget *>(widget))) {
            widget->setBackgroundRole(isOwn ? QPalette::Window : QPalette::NoRole);
            widget->setAutoFillBackground(isOwn);
        }
    }
}

QColor Form::BackColor() const
{
    const QWidget *surface = Surface();
    return surface->palette().color(surface->autoFillBackground() ? surfaceRole : QPalette::Window);
}

void Form::ShowNotice(const QString &text)
{
    if (text == Notice())
        return;
    if (!notice_)
        notice_ = new NoticeLine(this);
    notice_->ShowText(text);
    QResizeEvent inside(size(), size()); // for all that follows the size
    QCoreApplication::sendEvent(this, &inside);
    LendHeightToNotice();
}

QString Form::Notice() const
{
    return notice_ ? notice_->text() : QString();
}

int Form::NoticeHeight() const
{
    return contentsMargins().bottom();
}

int Form::LentHeight() const
{
    return place_->LentHeight();
}

QSize Form::Cut() const
{
    return place_->Cut();
}

// Controls that follow the size are in sight all the same; for the others the surface scrolls.
void Form::ScrollWhatIsCut()
{
    anchors_.Follow();
    QRect taken;
    const auto children = Surface()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *child : children)
        if (!child->isHidden() && !child->isWindow())
            taken |= child->geometry();
    const QSize needed(taken.right() + 1, taken.bottom() + 1);
    if (surface_ || Cut() == QSize(0, 0) || QRect(QPoint(), Surface()->size()).contains(taken))
        return;
    const QPointer<QWidget> focus = focusWidget();
    const bool hasColor = Surface()->autoFillBackground();
    auto *area = new QScrollArea(this);
    surface_ = takeCentralWidget();
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    surface_->setMinimumSize(needed);
    area->setWidget(surface_);
    surface_->setAutoFillBackground(hasColor);
    setCentralWidget(area);
    surface_->show();
    if (focus)
        focus->setFocus();
}

void Form::PlaceNotice()
{
    if (!notice_)
        return;
    const int lineHeight = notice_->isHidden() ? 0 : notice_->heightForWidth(width());
    if (lineHeight != NoticeHeight()) {
        setContentsMargins(0, 0, 0, lineHeight);
        layout()->activate(); // what follows asks the surface for its size
    }
    notice_->setGeometry(0, height() - lineHeight, width(), lineHeight);
}

// Not at each resize: a person who makes the window smaller would be fought.
void Form::LendHeightToNotice()
{
    int lowest = 0;
    const auto children = Surface()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *child : children)
        if (!child->isHidden())
            lowest = std::max(lowest, child->geometry().bottom() + 1);
    const int cut = lowest - (Surface()->height() - LentHeight());
    const int below = screen()->availableGeometry().bottom() - (frameGeometry().bottom() - LentHeight());
    place_->LendHeight(std::clamp(cut, 0, std::clamp(below, 0, NoticeHeight())));
}

void Form::RegisterControls()
{
    RegisterWidgetsIn(*Surface());
    if (auto *bar = findChild<QMenuBar *>(QString(), Qt::FindDirectChildrenOnly))
        RegisterMenus(bar->actions());
    SpeakToScreenReaders(controls_);
    designCaption_ = windowTitle();
    designHelp_ = whatsThis();
    designGeometry_ = DesignOf(*this);
    place_->SetDesign(designGeometry_, size());
}

void Form::RegisterControl(std::unique_ptr<Control> control, const QString &help)
{
    const QWidget *widget = control->Widget();
    Q_ASSERT(widget || !help.isEmpty());
    control->TakeDesign(widget ? widget->whatsThis() : help);
    controls_.push_back(std::move(control));
}

void Form::RegisterWidgetsIn(const QWidget &container)
{
    const QObjectList children = container.children();
    for (QObject *child : children) {
        auto *widget = qobject_cast<QWidget *>(child);
        if (!widget || widget->isWindow() || widget->objectName().startsWith("qt_"_L1))
            continue;
        if (!widget->objectName().isEmpty())
            RegisterControl(MakeControl(*widget));
        if (const auto *tabs = qobject_cast<QTabWidget *>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                RegisterWidgetsIn(*tabs->widget(i));
        else if (IsFrame(*widget))
            RegisterWidgetsIn(*widget);
    }
}

void Form::RegisterMenus(const QList<QAction *> &actions)
{
    for (QAction *action : actions) {
        QMenu *menu = action->menu();
        const QObject *named = menu ? static_cast<QObject *>(menu) : action;
        if (menu) { // whose designed texts its action does not take
            action->setToolTip(menu->toolTip());
            action->setWhatsThis(menu->whatsThis());
        }
        if (named->objectName().startsWith("mnu"_L1)) {
            auto control = std::make_unique<MenuControl>(IdOf(*named, u"Menu"_s), *action);
            control->SetTag(named->property("Tag").toString());
            control->TakeDesign(action->whatsThis());
            controls_.push_back(std::move(control));
        }
        if (menu)
            RegisterMenus(menu->actions());
    }
}

void Form::LoadTexts()
{
    services_.LoadProperties(*this);
}

void Form::SaveTexts()
{
    Q_ASSERT(unloading_); // it ends what LoadTexts began: nothing is kept of a form that goes on after it
    anchors_.PutBack();
    services_.SaveProperties(*this);
}

bool Form::event(QEvent *event)
{
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        emit QuestionsToEnd();
        EndModal();
    } else if (event->type() == QEvent::WindowStateChange && loaded_ && IsNormal()) {
        if (notice_)
            LendHeightToNotice();
        Form_Resize();
    }
    return handled;
}

void Form::closeEvent(QCloseEvent *event)
{
    if (!loaded_)
        return;
    if (!unloading_)
        QueryUnload();
    event->setAccepted(!loaded_);
}

void Form::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    PlaceNotice();
    if (loaded_ && IsNormal())
        Form_Resize();
    anchors_.Follow();
}

bool Form::IsNormal() const
{
    return !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

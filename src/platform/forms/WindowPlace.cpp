#include "platform/forms/WindowPlace.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWindow>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto untilFrameIsKnown = 300ms;
constexpr auto untilSizeIsTaken = 200ms;
constexpr auto untilStateIsTold = 100ms; // a window may be told its maximised size before that it is maximised

// A window that is not on the screen has no frame yet; another one that is has the same as a rule.
QMargins MarginsOfAnother()
{
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (window->isVisible() && window->windowType() == Qt::Window && window->windowHandle()) {
            const QMargins margins = window->windowHandle()->frameMargins();
            if (!margins.isNull())
                return margins;
        }
    }
    return {};
}

QList<QRect> AvailableScreens()
{
    QList<QRect> result;
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        result.append(screen->availableGeometry());
    return result;
}

} // namespace

bool SystemPlacesWindows()
{
    return QGuiApplication::platformName().startsWith(u"wayland");
}

WindowPlace::WindowPlace(QWidget &window) : window_(window)
{
    settling_.setSingleShot(true);
    seeing_.setSingleShot(true);
    connect(&settling_, &QTimer::timeout, this, &WindowPlace::GoOnSettling);
    connect(&seeing_, &QTimer::timeout, this, &WindowPlace::See);
    window_.installEventFilter(this);
}

void WindowPlace::SetDesign(const Geometry &outerTwips, QSize innerPixels)
{
    design_ = outerTwips;
    designedInside_ = innerPixels;
    SetStored(outerTwips);
}

void WindowPlace::SetStored(const Geometry &twips)
{
    stored_ = twips;
    baseline_.reset();
    if (!window_.isVisible()) {
        Apply();
    } else if (IsNormal()) {
        Apply();
        BeginToSettle();
    }
}

Geometry WindowPlace::Stored() const
{
    return StoredAt(NormalPlace());
}

QSize WindowPlace::NormalSize() const
{
    return NormalPlace().size();
}

QRect WindowPlace::NormalPlace() const
{
    return IsNormal() ? PlaceNow() : seen_;
}

// Of the inside, without the height that is lent, and as large as it would be on a larger screen.
QRect WindowPlace::PlaceNow() const
{
    return window_.geometry().adjusted(0, 0, cut_.width(), cut_.height() - lentHeight_);
}

Geometry WindowPlace::StoredAt(const QRect &inner) const
{
    if (!baseline_)
        return stored_;
    const Geometry moved = ToTwips({inner.topLeft() - baseline_->topLeft(), inner.size() - baseline_->size()});
    const Geometry outer = ToTwips({QPoint(), inner.size().grownBy(*margins_)});
    const auto changed = [](double stored, double design, double by, double now) {
        return by != 0 && stored == design ? now : stored + by;
    };
    return {stored_.left + moved.left, stored_.top + moved.top,
            changed(stored_.width, design_.width, moved.width, outer.width),
            changed(stored_.height, design_.height, moved.height, outer.height)};
}

bool WindowPlace::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
        if (!event->spontaneous()) {
            stored_ = StoredAt(seen_); // what a person did to it when it was last shown
            baseline_.reset();
            // At first it stands where it was put before it had a native window, which is when a place includes the frame.
            isShown_ = true;
            if (margins_)
                Apply();
            FitToScreen();
            BeginToSettle();
        }
        break;
    case QEvent::Hide:
        if (!event->spontaneous()) {
            settling_.stop();
            if (seeing_.isActive()) {
                seeing_.stop();
                seen_ = PlaceNow();
            }
            isShown_ = false;
            FitToScreen();
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (IsNormal())
            seeing_.start(untilStateIsTold);
        break;
    case QEvent::WindowStateChange:
        seeing_.stop();
        if (IsNormal() && !baseline_)
            BeginToSettle();
        else if (IsNormal())
            seeing_.start(untilStateIsTold);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool WindowPlace::IsNormal() const
{
    return window_.isVisible()
           && !(window_.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

void WindowPlace::Apply()
{
    const bool nothingStored = stored_.width <= 0 || stored_.height <= 0;
    if (nothingStored || window_.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    // The shipped place is made for a large screen; a small one, or one with large pixels, would cut the window. Where a
    // person has put it is that person's affair, as long as it can be reached.
    const bool isShipped = stored_.left == design_.left && stored_.top == design_.top;
    const auto position = isShipped ? WholePosition : ReachablePosition;
    window_.move(position(ToPixels(stored_), AvailableScreens()));
    ResizeInside();
}

void WindowPlace::ResizeInside()
{
    QSize inside = ToPixels(stored_).size().shrunkBy(margins_ ? *margins_ : MarginsOfAnother());
    if (stored_.width == design_.width)
        inside.setWidth(designedInside_.width());
    if (stored_.height == design_.height)
        inside.setHeight(designedInside_.height());
    window_.resize(inside.grownBy({0, 0, 0, lentHeight_}) - cut_);
    FitToScreen();
}

// A window opens no larger than its screen; where it would be, it stands whole on the screen. Hidden it has its full size.
void WindowPlace::FitToScreen()
{
    if (window_.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    const QSize full = window_.size() + cut_;
    QSize cut(0, 0);
    if (isShown_) {
        const QScreen *under = QGuiApplication::screenAt(window_.geometry().center());
        const QRect room = (under ? under : window_.screen())->availableGeometry();
        const QMargins frame = margins_ ? *margins_ : MarginsOfAnother();
        cut = (full.grownBy(frame) - room.size()).expandedTo({0, 0});
        if (cut != QSize(0, 0)) {
            window_.setMinimumSize(window_.minimumSize().boundedTo(full - cut));
            window_.move(WholePosition({window_.pos(), full.grownBy(frame) - cut}, {room}));
        }
    }
    if (cut == cut_)
        return;
    cut_ = cut;
    window_.resize(full - cut_);
    emit WasCut();
}

void WindowPlace::LendHeight(int pixels)
{
    if (pixels == lentHeight_ || (window_.isVisible() && !IsNormal()))
        return;
    const int grown = pixels - std::exchange(lentHeight_, pixels);
    window_.resize(window_.size().grownBy({0, 0, 0, grown}));
}

void WindowPlace::BeginToSettle()
{
    frameIsTaken_ = false;
    settling_.start(untilFrameIsKnown);
}

void WindowPlace::GoOnSettling()
{
    if (!IsNormal())
        return; // begins anew when it is normal again
    if (!frameIsTaken_) {
        margins_ = window_.windowHandle()->frameMargins();
        frameIsTaken_ = true;
        if (stored_.width > 0 && stored_.height > 0)
            ResizeInside();
        settling_.start(untilSizeIsTaken);
    } else {
        baseline_ = PlaceNow();
        seen_ = *baseline_;
        emit Settled();
    }
}

void WindowPlace::See()
{
    if (IsNormal())
        seen_ = PlaceNow();
}

#include "platform/forms/Geometry.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

QRect ToPixels(const Geometry &twips)
{
    const auto pixel = [](double number) { return qRound(number / twipsPerPixel); };
    return {pixel(twips.left), pixel(twips.top), pixel(twips.width), pixel(twips.height)};
}

Geometry ToTwips(const QRect &pixels)
{
    return {pixels.x() * twipsPerPixel, pixels.y() * twipsPerPixel, pixels.width() * twipsPerPixel,
            pixels.height() * twipsPerPixel};
}

Geometry KeptOnScreen(Geometry window, QSize screenPixels)
{
    const auto kept = [](double edge, int pixels) {
        return edge < 0 || edge > pixels * twipsPerPixel - 100 ? 0 : edge;
    };
    window.left = kept(window.left, screenPixels.width());
    window.top = kept(window.top, screenPixels.height());
    return window;
}

QSize ScreenPixels()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {};
    const QRect all = screen->virtualGeometry();
    return {all.right() + 1, all.bottom() + 1};
}

QPoint ReachablePosition(const QRect &outerPixels, const QList<QRect> &screens)
{
    constexpr QSize grip(100, 20); // of the title bar, enough to drag it
    const QSize needed(std::min(grip.width(), outerPixels.width()), grip.height());
    const QRect titleBar(outerPixels.topLeft(), QSize(outerPixels.width(), grip.height()));
    const bool reachable = std::any_of(screens.begin(), screens.end(), [&](const QRect &screen) {
        const QSize inView = titleBar.intersected(screen).size();
        return inView.width() >= needed.width() && inView.height() >= needed.height();
    });
    if (reachable || screens.isEmpty())
        return outerPixels.topLeft();
    const QRect &screen = screens.first();
    const auto between = [](int low, int value, int high) { return std::max(low, std::min(value, high)); };
    return {between(screen.left(), outerPixels.x(), screen.right() + 1 - needed.width()),
            between(screen.top(), outerPixels.y(), screen.bottom() + 1 - needed.height())};
}

QPoint WholePosition(const QRect &outerPixels, const QList<QRect> &screens)
{
    if (screens.isEmpty())
        return outerPixels.topLeft();
    const auto holder = std::find_if(screens.begin(), screens.end(),
                                     [&](const QRect &screen) { return screen.contains(outerPixels.topLeft()); });
    const QRect &screen = holder == screens.end() ? screens.first() : *holder;
    const auto within = [](int low, int value, int high) { return std::max(low, std::min(value, high)); };
    return {within(screen.left(), outerPixels.x(), screen.right() + 1 - outerPixels.width()),
            within(screen.top(), outerPixels.y(), screen.bottom() + 1 - outerPixels.height())};
}

#include "texts/Help.h"

#include "platform/forms/WindowPlace.h"
#include "ui_Help.h"

#include <QKeyEvent>
#include <QScreen>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

// From the moment that a window comes up, or another one goes, until the system has settled which one has the keyboard focus.
constexpr auto settlingTime = 1s;

constexpr int margin = 8;    // around the text
constexpr int distance = 12; // from the window that it first stands beside

// To the right of a window; to its left or as far right as can be where there is no room.
QPoint PlaceBeside(const QWidget &other, QSize size)
{
    const QRect screen = other.screen()->availableGeometry();
    const QRect taken = other.frameGeometry();
    int left = taken.right() + distance;
    if (left + size.width() > screen.right() && taken.left() - distance - size.width() >= screen.left())
        left = taken.left() - distance - size.width();
    return {qMax(screen.left(), qMin(left, screen.right() - size.width() - distance)), qMax(screen.top(), taken.top())};
}

} // namespace

Help::Help(FormServices &services, const QWidget &beside)
    : Form(QStringLiteral("Help"), services), ui_(std::make_unique<Ui::Help>())
{
    ui_->setupUi(this);
    move(PlaceBeside(beside, size()));
    RegisterControls();
    setAttribute(Qt::WA_ShowWithoutActivating);
}

Help::~Help() = default;

void Help::ShowText(const QString &text, Form &asker)
{
    Load();
    ui_->HelpText->setPlainText(text);
    if (&asker != this)
        ComeUp(asker);
}

void Help::ComeUp(Form &asker)
{
    // A window that is modal to the whole program would block all but those that it owns. Where the system places the
    // windows, one that becomes active covers all but those that it owns.
    const bool isOwned = asker.windowModality() == Qt::ApplicationModal || SystemPlacesWindows();
    QWindow *owner = isOwned ? asker.windowHandle() : nullptr;
    winId(); // makes the window that the owner is set of
    if (windowHandle()->transientParent() != owner) {
        hide();
        windowHandle()->setTransientParent(owner);
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    asker_ = asker.windowHandle();
    if (!isVisible())
        handsOn_.setRemainingTime(settlingTime);
    show();
    asker.activateWindow();
    raise(); // last, or an asker as large as that would cover it
}

// Wayland's compositors, and some window managers, make each window that comes up the active one, whatever it asks for.
bool Help::event(QEvent *event)
{
    // Afterwards, as Qt asks for this window itself while it becomes active.
    if (event->type() == QEvent::WindowActivate && asker_ && !handsOn_.hasExpired())
        QTimer::singleShot(0, asker_, [asker = asker_.get()] { asker->requestActivate(); });
    return Form::event(event);
}

// When the asker goes, its owner gets the keyboard focus, and not this window, which may lie nearest.
bool Help::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && watched == asker_) {
        asker_ = asker_->transientParent();
        handsOn_.setRemainingTime(settlingTime);
    }
    return Form::eventFilter(watched, event);
}

void Help::Form_Load()
{
    LoadTexts();
    Form_Resize();
}

void Help::Form_Unload()
{
    ui_->HelpText->clear(); // what was asked about last is nothing to keep
    SaveTexts();
}

void Help::Form_Resize()
{
    ui_->HelpText->setGeometry(Surface()->rect().adjusted(margin, margin, -margin, -margin));
}

bool Help::Form_KeyDown(QKeyEvent &event)
{
    if (event.key() != Qt::Key_Escape)
        return false;
    close();
    return true;
}

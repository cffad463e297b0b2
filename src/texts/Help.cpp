#include "texts/Help.h"

#include "ui_Help.h"

#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

namespace {

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
    // A window that is modal to the whole program would block all but those that it owns.
    QWindow *owner = asker.windowModality() == Qt::ApplicationModal ? asker.windowHandle() : nullptr;
    winId(); // makes the window that the owner is set of
    if (windowHandle()->transientParent() != owner) {
        hide();
        windowHandle()->setTransientParent(owner);
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    asker.activateWindow();
    raise(); // last, or an asker as large as that would cover it
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

#include "settings/AdminForm.h"

#include "platform/forms/Prompts.h"
#include "ui_AdminForm.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

// Calls back when the left mouse button was pressed and released over a widget.
class ClickWatch : public QObject
{
public:
    ClickWatch(QWidget *widget, std::function<void()> clicked) : QObject(widget), clicked_(std::move(clicked))
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonRelease) {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            const auto *widget = static_cast<QWidget *>(watched);
            if (mouse->button() == Qt::LeftButton && widget->rect().contains(mouse->position().toPoint())) {
                // queued: the box has to see the release before a dialog takes the mouse
                QMetaObject::invokeMethod(this, clicked_, Qt::QueuedConnection);
            }
        }
        return false;
    }

private:
    std::function<void()> clicked_;
};

} // namespace

AdminForm::AdminForm(FormServices &services, Prompts &prompts, FileTest fileExists, FileTest isOwnJobsFile)
    : Form(QStringLiteral("AdminForm"), services),
      ui_(std::make_unique<Ui::AdminForm>()),
      prompts_(prompts),
      fileExists_(std::move(fileExists)),
      isOwnJobsFile_(std::move(isOwnJobsFile))
{
    ui_->setupUi(this);
    RegisterControls();
    RegisterControl(std::make_unique<Control>(QStringLiteral("EnterpriseMDBCommonDialog"), std::nullopt,
                                              QStringLiteral("CommonDialog")),
                    QLatin1String(QT_TRANSLATE_NOOP(
                        "AdminForm", "The window in which you pick the company database. It opens when you click its "
                                     "location; what you pick is used when you press OK.")));
    SetDefaultButton(ui_->OKButton);
    connect(ui_->OKButton, &QPushButton::clicked, this, &AdminForm::OKButton_Click);
    new ClickWatch(ui_->EnterpriseMDBText, [this] { EnterpriseMDBText_Click(); });
}

AdminForm::~AdminForm() = default;

Options AdminForm::CurrentOptions() const
{
    Options options = accepted_;
    options.AutoUpdate = options.AutoUpdate && autoCheckEnabled_;
    return options;
}

void AdminForm::SetUserName(const QString &name, bool lock)
{
    accepted_.UserName = name;
    ui_->UserName->setText(name);
    ui_->UserName->setReadOnly(lock);
    QPalette look = palette();
    if (lock)
        look.setColor(QPalette::Base, look.color(QPalette::Window));
    ui_->UserName->setPalette(look);
}

void AdminForm::ShowPathInEffect(const QString &path)
{
    const bool edited = ShownPath() != accepted_.EnterpriseMDBText;
    accepted_.EnterpriseMDBText = QDir::toNativeSeparators(path);
    autoCheckEnabled_ = CanAutoUpdate(accepted_.EnterpriseMDBText);
    if (!edited) {
        ui_->EnterpriseMDBText->setText(accepted_.EnterpriseMDBText);
        ui_->AutoCheck->setEnabled(autoCheckEnabled_);
    }
}

void AdminForm::SetSharedListPossible(bool possible)
{
    sharedListPossible_ = possible;
    autoCheckEnabled_ = CanAutoUpdate(accepted_.EnterpriseMDBText);
    ui_->AutoCheck->setEnabled(autoCheckEnabled_);
}

void AdminForm::Form_Load()
{
    LoadTexts();
    if (!ui_->Round30min->isChecked() && !ui_->Round1Hour->isChecked())
        ui_->Round15min->setChecked(true); // one of the three is needed, whatever was stored
    EnableAutoCheck(ShownPath());
    Accept();
}

void AdminForm::Form_Unload()
{
    Restore();
    SaveTexts();
}

bool AdminForm::QueryUnload()
{
    Restore();
    hide(); // it stays loaded, and is written back when it unloads
    return false;
}

void AdminForm::showEvent(QShowEvent *event)
{
    Form::showEvent(event);
    if (ui_->UserName->isReadOnly())
        ui_->TipsCheck->setFocus();
    else
        ui_->UserName->setFocus();
}

bool AdminForm::Form_KeyDown(QKeyEvent &event)
{
    if (event.key() == Qt::Key_Escape) {
        close();
        return true;
    }
    const bool drop =
        event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
    if (drop && focusWidget() == ui_->EnterpriseMDBText) {
        EnterpriseMDBText_Click();
        return true;
    }
    return false;
}

void AdminForm::OKButton_Click()
{
    const QString path = ShownPath();
    if (path != accepted_.EnterpriseMDBText) {
        if (fileExists_(path)) {
            EnableAutoCheck(path);
        } else {
            ui_->EnterpriseMDBText->setText(accepted_.EnterpriseMDBText);
            ui_->AutoCheck->setEnabled(autoCheckEnabled_);
        }
    }
    Accept();
    emit Accepted();
    hide();
}

void AdminForm::EnterpriseMDBText_Click()
{
    const QString shown = ShownPath();
    const QString picked =
        prompts_.PickFile(this, QStringLiteral("Locate Company Data Base"),
                          shown.isEmpty() ? QStringLiteral("Jobs.mdb") : shown, QStringLiteral("*.mdb"));
    if (!picked.isEmpty()) {
        const QString path = QDir::toNativeSeparators(picked);
        ui_->EnterpriseMDBText->setText(path);
        EnableAutoCheck(path);
    }
}

QString AdminForm::ShownPath() const
{
    return QDir::toNativeSeparators(ui_->EnterpriseMDBText->text().trimmed());
}

// A share that is slow, or away, takes its time to answer.
bool AdminForm::IsOwnJobsFile(const QString &path)
{
    if (!ownJobsFile_ || ownJobsFile_->first != path)
        ownJobsFile_.emplace(path, isOwnJobsFile_(path));
    return ownJobsFile_->second;
}

bool AdminForm::CanAutoUpdate(const QString &path)
{
    const bool another = path != accepted_.EnterpriseMDBText; // of which nothing is known yet
    return (sharedListPossible_ || another) && !IsOwnJobsFile(path);
}

// The tick goes with the program folder's own file, which has nothing to be renewed from. It stays while the shared list is
// merely out of reach.
void AdminForm::EnableAutoCheck(const QString &path)
{
    ui_->AutoCheck->setEnabled(CanAutoUpdate(path));
    if (IsOwnJobsFile(path))
        ui_->AutoCheck->setChecked(false);
}

void AdminForm::Accept()
{
    accepted_.UserName = ui_->UserName->text();
    accepted_.AdminMode = ui_->AdminCheck->isChecked();
    accepted_.CanSetOthersStatus = ui_->SuperCheck->isChecked();
    accepted_.AutoUpdate = ui_->AutoCheck->isChecked();
    accepted_.PopUpMessages = ui_->PopCheck->isChecked();
    accepted_.ShowToolTips = ui_->TipsCheck->isChecked();
    accepted_.SummaryRounding = ui_->Round1Hour->isChecked()   ? Rounding::WholeHours
                                : ui_->Round30min->isChecked() ? Rounding::HalfHours
                                                               : Rounding::Quarters;
    accepted_.DaysInGrid = ui_->DaysInGrid->text();
    accepted_.PollDelay = ui_->PollDelay->text();
    accepted_.EnterpriseMDBText = ShownPath();
    autoCheckEnabled_ = ui_->AutoCheck->isEnabled();
}

void AdminForm::Restore()
{
    ui_->UserName->setText(accepted_.UserName);
    ui_->AdminCheck->setChecked(accepted_.AdminMode);
    ui_->SuperCheck->setChecked(accepted_.CanSetOthersStatus);
    ui_->AutoCheck->setChecked(accepted_.AutoUpdate);
    ui_->PopCheck->setChecked(accepted_.PopUpMessages);
    ui_->TipsCheck->setChecked(accepted_.ShowToolTips);
    ui_->Round15min->setChecked(accepted_.SummaryRounding == Rounding::Quarters);
    ui_->Round30min->setChecked(accepted_.SummaryRounding == Rounding::HalfHours);
    ui_->Round1Hour->setChecked(accepted_.SummaryRounding == Rounding::WholeHours);
    ui_->DaysInGrid->setText(accepted_.DaysInGrid);
    ui_->PollDelay->setText(accepted_.PollDelay);
    ui_->EnterpriseMDBText->setText(accepted_.EnterpriseMDBText);
    ui_->AutoCheck->setEnabled(autoCheckEnabled_);
}

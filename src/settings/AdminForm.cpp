#include "settings/AdminForm.h"

#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "ui_AdminForm.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

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

AdminForm::AdminForm(FormServices &services, Prompts &prompts, Judge judge)
    : Form(QStringLiteral("AdminForm"), services),
      ui_(std::make_unique<Ui::AdminForm>()),
      prompts_(prompts),
      judge_(std::move(judge))
{
    ui_->setupUi(this);
    RegisterControls();
    RegisterControl(std::make_unique<Control>(QStringLiteral("EnterpriseMDBCommonDialog"), std::nullopt,
                                              QStringLiteral("CommonDialog")),
                    QLatin1String(QT_TRANSLATE_NOOP(
                        "AdminForm", "The window in which you pick the company database. It opens when you click its "
                                     "location or press Browse; what you pick is used when you press OK.")));
    SetDefaultButton(ui_->OKButton);
    connect(ui_->OKButton, &QPushButton::clicked, this, &AdminForm::OKButton_Click);
    connect(ui_->BrowseButton, &QPushButton::clicked, this, &AdminForm::EnterpriseMDBText_Click);
    connect(ui_->EnterpriseMDBText, &QLineEdit::textChanged, this, &AdminForm::EnterpriseMDBText_Change);
    for (const QLineEdit *number : {ui_->DaysInGrid, ui_->PollDelay})
        connect(number, &QLineEdit::editingFinished, this, &AdminForm::ShowNumbersInEffect);
    new ClickWatch(ui_->EnterpriseMDBText, [this] { EnterpriseMDBText_Click(); });
}

AdminForm::~AdminForm() = default;

Options AdminForm::CurrentOptions() const
{
    Options options = accepted_;
    options.AutoUpdate = options.AutoUpdate && canAutoUpdate_;
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
    const bool edited = ShownPath() != pathInEffect_;
    pathInEffect_ = QDir::toNativeSeparators(path);
    if (!edited)
        ui_->EnterpriseMDBText->setText(pathInEffect_);
}

void AdminForm::SetSharedListPossible(bool possible)
{
    canAutoUpdate_ = possible;
    if (!IsPathChanged())
        ui_->AutoCheck->setEnabled(possible);
}

void AdminForm::Form_Load()
{
    LoadTexts();
    if (ui_->PathLabel->geometry().intersects(ui_->AutoCheck->geometry()))
        ShowShippedLayout(); // the stored places are of a version without that line
    if (!ui_->Round30min->isChecked() && !ui_->Round1Hour->isChecked())
        ui_->Round15min->setChecked(true); // one of the three is needed, whatever was stored
    Accept();
    accepted_.EnterpriseMDBText = pathInEffect_ = ShownPath();
    ShowRunTimeTexts();
}

void AdminForm::Form_Unload()
{
    Restore();
    ui_->EnterpriseMDBText->setText(accepted_.EnterpriseMDBText); // whatever stands in for it just now
    ui_->PathLabel->clear();
    SaveTexts();
}

void AdminForm::QueryUnload()
{
    Restore();
    hide(); // it stays loaded, and is written back when it unloads
}

void AdminForm::showEvent(QShowEvent *event)
{
    Form::showEvent(event);
    if (!event->spontaneous())
        JudgePath();
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
    okWaits_ = IsPathChanged() && !judgement_;
    if (okWaits_)
        return;
    ShowNumbersInEffect();
    if (IsPathChanged())
        CommitPath();
    Accept();
    emit Accepted();
    hide();
}

// A file that is not there is refused: the path in effect stays, and all that belongs to it.
void AdminForm::CommitPath()
{
    const PathJudgement judgement = *judgement_;
    if (judgement.Exists()) {
        accepted_.EnterpriseMDBText = pathInEffect_ = ShownPath();
        canAutoUpdate_ = judgement.canAutoUpdate;
        if (judgement.isOwnFile) // which has nothing to be renewed from
            ui_->AutoCheck->setChecked(false);
    }
    RestorePath();
}

void AdminForm::EnterpriseMDBText_Click()
{
    const QString shown = ShownPath();
    prompts_.PickFile(this, Say("Locate Company Data Base"), shown.isEmpty() ? QStringLiteral("Jobs.mdb") : shown,
                      QStringLiteral("*.mdb"), [this](const QString &picked) {
                          if (picked.isEmpty())
                              return;
                          pickedPath_ = QDir::toNativeSeparators(picked);
                          ui_->EnterpriseMDBText->setText(pickedPath_);
                      });
}

void AdminForm::EnterpriseMDBText_Change()
{
    okWaits_ = false;
    if (isVisible())
        JudgePath();
}

void AdminForm::JudgePath()
{
    const QString path = ShownPath();
    judgement_.reset();
    if (path.isEmpty()) {
        TakeJudgement(PathJudgement());
        return;
    }
    ShowRunTimeTexts();
    judge_(path, [this, self = QPointer(this), path](const PathJudgement &judgement) {
        if (self && path == ShownPath()) // else it is that of an older text
            TakeJudgement(judgement);
    });
}

void AdminForm::TakeJudgement(const PathJudgement &judgement)
{
    judgement_ = judgement;
    ui_->AutoCheck->setEnabled(IsPathChanged() ? judgement.canAutoUpdate : canAutoUpdate_);
    ShowRunTimeTexts();
    if (std::exchange(okWaits_, false))
        OKButton_Click();
}

void AdminForm::ShowRunTimeTexts()
{
    QString text = judgement_ && !ShownPath().isEmpty() ? judgement_->Text() : QString();
    const QString &chosen = accepted_.EnterpriseMDBText;
    const bool isStandIn = !IsPathChanged() && !chosen.isEmpty() && pathInEffect_ != chosen;
    if (isStandIn)
        text = Say("Stands in for %1, which is not there.").arg(chosen);
    else if (judgement_ && !judgement_->Exists() && IsPathChanged())
        text += Say(" OK keeps the file in use.");
    const QLabel &line = *ui_->PathLabel;
    ui_->PathLabel->setText(line.fontMetrics().elidedText(text, Qt::ElideMiddle, line.contentsRect().width()));
}

QString AdminForm::ShownPath() const
{
    return QDir::toNativeSeparators(ui_->EnterpriseMDBText->text().trimmed());
}

// To pick the file that stands in for the chosen one is to choose it.
bool AdminForm::IsPathChanged() const
{
    const QString path = ShownPath();
    return path != pathInEffect_ || (path == pickedPath_ && path != accepted_.EnterpriseMDBText);
}

void AdminForm::ShowNumbersInEffect()
{
    ui_->DaysInGrid->setText(QString::number(DaysToShow(ui_->DaysInGrid->text())));
    ui_->PollDelay->setText(QString::number(PollPeriod(ui_->PollDelay->text()).count()));
}

void AdminForm::Accept()
{
    accepted_.UserName = ui_->UserName->text();
    accepted_.AdminMode = ui_->AdminCheck->isChecked();
    accepted_.CanSetOthersStatus = ui_->SuperCheck->isChecked();
    accepted_.AutoUpdate = ui_->AutoCheck->isChecked();
    accepted_.PopUpMessages = ui_->PopCheck->isChecked();
    accepted_.ShowJob = ui_->ShowJobCheck->isChecked();
    accepted_.ShowToolTips = ui_->TipsCheck->isChecked();
    accepted_.SummaryRounding = ui_->Round1Hour->isChecked()   ? Rounding::WholeHours
                                : ui_->Round30min->isChecked() ? Rounding::HalfHours
                                                               : Rounding::Quarters;
    accepted_.DaysInGrid = ui_->DaysInGrid->text();
    accepted_.PollDelay = ui_->PollDelay->text();
}

void AdminForm::Restore()
{
    ui_->UserName->setText(accepted_.UserName);
    ui_->AdminCheck->setChecked(accepted_.AdminMode);
    ui_->SuperCheck->setChecked(accepted_.CanSetOthersStatus);
    ui_->AutoCheck->setChecked(accepted_.AutoUpdate);
    ui_->PopCheck->setChecked(accepted_.PopUpMessages);
    ui_->ShowJobCheck->setChecked(accepted_.ShowJob);
    ui_->TipsCheck->setChecked(accepted_.ShowToolTips);
    ui_->Round15min->setChecked(accepted_.SummaryRounding == Rounding::Quarters);
    ui_->Round30min->setChecked(accepted_.SummaryRounding == Rounding::HalfHours);
    ui_->Round1Hour->setChecked(accepted_.SummaryRounding == Rounding::WholeHours);
    ui_->DaysInGrid->setText(accepted_.DaysInGrid);
    ui_->PollDelay->setText(accepted_.PollDelay);
    RestorePath();
}

void AdminForm::RestorePath()
{
    pickedPath_.clear();
    ui_->EnterpriseMDBText->setText(pathInEffect_);
    ui_->AutoCheck->setEnabled(canAutoUpdate_);
}

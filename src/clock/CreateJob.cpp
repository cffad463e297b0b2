#include "clock/CreateJob.h"

#include "clock/JobLists.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "startup/JobDatabase.h"
#include "ui_CreateJob.h"

#include <QScrollBar>
#include <QTimer>

#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::chrono::milliseconds patience{700}; // before a person is told that there is no answer yet

// Two lists of one line a job stay in step.
void MoveTogether(QListWidget *a, QListWidget *b)
{
    QObject::connect(a->verticalScrollBar(), &QScrollBar::valueChanged, b->verticalScrollBar(), &QScrollBar::setValue);
    QObject::connect(a, &QListWidget::currentRowChanged, b, qOverload<int>(&QListWidget::setCurrentRow));
}

} // namespace

CreateJob::CreateJob(FormServices &services, Prompts &prompts, JobDatabase &jobDatabase, const JobLists &lists)
    : Form(QStringLiteral("CreateJob"), services),
      ui_(std::make_unique<Ui::CreateJob>()),
      prompts_(prompts),
      jobDatabase_(jobDatabase),
      lists_(lists)
{
    ui_->setupUi(this);
    RegisterControls();
    SetDefaultButton(ui_->OKButton);
    SetCancelButton(ui_->ExitButton);

    connect(ui_->ApplyButton, &QPushButton::clicked, this, &CreateJob::ApplyButton_Click);
    connect(ui_->OKButton, &QPushButton::clicked, this, &CreateJob::OKButton_Click);
    connect(ui_->ExitButton, &QPushButton::clicked, this, &CreateJob::ExitButton_Click);
    MoveTogether(ui_->List1, ui_->List2);
    MoveTogether(ui_->List2, ui_->List1);
    Anchor({ui_->ApplyButton, ui_->OKButton, ui_->ExitButton}, {.x = 1});
    Anchor({ui_->JobNameText}, {.width = 1});
    Anchor({ui_->List1}, {.height = 1});
    Anchor({ui_->List2}, {.width = 1, .height = 1});
    Anchor({ui_->StatusLabel}, {.y = 1, .width = 1});
}

CreateJob::~CreateJob() = default;

void CreateJob::Form_Load()
{
    LoadTexts();
    FocusJobID();
}

void CreateJob::Form_Unload()
{
    ui_->StatusLabel->clear(); // what went wrong today is no caption to keep
    SaveTexts();
}

void CreateJob::resizeEvent(QResizeEvent *event)
{
    const QScrollBar *bar = ui_->List1->verticalScrollBar();
    const bool newestShown = bar->value() == bar->maximum();
    Form::resizeEvent(event);
    if (newestShown)
        ShowNewest();
}

void CreateJob::Save(bool thenClose)
{
    JobItem job{Projects::CleanID(ui_->JobIDText->text()), BlanksForControls(ui_->JobNameText->text()).trimmed()};
    ui_->JobIDText->setText(job.id);
    ui_->StatusLabel->clear();
    if (job.id.isEmpty())
        return Refuse(Say("Job ID must be filled in"));
    if (Projects::IsListed(lists_.CompanyList, job.id))
        return Refuse(Say("This Job ID is already used"));
    if (job.name.isEmpty())
        job.name = job.id;

    SetWaiting(true);
    jobDatabase_.CreateJob(
        this, job, [this, job, thenClose](Projects::Creation creation) { Answered(creation, job, thenClose); });
    QTimer::singleShot(patience, this, [this] {
        if (waiting_)
            ui_->StatusLabel->setText(
                Say("The job list has not answered yet. Please wait. If you leave, the job may still be stored."));
    });
}

void CreateJob::Answered(Projects::Creation creation, const JobItem &job, bool thenClose)
{
    SetWaiting(false);
    ui_->StatusLabel->clear();
    if (!IsLoaded()) // the person did not wait
        return;
    switch (creation) {
    case Projects::Creation::Stored:
        ShowStored(job);
        if (thenClose)
            Unload();
        break;
    case Projects::Creation::AlreadyUsed: // another copy was faster than the list
        Refuse(Say("This Job ID is already used"));
        break;
    case Projects::Creation::Failed:
        ui_->StatusLabel->setText(
            Say("The job was not stored, because the job list could not be written. Please try again."));
        FocusJobID();
        break;
    }
}

void CreateJob::ShowStored(const JobItem &job)
{
    ui_->List1->addItem(job.id);
    ui_->List2->addItem(job.name);
    ShowNewest();
    ui_->JobIDText->setText(Projects::NextID(job.id));
    ui_->JobNameText->clear();
    FocusJobID();
}

void CreateJob::ShowNewest()
{
    ui_->List1->scrollToBottom();
    ui_->List2->scrollToBottom();
}

void CreateJob::Refuse(const QString &message)
{
    prompts_.MsgBox(
        this, message, [this] { FocusJobID(); });
}

void CreateJob::SetWaiting(bool waiting)
{
    waiting_ = waiting;
    if (waiting) // else the focus would go on from a disabled button to the next one, and a further Enter would press Exit
        ui_->JobIDText->setFocus();
    ui_->ApplyButton->setEnabled(!waiting);
    ui_->OKButton->setEnabled(!waiting);
    ui_->JobIDText->setReadOnly(waiting);
    ui_->JobNameText->setReadOnly(waiting);
}

void CreateJob::FocusJobID()
{
    ui_->JobIDText->setFocus();
    ui_->JobIDText->selectAll();
}

#include "clock/IOQuery.h"

#include "clock/Clock.h"
#include "clock/DateText.h"
#include "platform/forms/Prompts.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"
#include "platform/system/TimeSource.h"
#include "ui_IOQuery.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

IOQuery::IOQuery(FormServices &services, Prompts &prompts, const TimeSource &time, const ClockState &clock,
                 OutQueryAt at)
    : Form(QStringLiteral("IOQuery"), services),
      ui_(std::make_unique<Ui::IOQuery>()),
      prompts_(prompts),
      time_(time),
      clock_(clock),
      at_(at)
{
    ui_->setupUi(this);
    RegisterControls();

    connect(
        ui_->Options_1, &QRadioButton::clicked, this, [this] { Options_Click(1); });
    connect(ui_->Options_3, &QRadioButton::clicked, this, [this] { Options_Click(3); });
    connect(ui_->Commands_0, &QPushButton::clicked, this, &IOQuery::Commands_Click);
    connect(ui_->StayButton, &QPushButton::clicked, this, &IOQuery::StayButton_Click);
    connect(ui_->Texts_0, &QLineEdit::textEdited, this, &IOQuery::Texts_Change);
}

IOQuery::~IOQuery() = default;

void IOQuery::Abandon()
{
    abandoned_ = true;
    Unload();
}

void IOQuery::Form_Load()
{
    LoadTexts();
    ui_->Texts_0->setText(DateTimeText(time_.Now(), QLocale()));
    ui_->StayButton->setVisible(at_ == OutQueryAt::Closing);
    ShowRunTimeTexts();
    ui_->Options_1->setChecked(true); // the stored choice is that of another day
    ui_->Options_1->setFocus();
}

void IOQuery::Form_Unload()
{
    if (!abandoned_ && !staysOpen_)
        CarryOut();
    SaveTexts();
}

void IOQuery::ShowRunTimeTexts()
{
    ui_->Labels_0->setText(ShownText(clock_.CurrentJob));
    ui_->SinceLabel->setText(clock_.OpenSince ? SinceText(*clock_.OpenSince, time_.Now(), QLocale()) : QString());
}

void IOQuery::QueryUnload()
{
    Leave();
}

void IOQuery::Options_Click(int index)
{
    const bool selected = index == 1 ? ui_->Options_1->isChecked() : ui_->Options_3->isChecked();
    if (IsLoaded() && selected)
        Unload();
}

void IOQuery::Commands_Click()
{
    if (!ui_->Options_2->isChecked())
        ui_->Options_2->setChecked(true);
    else
        Leave();
}

void IOQuery::Texts_Change()
{
    ui_->Options_2->setChecked(true);
}

void IOQuery::StayButton_Click()
{
    staysOpen_ = true;
    Unload();
}

bool IOQuery::Form_KeyDown(QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        at_ == OutQueryAt::Closing ? StayButton_Click() : static_cast<void>(close());
        return true;
    case Qt::Key_Up:
    case Qt::Key_Left:
    case Qt::Key_Down:
    case Qt::Key_Right:
        return MoveSelection(event.key());
    case Qt::Key_Return:
    case Qt::Key_Enter: // a held Enter may still be down from the window before
        return event.isAutoRepeat() || Confirm();
    default:
        return false;
    }
}

// Qt reports an arrow key as a click, which would stemp out, so the selection is moved here.
bool IOQuery::MoveSelection(int key)
{
    const std::array options{ui_->Options_1, ui_->Options_2, ui_->Options_3};
    const auto found = std::find(options.begin(), options.end(), FocusedOption());
    if (found == options.end())
        return false;
    const auto position = static_cast<std::size_t>(found - options.begin());
    const std::size_t step = key == Qt::Key_Up || key == Qt::Key_Left ? options.size() - 1 : 1;
    QRadioButton *next = options.at((position + step) % options.size());
    next->setFocus(Qt::OtherFocusReason);
    next->setChecked(true);
    return true;
}

bool IOQuery::Confirm()
{
    QRadioButton *option = FocusedOption();
    if (option == ui_->Options_1 || option == ui_->Options_3) {
        option->click();
        return true;
    }
    if (option == ui_->Options_2 || focusWidget() == ui_->Texts_0) {
        Commands_Click();
        return true;
    }
    return false;
}

QRadioButton *IOQuery::FocusedOption() const
{
    return qobject_cast<QRadioButton *>(focusWidget());
}

std::optional<QDateTime> IOQuery::TypedTime() const
{
    return ReadDateTime(ui_->Texts_0->text(), QLocale(), time_.Now());
}

bool IOQuery::CanCarryOut()
{
    if (!ui_->Options_2->isChecked() || TypedTime())
        return true;
    prompts_.MsgBox(this,
                    Say("\"%1\" is no date and time.\n\nType it like %2, or only a time of today like 8:30.")
                        .arg(ui_->Texts_0->text(), DateTimeText(time_.Now(), QLocale())),
                    [this] {
                        ui_->Texts_0->setFocus();
                        ui_->Texts_0->selectAll();
                    });
    return false;
}

void IOQuery::Leave()
{
    if (!CanCarryOut())
        return;
    out_ = ui_->Options_2->isChecked() ? TypedTime() : std::nullopt;
    Warn(out_ ? OutWarnings(*out_, time_.Now(), clock_.LastInTime) : QStringList());
}

// One box after the other.
void IOQuery::Warn(QStringList warnings)
{
    if (warnings.isEmpty() || abandoned_)
        return Unload();
    const QString first = warnings.takeFirst();
    prompts_.MsgBox(this, first, [this, warnings] { Warn(warnings); });
}

void IOQuery::CarryOut()
{
    if (ui_->Options_3->isChecked()) {
        emit StempOutAt(time_.Now());
        return;
    }
    if (out_)
        emit StempOutAt(*out_);
    else
        emit StempInLook();
}

#include "board/Status.h"

#include "board/BoxLimit.h"
#include "board/PersonalStatus.h"
#include "board/Presence.h"
#include "board/ShortText.h"
#include "platform/dao/Error.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"
#include "ui_Status.h"

#include <QCompleter>
#include <QLineEdit>
#include <QLoggingCategory>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.board")

} // namespace

Status::Status(FormServices &services, dao::Database &localDB, QString user, QString comment)
    : Form(QStringLiteral("Status"), services),
      ui_(std::make_unique<Ui::Status>()),
      localDB_(localDB),
      user_(std::move(user)),
      comment_(std::move(comment))
{
    ui_->setupUi(this);
    RegisterControls();
    SetDefaultButton(ui_->SendButton);
    SetCancelButton(ui_->CancelButton);
    QLineEdit *box = ui_->StatusCombo->lineEdit();
    box->setMaxLength(static_cast<int>(Presence::longestComment));
    KeepWholeCharacters(*box);
    box->completer()->setCompletionMode(QCompleter::PopupCompletion); // in place, it would be sent with what was typed
    ShowItemsSafely(*ui_->StatusCombo);
    box->completer()->setCaseSensitivity(Qt::CaseSensitive); // else what was typed would take a saved text's case

    connect(ui_->SaveButton, &QPushButton::clicked, this, &Status::SaveButton_Click);
    connect(ui_->RemoveButton, &QPushButton::clicked, this, &Status::RemoveButton_Click);
    connect(ui_->SendButton, &QPushButton::clicked, this, &Status::SendButton_Click);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &Status::Unload);
    connect(ui_->StatusCombo, &QComboBox::editTextChanged, ui_->StatusLabel, &QLabel::clear);
    connect(
        box, &QLineEdit::inputRejected, this,
        [this] {
            ui_->StatusLabel->setText(Say("A status has room for %1 characters. What did not fit was left out.")
                                          .arg(Presence::longestComment));
        },
        Qt::QueuedConnection); // after the text has changed
    Anchor({ui_->StatusCombo, ui_->StatusLabel}, {.width = 1});
    Anchor({ui_->SendButton, ui_->CancelButton}, {.x = 1});
}

Status::~Status() = default;

void Status::Form_Load()
{
    accepted_ = false;
    LoadTexts();
    ShowRunTimeTexts();
    FillStatusCombo();
    ui_->StatusCombo->setFocus();
    ui_->StatusCombo->lineEdit()->selectAll();
}

void Status::Form_Unload()
{
    ui_->StatusCombo->clear(); // texts about people are not kept with those of the window
    ui_->StatusCombo->clearEditText();
    ui_->StatusLabel->clear();
    setWindowTitle(DesignCaption());
    SaveTexts();
}

void Status::ShowRunTimeTexts()
{
    setWindowTitle(Say("%1 Status").arg(ShownText(user_)));
}

void Status::FillStatusCombo()
{
    ui_->StatusCombo->clear();
    QString problem;
    try {
        for (const QString &status : ReadPersonalStatus(localDB_))
            List(status);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        problem = Say("Your saved texts could not be read.");
    }
    ui_->StatusCombo->setEditText(FirstCharacters(comment_, Presence::longestComment));
    ui_->StatusLabel->setText(problem);
}

void Status::List(const QString &status)
{
    if (!status.isEmpty() && PlaceOf(status) < 0)
        ui_->StatusCombo->addItem(status);
}

int Status::PlaceOf(const QString &status) const
{
    return ui_->StatusCombo->findText(status, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

void Status::SaveButton_Click()
{
    ui_->StatusCombo->setFocus();
    const QString status = ui_->StatusCombo->currentText();
    if (status.isEmpty()) {
        ui_->StatusLabel->setText(Say("Type a text first."));
        return;
    }
    try {
        AddPersonalStatus(localDB_, status);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        ui_->StatusLabel->setText(
            Say("The text was not saved, because your database could not be written. Please try again."));
        return;
    }
    List(status);
    ui_->StatusLabel->setText(Say("Saved in the list."));
}

// The text stays in the box: saving it again takes the removal back.
void Status::RemoveButton_Click()
{
    ui_->StatusCombo->setFocus();
    const QString status = ui_->StatusCombo->currentText();
    const int place = PlaceOf(status);
    if (place < 0) {
        ui_->StatusLabel->setText(Say("This text is not in the list. Choose one from it first."));
        return;
    }
    try {
        RemovePersonalStatus(localDB_, status);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        ui_->StatusLabel->setText(
            Say("The text was not removed, because your database could not be written. Please try again."));
        return;
    }
    ui_->StatusCombo->removeItem(place);
    ui_->StatusCombo->setEditText(status);
    ui_->StatusLabel->setText(Say("Removed from the list."));
}

void Status::SendButton_Click()
{
    text_ = FirstCharacters(ui_->StatusCombo->currentText(), Presence::longestComment);
    accepted_ = true;
    Unload();
}

#include "clock/User.h"

#include "platform/forms/FormServices.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "ui_User.h"

#include <utility>

namespace {

constexpr int longestSuggestion = 10;

class NoTextStore : public FormServices
{
public:
    void LoadProperties(Form &) override {}
    void SaveProperties(Form &) override {}
};

FormServices &WithoutTexts()
{
    static NoTextStore none;
    return none;
}

} // namespace

User::User(InitialsRefusal refusal, Prompts &prompts)
    : Form(QStringLiteral("User"), WithoutTexts()),
      ui_(std::make_unique<Ui::User>()),
      refusal_(std::move(refusal)),
      prompts_(prompts)
{
    ui_->setupUi(this);
    RegisterControls();
    placeholder_ = ui_->FullName->text();
    SetDefaultButton(ui_->Command1);
    connect(ui_->Command1, &QPushButton::clicked, this, &User::Command1_Click);
}

User::~User() = default;

void User::Suggest(const QString &initials, const QString &fullName)
{
    if (initials.size() <= longestSuggestion)
        ui_->UserName->setText(initials);
    if (!fullName.isEmpty())
        ui_->FullName->setText(fullName);
}

QString User::Initials() const
{
    return ui_->UserName->text().trimmed().toUpper();
}

QString User::FullName() const
{
    const QString name = ui_->FullName->text().trimmed();
    return name == placeholder_ ? QString() : name;
}

void User::Form_Load()
{
    ui_->UserName->setFocus();
    ui_->UserName->selectAll();
}

void User::QueryUnload()
{
    Command1_Click();
}

void User::Command1_Click()
{
    const QString initials = Initials();
    const QString reason = initials.isEmpty() ? Say("Please type your initials.") : refusal_(initials);
    ui_->Refusal->setText(reason);
    ui_->UserName->setFocus();
    ui_->UserName->selectAll();
    if (reason.isEmpty()) {
        accepted_ = true;
        hide();
    } else if (!initials.isEmpty()) {
        prompts_.MsgBox(this, reason);
    }
}

bool AskInitials(QString &initials, QString &fullName, const InitialsRefusal &refusal, Prompts &prompts)
{
    User user(refusal, prompts);
    user.Suggest(initials, fullName);
    user.Load();
    WaitFor([&user](const std::function<void()> &done) {
        QObject::connect(&user, &Form::Closed, &user, done);
        user.OpenModal(nullptr);
    });
    if (!user.HasInitials())
        return false;
    initials = user.Initials();
    fullName = user.FullName();
    user.Unload();
    return true;
}

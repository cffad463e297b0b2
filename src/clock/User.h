#pragma once

#include "platform/forms/Form.h"

#include <functional>
#include <memory>

class Prompts;

namespace Ui {
class User;
}

// Says why `initials` cannot serve as an identity; empty when they can.
using InitialsRefusal = std::function<QString(const QString &initials)>;

// The small window that asks who the person is. It stays until initials were given that can serve, also when it is closed by
// its frame; only the end of the session or of the program ends it without them. Its texts are not kept in the text store.
class User : public Form
{
    Q_OBJECT

public:
    User(InitialsRefusal refusal, Prompts &prompts);
    ~User() override;

    // What the boxes hold at first. Initials of more than 10 characters, and an empty name, leave theirs as designed.
    void Suggest(const QString &initials, const QString &fullName);

    bool HasInitials() const { return accepted_; } // false when its modal display was ended from outside
    QString Initials() const;                      // trimmed, in capital letters
    QString FullName() const;                      // trimmed; empty when the box still holds its placeholder

protected:
    void Form_Load() override;
    void Form_Unload() override {}
    void QueryUnload() override;

private:
    void Command1_Click();

    std::unique_ptr<Ui::User> ui_;
    InitialsRefusal refusal_;
    Prompts &prompts_;
    QString placeholder_;
    bool accepted_ = false;
};

// Shows the window with `initials` and `fullName` (the login name) suggested, and takes over what was typed. False, with both
// left as they are, when the session or the program ended meanwhile.
bool AskInitials(QString &initials, QString &fullName, const InitialsRefusal &refusal, Prompts &prompts);

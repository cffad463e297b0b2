#pragma once

#include "platform/forms/Prompts.h"

#include <utility>
#include <vector>

// Notes every prompt and answers it as the test said beforehand, at once or, while `waits` is set, with Answer().
class AnsweredPrompts : public Prompts
{
public:
    QStringList messages; // of all kinds, in order
    bool yes = true;
    int choice = 0;
    QString file;                      // of both kinds of picker
    QString suggested;                 // the start path of the last picker
    std::function<void()> whileAsking; // what happens while a question is on the screen
    bool waits = false;

    void MsgBox(QWidget *owner, const QString &text, std::function<void()> then) override
    {
        Ask(
            owner, text,
            [then = std::move(then)] {
                if (then)
                    then();
            });
    }
    void AskYesNo(QWidget *owner, const QString &text, std::function<void(bool)> then) override
    {
        Ask(
            owner, text, [this, then = std::move(then)] { then(yes); });
    }
    void AskChoice(QWidget *owner, const QString &text, const Choice &, std::function<void(int)> then) override
    {
        Ask(
            owner, text, [this, then = std::move(then)] { then(choice); });
    }
    void PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &,
                  std::function<void(const QString &)> then) override
    {
        suggested = startPath;
        Ask(owner, title, [this, then = std::move(then)] { then(file); });
    }
    void PickSaveFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                      std::function<void(const QString &)> then) override
    {
        PickFile(owner, title, startPath, filter, std::move(then));
    }
    void EndAll() override { ended_ = true; }

    void Answer() // what stands, in order
    {
        for (const auto &[isOwned, owner, answer] : std::exchange(standing_, {}))
            if (!ended_ && (owner || !isOwned))
                answer();
    }

private:
    struct Standing
    {
        bool isOwned;
        QPointer<QWidget> owner;
        std::function<void()> answer;
    };

    void Ask(QWidget *owner, const QString &text, std::function<void()> answer)
    {
        messages.append(text);
        if (whileAsking)
            whileAsking();
        standing_.push_back({owner != nullptr, owner, std::move(answer)});
        if (!waits)
            Answer();
    }

    std::vector<Standing> standing_;
    bool ended_ = false;
};

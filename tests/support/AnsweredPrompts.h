#pragma once

#include "platform/forms/Prompts.h"

#include <QPointer>
#include <QWidget>

// Notes every prompt and answers it at once, as the test said beforehand.
class AnsweredPrompts : public Prompts
{
public:
    QStringList messages; // of all kinds, in order
    bool yes = true;
    int choice = 0;
    QString file;                      // of both kinds of picker
    QString suggested;                 // the start path of the last picker
    std::function<void()> whileAsking; // what happens while a question is on the screen

    void MsgBox(QWidget *owner, const QString &text, std::function<void()> then) override
    {
        if (IsAnswered(owner, text) && then)
            then();
    }
    void AskYesNo(QWidget *owner, const QString &text, std::function<void(bool)> then) override
    {
        if (IsAnswered(owner, text))
            then(yes);
    }
    void AskChoice(QWidget *owner, const QString &text, const Choice &, std::function<void(int)> then) override
    {
        if (IsAnswered(owner, text))
            then(choice);
    }
    void PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &,
                  std::function<void(const QString &)> then) override
    {
        suggested = startPath;
        if (IsAnswered(owner, title))
            then(file);
    }
    void PickSaveFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                      std::function<void(const QString &)> then) override
    {
        PickFile(owner, title, startPath, filter, std::move(then));
    }
    void EndAll() override { hasEnded_ = true; }

private:
    bool IsAnswered(QWidget *owner, const QString &text)
    {
        const QPointer<QWidget> asking(owner);
        messages.append(text);
        if (whileAsking)
            whileAsking();
        return !hasEnded_ && (asking || !owner); // a question goes with its window
    }

    bool hasEnded_ = false;
};

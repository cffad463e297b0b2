#pragma once

#include "platform/forms/Prompts.h"

#include <QStringList>

#include <functional>

// Notes every prompt and answers it as the test said beforehand.
class AnsweredPrompts : public Prompts
{
public:
    QStringList messages; // of all kinds, in order
    bool yes = true;
    bool firstChoice = true;
    QString file;
    std::function<void()> whileAsking; // what happens while a question is on the screen

    void MsgBox(QWidget *, const QString &text) override { Note(text); }
    bool AskYesNo(QWidget *, const QString &text) override
    {
        Note(text);
        return yes;
    }
    QString PickFile(QWidget *, const QString &title, const QString &, const QString &) override
    {
        Note(title);
        return file;
    }
    bool AskChoice(QWidget *, const QString &text, const QString &, const QString &,
                   const std::function<bool()> &) override
    {
        Note(text);
        return firstChoice;
    }

private:
    void Note(const QString &text)
    {
        messages.append(text);
        if (whileAsking)
            whileAsking();
    }
};

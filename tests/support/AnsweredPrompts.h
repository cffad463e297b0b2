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
    QString file;                      // of both kinds of picker
    QString suggested;                 // the start path of the last picker
    std::function<void()> whileAsking; // what happens while a question is on the screen

    void MsgBox(QWidget *, const QString &text) override { Note(text); }
    bool AskYesNo(QWidget *, const QString &text) override
    {
        Note(text);
        return yes;
    }
    QString PickFile(QWidget *, const QString &title, const QString &startPath, const QString &) override
    {
        suggested = startPath;
        Note(title);
        return file;
    }
    QString PickSaveFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter) override
    {
        return PickFile(owner, title, startPath, filter);
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

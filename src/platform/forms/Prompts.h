#pragma once

#include <QString>

#include <functional>

class QWidget;

// Message boxes, questions and file pickers. The program shows them; a test answers them. Texts are plain text.
class Prompts
{
public:
    virtual ~Prompts() = default;

    virtual void MsgBox(QWidget *owner, const QString &text) = 0; // one OK button
    virtual bool AskYesNo(QWidget *owner, const QString &text) = 0;
    // A file to open; empty when the person cancelled. `filter` as in "*.mdb".
    virtual QString PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter) = 0;
    // A file to write; empty when the person cancelled. `filter` as in "*.pdf": a name typed without that ending gets it. The
    // person has agreed to replace a file that is there already.
    virtual QString PickSaveFile(QWidget *owner, const QString &title, const QString &startPath,
                                 const QString &filter) = 0;
    // A question with two named answers; true for the first, which is the default and also what Escape and the frame mean.
    // As soon as `settled` says that the question no longer stands, it is taken back, as answered by the first.
    virtual bool AskChoice(QWidget *owner, const QString &text, const QString &first, const QString &second,
                           const std::function<bool()> &settled) = 0;
};

// The prompts that a person sees.
class ScreenPrompts : public Prompts
{
public:
    void MsgBox(QWidget *owner, const QString &text) override;
    bool AskYesNo(QWidget *owner, const QString &text) override;
    QString PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter) override;
    QString PickSaveFile(QWidget *owner, const QString &title, const QString &startPath,
                         const QString &filter) override;
    bool AskChoice(QWidget *owner, const QString &text, const QString &first, const QString &second,
                   const std::function<bool()> &settled) override;
};

#pragma once

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>

class QDialog;
class QWidget;

// Message boxes, questions and file pickers. The program shows them; a test answers them. Texts are plain text.
//
// Each call returns at once, and the answer arrives in a function. That is called exactly once, but never after `owner`, the
// window that the question stands over, was destroyed, and never after EndAll. When the owner is unloaded or hidden, the
// question is taken back with the answer that changes nothing. A question that stands already over the same owner is not
// asked a second time; the second function is dropped. Without an owner a question blocks all windows.
class Prompts
{
public:
    struct Choice
    {
        QStringList answers;
        int byEnter = 0;  // the default
        int byEscape = 0; // changes nothing: also what the frame means, and taking the question back
        // Looked at twice a second: as soon as it says true, the question is taken back. May be empty.
        std::function<bool()> settled = {};
    };

    virtual ~Prompts() = default;

    virtual void MsgBox(QWidget *owner, const QString &text, std::function<void()> then = {}) = 0; // one OK button
    virtual void AskYesNo(QWidget *owner, const QString &text, std::function<void(bool yes)> then) = 0;
    virtual void AskChoice(QWidget *owner, const QString &text, const Choice &choice,
                           std::function<void(int answer)> then) = 0;
    // A file to open; empty when the person cancelled. `filter` as in "*.mdb".
    virtual void PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                          std::function<void(const QString &path)> then) = 0;
    // A file to write; empty when the person cancelled. `filter` as in "*.pdf": a name typed without that ending gets it. The
    // person has agreed to replace a file that is there already.
    virtual void PickSaveFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                              std::function<void(const QString &path)> then) = 0;

    // The session ends: what stands is taken away without an answer, and nothing is asked from now on.
    virtual void EndAll() = 0;
};

// For the start, which can't go on without an answer: begins something that calls `done` at its end, and returns then, or when
// the program is to exit.
void WaitFor(const std::function<void(const std::function<void()> &done)> &begin);

// The prompts that a person sees.
class ScreenPrompts : public Prompts
{
public:
    ~ScreenPrompts() override;

    void MsgBox(QWidget *owner, const QString &text, std::function<void()> then) override;
    void AskYesNo(QWidget *owner, const QString &text, std::function<void(bool yes)> then) override;
    void AskChoice(QWidget *owner, const QString &text, const Choice &choice,
                   std::function<void(int answer)> then) override;
    void PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                  std::function<void(const QString &path)> then) override;
    void PickSaveFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                      std::function<void(const QString &path)> then) override;
    void EndAll() override;

private:
    struct Standing
    {
        QPointer<QDialog> dialog;
        QPointer<QWidget> owner;
        QString text;
    };

    bool MayAsk(QWidget *owner, const QString &text); // false: the program ends, or it is asked already
    // Shows a dialog made with new. `then` is told its result, while the dialog is still there.
    void Show(QDialog &dialog, QWidget *owner, const QString &text, std::function<void(int result)> then);

    QList<Standing> standing_;
    bool ended_ = false;
};

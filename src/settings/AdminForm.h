#pragma once

#include "platform/forms/Form.h"
#include "settings/Options.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

class Prompts;

namespace Ui {
class AdminForm;
}

// The settings. Loaded hidden at start, it stays loaded until the program unloads it; its controls are what the text store
// keeps of the options. OK accepts what it shows; Escape and the frame put back what was last accepted. Either hides it.
class AdminForm : public Form
{
    Q_OBJECT

public:
    using FileTest = std::function<bool(const QString &path)>;

    // `fileExists` is asked about a company database and must answer in bounded time; `isOwnJobsFile` compares a path, as a
    // file, with the Jobs.mdb of the program folder; its answer is kept for the path asked about last.
    AdminForm(FormServices &services, Prompts &prompts, FileTest fileExists, FileTest isOwnJobsFile);
    ~AdminForm() override;

    Options CurrentOptions() const; // as stored or as last accepted, never what is being edited

    void SetUserName(const QString &name, bool lock);
    void ShowPathInEffect(const QString &path);
    void SetSharedListPossible(bool possible); // false: the path in effect leads to no company list

signals:
    void Accepted(); // OK was pressed; the window is still shown

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    bool QueryUnload() override;
    void showEvent(QShowEvent *event) override;

private:
    void OKButton_Click();
    void EnterpriseMDBText_Click();

    QString ShownPath() const;
    bool IsOwnJobsFile(const QString &path);
    bool CanAutoUpdate(const QString &path);
    void EnableAutoCheck(const QString &path);
    void Accept();  // takes what is shown
    void Restore(); // shows what was accepted

    std::unique_ptr<Ui::AdminForm> ui_;
    Prompts &prompts_;
    FileTest fileExists_;
    FileTest isOwnJobsFile_;
    std::optional<std::pair<QString, bool>> ownJobsFile_; // the path last asked about, and whether it is
    bool sharedListPossible_ = true;
    Options accepted_;             // AutoUpdate is the tick of the box, which counts only while the box is enabled
    bool autoCheckEnabled_ = true; // of what was accepted
};

#pragma once

#include "platform/forms/Form.h"
#include "settings/Options.h"
#include "settings/PathJudgement.h"

#include <functional>
#include <memory>
#include <optional>

class Prompts;

namespace Ui {
class AdminForm;
}

// The settings. Loaded hidden at start, it stays loaded until the program unloads it; its controls are what the text store
// keeps of the options, and they are written back once, when it unloads. OK accepts what it shows; Escape and the frame put
// back what was last accepted. Either hides it.
//
// The box of the company database shows the file in use, which may be another one than the person chose while that is away.
// What is accepted, and stored, changes only when the person types or picks another path.
class AdminForm : public Form
{
    Q_OBJECT

public:
    // Looks at a file without making anybody wait, and calls back; with `NoAnswer` when that takes too long.
    using Judge = std::function<void(const QString &path, std::function<void(const PathJudgement &)> done)>;

    AdminForm(FormServices &services, Prompts &prompts, Judge judge);
    ~AdminForm() override;

    Options CurrentOptions() const; // as stored or as last accepted, never what is being edited

    void SetUserName(const QString &name, bool lock);
    // The job database in use, and whether a local copy of its list may be kept.
    void ShowPathInEffect(const QString &path);
    void SetSharedListPossible(bool possible);

    void ShowRunTimeTexts() override;

signals:
    void Accepted(); // OK was pressed; the window is still shown

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void QueryUnload() override;
    void showEvent(QShowEvent *event) override;

private:
    void OKButton_Click();
    void EnterpriseMDBText_Click();

    void EnterpriseMDBText_Change();
    void JudgePath();
    void TakeJudgement(const PathJudgement &judgement);

    QString ShownPath() const;
    bool IsPathChanged() const; // by the person, since it was last accepted
    void ShowNumbersInEffect();
    void CommitPath();
    void RestorePath();
    void Accept();  // takes what is shown
    void Restore(); // shows what was accepted

    std::unique_ptr<Ui::AdminForm> ui_;
    Prompts &prompts_;
    const Judge judge_;
    Options accepted_;          // AutoUpdate is the tick of the box, which counts only while the box is enabled
    QString pathInEffect_;      // what the box shows unless it was changed
    bool canAutoUpdate_ = true; // whether AutoCheck is enabled for that path
    QString pickedPath_;        // the last one that came from the file dialog
    std::optional<PathJudgement> judgement_; // of the path in the box; nothing until it is known
    bool okWaits_ = false;                   // for the judgement
};

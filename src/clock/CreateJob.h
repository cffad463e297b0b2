#pragma once

#include "clock/Projects.h"
#include "platform/forms/Form.h"

#include <memory>

class JobDatabase;
class Prompts;
struct JobLists;

namespace Ui {
class CreateJob;
}

// Adds jobs to the job list of the job database in use. The two lists show the jobs that were stored while the window is open.
// A job is stored when the file has answered; until then the window takes no other job, but it can be left.
class CreateJob : public Form
{
    Q_OBJECT

public:
    // `lists` holds the company list that a new id is compared with; all of it outlives the window.
    CreateJob(FormServices &services, Prompts &prompts, JobDatabase &jobDatabase, const JobLists &lists);
    ~CreateJob() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void ApplyButton_Click() { Save(false); }
    void OKButton_Click() { Save(true); }
    void ExitButton_Click() { Unload(); }

    void Save(bool thenClose);
    void Answered(Projects::Creation creation, const JobItem &job, bool thenClose);
    void ShowStored(const JobItem &job);
    void ShowNewest();
    void Refuse(const QString &message);
    void SetWaiting(bool waiting);
    void FocusJobID();

    std::unique_ptr<Ui::CreateJob> ui_;
    Prompts &prompts_;
    JobDatabase &jobDatabase_;
    const JobLists &lists_;
    bool waiting_ = false; // for an answer
};

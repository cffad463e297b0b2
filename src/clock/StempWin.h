#pragma once

#include "clock/OutQuery.h"
#include "clock/PickList.h"
#include "platform/forms/Form.h"
#include "platform/forms/RowsModel.h"

#include <QIcon>
#include <QTimer>

#include <functional>
#include <memory>

class Clock;
class CreateJob;
class DataControl;
class IOQuery;
class JobDatabase;
class Notes;
class Prompts;
class TimeSource;
class TimeTable;
struct Identity;
struct JobLists;
struct Options;

namespace dao {
class Database;
}

namespace Ui {
class StempWin;
}

// What the clock's face works on; all of it outlives the window.
struct StempWinParts
{
    Clock &clock;
    TimeTable &timeTable;
    JobLists &lists;
    JobDatabase &jobDatabase;
    const Identity &identity;
    const Options &options;
    const TimeSource &time;
    dao::Database &localDB; // the per-login database
};

// The main window: the clock's face, the search box with its pick list, and the roll-back grid.
class StempWin : public Form
{
    Q_OBJECT

public:
    StempWin(FormServices &services, Prompts &prompts, StempWinParts parts);
    ~StempWin() override;

    void StempInLook();          // the person is in: green
    void StempOutLook();         // the person is out: red
    void ShowAlertIcon(bool on); // a message waits to be read; else the state of the clock
    void StempIn(const QString &item);
    void StempOut();
    void StempOutAt(const QDateTime &time);

    void FillXListBox(const JobList &list) { pickList_->FillXListBox(list); }
    void FillRecentList(); // and offers it and the personal list unless they are empty
    void FillJobList();    // the list is there when the job database has answered

    // Modal; carries out the person's choice before `then`. `then` never comes when the person takes the closing back.
    void ShowOutQuery(OutQueryAt at, std::function<void()> then);
    void ShowCurrentJob();  // in the search box
    void ShowNewestRow();   // at the end of the grid
    void Enterprise_Init(); // brings the window in line with the job database in use; EnterpriseReady() follows
    void EndSession();      // a logoff: closes without asking, and leaves an open row open

signals:
    void AdminChosen();
    void SummaryChosen();
    void Stemped();         // in or out
    void EnterpriseReady(); // what looks at the job database is to be set up, too
    void Leaving();         // the window is about to unload
    void Staying();         // it is not after all
    void UnloadOthers();    // the other windows are to be unloaded now

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    void QueryUnload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void ShowRunTimeTexts() override;
    void ShowRunTimeControls() override { ShowUnsaved(); }
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override; // working in the grid closes the pick list

private:
    void SetUpGrid();
    void SetUpSaving();
    void Connect();
    void InOutButton_Click();
    void mnuNotes_Click();
    void mnuCreateJob_Click();
    void DeleteJob(const QString &item);
    void JobListFilled();
    void EnableOwnLists();
    void AfterStemp();
    void RefreshGrid();
    void SaveTimer_Timer();
    void ShowUnsaved();
    void PlaceUnsavedLabel();
    void SaveAndUnload();

    FormServices &services_;
    Prompts &prompts_;
    StempWinParts parts_;
    std::unique_ptr<Ui::StempWin> ui_;
    DataControl *stempList_ = nullptr; // owned by the list of controls
    RowsModel gridModel_;
    QIcon iconIn_;
    QIcon iconOut_;
    QIcon iconAlert_;
    std::unique_ptr<PickList> pickList_;
    std::unique_ptr<IOQuery> outQuery_;    // while it is shown
    std::unique_ptr<CreateJob> createJob_; // while it is shown
    std::unique_ptr<Notes> notes_;         // while it is shown
    QTimer saveTimer_;                     // runs while rows are not in the time database
    QString unsavedText_;
    int unsavedHeight_ = 0; // of the note's one line
};

#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/RowsModel.h"

#include <QSortFilterProxyModel>

#include <memory>

class DataControl;
class Prompts;
class TimeSource;

namespace dao {
class Database;
}

namespace Ui {
class Notes;
}

// The dated notes of all jobs, the oldest first, with the current one in full below the grid. A note that was typed and not
// saved is never lost: a person who closes the window is asked about it, and unloading without a question saves it, if the
// database can be written. Delete in the grid deletes the chosen note, after a question.
class Notes : public Form
{
    Q_OBJECT

public:
    // `localDB` is the per-login database; it, `prompts` and `time` must outlive this.
    Notes(FormServices &services, Prompts &prompts, dao::Database &localDB, const TimeSource &time,
          QString currentJobID);
    ~Notes() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void QueryUnload() override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void SetUpGrid();
    void SetUpAnchors();
    void Activate();
    void SaveButton_Click();
    void FindText_Change();

    void AskToDelete();
    void Delete(qint64 id); // a row's
    bool ReadAll();
    bool Save(); // false: it could not be stored, and stays in NoteText
    QString NewNote() const;
    void ShowJob(); // the first note of the job in JobText, else the newest of all
    QModelIndex FirstNoteOfJob(const QString &job) const;
    void GoTo(const QModelIndex &note);
    void ShowWholeNote();
    void ClearBoxes();

    std::unique_ptr<Ui::Notes> ui_;
    Prompts &prompts_;
    dao::Database &localDB_;
    const TimeSource &time_;
    QString currentJobID_;
    RowsModel notes_;
    std::vector<qint64> ids_;     // of its rows
    QSortFilterProxyModel found_; // those that contain what is sought
};

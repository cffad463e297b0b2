#pragma once

#include "board/BufferModel.h"
#include "board/Mail.h"
#include "platform/forms/Form.h"
#include "platform/forms/RowsModel.h"

#include <QPersistentModelIndex>

#include <memory>
#include <optional>

class Board;
class DataControl;
class Prompts;
class TimeSource;

namespace Ui {
class Message;
}

// The window in which messages are written. They go to the outbox of the per-login database, which it shows, too, and from
// there with the next poll. Below stands what was received and sent lately. A text that is neither sent nor discarded when the
// program ends is kept in the outbox, without a recipient.
class Message : public Form
{
    Q_OBJECT

public:
    // `localDB` is the per-login database. All of it outlives the window.
    Message(FormServices &services, Prompts &prompts, dao::Database &localDB, const Board &board,
            const TimeSource &time);
    ~Message() override;

    // Puts `recipient`, a user's name, "All" or "User" (everybody, too), in MessageTo. To be called before each time it is
    // shown, once it is loaded: the text is cleared, and what was sent last is forgotten.
    void Begin(const QString &recipient);
    // Reads the recipients, the outbox and the history anew, as a poll may have sent something. A cell that is being edited
    // stays so, and the outbox as it is until then.
    void Refresh();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void QueryUnload() override;
    void showEvent(QShowEvent *event) override;

private:
    struct Letter // in upper case the one, trimmed the other
    {
        QString recipient;
        QString text;
        bool operator==(const Letter &) const = default;
    };
    struct UnstoredCell
    {
        QPersistentModelIndex cell;
        QString text;
    };

    void SetUpGrids();
    void SetUpAnchors();
    void Form_Activate();
    void SendButton_Click();
    void OKButton_Click();
    void CancelButton_Click();
    void MessageText_Change();

    bool SendMessage(); // false: it could not be queued, and StatusLabel says why
    Letter Typed() const;
    bool IsUnsent() const;
    QString Refusal(const QString &recipient) const; // of one that no message can go to
    void FillMessageTo();
    QWidget *CellEditor() const; // nothing when none is edited
    bool EndEditing();           // false: the cell could not be stored
    void DeleteRow();
    void ShowStored(const BufferRow &row);
    void ShowUnstored(); // puts the text back into its cell, for another try
    void ShowResult(const QString &text);
    void ClearBoxes();

    std::unique_ptr<Ui::Message> ui_;
    Prompts &prompts_;
    dao::Database &localDB_;
    Mail mail_;
    const Board &board_;
    const TimeSource &time_;
    DataControl *messageData_ = nullptr; // owned by the list of controls
    BufferModel buffer_;
    RowsModel history_;
    Letter lastSent_;
    std::optional<UnstoredCell> unstored_;
};

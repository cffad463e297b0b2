#pragma once

#include "board/Board.h"
#include "board/Mail.h"
#include "board/Poll.h"

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class Form;
class FormServices;
class JobDatabase;
class Message;
class MessageBoard;
class Prompts;
class Status;
class TimeSource;
struct Identity;
struct Options;

// What the board works on; all of it outlives the desk.
struct BoardDeskParts
{
    Board &board;
    JobDatabase &jobDatabase;
    const Identity &identity;
    const Options &options;
    const TimeSource &time;
    dao::Database &localDB; // the per-login database
    const bool &startingUp; // while it is set, nothing is polled and no click counts
};

// Owns the board's windows, the timer that polls the company database, and the one that lets the icons blink. A click on the
// board ends up here; so does what a poll brings.
class BoardDesk : public QObject
{
    Q_OBJECT

public:
    BoardDesk(FormServices &services, Prompts &prompts, BoardDeskParts parts);
    ~BoardDesk() override;

    MessageBoard &Window() const { return *messageBoard_; }

    void Load();   // the board, hidden
    void Unload(); // all windows; stops the timers, too
    void ShowBoard(bool on);

    void Enterprise_Init();    // brings board and timer in line with the job database in use
    void Refresh_Enterprise(); // polls at once, and the next time a full interval later
    void SetRefreshInterval(); // from the option's poll delay
    void EnableTimer(bool on);

signals:
    void MainIconAlerted(bool on); // the main window is to show the alert, else the state of the clock

private:
    void RefreshTimer_Timer();
    void BlinkTimer_Timer();
    void BlinkIcons();
    void Polled(const Poll::News &news);
    void PollFailed();
    void ShowUsers();
    void ShowNotice();
    void PopUp();
    void TellRefusedWrite(const dao::Error &error);

    void UserGridService(int row, int column);
    void ClearMessage(int row);
    void WriteTo(const QString &recipient);
    void EditUserStatus(const QString &user);
    void DeleteUser(const QString &user);
    void Display(Form &dialog); // modal; AfterDialog is to follow
    void BeforeDialog();
    void AfterDialog();
    void TellUnlessWritten(bool written, const QString &message);

    FormServices &services_;
    Prompts &prompts_;
    BoardDeskParts parts_;
    Mail mail_;
    std::unique_ptr<MessageBoard> messageBoard_;
    std::unique_ptr<Message> message_; // while it is shown
    std::unique_ptr<Status> status_;   // while it is shown
    QTimer refreshTimer_;
    QTimer blinkTimer_;
    QTimer patience_;           // with the poll that is under way
    bool dialogIsOpen_ = false; // no poll then: it would change the board beneath
    bool BlinkPhase = false;
    bool popUpWaits_ = false; // for a new message, until no modal window is open
    bool isCurrent_ = false;  // the board shows what the last poll has read
    bool canWrite_ = true;
    QString settledPath_;   // of the file that is known to take writes or not
    QDateTime lastCurrent_; // when a poll was answered
};

#pragma once

#include "board/Board.h"
#include "board/CompanyNotice.h"
#include "board/Mail.h"
#include "board/Poll.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

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

    // Brings board and timer in line with the job database in use; another file than before is polled at once.
    void Enterprise_Init();
    // Polls at once, or as soon as the poll under way has ended, and the next time a full interval later. Nothing without
    // EnterpriseOn, or while a dialog of the board is open: that polls when it closes.
    void Refresh_Enterprise();
    void SetRefreshInterval(); // from the option's poll delay
    void EnableTimer(bool on); // on: once no dialog of the board is open

signals:
    void MainIconAlerted(bool on); // the main window is to show the alert, else the state of the clock

private:
    void RefreshTimer_Timer();
    void BlinkTimer_Timer();
    void BlinkIcons();
    void Polled(const Poll::News &news);
    void PollFailed(std::optional<dao::ErrorKind> kind); // nothing: no answer has come
    void PollAgain();                                    // if that is due
    void ShowUsers();
    void PopUp();
    bool Succeeds(const std::function<void()> &work);

    void UserGridService(int row, int column);
    void ClearMessage(int row);
    void WriteTo(const QString &recipient);
    void EditUserStatus(const QString &user, const QString &comment); // as it is now
    void DeleteUser(const QString &user);
    void Open(Form &dialog, const std::function<void()> &closed); // as a modal window of the board
    void BeforeDialog();
    void AfterDialog();
    bool CanDeleteUsers(); // else it is said why not
    void ShowNotice();

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
    bool pollAgain_ = false;    // once the one that is under way has ended
    bool dialogIsOpen_ = false; // no poll then: it would change the board beneath
    bool BlinkPhase = false;
    bool popUpWaits_ = false; // for a new message, until no modal window is open
    CompanyNotice notice_;
    bool writingIsSettled_ = false; // whether the file can be written is known
    QString path_;                  // of the job database that all this is about
    QString loggedError_;           // of the per-login database
};

#include "board/BoardDesk.h"

#include "board/Message.h"
#include "board/MessageBoard.h"
#include "board/Status.h"
#include "platform/dao/Error.h"
#include "platform/forms/Prompts.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"
#include "platform/system/TimeSource.h"
#include "settings/Options.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"

#include <QApplication>
#include <QLoggingCategory>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.board")

constexpr std::chrono::milliseconds firstPeriod = 2s; // until the option is read
constexpr std::chrono::milliseconds blinkPeriod = 500ms;
constexpr std::chrono::milliseconds patience = 5s; // with a poll, before the board says that it is not current

} // namespace

BoardDesk::BoardDesk(FormServices &services, Prompts &prompts, BoardDeskParts parts)
    : services_(services),
      prompts_(prompts),
      parts_(parts),
      mail_(parts.localDB),
      messageBoard_(std::make_unique<MessageBoard>(services))
{
    refreshTimer_.setInterval(firstPeriod);
    blinkTimer_.setInterval(blinkPeriod);
    patience_.setSingleShot(true);
    patience_.setInterval(patience);
    connect(&refreshTimer_, &QTimer::timeout, this, &BoardDesk::RefreshTimer_Timer);
    connect(&blinkTimer_, &QTimer::timeout, this, &BoardDesk::BlinkTimer_Timer);
    connect(&patience_, &QTimer::timeout, this, [this] { PollFailed(std::nullopt); });
    connect(messageBoard_.get(), &MessageBoard::UserGridClicked, this, &BoardDesk::UserGridService);
    connect(messageBoard_.get(), &MessageBoard::DeletePressed, this, &BoardDesk::DeleteUser);
    connect(&parts_.jobDatabase, &JobDatabase::Polled, this, &BoardDesk::Polled);
    connect(&parts_.jobDatabase, &JobDatabase::PollFailed, this, &BoardDesk::PollFailed);
    connect(&parts_.jobDatabase, &JobDatabase::KeptStatusesChanged, this, [this] {
        if (messageBoard_->IsLoaded())
            ShowNotice();
    });
    connect(&parts_.jobDatabase, &JobDatabase::UsersRead, this, [this](const QList<Presence::UserRow> &users) {
        parts_.board.TakeUsers(users, parts_.identity.UserInitials, parts_.time.Now());
        ShowUsers();
    });
}

BoardDesk::~BoardDesk() = default;

// Runs work on the per-login database; false, and told in the log, when that failed.
bool BoardDesk::Succeeds(const std::function<void()> &work)
{
    try {
        work();
        return true;
    } catch (const dao::Error &error) {
        if (std::exchange(loggedError_, error.Text()) != error.Text()) // each poll meets it again
            qCWarning(log).noquote() << error.Text();
        return false;
    }
}

void BoardDesk::Load()
{
    messageBoard_->Load();
}

void BoardDesk::Unload()
{
    for (QTimer *timer : {&refreshTimer_, &blinkTimer_, &patience_})
        timer->stop();
    if (message_)
        message_->Unload();
    if (status_)
        status_->Unload();
    messageBoard_->Unload();
}

void BoardDesk::ShowBoard(bool on)
{
    if (!on)
        messageBoard_->hide();
    else if (messageBoard_->IsLoaded() && !messageBoard_->isVisible())
        messageBoard_->PopUp(false);
}

void BoardDesk::Enterprise_Init()
{
    SetRefreshInterval();
    EnableTimer(parts_.jobDatabase.EnterpriseOn);
    const bool isSame = std::exchange(path_, parts_.jobDatabase.CompanyPath) == parts_.jobDatabase.CompanyPath;
    if (isSame && (notice_.isThere || !parts_.jobDatabase.EnterpriseOn)) // else what stood in for it was picked itself
        return;
    patience_.stop();
    notice_ = {};
    notice_.isThere = parts_.jobDatabase.EnterpriseOn;
    notice_.failure = parts_.jobDatabase.WhyNotUsed;
    writingIsSettled_ = false;
    if (parts_.jobDatabase.EnterpriseOn && !parts_.startingUp)
        Refresh_Enterprise();
    else if (parts_.jobDatabase.EnterpriseOn || parts_.jobDatabase.LocalJobs)
        parts_.jobDatabase.ReadUsers(); // the first poll ends the start, which may have a question to ask
    ShowNotice();
}

void BoardDesk::Refresh_Enterprise()
{
    if (!parts_.jobDatabase.EnterpriseOn || dialogIsOpen_)
        return;
    pollAgain_ = parts_.jobDatabase.IsPolling(); // that one knows nothing of what was just written
    EnableTimer(false);
    RefreshTimer_Timer();
    EnableTimer(true);
}

void BoardDesk::SetRefreshInterval()
{
    const std::chrono::milliseconds period = PollPeriod(parts_.options.PollDelay);
    if (period != refreshTimer_.intervalAsDuration()) // else the next poll would be put off
        refreshTimer_.setInterval(period);
}

void BoardDesk::EnableTimer(bool on)
{
    if (on && !dialogIsOpen_)
        refreshTimer_.start();
    else
        refreshTimer_.stop();
}

void BoardDesk::RefreshTimer_Timer()
{
    if (parts_.startingUp)
        return;
    if (parts_.jobDatabase.IsPolling()) {
        ShowUsers(); // cleared cells and waiting messages do not wait for a file that takes its time
        return;
    }
    Poll::Request request{parts_.identity.UserInitials, parts_.time.Now(), {}, {}};
    Succeeds([&] { request = mail_.MakeRequest(request.user, request.now); });
    patience_.start();
    parts_.jobDatabase.Poll(request);
}

void BoardDesk::Polled(const Poll::News &news)
{
    patience_.stop();
    notice_.isStale = false;
    notice_.lastCurrent = parts_.time.Now();
    bool hasTaken = false;
    if (Succeeds([&] { hasTaken = mail_.Take(news, notice_.lastCurrent); }))
        loggedError_.clear();
    else
        parts_.jobDatabase.ForgetPolls();
    if (news.changed) {
        parts_.board.TakeUsers(news.users, parts_.identity.UserInitials, notice_.lastCurrent);
        if (news.refusedWrite && notice_.canBeWritten) // once, however long that lasts
            qCWarning(log).noquote() << news.refusedWrite->Text();
        notice_.canBeWritten = !news.refusedWrite;
    }
    if (message_)
        message_->Refresh();
    ShowNotice(); // first: it takes room that a new message may need
    ShowUsers();
    // The first poll of a file settles whether it can be written. What is refused later is said quietly.
    if (news.changed && !std::exchange(writingIsSettled_, true) && news.refusedWrite)
        prompts_.MsgBox(messageBoard_.get(), RefusedWriteText(parts_.jobDatabase.CompanyPath, *news.refusedWrite));
    pollAgain_ = pollAgain_ || (hasTaken && news.moreWait); // else what can't be taken would be asked for without end
    PollAgain();
}

void BoardDesk::PollFailed(std::optional<dao::ErrorKind> kind)
{
    patience_.stop();
    notice_.isStale = true;
    notice_.failure = kind;
    ShowNotice();
    ShowUsers();
    if (kind)
        PollAgain();
}

void BoardDesk::PollAgain()
{
    if (std::exchange(pollAgain_, false))
        Refresh_Enterprise();
}

void BoardDesk::ShowUsers()
{
    Board &board = parts_.board;
    std::optional<int> newest;
    Succeeds([&] { newest = board.ShowMessages(mail_.Unread()); });
    messageBoard_->ShowRows(board.Rows(), parts_.time.Now());
    if (newest) {
        messageBoard_->ScrollTo(*newest);
        popUpWaits_ = true;
    }
    if (board.Alert) {
        if (!blinkTimer_.isActive())
            blinkTimer_.start();
        PopUp();
    } else if (blinkTimer_.isActive()) {
        BlinkIcons(); // for the last time
    }
}

void BoardDesk::PopUp()
{
    if (!parts_.options.PopUpMessages)
        popUpWaits_ = false;
    else if (!QApplication::activeModalWidget()) // else a new message tries again while the icons blink
        messageBoard_->PopUp(std::exchange(popUpWaits_, false));
}

void BoardDesk::BlinkTimer_Timer()
{
    BlinkIcons();
    if (popUpWaits_)
        PopUp();
}

void BoardDesk::BlinkIcons()
{
    if (parts_.board.Alert) {
        messageBoard_->ShowAlertIcon(BlinkPhase);
        emit MainIconAlerted(!BlinkPhase);
        BlinkPhase = !BlinkPhase;
        return;
    }
    blinkTimer_.stop();
    BlinkPhase = false;
    popUpWaits_ = false;
    messageBoard_->ShowAlertIcon(false);
    emit MainIconAlerted(false);
}

void BoardDesk::UserGridService(int row, int column)
{
    if (parts_.startingUp || dialogIsOpen_)
        return;
    const bool isHeader = row < 0;
    if (isHeader) {
        if (column == 0)
            WriteTo(u"User"_s); // which means everybody
        return;
    }
    const Board::Row clicked = parts_.board.Rows().at(static_cast<std::size_t>(row));
    const bool isOwn = parts_.board.IsOwn(clicked.name);
    if (column == 1) {
        if (parts_.board.MessageShown(row))
            ClearMessage(row);
        else if (clicked.isUser && (isOwn || parts_.options.CanSetOthersStatus))
            EditUserStatus(clicked.name, clicked.comment);
    } else if (clicked.isUser) {
        WriteTo(isOwn ? u"All"_s : clicked.name);
    }
}

void BoardDesk::ClearMessage(int row)
{
    const QString id = parts_.board.ClearMessage(row);
    Succeeds([&] { mail_.MarkRead(id); });
    messageBoard_->ShowRows(parts_.board.Rows(), parts_.time.Now());
    if (parts_.jobDatabase.EnterpriseOn)
        Refresh_Enterprise();
    else
        ShowUsers();
}

void BoardDesk::WriteTo(const QString &recipient)
{
    message_ = std::make_unique<Message>(services_, prompts_, parts_.localDB, parts_.board, parts_.time);
    message_->Load();
    message_->Begin(recipient);
    Open(*message_, [this] { message_.reset(); });
}

void BoardDesk::EditUserStatus(const QString &user, const QString &comment)
{
    status_ = std::make_unique<Status>(services_, parts_.localDB, user, comment);
    Open(*status_, [this, user] {
        if (status_->IsAccepted())
            parts_.jobDatabase.WriteComment(user, status_->Text());
        status_.reset();
    });
}

void BoardDesk::DeleteUser(const QString &user)
{
    if (parts_.startingUp || dialogIsOpen_ || parts_.board.IsOwn(user) || !CanDeleteUsers())
        return;
    BeforeDialog();
    prompts_.AskYesNo(messageBoard_.get(), Say("Are you sure you want to DELETE user :%1").arg(ShownText(user)),
                      [this, user](bool yes) {
                          if (yes && CanDeleteUsers())
                              parts_.jobDatabase.DeleteUser(this, user, [this, user](bool written) {
                                  if (!written)
                                      prompts_.MsgBox(
                                          messageBoard_.get(),
                                          Say("%1 could not be deleted, because the company database is locked, "
                                              "write-protected or not there. Please try again.")
                                              .arg(ShownText(user)));
                              });
                          AfterDialog();
                      });
}

// The file in use is the copy on this machine meanwhile, and nobody would come to know what is written there.
bool BoardDesk::CanDeleteUsers()
{
    if (!parts_.jobDatabase.EnterpriseOn)
        prompts_.MsgBox(messageBoard_.get(),
                        Say("The company database is not there, so nobody would see the change. Please "
                            "try again when it is back."));
    return parts_.jobDatabase.EnterpriseOn;
}

void BoardDesk::ShowNotice()
{
    notice_.withKeptStatuses = parts_.jobDatabase.UsersWithKeptStatus();
    messageBoard_->ShowNotice(notice_.Text());
}

void BoardDesk::Open(Form &dialog, const std::function<void()> &closed)
{
    dialog.setWindowIcon(messageBoard_->windowIcon());
    connect(&dialog, &Form::Closed, this, [this, closed] {
        closed();
        AfterDialog();
    });
    BeforeDialog();
    dialog.OpenModal(messageBoard_.get());
}

void BoardDesk::BeforeDialog()
{
    dialogIsOpen_ = true;
    refreshTimer_.stop();
}

void BoardDesk::AfterDialog()
{
    dialogIsOpen_ = false;
    if (messageBoard_->IsLoaded()) // else the program is ending
        Refresh_Enterprise();
}

#include "startup/Main.h"

#include "board/BoardDesk.h"
#include "board/CompanyNotice.h"
#include "clock/StempWin.h"
#include "clock/User.h"
#include "platform/dao/Error.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "platform/system/System.h"
#include "platform/system/TimeSource.h"
#include "reports/Printing.h"
#include "reports/RepGen.h"
#include "settings/AdminForm.h"
#include "startup/DataFiles.h"
#include "startup/Module1.h"
#include "startup/Program.h"
#include "texts/Common.h"

#include <QLoggingCategory>
#include <QTimer>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.startup")

} // namespace

Main::Main(Program &program, Prompts &prompts)
    : program_(program), prompts_(prompts), printing_(std::make_unique<SystemPrinting>(prompts))
{
}

Main::~Main() = default;

bool Main::Run()
{
    program_.StartingUp = true;
    if (!FindProgramFolder() || !ChooseIdentity() || !InitInterfaceTexts())
        return false;
    PrepareTimeDb();
    program_.FillPersonalList(); // before the first window, which has to wait for the fonts
    LoadWindows();
    if (!ended_)
        SettleOpenRow();
    if (ended_)
        return false;
    FillLists();
    PublishState();
    program_.StartingUp = false;
    boardDesk_->Refresh_Enterprise();
    return true;
}

void Main::Tell(const QString &message)
{
    if (!message.isEmpty())
        WaitFor([&](const std::function<void()> &done) { prompts_.MsgBox(nullptr, message, done); });
}

bool Main::FindProgramFolder()
{
    if (!Module1::FindAppFolder(program_.system, program_.identity)) {
        Tell(Say("Cannot run the program!") + QStringLiteral("\r\n")
             + Say("Check shortcut 'Start In' (must point to location of %1.EXE)")
                   .arg(program_.system.ExecutableName()));
        return false;
    }
    if (!DataFiles::FileExists(program_.identity.InAppFolder(QStringLiteral("Blank.mdb")))) {
        Tell(Say("File missing: Blank.mdb"));
        return false;
    }
    return true;
}

// A login name that can't be an identity leads to the initials, which then take its place.
bool Main::ChooseIdentity()
{
    Identity &identity = program_.identity;
    Module1::TakeLogin(program_.system, identity);
    Module1::FindKindOfDrive(program_.system, identity);
    const QString login = identity.UserInitials;
    const Module1::LocalDBChoice choice = Module1::ChooseLocalDBPath(identity, login, program_.jobDatabase);
    identity.LocalDBPath = choice.path;
    if (!choice.path.isEmpty())
        return true;
    identity.UserInitials = login; // suggested
    Tell(choice.refusal);
    if (!AskInitials())
        return false;
    identity.LocalDBPath = Module1::LocalDBPathOf(identity);
    return true;
}

bool Main::AskInitials()
{
    Identity &identity = program_.identity;
    QString fullName = identity.WinUserName;
    if (!::AskInitials(identity.UserInitials, fullName, IdentityRefusal, prompts_))
        return false;
    identity.UserFullName = fullName;
    return true;
}

bool Main::InitInterfaceTexts()
{
    Module1::OpenedLocalDB opened = Module1::OpenLocalDB(program_.identity, program_.time.Now());
    Tell(opened.message);
    Tell(opened.cannotOpen);
    if (!opened.database.IsOpen())
        return false;
    program_.LocalDB = std::move(opened.database);
    program_.texts.DevMode = program_.identity.DevMode;
    common_ = std::make_unique<Common>(program_.LocalDB, program_.texts, prompts_);
    try {
        program_.PersonalJobsRs = program_.LocalDB.OpenRecordset(QStringLiteral("Projects"));
        program_.PersonalJobsRs.Index(QStringLiteral("JobID"));
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
    }
    return true;
}

// It is read through from end to end: on another thread, while the windows load. Without an identity it has to wait, as the
// settings may give one.
void Main::PrepareTimeDb()
{
    if (!program_.identity.UserInitials.isEmpty())
        timeDb_ = std::async(std::launch::async, Module1::PrepareTimeDb, program_.identity, program_.time.Now(), false);
}

void Main::LoadWindows()
{
    boardDesk_ = std::make_unique<BoardDesk>(*common_, prompts_,
                                             BoardDeskParts{program_.board, program_.jobDatabase, program_.identity,
                                                            program_.options, program_.time, program_.LocalDB,
                                                            program_.StartingUp});
    boardDesk_->Load();
    ApplySettings();
    if (!ended_)
        OpenTimeDb();
    if (ended_) // the session ended while something was asked
        return;
    stempWin_ = std::make_unique<StempWin>(*common_, prompts_,
                                           StempWinParts{program_.clock, program_.timeTable, program_.lists,
                                                         program_.jobDatabase, program_.identity, program_.options,
                                                         program_.time, program_.LocalDB});
    connect(stempWin_.get(), &StempWin::AdminChosen, this, &Main::mnuAdmin_Click);
    connect(stempWin_.get(), &StempWin::SummaryChosen, this, &Main::mnuSummary_Click);
    connect(stempWin_.get(), &StempWin::Stemped, boardDesk_.get(), &BoardDesk::Refresh_Enterprise);
    connect(stempWin_.get(), &StempWin::EnterpriseReady, boardDesk_.get(), &BoardDesk::Enterprise_Init);
    connect(stempWin_.get(), &StempWin::Leaving, boardDesk_.get(), [this] { boardDesk_->EnableTimer(false); });
    connect(stempWin_.get(), &StempWin::Staying, boardDesk_.get(), &BoardDesk::Refresh_Enterprise);
    connect(boardDesk_.get(), &BoardDesk::MainIconAlerted, stempWin_.get(), &StempWin::ShowAlertIcon);
    connect(&program_.jobDatabase, &JobDatabase::CameBack, this, &Main::TakeUpJobDatabase);
    connect(&program_.jobDatabase, &JobDatabase::Looked, this, &Main::SwitchOver);
    connect(stempWin_.get(), &StempWin::UnloadOthers, this, &Main::UnloadOthers);
    connect(stempWin_.get(), &Form::Unloaded, this, &Main::MainWindowUnloaded);
    stempWin_->Load();
}

void Main::ApplySettings()
{
    Identity &identity = program_.identity;
    JobDatabase &jobs = program_.jobDatabase;
    adminForm_ = std::make_unique<AdminForm>(
        *common_, prompts_, [&jobs](const QString &path, auto done) { jobs.Judge(path, std::move(done)); });
    connect(adminForm_.get(), &AdminForm::Accepted, this, &Main::SettingsAccepted);
    connect(adminForm_.get(), &Form::Closed, boardDesk_.get(), &BoardDesk::SetRefreshInterval);
    adminForm_->Load();

    if (identity.UserInitials.isEmpty()) {
        const QString stored = adminForm_->CurrentOptions().UserName.trimmed().toUpper();
        const QString refusal = IdentityRefusal(stored);
        if (refusal.isEmpty())
            identity.UserInitials = stored;
        else
            Tell(refusal);
    }
    program_.options = adminForm_->CurrentOptions();
    common_->SetShowToolTips(program_.options.ShowToolTips);
    jobs.Choose(program_.options.EnterpriseMDBText);
    OfferNewJobList();
    if (jobs.CompanyJobs)
        adminForm_->ShowPathInEffect(jobs.CompanyPath);
    if (identity.UserInitials.isEmpty() && (jobs.CompanyJobs || identity.NeedsInitials()) && !AskInitials())
        return; // the session ended
    if (!identity.UserInitials.isEmpty())
        adminForm_->SetUserName(identity.UserInitials, true);
    adminForm_->SetSharedListPossible(HasSharedList());
    program_.options = adminForm_->CurrentOptions();
    jobs.AddSelfToUsers();
    if (identity.UserInitials.isEmpty())
        identity.UserInitials = QStringLiteral("NN");
}

// In place of a damaged one that is needed.
void Main::OfferNewJobList()
{
    JobDatabase &jobs = program_.jobDatabase;
    if (!jobs.OwnFileDamaged)
        return;
    const QString question =
        Say("%1\n\nDo you want it set aside and a new one made? What can still be read of it comes along.")
            .arg(jobs.OwnFileTrouble);
    bool agreed = false;
    WaitFor([&](const std::function<void()> &done) {
        prompts_.AskYesNo(nullptr, question, [&agreed, done](bool yes) {
            agreed = yes;
            done();
        });
    });
    if (!agreed || ended_)
        return;
    Tell(jobs.MendOwnFile(program_.time.Now()));
    jobs.Choose(program_.options.EnterpriseMDBText);
}

void Main::OpenTimeDb()
{
    const Module1::TimeDbChoice choice =
        timeDb_.valid() ? timeDb_.get() : Module1::PrepareTimeDb(program_.identity, program_.time.Now());
    Tell(choice.message);
    AskUntilReadable(choice.path);
}

// A row that was left open can be offered only when it can be read.
void Main::AskUntilReadable(const QString &timeDbPath)
{
    bool tryAgain = true;
    while (tryAgain && !program_.OpenTimeTable(timeDbPath) && !ended_) {
        Tell(program_.timeTable.TakeMessage());
        WaitFor([&](const std::function<void()> &done) {
            prompts_.AskChoice(
                nullptr,
                Say("Your time database\n%1\ncannot be read: %2.\n\nIf you go on without it, your stemps are kept "
                    "in\n%3\nuntil "
                    "it can be written. A row that is still open in it is then asked about at the next start only.")
                    .arg(timeDbPath, program_.timeTable.Trouble(), program_.identity.LocalDBPath),
                {{Say("&Try again"), Say("&Go on")}}, [&tryAgain, done](int answer) {
                    tryAgain = answer == 0;
                    done();
                });
        });
    }
}

void Main::SettleOpenRow()
{
    const bool open = program_.clock.TakeUpLastRow();
    stempWin_->ShowCurrentJob();
    stempWin_->show();
    QTimer::singleShot(0, this, &Main::ShowBoard); // once the clock is painted
    if (open)
        WaitFor([this](const std::function<void()> &done) { stempWin_->ShowOutQuery(OutQueryAt::Start, done); });
}

void Main::FillLists()
{
    stempWin_->FillRecentList();
    JobLists &lists = program_.lists;
    lists.Mode = lists.RecentList.IsEmpty() ? ListMode::Company : ListMode::Recent;
    stempWin_->FillXListBox(lists.Current());
}

void Main::mnuAdmin_Click()
{
    adminForm_->OpenModal(stempWin_.get());
}

void Main::mnuSummary_Click()
{
    program_.timeTable.Flush(); // what is summed is read from the file
    repGen_ = std::make_unique<RepGen>(*common_, prompts_, *printing_,
                                       RepGenParts{program_.timeTable.Path(), program_.options.SummaryRounding,
                                                   program_.identity.UserInitials, program_.time,
                                                   [this] { return program_.timeTable.UnsavedCount(); }});
    repGen_->setWindowIcon(stempWin_->windowIcon());
    connect(repGen_.get(), &Form::Closed, this, [this] { repGen_.reset(); });
    repGen_->OpenModal(stempWin_.get());
}

void Main::SettingsAccepted()
{
    const Options before = std::exchange(program_.options, adminForm_->CurrentOptions());
    if (program_.options.ShowJob != before.ShowJob)
        PublishState();
    if (program_.options.EnterpriseMDBText == before.EnterpriseMDBText) {
        stempWin_->Enterprise_Init();
        return;
    }
    pickedPath_ = program_.options.EnterpriseMDBText;
    program_.jobDatabase.LookAt(pickedPath_); // SwitchOver follows
}

// To a file that was picked in the settings, or that was missing at first.
void Main::SwitchOver(const QString &path)
{
    if (program_.StartingUp) // it is looked for again
        return;
    JobDatabase &jobs = program_.jobDatabase;
    jobs.Set_OFF();
    jobs.ChooseLooked();
    if (jobs.CompanyJobs)
        adminForm_->ShowPathInEffect(jobs.CompanyPath);
    adminForm_->SetSharedListPossible(HasSharedList());
    program_.options = adminForm_->CurrentOptions();
    ShowBoard();
    TakeUpJobDatabase();
    if (path != pickedPath_)
        return;
    pickedPath_.clear();
    if (jobs.CompanyPath != path)
        prompts_.MsgBox(stempWin_.get(),
                        Say("The file\n%1\nis not used as the company database: %2. The job list is now the one in the "
                            "program folder.")
                            .arg(path, WhyNotUsed(jobs.WhyNotUsed.value_or(dao::ErrorKind::Other))));
}

// Where people share a database. It is shown also while that is away.
void Main::ShowBoard()
{
    boardDesk_->ShowBoard(program_.jobDatabase.CompanyJobs || !program_.options.EnterpriseMDBText.trimmed().isEmpty());
}

// Of which a local copy can be kept. In a program folder on a network drive, "Jobs.mdb" is everybody's file and no copy.
bool Main::HasSharedList() const
{
    return program_.jobDatabase.CompanyJobs && !program_.identity.OnNetworkDrive;
}

// Says who is here, and shows what is there.
void Main::TakeUpJobDatabase()
{
    program_.jobDatabase.AddSelfToUsers();
    PublishState();
    stempWin_->Enterprise_Init();
}

void Main::PublishState()
{
    if (program_.clock.state.IsStempedIn)
        program_.jobDatabase.Set_In(WorkToShow(program_.clock.state, program_.options));
    else
        program_.jobDatabase.Set_Out();
}

void Main::UnloadOthers()
{
    if (repGen_)
        repGen_->Unload();
    boardDesk_->Unload();
    adminForm_->Unload();
    common_->UnloadHelp();
}

void Main::MainWindowUnloaded()
{
    ended_ = true;
    program_.CloseDatabases();
    emit Ended();
}

void Main::EndSession()
{
    ended_ = true;
    prompts_.EndAll();
    if (stempWin_ && stempWin_->IsLoaded())
        stempWin_->EndSession();
}

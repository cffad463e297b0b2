#pragma once

#include "startup/Module1.h"

#include <QObject>
#include <QString>

#include <future>
#include <memory>

class AdminForm;
class BoardDesk;
class Common;
class Program;
class Printing;
class Prompts;
class RepGen;
class StempWin;

// The start-up sequence, and the wiring between the windows of one running copy: the only place that knows them all.
class Main : public QObject
{
    Q_OBJECT

public:
    Main(Program &program, Prompts &prompts);
    ~Main() override;

    bool Run();        // false: the program can't run, and the person was told why; or the session ended meanwhile
    void EndSession(); // a logoff or shutdown: closes everything without asking
    bool HasEnded() const { return ended_; }

    StempWin *Window() const { return stempWin_.get(); }
    AdminForm *Settings() const { return adminForm_.get(); }
    BoardDesk *Desk() const { return boardDesk_.get(); }

signals:
    void Ended(); // the main window was unloaded and the databases are closed

private:
    bool FindProgramFolder();
    bool ChooseIdentity();
    bool AskInitials();
    bool InitInterfaceTexts();
    void PrepareTimeDb();
    void LoadWindows();
    void ApplySettings();
    void OfferNewJobList();
    void OpenTimeDb();
    void SettleOpenRow();
    void FillLists();
    void mnuAdmin_Click();
    void mnuSummary_Click();
    void SettingsAccepted();
    void SwitchOver(const QString &path);
    void ShowBoard();
    bool HasSharedList() const;
    void TakeUpJobDatabase();
    void PublishState();
    void UnloadOthers();
    void MainWindowUnloaded();
    void AskUntilReadable(const QString &timeDbPath);
    void Tell(const QString &message); // returns when it was read

    Program &program_;
    Prompts &prompts_;
    std::unique_ptr<Printing> printing_;
    std::unique_ptr<Common> common_;
    std::unique_ptr<AdminForm> adminForm_;
    std::unique_ptr<BoardDesk> boardDesk_;
    std::unique_ptr<StempWin> stempWin_;
    std::unique_ptr<RepGen> repGen_;            // while it is shown
    QString pickedPath_;                        // in the settings, not yet in use
    std::future<Module1::TimeDbChoice> timeDb_; // while it is being prepared
    bool ended_ = false;                        // by closing the main window, or with the session
};

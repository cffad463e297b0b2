#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class FormServices;
class JobDatabase;
class MessageBoard;
struct Options;

// Owns the board's window and the timer that looks, again and again, what the other copies wrote to the company database.
class BoardDesk : public QObject
{
    Q_OBJECT

public:
    // All of it outlives the desk. While `startingUp` is set, nothing is looked at.
    BoardDesk(FormServices &services, JobDatabase &jobDatabase, const Options &options, const bool &startingUp);
    ~BoardDesk() override;

    void Load();   // the windows, hidden
    void Unload(); // stops the timer, too

    void Refresh_Enterprise(); // looks at once, and the next time a full interval later
    void SetRefreshInterval(); // from the option's poll delay
    void EnableTimer(bool on);

private:
    void RefreshTimer_Timer();

    JobDatabase &jobDatabase_;
    const Options &options_;
    const bool &startingUp_;
    std::unique_ptr<MessageBoard> messageBoard_;
    QTimer refreshTimer_;
};

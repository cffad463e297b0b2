#include "board/BoardDesk.h"

#include "board/MessageBoard.h"
#include "settings/Options.h"
#include "startup/JobDatabase.h"

BoardDesk::BoardDesk(FormServices &services, JobDatabase &jobDatabase, const Options &options, const bool &startingUp)
    : jobDatabase_(jobDatabase),
      options_(options),
      startingUp_(startingUp),
      messageBoard_(std::make_unique<MessageBoard>(services))
{
    connect(&refreshTimer_, &QTimer::timeout, this, &BoardDesk::RefreshTimer_Timer);
}

BoardDesk::~BoardDesk() = default;

void BoardDesk::Load()
{
    messageBoard_->Load();
}

void BoardDesk::Unload()
{
    refreshTimer_.stop();
    messageBoard_->Unload();
}

void BoardDesk::Refresh_Enterprise()
{
    if (!jobDatabase_.EnterpriseOn)
        return;
    refreshTimer_.stop();
    RefreshTimer_Timer();
    refreshTimer_.start();
}

void BoardDesk::SetRefreshInterval()
{
    const std::chrono::milliseconds period = PollPeriod(options_.PollDelay);
    if (period != refreshTimer_.intervalAsDuration()) // else the next look would be put off
        refreshTimer_.setInterval(period);
}

void BoardDesk::EnableTimer(bool on)
{
    if (on)
        refreshTimer_.start();
    else
        refreshTimer_.stop();
}

void BoardDesk::RefreshTimer_Timer()
{
    if (!startingUp_)
        jobDatabase_.Poll();
}

#include "clock/Clock.h"

#include "clock/JobLists.h"
#include "platform/system/TimeSource.h"

Clock::Clock(TimeTable &table, JobLists &lists, const TimeSource &time,
             std::function<void(const JobItem &)> addPersonalJob)
    : table_(table), lists_(lists), time_(time), addPersonalJob_(std::move(addPersonalJob))
{
}

bool Clock::TakeUpLastRow()
{
    state = ClockState();
    const TimeRowPtr row = table_.OpenOrLastRow();
    openRow_ = row && row->IsOpen() ? row : nullptr;
    if (row) {
        SetCurrentJob(JobItemText(row->jobID, row->jobName), {row->jobID, row->jobName});
        state.LastInTime = row->stempInTime;
        state.OpenSince = openRow_ ? row->stempInTime : std::nullopt;
    }
    return openRow_ != nullptr;
}

void Clock::FillRecentList(const QList<TimeRow> &rows)
{
    lists_.RecentList.Clear();
    for (const TimeRow &row : rows) {
        SetCurrentJob(JobItemText(row.jobID, row.jobName), {row.jobID, row.jobName});
        lists_.RecentList.Add(state.CurrentJob);
    }
    if (openRow_)
        SetCurrentJob(JobItemText(openRow_->jobID, openRow_->jobName), {openRow_->jobID, openRow_->jobName});
}

bool Clock::StempIn(const QString &item, const QString &searchText)
{
    if (item.isEmpty() || item == searchText) {
        if (state.IsStempedIn)
            StempOut();
        return false;
    }

    const QDateTime now = time_.Now();
    if (state.IsStempedIn) {
        TakeUpJobOfOpenRow();
        CompleteOpenRow(now);
    }
    SetCurrentJob(item, SplitJobItem(item));
    openRow_ = table_.Add(state.CurrentJobID, state.CurrentJobName, now);
    table_.Flush(); // what it could not write stays with the table
    state.OpenSince = now;
    state.IsStempedIn = true;
    KeepLists();
    return true;
}

void Clock::StempOut()
{
    TakeUpJobOfOpenRow();
    StempOutAt(time_.Now());
}

void Clock::StempOutAt(const QDateTime &time)
{
    CompleteOpenRow(time);
    table_.Flush();
    state.IsStempedIn = false;
}

void Clock::SetCurrentJob(const QString &item, const JobItem &halves)
{
    state.CurrentJob = item;
    state.CurrentJobID = halves.id;
    state.CurrentJobName = halves.name;
}

void Clock::TakeUpJobOfOpenRow()
{
    if (!openRow_)
        return;
    const QString item = JobItemText(openRow_->jobID, openRow_->jobName);
    if (item != state.CurrentJob) {
        SetCurrentJob(item, {openRow_->jobID, openRow_->jobName});
        lists_.RecentList.Add(item);
    }
}

void Clock::CompleteOpenRow(const QDateTime &time)
{
    if (openRow_) {
        table_.Complete(openRow_, time);
        openRow_.reset();
        state.OpenSince.reset();
    }
}

void Clock::KeepLists()
{
    switch (lists_.Mode) {
    case ListMode::Recent:
        KeepPersonalList();
        break;
    case ListMode::Personal:
        lists_.RecentList.Add(state.CurrentJob);
        break;
    case ListMode::Company:
        lists_.RecentList.Add(state.CurrentJob);
        KeepPersonalList();
        break;
    case ListMode::None:
        break;
    }
}

void Clock::KeepPersonalList()
{
    if (lists_.PersonalList.Add(state.CurrentJob))
        addPersonalJob_({state.CurrentJobID, state.CurrentJobName});
}

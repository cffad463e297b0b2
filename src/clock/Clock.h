#pragma once

#include "clock/JobItem.h"
#include "clock/TimeTable.h"

#include <functional>

struct JobLists;
class TimeSource;

// The clock's published state.
struct ClockState
{
    bool IsStempedIn = false;
    QString CurrentJob; // the job item last worked on; CurrentJobID and CurrentJobName are its halves
    QString CurrentJobID;
    QString CurrentJobName;
    std::optional<QDateTime> OpenSince; // the in-time of the open row; nothing without one
    // The in-time of the row found at start. Later stemp-ins leave it as it is: the out-query's "earlier than in" compares
    // against the start.
    std::optional<QDateTime> LastInTime;
};

// The rules of stemping in and out: the time rows, the current job and the lists that picking a job keeps. The presence board
// and the window's look are the caller's. Each call is one transaction on the time database.
class Clock
{
public:
    // `addPersonalJob` stores a job that is new to the personal list.
    Clock(TimeTable &table, JobLists &lists, const TimeSource &time,
          std::function<void(const JobItem &)> addPersonalJob);

    ClockState state;

    // Takes up the newest row at start: CurrentJob and LastInTime. True when that row is open.
    bool TakeUpLastRow();

    // Rebuilds RecentList: each job of `rows` once, in the order of first appearance. The last row's job is left as the current
    // one, unless a row is open.
    void FillRecentList(const QList<TimeRow> &rows);

    // Stemps in on `item`, after stemping out when the person is in. False when the item is empty or is `searchText`: no row is
    // added then, and a person who was in is out.
    bool StempIn(const QString &item, const QString &searchText);
    void StempOut();                        // now
    void StempOutAt(const QDateTime &time); // unchecked: may be in the future, or before the in-time

private:
    void SetCurrentJob(const QString &item, const JobItem &halves);
    void TakeUpJobOfOpenRow(); // CurrentJob follows the row that is about to be completed
    void CompleteOpenRow(const QDateTime &time);
    void KeepLists(); // after CurrentJob was set by picking a job
    void KeepPersonalList();

    TimeTable &table_;
    JobLists &lists_;
    const TimeSource &time_;
    std::function<void(const JobItem &)> addPersonalJob_;
    TimeRowPtr openRow_;
};

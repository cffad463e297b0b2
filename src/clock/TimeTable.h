#pragma once

#include "clock/ParkedRows.h"
#include "clock/TimeRow.h"
#include "clock/UnsavedNotice.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

class TimeSource;

// The query of the roll-back grid: the rows whose stemp-in lies within the last `days` days.
QString RollBackQuery(int days);

// A time database, and what stands behind it.
struct TimeFile
{
    QString path;
    // Whose rows they are, and the per-login database that keeps those that the file does not take. Without one they are kept
    // in memory only.
    QString person = {};
    dao::Database *localDB = nullptr;
    struct Outcome
    {
        QString message; // for the person: what became of a damaged file; empty when nothing was done to it
        QString trouble; // why there is no file to be used, as the end of a sentence; empty when there is
    };
    // Makes sure that the file is there: makes a missing one and, when the file was found `damaged`, sets it aside for a new
    // one.
    std::function<Outcome(bool damaged)> makeSure = {};
};

// The table "Stemp" of the time database. Changes are made in memory and written by Flush(), all that is unsaved in one
// transaction. What the file refuses, or does not answer for within 0.3 s, is parked in the per-login database, shows in every
// read, and goes out with a later Flush(), also one of a later run: each row bears an id of its own, so that it is stored once,
// wherever a process dies in between. Nothing here throws: a read that fails gives what memory holds, and the error goes to the
// log.
class TimeTable
{
public:
    explicit TimeTable(const TimeSource &time);

    // Names the file and opens it, waiting longer for a locked one than later, and takes up the rows that are parked for it.
    // False when it can't be read: every Flush() tries again then.
    bool Open(const TimeFile &file);
    void Close();
    QString Path() const { return file_.path; }

    // The rows of a RollBackQuery in the table's own order (that of adding), with the unsaved changes.
    QList<TimeRow> Rows(const QString &rollBackQuery);
    // At start: the newest row of any age that is open, else the newest row; nothing in an empty table. By its key, not by its
    // time: a clock may have been set back.
    TimeRowPtr OpenOrLastRow();

    TimeRowPtr Add(const QString &jobID, const QString &jobName, const QDateTime &in); // unsaved until Flush()
    void Complete(const TimeRowPtr &row, const QDateTime &out);                        // likewise

    bool Flush(); // true when nothing is left unsaved
    int UnsavedCount() const { return static_cast<int>(unsaved_.size()); }
    bool IsAllKept() const; // nothing is in memory only
    UnsavedNotice Notice() const;
    QString TakeMessage() { return std::exchange(message_, {}); } // for the person, once: what became of a damaged file
    QString Trouble() const
    {
        return trouble_;
    } // why the file could not be read or written last, as TroubleText says it

private:
    // These throw dao::Error.
    void EnsureOpen();
    void Connect();
    QList<TimeRow> StoredRows(const QString &source, const QVariantList &values, const QString &purpose);
    void WriteUnsaved();
    void CompleteLayout();
    qint64 Store(const TimeRow &row); // the row's key
    bool CompleteByKey(const TimeRow &row);

    bool IsInMemoryOnly(const TimeRow &row) const;
    bool TryToWrite();
    void TakeUpParked();
    void Park();
    void Failed(const dao::Error &error);
    void WaitAtMost(std::chrono::milliseconds wait);
    std::chrono::milliseconds WaitLeft() const;
    TimeRowPtr UnsavedOf(const TimeRow &stored) const; // its unsaved changes, if it has any

    const TimeSource &time_;
    TimeFile file_;
    dao::Database database_;
    bool hasStempIds_ = false; // the field is there, as far as this connection knows
    bool damaged_ = false;     // as far as the last failure told
    QString message_;
    QString trouble_;
    QString notMade_;                                // why the file could not be made, unless it was opened since
    std::chrono::steady_clock::time_point deadline_; // of waiting for locks
    QList<TimeRow> lastRead_;                        // what Rows gives of the file while that can't be read
    QList<TimeRowPtr> unsaved_;
    std::optional<ParkedRows> parked_;
    QString parkTrouble_;
};

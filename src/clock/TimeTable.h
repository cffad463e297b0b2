#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

class TimeSource;

// One in/out pair. Times are wall-clock times to the second.
struct TimeRow
{
    qint64 id = 0; // its key in the file; 0 until it is stored
    QString jobID;
    QString jobName;
    std::optional<QDateTime> stempInTime;
    std::optional<QDateTime> stempOutTime; // nothing while the row is open

    bool IsOpen() const { return stempInTime && !stempOutTime; }
};
using TimeRowPtr = std::shared_ptr<TimeRow>;

// The query of the roll-back grid: the rows whose stemp-in lies within the last `days` days.
QString RollBackQuery(int days);

// The table "Stemp" of the time database. Changes are made in memory and written by Flush(), all that is unsaved in one
// transaction; what could not be written stays, shows in every read, and goes out with a later Flush(). Nothing here throws:
// a read that fails gives what memory holds, and the error goes to the log.
class TimeTable
{
public:
    explicit TimeTable(const TimeSource &time);

    // Names the file, which must exist, and opens it, waiting longer for a locked one than later. False when that failed: every
    // Flush() tries again then.
    bool Open(const QString &path);
    void Close();
    QString Path() const { return path_; }
    bool IsDamaged() const { return damaged_; } // as far as the last failure told

    // The rows of a RollBackQuery in the table's own order (that of adding), with the unsaved changes.
    QList<TimeRow> Rows(const QString &rollBackQuery);
    // At start: the newest row of any age that is open, else the newest row; nothing in an empty table. By its key, not by its
    // time: a clock may have been set back.
    TimeRowPtr OpenOrLastRow();

    TimeRowPtr Add(const QString &jobID, const QString &jobName, const QDateTime &in); // unsaved until Flush()
    void Complete(const TimeRowPtr &row, const QDateTime &out);                        // likewise

    bool Flush(); // true when nothing is left unsaved
    int UnsavedCount() const { return static_cast<int>(unsaved_.size()); }

private:
    // These throw dao::Error.
    void EnsureOpen();
    void Connect(std::chrono::milliseconds wait);
    QList<TimeRow> StoredRows(const QString &source, const QVariantList &values, const QString &purpose);
    void WriteUnsaved();
    qint64 Store(const TimeRow &row); // the row's key

    void Failed(const dao::Error &error);
    TimeRowPtr Unsaved(qint64 id) const; // the stored row of this key, when it has unsaved changes

    const TimeSource &time_;
    QString path_;
    dao::Database database_;
    bool damaged_ = false;
    QList<TimeRow> lastRead_; // what Rows gives of the file while that can't be read
    QList<TimeRowPtr> unsaved_;
};

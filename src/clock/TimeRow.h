#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

// One in/out pair. Times are wall-clock times to the second.
struct TimeRow
{
    qint64 id = 0; // its key in the file; 0 until it is stored
    QString jobID;
    QString jobName;
    std::optional<QDateTime> stempInTime;
    std::optional<QDateTime> stempOutTime; // nothing while the row is open
    // Random, and the row's own wherever it is written, so that it can be written again without being doubled. Rows of earlier
    // versions and of other tools have none until they are completed.
    QString stempId;

    bool IsOpen() const { return stempInTime && !stempOutTime; }
};
using TimeRowPtr = std::shared_ptr<TimeRow>;

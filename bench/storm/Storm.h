#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

// What the driver of a storm and its copies agree on. Copies are counted from 0; their files lie in one folder.
namespace Storm {

// The person of a copy, in upper case. The first ones have names that are hard to store.
QString NameOf(int copy);

inline QString File(const QString &folder, const QString &name)
{
    return folder + u'/' + name;
}
inline QString CompanyFile(const QString &folder)
{
    return File(folder, QStringLiteral("company.mdb"));
}
inline QString LocalFile(const QString &folder, int copy)
{
    return File(folder, QStringLiteral("%1.mdb").arg(copy));
}
inline QString StopFile(const QString &folder) // copies end when it is there
{
    return File(folder, QStringLiteral("stop"));
}

[[noreturn]] void Die();          // as by a kill from outside: nothing of the process runs any more
bool HasDied(int exitCode);       // whether a process that crashed has died so
[[nodiscard]] qint64 StartedBy(); // the process that this one was started by; another when that has ended

// What a copy has lived through, line by line. A line that was written survives the copy.
class Journal
{
public:
    enum class Kind {
        Queued = 'Q', // a message that will arrive from now on: its text and its recipients
        Poll = 'P',   // milliseconds from asked to answered
        Locked = 'L', // a poll that another copy's lock kept out; the next one makes up for it
        Error = 'E'   // what a person would be troubled with
    };
    struct Line
    {
        Kind kind;
        QStringList fields;
    };

    Journal(const QString &folder, int copy);
    void Write(Kind kind, const QStringList &fields);

    static QList<Line> Read(const QString &folder, int copy);

private:
    QFile file_;
};

} // namespace Storm

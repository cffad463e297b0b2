#pragma once

#include <QString>

#include <exception>

namespace dao {

enum class ErrorKind {
    Busy,       // another connection holds the lock longer than the wait
    Constraint, // a unique index or a NOT NULL refused the row
    Corrupt,    // the file is damaged, or is no database
    ReadOnly,   // the file or its folder can't be written
    CannotOpen, // the file is missing or can't be opened
    Full,       // the disk is full
    TooLarge,   // a value, or a row, is larger than a connection reads or writes
    Stopped,    // it took longer than it may, or another thread has stopped it; a transaction was rolled back
    Folder,     // there is a folder of that name
    Foreign,    // a database of another program: tables of ours are missing
    // Another program has switched the file to a write-ahead log, which is not fit for a file that several machines share, and
    // it can't be put back while others have the file open.
    JournalMode,
    Other
};

// What every failing database operation throws. The text is for the log, never for a person.
class Error : public std::exception
{
public:
    // `purpose` says what the operation was for, "adding a time row"; `detail` what SQLite said.
    Error(ErrorKind kind, const QString &purpose, const QString &file, const QString &detail);

    ErrorKind Kind() const { return kind_; }
    const QString &Text() const { return text_; } // purpose, file and SQLite's own words on one line
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    ErrorKind kind_;
    QString text_;
    QByteArray utf8_;
};

} // namespace dao

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
    Other
};

// What every failing database operation throws. The text is for the log, never for a person.
class Error : public std::exception
{
public:
    Error(ErrorKind kind, QString purpose, QString file, QString detail);

    ErrorKind Kind() const { return kind_; }
    const QString &Purpose() const { return purpose_; } // what the statement was for, "adding a time row"
    const QString &File() const { return file_; }
    QString Text() const; // purpose, file and the engine's own words on one line
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    ErrorKind kind_;
    QString purpose_;
    QString file_;
    QString detail_;
    QByteArray utf8_;
};

} // namespace dao

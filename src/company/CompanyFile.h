#pragma once

#include "platform/dao/Database.h"

#include <QString>

#include <utility>

// A job database file that may go away and come back, or be replaced, while the program uses it. Belongs to one thread.
class CompanyFile
{
public:
    explicit CompanyFile(QString path) : path_(std::move(path)) {}

    // The connection, opened or opened again when need be. Throws dao::Error: a missing file gives ErrorKind::CannotOpen, one
    // without the tables of a job database ErrorKind::Other.
    dao::Database &Connection();
    void Close();

    // Whether another file has taken the place of an open one since this was last asked.
    bool TakeReplaced() { return std::exchange(replaced_, false); }

private:
    using FileId = std::pair<quint64, quint64>;
    FileId Identify() const; // which file stands at the path, zeros for none; asked without a handle

    const QString path_;
    dao::Database database_;
    FileId opened_;
    bool replaced_ = false;
};

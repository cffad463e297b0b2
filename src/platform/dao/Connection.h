#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <sqlite3.h>

#include <atomic>
#include <map>
#include <optional>
#include <thread>

// For the files of this folder only.
namespace dao {

ErrorKind KindOf(int nativeCode);

struct Database::Connection
{
    QString path;
    quint64 number = 0;
    QString name;
    QSqlDatabase session;
    sqlite3 *handle = nullptr;
    std::map<QString, QSqlQuery> changes; // prepared
    std::chrono::milliseconds busyWait{};
    StopFlag stop; // none: the library waits for locks by itself
    std::chrono::steady_clock::time_point waitBegun;
    std::optional<std::chrono::steady_clock::time_point> deadline; // of what is under way
    quint64 commits = 0;
    sqlite3_stmt *journalMode = nullptr; // asks for it
    bool isOwn = false;                  // a file of this program, whose journal mode may be changed

    ~Connection()
    {
        sqlite3_finalize(journalMode);
        changes.clear();
        session = QSqlDatabase(); // the driver refuses to go while a copy is about
        QSqlDatabase::removeDatabase(name);
    }

    bool IsOverdue() const { return deadline && std::chrono::steady_clock::now() >= *deadline; }

    bool WaitsOn(int waited) // how many times for the same lock
    {
        constexpr std::chrono::milliseconds step{5};
        const auto now = std::chrono::steady_clock::now();
        if (waited == 0)
            waitBegun = now;
        if (*stop || now - waitBegun >= busyWait)
            return false;
        std::this_thread::sleep_for(step);
        return true;
    }
};

} // namespace dao

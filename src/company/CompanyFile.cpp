#include "company/CompanyFile.h"

#include "platform/dao/Error.h"

#ifdef Q_OS_UNIX
#include <QFile>
#include <sys/stat.h>
#else
#include <QFileInfo>
#endif

using namespace Qt::Literals::StringLiterals;

dao::Database &CompanyFile::Connection()
{
    // Identified before it is opened: if it is replaced in between, the next request notices.
    const FileId file = Identify();
    if (database_.IsOpen() && file == opened_) {
        database_.KeepJournalMode();
        return database_;
    }
    const bool replaced = database_.IsOpen();
    Close(); // what was written to a file that is gone would be lost
    const QStringList tables{u"Projects"_s, u"Users"_s};
    dao::Database database = dao::Database::OpenDatabase(path_, dao::Database::defaultBusyWait, {}, tables);
    for (const QString &table : tables)
        if (!database.HasTable(table))
            throw dao::Error(dao::ErrorKind::Foreign, u"opening the job database"_s, path_, u"no table "_s + table);
    database_ = std::move(database);
    opened_ = file;
    replaced_ = replaced_ || replaced;
    return database_;
}

void CompanyFile::Close()
{
    database_.Close();
}

CompanyFile::FileId CompanyFile::Identify() const
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    if (::stat(QFile::encodeName(path_).constData(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
#else
    return {0, QFileInfo::exists(path_)}; // an open file can be neither deleted nor renamed here
#endif
}

#include "company/CompanyFile.h"

#include "platform/dao/Error.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

const QString &Purpose()
{
    static const QString purpose = u"opening the job database"_s;
    return purpose;
}

} // namespace

dao::Database &CompanyFile::Connection()
{
    // Identified before it is opened: if it is replaced in between, the next request notices.
    const std::optional<FileId> file = Identify();
    if (!file) {
        Close();
        throw dao::Error(dao::ErrorKind::CannotOpen, Purpose(), path_, u"no such file"_s);
    }
    if (database_.IsOpen() && *file == opened_)
        return database_;
    Close(); // what was written to it now would be lost
    dao::Database database = dao::Database::OpenDatabase(path_);
    for (const QString &table : {u"Projects"_s, u"Users"_s}) {
        if (!database.HasTable(table))
            throw dao::Error(dao::ErrorKind::Other, Purpose(), path_, u"no table "_s + table);
    }
    database_ = std::move(database);
    opened_ = *file;
    return database_;
}

void CompanyFile::Close()
{
    database_.Close();
}

std::optional<CompanyFile::FileId> CompanyFile::Identify() const
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    if (::stat(QFile::encodeName(path_).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileId(status.st_dev, status.st_ino);
#else
    if (!QFileInfo(path_).isFile())
        return std::nullopt;
    return FileId(); // here an open file can be neither deleted nor renamed
#endif
}

#pragma once

#include <QFile>
#include <QString>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

// While it lives, `folder` can be read but not written, and permissions hold also when root runs the tests.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const QString &folder) : folder_(folder)
    {
        QFile::setPermissions(folder_, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
#ifdef Q_OS_UNIX
        root_ = geteuid() == 0;
        if (root_ && (setegid(nobody) != 0 || seteuid(nobody) != 0))
            qFatal("cannot become an ordinary user");
#endif
    }
    ~OrdinaryUser()
    {
#ifdef Q_OS_UNIX
        if (root_ && (seteuid(0) != 0 || setegid(0) != 0))
            qFatal("cannot become root again");
#endif
        QFile::setPermissions(folder_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    QString folder_;
#ifdef Q_OS_UNIX
    static constexpr unsigned nobody = 65534;
    bool root_ = false;
#endif
};

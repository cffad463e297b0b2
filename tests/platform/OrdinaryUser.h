#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

// While it lives, file permissions hold for this process even when root runs the tests.
class OrdinaryUser
{
public:
#ifdef Q_OS_UNIX
    OrdinaryUser() : changed_(geteuid() == 0 && setegid(nobody) == 0 && seteuid(nobody) == 0) {}
    ~OrdinaryUser()
    {
        if (changed_ && (seteuid(0) != 0 || setegid(0) != 0))
            qFatal("cannot become root again");
    }
#else
    OrdinaryUser() = default;
#endif
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

#ifdef Q_OS_UNIX
private:
    static constexpr uid_t nobody = 65534;
    bool changed_;
#endif
};

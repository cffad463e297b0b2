#include "startup/SessionEnd.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

#ifdef Q_OS_UNIX
namespace {

constexpr int endingSignals[] = {SIGTERM, SIGINT, SIGHUP};
int signalSockets[2] = {-1, -1};

// All that a signal handler may do here: wake the event loop.
void WakeLoop(int)
{
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalSockets[0], &byte, 1);
    errno = error;
}

} // namespace
#endif

SessionEnd::SessionEnd()
{
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager &manager) {
        manager.setRestartHint(QSessionManager::RestartNever);
        emit Ending();
    });
#ifdef Q_OS_UNIX
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalSockets) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(signalSockets[1], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(signalSockets[1], &byte, 1) == 1)
            emit Ending();
    });
    for (const int number : endingSignals)
        std::signal(number, WakeLoop);
#endif
}

SessionEnd::~SessionEnd()
{
#ifdef Q_OS_UNIX
    for (const int number : endingSignals)
        std::signal(number, SIG_DFL);
    notifier_.reset();
    for (int &socket : signalSockets) {
        ::close(socket);
        socket = -1;
    }
#endif
}

#include "startup/SessionEnd.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <chrono>
#include <cstdlib>
#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#else
#include <thread>
#endif

namespace {

constexpr std::chrono::seconds longestEnd{4}; // from the news to the end of the process

#ifdef Q_OS_UNIX
constexpr int endingSignals[] = {SIGTERM, SIGINT, SIGHUP};
int signalSockets[2] = {-1, -1};

void LimitTheEnd()
{
    ::alarm(static_cast<unsigned>(longestEnd.count()));
}

// Besides the alarm, all that a signal handler may do here: wake the event loop.
void WakeLoop(int)
{
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalSockets[0], &byte, 1);
    LimitTheEnd();
    errno = error;
}
#else
void LimitTheEnd()
{
    std::thread([] {
        std::this_thread::sleep_for(longestEnd);
        std::_Exit(EXIT_FAILURE);
    }).detach();
}
#endif

} // namespace

SessionEnd::SessionEnd()
{
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager &manager) {
        manager.setRestartHint(QSessionManager::RestartNever);
        LimitTheEnd();
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
    std::signal(SIGALRM, [](int) { ::_exit(EXIT_FAILURE); });
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

// platform file: POSIX; the Windows branch is InterruptWindows.cpp
#include "ExitCode.h"
#include "Interrupt.h"

#include <QSocketNotifier>

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vemo_client {

namespace {

std::atomic<int> wakeFd{-1};
std::atomic<bool> requested{false};

/// Only what is allowed in a signal handler: a byte into a pipe, or the end of the process.
void onSignal(int)
{
    if (requested.exchange(true))
        _exit(static_cast<int>(ExitCode::Interrupted));
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(wakeFd.load(), &byte, 1);
}

} // namespace

class Interrupt::Private
{
public:
    int readFd = -1;
    int writeFd = -1;
    std::unique_ptr<QSocketNotifier> notifier;
};

Interrupt::Interrupt(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    int fds[2] = {-1, -1};
    if (pipe(fds) != 0)
        return;
    for (const int fd : fds) {
        fcntl(fd, F_SETFD, FD_CLOEXEC);
        fcntl(fd, F_SETFL, O_NONBLOCK);
    }
    d->readFd = fds[0];
    d->writeFd = fds[1];
    wakeFd = d->writeFd;
    d->notifier = std::make_unique<QSocketNotifier>(d->readFd, QSocketNotifier::Read);
    connect(d->notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (read(d->readFd, &byte, 1) == 1)
            emit signalInterrupted();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaction(number, &action, nullptr);
    // A reader of our output that went away must not cost the file its end.
    std::signal(SIGPIPE, SIG_IGN);
}

Interrupt::~Interrupt()
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        std::signal(number, SIG_DFL);
    wakeFd = -1;
    for (const int fd : {d->readFd, d->writeFd}) {
        if (fd >= 0)
            close(fd);
    }
}

} // namespace vemo_client

#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int Watched[] = {SIGTERM, SIGHUP, SIGINT};

int writeEnd = -1;

void onSignal(int)
{
    const int savedErrno = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
    errno = savedErrno;
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent) : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, sockets) != 0) {
        qWarning("Velkaro: termination signals cannot be watched (%s); they end the game "
                 "without saving.",
                 std::strerror(errno));
        return;
    }
    writeEnd = sockets[1];
    auto *notifier = new QSocketNotifier(sockets[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::Drain);
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int number : Watched) {
        struct sigaction previous = {};
        if (sigaction(number, nullptr, &previous) == 0 && previous.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}

void TerminationSignals::Drain()
{
    char bytes[16];
    while (::read(sockets[0], bytes, sizeof bytes) > 0) {
    }
    emit Received();
}

#include "wire/termination.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

int pipeEnds[2] = {-1, -1};

// Nothing but a write is allowed in a signal handler; the event loop does the rest.
void onSignal(int)
{
    const char byte = 0;
    const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    static_cast<void>(written);
}

} // namespace

void quitOnTermination(std::function<void()> before)
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier =
        new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, QCoreApplication::instance());
    const auto end = [before = std::move(before), notifier] {
        notifier->setEnabled(false); // once is enough
        if (before)
            before();
        QCoreApplication::quit();
    };
    QObject::connect(notifier, &QSocketNotifier::activated, QCoreApplication::instance(), end);

    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

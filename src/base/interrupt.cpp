#include "base/interrupt.h"

#include <csignal>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace {
/// A handler may do next to nothing; it writes into this pipe, and the event loop does the rest.
std::array<int, 2> interruptPipe{-1, -1};

void noteInterrupt(int number)
{
    std::signal(number, SIG_DFL);
    const char byte = 0;
    [[maybe_unused]] const auto written = write(interruptPipe[1], &byte, 1);
}
} // namespace

Interrupt::Interrupt(QObject *parent)
    : QObject(parent)
{
    if (pipe2(interruptPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(interruptPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT interrupted();
    });
    std::signal(SIGINT, noteInterrupt);
    std::signal(SIGTERM, noteInterrupt);
}

Interrupt::~Interrupt()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    for (int &end : interruptPipe) {
        close(end);
        end = -1;
    }
}

#else

// Where there are no signals, an interrupt ends the process at once.
Interrupt::Interrupt(QObject *parent)
    : QObject(parent)
{
}

Interrupt::~Interrupt() = default;

#endif

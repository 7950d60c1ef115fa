#include "app/SignalWatch.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> endingSignals{SIGTERM, SIGINT, SIGHUP};

// Reading and writing end. Open until the process ends: a signal may come at any time.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): handlers carry no data
std::array<int, 2> wakeUpPipe{-1, -1};

// nohup has SIGHUP ignored: a signal that is ignored at the start stays so.
bool isIgnored(int number)
{
    struct sigaction current{};
    sigaction(number, nullptr, &current);
    return current.sa_handler == SIG_IGN;
}

void wakeUp(int)
{
    const int error = errno;
    const char byte = 0;
    // The pipe is empty: a write of one byte cannot block or fall short.
    if (write(wakeUpPipe[1], &byte, 1) < 0)
        _exit(1);
    errno = error;
}

} // namespace

SignalWatch::SignalWatch(QObject* parent)
    : QObject(parent)
{
    if (wakeUpPipe[0] < 0 && pipe2(wakeUpPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(wakeUpPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (read(wakeUpPipe[0], &byte, 1) == 1)
            emit askedToEnd();
    });

    struct sigaction action{};
    action.sa_handler = wakeUp;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int number : endingSignals) {
        if (!isIgnored(number))
            sigaction(number, &action, nullptr);
    }
}

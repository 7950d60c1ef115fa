#include "switcher/StopSignals.h"

#include <csignal>
#include <poll.h>
#include <stdexcept>
#include <sys/signalfd.h>
#include <unistd.h>

StopSignals::StopSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&signals, number);
        // A signal that the parent has set to be ignored would not reach the descriptor.
        std::signal(number, SIG_DFL);
    }
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    signalDescriptor = signalfd(-1, &signals, SFD_CLOEXEC);
    if (signalDescriptor < 0)
        throw std::runtime_error("no descriptor for signals");
}

StopSignals::~StopSignals()
{
    close(signalDescriptor);
}

bool StopSignals::haveCome() const
{
    pollfd signals{signalDescriptor, POLLIN, 0};
    return poll(&signals, 1, 0) == 1;
}

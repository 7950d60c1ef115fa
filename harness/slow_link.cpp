// Puts a slow line before an X server:
//
//   kbd-slow-link DISPLAY-NUMBER DELAY
//
// prints the display that it offers, and hands what comes there on to the server of that number,
// DELAY milliseconds late in each direction. Ends on SIGTERM and SIGINT.

#include "harness/SlowLink.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <sys/signalfd.h>

namespace {

constexpr int firstOffered = 100;

int endingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "Usage: %s DISPLAY-NUMBER DELAY\n", argv[0]);
        return EXIT_FAILURE;
    }
    const int stop = endingSignals();
    const std::chrono::duration<double, std::milli> delay(std::atof(argv[2]));
    try {
        SlowLink link(firstOffered, std::atoi(argv[1]),
            std::chrono::duration_cast<DelayLine::Clock::duration>(delay));
        std::printf(":%d\n", link.displayNumber());
        std::fflush(stdout);
        link.serve(stop);
    } catch (const std::runtime_error& failure) {
        std::fprintf(stderr, "kbd-slow-link: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

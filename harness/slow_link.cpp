// Puts a slow line before an X server:
//
//   kbd-slow-link DISPLAY DELAY
//
// prints the display that it offers, and hands what comes there on to DISPLAY, such as ":12", DELAY
// milliseconds late in each direction. Ends on SIGTERM and SIGINT.

#include "harness/XProxy.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

// Blocks them in this thread and in all that it starts; sigwait takes them.
sigset_t blockEndingSignals()
{
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    return ending;
}

void serve(const char* display, const char* milliseconds)
{
    const sigset_t endingSignals = blockEndingSignals();
    const std::chrono::duration<double, std::milli> delay(std::atof(milliseconds));
    const XProxy link(display, {std::chrono::duration_cast<DelayLine::Clock::duration>(delay), {}});
    std::puts(link.display().constData());
    std::fflush(stdout);
    int received = 0;
    sigwait(&endingSignals, &received);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "Usage: %s DISPLAY DELAY\n", argv[0]);
        return EXIT_FAILURE;
    }
    try {
        serve(argv[1], argv[2]);
    } catch (const std::runtime_error& failure) {
        std::fprintf(stderr, "kbd-slow-link: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

#include "StartMeasure.h"

#include "harness/SlowDisplay.h"

namespace {

using namespace std::chrono_literals;

constexpr auto lineDelay = 10ms; // in each direction

double startOnce(Program& program, const QByteArray& display)
{
    const double time = program.startUntilPainted(display);
    program.stop();
    return time;
}

} // namespace

StartFigures measureStart(const Programs& programs, int runs)
{
    StartFigures figures{Series(programs.size()), Series(programs.size())};
    for (int run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            figures.start[i].push_back(programs[i]->startUntilPainted());
            figures.memory[i].push_back(programs[i]->memory());
            programs[i]->stop();
        }
    }
    return figures;
}

Series measureRoundTrips(Desktop& desktop, const Programs& programs, int runs)
{
    const SlowDisplay fast(desktop.displayName(), 0ms);
    const SlowDisplay slow(desktop.displayName(), lineDelay);
    Series roundTrips(programs.size());
    for (int run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            const double longer =
                startOnce(*programs[i], slow.display()) - startOnce(*programs[i], fast.display());
            roundTrips[i].push_back(longer / static_cast<double>(2 * lineDelay.count()));
        }
    }
    return roundTrips;
}

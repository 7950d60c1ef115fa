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

StartFigures measureStart(Program& ours, Program& bare, int runs)
{
    StartFigures figures;
    const auto measure = [](Program& program, Samples& start, Samples& memory) {
        start.push_back(program.startUntilPainted());
        memory.push_back(program.memory());
        program.stop();
    };
    for (int i = 0; i < runs; ++i) {
        measure(ours, figures.start.ours, figures.memory.ours);
        measure(bare, figures.start.other, figures.memory.other);
    }
    return figures;
}

Compared measureRoundTrips(Desktop& desktop, Program& ours, Program& bare, int runs)
{
    const SlowDisplay fast(desktop.displayName(), 0ms);
    const SlowDisplay slow(desktop.displayName(), lineDelay);
    Compared roundTrips;
    const auto measure = [&](Program& program, Samples& samples) {
        const double longer =
            startOnce(program, slow.display()) - startOnce(program, fast.display());
        samples.push_back(longer / static_cast<double>(2 * lineDelay.count()));
    };
    for (int i = 0; i < runs; ++i) {
        measure(ours, roundTrips.ours);
        measure(bare, roundTrips.other);
    }
    return roundTrips;
}

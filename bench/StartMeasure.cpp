#include "StartMeasure.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr double lineDelay = 10; // milliseconds in each direction
constexpr auto lookAgain = 5ms;
constexpr auto patience = 5s;

// A slow line to the private server, at the end of which a program can be started.
class Line {
public:
    Line(const Desktop& desktop, double delay)
        : link({KBD_BENCH_SLOW_LINK, QByteArray::number(desktop.displayNumber()),
                   QByteArray::number(delay)},
              currentEnvironment())
    {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (!link.output().endsWith('\n') && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(lookAgain);
        if (!link.output().startsWith(':'))
            throw std::runtime_error("no slow line: " + link.output().toStdString());
    }

    QByteArray displayName() const { return link.output().trimmed(); }

private:
    ChildProcess link;
};

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
    const Line fast(desktop, 0);
    const Line slow(desktop, lineDelay);
    Compared roundTrips;
    const auto measure = [&](Program& program, Samples& samples) {
        const double longer =
            startOnce(program, slow.displayName()) - startOnce(program, fast.displayName());
        samples.push_back(longer / (2 * lineDelay));
    };
    for (int i = 0; i < runs; ++i) {
        measure(ours, roundTrips.ours);
        measure(bare, roundTrips.other);
    }
    return roundTrips;
}

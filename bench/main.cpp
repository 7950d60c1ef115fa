// Measures the program beside a bare Qt window, the baseline, and prints the figures:
//
//   kbd-bench PROGRAM DIRECTORY [RUNS]
//
// DIRECTORY holds the keyboard table and the icons. Everything runs on a private X server. The
// figures are medians; they judge nothing, because they depend on the machine and on what else it
// does.

#include "ChoiceMeasure.h"
#include "ClickMeasure.h"
#include "KeyMeasure.h"
#include "StartMeasure.h"
#include "Table.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualRuns = 15;
constexpr int roundTripRuns = 3;
constexpr int repeatsInRound = 3; // of a key press or click, in one run of the program

struct Bench {
    QByteArray program;
    QString directory;
    int runs = usualRuns;

    int rounds() const { return (runs + repeatsInRound - 1) / repeatsInRound; }
    ProgramSetup setup(const QByteArray& flag) const { return {{program, flag}, directory, {}}; }
};

// The baseline: a bare window of the same size and with the same focus behaviour.
ProgramSetup bareLike(const Program& program, const Bench& bench, const QByteArray& flag)
{
    return {{KBD_BENCH_BARE_WINDOW, QByteArray::number(program.size().width()),
                QByteArray::number(program.size().height()), flag},
        bench.directory, {}};
}

void say(const char* what)
{
    std::fprintf(stderr, "Measuring: %s\n", what);
}

// In the mode with a text line of its own, where it has the focus.
void compareTryOut(Desktop& desktop, const Bench& bench, Table& table)
{
    say("start, stand-alone");
    Program ours(desktop, bench.setup("--standalone"));
    Program bare(desktop, bareLike(ours, bench, "--standalone"));
    const StartFigures start = measureStart(ours, bare, bench.runs);
    table.addComparison("Start to painted window, --standalone", start.start, "ms", "<= 2.0");
    table.addComparison(
        "  serial round trips", measureRoundTrips(desktop, ours, bare, roundTripRuns), "");
    table.addComparison("  memory (PSS)", start.memory, "MB");

    say("keys pressed");
    const KeyFigures keys = measureKeys(desktop, ours, bare, bench.rounds(), repeatsInRound);
    table.addComparison("Pressed key lit", keys.oneKey, "ms");
    table.addComparison("All labels changed after Shift", keys.allLabels, "ms");
}

void compareToFocus(Desktop& desktop, const Bench& bench, Table& table)
{
    say("start, beside another window");
    Program ours(desktop, bench.setup("--tofocus"));
    Program bare(desktop, bareLike(ours, bench, "--tofocus"));
    const StartFigures start = measureStart(ours, bare, bench.runs);
    table.addComparison("Start to painted window, --tofocus", start.start, "ms", "<= 2.0");
    table.addComparison(
        "  serial round trips", measureRoundTrips(desktop, ours, bare, roundTripRuns), "");
    table.addComparison("  memory (PSS)", start.memory, "MB");

    say("clicks");
    table.addComparison("Click to key event at the target",
        measureClicks(desktop, ours, bare, bench.rounds(), repeatsInRound), "ms");
}

Table compareWithBareWindow(Desktop& desktop, const Bench& bench)
{
    Table table("Beside a bare window", {"ours", "bare", "ratio", "aim"});
    compareTryOut(desktop, bench, table);
    compareToFocus(desktop, bench, table);
    return table;
}

Table compareChoice(Desktop& desktop, const Bench& bench)
{
    say("choice of a layout");
    Table table("Beside the tools underneath", {"ours", "tools", "ratio", "aim"});
    table.addComparison("Choice of a layout to its picture painted",
        measureChoice(desktop, bench.directory, bench.runs), "ms", "<= 1.3");
    return table;
}

void run(const Bench& bench)
{
    double load = 0;
    getloadavg(&load, 1);
    Desktop desktop;
    const Table window = compareWithBareWindow(desktop, bench);
    const Table choice = compareChoice(desktop, bench);
    std::printf("Medians of %d runs in turns; Qt %s, %u processors, load %.1f at the beginning\n",
        bench.runs, qVersion(), std::thread::hardware_concurrency(), load);
    for (const Table& table : {window, choice})
        std::printf("\n%s", table.text().constData());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3 || (argc > 3 && std::atoi(argv[3]) < 1)) {
        std::fprintf(stderr, "Usage: %s PROGRAM DIRECTORY [RUNS]\n", argv[0]);
        return EXIT_FAILURE;
    }
    if (!QFile::exists(QString::fromLocal8Bit(argv[2]) + u"/kbdSpecs.tab"_s)) {
        std::fprintf(stderr, "kbd-bench: no spec table in %s\n", argv[2]);
        return EXIT_FAILURE;
    }
    try {
        run({argv[1], QString::fromLocal8Bit(argv[2]), argc > 3 ? std::atoi(argv[3]) : usualRuns});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kbd-bench: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

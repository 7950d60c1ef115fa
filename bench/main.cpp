// Measures the program beside two windows of its size and prints the figures:
//
//   kbd-bench PROGRAM DIRECTORY [RUNS]
//
// One of the windows is bare; the other, the floor, does once what no program of this kind can
// avoid. DIRECTORY holds the keyboard table and the icons. Everything runs on a private X server.
// The figures are medians; they judge nothing, because they depend on the machine and on what else
// it does.

#include "ChoiceMeasure.h"
#include "ClickMeasure.h"
#include "FarMeasure.h"
#include "GrowthMeasure.h"
#include "KeyMeasure.h"
#include "PeerMeasure.h"
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

const QByteArrayList headings{"ours", "floor", "bare", "/ floor", "/ bare", "aim"};

struct Bench {
    QByteArray program;
    QString directory;
    int runs = usualRuns;

    int rounds() const { return (runs + repeatsInRound - 1) / repeatsInRound; }
    ProgramSetup setup(const QByteArray& flag) const { return {{program, flag}, directory, {}}; }
    GrowthSetup growth() const { return {program, directory}; }
};

constexpr QSize usualScreen(1280, 800);
constexpr QSize screen4K(3840, 2160);

// The program in one of its modes, and the two windows of the same size and with the same focus
// behaviour.
struct Competitors {
    Competitors(Desktop& desktop, const Bench& bench, const QByteArray& flag)
        : ours(desktop, bench.setup(flag))
        , floor(desktop, window(bench, {flag, "--floor"}))
        , bare(desktop, window(bench, {flag}))
    {
    }

    Programs all() { return {&ours, &floor, &bare}; }

    Program ours;
    Program floor;
    Program bare;

private:
    ProgramSetup window(const Bench& bench, const QByteArrayList& flags) const
    {
        const QByteArrayList command{KBD_BENCH_BARE_WINDOW, QByteArray::number(ours.size().width()),
            QByteArray::number(ours.size().height())};
        return {command + flags, bench.directory, {}};
    }
};

void say(const QByteArray& what)
{
    std::fprintf(stderr, "Measuring: %s\n", what.constData());
}

void compareStart(Desktop& desktop, const Bench& bench, Competitors& programs, Table& table)
{
    const StartFigures start = measureStart(programs.all(), bench.runs);
    table.addComparison("Start to painted window", start.start, "ms", "<= 1.15");
    table.addComparison("  serial round trips",
        measureRoundTrips(desktop, programs.all(), roundTripRuns), "", "<= 97");
    table.addComparison("  memory (PSS)", start.memory, "MB", "<= 1.15");
}

// Measured with --standalone, where the program's own text line has the focus.
Table compareTryOut(Desktop& desktop, const Bench& bench)
{
    say("start, stand-alone");
    Table table("--standalone", headings);
    Competitors programs(desktop, bench, "--standalone");
    compareStart(desktop, bench, programs, table);

    say("keys pressed");
    const KeyFigures keys = measureKeys(desktop, programs.all(), bench.rounds(), repeatsInRound);
    table.addComparison("Pressed key lit", keys.oneKey, "ms", "<= 1.5 ms");
    table.addComparison("All labels changed after Shift", keys.allLabels, "ms", "<= 1.0");
    return table;
}

// What goes over the line to a remote display. No aims: the floor does hardly anything comparable.
Table compareFar(Desktop& desktop, const Bench& bench)
{
    say("what is sent to a server that is far away");
    Competitors programs(desktop, bench, "--standalone");
    const FarFigures figures = measureFar(desktop, programs.all(), roundTripRuns);
    Table table("Sent to a remote display", headings);
    table.addComparison("Start", figures.start, "kB");
    table.addComparison("A letter's key lit and out", figures.letter, "kB");
    table.addComparison("Shift pressed", figures.shift, "kB");
    table.addComparison("Caps Lock on and off", figures.lock, "kB");
    table.addComparison("  answers waited for", figures.lockAnswers, "");
    return table;
}

// The same keys on a screen where the picture has nine times as many pixels.
Table compareKeys4K(const Bench& bench)
{
    say("keys pressed, on a 4K screen");
    Desktop desktop(screen4K);
    Competitors programs(desktop, bench, "--standalone");
    const KeyFigures keys = measureKeys(desktop, programs.all(), bench.rounds(), repeatsInRound);
    Table table("--standalone, 2880 pixels wide", headings);
    table.addComparison("Pressed key lit", keys.oneKey, "ms", "<= 5 ms");
    table.addComparison("All labels changed after Shift", keys.allLabels, "ms", "<= 0.35");
    return table;
}

Table compareToFocus(Desktop& desktop, const Bench& bench)
{
    say("start, beside another window");
    Table table("--tofocus", headings);
    Competitors programs(desktop, bench, "--tofocus");
    compareStart(desktop, bench, programs, table);

    say("clicks");
    table.addComparison("Click to key event at the target",
        measureClicks(desktop, programs.all(), bench.rounds(), repeatsInRound), "ms", "<= 0.5 ms");
    return table;
}

Table compareChoice(Desktop& desktop, const Bench& bench)
{
    say("choice of a layout");
    Table table("Beside the tools underneath", {"ours", "tools", "/ tools", "aim"});
    table.addComparison("Choice of a layout to its picture painted",
        measureChoice(desktop, desktop.displayName(), bench.directory, bench.runs), "ms",
        "<= 1.15");
    table.addComparison("  serial round trips",
        measureChoiceRoundTrips(desktop, bench.directory, roundTripRuns), "");
    return table;
}

// The longer one first: the row ends with how much more it costs.
Table compareTables(const Bench& bench)
{
    say("start, with a long table");
    const int built = tableLength(bench.directory);
    const QByteArray length = QByteArray::number(built);
    Table table("Growth with the table of keyboards", {"200,000", length, "/ " + length, "aim"});
    table.addComparison("Start to painted window",
        measureTableGrowth(bench.growth(), {200000, built}, bench.runs), "ms", "<= 50 ms more");
    return table;
}

// Most of the keys are blank in the longer two (ManyKeys.h).
Table compareKeyCounts(const Bench& bench)
{
    say("start and Shift, with many keys");
    const KeyGrowth growth = measureKeyGrowth(bench.growth(), {3000, 1000, 100}, bench.runs);
    Table table("Growth with the number of keys", {"3,000", "1,000", "100", "/ 1,000", "/ 100"});
    table.addComparison("Start to painted window", growth.start, "ms");
    table.addComparison("All labels changed after Shift", growth.shift, "ms");
    return table;
}

Table comparePeers(Desktop& desktop, const Bench& bench)
{
    say("other keyboards that are installed");
    Table table("Other keyboards", {"start"});
    for (const PeerFigures& peer : measurePeers(desktop, bench.runs, say))
        table.addComparison(peer.name, {peer.start}, "ms");
    return table;
}

void run(const Bench& bench)
{
    double load = 0;
    getloadavg(&load, 1);
    Desktop desktop(usualScreen);
    const Table tryOut = compareTryOut(desktop, bench);
    const Table toFocus = compareToFocus(desktop, bench);
    const Table keys4K = compareKeys4K(bench);
    const Table far = compareFar(desktop, bench);
    const Table choice = compareChoice(desktop, bench);
    const Table tables = compareTables(bench);
    const Table keyCounts = compareKeyCounts(bench);
    const Table peers = comparePeers(desktop, bench);
    std::printf("Medians of %d runs in turns; Qt %s, %u processors, load %.1f at the beginning\n",
        bench.runs, qVersion(), std::thread::hardware_concurrency(), load);
    for (const Table& table : {tryOut, toFocus, keys4K, far, choice, tables, keyCounts, peers})
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

// Clicks: the keys of the picture are clicked on under six window managers, and every letter has to
// arrive once and in its order in the window of another program: a plain X window, a terminal, a
// line of Qt's and one of Tk's. In the middle the window manager answers nothing for a while.

#include "harness/PrivateServer.h"
#include "harness/WaitUntil.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "tests/long/LongRun.h"
#include "tests/long/ProgramHere.h"
#include "tests/long/TextTarget.h"
#include "ui/MainWindow.h"
#include "x11/X11.h"

#include <QStandardPaths>
#include <QTest>

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>

namespace {

constexpr int mostClicksOfAPair = 1000;
constexpr int leastClicksOfAPair = 40; // where the time is limited
constexpr qint64 clicksInASecond = 60; // with what is started for each pair
constexpr int clicksBetweenLooks = 20;
constexpr int mostClicksSuspended = 100; // that the window manager learns of later
constexpr int paceMs = 10;

constexpr std::array managers{"openbox", "xfwm4", "metacity", "fluxbox", "icewm", "jwm"};

struct TargetRow {
    const char* word;
    TextTarget::Kind kind;
};

constexpr std::array<TargetRow, 4> targets{{
    {"a plain window", TextTarget::Kind::PlainX},
    {"xterm", TextTarget::Kind::Terminal},
    {"Qt", TextTarget::Kind::Qt},
    {"Tk", TextTarget::Kind::Tk},
}};

struct Pair {
    const char* manager;
    TargetRow target;
};

QList<Pair> installedPairs()
{
    QList<Pair> pairs;
    for (const char* manager : managers) {
        if (QStandardPaths::findExecutable(QLatin1StringView(manager)).isEmpty())
            continue;
        for (const TargetRow& target : targets)
            pairs.append({manager, target});
    }
    return pairs;
}

// So many that there is time for all pairs.
int clicksOfAPair(const LongRun& run, qsizetype pairs)
{
    if (!run.hasTimeLimit() || pairs == 0)
        return mostClicksOfAPair;
    const qint64 count = run.seconds() * clicksInASecond / pairs;
    return static_cast<int>(std::clamp<qint64>(count, leastClicksOfAPair, mostClicksOfAPair));
}

QList<KbdKey*> letterKeys(const KbdGeometry& picture)
{
    QList<KbdKey*> keys = picture.keyItems();
    keys.removeIf([](const KbdKey* key) {
        const QString label = key->activeLabel();
        return label.size() != 1 || label.front() < QLatin1Char('a')
            || label.front() > QLatin1Char('z');
    });
    return keys;
}

// A server, the program and a target for each pair.
class Clicks {
public:
    explicit Clicks(LongRun& longRun)
        : run(longRun)
        , chance(run.seed())
    {
    }

    void live(const Pair& pair, int count);
    int clicks() const { return clickCount; }
    int pairs() const { return pairCount; }

private:
    QString fault(const Pair& pair, int count);
    QString clickInto(const KbdGeometry& picture, TextTarget& target, int count);
    void makeManagerLate(int click, int count);
    void click(const KbdGeometry& picture, const KbdKey& key);

    LongRun& run;
    Display* display = nullptr; // of the pair that lives
    std::unique_ptr<WindowManager> manager; // the same
    bool isManagerLate = false;
    std::mt19937 chance;
    int clickCount = 0;
    int pairCount = 0;
};

void Clicks::live(const Pair& pair, int count)
{
    const PrivateServer server;
    server.useForThisProcess();
    const XConnection connection = openDisplay(server.display());
    display = connection.get();
    const ExpectedXErrors errors; // of windows that have gone, while managers are asked for them
    const QString found = fault(pair, count);
    manager.reset();
    ++pairCount;
    if (!found.isEmpty())
        run.broken(QStringLiteral("%1, %2: %3")
                .arg(QLatin1StringView(pair.manager), QLatin1StringView(pair.target.word), found));
}

// Empty when all is well.
QString Clicks::fault(const Pair& pair, int count)
{
    manager = std::make_unique<WindowManager>(pair.manager, XDisplayString(display));
    ProgramHere program(display);
    if (!program.start("--tofocus", {"-model", "pc105", "-layout", "us"}))
        return QStringLiteral("the program does not start");
    TextTarget target(pair.target.kind, display, program.window().winId());
    if (!target.waitForReady())
        return QStringLiteral("the target does not get the focus");
    QString found = clickInto(program.picture(), target, count);
    manager->resume();
    isManagerLate = false;
    if (!found.isEmpty())
        return found;
    const auto isAllUp = [&] { return pressedKeys(XDisplayString(display)).isEmpty(); };
    return waitUntil(isAllUp) ? QString() : QStringLiteral("a key is left down");
}

QString Clicks::clickInto(const KbdGeometry& picture, TextTarget& target, int count)
{
    const QList<KbdKey*> letters = letterKeys(picture);
    QString expected;
    for (int i = 1; i <= count && run.goesOn(); ++i) {
        const KbdKey& key = *letters.at(static_cast<qsizetype>(chance() % letters.size()));
        expected += key.activeLabel();
        makeManagerLate(i, count);
        click(picture, key);
        const bool isTimeToLook = !isManagerLate && i % clicksBetweenLooks == 0;
        if (isTimeToLook && !waitUntil([&] { return target.typed() == expected; }))
            return QStringLiteral("\"%1\" instead of \"%2\"").arg(target.typed(), expected);
    }
    return {};
}

// With the buttons some managers hold the keys back until they go on: nothing is to be seen then.
void Clicks::makeManagerLate(int click, int count)
{
    const int first = count / 2;
    if (click == first) {
        manager->suspend();
        isManagerLate = true;
    } else if (click == first + std::min(first / 2, mostClicksSuspended)) {
        manager->resume();
        isManagerLate = false;
    }
}

void Clicks::click(const KbdGeometry& picture, const KbdKey& key)
{
    const QPoint place =
        picture.viewport()->mapToGlobal(picture.mapFromScene(key.sceneBoundingRect().center()));
    XTestFakeMotionEvent(display, -1, place.x(), place.y(), CurrentTime);
    XTestFakeButtonEvent(display, 1, x11::xTrue, CurrentTime);
    XTestFakeButtonEvent(display, 1, x11::xFalse, CurrentTime);
    XFlush(display);
    ++clickCount;
    QTest::qWait(paceMs);
}

} // namespace

int main(int argc, char** argv)
{
    LongRun run("clicks", argc, argv);
    Clicks clicks(run);
    std::mt19937 chance(run.seed());
    QList<Pair> pairs = installedPairs();
    if (run.hasTimeLimit())
        std::shuffle(pairs.begin(), pairs.end(), chance);
    const int count = clicksOfAPair(run, pairs.size());
    do {
        for (qsizetype i = 0; i < pairs.size() && run.goesOn(); ++i) {
            if (run.isOurs(i))
                clicks.live(pairs.at(i), count);
        }
    } while (run.hasTimeLimit() && run.goesOn());
    if (clicks.clicks() == 0)
        run.broken(QStringLiteral("nothing was clicked"));
    return run.finish({QStringLiteral("%1 window managers, %2 kinds of target")
                           .arg(pairs.size() / static_cast<qsizetype>(targets.size()))
                           .arg(targets.size()),
        QStringLiteral("%1 pairs").arg(clicks.pairs()),
        QStringLiteral("%1 clicks").arg(clicks.clicks())});
}

#pragma once

#include "harness/ProgramWindows.h"
#include "harness/XTools.h"
#include "tests/long/Hands.h"
#include "tests/long/ProgramHere.h"

#include <QSet>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>
#include <random>

class KeyTargetProcess;
class LongRun;
class ProgramRun;

// What a user and other tools do to the program, by chance, and a look now and then at whether all
// is as it should be: see PictureTruth.h.
class Chaos {
public:
    // A connection of the test's own, and hands on the devices of the same display; all are
    // borrowed.
    Chaos(Display* testDisplay, Hands& usersHands, LongRun& longRun);
    ~Chaos();
    Q_DISABLE_COPY(Chaos)

    // A program that is killed in the middle of a press; then one start of the program with this
    // option, a thousand actions or as many as there is time for, and its end.
    void live(const QByteArray& programOption);

    int actions() const { return actionCount; }
    int looks() const { return lookCount; }

    // How many programs were killed that held a key down in the server.
    int kills() const { return killCount; }

private:
    using Action = void (Chaos::*)();
    struct Row {
        int weight;
        const char* word;
        Action action;
    };
    static const std::array<Row, 17> rows;

    bool start();
    void doesNotStart(const QString& what);
    void goOn();
    void killOne();
    std::optional<WindowImage> pictureOf(ProgramRun& victim);
    void end();
    void act();
    void settle();
    void look();

    void pressButton();
    void releaseButton();
    void move();
    void touch();
    void lift();
    void pressKey();
    void strikeMouseKey(int key);
    void releaseKey();
    void click();
    void lockByTool();
    void groupByTool();
    void switchMouseKeys();
    void setKeymap();
    void chooseLayout();
    void minimise();
    void changeWorkspace();
    void takeFocus();
    void giveFocus();

    int below(int count) { return static_cast<int>(chance() % static_cast<unsigned>(count)); }
    int oneOf(const QSet<int>& numbers);
    void note(int detail) { since.last() += QStringLiteral(" %1").arg(detail); }
    QPoint somewhere();
    void setMouseKeys(bool on);
    void releaseLockedButtons();
    void haveStateReported();
    void goToWorkspace(long workspace);

    Display* display;
    QByteArray name; // of the display
    Hands& hands;
    LongRun& run;
    ProgramHere program;
    std::mt19937 chance;
    QByteArray option; // that the program was started with
    std::unique_ptr<KeyTargetProcess> target;
    QSet<int> buttonsDown;
    QSet<int> fingersDown;
    QSet<int> keysDown;
    QStringList since; // the actions since the last look
    int actionCount = 0;
    int lookCount = 0;
    int killCount = 0;
    bool hasMouseKeys = false;
    bool mayDropLocks = false; // a choice has replaced the picture
    bool isBroken = false; // in this start: what follows says no more
};

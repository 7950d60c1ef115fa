#pragma once

#include "harness/XTools.h"
#include "tests/long/Hands.h"

#include <QSet>
#include <QStringList>

#include <array>
#include <memory>
#include <random>

class KbdApp;
class KbdGeometry;
class KeyTargetProcess;
class LongRun;
class MainWindow;

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
    void live(const QByteArray& option);

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
    bool prepare();
    void goOn();
    void killOne();
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
    void goToWorkspace(long workspace);
    MainWindow* window() const;
    KbdGeometry& picture() const;

    Display* display;
    QByteArray name; // of the display
    Hands& hands;
    LongRun& run;
    std::mt19937 chance;
    std::array<QByteArray, 2> arguments{"interleavings"};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<KbdApp> application;
    std::unique_ptr<KeyTargetProcess> target;
    QSet<int> buttonsDown;
    QSet<int> fingersDown;
    QSet<int> keysDown;
    QStringList since; // the actions since the last look
    int actionCount = 0;
    int lookCount = 0;
    int killCount = 0;
    bool hasMouseKeys = false;
    bool isBroken = false; // in this start: what follows says no more
};

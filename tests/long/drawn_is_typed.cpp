// Drawn is typed: every key of the keyboards that the program offers is clicked with the pointer,
// under all sets of modifiers that keys of the picture reach, and what a window with the focus gets
// is compared with what the caps show.

#include "harness/KeyTargetProcess.h"
#include "harness/PrivateServer.h"
#include "harness/WaitUntil.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "tests/long/CapJudge.h"
#include "tests/long/LongRun.h"
#include "tests/long/ProgramHere.h"
#include "tests/long/ServerKeymap.h"
#include "tests/long/XkbRules.h"
#include "ui/MainWindow.h"
#include "ui/specs/SpecTable.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <algorithm>
#include <memory>
#include <random>

namespace {

constexpr unsigned int leftButton = 1;
constexpr qsizetype leastOffered = 60; // keyboards
constexpr QPoint awayFromAll(2, 2); // a pointer that rests on a key brings up its tool tip

// The modifier keys that are clicked on in turn, by the name or the keysym that they have. All sets
// of the first three are tried, and some with a lock.
const QStringList levelModifiers{"Shift", "LevelThree", "ISO_Level5_Shift"};
const QList<QStringList> setsWithLocks{
    {"NumLock"}, {"NumLock", "Shift"}, {"CapsLock"}, {"CapsLock", "Shift"}};

QList<KeyboardSettings> offeredKeyboards()
{
    QList<KeyboardSettings> keyboards;
    const auto rows = SpecTable::rowsOf(QStringLiteral(KBD_SPECS_FILE));
    for (const SpecRow& row : rows->all())
        keyboards.append({row.model, row.layout, row.variant, {}});
    return keyboards;
}

QList<QStringList> modifierSets()
{
    QList<QStringList> sets;
    for (int bits = 0; bits < 1 << levelModifiers.size(); ++bits) {
        QStringList set;
        for (int i = 0; i < levelModifiers.size(); ++i) {
            if (bits & (1 << i))
                set << levelModifiers.at(i);
        }
        sets << set;
    }
    return sets + setsWithLocks;
}

// Keys that change the keyboard itself instead of typing: they lock, latch, choose a group, move
// the pointer or end the server.
bool changesTheKeyboard(const QString& keysym)
{
    static const QStringList beginnings{"ISO_Level", "ISO_Lock", "ISO_Group", "ISO_Next",
        "ISO_Prev", "ISO_First", "ISO_Last", "Pointer_", "Mode_switch", "Terminate_Server",
        "XF86Switch_VT", "XF86Ungrab", "XF86ClearGrab", "XF86Next_VMode", "XF86Prev_VMode"};
    return keysym.endsWith(QLatin1StringView("_Lock"))
        || std::any_of(beginnings.begin(), beginnings.end(),
            [&](const QString& beginning) { return keysym.startsWith(beginning); });
}

// One keyboard, shown by the application in its mode beside others, and a window of another
// program with the focus.
class Trial {
public:
    Trial(QByteArray displayName, LongRun& longRun, CapJudge& capJudge)
        : name(std::move(displayName))
        , run(longRun)
        , judge(capJudge)
        , connection(openDisplay(name))
        , program(connection.get())
    {
    }

    void compare(const KeyboardSettings& keyboard);
    int keyboards() const { return keyboardCount; }
    int clicks() const { return clickCount; }

private:
    bool start(const KeyboardSettings& keyboard);
    void compareSet(int group, const QStringList& set);
    void compareKey(KbdKey& key, int group);
    bool switchModifiers(const QStringList& set, bool on);
    bool switchModifier(const KbdKey& key, bool on);
    KbdKey* modifierKey(const QString& modifier) const;
    void click(const KbdKey& key);
    QPoint onScreen(const KbdKey& key) const;
    KbdGeometry& picture() const { return program.picture(); }
    void verifyNothingIsDown(const KeyboardSettings& keyboard);

    QByteArray name;
    LongRun& run;
    CapJudge& judge;
    XConnection connection;
    ProgramHere program;
    std::unique_ptr<KeyTargetProcess> target;
    std::unique_ptr<ServerKeymap> keymap;
    int keyboardCount = 0;
    int clickCount = 0;
};

// The program shows the keyboard that it finds in the server.
bool Trial::start(const KeyboardSettings& keyboard)
{
    if (!program.start("--tofocus", setxkbmapArguments(keyboard)))
        return false;
    target = std::make_unique<KeyTargetProcess>(name);
    keymap = std::make_unique<ServerKeymap>(toolkitDisplay(), toolkitConnection());
    return keymap->isValid() && target->waitForReady();
}

void Trial::compare(const KeyboardSettings& keyboard)
{
    if (start(keyboard)) {
        ++keyboardCount;
        judge.setKeyboard(keyboard, keymap.get());
        const ExpectedXErrors errors;
        for (int group = 0; group < keymap->groupCount(); ++group) {
            picture().setGroupNum(static_cast<KeyGroup_t>(group));
            for (const QStringList& set : modifierSets())
                compareSet(group, set);
        }
        for (const QString& error : ExpectedXErrors::seen())
            run.broken(textOf(keyboard) + QStringLiteral(": ") + error);
    } else {
        run.broken(textOf(keyboard) + QStringLiteral(": does not start"));
    }
    target.reset();
    keymap.reset();
    program.end();
    verifyNothingIsDown(keyboard);
}

void Trial::verifyNothingIsDown(const KeyboardSettings& keyboard)
{
    if (!pressedKeys(name).isEmpty())
        run.broken(textOf(keyboard) + QStringLiteral(": keys are left down"));
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, 0);
    XkbLockGroup(connection.get(), x11::coreKeyboard, 0);
    XSync(connection.get(), x11::xFalse);
}

void Trial::compareSet(int group, const QStringList& set)
{
    const bool isReachable = std::all_of(set.begin(), set.end(),
        [this](const QString& modifier) { return modifierKey(modifier) != nullptr; });
    if (!isReachable || !run.goesOn())
        return;
    if (!switchModifiers(set, true))
        return run.broken(set.join(QLatin1Char('+')) + QStringLiteral(" cannot be switched on"));
    for (KbdKey* key : picture().keyItems()) {
        const bool types = key->symbols().keyType() == 0 && key->symbols().groupCount() != 0;
        if (types && !changesTheKeyboard(keysymName(key->activeKeysym())))
            compareKey(*key, group);
    }
    if (!switchModifiers(set, false))
        run.broken(set.join(QLatin1Char('+')) + QStringLiteral(" cannot be switched off"));
}

void Trial::compareKey(KbdKey& key, int group)
{
    const QString drawn = drawnOn(key);
    const auto lines = [&](KeyTargetLine::Kind kind) {
        QList<KeyTargetLine> found = target->keys();
        found.removeIf([&](const KeyTargetLine& line) {
            return line.kind != kind || line.keycode != key.x11Keycode();
        });
        return found;
    };
    ++clickCount;
    target->clear();
    click(key);
    if (!waitUntil([&] { return !lines(KeyTargetLine::Kind::Release).isEmpty(); }))
        return run.broken(key.name() + QStringLiteral(" types nothing"));
    const QList<KeyTargetLine> presses = lines(KeyTargetLine::Kind::Press);
    if (presses.size() != 1)
        return run.broken(key.name() + QStringLiteral(" is typed more than once"));
    const QString keysym = presses.first().keysym;
    const bool hasName = !keysym.startsWith(QLatin1StringView("0x"));
    judge.judge({key, group, picture().modifiers()}, drawn,
        static_cast<quint32>(
            hasName ? XStringToKeysym(qPrintable(keysym)) : keysym.toULong(nullptr, 0)));
}

bool Trial::switchModifiers(const QStringList& set, bool on)
{
    const bool done = std::all_of(set.begin(), set.end(),
        [&](const QString& modifier) { return switchModifier(*modifierKey(modifier), on); });
    XTestFakeMotionEvent(connection.get(), -1, awayFromAll.x(), awayFromAll.y(), CurrentTime);
    XFlush(connection.get());
    return done;
}

bool Trial::switchModifier(const KbdKey& key, bool on)
{
    click(key);
    return waitUntil(
        [&] { return bool(picture().modifiers() & key.symbols().keyModifiers()) == on; });
}

KbdKey* Trial::modifierKey(const QString& modifier) const
{
    const QList<KbdKey*> keys = picture().keyItems();
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const KbdKey* key) {
        return key->symbols().keyType() != 0
            && (key->symbols().modifierName() == modifier
                || keysymName(key->symbols().keysym(0)) == modifier);
    });
    return found == keys.end() ? nullptr : *found;
}

void Trial::click(const KbdKey& key)
{
    const QPoint place = onScreen(key);
    XTestFakeMotionEvent(connection.get(), -1, place.x(), place.y(), CurrentTime);
    XTestFakeButtonEvent(connection.get(), leftButton, x11::xTrue, CurrentTime);
    XTestFakeButtonEvent(connection.get(), leftButton, x11::xFalse, CurrentTime);
    XFlush(connection.get());
}

// A place where the key is what a click hits: keys can lie upon each other.
QPoint Trial::onScreen(const KbdKey& key) const
{
    const QRectF area = key.boundingRect();
    QPoint pixel;
    for (const double x : {0.25, 0.75, 0.5}) {
        for (const double y : {0.25, 0.75, 0.5}) {
            const QPointF point(area.x() + x * area.width(), area.y() + y * area.height());
            const QPoint here = picture().mapFromScene(key.mapToScene(point));
            if (picture().itemAt(here) == &key)
                pixel = here;
        }
    }
    return picture().viewport()->mapToGlobal(pixel);
}

} // namespace

int main(int argc, char** argv)
{
    LongRun run("drawn is typed", argc, argv);
    const PrivateServer server;
    server.useForThisProcess();
    CapJudge judge(run);
    Trial trial(server.display(), run, judge);

    QList<KeyboardSettings> keyboards = offeredKeyboards();
    std::mt19937 chance(run.seed());
    if (run.hasTimeLimit())
        std::shuffle(keyboards.begin(), keyboards.end(), chance);
    for (qsizetype i = 0; i < keyboards.size() && run.goesOn(); ++i) {
        if (run.isOurs(i))
            trial.compare(keyboards.at(i));
    }
    judge.report();
    if (keyboards.size() < leastOffered || trial.clicks() == 0)
        run.broken(QStringLiteral("too few keyboards are offered, or none was tried"));
    return run.finish(QStringList{QStringLiteral("%1 keyboards offered").arg(keyboards.size()),
                          QStringLiteral("%1 tried").arg(trial.keyboards()),
                          QStringLiteral("%1 clicks").arg(trial.clicks())}
        + judge.counts());
}

#include "SwitcherProcess.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PrivateServer.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "x11/HeldKeys.h"
#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/XkbDescription.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <csignal>
#include <memory>

namespace {

// Keycodes of the keymap "evdev".
constexpr int keyQ = 24;
constexpr int keyA = 38;
constexpr int keyD = 40;
constexpr int leftShift = 50;

// X11 core modifier bits.
constexpr unsigned int capsLock = 2;
constexpr unsigned int numLock = 16;

// Devices of every Xvfb: its core keyboard and the two that feed it.
constexpr int coreKeyboard = 3;
constexpr int xtestKeyboard = 5;
constexpr int serversKeyboard = 7;

// XKB protocol: the minor opcode of the request that loads a keyboard.
constexpr int getKbdByName = 23;

bool isStopped(qint64 process)
{
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    return status.open(QIODevice::ReadOnly) && status.readAll().contains(") T ");
}

} // namespace

class SwitcherTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void theKeyboardIsLoadedWhileTheWindowHasTheFocus();
    void aFocusOnADescendantOfTheWindowCounts();
    void aWindowThatHasTheFocusAtTheStartCounts();
    void aStaticSwitcherLoadsWithoutTheFocus();
    void anEndPutsTheKeyboardBack_data();
    void anEndPutsTheKeyboardBack();
    void theKeyboardComesBackWhenTheWindowIsDestroyed();
    void theKeyboardComesBackWhenTheParentIsKilled_data();
    void theKeyboardComesBackWhenTheParentIsKilled();
    void aKilledParentWithTheFocusLeavesNothingBehind();
    void whatAKilledParentHeldDownIsReleased_data();
    void whatAKilledParentHeldDownIsReleased();
    void whatAProgramHeldThatHasGoneIsReleasedAtTheStart_data();
    void whatAProgramHeldThatHasGoneIsReleasedAtTheStart();
    void anyKeyboardComesBackExactly_data();
    void anyKeyboardComesBackExactly();
    void aKeyboardThatWasUploadedComesBackExactly();
    void everyDeviceGetsItsOwnKeyboardBack();
    void whatWasChangedWhileTheFocusWasElsewhereComesBack();
    void aKeyboardThatAnotherToolLoadedMeanwhileStays_data();
    void aKeyboardThatAnotherToolLoadedMeanwhileStays();
    void keysThatWereEditedMeanwhileAreCarriedOver();
    void locksGroupAndRepeatsComeBack();
    void locksAndRepeatsThatTheUserChangedMeanwhileStay();
    void theNamesOfTheRulesAreNotTouched();
    void aKeyHeldAtASwitchIsNotLeftPressed_data();
    void aKeyHeldAtASwitchIsNotLeftPressed();
    void nothingIsLoadedWhenTheServerHasTheComponents();
    void nothingIsLoadedWithoutTheFocus();
    void aComponentThatIsNotGivenStaysAsItIs();
    void aNewerSwitcherOfTheWindowReplacesTheOlder();
    void aNewerSwitcherDoesNotWaitForeverForTheOlder();
    void theLayoutThatWasChosenLastWinsHoweverFast();
    void anOlderSwitcherThatComesLateGivesWay();
    void windowsHaveTheirKeyboardsInTurn();
    void aStaticKeyboardComesBackAfterAnotherWindowsTurn();
    void componentsThatCannotBeLoadedChangeNothing_data();
    void componentsThatCannotBeLoadedChangeNothing();
    void malformedArgumentsAreRefusedInOneLine_data();
    void malformedArgumentsAreRefusedInOneLine();
    void aDisplayThatIsNotThereIsRefusedInOneLine();
    void aParentOrWindowThatIsNotThereEndsIt_data();
    void aParentOrWindowThatIsNotThereEndsIt();
    void itEndsQuietlyWithTheServer();

private:
    Window createWindow(Window parent = x11::none);
    void focus(Window window);
    QString symbols();
    bool isOwned(const QByteArray& selection);
    int loadsSeen();
    KeySym keysymOf(int keycode);
    XkbStateRec state();
    bool repeats(int keycode);
    void setRepeat(int keycode, bool isOn);
    QByteArray deviceKeymap(int device) const;
    QStringList who(Window window, qint64 parent = getpid()) const;
    Switcher start(Window window, const QStringList& more) const;
    void type(int keycode, bool isDown);
    // As a program does that holds the left Shift and A.
    void tellHeldKeys(const QByteArray& name);

    QByteArray displayName;
    XConnection connection;
    int xkbEvent = -1;
    Window parentWindow = x11::none;
    Window elsewhere = x11::none;
    QByteArray keymapBefore;
};

Window SwitcherTest::createWindow(Window parent)
{
    Display* const display = connection.get();
    const Window window = XCreateSimpleWindow(display,
        parent == x11::none ? XDefaultRootWindow(display) : parent, 0, 0, 100, 100, 0, 0, 0);
    XMapWindow(display, window);
    XSync(display, x11::xFalse);
    return window;
}

void SwitcherTest::focus(Window window)
{
    XSetInputFocus(connection.get(), window, RevertToParent, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

QString SwitcherTest::symbols()
{
    const XkbDescription description(XkbAllocKeyboard());
    XkbGetNames(connection.get(), XkbSymbolsNameMask, description.get());
    return QString::fromStdString(x11::atomName(connection.get(), description->names->symbols));
}

bool SwitcherTest::isOwned(const QByteArray& selection)
{
    const Atom atom = XInternAtom(connection.get(), selection.constData(), x11::xFalse);
    return XGetSelectionOwner(connection.get(), atom) != x11::none;
}

// How often a keyboard was loaded since the last call.
int SwitcherTest::loadsSeen()
{
    XSync(connection.get(), x11::xFalse);
    int count = 0;
    XEvent event;
    while (XCheckTypedEvent(connection.get(), xkbEvent, &event)) {
        const auto& news = reinterpret_cast<const XkbEvent&>(event);
        const bool isLoad = news.any.xkb_type == XkbNewKeyboardNotify
            && news.any.device == coreKeyboard && news.new_kbd.req_minor == getKbdByName;
        count += isLoad ? 1 : 0;
    }
    return count;
}

KeySym SwitcherTest::keysymOf(int keycode)
{
    int width = 0;
    const x11::Owned<KeySym> keysyms(
        XGetKeyboardMapping(connection.get(), static_cast<KeyCode>(keycode), 1, &width));
    return keysyms.get()[0];
}

XkbStateRec SwitcherTest::state()
{
    XkbStateRec result{};
    XkbGetState(connection.get(), x11::coreKeyboard, &result);
    return result;
}

bool SwitcherTest::repeats(int keycode)
{
    XKeyboardState control{};
    XGetKeyboardControl(connection.get(), &control);
    return control.auto_repeats[keycode / 8] & (1 << keycode % 8);
}

void SwitcherTest::setRepeat(int keycode, bool isOn)
{
    XKeyboardControl control{};
    control.key = keycode;
    control.auto_repeat_mode = isOn ? AutoRepeatModeOn : AutoRepeatModeOff;
    XChangeKeyboardControl(connection.get(), KBKey | KBAutoRepeatMode, &control);
    XSync(connection.get(), x11::xFalse);
}

QByteArray SwitcherTest::deviceKeymap(int device) const
{
    return runTool("xkbcomp",
        {"-w", "0", "-i", QString::number(device), "-xkb", QString::fromLatin1(displayName), "-"},
        displayName)
        .output;
}

QStringList SwitcherTest::who(Window window, qint64 parent) const
{
    return switcherOwner(window, displayName, parent);
}

Switcher SwitcherTest::start(Window window, const QStringList& more) const
{
    return std::make_unique<SwitcherProcess>(who(window) + more);
}

void SwitcherTest::type(int keycode, bool isDown)
{
    XTestFakeKeyEvent(connection.get(), static_cast<unsigned int>(keycode), isDown, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void SwitcherTest::tellHeldKeys(const QByteArray& name)
{
    const QByteArray held("\x32\x26");
    XChangeProperty(connection.get(), XDefaultRootWindow(connection.get()),
        XInternAtom(connection.get(), name.constData(), x11::xFalse), XA_INTEGER, 8,
        PropModeReplace, reinterpret_cast<const unsigned char*>(held.constData()),
        static_cast<int>(held.size()));
    XSync(connection.get(), x11::xFalse);
}

void SwitcherTest::initTestCase()
{
    displayName = qgetenv("DISPLAY");
    connection = openDisplay(displayName);
    QVERIFY(connection);
    const auto xkb = x11::queryXkb(connection.get());
    QVERIFY(xkb);
    xkbEvent = xkb->event;
    XkbSelectEvents(
        connection.get(), x11::coreKeyboard, XkbNewKeyboardNotifyMask, XkbNewKeyboardNotifyMask);
    elsewhere = createWindow();
}

void SwitcherTest::init()
{
    QVERIFY(setKeyboard(displayName, {"-model", "pc105", "-layout", "us", "-option", ""}));
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, 0);
    XkbLockGroup(connection.get(), x11::coreKeyboard, 0);
    if (parentWindow != x11::none)
        XDestroyWindow(connection.get(), parentWindow);
    parentWindow = createWindow();
    focus(elsewhere);
    keymapBefore = keymapText(displayName);
    QVERIFY(keymapBefore.contains(americanSymbols.toLatin1()));
    loadsSeen();
}

void SwitcherTest::theKeyboardIsLoadedWhileTheWindowHasTheFocus()
{
    const Switcher switcher = start(parentWindow, german);
    for (int round = 0; round < 3; ++round) {
        focus(parentWindow);
        QTRY_COMPARE(symbols(), germanSymbols);
        focus(elsewhere);
        QTRY_COMPARE(symbols(), americanSymbols);
        QCOMPARE(keymapText(displayName), keymapBefore);
    }
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(switcher->errors(), QByteArray());
}

void SwitcherTest::aFocusOnADescendantOfTheWindowCounts()
{
    const Window child = createWindow(createWindow(parentWindow));
    const Switcher switcher = start(parentWindow, german);
    focus(child);
    QTRY_COMPARE(symbols(), germanSymbols);
    focus(parentWindow);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(loadsSeen(), 1);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::aWindowThatHasTheFocusAtTheStartCounts()
{
    focus(parentWindow);
    const Switcher switcher = start(parentWindow, german);
    QTRY_COMPARE(symbols(), germanSymbols);
}

void SwitcherTest::aStaticSwitcherLoadsWithoutTheFocus()
{
    const Switcher switcher = start(parentWindow, german + QStringList{"--static"});
    QTRY_COMPARE(symbols(), germanSymbols);
    focus(parentWindow);
    focus(elsewhere);
    XDestroyWindow(connection.get(), parentWindow);
    parentWindow = x11::none;
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(loadsSeen(), 1);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::anEndPutsTheKeyboardBack_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("mode");
    QTest::newRow("SIGTERM") << SIGTERM << QStringList();
    QTest::newRow("SIGINT") << SIGINT << QStringList();
    QTest::newRow("SIGHUP") << SIGHUP << QStringList();
    QTest::newRow("SIGTERM, static") << SIGTERM << QStringList{"--static"};
}

void SwitcherTest::anEndPutsTheKeyboardBack()
{
    QFETCH(int, number);
    QFETCH(QStringList, mode);
    focus(parentWindow);
    const Switcher switcher = start(parentWindow, german + mode);
    QTRY_COMPARE(symbols(), germanSymbols);
    switcher->signal(number);
    QCOMPARE(switcher->waitForEnd(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::theKeyboardComesBackWhenTheWindowIsDestroyed()
{
    const Window window = createWindow();
    focus(window);
    const Switcher switcher = start(window, german);
    QTRY_COMPARE(symbols(), germanSymbols);
    XDestroyWindow(connection.get(), window);
    XSync(connection.get(), x11::xFalse);
    QCOMPARE(switcher->waitForEnd(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::theKeyboardComesBackWhenTheParentIsKilled_data()
{
    QTest::addColumn<QStringList>("mode");
    QTest::newRow("with the focus") << QStringList();
    QTest::newRow("static") << QStringList{"--static"};
}

// The window outlives the process here: its end alone must do.
void SwitcherTest::theKeyboardComesBackWhenTheParentIsKilled()
{
    QFETCH(QStringList, mode);
    QProcess parent;
    parent.start("cat");
    QVERIFY(parent.waitForStarted());
    focus(parentWindow);
    SwitcherProcess switcher(who(parentWindow, parent.processId()) + german + mode);
    QTRY_COMPARE(symbols(), germanSymbols);
    parent.kill();
    QVERIFY(parent.waitForFinished());
    QCOMPARE(switcher.waitForEnd(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::aKilledParentWithTheFocusLeavesNothingBehind()
{
    KeyTargetProcess parent(displayName);
    QVERIFY(parent.waitForReady());
    SwitcherProcess switcher(who(parent.windowId(), parent.processId()) + german);
    QTRY_COMPARE(symbols(), germanSymbols);
    QCOMPARE(::kill(static_cast<pid_t>(parent.processId()), SIGKILL), 0);
    QCOMPARE(switcher.waitForEnd(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::whatAKilledParentHeldDownIsReleased_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("while another keyboard is loaded") << german;
    QTest::newRow("while the server has its own") << american;
}

void SwitcherTest::whatAKilledParentHeldDownIsReleased()
{
    QFETCH(QStringList, keys);
    QProcess parent;
    parent.start("cat");
    QVERIFY(parent.waitForStarted());
    SwitcherProcess switcher(
        who(parentWindow, parent.processId()) + keys + QStringList{"--static"});
    QTRY_VERIFY(isOwned("_ORVIX_KBD_SWITCHER_" + QByteArray::number(qulonglong(parentWindow))));
    if (keys == german)
        QTRY_COMPARE(symbols(), germanSymbols);
    // The parent tells what it holds; another program holds another key.
    tellHeldKeys(x11::heldKeysProperty(static_cast<pid_t>(parent.processId())).c_str());
    for (const int keycode : {leftShift, keyA, keyD})
        type(keycode, true);
    QCOMPARE(pressedKeys(displayName), (QList<int>{keyA, keyD, leftShift}));
    parent.kill();
    QVERIFY(parent.waitForFinished());
    QCOMPARE(switcher.waitForEnd(), 0);
    QCOMPARE(pressedKeys(displayName), QList<int>{keyD});
    type(keyD, false);
}

void SwitcherTest::whatAProgramHeldThatHasGoneIsReleasedAtTheStart_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("it has gone") << false;
    QTest::newRow("it is there, on any machine") << true;
}

// A program is there as long as its connection owns the selection of the property's name.
void SwitcherTest::whatAProgramHeldThatHasGoneIsReleasedAtTheStart()
{
    QFETCH(bool, isThere);
    const QByteArray name = "_ORVIX_KBD_HELD_KEYS_1";
    const Atom selection = XInternAtom(connection.get(), name.constData(), x11::xFalse);
    XSetSelectionOwner(connection.get(), selection, isThere ? elsewhere : x11::none, CurrentTime);
    tellHeldKeys(name);
    for (const int keycode : {leftShift, keyA, keyD})
        type(keycode, true);
    const Switcher switcher = start(parentWindow, german);
    QTRY_VERIFY(isOwned("_ORVIX_KBD_SWITCHER_" + QByteArray::number(qulonglong(parentWindow))));
    const QList<int> all{keyA, keyD, leftShift};
    QCOMPARE(pressedKeys(displayName), isThere ? all : QList<int>{keyD});
    QCOMPARE(switcher->stop(), 0);
    for (const int keycode : all)
        type(keycode, false);
    XDeleteProperty(connection.get(), XDefaultRootWindow(connection.get()), selection);
}

void SwitcherTest::anyKeyboardComesBackExactly_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::newRow("one group") << QStringList{"-layout", "es"};
    QTest::newRow("the keys of the loaded one")
        << QStringList{"-layout", "de", "-variant", "nodeadkeys"};
    QTest::newRow("three groups and options")
        << QStringList{"-layout", "us,ru,gr", "-option", "grp:alt_shift_toggle", "-option",
               "lv3:ralt_switch", "-option", "compose:menu", "-option", "grp_led:scroll"};
    QTest::newRow("another model and geometry") << QStringList{"-model", "jp106", "-layout", "jp"};
    QTest::newRow("other actions")
        << QStringList{"-layout", "us", "-option", "ctrl:nocaps", "-option", "keypad:pointerkeys"};
    QTest::newRow("fewer lamps and virtual modifiers, another geometry")
        << QStringList{"-keycodes", "xfree86", "-symbols", "pc+us", "-types", "complete", "-compat",
               "basic+ledcaps", "-geometry", "kinesis"};
}

void SwitcherTest::anyKeyboardComesBackExactly()
{
    QFETCH(QStringList, present);
    QVERIFY(setKeyboard(displayName, present));
    const QByteArray before = keymapText(displayName);
    QVERIFY(before != keymapBefore);
    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    QVERIFY(keymapText(displayName) != before);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), before);
}

// It has what no component file has, so no name leads back to it.
void SwitcherTest::aKeyboardThatWasUploadedComesBackExactly()
{
    QByteArray text = keymapBefore;
    text.replace("key <AE01> {         [               1,          exclam ] };",
        "key <AE01> { type=\"ONE_LEVEL\", repeat=No, radioGroup=3, symbols[Group1]=[x],"
        " actions[Group1]=[ Private(type=0x90,data=\"abcdefg\") ] };"
        "key <AE02> { overlay1=<KP1>, [a, b, c, d] }; key <AE03> { lock=Yes, [F13] };");
    QVERIFY(text != keymapBefore);
    QTemporaryFile file;
    QVERIFY(file.open());
    QCOMPARE(file.write(text), text.size());
    QVERIFY(file.flush());
    QCOMPARE(runTool("xkbcomp", {"-w", "0", file.fileName(), displayName}, displayName).status, 0);
    const QByteArray before = keymapText(displayName);
    QVERIFY(before.contains("radioGroup= 3"));

    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), before);
}

void SwitcherTest::everyDeviceGetsItsOwnKeyboardBack()
{
    QVERIFY(
        setKeyboard(displayName, {"-device", QString::number(serversKeyboard), "-layout", "ru"}));
    QMap<int, QByteArray> before;
    for (const int device : {coreKeyboard, xtestKeyboard, serversKeyboard})
        before[device] = deviceKeymap(device);
    QVERIFY(before[serversKeyboard] != before[xtestKeyboard]);
    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    QVERIFY(deviceKeymap(serversKeyboard).contains(germanSymbols.toLatin1()));
    QCOMPARE(switcher->stop(), 0);
    for (const int device : {coreKeyboard, xtestKeyboard, serversKeyboard})
        QCOMPARE(deviceKeymap(device), before[device]);
}

void SwitcherTest::whatWasChangedWhileTheFocusWasElsewhereComesBack()
{
    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    focus(elsewhere);
    QTRY_COMPARE(symbols(), americanSymbols);
    QVERIFY(setKeyboard(displayName, {"-layout", "es,gr"}));
    const QByteArray changed = keymapText(displayName);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    focus(elsewhere);
    QTRY_COMPARE(symbols(), "pc+es+gr:2+inet(evdev)");
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), changed);
}

void SwitcherTest::aKeyboardThatAnotherToolLoadedMeanwhileStays_data()
{
    QTest::addColumn<QStringList>("mode");
    QTest::addColumn<QString>("layout");
    QTest::newRow("another layout") << QStringList() << "fr";
    QTest::newRow("the same layout") << QStringList() << "de";
    QTest::newRow("another layout, static") << QStringList{"--static"} << "fr";
}

void SwitcherTest::aKeyboardThatAnotherToolLoadedMeanwhileStays()
{
    QFETCH(QStringList, mode);
    QFETCH(QString, layout);
    focus(parentWindow);
    const Switcher switcher = start(parentWindow, german + mode);
    QTRY_COMPARE(symbols(), germanSymbols);
    QVERIFY(setKeyboard(displayName, {"-layout", layout}));
    const QByteArray changed = keymapText(displayName);
    focus(elsewhere);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), changed);
}

void SwitcherTest::keysThatWereEditedMeanwhileAreCarriedOver()
{
    const Switcher switcher = start(parentWindow, german + QStringList{"--static"});
    QTRY_COMPARE(symbols(), germanSymbols);
    KeySym edited[]{XK_Greek_delta, XK_Greek_DELTA};
    XChangeKeyboardMapping(connection.get(), keyD, 2, edited, 1);
    XSync(connection.get(), x11::xFalse);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(symbols(), americanSymbols);
    QCOMPARE(keysymOf(keyD), KeySym(XK_Greek_delta));
    QCOMPARE(keysymOf(keyQ), KeySym(XK_q));
}

void SwitcherTest::locksGroupAndRepeatsComeBack()
{
    QVERIFY(setKeyboard(displayName, {"-layout", "us,ru,gr"}));
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, capsLock | numLock);
    XkbLockGroup(connection.get(), x11::coreKeyboard, 2);
    XSync(connection.get(), x11::xFalse);
    QCOMPARE(runTool("xset", {"r", "rate", "321", "43"}, displayName).status, 0);
    setRepeat(keyA, false);
    setRepeat(leftShift, true);
    const QByteArray before = runTool("xset", {"q"}, displayName).output;
    const QByteArray keymap = keymapText(displayName);
    QVERIFY(before.contains("repeat delay:  321"));
    QVERIFY(before.contains("Caps Lock:   on"));

    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    // A key press makes the server forget a group that the present keyboard does not have.
    type(keyQ, true);
    type(keyQ, false);
    QCOMPARE(int(state().locked_group), 0);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), keymap);
    QCOMPARE(int(state().locked_mods), int(capsLock | numLock));
    QCOMPARE(int(state().locked_group), 2);
    QCOMPARE(runTool("xset", {"q"}, displayName).output, before);

    setRepeat(keyA, true);
    setRepeat(leftShift, false);
}

void SwitcherTest::locksAndRepeatsThatTheUserChangedMeanwhileStay()
{
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, numLock);
    XSync(connection.get(), x11::xFalse);
    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, capsLock | x11::mod5Mask);
    XSync(connection.get(), x11::xFalse);
    QVERIFY(!repeats(leftShift));
    setRepeat(leftShift, true);
    QCOMPARE(switcher->stop(), 0);
    // The third is of the loaded keyboard, and no key of the present one could undo it.
    QCOMPARE(int(state().locked_mods), int(capsLock));
    QVERIFY(repeats(leftShift));
    setRepeat(leftShift, false);
}

void SwitcherTest::theNamesOfTheRulesAreNotTouched()
{
    const QByteArray before = runTool("setxkbmap", {"-query"}, displayName).output;
    QVERIFY(before.contains("us"));
    const Switcher switcher = start(parentWindow, german);
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    QCOMPARE(runTool("setxkbmap", {"-query"}, displayName).output, before);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(runTool("setxkbmap", {"-query"}, displayName).output, before);
}

void SwitcherTest::aKeyHeldAtASwitchIsNotLeftPressed_data()
{
    QTest::addColumn<bool>("isArrival");
    QTest::newRow("when the keyboard is loaded") << true;
    QTest::newRow("when the keyboard is put back") << false;
}

void SwitcherTest::aKeyHeldAtASwitchIsNotLeftPressed()
{
    QFETCH(bool, isArrival);
    const Switcher switcher = start(parentWindow, german);
    focus(isArrival ? elsewhere : parentWindow);
    QTRY_COMPARE(symbols(), isArrival ? americanSymbols : germanSymbols);
    type(leftShift, true);
    type(keyA, true);
    QCOMPARE(int(state().base_mods), int(ShiftMask));
    focus(isArrival ? parentWindow : elsewhere);
    QTRY_COMPARE(symbols(), isArrival ? germanSymbols : americanSymbols);
    type(keyA, false);
    type(leftShift, false);
    QCOMPARE(pressedKeys(displayName), QList<int>());
    QCOMPARE(int(state().mods), 0);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::nothingIsLoadedWhenTheServerHasTheComponents()
{
    const Switcher switcher = start(parentWindow, american);
    focus(parentWindow);
    QTRY_VERIFY(isOwned("_ORVIX_KBD_SWITCHER_KEYBOARD"));
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(loadsSeen(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::nothingIsLoadedWithoutTheFocus()
{
    const Switcher switcher = start(parentWindow, german);
    QTRY_VERIFY(isOwned("_ORVIX_KBD_SWITCHER_" + QByteArray::number(qulonglong(parentWindow))));
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(loadsSeen(), 0);
}

void SwitcherTest::aComponentThatIsNotGivenStaysAsItIs()
{
    const Switcher switcher = start(parentWindow, {"--symbols", germanSymbols});
    focus(parentWindow);
    QTRY_COMPARE(symbols(), germanSymbols);
    const QByteArray loaded = keymapText(displayName);
    QVERIFY(loaded.contains("xkb_types \"complete\""));
    QVERIFY(loaded.contains("xkb_geometry \"pc(pc105)\""));
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::aNewerSwitcherOfTheWindowReplacesTheOlder()
{
    focus(parentWindow);
    const Switcher older = start(parentWindow, german);
    QTRY_COMPARE(symbols(), germanSymbols);
    const Switcher newer = start(parentWindow, french);
    QTRY_COMPARE(symbols(), frenchSymbols);
    QCOMPARE(older->waitForEnd(), 0);
    QCOMPARE(newer->stop(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

// And an older one that comes round later leaves the newer one's keyboard alone.
void SwitcherTest::aNewerSwitcherDoesNotWaitForeverForTheOlder()
{
    focus(parentWindow);
    const Switcher older = start(parentWindow, german);
    QTRY_COMPARE(symbols(), germanSymbols);
    older->signal(SIGSTOP);
    const Switcher newer = start(parentWindow, french);
    QTRY_COMPARE_WITH_TIMEOUT(symbols(), frenchSymbols, longerThanPatienceMs);
    older->signal(SIGCONT);
    QCOMPARE(older->waitForEnd(), 0);
    QCOMPARE(symbols(), frenchSymbols);
    QCOMPARE(newer->stop(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::theLayoutThatWasChosenLastWinsHoweverFast()
{
    focus(parentWindow);
    for (int round = 0; round < 50; ++round) {
        const Switcher older = start(parentWindow, german);
        const Switcher newer = start(parentWindow, french);
        QCOMPARE(older->waitForEnd(), 0);
        QTRY_COMPARE(symbols(), frenchSymbols);
        QCOMPARE(newer->stop(), 0);
    }
    QCOMPARE(keymapText(displayName), keymapBefore);
}

// The processor is free to run the newer one first.
void SwitcherTest::anOlderSwitcherThatComesLateGivesWay()
{
    focus(parentWindow);
    const QStringList stopFirst{"-c", "kill -STOP $$; exec \"$@\"", "sh", KBD_SWITCHER};
    SwitcherProcess older("/bin/sh", stopFirst + who(parentWindow) + german);
    QTRY_VERIFY(isStopped(older.processId()));
    const Switcher newer = start(parentWindow, french);
    QTRY_COMPARE(symbols(), frenchSymbols);
    loadsSeen();
    older.signal(SIGCONT);
    QCOMPARE(older.waitForEnd(), 0);
    QCOMPARE(symbols(), frenchSymbols);
    QCOMPARE(loadsSeen(), 0);
}

void SwitcherTest::windowsHaveTheirKeyboardsInTurn()
{
    const Window other = createWindow();
    const Switcher one = start(parentWindow, german);
    const Switcher two = start(other, french);
    for (int round = 0; round < 5; ++round) {
        focus(parentWindow);
        QTRY_COMPARE(symbols(), germanSymbols);
        focus(other);
        QTRY_COMPARE(symbols(), frenchSymbols);
    }
    focus(elsewhere);
    QTRY_COMPARE(symbols(), americanSymbols);
    QCOMPARE(keymapText(displayName), keymapBefore);
    XDestroyWindow(connection.get(), other);
}

void SwitcherTest::aStaticKeyboardComesBackAfterAnotherWindowsTurn()
{
    const Window other = createWindow();
    const Switcher fixed = start(parentWindow, german + QStringList{"--static"});
    QTRY_COMPARE(symbols(), germanSymbols);
    const Switcher focused = start(other, french);
    focus(other);
    QTRY_COMPARE(symbols(), frenchSymbols);
    focus(elsewhere);
    QTRY_COMPARE(symbols(), germanSymbols);
    focus(other);
    QTRY_COMPARE(symbols(), frenchSymbols);
    QCOMPARE(fixed->stop(), 0);
    QCOMPARE(symbols(), frenchSymbols);
    QCOMPARE(focused->stop(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
    XDestroyWindow(connection.get(), other);
}

void SwitcherTest::componentsThatCannotBeLoadedChangeNothing_data()
{
    QTest::addColumn<QStringList>("components");
    QTest::newRow("unknown symbols") << keyboard("nosuchland");
    QTest::newRow("unknown keycodes") << keyboard("de", "nosuchkeys");
    QTest::newRow("a name that is too long") << keyboard("de" + QString("+level3").repeated(50));
}

void SwitcherTest::componentsThatCannotBeLoadedChangeNothing()
{
    QFETCH(QStringList, components);
    focus(parentWindow);
    const Switcher switcher = start(parentWindow, components);
    QCOMPARE(switcher->waitForEnd(), 1);
    QCOMPARE(switcher->errors(),
        QByteArray("orvix-kbd-switcher: the X server cannot load this keyboard\n"));
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::malformedArgumentsAreRefusedInOneLine_data()
{
    const QStringList parent{"--parent", QString::number(getpid())};
    const QStringList window{"--window", "4194305"};
    const QStringList display{"--display", QString::fromLatin1(displayName)};
    const QStringList isStatic{"--static"};
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("no parent") << window + display + german + isStatic;
    QTest::newRow("no window") << parent + display + german + isStatic;
    QTest::newRow("no display") << parent + window + german + isStatic;
    QTest::newRow("a parent that is no number")
        << QStringList{"--parent", "12x"} + window + display + german + isStatic;
    QTest::newRow("a negative parent")
        << QStringList{"--parent", "-1"} + window + display + german + isStatic;
    QTest::newRow("a window that is no number")
        << parent + QStringList{"--window", "0x400001"} + display + german + isStatic;
    QTest::newRow("a window that is too large")
        << parent + QStringList{"--window", "4294967296"} + display + german + isStatic;
    QTest::newRow("an empty display")
        << parent + window + QStringList{"--display", ""} + german + isStatic;
    QTest::newRow("an unknown option")
        << parent + window + display + german + isStatic + QStringList{"--verbose"};
    QTest::newRow("a stray word") << parent + window + display + german + isStatic
            + QStringList{"de"};
    QTest::newRow("an option twice") << parent + parent + window + display + german + isStatic;
    QTest::newRow("a value that is missing")
        << parent + window + display + german + isStatic + QStringList{"--symbols"};
}

void SwitcherTest::malformedArgumentsAreRefusedInOneLine()
{
    QFETCH(QStringList, arguments);
    SwitcherProcess switcher(arguments);
    QCOMPARE(switcher.waitForEnd(), 1);
    const QByteArray errors = switcher.errors();
    QVERIFY2(errors.startsWith("orvix-kbd-switcher: "), errors.constData());
    QCOMPARE(errors.indexOf('\n'), errors.size() - 1);
    QCOMPARE(loadsSeen(), 0);
    QCOMPARE(keymapText(displayName), keymapBefore);
}

void SwitcherTest::aDisplayThatIsNotThereIsRefusedInOneLine()
{
    SwitcherProcess switcher(
        QStringList{"--parent", QString::number(getpid()), "--window", "7", "--display", ":59999"}
        + german);
    QCOMPARE(switcher.waitForEnd(), 1);
    QCOMPARE(switcher.errors(), QByteArray("orvix-kbd-switcher: cannot open display ':59999'\n"));
}

void SwitcherTest::aParentOrWindowThatIsNotThereEndsIt_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::addColumn<QStringList>("mode");
    QTest::newRow("no parent") << false << QStringList();
    QTest::newRow("no parent, static") << false << QStringList{"--static"};
    QTest::newRow("no window") << true << QStringList();
}

void SwitcherTest::aParentOrWindowThatIsNotThereEndsIt()
{
    QFETCH(bool, hasParent);
    QFETCH(QStringList, mode);
    QProcess brief;
    brief.start("true");
    QVERIFY(brief.waitForStarted());
    const qint64 gone = brief.processId();
    QVERIFY(brief.waitForFinished());
    const Window noWindow = createWindow();
    XDestroyWindow(connection.get(), noWindow);
    focus(parentWindow);
    SwitcherProcess switcher((hasParent ? who(noWindow) : who(parentWindow, gone)) + german + mode);
    QCOMPARE(switcher.waitForEnd(), 0);
    QCOMPARE(switcher.errors(), QByteArray());
    QCOMPARE(loadsSeen(), 0);
}

void SwitcherTest::itEndsQuietlyWithTheServer()
{
    auto server = std::make_unique<PrivateServer>();
    const QByteArray display = server->display();
    SwitcherProcess switcher(QStringList{"--parent", QString::number(getpid()), "--window", "7",
                                 "--display", QString::fromLatin1(display), "--static"}
        + german);
    QTRY_VERIFY(keymapText(display).contains(germanSymbols.toLatin1()));
    server.reset();
    QCOMPARE(switcher.waitForEnd(), 0);
    QCOMPARE(switcher.errors(), QByteArray());
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    QCoreApplication application(argc, argv);
    failOnXErrors();
    SwitcherTest test;
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_switcher.moc"

#include "app/KbdApp.h"
#include "app/description/ComponentNames.h"
#include "harness/FailurePictures.h"
#include "harness/PictureKeys.h"
#include "harness/PrivateServer.h"
#include "harness/TopLevelWindow.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "x11/HeldKeys.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/qt/FollowedKeyboard.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QResizeEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

namespace {

// Keycodes of the keymap "evdev".
constexpr KeyCode escape = 9;
constexpr KeyCode keyY = 29;
constexpr KeyCode keyA = 38;
constexpr KeyCode leftShift = 50;
constexpr KeyCode capsLock = 66;
constexpr KeyCode numLock = 77;
constexpr KeyCode underscore = 97; // <AB11>, of Japanese and Brazilian keyboards
constexpr KeyCode notOnThePicture = 202; // <FK24>
constexpr KeyCode highest = 255;
constexpr KeyCode lowest = 8;

constexpr ShiftMask_t noModifiers = 0;
constexpr ShiftMask_t shift = x11::shiftMask;
constexpr ShiftMask_t lock = x11::lockMask;
constexpr ShiftMask_t num = 16; // Mod2
constexpr ShiftMask_t scroll = 32; // Mod3
constexpr ShiftMask_t all = 255;

constexpr ShiftMask_t both(ShiftMask_t a, ShiftMask_t b)
{
    return static_cast<ShiftMask_t>(a | b);
}

constexpr char ourGeometry[] = "pc-arvane(pc105)";

// It has no lamps but those in its sections, which are not drawn.
constexpr char lamplessGeometry[] = "digital_vndr/lk(lk201)";

// Symbols that bind Scroll Lock to a modifier, which the usual ones do not.
constexpr char scrollLockSymbols[] = "pc+us+inet(evdev)+digital_vndr/lk(common)";

constexpr int anyXkbEvent = -1; // in place of an event type of the core protocol

// What another program does to the server.
class OtherClient {
public:
    explicit OtherClient(const QByteArray& display)
        : connection(openDisplay(display))
    {
    }

    void key(KeyCode keycode, bool down) const
    {
        waitForTheProgram();
        XTestFakeKeyEvent(display(), keycode, down, CurrentTime);
        sync();
    }

    void tap(KeyCode keycode) const
    {
        key(keycode, true);
        key(keycode, false);
    }

    void lockModifiers(unsigned int affected, unsigned int locked) const
    {
        waitForTheProgram();
        XkbLockModifiers(display(), x11::coreKeyboard, affected, locked);
        sync();
    }

    void lockGroup(unsigned int group) const
    {
        waitForTheProgram();
        XkbLockGroup(display(), x11::coreKeyboard, group);
        sync();
    }

    // The bytes of a property of the root window; none where there is no such property.
    QByteArray bytesOfRoot(const QByteArray& name) const
    {
        waitForTheProgram();
        return QByteArray::fromStdString(
            x11::property(display(), XDefaultRootWindow(display()), name.constData()).bytes);
    }

    // From now on counts the changes of the locked modifiers, whoever makes them.
    void watchLocks() const
    {
        XkbSelectEventDetails(
            display(), x11::coreKeyboard, XkbStateNotify, XkbModifierLockMask, XkbModifierLockMask);
        sync();
    }

    int lockChanges() const
    {
        waitForTheProgram();
        sync();
        int changes = 0;
        for (; XPending(display()) > 0; ++changes) {
            XEvent event{};
            XNextEvent(display(), &event);
        }
        return changes;
    }

    // A key gets another keysym: not a new keyboard, but a change of its map.
    void changeMap() const
    {
        KeySym keysym = XK_F24;
        XChangeKeyboardMapping(display(), notOnThePicture, 1, &keysym, 1);
        sync();
    }

    void giveFocusTo(Window window) const
    {
        XSetInputFocus(display(), window, RevertToParent, CurrentTime);
        sync();
    }

    // A window of its own that has the focus, and keeps it until the client goes.
    void takeFocus()
    {
        const Window window =
            XCreateSimpleWindow(display(), XDefaultRootWindow(display()), 0, 0, 50, 50, 0, 0, 0);
        XSelectInput(display(), window, StructureNotifyMask);
        XMapWindow(display(), window);
        XEvent event{};
        do {
            XNextEvent(display(), &event);
        } while (event.type != MapNotify);
        giveFocusTo(window);
    }

    XkbStateRec state() const
    {
        waitForTheProgram();
        XkbStateRec state{};
        XkbGetState(display(), x11::coreKeyboard, &state);
        return state;
    }

private:
    // The server has done what the program has asked so far: it takes the clients in any order.
    static void waitForTheProgram()
    {
        if (qGuiApp)
            XSync(toolkitDisplay(), x11::xFalse);
    }

    Display* display() const { return connection.get(); }
    void sync() const { XSync(display(), x11::xFalse); }

    XConnection connection;
};

// A program's arguments, which the application keeps a reference to.
struct Arguments {
    explicit Arguments(const QByteArrayList& options)
        : texts(QByteArrayList{"orvix-kbd-display"} + options)
        , count(static_cast<int>(texts.size()))
    {
        for (QByteArray& text : texts)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
    }

    QByteArrayList texts;
    std::vector<char*> pointers;
    int count;
};

void replace(char*& name, const QString& text)
{
    std::free(name);
    name = strdup(text.toUtf8().constData());
}

// The key codes of the keys that are shown as pressed.
QList<int> litKeysOf(const KbdGeometry& picture)
{
    QList<int> lit;
    for (const KbdKey* key : picture.keyItems()) {
        if (key->isPhysicallyDown())
            lit << key->x11Keycode();
    }
    return lit;
}

QList<const KbdDoodad*> lampsOf(const KbdGeometry& picture)
{
    QList<const KbdDoodad*> lamps;
    for (const KbdDoodad* doodad : picture.doodadItems()) {
        if (doodad->isIndicator())
            lamps << doodad;
    }
    return lamps;
}

// In the order of the lamps in the geometry.
const QStringList lampNames{"Num Lock", "Caps Lock", "Scroll Lock"};

QStringList litLampsOf(const KbdGeometry& picture)
{
    const QList<const KbdDoodad*> lamps = lampsOf(picture);
    QStringList lit;
    for (qsizetype i = 0; i < lamps.size(); ++i) {
        if (lamps.at(i)->isActive())
            lit << lampNames.value(i, QStringLiteral("a lamp without a name here"));
    }
    return lit;
}

const QStringList noLamp;
const QStringList numLamp{"Num Lock"};
const QStringList capsLamp{"Caps Lock"};
const QStringList numAndCapsLamps{"Num Lock", "Caps Lock"};
const QStringList scrollLamp{"Scroll Lock"};

QPoint placeOf(const KbdGeometry& picture, KeyCode keycode)
{
    const KbdKey* key = keyWithCode(picture, keycode);
    return picture.mapFromScene(key->mapToScene(key->boundingRect().center()));
}

void press(const KbdGeometry& picture, KeyCode keycode)
{
    QTest::mousePress(picture.viewport(), Qt::LeftButton, {}, placeOf(picture, keycode));
}

void release(const KbdGeometry& picture, KeyCode keycode)
{
    QTest::mouseRelease(picture.viewport(), Qt::LeftButton, {}, placeOf(picture, keycode));
}

void sendKeyEvent(KbdGeometry& picture, int type, KeyCode keycode)
{
    XKeyEvent event{};
    event.type = type;
    event.keycode = keycode;
    if (type == x11::keyPress)
        picture.x11KeyPressEventIn(&event);
    else
        picture.x11KeyReleaseEventIn(&event);
}

// What the server has changed arrives as an event: to be looked at until it has.
const KbdGeometry& followed(KbdGeometry& view)
{
    view.x11LockStateChangedIn();
    return view;
}

} // namespace

// The picture follows the real keyboard, and the real keyboard the picture.
class KeyboardTest : public QObject {
    Q_OBJECT

public:
    explicit KeyboardTest(QByteArray displayName)
        : display(std::move(displayName))
    {
    }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // The physical keyboard, while the window has the focus.
    void aPhysicalKeyIsLitWhileItIsHeld();
    void severalPhysicalKeysAreLit();
    void aPhysicalModifierIsShownOnTheKeys();
    void aPhysicalCapsLockIsShown();
    void aKeyThatIsNotOnThePictureChangesNothing();
    void keycodesWithoutAKeyAreIgnored();
    void aLitKeyIsLetGoWhenTheFocusLeaves();

    // Every X event passes.
    void everyEventIsPassedOn_data();
    void everyEventIsPassedOn();

    // Locks.
    void locksAreFollowedWhileTheFocusIsElsewhere_data();
    void locksAreFollowedWhileTheFocusIsElsewhere();
    void aPhysicalLockIsFollowedWhileTheFocusIsElsewhere_data();
    void aPhysicalLockIsFollowedWhileTheFocusIsElsewhere();
    void twoLocksShowEachItsOwnLamp_data();
    void twoLocksShowEachItsOwnLamp();
    void clickedLocksShowEachItsOwnLamp();
    void whatIsFollowedIsNotWrittenBack();
    void aPhysicalLockIsLeftToTheServer();
    void aPhysicalLockEndsAsTheServerHasIt();
    void aClickedLockIsLockedInTheServerUntilTheNextClick();
    void theLocksOfTheStartAreShownAndLeftInTheServer();
    void aLockOfTheStartIsClickedOff();
    void theLampOfALockThatAClickDropsGoesOut();
    void scrollLockIsFollowedWhereTheKeymapHasIt();
    void aGeometryWithoutLampsFollowsTheLocks();
    void aModifierThatIsNoLockStaysOutOfTheServer();

    // Groups.
    void aModifierThatTheUserHoldsStaysHeldAfterAClick();

    void whatIsHeldStandsInTheServerForTheSwitcher();

    void theGroupIsShownAndLockedInTheServer();
    void aKeyWithFewerGroupsKeepsItsGroup();
    void aGroupLockedByAnotherProgramIsShown();
    void aNewKeyboardGetsTheGroupShown();
    void aKeyboardLoadedMeanwhileKeepsTheGroup();
    void aNewKeyboardIsIgnoredWithoutTheFocus();
    void aChangedMapIsNoNewKeyboard();

    void everyResizeTellsTheScale();

private:
    void startApplication(const QByteArrayList& options);
    void startOnlyToolkit();
    std::unique_ptr<KbdGeometry> newPicture(
        const QString& geometry = ourGeometry, const QString& symbols = {});

    MainWindow& mainWindow() const;
    KbdGeometry& picture() const { return *mainWindow().picture(); }
    XkbEvent xkbEvent(int kind) const;
    bool filter(XkbEvent event);
    void focusTheWindow();
    void waitForReportedState();

    QByteArray display;
    QTemporaryDir settings;
    std::unique_ptr<OtherClient> other;
    std::optional<Arguments> arguments;
    std::unique_ptr<QApplication> application;
};

void KeyboardTest::initTestCase()
{
    QVERIFY(settings.isValid());
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("XDG_CONFIG_DIRS", settings.path().toLocal8Bit());
}

void KeyboardTest::init()
{
    QVERIFY(
        setKeyboard(display, {"-option", "", "-model", "pc105", "-layout", "us", "-variant", ""}));
    other = std::make_unique<OtherClient>(display);
    other->lockModifiers(all, 0);
    other->lockGroup(0);
}

void KeyboardTest::cleanup()
{
    application.reset();
    other.reset();
    QCOMPARE(pressedKeys(display), QList<int>());
}

void KeyboardTest::startApplication(const QByteArrayList& options)
{
    arguments.emplace(options);
    application = std::make_unique<KbdApp>(arguments->count, arguments->pointers.data());
    failOnXErrors();
    QVERIFY(QTest::qWaitForWindowExposed(&mainWindow()));
}

void KeyboardTest::startOnlyToolkit()
{
    arguments.emplace(QByteArrayList());
    application = std::make_unique<QApplication>(arguments->count, arguments->pointers.data());
    failOnXErrors();
}

// The server's keyboard with this geometry, shown.
std::unique_ptr<KbdGeometry> KeyboardTest::newPicture(
    const QString& geometry, const QString& symbols)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    if (!queryComponentNames(&names, toolkitDisplay(), {}, {}, {}, {}))
        qFatal("setxkbmap gave no components");
    replace(names.geometry, geometry);
    if (!symbols.isEmpty())
        replace(names.symbols, symbols);
    auto result = std::make_unique<KbdGeometry>("", "", "", "", &names, false, nullptr);
    result->resize(1200, 420);
    result->show();
    return QTest::qWaitForWindowExposed(result.get()) ? std::move(result) : nullptr;
}

MainWindow& KeyboardTest::mainWindow() const
{
    auto* window = topLevelWindow<MainWindow>();
    if (!window)
        qFatal("the application has no main window");
    return *window;
}

XkbEvent KeyboardTest::xkbEvent(int kind) const
{
    XkbEvent event{};
    event.type = x11::queryXkb(toolkitDisplay())->event;
    event.any.display = toolkitDisplay();
    event.any.xkb_type = kind;
    return event;
}

// Whether the application takes the event away from Qt.
bool KeyboardTest::filter(XkbEvent event)
{
    bool isFinal = true;
    const bool isThere = QMetaObject::invokeMethod(application.get(), "x11EventFilter",
        Q_RETURN_ARG(bool, isFinal), Q_ARG(XEvent*, &event.core));
    return !isThere || isFinal;
}

void KeyboardTest::focusTheWindow()
{
    other->giveFocusTo(mainWindow().winId());
    QTRY_VERIFY(QApplication::focusWidget());
}

// Everything that the server has reported so far has been handled then.
void KeyboardTest::waitForReportedState()
{
    FollowedKeyboard followed;
    followed.state(); // as of now: what is still on its way is another one
    const auto last = static_cast<unsigned char>(other->state().locked_mods ^ num);
    other->lockModifiers(num, last & num);
    QTRY_COMPARE(followed.state().lockedModifiers, last);
}

void KeyboardTest::aPhysicalKeyIsLitWhileItIsHeld()
{
    startApplication({});
    focusTheWindow();
    other->key(keyA, true);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>{keyA});
    other->key(keyA, false);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>());
}

void KeyboardTest::severalPhysicalKeysAreLit()
{
    startApplication({});
    focusTheWindow();
    other->key(escape, true);
    other->key(keyA, true);
    QTRY_COMPARE(litKeysOf(picture()).size(), 2);
    other->key(escape, false);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>{keyA});
    other->key(keyA, false);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>());
}

void KeyboardTest::aPhysicalModifierIsShownOnTheKeys()
{
    startApplication({});
    focusTheWindow();
    other->key(leftShift, true);
    QTRY_COMPARE(keyWithCode(picture(), keyA)->activeLabel(), QString("A"));
    QCOMPARE(picture().modifiers(), shift);
    other->key(leftShift, false);
    QTRY_COMPARE(keyWithCode(picture(), keyA)->activeLabel(), QString("a"));
    QCOMPARE(picture().modifiers(), noModifiers);
}

void KeyboardTest::aPhysicalCapsLockIsShown()
{
    startApplication({});
    focusTheWindow();
    other->tap(capsLock);
    QTRY_COMPARE(litLampsOf(picture()), capsLamp);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>());
    QCOMPARE(picture().modifiers(), lock);
    QCOMPARE(other->state().locked_mods, lock);
    other->tap(capsLock);
    QTRY_COMPARE(litLampsOf(picture()), noLamp);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>());
    QCOMPARE(picture().modifiers(), noModifiers);
    QCOMPARE(other->state().locked_mods, noModifiers);
}

void KeyboardTest::aKeyThatIsNotOnThePictureChangesNothing()
{
    startApplication({});
    focusTheWindow();
    QVERIFY(!keyWithCode(picture(), notOnThePicture));
    other->key(notOnThePicture, true);
    other->key(keyA, true);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>{keyA});
    other->key(notOnThePicture, false);
    other->key(keyA, false);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>());
}

void KeyboardTest::keycodesWithoutAKeyAreIgnored()
{
    startOnlyToolkit();
    const auto view = newPicture();
    int reports = 0;
    const auto count = [&reports] { ++reports; };
    connect(view.get(), &KbdGeometry::virtualKeyPress, this, count);
    connect(view.get(), &KbdGeometry::virtualKeyRelease, this, count);
    for (const KeyCode keycode : {KeyCode(0), lowest, notOnThePicture, highest}) {
        sendKeyEvent(*view, x11::keyPress, keycode);
        sendKeyEvent(*view, x11::keyRelease, keycode);
    }
    QCOMPARE(litKeysOf(*view), QList<int>());
    QCOMPARE(reports, 0);
    sendKeyEvent(*view, x11::keyPress, keyA);
    QCOMPARE(reports, 1);
}

void KeyboardTest::aLitKeyIsLetGoWhenTheFocusLeaves()
{
    startApplication({});
    focusTheWindow();
    other->key(keyA, true);
    QTRY_COMPARE(litKeysOf(picture()), QList<int>{keyA});
    other->takeFocus();
    QTRY_COMPARE(litKeysOf(picture()), QList<int>());
    other->key(keyA, false);
}

void KeyboardTest::everyEventIsPassedOn_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("xkbType");
    QTest::addColumn<int>("signal"); // its index in the list of the test; none: -1

    QTest::newRow("key press") << x11::keyPress << 0 << 0;
    QTest::newRow("key release") << x11::keyRelease << 0 << 1;
    QTest::newRow("new keyboard without the focus")
        << anyXkbEvent << int(XkbNewKeyboardNotify) << -1;
    QTest::newRow("map") << anyXkbEvent << int(XkbMapNotify) << -1;
    QTest::newRow("state") << anyXkbEvent << int(XkbStateNotify) << 3;
    QTest::newRow("bell") << anyXkbEvent << int(XkbBellNotify) << -1;
    QTest::newRow("button press") << int(ButtonPress) << 0 << -1;
    QTest::newRow("motion") << int(MotionNotify) << 0 << -1;
}

void KeyboardTest::everyEventIsPassedOn()
{
    QFETCH(int, type);
    QFETCH(int, xkbType);
    startApplication({"--tofocus"});
    other->takeFocus();
    QObject* const sender = application.get();
    const QSignalSpy spies[] = {QSignalSpy(sender, SIGNAL(x11KeyPressEventOut(XKeyEvent*))),
        QSignalSpy(sender, SIGNAL(x11KeyReleaseEventOut(XKeyEvent*))),
        QSignalSpy(sender, SIGNAL(x11NewKbdEventOut())),
        QSignalSpy(sender, SIGNAL(x11LockStateChangedOut()))};
    XkbEvent event = xkbEvent(xkbType);
    if (type != anyXkbEvent) {
        event.type = type;
        event.core.xkey.keycode = highest;
    }
    QVERIFY(!filter(event));
    QFETCH(int, signal);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(spies[i].size(), i == signal ? 1 : 0);
}

void KeyboardTest::locksAreFollowedWhileTheFocusIsElsewhere_data()
{
    QTest::addColumn<ShiftMask_t>("mask");
    QTest::addColumn<QStringList>("lamps");
    QTest::newRow("Caps Lock") << lock << capsLamp;
    QTest::newRow("Num Lock") << num << numLamp;
    QTest::newRow("both") << both(lock, num) << numAndCapsLamps;
}

void KeyboardTest::locksAreFollowedWhileTheFocusIsElsewhere()
{
    QFETCH(ShiftMask_t, mask);
    QFETCH(QStringList, lamps);
    startApplication({"--tofocus"});
    other->takeFocus();
    QVERIFY(!QApplication::focusWidget());
    QCOMPARE(litLampsOf(picture()), noLamp);

    other->lockModifiers(mask, mask);
    QTRY_COMPARE(litLampsOf(picture()), lamps);
    QCOMPARE(picture().modifiers(), mask);
    QCOMPARE(other->state().locked_mods, mask);
    other->lockModifiers(mask, 0);
    QTRY_COMPARE(litLampsOf(picture()), noLamp);
    QCOMPARE(picture().modifiers(), noModifiers);
    QCOMPARE(other->state().locked_mods, noModifiers);
}

void KeyboardTest::aPhysicalLockIsFollowedWhileTheFocusIsElsewhere_data()
{
    QTest::addColumn<int>("keycode");
    QTest::addColumn<ShiftMask_t>("mask");
    QTest::addColumn<QStringList>("lamps");
    QTest::newRow("Caps Lock") << int(capsLock) << lock << capsLamp;
    QTest::newRow("Num Lock") << int(numLock) << num << numLamp;
}

void KeyboardTest::aPhysicalLockIsFollowedWhileTheFocusIsElsewhere()
{
    QFETCH(int, keycode);
    QFETCH(ShiftMask_t, mask);
    QFETCH(QStringList, lamps);
    startApplication({"--tofocus"});
    other->takeFocus();
    for (int round = 0; round < 2; ++round) {
        other->tap(static_cast<KeyCode>(keycode));
        QTRY_COMPARE(litLampsOf(picture()), lamps);
        QTRY_COMPARE(other->state().locked_mods, mask);
        other->tap(static_cast<KeyCode>(keycode));
        QTRY_COMPARE(litLampsOf(picture()), noLamp);
        QTRY_COMPARE(other->state().locked_mods, noModifiers);
    }
}

void KeyboardTest::twoLocksShowEachItsOwnLamp_data()
{
    QTest::addColumn<bool>("hasFocus");
    QTest::newRow("typed into the program") << true;
    QTest::newRow("typed elsewhere") << false;
}

void KeyboardTest::twoLocksShowEachItsOwnLamp()
{
    QFETCH(bool, hasFocus);
    startApplication(hasFocus ? QByteArrayList() : QByteArrayList{"--tofocus"});
    if (hasFocus)
        focusTheWindow();
    else
        other->takeFocus();
    const std::pair<KeyCode, QStringList> strokes[] = {{capsLock, capsLamp},
        {numLock, numAndCapsLamps}, {capsLock, numLamp}, {capsLock, numAndCapsLamps},
        {numLock, capsLamp}, {capsLock, noLamp}};
    for (const auto& [key, lamps] : strokes) {
        other->tap(key);
        QTRY_COMPARE(litLampsOf(picture()), lamps);
        QTRY_COMPARE(litKeysOf(picture()), QList<int>());
        QTRY_COMPARE(picture().modifiers(), other->state().locked_mods);
    }
}

void KeyboardTest::clickedLocksShowEachItsOwnLamp()
{
    startApplication({"--tofocus"});
    const std::pair<KeyCode, QStringList> clicks[] = {
        {numLock, numLamp}, {capsLock, numAndCapsLamps}, {numLock, capsLamp}, {capsLock, noLamp}};
    for (const auto& [key, lamps] : clicks) {
        press(picture(), key);
        release(picture(), key);
        QCOMPARE(litLampsOf(picture()), lamps);
        QTRY_COMPARE(other->state().locked_mods, picture().modifiers());
        QTRY_COMPARE(litLampsOf(picture()), lamps);
    }
}

// The user may have changed it again by the time that it arrives.
void KeyboardTest::whatIsFollowedIsNotWrittenBack()
{
    startOnlyToolkit();
    const auto view = newPicture();
    other->watchLocks();
    other->lockModifiers(all, both(lock, num));
    QTRY_COMPARE(followed(*view).modifiers(), both(lock, num));
    QCOMPARE(other->lockChanges(), 1);
}

void KeyboardTest::aPhysicalLockIsLeftToTheServer()
{
    startOnlyToolkit();
    const auto view = newPicture();
    other->watchLocks();
    sendKeyEvent(*view, x11::keyPress, capsLock);
    QCOMPARE(view->modifiers(), lock);
    QCOMPARE(litLampsOf(*view), capsLamp);
    sendKeyEvent(*view, x11::keyRelease, capsLock);
    QCOMPARE(view->modifiers(), lock);
    QCOMPARE(litLampsOf(*view), capsLamp);
    QCOMPARE(other->lockChanges(), 0);
}

// A press toggles the picture's lock, whichever way that stood; the server's report puts it right.
void KeyboardTest::aPhysicalLockEndsAsTheServerHasIt()
{
    other->lockModifiers(num, num);
    startApplication({});
    focusTheWindow();
    other->tap(leftShift);
    for (const KeyCode key : {numLock, capsLock, numLock, capsLock}) {
        other->tap(key);
        QTRY_COMPARE(litKeysOf(picture()), QList<int>());
        QTRY_COMPARE(picture().modifiers(), other->state().locked_mods);
    }
    QCOMPARE(picture().modifiers(), num);
}

void KeyboardTest::aClickedLockIsLockedInTheServerUntilTheNextClick()
{
    startApplication({"--tofocus"});
    press(picture(), capsLock);
    QTRY_COMPARE(other->state().locked_mods, lock);
    QCOMPARE(litLampsOf(picture()), capsLamp);
    QCOMPARE(keyWithCode(picture(), keyA)->activeLabel(), QString("A"));
    release(picture(), capsLock);
    waitForReportedState();
    QCOMPARE(other->state().locked_mods, both(lock, num));
    QVERIFY(litLampsOf(picture()).contains("Caps Lock"));

    press(picture(), capsLock);
    QTRY_COMPARE(other->state().locked_mods, num);
    QVERIFY(!litLampsOf(picture()).contains("Caps Lock"));
    QCOMPARE(keyWithCode(picture(), keyA)->activeLabel(), QString("a"));
    release(picture(), capsLock);
    waitForReportedState();
    QCOMPARE(other->state().locked_mods, noModifiers);
    QCOMPARE(litLampsOf(picture()), noLamp);
    QCOMPARE(picture().modifiers(), noModifiers);
}

void KeyboardTest::theLocksOfTheStartAreShownAndLeftInTheServer()
{
    other->lockModifiers(all, both(lock, num));
    startOnlyToolkit();
    const auto view = newPicture();
    QCOMPARE(view->modifiers(), both(lock, num));
    QCOMPARE(litLampsOf(*view), numAndCapsLamps);
    QCOMPARE(keyWithCode(*view, keyA)->activeLabel(), QString("A"));
    press(*view, leftShift);
    release(*view, leftShift);
    QCOMPARE(other->state().locked_mods, both(lock, num));
}

void KeyboardTest::theLampOfALockThatAClickDropsGoesOut()
{
    other->lockModifiers(all, num);
    startApplication({"--tofocus"});
    QCOMPARE(litLampsOf(picture()), numLamp);
    press(picture(), capsLock);
    release(picture(), capsLock);
    QTRY_COMPARE(other->state().locked_mods, lock);
    QTRY_COMPARE(litLampsOf(picture()), capsLamp);
    QCOMPARE(picture().modifiers(), lock);
}

void KeyboardTest::aLockOfTheStartIsClickedOff()
{
    other->lockModifiers(all, lock);
    startOnlyToolkit();
    const auto view = newPicture();
    press(*view, capsLock);
    QTRY_COMPARE(other->state().locked_mods, noModifiers);
    QCOMPARE(view->modifiers(), noModifiers);
    QCOMPARE(litLampsOf(*view), noLamp);
    release(*view, capsLock);
    QCOMPARE(view->modifiers(), noModifiers);
}

void KeyboardTest::scrollLockIsFollowedWhereTheKeymapHasIt()
{
    startOnlyToolkit();
    const auto view = newPicture(ourGeometry, scrollLockSymbols);
    other->lockModifiers(scroll, scroll);
    QTRY_COMPARE(litLampsOf(followed(*view)), scrollLamp);
    QCOMPARE(view->modifiers(), scroll);
    other->lockModifiers(scroll, 0);
    QTRY_COMPARE(litLampsOf(followed(*view)), noLamp);
    QCOMPARE(view->modifiers(), noModifiers);
}

void KeyboardTest::aGeometryWithoutLampsFollowsTheLocks()
{
    startOnlyToolkit();
    const auto view = newPicture(lamplessGeometry);
    QVERIFY(lampsOf(*view).isEmpty());
    other->lockModifiers(lock, lock);
    QTRY_COMPARE(followed(*view).modifiers(), lock);
    QCOMPARE(keyWithCode(*view, keyA)->activeLabel(), QString("A"));
    other->lockModifiers(lock, 0);
    QTRY_COMPARE(followed(*view).modifiers(), noModifiers);
    QCOMPARE(keyWithCode(*view, keyA)->activeLabel(), QString("a"));
}

void KeyboardTest::aModifierThatIsNoLockStaysOutOfTheServer()
{
    startOnlyToolkit();
    const auto view = newPicture();
    press(*view, leftShift);
    release(*view, leftShift);
    QCOMPARE(view->modifiers(), shift);
    QCOMPARE(keyWithCode(*view, keyA)->activeLabel(), QString("A"));
    QCOMPARE(other->state().mods, noModifiers);
    press(*view, leftShift);
    release(*view, leftShift);
    QCOMPARE(view->modifiers(), noModifiers);
}

void KeyboardTest::aModifierThatTheUserHoldsStaysHeldAfterAClick()
{
    startApplication({"--tofocus"});
    other->takeFocus();
    other->key(leftShift, true);
    picture().modifierPressed(leftShift, XkbSA_SetMods, shift);
    press(picture(), keyA);
    QTRY_VERIFY(pressedKeys(display).contains(keyA));
    QCOMPARE(other->state().base_mods, shift);
    release(picture(), keyA);
    QTRY_COMPARE(pressedKeys(display), QList<int>{leftShift});
    QCOMPARE(other->state().base_mods, shift);
    other->key(leftShift, false);
    QCOMPARE(other->state().base_mods, noModifiers);
}

void KeyboardTest::whatIsHeldStandsInTheServerForTheSwitcher()
{
    startApplication({"--tofocus"});
    other->takeFocus();
    const QByteArray name = QByteArray::fromStdString(x11::heldKeysProperty(getpid()));
    QCOMPARE(other->bytesOfRoot(name), QByteArray());
    picture().modifierPressed(leftShift, XkbSA_SetMods, shift);
    press(picture(), keyA);
    QCOMPARE(other->bytesOfRoot(name), QByteArray("\x26\x3e")); // A and a Shift
    release(picture(), keyA);
    QCOMPARE(other->bytesOfRoot(name), QByteArray());
    QTRY_COMPARE(pressedKeys(display), QList<int>());
}

void KeyboardTest::theGroupIsShownAndLockedInTheServer()
{
    QVERIFY(setKeyboard(display, {"-layout", "us,de"}));
    startOnlyToolkit();
    const auto view = newPicture();
    QCOMPARE(keyWithCode(*view, keyY)->activeLabel(), QString("y"));
    view->setGroupNum(1);
    QCOMPARE(view->group(), KeyGroup_t(1));
    QCOMPARE(keyWithCode(*view, keyY)->activeLabel(), QString("z"));
    QTRY_COMPARE(int(other->state().locked_group), 1);
    view->setGroupNum(0);
    QCOMPARE(keyWithCode(*view, keyY)->activeLabel(), QString("y"));
    QTRY_COMPARE(int(other->state().locked_group), 0);
}

// The second layout alone has symbols for the key beside the right Shift.
void KeyboardTest::aKeyWithFewerGroupsKeepsItsGroup()
{
    QVERIFY(setKeyboard(display, {"-model", "jp106", "-layout", "us,jp,de"}));
    startOnlyToolkit();
    const auto view = newPicture("pc-arvane(jp106)");
    const KbdKey* key = keyWithCode(*view, underscore);
    QCOMPARE(key->symbols().groupCount(), 2);
    QCOMPARE(keyWithCode(*view, keyY)->symbols().groupCount(), 3);
    QCOMPARE(key->activeKeysym(), x11::none);
    view->setGroupNum(2);
    QCOMPARE(key->activeKeysym(), x11::none);
    view->setGroupNum(1);
    QCOMPARE(key->activeKeysym(), KeySym(XK_backslash));
    view->setGroupNum(2);
    QCOMPARE(key->activeKeysym(), KeySym(XK_backslash));
    QCOMPARE(keyWithCode(*view, keyY)->activeLabel(), QString("z"));
    QTRY_COMPARE(int(other->state().locked_group), 2);
}

void KeyboardTest::aGroupLockedByAnotherProgramIsShown()
{
    QVERIFY(setKeyboard(display, {"-layout", "us,de"}));
    startApplication({"--tofocus"});
    other->takeFocus();
    other->lockGroup(1);
    QTRY_COMPARE(keyWithCode(picture(), keyY)->activeLabel(), QString("z"));
    other->lockGroup(0);
    QTRY_COMPARE(keyWithCode(picture(), keyY)->activeLabel(), QString("y"));
}

void KeyboardTest::aNewKeyboardGetsTheGroupShown()
{
    QVERIFY(setKeyboard(display, {"-layout", "us,de"}));
    startApplication({});
    focusTheWindow();
    mainWindow().levelChanged(1);
    QTRY_COMPARE(int(other->state().locked_group), 1);

    // The keyboard comes with its first group, before the window has heard of that.
    other->lockGroup(0);
    QVERIFY(!filter(xkbEvent(XkbNewKeyboardNotify)));
    QTRY_COMPARE(int(other->state().locked_group), 1);
    waitForReportedState();
    QCOMPARE(int(other->state().locked_group), 1);
    QCOMPARE(keyWithCode(picture(), keyY)->activeLabel(), QString("z"));
}

void KeyboardTest::aKeyboardLoadedMeanwhileKeepsTheGroup()
{
    QVERIFY(setKeyboard(display, {"-layout", "us,de"}));
    startApplication({});
    focusTheWindow();
    mainWindow().levelChanged(1);
    QTRY_COMPARE(int(other->state().locked_group), 1);

    QSignalSpy keyboards(application.get(), SIGNAL(x11NewKbdEventOut()));
    QVERIFY(setKeyboard(display, {"-layout", "us,de", "-option", "compose:ralt"}));
    QTRY_VERIFY(!keyboards.isEmpty());
    waitForReportedState();
    QCOMPARE(int(other->state().locked_group), 1);
    QCOMPARE(keyWithCode(picture(), keyY)->activeLabel(), QString("z"));
}

void KeyboardTest::aNewKeyboardIsIgnoredWithoutTheFocus()
{
    startApplication({"--tofocus"});
    other->takeFocus();
    QSignalSpy keyboards(application.get(), SIGNAL(x11NewKbdEventOut()));
    QVERIFY(setKeyboard(display, {"-layout", "de"}));
    waitForReportedState();
    QVERIFY(keyboards.isEmpty());
}

void KeyboardTest::aChangedMapIsNoNewKeyboard()
{
    startApplication({});
    focusTheWindow();
    QSignalSpy keyboards(application.get(), SIGNAL(x11NewKbdEventOut()));
    QSignalSpy states(application.get(), SIGNAL(x11LockStateChangedOut()));
    other->changeMap();
    waitForReportedState();
    QVERIFY(keyboards.isEmpty());
    QCOMPARE(states.size(), 1);
}

void KeyboardTest::everyResizeTellsTheScale()
{
    startOnlyToolkit();
    const auto view = newPicture();
    QSignalSpy scales(view.get(), &KbdGeometry::newScale);
    view->resize(600, 420);
    QTRY_COMPARE(scales.size(), 1);
    const double narrow = scales.takeFirst().at(0).toDouble();
    QCOMPARE(narrow, view->viewportTransform().m11());
    view->resize(1200, 420);
    QTRY_COMPARE(scales.size(), 1);
    QVERIFY(scales.takeFirst().at(0).toDouble() > 1.5 * narrow);

    QResizeEvent unchanged(view->size(), view->size());
    QApplication::sendEvent(view->viewport(), &unchanged);
    QApplication::sendEvent(view->viewport(), &unchanged);
    QCOMPARE(scales.size(), 2);
    QCOMPARE(scales.at(0), scales.at(1));
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    KeyboardTest test(server.display());
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_keyboard.moc"

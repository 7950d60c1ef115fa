#include "harness/KeyTargetProcess.h"
#include "harness/ProgramRun.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <csignal>
#include <memory>

namespace {

constexpr int capsLockKey = 66; // of the keymap "evdev"
constexpr unsigned int secondGroup = 1;
constexpr int focusChanges = 10;

constexpr unsigned int keymapNews = XkbNewKeyboardNotifyMask | XkbMapNotifyMask;

} // namespace

// The program and the switcher that it starts, together: what is the user's is there after them,
// and, as long as no other keyboard was chosen, beside them.
class CompanionTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void editedKeysStayWhileTheKeyboardIsShown_data();
    void editedKeysStayWhileTheKeyboardIsShown();
    void theSecondGroupIsStillThereWhenTheKeyboardCloses();
    void anUntouchedTryOutWindowTellsNobodyOfANewKeyboard();
    void theKeyboardIsTheUsersAgainAfterBothWereKilled();

private:
    QByteArray display() const { return qgetenv("DISPLAY"); }
    bool isOwned(const char* selection) const;
    // Whether a switcher of the program has the right to load its keyboard, and has used it.
    bool isSwitching() const { return isOwned("_ORVIX_KBD_SWITCHER_KEYBOARD"); }
    bool hasSwitcher() const;
    pid_t switcherProcess() const;
    Window start(const QStringList& arguments);
    void focus(Window window) const;
    void end();
    KeySym keysymOf(int keycode) const;
    unsigned int lockedGroup() const;
    int keymapNewsSeen() const;

    XConnection connection;
    int xkbEvent = -1;
    std::unique_ptr<ProgramRun> program;
    Window programWindow = x11::none;
};

bool CompanionTest::isOwned(const char* selection) const
{
    const Atom atom = XInternAtom(connection.get(), selection, x11::xFalse);
    return XGetSelectionOwner(connection.get(), atom) != x11::none;
}

bool CompanionTest::hasSwitcher() const
{
    return isOwned(("_ORVIX_KBD_SWITCHER_" + QByteArray::number(qulonglong(programWindow))).data());
}

// It is told with the window by which the switcher has its turn; -1 when there is none.
pid_t CompanionTest::switcherProcess() const
{
    const QByteArray name = "_ORVIX_KBD_SWITCHER_" + QByteArray::number(qulonglong(programWindow));
    const Window turn = XGetSelectionOwner(
        connection.get(), XInternAtom(connection.get(), name.constData(), x11::xFalse));
    const std::vector<unsigned long> start =
        x11::property(connection.get(), turn, "_ORVIX_KBD_SWITCHER_START").numbers;
    return start.size() == 3 ? static_cast<pid_t>(start[2]) : -1;
}

// The window once it is in sight and has its switcher; none when that fails.
Window CompanionTest::start(const QStringList& arguments)
{
    program = std::make_unique<ProgramRun>(KBD_PROGRAM, display());
    program->start(arguments);
    programWindow = program->waitForWindow(connection.get());
    const bool isWhole =
        programWindow != x11::none && QTest::qWaitFor([this] { return hasSwitcher(); });
    return isWhole ? programWindow : x11::none;
}

void CompanionTest::focus(Window window) const
{
    XSetInputFocus(connection.get(), window, RevertToParent, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

// The program as a user ends it, and the switcher after it.
void CompanionTest::end()
{
    QCOMPARE(::kill(static_cast<pid_t>(program->processId()), SIGTERM), 0);
    QVERIFY(program->waitForEnd());
    QTRY_VERIFY(!hasSwitcher());
    QCOMPARE(program->errors(), QByteArray());
}

KeySym CompanionTest::keysymOf(int keycode) const
{
    int width = 0;
    const x11::Owned<KeySym> keysyms(
        XGetKeyboardMapping(connection.get(), static_cast<KeyCode>(keycode), 1, &width));
    return keysyms.get()[0];
}

unsigned int CompanionTest::lockedGroup() const
{
    XkbStateRec state{};
    XkbGetState(connection.get(), x11::coreKeyboard, &state);
    return state.locked_group;
}

// How often any client was told of another keymap since the last call.
int CompanionTest::keymapNewsSeen() const
{
    XSync(connection.get(), x11::xFalse);
    int count = 0;
    XEvent event;
    while (XCheckTypedEvent(connection.get(), xkbEvent, &event)
        || XCheckTypedEvent(connection.get(), MappingNotify, &event))
        ++count;
    return count;
}

void CompanionTest::initTestCase()
{
    connection = openDisplay(display());
    QVERIFY(connection);
    const auto xkb = x11::queryXkb(connection.get());
    QVERIFY(xkb);
    xkbEvent = xkb->event;
    XkbSelectEvents(connection.get(), x11::coreKeyboard, keymapNews, keymapNews);
}

void CompanionTest::init()
{
    QVERIFY(setKeyboard(display(), {"-model", "pc105", "-layout", "us", "-option", ""}));
}

void CompanionTest::cleanup()
{
    program.reset();
    QTRY_VERIFY(!hasSwitcher());
}

void CompanionTest::editedKeysStayWhileTheKeyboardIsShown_data()
{
    QTest::addColumn<QStringList>("mode");
    QTest::newRow("to the window with the focus") << QStringList{"--tofocus"};
    QTest::newRow("try-out") << QStringList();
}

void CompanionTest::editedKeysStayWhileTheKeyboardIsShown()
{
    QFETCH(QStringList, mode);
    QCOMPARE(runTool("xmodmap", {"-e", "keycode 66 = Escape"}, display()).status, 0);
    const QByteArray before = keymapText(display());
    const Window window = start(mode);
    QVERIFY(window != x11::none);
    keymapNewsSeen();
    if (mode.isEmpty())
        focus(window);
    QTRY_VERIFY(isSwitching());
    QCOMPARE(keysymOf(capsLockKey), KeySym(XK_Escape));
    end();
    QCOMPARE(keymapNewsSeen(), 0);
    QCOMPARE(keymapText(display()), before);
}

void CompanionTest::theSecondGroupIsStillThereWhenTheKeyboardCloses()
{
    QVERIFY(setKeyboard(display(), {"-layout", "us,ru"}));
    QVERIFY(start({"--tofocus"}) != x11::none);
    QTRY_VERIFY(isSwitching());
    XkbLockGroup(connection.get(), x11::coreKeyboard, secondGroup);
    end();
    QCOMPARE(lockedGroup(), secondGroup);
}

void CompanionTest::anUntouchedTryOutWindowTellsNobodyOfANewKeyboard()
{
    KeyTargetProcess other(display());
    QVERIFY(other.waitForReady());
    const Window window = start({});
    QVERIFY(window != x11::none);
    keymapNewsSeen();
    for (int i = 0; i < focusChanges; ++i) {
        focus(window);
        QTRY_VERIFY(isSwitching());
        focus(other.windowId());
        QTRY_VERIFY(!isSwitching());
    }
    QCOMPARE(keymapNewsSeen(), 0);
}

// The program is started with a layout of its own, and then as the user has it.
void CompanionTest::theKeyboardIsTheUsersAgainAfterBothWereKilled()
{
    QCOMPARE(runTool("xmodmap", {"-e", "keycode 66 = Escape"}, display()).status, 0);
    const QByteArray before = keymapText(display());
    QVERIFY(start({"--tofocus", "-layout", "de"}) != x11::none);
    QTRY_VERIFY(keymapText(display()).contains("pc+de+inet(evdev)"));
    QTRY_VERIFY(isSwitching());
    const pid_t switcher = switcherProcess();
    QVERIFY(switcher > 0);
    QCOMPARE(::kill(switcher, SIGKILL), 0);
    QCOMPARE(::kill(static_cast<pid_t>(program->processId()), SIGKILL), 0);
    QVERIFY(program->waitForEnd());
    QTRY_VERIFY(!hasSwitcher());
    QVERIFY(keymapText(display()).contains("pc+de+inet(evdev)"));

    QVERIFY(start({"--tofocus"}) != x11::none);
    QTRY_VERIFY(isSwitching());
    QCOMPARE(keymapText(display()), before);
    end();
    QCOMPARE(keymapText(display()), before);
}

KBD_X11_TEST_MAIN(CompanionTest)

#include "tst_companion.moc"

#include "SwitcherProcess.h"
#include "harness/FailurePictures.h"
#include "harness/PrivateServer.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "x11/Property.h"
#include "x11/X11.h"

#include <QCoreApplication>
#include <QMap>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QTest>

namespace {

// Keycodes of the keymap "evdev".
constexpr int keyY = 29;
constexpr int keyD = 40;

// Devices of every Xvfb: its core keyboard and the two that feed it. A test types on the first.
constexpr int coreKeyboard = 3;
constexpr int xtestKeyboard = 5;
constexpr int serversKeyboard = 7;

constexpr int secondGroup = 1;

const char recordName[] = "_ORVIX_KBD_SWITCHER_LOAN";

QString deviceOption(int device)
{
    return QString::number(device);
}

} // namespace

// What a loan must not harm: the keyboards of the user's, whatever is plugged in meanwhile, and
// whoever is killed.
class LoanTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aSecondKeyboardIsNotWrittenOverTheFirst_data();
    void aSecondKeyboardIsNotWrittenOverTheFirst();
    void aSecondKeyboardKeepsItsOwn();
    void editedKeysAreCarriedOverBesideASecondKeyboard();

    void whatAKilledSwitcherLeftIsPutBackByTheNext_data();
    void whatAKilledSwitcherLeftIsPutBackByTheNext();
    void theNextLoanBeginsWithTheUsersKeyboard();
    void everyDeviceGetsItsOwnBackAfterAKill();
    void keysEditedAfterAKillAreCarriedOver();
    void aKeyboardLoadedAfterAKillStays_data();
    void aKeyboardLoadedAfterAKillStays();
    void aKeyboardLoadedBeforeAKillStays();
    void aLoanThatIsOnIsNoneThatWasLeft();
    void aRecordThatMakesNoSenseIsDropped_data();
    void aRecordThatMakesNoSenseIsDropped();
    void aRecordOfTooFewKeyTypesIsDropped();

private:
    QByteArray display() const { return qgetenv("DISPLAY"); }
    QByteArray deviceKeymap(int device) const;
    QMap<int, QByteArray> keymaps() const;
    KeySym keysymOf(int keycode) const;
    void stroke(int keycode) const;
    unsigned int lockedGroup() const;
    QByteArray record() const;
    void writeRecord(const QByteArray& bytes) const;
    void dropRecord() const;

    // A switcher that has the keyboard loaded wherever the focus is.
    Switcher lend(const QStringList& components, qint64 parent = getpid()) const;
    bool isLent(const QString& symbols) const;

    // Whether the window has a switcher, which has then put back what was left.
    bool hasTurn(Window owner) const;

    // One for a window that has no focus: it puts back what was left, and no more.
    void runOnce() const;

    XConnection connection;
    Window window = x11::none;
};

QByteArray LoanTest::deviceKeymap(int device) const
{
    return runTool("xkbcomp",
        {"-w", "0", "-i", deviceOption(device), "-xkb", QString::fromLatin1(display()), "-"},
        display())
        .output;
}

QMap<int, QByteArray> LoanTest::keymaps() const
{
    QMap<int, QByteArray> result;
    for (const int device : {coreKeyboard, xtestKeyboard, serversKeyboard})
        result[device] = deviceKeymap(device);
    return result;
}

KeySym LoanTest::keysymOf(int keycode) const
{
    int width = 0;
    const x11::Owned<KeySym> keysyms(
        XGetKeyboardMapping(connection.get(), static_cast<KeyCode>(keycode), 1, &width));
    return keysyms.get()[0];
}

void LoanTest::stroke(int keycode) const
{
    for (const int isDown : {x11::xTrue, x11::xFalse})
        XTestFakeKeyEvent(
            connection.get(), static_cast<unsigned int>(keycode), isDown, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

unsigned int LoanTest::lockedGroup() const
{
    XkbStateRec state{};
    XkbGetState(connection.get(), x11::coreKeyboard, &state);
    return state.locked_group;
}

QByteArray LoanTest::record() const
{
    return QByteArray::fromStdString(
        x11::property(connection.get(), XDefaultRootWindow(connection.get()), recordName).bytes);
}

void LoanTest::writeRecord(const QByteArray& bytes) const
{
    const Atom name = XInternAtom(connection.get(), recordName, x11::xFalse);
    XChangeProperty(connection.get(), XDefaultRootWindow(connection.get()), name, name, 8,
        PropModeReplace, reinterpret_cast<const unsigned char*>(bytes.constData()),
        static_cast<int>(bytes.size()));
    XSync(connection.get(), x11::xFalse);
}

void LoanTest::dropRecord() const
{
    XDeleteProperty(connection.get(), XDefaultRootWindow(connection.get()),
        XInternAtom(connection.get(), recordName, x11::xFalse));
    XSync(connection.get(), x11::xFalse);
}

Switcher LoanTest::lend(const QStringList& components, qint64 parent) const
{
    return std::make_unique<SwitcherProcess>(
        switcherOwner(window, display(), parent) + components + QStringList{"--static"});
}

bool LoanTest::isLent(const QString& symbols) const
{
    return keymapText(display()).contains(symbols.toLatin1()) && !record().isEmpty();
}

bool LoanTest::hasTurn(Window owner) const
{
    const QByteArray turn = "_ORVIX_KBD_SWITCHER_" + QByteArray::number(qulonglong(owner));
    const Atom selection = XInternAtom(connection.get(), turn.constData(), x11::xFalse);
    return XGetSelectionOwner(connection.get(), selection) != x11::none;
}

void LoanTest::runOnce() const
{
    // The server may not have noticed yet that the one before is gone.
    QTRY_VERIFY(!hasTurn(window));
    SwitcherProcess next(switcherOwner(window, display()) + french);
    QTRY_VERIFY(hasTurn(window));
    QCOMPARE(record(), QByteArray());
    QCOMPARE(next.stop(), 0);
    QCOMPARE(next.errors(), QByteArray());
}

void LoanTest::initTestCase()
{
    connection = openDisplay(display());
    QVERIFY(connection);
    window = XCreateSimpleWindow(
        connection.get(), XDefaultRootWindow(connection.get()), 0, 0, 100, 100, 0, 0, 0);
    XSync(connection.get(), x11::xFalse);
}

void LoanTest::init()
{
    QVERIFY(setKeyboard(display(), {"-model", "pc105", "-layout", "us", "-option", ""}));
    XkbLockGroup(connection.get(), x11::coreKeyboard, 0);
    XSync(connection.get(), x11::xFalse);
}

void LoanTest::cleanup()
{
    dropRecord();
}

void LoanTest::aSecondKeyboardIsNotWrittenOverTheFirst_data()
{
    QTest::addColumn<bool>("isParentKilled");
    QTest::newRow("the parent is killed") << true;
    QTest::newRow("the switcher is asked to end") << false;
}

// The second one has the system's layout, as one that is plugged in, and is typed on last.
void LoanTest::aSecondKeyboardIsNotWrittenOverTheFirst()
{
    QFETCH(bool, isParentKilled);
    QVERIFY(setKeyboard(display(), {"-layout", "de"}));
    const QByteArray first = deviceKeymap(serversKeyboard);
    QProcess parent;
    parent.start("cat");
    QVERIFY(parent.waitForStarted());
    const Switcher switcher = lend(french, parent.processId());
    QTRY_VERIFY(isLent(frenchSymbols));
    QVERIFY(setKeyboard(display(), {"-device", deviceOption(xtestKeyboard), "-layout", "us"}));
    const QByteArray second = deviceKeymap(xtestKeyboard);
    stroke(keyY);
    QCOMPARE(keysymOf(keyY), KeySym(XK_y));

    if (isParentKilled)
        parent.kill();
    else
        switcher->signal(SIGTERM);
    QCOMPARE(switcher->waitForEnd(), 0);
    QCOMPARE(deviceKeymap(serversKeyboard), first);
    QCOMPARE(deviceKeymap(xtestKeyboard), second);
    parent.kill();
    parent.waitForFinished();
}

void LoanTest::aSecondKeyboardKeepsItsOwn()
{
    const QByteArray first = deviceKeymap(serversKeyboard);
    const Switcher switcher = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    QVERIFY(setKeyboard(display(), {"-device", deviceOption(xtestKeyboard), "-layout", "ru"}));
    const QByteArray second = deviceKeymap(xtestKeyboard);
    QCOMPARE(switcher->stop(), 0);
    QCOMPARE(deviceKeymap(xtestKeyboard), second);
    QCOMPARE(deviceKeymap(serversKeyboard), first);
}

void LoanTest::editedKeysAreCarriedOverBesideASecondKeyboard()
{
    QVERIFY(setKeyboard(display(), {"-layout", "de"}));
    const Switcher switcher = lend(french);
    QTRY_VERIFY(isLent(frenchSymbols));
    KeySym edited = XK_Greek_delta;
    XChangeKeyboardMapping(connection.get(), keyD, 1, &edited, 1);
    XSync(connection.get(), x11::xFalse);
    QVERIFY(setKeyboard(display(), {"-device", deviceOption(xtestKeyboard), "-layout", "us"}));
    const QByteArray second = deviceKeymap(xtestKeyboard);
    stroke(keyY);
    QCOMPARE(switcher->stop(), 0);
    const QByteArray first = deviceKeymap(serversKeyboard);
    QVERIFY(first.contains(germanSymbols.toLatin1()));
    QVERIFY(first.contains("Greek_delta"));
    QVERIFY(first.contains("Udiaeresis"));
    QCOMPARE(deviceKeymap(xtestKeyboard), second);
}

void LoanTest::whatAKilledSwitcherLeftIsPutBackByTheNext_data()
{
    QTest::addColumn<QStringList>("layout");
    QTest::addColumn<QString>("edit"); // as xmodmap takes it; empty: none
    QTest::newRow("a layout") << QStringList{"-layout", "es"} << QString();
    QTest::newRow("edited keys") << QStringList{"-layout", "us"} << "keycode 66 = Escape NoSymbol";
    QTest::newRow("edited modifiers") << QStringList{"-layout", "us"} << "clear Lock";
    QTest::newRow("three groups and options") << QStringList{"-layout", "us,ru,gr", "-option",
        "grp:alt_shift_toggle", "-option", "lv3:ralt_switch", "-option", "compose:menu", "-option",
        "grp_led:scroll"} << QString();
    QTest::newRow("another model and drawing")
        << QStringList{"-model", "jp106", "-layout", "jp"} << QString();
    QTest::newRow("fewer lamps and virtual modifiers") << QStringList{"-keycodes", "xfree86",
        "-symbols", "pc+us", "-types", "complete", "-compat", "basic+ledcaps", "-geometry",
        "pc(pc105)"} << QString();
}

void LoanTest::whatAKilledSwitcherLeftIsPutBackByTheNext()
{
    QFETCH(QStringList, layout);
    QFETCH(QString, edit);
    QVERIFY(setKeyboard(display(), layout));
    if (!edit.isEmpty())
        QCOMPARE(runTool("xmodmap", {"-e", edit}, display()).status, 0);
    XkbLockGroup(connection.get(), x11::coreKeyboard, secondGroup);
    XSync(connection.get(), x11::xFalse);
    const unsigned int group = lockedGroup();
    const QMap<int, QByteArray> before = keymaps();
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    stroke(keyY);
    killed->kill();
    QVERIFY(isLent(germanSymbols));
    runOnce();
    QCOMPARE(keymaps(), before);
    QCOMPARE(lockedGroup(), group);
}

// Whatever is loaded after it, and by however many switchers that are killed in turn.
void LoanTest::theNextLoanBeginsWithTheUsersKeyboard()
{
    QCOMPARE(runTool("xmodmap", {"-e", "keycode 66 = Escape NoSymbol"}, display()).status, 0);
    const QMap<int, QByteArray> before = keymaps();
    lend(german)->kill();
    for (const auto& [components, symbols] :
        {std::pair(german, germanSymbols), std::pair(french, frenchSymbols)}) {
        const Switcher killed = lend(components);
        QTRY_VERIFY(isLent(symbols));
        killed->kill();
    }
    const Switcher last = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    QCOMPARE(last->stop(), 0);
    QCOMPARE(keymaps(), before);
    QCOMPARE(record(), QByteArray());
}

void LoanTest::everyDeviceGetsItsOwnBackAfterAKill()
{
    QVERIFY(setKeyboard(display(), {"-device", deviceOption(serversKeyboard), "-layout", "ru"}));
    const QMap<int, QByteArray> before = keymaps();
    QVERIFY(before[serversKeyboard] != before[xtestKeyboard]);
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    killed->kill();
    runOnce();
    QCOMPARE(keymaps(), before);
}

void LoanTest::keysEditedAfterAKillAreCarriedOver()
{
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    killed->kill();
    KeySym edited = XK_Greek_delta;
    XChangeKeyboardMapping(connection.get(), keyD, 1, &edited, 1);
    XSync(connection.get(), x11::xFalse);
    runOnce();
    QVERIFY(keymapText(display()).contains(americanSymbols.toLatin1()));
    QCOMPARE(keysymOf(keyD), KeySym(XK_Greek_delta));
    QCOMPARE(keysymOf(keyY), KeySym(XK_y));
}

void LoanTest::aKeyboardLoadedAfterAKillStays_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("another layout") << "fr";
    QTest::newRow("the layout that was left") << "de";
}

void LoanTest::aKeyboardLoadedAfterAKillStays()
{
    QFETCH(QString, layout);
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    killed->kill();
    QVERIFY(setKeyboard(display(), {"-layout", layout}));
    const QMap<int, QByteArray> chosen = keymaps();
    runOnce();
    QCOMPARE(keymaps(), chosen);
}

void LoanTest::aKeyboardLoadedBeforeAKillStays()
{
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    // With the loan's drawing too, so that no name tells the two apart.
    const QStringList same{"-layout", "de", "-geometry", "pc-arvane(pc105)"};
    QVERIFY(setKeyboard(display(), same));
    QTRY_COMPARE(record(), QByteArray());
    const QMap<int, QByteArray> chosen = keymaps();
    killed->kill();
    runOnce();
    QCOMPARE(keymaps(), chosen);
}

void LoanTest::aLoanThatIsOnIsNoneThatWasLeft()
{
    const Switcher lender = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    const QByteArray kept = record();
    const Window other = XCreateSimpleWindow(
        connection.get(), XDefaultRootWindow(connection.get()), 0, 0, 100, 100, 0, 0, 0);
    XSync(connection.get(), x11::xFalse);
    SwitcherProcess bystander(switcherOwner(other, display()) + french);
    QTRY_VERIFY(hasTurn(other));
    QCOMPARE(record(), kept);
    QVERIFY(isLent(germanSymbols));
    QCOMPARE(bystander.stop(), 0);
    QCOMPARE(lender->stop(), 0);
    XDestroyWindow(connection.get(), other);
}

void LoanTest::aRecordThatMakesNoSenseIsDropped_data()
{
    QTest::addColumn<QByteArray>("pattern"); // what stands in the place of some bytes
    QTest::newRow("cut short") << QByteArray();
    QTest::newRow("zeros") << QByteArray(4, '\0');
    QTest::newRow("the largest numbers") << QByteArray(4, '\xff');
    QTest::newRow("small numbers") << QByteArray("\x01\x02\x03\x04");
}

// Any program can write it. It is changed at places that are the same in every run.
void LoanTest::aRecordThatMakesNoSenseIsDropped()
{
    QFETCH(QByteArray, pattern);
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    const QByteArray sound = record();
    killed->kill();
    QRandomGenerator places(1);
    for (int i = 0; i < 25; ++i) {
        const auto place = static_cast<qsizetype>(
            places.bounded(static_cast<int>(i < 10 ? 64 : sound.size() - pattern.size())));
        QByteArray changed = sound;
        if (pattern.isEmpty())
            changed.truncate(place);
        else
            changed.replace(place, pattern.size(), pattern);
        writeRecord(changed);
        runOnce();
        // Whatever the keyboard is now, it is one that can be used.
        QVERIFY(keymapText(display()).contains("xkb_symbols"));
    }
}

// A keymap has four at least; Xlib makes none with fewer.
void LoanTest::aRecordOfTooFewKeyTypesIsDropped()
{
    const Switcher killed = lend(german);
    QTRY_VERIFY(isLent(germanSymbols));
    QByteArray changed = record();
    killed->kill();
    // The sizes of a keymap: interpretations, radio groups, key types, aliases, key codes 8 to 255.
    static const QRegularExpression sizes(QStringLiteral("\\x00\\x00([\\x04-\\x40]).\\x08\\xff"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch found = sizes.match(QString::fromLatin1(changed));
    QVERIFY(found.hasMatch());
    changed[found.capturedStart(1)] = 1;
    writeRecord(changed);
    runOnce();
    QCOMPARE(record(), QByteArray());
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    QCoreApplication application(argc, argv);
    failOnXErrors();
    LoanTest test;
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_loan.moc"

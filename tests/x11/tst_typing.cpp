#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PictureKeys.h"
#include "harness/PrivateServer.h"
#include "harness/TopLevelWindow.h"
#include "harness/WaitUntil.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QPrintDialog>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace {

// The selection that an instance holds which types for others.
constexpr char instanceName[] = "orvix-kbd-display-tofocus";

constexpr unsigned int leftButton = 1;
constexpr int dialogPollMs = 20;

// Where no window of ours is: a pointer that rests on a key brings up its tool tip.
constexpr QPoint awayFromAll(2, 2);

// The manager of the display binds no keys, so that each of them reaches the target.
constexpr char managerSettings[] =
    "<openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard/></openbox_config>\n";

struct KeyboardRow {
    const char* name;
    const char* model;
    const char* layout;
    const char* variant;
    int group; // the one that is clicked in, from 0
    bool hasAltGr; // in any of the groups
};

constexpr std::array<KeyboardRow, 13> keyboards{{
    {"us", "pc105", "us", "", 0, false},
    {"de", "pc105", "de", "", 0, true},
    {"fr", "pc105", "fr", "", 0, true},
    {"gb", "pc105", "gb", "", 0, true},
    {"ru", "pc105", "ru", "", 0, false},
    {"gr", "pc105", "gr", "", 0, true},
    {"il", "pc105", "il", "", 0, true},
    {"jp", "jp106", "jp", "", 0, false},
    {"br", "abnt2", "br", "", 0, true},
    {"ch(fr)", "pc105", "ch", "fr", 0, true},
    {"latam", "pc105", "latam", "", 0, true},
    {"us,ru: us", "pc105", "us,ru", "", 0, false},
    {"us,ru: ru", "pc105", "us,ru", "", 1, false},
}};

constexpr int fewestKeys = 90; // without the modifiers

// Modifiers, by KbdKey::modifierName(), that are clicked on before the keys are clicked.
struct StateRow {
    const char* name = nullptr;
    QStringList modifiers;
};

const std::array<StateRow, 4> states{{
    {"plain", {}},
    {"Shift", {"Shift"}},
    {"AltGr", {"LevelThree"}},
    {"Shift and AltGr", {"Shift", "LevelThree"}},
}};

const StateRow numLock{"Num Lock", {"NumLock"}};
const StateRow shiftAndNumLock{"Shift and Num Lock", {"NumLock", "Shift"}};

// A key whose cap shows something else than the key types.
struct ExceptionRow {
    const char* keyboard; // the row of the test
    const char* state; // null: in each
    const char* key; // its XKB name
    const char* reason; // why that is meant to be so
};

constexpr char germanCap[] = "German keyboards have the signs of mathematics on these keys";
constexpr char containment[] = "Shift takes the keypad back from Num Lock; caps ask only for the "
                               "modifiers of a level and take no notice of more";

constexpr std::array<ExceptionRow, 13> exceptions{{
    {"de", nullptr, "KPDV", germanCap},
    {"de", nullptr, "KPMU", germanCap},
    {"keypad", "Shift and Num Lock", "KP0", containment},
    {"keypad", "Shift and Num Lock", "KP1", containment},
    {"keypad", "Shift and Num Lock", "KP2", containment},
    {"keypad", "Shift and Num Lock", "KP3", containment},
    {"keypad", "Shift and Num Lock", "KP4", containment},
    {"keypad", "Shift and Num Lock", "KP5", containment},
    {"keypad", "Shift and Num Lock", "KP6", containment},
    {"keypad", "Shift and Num Lock", "KP7", containment},
    {"keypad", "Shift and Num Lock", "KP8", containment},
    {"keypad", "Shift and Num Lock", "KP9", containment},
    {"keypad", "Shift and Num Lock", "KPDL", containment},
}};

QStringList exceptionsOf(const QString& keyboard, const StateRow& state)
{
    QStringList keys;
    for (const ExceptionRow& row : exceptions) {
        if (keyboard == row.keyboard && (!row.state || state.name == QByteArrayView(row.state)))
            keys << row.key;
    }
    return keys;
}

// A pointer moved and clicked by a client of its own, as the user's is by the hardware.
class Pointer {
public:
    explicit Pointer(const QByteArray& displayName)
        : connection(openDisplay(displayName))
    {
    }

    Display* display() const { return connection.get(); }

    void moveTo(const QPoint& point) const
    {
        XTestFakeMotionEvent(display(), -1, point.x(), point.y(), CurrentTime);
        XFlush(display());
    }

    void click(const QPoint& point) const
    {
        moveTo(point);
        XTestFakeButtonEvent(display(), leftButton, x11::xTrue, CurrentTime);
        XTestFakeButtonEvent(display(), leftButton, x11::xFalse, CurrentTime);
        XFlush(display());
    }

private:
    XConnection connection;
};

// Counts the mouse buttons that Qt has seen going up over the picture. It sees them once the window
// manager has let go of the pointer: were the pointer moved before, the server would put the click
// that it holds back where the pointer is by then.
class MouseReleases : public QObject {
public:
    int count = 0;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonRelease && watched->isWidgetType())
            ++count;
        return false;
    }
};

// The pixel of the screen that a point of the widget is on, by the server's account.
QPoint onScreen(Display* display, const QWidget& widget, const QPoint& point)
{
    const QPoint inWindow = widget.mapTo(widget.window(), point);
    int x = 0;
    int y = 0;
    Window child = x11::none;
    XTranslateCoordinates(display, widget.window()->winId(), XDefaultRootWindow(display),
        inWindow.x(), inWindow.y(), &x, &y, &child);
    return {x, y};
}

// A pixel of the view where the key is what a click hits.
std::optional<QPoint> pixelOf(const KbdGeometry& picture, const KbdKey& key)
{
    const QRectF area = key.boundingRect();
    for (const double y : {0.5, 0.25, 0.75}) {
        for (const double x : {0.5, 0.25, 0.75}) {
            const QPointF point(area.x() + x * area.width(), area.y() + y * area.height());
            const QPoint pixel = picture.mapFromScene(key.mapToScene(point));
            if (picture.itemAt(pixel) == &key)
                return pixel;
        }
    }
    return std::nullopt;
}

QString nameOf(KeySym keysym)
{
    const char* name = XKeysymToString(keysym);
    return name ? QString::fromLatin1(name) : QString("0x%1").arg(keysym, 0, 16);
}

// The character that the X library types for the keysym; empty for one that types none by itself.
QString characterOf(Display* display, KeySym keysym)
{
    std::array<char, 16> bytes{};
    int extra = 0;
    const int length = XkbTranslateKeySym(
        display, &keysym, 0, bytes.data(), static_cast<int>(bytes.size()), &extra);
    const QString text = QString::fromUtf8(bytes.data(), length);
    const bool isDead = nameOf(keysym).startsWith("dead_");
    return !isDead && text.size() == 1 && text.at(0).isPrint() ? text : QString();
}

// What a cap shows.
struct Shown {
    KbdKey* key;
    QString keysym;
    QString label;
};

bool isSign(const QString& text)
{
    return text.size() == 1 && text.at(0).isPrint() && !text.at(0).isSpace();
}

// The keysym has to be the same; where the cap shows a character, the typed character as well.
// A dead key types none, whatever the X library makes of it.
bool isTyped(const Shown& shown, const KeyTargetLine& typed)
{
    if (typed.keycode != shown.key->x11Keycode() || typed.keysym != shown.keysym)
        return false;
    const bool isCharacter =
        isSign(shown.label) && isSign(typed.text) && !shown.keysym.startsWith("dead_");
    return !isCharacter || typed.text == shown.label;
}

bool isLock(const Shown& shown)
{
    return shown.keysym.endsWith("_Lock");
}

// Every key that is no modifier. One that locks is there twice, so that it unlocks again.
QList<Shown> ordinaryKeys(const KbdGeometry& picture)
{
    QList<Shown> result;
    const QList<KbdKey*> keys = picture.keyItems();
    for (KbdKey* key : keys) {
        if (key->symbols().keyType() != 0 || key->symbols().groupCount() == 0)
            continue;
        const Shown shown{key, nameOf(key->activeKeysym()), key->activeLabel()};
        result << shown;
        if (isLock(shown))
            result << shown;
    }
    return result;
}

bool hasModifiers(const KbdGeometry& picture, const StateRow& state)
{
    return std::all_of(state.modifiers.begin(), state.modifiers.end(),
        [&](const QString& modifier) { return modifierKey(picture, modifier); });
}

} // namespace

// What the caps of the picture show is what their keys type: every key of several keyboards is
// clicked with the pointer, under a window manager.
class TypingTest : public QObject {
    Q_OBJECT

public:
    explicit TypingTest(const QByteArray& displayName)
        : display(displayName)
        , pointer(displayName)
    {
    }

private slots:
    void initTestCase();
    void cleanup();

    void whatIsDrawnIsTyped_data();
    void whatIsDrawnIsTyped();
    void theKeypadTypesDigitsWhileNumLockIsOn();
    void lettersAreDrawnAndTypedAsCapitalsWhileCapsLockIsOn_data();
    void lettersAreDrawnAndTypedAsCapitalsWhileCapsLockIsOn();
    void theFifthLevelIsTyped();
    void theTargetHasTheFocusAgainAfterThePrintDialog();
    void capsLockIsSwitchedWhileShiftIsHeld();
    void theTextLineShowsWhatIsDrawn_data();
    void theTextLineShowsWhatIsDrawn();

private:
    bool startApplication(const QByteArray& option, const QStringList& keyboard);
    bool isOnlyInstance() const;
    bool startTarget();

    MainWindow* mainWindow() const { return topLevelWindow<MainWindow>(); }
    KbdGeometry& picture() const { return *mainWindow()->picture(); }
    bool click(const KbdKey& key);
    bool switchModifiers(const StateRow& state, bool on);
    QMap<QString, QString> differences(const StateRow& state);
    void verifyKeys(const QString& keyboard, const StateRow& state);
    QList<KeyTargetLine> typed(const QList<Shown>& shown);
    QString lineAfter(const KbdKey& key);
    unsigned int serverLocks() const;

    QByteArray display;
    Pointer pointer;
    QTemporaryDir managerDirectory;
    std::unique_ptr<WindowManager> windowManager;
    std::array<QByteArray, 2> arguments{"tst_typing"};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<KbdApp> application;
    std::unique_ptr<KeyTargetProcess> target;
};

void TypingTest::initTestCase()
{
    QVERIFY(pointer.display());
    QVERIFY(QDir(managerDirectory.path()).mkdir("openbox"));
    QFile file(managerDirectory.filePath("openbox/rc.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(managerSettings);
    file.close();
    qputenv("XDG_CONFIG_DIRS", managerDirectory.path().toLocal8Bit());
    windowManager = std::make_unique<WindowManager>("openbox", display);
}

void TypingTest::cleanup()
{
    const QList<int> leftDown = pressedKeys(display);
    target.reset();
    application.reset();
    XkbLockModifiers(pointer.display(), x11::coreKeyboard, 0xff, 0);
    XkbLockGroup(pointer.display(), x11::coreKeyboard, 0);
    XSync(pointer.display(), x11::xFalse);
    QCOMPARE(leftDown, QList<int>());
}

// The application that is shown reads the keyboard from the server.
bool TypingTest::startApplication(const QByteArray& option, const QStringList& keyboard)
{
    arguments[1] = option;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    int count = 1;
    {
        const QCoreApplication forTheTool(count, argumentVector.data());
        if (!setKeyboard(display, keyboard) || !waitUntil([&] { return isOnlyInstance(); }))
            return false;
    }
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    failOnXErrors();
    return QTest::qWaitForWindowExposed(mainWindow());
}

// The application would end this process, with status 0, if another one typed for others.
bool TypingTest::isOnlyInstance() const
{
    const Atom guard = XInternAtom(pointer.display(), instanceName, x11::xFalse);
    return XGetSelectionOwner(pointer.display(), guard) == x11::none;
}

bool TypingTest::startTarget()
{
    target = std::make_unique<KeyTargetProcess>(display);
    return target->waitForReady();
}

// Returns when the click is over for the window manager, too.
bool TypingTest::click(const KbdKey& key)
{
    const std::optional<QPoint> pixel = pixelOf(picture(), key);
    if (!pixel)
        return false;
    MouseReleases releases;
    picture().viewport()->installEventFilter(&releases);
    pointer.click(onScreen(pointer.display(), picture(), *pixel));
    return waitUntil([&] { return releases.count > 0; });
}

bool TypingTest::switchModifiers(const StateRow& state, bool on)
{
    for (const QString& modifier : state.modifiers) {
        const KbdKey* key = modifierKey(picture(), modifier);
        if (!key || !click(*key))
            return false;
        const auto isSwitched = [&] {
            return bool(picture().modifiers() & key->symbols().keyModifiers()) == on;
        };
        if (!waitUntil(isSwitched))
            return false;
    }
    pointer.moveTo(awayFromAll);
    return true;
}

// What the target gets of the keys when they are clicked one by one: their presses.
QList<KeyTargetLine> TypingTest::typed(const QList<Shown>& shown)
{
    QSet<int> keycodes;
    for (const Shown& each : shown)
        keycodes << each.key->x11Keycode();
    const auto received = [&](KeyTargetLine::Kind kind) {
        QList<KeyTargetLine> lines = target->keys();
        lines.removeIf([&](const KeyTargetLine& line) {
            return line.kind != kind || !keycodes.contains(line.keycode);
        });
        return lines;
    };

    QList<KeyTargetLine> presses;
    for (const Shown& each : shown) {
        target->clear();
        click(*each.key);
        if (!waitUntil([&] { return !received(KeyTargetLine::Kind::Release).isEmpty(); }))
            break;
        presses << received(KeyTargetLine::Kind::Press);
    }
    pointer.moveTo(awayFromAll);
    return presses;
}

// By the key's XKB name, what it shows and types. A name without a key: nothing could be tried.
QMap<QString, QString> TypingTest::differences(const StateRow& state)
{
    if (!switchModifiers(state, true))
        return {{"modifiers", "cannot be switched on"}};
    const QList<Shown> shown = ordinaryKeys(picture());
    const QList<KeyTargetLine> presses = typed(shown);
    QMap<QString, QString> result;
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const KeyTargetLine press = presses.value(i);
        if (!isTyped(shown.at(i), press))
            result.insert(shown.at(i).key->name(),
                QString("shows %1 (%2), types %3 (%4)")
                    .arg(shown.at(i).keysym, shown.at(i).label, press.keysym, press.text));
    }
    if (presses.size() > shown.size())
        result.insert("keys", "are typed twice");
    if (!switchModifiers(state, false))
        result.insert("modifiers", "cannot be switched off");
    return result;
}

void TypingTest::verifyKeys(const QString& keyboard, const StateRow& state)
{
    const QStringList expected = exceptionsOf(keyboard, state);
    const QMap<QString, QString> found = differences(state);
    for (auto each = found.cbegin(); each != found.cend(); ++each) {
        if (!expected.contains(each.key()))
            qInfo().noquote() << state.name + QString(":") << each.key() << each.value();
    }
    QCOMPARE(found.keys(), expected);
}

// What the text line shows when the key has been clicked; it is empty before.
QString TypingTest::lineAfter(const KbdKey& key)
{
    auto* line = mainWindow()->findChild<TypingArea*>();
    line->clear();
    click(key);
    return waitUntil([&] { return !line->text().isEmpty(); }) ? line->text() : QString();
}

unsigned int TypingTest::serverLocks() const
{
    XkbStateRec state{};
    XkbGetState(pointer.display(), x11::coreKeyboard, &state);
    return state.locked_mods;
}

void TypingTest::whatIsDrawnIsTyped_data()
{
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("hasAltGr");
    for (const KeyboardRow& row : keyboards) {
        const QStringList options{
            "-model", row.model, "-layout", row.layout, "-variant", row.variant};
        QTest::newRow(row.name) << options << row.group << row.hasAltGr;
    }
}

void TypingTest::whatIsDrawnIsTyped()
{
    QFETCH(QStringList, settings);
    QFETCH(int, group);
    QFETCH(bool, hasAltGr);
    QVERIFY(startApplication("--tofocus", settings));
    QVERIFY(startTarget());
    picture().setGroupNum(static_cast<KeyGroup_t>(group));
    QVERIFY(ordinaryKeys(picture()).size() > fewestKeys);
    QCOMPARE(modifierKey(picture(), "LevelThree") != nullptr, hasAltGr);

    for (const StateRow& state : states) {
        if (hasModifiers(picture(), state))
            verifyKeys(QTest::currentDataTag(), state);
    }
}

void TypingTest::theKeypadTypesDigitsWhileNumLockIsOn()
{
    QVERIFY(startApplication("--tofocus", {"-model", "pc105", "-layout", "us"}));
    QVERIFY(startTarget());
    verifyKeys("keypad", numLock);
    verifyKeys("keypad", shiftAndNumLock);
}

void TypingTest::lettersAreDrawnAndTypedAsCapitalsWhileCapsLockIsOn_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QStringList>("modifiers");
    QTest::addColumn<bool>("capitals");
    QTest::addColumn<int>("letters"); // that the layout has without AltGr
    const QStringList capsLock{"CapsLock"};
    const QStringList both{"CapsLock", "Shift"};
    QTest::newRow("us") << "us" << capsLock << true << 26;
    QTest::newRow("de") << "de" << capsLock << true << 30;
    QTest::newRow("fr") << "fr" << capsLock << true << 31;
    QTest::newRow("ru") << "ru" << capsLock << true << 33;
    QTest::newRow("us, with Shift") << "us" << both << false << 26;
    QTest::newRow("ru, with Shift") << "ru" << both << false << 33;
}

// Only the painter changes the letter; the key goes on giving the label of its level.
void TypingTest::lettersAreDrawnAndTypedAsCapitalsWhileCapsLockIsOn()
{
    QFETCH(QString, layout);
    QFETCH(QStringList, modifiers);
    QFETCH(bool, capitals);
    QFETCH(int, letters);
    QVERIFY(startApplication("--tofocus", {"-model", "pc105", "-layout", layout}));
    QVERIFY(startTarget());
    const StateRow state{"", modifiers};
    QVERIFY(switchModifiers(state, true));

    QList<Shown> shown = ordinaryKeys(picture());
    shown.removeIf([](const Shown& each) {
        const QString& label = each.label;
        return label.size() != 1 || !label.at(0).isLetter() || label.toUpper().size() != 1;
    });
    QString drawn;
    for (const Shown& each : std::as_const(shown))
        drawn += capitals ? each.label.toUpper() : each.label.toLower();
    QString text;
    const QList<KeyTargetLine> presses = typed(shown);
    for (const KeyTargetLine& press : presses)
        text += press.text;
    QCOMPARE(text, drawn);
    QCOMPARE(text.size(), letters);
    QVERIFY(switchModifiers(state, false));
    QTRY_COMPARE(serverLocks(), 0U);
}

// Its key goes by no modifier's name.
void TypingTest::theFifthLevelIsTyped()
{
    QVERIFY(startApplication("--tofocus", {"-model", "pc105", "-layout", "de", "-variant", "neo"}));
    QVERIFY(startTarget());
    const KbdKey* fifthLevel = keyWithKeysym(picture(), XK_ISO_Level5_Shift);
    QVERIFY(fifthLevel);
    QVERIFY(click(*fifthLevel));
    QVERIFY(
        waitUntil([&] { return picture().modifiers() == fifthLevel->symbols().keyModifiers(); }));

    const QList<Shown> shown = ordinaryKeys(picture());
    const QList<KeyTargetLine> presses = typed(shown);
    QCOMPARE(presses.size(), shown.size());
    QStringList changed;
    for (qsizetype i = 0; i < shown.size(); ++i) {
        QCOMPARE(shown.at(i).keysym, presses.at(i).keysym);
        if (shown.at(i).keysym == "Home" || shown.at(i).keysym == "End")
            changed << shown.at(i).key->name();
    }
    QVERIFY(changed.contains("AC01"));
    QVERIFY(click(*fifthLevel));
    QVERIFY(waitUntil([&] { return picture().modifiers() == 0; }));
}

void TypingTest::theTargetHasTheFocusAgainAfterThePrintDialog()
{
    QVERIFY(startApplication("--tofocus", {"-model", "pc105", "-layout", "us"}));
    QVERIFY(startTarget());
    // The window manager tells it a little later than the target, and it is what the program asks.
    const auto active = [&] {
        return x11::numberProperty(
            pointer.display(), DefaultRootWindow(pointer.display()), "_NET_ACTIVE_WINDOW");
    };
    QVERIFY(waitUntil([&] { return active() == target->windowId(); }));
    bool hadFocus = false;
    QTimer reader; // of the dialog, which returns when it is closed
    connect(&reader, &QTimer::timeout, &reader, [&] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        hadFocus = dialog && dialog->isActiveWindow();
        if (hadFocus)
            dialog->reject();
    });
    reader.start(dialogPollMs);
    const QList<QPushButton*> buttons = mainWindow()->findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->text() == "Print")
            button->click();
    }
    reader.stop();
    QVERIFY(hadFocus);

    QVERIFY(waitUntil([&] { return x11::focusWindow(pointer.display()) == target->windowId(); }));
}

void TypingTest::capsLockIsSwitchedWhileShiftIsHeld()
{
    QVERIFY(startApplication("--tofocus", {"-model", "pc105", "-layout", "us"}));
    const StateRow shift{"Shift", {"Shift"}};
    const StateRow capsLock{"Caps Lock", {"CapsLock"}};
    QVERIFY(switchModifiers(shift, true));
    QVERIFY(switchModifiers(capsLock, true));
    QTRY_COMPARE(serverLocks(), unsigned(x11::lockMask));
    QVERIFY(switchModifiers(capsLock, false));
    QTRY_COMPARE(serverLocks(), 0U);
}

void TypingTest::theTextLineShowsWhatIsDrawn_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("us") << "us";
    QTest::newRow("de") << "de";
}

void TypingTest::theTextLineShowsWhatIsDrawn()
{
    QFETCH(QString, layout);
    QVERIFY(startApplication("--standalone", {"-model", "pc105", "-layout", layout}));
    QVERIFY(QTest::qWaitForWindowActive(mainWindow()));

    for (const StateRow& state : states) {
        if (!hasModifiers(picture(), state))
            continue;
        QVERIFY(switchModifiers(state, true));
        const QList<KbdKey*> keys = picture().keyItems();
        int characters = 0;
        for (const KbdKey* key : keys) {
            const QString character = characterOf(pointer.display(), key->activeKeysym());
            if (key->symbols().keyType() != 0 || character.isEmpty())
                continue;
            ++characters;
            QCOMPARE(key->name() + ' ' + lineAfter(*key), key->name() + ' ' + character);
        }
        QVERIFY2(characters > 40, state.name);
        QVERIFY(switchModifiers(state, false));
    }
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    TypingTest test(server.display());
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_typing.moc"

#include "app/description/ComponentNames.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PictureLocator.h"
#include "harness/ProgramRun.h"
#include "harness/ProgramWindows.h"
#include "harness/WaitUntil.h"
#include "harness/WindowManager.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QComboBox>
#include <QImage>
#include <QMargins>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

constexpr unsigned int leftButton = 1;
constexpr int waitLimitMs = 15000;

constexpr QRect screen(0, 0, 1280, 1024);
constexpr QRect upperCorner(700, 60, 300, 200);
constexpr QRect lowerHalf(0, 540, 1270, 460); // where the keyboard comes up

constexpr int centreTolerance = 2; // pixels
constexpr int bottomDistance = 16; // pixels

constexpr QRgb baseColour = qRgb(169, 169, 169); // "darkgrey"

// Focus events by how they come about (X.h): a grab of the keyboard sends some too, though the
// focus stays where it is.
constexpr int notifyGrab = 1;
constexpr int notifyUngrab = 2;

constexpr QPoint dragWay(-90, -180);
constexpr int dragSteps = 18;
// Managers begin to move a window some pixels after the pointer.
constexpr int dragTolerance = 20;

// The keys of the letter block, whose XKB names begin so.
bool isInLetterBlock(const KbdKey& key)
{
    const QString row = key.name().left(2);
    return key.symbols().keyType() == 0 && QStringList{"AB", "AC", "AD", "AE"}.contains(row);
}

std::unique_ptr<MainWindow> makeLikeness()
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    if (!queryComponentNames(&names, toolkitDisplay(), {}, {}, {}, {}))
        return nullptr;
    auto window = std::make_unique<MainWindow>(
        QString(), QString(), QString(), QString(), &names, true, nullptr, Qt::WindowFlags());
    window->showLayoutSelector(false);
    window->hideTypingArea();
    return window;
}

QList<unsigned long> numbersOf(Display* display, Window window, const char* property)
{
    const std::vector<unsigned long> numbers = x11::property(display, window, property).numbers;
    return {numbers.begin(), numbers.end()};
}

QString wordFor(const KeyTargetLine& line)
{
    const bool isPress = line.kind == KeyTargetLine::Kind::Press;
    return QString(isPress ? "press %1" : "release %1").arg(line.keycode);
}

} // namespace

// Beside another program, the keyboard types into that program's window and never takes the focus
// from it, whatever manages the windows.
class FocusTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void theFocusStaysWhenTheKeyboardIsShown_data() { addDesktops(); }
    void theFocusStaysWhenTheKeyboardIsShown();
    void everyClickTypesItsKeyOnce_data() { addDesktops(); }
    void everyClickTypesItsKeyOnce();
    void theFocusStaysWhenTheKeyboardIsDragged_data() { addWindowManagers(); }
    void theFocusStaysWhenTheKeyboardIsDragged();
    void theFocusStaysWhenAnEntryIsChosen_data() { addDesktops(); }
    void theFocusStaysWhenAnEntryIsChosen();
    void theKeyboardComesUpOnTopAtTheBottomCentre_data() { addDesktops(); }
    void theKeyboardComesUpOnTopAtTheBottomCentre();
    void theKeyboardStaysAboveWindowsThatAreRaised_data() { addWindowManagers(); }
    void theKeyboardStaysAboveWindowsThatAreRaised();

private:
    static void addWindowManagers();
    static void addDesktops();

    Display* display() const { return connection.get(); }
    bool startDesktop();
    bool startTarget(const QRect& area);
    bool startKeyboard();

    Window focusWindow() const;
    bool targetHasFocus() const { return focusWindow() == target->windowId(); }
    QList<int> focusLosses();
    QList<int> focusLossesBesideGrabs();
    QRect areaOf(Window window) const;
    QMargins frame() const;
    QImage upperPicture() const;

    void moveTo(const QPoint& point) const;
    void button(bool down) const;
    void click(const QPoint& point) const;
    bool dragKeyboard(const QPoint& way) const;
    QPoint placeOf(const KbdKey& key) const;
    QPoint placeOf(const QComboBox& combo) const;
    QComboBox* keycapCombo() const;
    bool chooseSecondEntry(const QComboBox& combo);
    QStringList typeKeys(int count);
    QStringList wordsOfKeys(int count) const;

    std::unique_ptr<MainWindow> likeness; // of the keyboard: tells where things are in it
    QList<KbdKey*> letterBlock;

    std::unique_ptr<PrivateServer> server;
    std::unique_ptr<WindowManager> windowManager;
    XConnection connection;
    std::unique_ptr<KeyTargetProcess> target;
    std::unique_ptr<ProgramRun> keyboard;
    Window keyboardWindow = x11::none;
    std::unique_ptr<PictureLocator> locator;
};

void FocusTest::initTestCase()
{
    likeness = makeLikeness();
    QVERIFY(likeness);
    const QList<KbdKey*> keys = likeness->picture()->keyItems();
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(letterBlock),
        [](const KbdKey* key) { return isInLetterBlock(*key); });
    QCOMPARE(letterBlock.size(), 45);
}

void FocusTest::cleanup()
{
    const QByteArray complaints = keyboard ? keyboard->errors() : QByteArray();
    const QList<int> leftDown = server ? pressedKeys(server->display()) : QList<int>();
    locator.reset();
    keyboard.reset();
    target.reset();
    connection.reset();
    windowManager.reset();
    server.reset();
    QCOMPARE(complaints, QByteArray());
    QCOMPARE(leftDown, QList<int>());
}

void FocusTest::addWindowManagers()
{
    QTest::addColumn<QByteArray>("manager");
    for (const char* manager : {"openbox", "xfwm4", "metacity"})
        QTest::newRow(manager) << QByteArray(manager);
}

void FocusTest::addDesktops()
{
    addWindowManagers();
    QTest::newRow("no window manager") << QByteArray();
}

bool FocusTest::startDesktop()
{
    const auto* manager =
        static_cast<const QByteArray*>(QTest::qData("manager", qMetaTypeId<QByteArray>()));
    server = std::make_unique<PrivateServer>();
    if (!manager->isEmpty())
        windowManager = std::make_unique<WindowManager>(*manager, server->display());
    connection = openDisplay(server->display());
    return connection != nullptr;
}

bool FocusTest::startTarget(const QRect& area)
{
    target = std::make_unique<KeyTargetProcess>(server->display(), area);
    return target->waitForReady();
}

// Returns when the whole picture is in sight.
bool FocusTest::startKeyboard()
{
    keyboard = std::make_unique<ProgramRun>(KBD_PROGRAM, server->display());
    keyboard->start({"--tofocus"});
    keyboardWindow = keyboard->waitForWindow(display());
    locator = std::make_unique<PictureLocator>(display(), keyboardWindow,
        PictureLocator::groundOf(likeness->picture()->sceneRect()), baseColour);
    return keyboardWindow != x11::none && locator->waitForPicture();
}

Window FocusTest::focusWindow() const
{
    return x11::focusWindow(display());
}

// The modes of the events by which the target has lost the focus.
QList<int> FocusTest::focusLosses()
{
    QList<int> modes;
    const QList<KeyTargetLine> lines = target->lines();
    for (const KeyTargetLine& line : lines) {
        if (line.kind == KeyTargetLine::Kind::FocusOut)
            modes << line.mode;
    }
    return modes;
}

QList<int> FocusTest::focusLossesBesideGrabs()
{
    QList<int> modes = focusLosses();
    modes.removeIf([](int mode) { return mode == notifyGrab || mode == notifyUngrab; });
    return modes;
}

QRect FocusTest::areaOf(Window window) const
{
    XWindowAttributes attributes{};
    XGetWindowAttributes(display(), window, &attributes);
    int x = 0;
    int y = 0;
    Window child = x11::none;
    XTranslateCoordinates(display(), window, attributes.root, 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

// What the manager puts around the keyboard's window (EWMH: left, right, top and bottom).
QMargins FocusTest::frame() const
{
    const QList<unsigned long> extents = numbersOf(display(), keyboardWindow, "_NET_FRAME_EXTENTS");
    const auto side = [&](int index) { return static_cast<int>(extents.value(index)); };
    return windowManager ? QMargins(side(0), side(2), side(1), side(3)) : QMargins();
}

// The half of the picture that no list of a combo box covers.
QImage FocusTest::upperPicture() const
{
    const std::optional<WindowImage> seen = grabWindow(display(), keyboardWindow);
    if (!seen)
        return {};
    QRect area = locator->area().toRect().translated(-seen->topLeft);
    area.setHeight(area.height() / 2);
    return seen->image.copy(area);
}

void FocusTest::moveTo(const QPoint& point) const
{
    XTestFakeMotionEvent(display(), -1, point.x(), point.y(), CurrentTime);
    XSync(display(), x11::xFalse);
}

void FocusTest::button(bool down) const
{
    XTestFakeButtonEvent(display(), leftButton, down, CurrentTime);
    XSync(display(), x11::xFalse);
}

void FocusTest::click(const QPoint& point) const
{
    moveTo(point);
    button(true);
    button(false);
}

// By its title bar. A manager may take its time to see a drag in what the pointer does: as a hand
// does, this one moves on until the window follows. False when it never does.
bool FocusTest::dragKeyboard(const QPoint& way) const
{
    const QRect before = areaOf(keyboardWindow);
    const QPoint title(before.center().x(), before.top() - frame().top() / 2);
    moveTo(title);
    button(true);
    for (int step = 1; step <= dragSteps; ++step)
        moveTo(title + way * step / dragSteps);
    int looks = 0;
    const auto hasFollowed = [&] {
        moveTo(title + way + QPoint(++looks % 2, 0));
        const QPoint moved = areaOf(keyboardWindow).topLeft() - before.topLeft();
        return (moved - way).manhattanLength() <= dragTolerance;
    };
    const bool follows = QTest::qWaitFor(hasFollowed, waitLimitMs);
    button(false);
    return follows;
}

QPoint FocusTest::placeOf(const KbdKey& key) const
{
    return locator->fromScene(key.mapRectToScene(key.boundingRect()).center());
}

QPoint FocusTest::placeOf(const QComboBox& combo) const
{
    const QRect area = areaOf(keyboardWindow);
    likeness->resize(area.size());
    likeness->show();
    if (!QTest::qWaitForWindowExposed(likeness.get()))
        return {};
    return area.topLeft() + combo.mapTo(likeness.get(), combo.rect().center());
}

QComboBox* FocusTest::keycapCombo() const
{
    const auto combos = likeness->findChildren<QComboBox*>();
    for (QComboBox* combo : combos) {
        if (combo->count() == 2 && combo->itemText(1) == "Multiple Characters")
            return combo;
    }
    return nullptr;
}

// With the pointer, out of a list of two. True once the list is gone again.
bool FocusTest::chooseSecondEntry(const QComboBox& combo)
{
    Window list = x11::none;
    const auto isOpen = [&] { return (list = popupOf(display(), keyboard->processId())) != 0; };
    const auto isGone = [&] { return popupOf(display(), keyboard->processId()) == x11::none; };
    click(placeOf(combo));
    if (!QTest::qWaitFor(isOpen, waitLimitMs))
        return false;
    const QRect area = areaOf(list);
    click({area.center().x(), area.top() + 3 * area.height() / 4});
    return QTest::qWaitFor(isGone, waitLimitMs);
}

// Clicks the keys of the letter block in turn, each when the one before it has arrived: a manager
// that holds the pointer back while it looks at a click would lose what no hand could do. Gives all
// the presses and releases that the target has got.
QStringList FocusTest::typeKeys(int count)
{
    qsizetype expected = target->keys().size();
    for (int i = 0; i < count; ++i) {
        click(placeOf(*letterBlock.at(i % letterBlock.size())));
        expected += 2;
        if (!waitUntil([&] { return target->keys().size() >= expected; }))
            break;
    }
    QStringList words;
    const QList<KeyTargetLine> keys = target->keys();
    for (const KeyTargetLine& key : keys)
        words << wordFor(key);
    return words;
}

QStringList FocusTest::wordsOfKeys(int count) const
{
    QStringList words;
    for (int i = 0; i < count; ++i) {
        const int keycode = letterBlock.at(i % letterBlock.size())->x11Keycode();
        words << QString("press %1").arg(keycode) << QString("release %1").arg(keycode);
    }
    return words;
}

void FocusTest::theFocusStaysWhenTheKeyboardIsShown()
{
    QVERIFY(startDesktop());
    QVERIFY(startTarget(upperCorner));
    target->clear();
    QVERIFY(startKeyboard());
    // By the time that a key comes through, so would have the loss of the focus.
    QCOMPARE(typeKeys(1), wordsOfKeys(1));
    QCOMPARE(focusLosses(), QList<int>());
    QVERIFY(targetHasFocus());
}

void FocusTest::everyClickTypesItsKeyOnce()
{
    QVERIFY(startDesktop());
    QVERIFY(startTarget(upperCorner));
    QVERIFY(startKeyboard());
    target->clear();
    QCOMPARE(typeKeys(200), wordsOfKeys(200));
    QCOMPARE(focusLosses(), QList<int>());
    QVERIFY(targetHasFocus());
}

void FocusTest::theFocusStaysWhenTheKeyboardIsDragged()
{
    QVERIFY(startDesktop());
    QVERIFY(startTarget(upperCorner));
    QVERIFY(startKeyboard());
    target->clear();

    QVERIFY(dragKeyboard(dragWay));
    QVERIFY(locator->waitForPicture());

    QCOMPARE(typeKeys(20), wordsOfKeys(20));
    QCOMPARE(focusLossesBesideGrabs(), QList<int>());
    QVERIFY(targetHasFocus());
}

void FocusTest::theFocusStaysWhenAnEntryIsChosen()
{
    QVERIFY(startDesktop());
    QVERIFY(startTarget(upperCorner));
    QVERIFY(startKeyboard());
    target->clear();

    const QComboBox* combo = keycapCombo();
    QVERIFY(combo);
    const QImage before = upperPicture();
    QVERIFY(!before.isNull());
    QVERIFY(chooseSecondEntry(*combo));
    QTRY_VERIFY2(upperPicture() != before, "the caps show the same as before");

    QCOMPARE(typeKeys(20), wordsOfKeys(20));
    QCOMPARE(focusLossesBesideGrabs(), QList<int>());
    QVERIFY(targetHasFocus());
}

void FocusTest::theKeyboardComesUpOnTopAtTheBottomCentre()
{
    QVERIFY(startDesktop());
    QVERIFY(startTarget(lowerHalf));
    QVERIFY(startKeyboard()); // the whole picture is in sight
    const QRect area = areaOf(keyboardWindow).marginsAdded(frame());
    QVERIFY(screen.contains(area));
    QVERIFY(std::abs(area.center().x() - screen.center().x()) <= centreTolerance);
    QVERIFY(screen.bottom() - area.bottom() <= bottomDistance);
    QCOMPARE(typeKeys(1), wordsOfKeys(1));
    QVERIFY(targetHasFocus());
}

// Without a manager nobody keeps windows in an order: the last one raised is the highest.
void FocusTest::theKeyboardStaysAboveWindowsThatAreRaised()
{
    QVERIFY(startDesktop());
    QVERIFY(startTarget(upperCorner));
    QVERIFY(startKeyboard());
    const Window first = target->windowId();
    KeyTargetProcess cover(server->display(), lowerHalf);
    QVERIFY(cover.waitForReady());

    const auto order = [&] {
        return numbersOf(display(), XDefaultRootWindow(display()), "_NET_CLIENT_LIST_STACKING");
    };
    QTRY_COMPARE(order(), QList<unsigned long>({first, cover.windowId(), keyboardWindow}));
    QVERIFY(locator->waitForPicture());
}

KBD_X11_TEST_MAIN(FocusTest)
#include "tst_focus.moc"

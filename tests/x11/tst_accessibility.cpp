#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PictureKeys.h"
#include "harness/PrivateServer.h"
#include "harness/TopLevelWindow.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "keys/KbdLabelTable.h"
#include "model/KbdGeometry.h"
#include "model/SpokenName.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"
#include "ui/specs/KbdSpec.h"
#include "x11/X11.h"

#include <QAccessible>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace {

struct NameRow {
    const char* layout;
    const char* key; // its XKB name
    const char* name;
};

constexpr NameRow names[] = {
    {"us", "AC01", "a"},
    {"us", "AE02", "2"},
    {"us", "AC10", ";"},
    {"us", "LFSH", "Shift"},
    {"us", "RTRN", "Return"},
    {"us", "TAB", "Tab"},
    {"us", "BKSP", "Backspace"},
    {"us", "COMP", "Menu"},
    {"us", "LWIN", "Super"},
    {"us", "LCTL", "Control"},
    {"us", "ESC", "Escape"},
    {"us", "SPCE", "Space"},
    {"us", "LEFT", "Left"},
    {"us", "PGUP", "Page Up"},
    {"us", "KP8", "Up"},
    {"us", "FK12", "F12"},
    {"de", "AC10", "ö"},
    {"de", "TLDE", "dead circumflex"},
    {"de", "AE12", "dead acute"},
    {"de", "RALT", "Alt Gr"},
    {"de", "PGUP", "Page Up"},
    {"de", "CAPS", "Caps Lock"},
    {"de", "DELE", "Delete"},
    {"ru", "AC01", "ф"},
    {"ru", "AC10", "ж"},
    {"ru", "RTRN", "Return"},
};

// What assistive technology was told: the key's XKB name and what changed.
using Told = QPair<QString, QString>;

QString changeOf(const QAccessibleEvent& event)
{
    if (event.type() == QAccessible::NameChanged)
        return "name";
    if (event.type() == QAccessible::DescriptionChanged)
        return "description";
    if (event.type() != QAccessible::StateChanged)
        return {};
    const auto& state = static_cast<const QAccessibleStateChangeEvent&>(event);
    return state.changedStates().pressed ? "pressed" : "checked";
}

// While it lives, the program finds itself watched by assistive technology, which looks at the
// object of every event.
class Listener {
public:
    Listener()
    {
        told().clear();
        isListening() = true;
    }
    ~Listener() { isListening() = false; }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    static bool& isListening()
    {
        static bool listening = false;
        return listening;
    }

    static QList<Told>& told()
    {
        static QList<Told> list;
        return list;
    }

    static void take(const QAccessibleEvent& event)
    {
        const QAccessibleInterface* interface = event.accessibleInterface();
        const auto* key = interface ? qobject_cast<KbdKey*>(interface->object()) : nullptr;
        if (key)
            told() << Told(key->name(), changeOf(event));
    }

    static QStringList keysWith(const QString& change)
    {
        QStringList keys;
        for (const auto& [key, what] : std::as_const(told())) {
            if (what == change)
                keys << key;
        }
        keys.sort();
        return keys;
    }
};

bool isArrow(QChar character)
{
    return character.unicode() >= 0x2190 && character.unicode() <= 0x21ff;
}

QString nameOf(const QAccessibleInterface& interface)
{
    return interface.text(QAccessible::Name);
}

} // namespace

// Qt counts as watched only while the desktop's accessibility bus says so. In this program
// these two stand before Qt's own, so that the listener takes the place of the bus.
bool QAccessible::isActive()
{
    return Listener::isListening();
}

void QAccessible::updateAccessibility(QAccessibleEvent* event)
{
    Listener::take(*event);
}

// What a screen reader finds where others see the picture, through Qt's own questions.
class AccessibilityTest : public QObject {
    Q_OBJECT

public:
    explicit AccessibilityTest(QByteArray displayName)
        : display(std::move(displayName))
    {
    }

private slots:
    void cleanup();

    void everyKeyIsAChildOfThePicture();
    void keysAreReadInRows();
    void keysAreCalledByWhatTheyType_data();
    void keysAreCalledByWhatTheyType();
    void modifiersAndLocksAreCheckBoxes();
    void aKeyIsFoundWhereItIsSeen();
    void theDescriptionTellsWhatShiftMakesOfAKey();
    void pressingAKeyTypesItIntoTheFocusedWindow();
    void pressingShiftTogglesIt();
    void pressingAKeyTwiceTypesItTwiceInTheSampleLine();
    void capsLockIsCheckedAndCallsLettersCapitals();
    void nothingIsToldWhereNobodyListens();
    void shiftTellsWhatItChanges();
    void aPhysicalKeyTellsThatItGoesDownAndUp();
    void aGroupTellsTheNamesThatItChanges();
    void nothingOutlivesAReplacedPicture();
    void noLabelIsSaidAsAnArrow_data();
    void noLabelIsSaidAsAnArrow();

private:
    bool start(const QByteArray& option, const QStringList& keyboard);

    MainWindow* mainWindow() const { return topLevelWindow<MainWindow>(); }
    KbdGeometry& picture() const { return *mainWindow()->picture(); }
    QAccessibleInterface& accessiblePicture() const;
    KbdKey* key(const QString& name) const;
    QAccessibleInterface& accessibleKey(const QString& name) const;
    QString spoken(const QString& name) const { return nameOf(accessibleKey(name)); }
    void press(const QString& name) const;

    QByteArray display;
    std::array<QByteArray, 2> arguments{"tst_accessibility"};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<KbdApp> application;
};

void AccessibilityTest::cleanup()
{
    application.reset();
    QCOMPARE(pressedKeys(display), QList<int>());
    const XConnection connection = openDisplay(display);
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, 0);
    XkbLockGroup(connection.get(), x11::coreKeyboard, 0);
    XSync(connection.get(), x11::xFalse);
}

bool AccessibilityTest::start(const QByteArray& option, const QStringList& keyboard)
{
    arguments[1] = option;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    int count = 1;
    {
        const QCoreApplication forTheTool(count, argumentVector.data());
        if (!setKeyboard(display, QStringList{"-model", "pc105", "-layout"} + keyboard))
            return false;
    }
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    failOnXErrors();
    return QTest::qWaitForWindowExposed(mainWindow());
}

QAccessibleInterface& AccessibilityTest::accessiblePicture() const
{
    return *QAccessible::queryAccessibleInterface(mainWindow()->picture());
}

KbdKey* AccessibilityTest::key(const QString& name) const
{
    return keyNamed(picture(), name);
}

QAccessibleInterface& AccessibilityTest::accessibleKey(const QString& name) const
{
    return *QAccessible::queryAccessibleInterface(key(name));
}

void AccessibilityTest::press(const QString& name) const
{
    accessibleKey(name).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

void AccessibilityTest::everyKeyIsAChildOfThePicture()
{
    QVERIFY(start("--tofocus", {"us"}));
    QAccessibleInterface& group = accessiblePicture();
    QCOMPARE(group.role(), QAccessible::Grouping);
    QCOMPARE(nameOf(group), "Keyboard");

    const QList<KbdKey*> keys = picture().keyItems();
    const auto drawn = std::count_if(keys.begin(), keys.end(),
        [](const KbdKey* each) { return each->symbols().groupCount() > 0; });
    QVERIFY(drawn > 100);
    QCOMPARE(group.childCount(), drawn);
    QVERIFY(!group.child(-1));
    QVERIFY(!group.child(group.childCount()));
    for (int i = 0; i < group.childCount(); ++i) {
        QAccessibleInterface* child = group.child(i);
        QVERIFY(child && child->isValid());
        QCOMPARE(child->parent(), &group);
        QCOMPARE(group.indexOfChild(child), i);
        QCOMPARE(child->childCount(), 0);
        QCOMPARE(child->window(), mainWindow()->windowHandle());
        QVERIFY2(!nameOf(*child).isEmpty(), qPrintable(QString::number(i)));
        QVERIFY(!child->state().focusable);
        QVERIFY(!child->state().invisible);
        QVERIFY(!child->state().pressed);
    }
}

void AccessibilityTest::keysAreReadInRows()
{
    QVERIFY(start("--tofocus", {"us"}));
    QAccessibleInterface& group = accessiblePicture();
    QCOMPARE(nameOf(*group.child(0)), "Escape");
    QCOMPARE(nameOf(*group.child(1)), "F1");
    const int q = group.indexOfChild(&accessibleKey("AD01"));
    QCOMPARE(nameOf(*group.child(q - 1)), "Tab");
    QCOMPARE(nameOf(*group.child(q + 1)), "w");
    QVERIFY(group.indexOfChild(&accessibleKey("AC01")) > q);
}

void AccessibilityTest::keysAreCalledByWhatTheyType_data()
{
    QTest::addColumn<QString>("layout");
    for (const char* layout : {"us", "de", "ru"})
        QTest::newRow(layout) << layout;
}

void AccessibilityTest::keysAreCalledByWhatTheyType()
{
    QFETCH(QString, layout);
    QVERIFY(start("--tofocus", {layout}));
    for (const NameRow& row : names) {
        if (layout != row.layout)
            continue;
        QVERIFY2(key(row.key), row.key);
        QCOMPARE(QStringList({row.key, spoken(row.key)}), QStringList({row.key, row.name}));
    }
}

void AccessibilityTest::modifiersAndLocksAreCheckBoxes()
{
    QVERIFY(start("--tofocus", {"de"}));
    for (const char* name : {"LFSH", "RTSH", "LCTL", "LALT", "RALT", "CAPS", "NMLK"}) {
        QCOMPARE(accessibleKey(name).role(), QAccessible::CheckBox);
        QVERIFY2(accessibleKey(name).state().checkable, name);
        QVERIFY2(!accessibleKey(name).state().checked, name);
    }
    for (const char* name : {"AC01", "RTRN", "ESC", "SPCE", "LEFT"}) {
        QCOMPARE(accessibleKey(name).role(), QAccessible::Button);
        QVERIFY2(!accessibleKey(name).state().checkable, name);
    }
    QCOMPARE(accessibleKey("AC01").actionInterface()->actionNames(),
        QStringList{QAccessibleActionInterface::pressAction()});
    QCOMPARE(accessibleKey("LFSH").actionInterface()->actionNames(),
        QStringList({QAccessibleActionInterface::toggleAction(),
            QAccessibleActionInterface::pressAction()}));
}

void AccessibilityTest::aKeyIsFoundWhereItIsSeen()
{
    QVERIFY(start("--tofocus", {"de"}));
    QAccessibleInterface& group = accessiblePicture();
    for (int i = 0; i < group.childCount(); ++i) {
        QAccessibleInterface* child = group.child(i);
        QVERIFY2(group.rect().contains(child->rect()), qPrintable(nameOf(*child)));
        const auto* item = qobject_cast<KbdKey*>(child->object());
        const QPoint inView = picture().mapFromScene(item->sceneBoundingRect().center());
        const QPoint centre = picture().viewport()->mapToGlobal(inView);
        QVERIFY(child->rect().contains(centre));
        QCOMPARE(group.childAt(centre.x(), centre.y()), child);
    }

    // The lower left of the tall Return belongs to its neighbour.
    const QRect tall = accessibleKey("RTRN").rect();
    QVERIFY(group.childAt(tall.left() + 3, tall.bottom() - 3) != &accessibleKey("RTRN"));
    QCOMPARE(group.childAt(tall.right() - 3, tall.bottom() - 3), &accessibleKey("RTRN"));
    const QRect ground = group.rect();
    QVERIFY(!group.childAt(ground.left() + 1, ground.top() + 1));
    QVERIFY(!group.childAt(ground.left() - 10, ground.center().y()));
}

void AccessibilityTest::theDescriptionTellsWhatShiftMakesOfAKey()
{
    QVERIFY(start("--tofocus", {"us"}));
    const auto description = [this](const QString& name) {
        return accessibleKey(name).text(QAccessible::Description);
    };
    QCOMPARE(description("AC01"), "with Shift: A");
    QCOMPARE(description("AE02"), "with Shift: @");
    QCOMPARE(description("TAB"), "with Shift: Back Tab");
    QCOMPARE(description("LFSH"), "key LFSH");
    press("LFSH");
    QCOMPARE(description("AC01"), "key AC01");
    press("LFSH");
}

void AccessibilityTest::pressingAKeyTypesItIntoTheFocusedWindow()
{
    QVERIFY(start("--tofocus", {"us"}));
    KeyTargetProcess target(display);
    QVERIFY(target.waitForReady());
    press("AC01");
    QVERIFY(target.waitForKeys(2));
    QCOMPARE(target.keys().at(0).kind, KeyTargetLine::Kind::Press);
    QCOMPARE(target.keys().at(0).text, "a");
    QCOMPARE(target.keys().at(1).kind, KeyTargetLine::Kind::Release);
}

void AccessibilityTest::pressingShiftTogglesIt()
{
    QVERIFY(start("--tofocus", {"us"}));
    KeyTargetProcess target(display);
    QVERIFY(target.waitForReady());
    press("LFSH");
    QVERIFY(accessibleKey("LFSH").state().checked);
    QVERIFY(accessibleKey("RTSH").state().checked);
    QVERIFY(!accessibleKey("LCTL").state().checked);
    QCOMPARE(spoken("AC01"), "A");
    QCOMPARE(spoken("AE02"), "@");
    press("AC01");
    const auto hasTypedCapital = [&] {
        const QList<KeyTargetLine> keys = target.keys();
        return std::any_of(
            keys.begin(), keys.end(), [](const KeyTargetLine& line) { return line.text == "A"; });
    };
    QTRY_VERIFY(hasTypedCapital());

    accessibleKey("LFSH").actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(!accessibleKey("LFSH").state().checked);
    QCOMPARE(spoken("AC01"), "a");
}

void AccessibilityTest::pressingAKeyTwiceTypesItTwiceInTheSampleLine()
{
    QVERIFY(start("--standalone", {"us"}));
    mainWindow()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mainWindow()));
    press("AC01");
    press("AC01");
    press("AC02");
    QTRY_COMPARE(mainWindow()->findChild<TypingArea*>()->text(), "aas");
}

void AccessibilityTest::capsLockIsCheckedAndCallsLettersCapitals()
{
    QVERIFY(start("--tofocus", {"us"}));
    press("CAPS");
    QVERIFY(accessibleKey("CAPS").state().checked);
    QCOMPARE(spoken("AC01"), "A");
    QCOMPARE(spoken("AE02"), "2");
    press("LFSH");
    QCOMPARE(spoken("AC01"), "a");
    press("LFSH");
    press("CAPS");
    QVERIFY(!accessibleKey("CAPS").state().checked);
    QCOMPARE(spoken("AC01"), "a");
}

void AccessibilityTest::nothingIsToldWhereNobodyListens()
{
    QVERIFY(start("--tofocus", {"us"}));
    Listener::told().clear();
    press("LFSH");
    press("LFSH");
    QCOMPARE(Listener::told(), QList<Told>());
}

void AccessibilityTest::shiftTellsWhatItChanges()
{
    QVERIFY(start("--tofocus", {"us"}));
    const Listener listener;
    press("LFSH");
    QCOMPARE(Listener::keysWith("checked"), QStringList({"LFSH", "RTSH"}));
    QCOMPARE(Listener::keysWith("pressed"), QStringList());
    const QStringList renamed = Listener::keysWith("name");
    QVERIFY(renamed.contains("AC01"));
    QVERIFY(renamed.contains("AE02"));
    QVERIFY(!renamed.contains("SPCE"));
    QVERIFY(!renamed.contains("LFSH"));
    QCOMPARE(renamed.count("AC01"), 1);
    QCOMPARE(Listener::keysWith("description"), renamed);

    Listener::told().clear();
    press("LFSH");
    QCOMPARE(Listener::keysWith("checked"), QStringList({"LFSH", "RTSH"}));
    QCOMPARE(Listener::keysWith("name"), renamed);
}

void AccessibilityTest::aPhysicalKeyTellsThatItGoesDownAndUp()
{
    QVERIFY(start("--tofocus", {"us"}));
    const Listener listener;
    XEvent event{};
    event.xkey.keycode = key("AC01")->x11Keycode();
    picture().x11KeyPressEventIn(&event.xkey);
    QCOMPARE(Listener::told(), QList<Told>({{"AC01", "pressed"}}));
    QVERIFY(accessibleKey("AC01").state().pressed);

    // One that repeats itself stays down.
    picture().x11KeyPressEventIn(&event.xkey);
    QCOMPARE(Listener::told().size(), 1);
    picture().x11KeyReleaseEventIn(&event.xkey);
    QCOMPARE(Listener::keysWith("pressed"), QStringList({"AC01", "AC01"}));
    QVERIFY(!accessibleKey("AC01").state().pressed);
}

void AccessibilityTest::aGroupTellsTheNamesThatItChanges()
{
    QVERIFY(start("--tofocus", {"us,ru"}));
    const Listener listener;
    QCOMPARE(spoken("AC01"), "a");
    picture().setGroupNum(1);
    QCOMPARE(spoken("AC01"), QStringLiteral("ф"));
    QVERIFY(Listener::keysWith("name").contains("AC01"));
    QVERIFY(!Listener::keysWith("name").contains("LFSH"));
    // The digit stays, what Shift makes of it does not.
    QVERIFY(!Listener::keysWith("name").contains("AE02"));
    QVERIFY(Listener::keysWith("description").contains("AE02"));
    QVERIFY(!Listener::keysWith("description").contains("AE01"));
}

void AccessibilityTest::nothingOutlivesAReplacedPicture()
{
    QVERIFY(start("--standalone", {"us"}));
    const Listener listener;
    QList<QAccessible::Id> ids{QAccessible::uniqueId(&accessiblePicture())};
    for (int i = 0; i < accessiblePicture().childCount(); ++i)
        ids << QAccessible::uniqueId(accessiblePicture().child(i));
    QVERIFY(ids.size() > 100);
    for (const QAccessible::Id id : ids)
        QVERIFY(QAccessible::accessibleInterface(id));

    kbdSpec_t russian;
    russian.models = QStringList{"pc105"};
    russian.layouts = QStringList{"ru"};
    russian.variants = QStringList{""};
    mainWindow()->newKbdSelected(&russian);
    for (const QAccessible::Id id : ids)
        QVERIFY(!QAccessible::accessibleInterface(id));
    QCOMPARE(accessiblePicture().role(), QAccessible::Grouping);
    QCOMPARE(accessiblePicture().childCount(), ids.size() - 1);
    QCOMPARE(spoken("AC01"), QStringLiteral("ф"));
    QVERIFY(accessiblePicture().parent()->indexOfChild(&accessiblePicture()) >= 0);
}

void AccessibilityTest::noLabelIsSaidAsAnArrow_data()
{
    QTest::addColumn<QString>("layout");
    for (const char* layout : {"us", "ca", "br", "es", "it", "de", "fi", "fr"})
        QTest::newRow(layout) << layout;
}

void AccessibilityTest::noLabelIsSaidAsAnArrow()
{
    QFETCH(QString, layout);
    const KbdLabelTable table;
    const auto isSaid = [&](KeySym keysym) {
        const QString name = spokenName(keysym, table.label(keysym, layout, QString()));
        return !name.trimmed().isEmpty() && std::none_of(name.begin(), name.end(), isArrow);
    };
    for (KeySym keysym = 0; keysym <= 0xffff; ++keysym)
        QVERIFY2(isSaid(keysym), qPrintable(QString::number(keysym, 16)));
    for (KeySym keysym = 0x1000000; keysym <= 0x100ffff; ++keysym)
        QVERIFY2(isSaid(keysym), qPrintable(QString::number(keysym, 16)));
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    AccessibilityTest test(server.display());
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_accessibility.moc"

#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/PictureKeys.h"
#include "harness/PrivateServer.h"
#include "harness/TopLevelWindow.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"
#include "x11/CoreKeyboard.h"
#include "x11/Property.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QTest>

// The try-out mode as its user has it: the real application under a window manager, the real
// pointer, real keys.
class TryOutTest : public QObject {
    Q_OBJECT

public:
    explicit TryOutTest(const QByteArray& displayName)
        : display(openDisplay(displayName))
    {
    }

private slots:
    void initTestCase();
    void init();

    void withoutSettingsTheServersKeyboardIsTheOneSelected();
    void theWindowBringsItsIcon();
    void aClickedKeyIsTypedAndLitWhileItIsDown();
    void aClickedShiftMakesACapital();
    void aClickedDeadKeyComposesWithTheNextClick();
    void aPhysicalDeadKeyComposesWithTheNextKey();
    void aDeadKeyTwiceGivesItsAccent();
    void anArrowMovesTheCursorOfTheSampleLineByOneCharacter();
    void thirdLevelCharactersAreTyped();
    void theClickDoesNotLeaveTheWindowsFocus();
    void aKeyLitIsLetGoWhenAnotherWindowTakesTheFocus();
    void aKeyThatGoesUpWhileTheFocusIsAwayForAMomentIsLetGo();
    void aKeyThatGoesUpWhileAMouseKeyIsDownIsLetGo();
    void modifiersStayHeldAfterAnotherKeyboardWasChosen();
    void aPhysicalShiftCountsAfterOursHasGoneToAnotherWindow();
    void aShiftThatTheUserHoldsAsWellGoesOutWithOurs();

private:
    static void chooseAnotherKeyboard();
    Window unmanagedWindow() const;
    static MainWindow* window();
    static TypingArea* sampleLine() { return window()->findChild<TypingArea*>(); }
    static const KbdKey* key(const char* name);
    QPoint placeOf(const char* name) const;
    void movePointerTo(const char* name) const;
    void button(bool down) const;
    void click(const char* name) const;
    void physicalKey(KeySym keysym, bool down) const;
    void stroke(KeySym keysym) const;
    QString typed() const { return sampleLine()->text(); }

    XConnection display;
};

MainWindow* TryOutTest::window()
{
    return topLevelWindow<MainWindow>();
}

const KbdKey* TryOutTest::key(const char* name)
{
    return keyNamed(*window()->picture(), name);
}

QPoint TryOutTest::placeOf(const char* name) const
{
    const KbdGeometry* view = window()->picture();
    const KbdKey* shown = key(name);
    const QPointF centre = shown->mapToScene(shown->boundingRect().center());
    return view->viewport()->mapToGlobal(view->mapFromScene(centre));
}

void TryOutTest::movePointerTo(const char* name) const
{
    const QPoint place = placeOf(name);
    XTestFakeMotionEvent(display.get(), -1, place.x(), place.y(), CurrentTime);
}

void TryOutTest::button(bool down) const
{
    XTestFakeButtonEvent(display.get(), Button1, down, CurrentTime);
    XSync(display.get(), x11::xFalse);
}

// A key that types lights up by the event that it sends; a click is over when it has gone out.
void TryOutTest::click(const char* name) const
{
    const KbdKey* shown = key(name);
    const ShiftMask_t before = window()->picture()->modifiers();
    movePointerTo(name);
    button(true);
    if (shown->symbols().keyType() == 0)
        QTRY_VERIFY(shown->isPhysicallyDown());
    button(false);
    if (shown->symbols().keyType() == 0)
        QTRY_VERIFY(!shown->isPhysicallyDown());
    else
        QTRY_VERIFY(window()->picture()->modifiers() != before);
}

void TryOutTest::physicalKey(KeySym keysym, bool down) const
{
    XTestFakeKeyEvent(display.get(), XKeysymToKeycode(display.get(), keysym), down, CurrentTime);
    XSync(display.get(), x11::xFalse);
}

void TryOutTest::stroke(KeySym keysym) const
{
    physicalKey(keysym, true);
    physicalKey(keysym, false);
}

void TryOutTest::initTestCase()
{
    QVERIFY(window());
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    QCOMPARE(typed(), QStringLiteral("Sample Text Area"));
}

void TryOutTest::init()
{
    sampleLine()->setText(QString());
    QTRY_COMPARE(QApplication::focusWidget(), window());
}

void TryOutTest::withoutSettingsTheServersKeyboardIsTheOneSelected()
{
    const auto* selector = window()->findChild<CKbdSpecSelector*>();
    QCOMPARE(selector->currentText(), QStringLiteral("Germany [Deutschland]"));
    QCOMPARE(selector->currentIconFile(), QStringLiteral("de.png"));
    QVERIFY(!selector->isCustom(selector->count() - 1));
}

// Width, height and that many pixels at least (EWMH, _NET_WM_ICON).
void TryOutTest::theWindowBringsItsIcon()
{
    const std::vector<unsigned long> values =
        x11::property(display.get(), window()->winId(), "_NET_WM_ICON").numbers;
    QVERIFY(values.size() > 2);
    QVERIFY(values[0] >= 16 && values[1] >= 16 && values.size() >= 2 + values[0] * values[1]);
}

void TryOutTest::aClickedKeyIsTypedAndLitWhileItIsDown()
{
    movePointerTo("AD03");
    button(true);
    QTRY_VERIFY(key("AD03")->isPhysicallyDown());
    QTRY_COMPARE(typed(), QStringLiteral("e"));
    button(false);
    QTRY_VERIFY(!key("AD03")->isPhysicallyDown());
    QCOMPARE(typed(), QStringLiteral("e"));
}

void TryOutTest::aClickedShiftMakesACapital()
{
    click("LFSH");
    click("AC10");
    click("LFSH");
    click("AC10");
    QTRY_COMPARE(typed(), QStringLiteral("Öö"));
}

void TryOutTest::aClickedDeadKeyComposesWithTheNextClick()
{
    click("AE12");
    QCOMPARE(typed(), QString());
    click("AD03");
    QTRY_COMPARE(typed(), QStringLiteral("é"));
    click("TLDE");
    click("AC01");
    QTRY_COMPARE(typed(), QStringLiteral("éâ"));
}

void TryOutTest::aPhysicalDeadKeyComposesWithTheNextKey()
{
    stroke(XK_dead_acute);
    stroke(XK_a);
    QTRY_COMPARE(typed(), QStringLiteral("á"));
    stroke(XK_dead_acute);
    physicalKey(XK_Shift_L, true);
    stroke(XK_e);
    physicalKey(XK_Shift_L, false);
    QTRY_COMPARE(typed(), QStringLiteral("áÉ"));
}

void TryOutTest::aDeadKeyTwiceGivesItsAccent()
{
    click("AE12");
    click("AE12");
    QTRY_COMPARE(typed(), QStringLiteral("´"));
}

void TryOutTest::anArrowMovesTheCursorOfTheSampleLineByOneCharacter()
{
    for (const KeySym keysym : {XK_a, XK_b, XK_c, XK_Left, XK_x})
        stroke(keysym);
    QTRY_COMPARE(typed(), QStringLiteral("abxc"));

    click("LEFT");
    physicalKey(XK_Shift_L, true);
    stroke(XK_Left);
    physicalKey(XK_Shift_L, false);
    stroke(XK_y);
    QTRY_COMPARE(typed(), QStringLiteral("ayxc"));
}

void TryOutTest::thirdLevelCharactersAreTyped()
{
    click("RALT");
    click("AD01");
    click("RALT");
    QTRY_COMPARE(typed(), QStringLiteral("@"));
}

void TryOutTest::theClickDoesNotLeaveTheWindowsFocus()
{
    click("AC01");
    QCOMPARE(QApplication::focusWidget(), window());
    QVERIFY(window()->isActiveWindow());
}

void TryOutTest::aKeyLitIsLetGoWhenAnotherWindowTakesTheFocus()
{
    physicalKey(XK_Shift_L, true);
    QTRY_VERIFY(key("LFSH")->isPhysicallyDown());
    QWidget other;
    other.setGeometry(10, 10, 100, 60);
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    XSetInputFocus(
        display.get(), DefaultRootWindow(display.get()), RevertToPointerRoot, CurrentTime);
    XSync(display.get(), x11::xFalse);
    QTRY_VERIFY(!key("LFSH")->isPhysicallyDown());
    QCOMPARE(int(window()->picture()->modifiers()), 0);
    physicalKey(XK_Shift_L, false);
    other.close();
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
}

// For shorter than Qt takes to notice.
void TryOutTest::aKeyThatGoesUpWhileTheFocusIsAwayForAMomentIsLetGo()
{
    physicalKey(XK_b, true);
    QTRY_VERIFY(key("AB05")->isPhysicallyDown());
    XSetInputFocus(
        display.get(), DefaultRootWindow(display.get()), RevertToPointerRoot, CurrentTime);
    physicalKey(XK_b, false);
    XSetInputFocus(display.get(), window()->winId(), RevertToPointerRoot, CurrentTime);
    stroke(XK_n);
    QTRY_COMPARE(typed().right(1), QStringLiteral("n"));
    QVERIFY(!key("AB05")->isPhysicallyDown());
}

// Which the server tells nobody of.
void TryOutTest::aKeyThatGoesUpWhileAMouseKeyIsDownIsLetGo()
{
    const CoreKeyboard keyboard(display.get());
    keyboard.setMouseKeys(true);
    physicalKey(XK_b, true);
    QTRY_VERIFY(key("AB05")->isPhysicallyDown());
    physicalKey(XK_KP_Right, true);
    physicalKey(XK_b, false);
    physicalKey(XK_KP_Right, false);
    keyboard.setMouseKeys(false);
    QTRY_VERIFY(!key("AB05")->isPhysicallyDown());
}

void TryOutTest::chooseAnotherKeyboard()
{
    auto* selector = window()->findChild<CKbdSpecSelector*>();
    selector->setCurrent(QStringLiteral("pc105"), QStringLiteral("at"), QString());
    QTRY_VERIFY(window()->picture()->isVisible());
    QTRY_COMPARE(QApplication::focusWidget(), window());
}

// The new picture types through XTest, and its own window gets the modifiers around each key.
void TryOutTest::modifiersStayHeldAfterAnotherKeyboardWasChosen()
{
    chooseAnotherKeyboard();
    click("RALT");
    click("AD01");
    QTRY_COMPARE(typed(), QStringLiteral("@"));
    click("AD01");
    QTRY_COMPARE(typed(), QStringLiteral("@@"));
    QCOMPARE(int(window()->picture()->modifiers()), int(x11::mod5Mask));
    click("RALT");
    QCOMPARE(int(window()->picture()->modifiers()), 0);
    physicalKey(XK_Control_L, true);
    QTRY_COMPARE(int(window()->picture()->modifiers()), int(x11::controlMask));
    physicalKey(XK_Control_L, false);
    QTRY_COMPARE(int(window()->picture()->modifiers()), 0);
}

Window TryOutTest::unmanagedWindow() const
{
    XSetWindowAttributes attributes{};
    attributes.override_redirect = x11::xTrue;
    const Window made = XCreateWindow(display.get(), DefaultRootWindow(display.get()), 0, 0, 1, 1,
        0, 0, InputOnly, nullptr, CWOverrideRedirect, &attributes);
    XMapWindow(display.get(), made);
    return made;
}

// The focus comes back before Qt has noticed that it was away.
void TryOutTest::aPhysicalShiftCountsAfterOursHasGoneToAnotherWindow()
{
    chooseAnotherKeyboard();
    click("LFSH");
    const Window other = unmanagedWindow();
    XSetInputFocus(display.get(), other, RevertToPointerRoot, CurrentTime);
    XSync(display.get(), x11::xFalse);
    window()->picture()->click(keyNamed(*window()->picture(), "AC01"));
    XSync(toolkitDisplay(), x11::xFalse);
    XSetInputFocus(display.get(), window()->winId(), RevertToPointerRoot, CurrentTime);
    XDestroyWindow(display.get(), other);
    click("LFSH");
    for (const auto& [keysym, name] : {std::pair(XK_Shift_L, "LFSH"), {XK_Shift_R, "RTSH"}}) {
        physicalKey(keysym, true);
        QTRY_VERIFY(key(name)->isPhysicallyDown());
        physicalKey(keysym, false);
        QTRY_VERIFY(!key(name)->isPhysicallyDown());
    }
    QCOMPARE(int(window()->picture()->modifiers()), 0);
}

// The server has one state for a key that two devices press: the first release counts.
void TryOutTest::aShiftThatTheUserHoldsAsWellGoesOutWithOurs()
{
    chooseAnotherKeyboard();
    click("LCTL");
    movePointerTo("AC01");
    button(true);
    QTRY_VERIFY(key("AC01")->isPhysicallyDown());
    physicalKey(XK_Shift_L, true);
    physicalKey(XK_Shift_R, true);
    QTRY_VERIFY(key("RTSH")->isPhysicallyDown());
    window()->picture()->click(keyNamed(*window()->picture(), "AC02"));
    physicalKey(XK_Shift_L, false);
    physicalKey(XK_Shift_R, false);
    button(false);
    QTRY_VERIFY(!key("AC01")->isPhysicallyDown());
    QTRY_VERIFY(!key("LFSH")->isPhysicallyDown());
    QTRY_VERIFY(!key("RTSH")->isPhysicallyDown());
    click("LCTL");
    QCOMPARE(int(window()->picture()->modifiers()), 0);
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    setKeyboard(server.display(),
        {QStringLiteral("-model"), QStringLiteral("pc105"), QStringLiteral("-layout"),
            QStringLiteral("de")});
    const WindowManager windowManager("openbox", server.display());

    char program[] = "tst_tryout";
    char standalone[] = "--standalone";
    char* arguments[] = {program, standalone, nullptr};
    KbdApp application(2, arguments);
    failOnXErrors();
    TryOutTest test(server.display());
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_tryout.moc"

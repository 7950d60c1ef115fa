#include "FakeKeymap.h"

#include "keys/KeyDetails.h"
#include "x11/X11.h"

#include <QTest>

#include <memory>

namespace {

constexpr KeyCode escape = 9;
constexpr KeyCode returnKey = 36;
constexpr KeyCode keyA = 38;
constexpr KeyCode leftShift = 50;
constexpr KeyCode capsLock = 66;

constexpr unsigned char clampGroups = 0x40;

} // namespace

class KeyDetailsTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void theTextHasThisForm();
    void theKeycodeHasTwoDigitsAtLeast_data();
    void theKeycodeHasTwoDigitsAtLeast();
    void aKeysymHasTwoPlacesAtLeast_data();
    void aKeysymHasTwoPlacesAtLeast();
    void textsThatLookLikePlacesStayAsTheyAre();
    void modifiersAreNamedByTheirMask_data();
    void modifiersAreNamedByTheirMask();

    void aKeyTellsItsSymbols();
    void aKeyTellsOneBlockForEachLayout();
    void aGroupThatTheKeyLacksTellsWhatTakesItsPlace();
    void labelsAreInTheLanguageOfTheirLayout();
    void aKeysymWithoutANameLeavesItsPlaceEmpty();
    void aKeyThatSetsModifiersEndsWithThem();
    void aKeyThatLocksModifiersEndsWithThem();
    void anyOtherActionAddsNothing();
    void aKeyWithoutSymbolsTellsWhoItIs();
    void aKeyThatTheKeymapLacksHasCodeZero();

private:
    QString detailsOf(const char* name, const QStringList& layouts = {"us"});

    std::unique_ptr<FakeKeymap> keymap;
};

void KeyDetailsTest::init()
{
    keymap = std::make_unique<FakeKeymap>();
}

QString KeyDetailsTest::detailsOf(const char* name, const QStringList& layouts)
{
    keymap->setLayouts(layouts);
    return KeyDetails::of(keymap->key(name));
}

void KeyDetailsTest::theTextHasThisForm()
{
    KeyDetails details("LFSH", leftShift);
    details.addSymbol({0, "Level1", XK_Shift_L, "Shift_L", "\u21E7"});
    details.addSymbol({1, "Level2", XK_dead_acute, "dead_acute", "\u00B4"});
    details.addModifier(XkbSA_SetMods, x11::shiftMask);
    QCOMPARE(details.text(),
        QString("Details about this key:\n"
                "X11 Identity:  Name='LFSH', Code=0x32\n"
                "Key symbol table:\n"
                "   symbol[0,Level1]=0xffe1=Shift_L=\u21E7\n"
                "   symbol[1,Level2]=0xfe51=dead_acute=\u00B4\n"
                "Modifier 1=0x 1"));
}

void KeyDetailsTest::theKeycodeHasTwoDigitsAtLeast_data()
{
    QTest::addColumn<int>("keycode");
    QTest::addColumn<QString>("line");
    QTest::newRow("9") << 9 << "X11 Identity:  Name='ESC', Code=0x09";
    QTest::newRow("38") << 38 << "X11 Identity:  Name='ESC', Code=0x26";
    QTest::newRow("255") << 255 << "X11 Identity:  Name='ESC', Code=0xff";
    QTest::newRow("0") << 0 << "X11 Identity:  Name='ESC', Code=0x00";
}

void KeyDetailsTest::theKeycodeHasTwoDigitsAtLeast()
{
    QFETCH(int, keycode);
    const KeyDetails details("ESC", static_cast<KeyCode>(keycode));
    QTEST(details.text().split('\n').at(1), "line");
}

void KeyDetailsTest::aKeysymHasTwoPlacesAtLeast_data()
{
    QTest::addColumn<uint>("keysym");
    QTest::addColumn<QString>("line");
    QTest::newRow("a letter") << 0x61U << "   symbol[0,One]=0x61=name=label";
    QTest::newRow("a function key") << 0xff0dU << "   symbol[0,One]=0xff0d=name=label";
    QTest::newRow("Unicode") << 0x1000259U << "   symbol[0,One]=0x1000259=name=label";
    QTest::newRow("none") << 0U << "   symbol[0,One]=0x 0=name=label";
}

void KeyDetailsTest::aKeysymHasTwoPlacesAtLeast()
{
    QFETCH(uint, keysym);
    KeyDetails details("AC01", keyA);
    details.addSymbol({0, "One", keysym, "name", "label"});
    QTEST(details.text().split('\n').last(), "line");
}

void KeyDetailsTest::textsThatLookLikePlacesStayAsTheyAre()
{
    KeyDetails details("AE05", keyA);
    details.addSymbol({0, "%5", XK_percent, "%2", "%1"});
    QCOMPARE(details.text().split('\n').last(), QString("   symbol[0,%5]=0x25=%2=%1"));
}

void KeyDetailsTest::modifiersAreNamedByTheirMask_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("mask");
    QTest::addColumn<QString>("line");
    const QString none("Key symbol table:");
    QTest::newRow("set Shift") << int(XkbSA_SetMods) << 1 << "Modifier 1=0x 1";
    QTest::newRow("set Mod5") << int(XkbSA_SetMods) << 128 << "Modifier 128=0x80";
    QTest::newRow("lock Lock") << int(XkbSA_LockMods) << 2 << "Lock Modifier 2=0x 2";
    QTest::newRow("lock two") << int(XkbSA_LockMods) << 18 << "Lock Modifier 18=0x12";
    QTest::newRow("latch Shift") << int(XkbSA_LatchMods) << 1 << none;
    QTest::newRow("none") << int(XkbSA_NoAction) << 0 << none;
}

void KeyDetailsTest::modifiersAreNamedByTheirMask()
{
    QFETCH(int, action);
    QFETCH(int, mask);
    KeyDetails details("LFSH", leftShift);
    details.addModifier(static_cast<KeyType_t>(action), static_cast<ShiftMask_t>(mask));
    QTEST(details.text().split('\n').last(), "line");
}

void KeyDetailsTest::aKeyTellsItsSymbols()
{
    keymap->addKey("AC01", keyA, {{keymap->twoLevels(), {XK_a, XK_A}}});
    QCOMPARE(detailsOf("AC01"),
        QString("Details about this key:\n"
                "X11 Identity:  Name='AC01', Code=0x26\n"
                "Key symbol table:\n"
                "   symbol[0,]=0x61=a=a\n"
                "   symbol[0,]=0x41=A=A"));
}

void KeyDetailsTest::aKeyTellsOneBlockForEachLayout()
{
    const int two = keymap->twoLevels();
    keymap->addKey("AC01", keyA, {{two, {XK_a, XK_A}}, {keymap->oneLevel(), {XK_Greek_alpha}}});
    QCOMPARE(detailsOf("AC01", {"us", "gr"}).split('\n').mid(3),
        QStringList({"   symbol[0,]=0x61=a=a", "   symbol[0,]=0x41=A=A",
            "   symbol[1,]=0x7e1=Greek_alpha=\u03B1"}));
}

void KeyDetailsTest::aGroupThatTheKeyLacksTellsWhatTakesItsPlace()
{
    const int one = keymap->oneLevel();
    keymap->addKey("AC01", keyA, {{one, {XK_a}}, {one, {XK_b}}});
    const QStringList wrapped{
        "   symbol[0,]=0x61=a=a", "   symbol[1,]=0x62=b=b", "   symbol[2,]=0x61=a=a"};
    QCOMPARE(detailsOf("AC01", {"us", "us", "us"}).split('\n').mid(3), wrapped);

    keymap->setGroupRule(keyA, clampGroups);
    const QStringList clamped{
        "   symbol[0,]=0x61=a=a", "   symbol[1,]=0x62=b=b", "   symbol[2,]=0x62=b=b"};
    QCOMPARE(detailsOf("AC01", {"us", "us", "us"}).split('\n').mid(3), clamped);
}

void KeyDetailsTest::labelsAreInTheLanguageOfTheirLayout()
{
    keymap->addKey("RTRN", returnKey, {{keymap->oneLevel(), {XK_Return}}});
    QCOMPARE(detailsOf("RTRN", {"us", "fr"}).split('\n').mid(3),
        QStringList({"   symbol[0,]=0xff0d=Return=\u21B5",
            "   symbol[1,]=0xff0d=Return=\u21B5Entr\u00E9e"}));
}

void KeyDetailsTest::aKeysymWithoutANameLeavesItsPlaceEmpty()
{
    constexpr KeySym unnamed = 0x1e;
    keymap->addKey("AC01", keyA, {{keymap->oneLevel(), {unnamed}}});
    QCOMPARE(detailsOf("AC01").split('\n').last(), QString("   symbol[0,]=0x1e==Key30"));
}

void KeyDetailsTest::aKeyThatSetsModifiersEndsWithThem()
{
    keymap->addKey("LFSH", leftShift, {{keymap->oneLevel(), {XK_Shift_L}}});
    keymap->setAction(leftShift, XkbSA_SetMods, x11::shiftMask);
    QVERIFY(detailsOf("LFSH").endsWith("=Shift_L=\u21E7\nModifier 1=0x 1"));
}

void KeyDetailsTest::aKeyThatLocksModifiersEndsWithThem()
{
    keymap->addKey("CAPS", capsLock, {{keymap->oneLevel(), {XK_Caps_Lock}}});
    keymap->setAction(capsLock, XkbSA_LockMods, x11::lockMask);
    QVERIFY(detailsOf("CAPS").endsWith("=Caps_Lock=Caps\nLock\nLock Modifier 2=0x 2"));
}

void KeyDetailsTest::anyOtherActionAddsNothing()
{
    keymap->addKey("LFSH", leftShift, {{keymap->oneLevel(), {XK_Shift_L}}});
    keymap->setAction(leftShift, XkbSA_LatchMods, x11::shiftMask);
    QVERIFY(detailsOf("LFSH").endsWith("=Shift_L=\u21E7"));
}

void KeyDetailsTest::aKeyWithoutSymbolsTellsWhoItIs()
{
    keymap->addKey("ESC", escape);
    QCOMPARE(detailsOf("ESC"),
        QString("Details about this key:\n"
                "X11 Identity:  Name='ESC', Code=0x09\n"
                "Key symbol table:"));
}

void KeyDetailsTest::aKeyThatTheKeymapLacksHasCodeZero()
{
    QCOMPARE(detailsOf("I999"),
        QString("Details about this key:\n"
                "X11 Identity:  Name='I999', Code=0x00\n"
                "Key symbol table:"));
}

QTEST_MAIN(KeyDetailsTest)

#include "tst_keydetails.moc"

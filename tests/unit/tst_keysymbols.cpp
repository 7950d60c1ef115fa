#include "FakeKeymap.h"

#include "keys/KeySymbols.h"
#include "x11/X11.h"

#include <QTest>

#include <memory>

namespace {

constexpr KeyCode keyA = 38;
constexpr KeyCode capsLock = 66;

// The group information byte of a key (XKB protocol, "Key Symbol Map").
constexpr unsigned char clampGroups = 0x40;
constexpr int noSlot = -1;

constexpr ShiftMask_t noModifiers = 0;
constexpr ShiftMask_t shift = x11::shiftMask;
constexpr ShiftMask_t lock = x11::lockMask;
constexpr ShiftMask_t control = x11::controlMask;
constexpr ShiftMask_t mod1 = 8;
constexpr ShiftMask_t mod5 = x11::mod5Mask;

constexpr ShiftMask_t both(ShiftMask_t a, ShiftMask_t b)
{
    return static_cast<ShiftMask_t>(a | b);
}

} // namespace

class KeySymbolsTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void aKeyIsFoundByAllOfItsName();
    void aKeyThatTheKeymapLacksHasNothing();
    void aKeyWithoutGroupsHasItsCodeOnly();
    void aKeyWithoutLevelsHasGroupsAndNoSymbols();

    void modifiersSelectTheSymbol_data();
    void modifiersSelectTheSymbol();
    void aLevelBeyondTheKeysOwnHasNoSymbol();
    void slotsAreCountedThroughTheGroups();
    void deadKeysAreThoseOfTheKeysymList_data();
    void deadKeysAreThoseOfTheKeysymList();
    void capsLockChangesTheCaseOfLetters_data();
    void capsLockChangesTheCaseOfLetters();

    void theSelectedGroupIsShown();
    void aKeyWithFewerGroupsKeepsTheGroupShown();
    void theSelectedGroupChoosesTheLanguage();
    void strokesAreReportedInTheLanguageOfTheLastLayout();
    void aSymbolHasItsNameInX11();
    void aLayoutWhoseGroupTheKeyLacksHasTheSymbolsThatTakeItsPlace();
    void symbolsOfNoLayoutAreNotRead();

    void modifiersAreNamedByTheirFirstKeysym_data();
    void modifiersAreNamedByTheirFirstKeysym();
    void onlySettingAndLockingMakesAModifier_data();
    void onlySettingAndLockingMakesAModifier();
    void aLockKeyHasALockModifier_data();
    void aLockKeyHasALockModifier();
    void aModifierIsOnInPartOrAsAWhole();

private:
    std::unique_ptr<FakeKeymap> keymap;
};

void KeySymbolsTest::init()
{
    keymap = std::make_unique<FakeKeymap>();
}

void KeySymbolsTest::aKeyIsFoundByAllOfItsName()
{
    const int one = keymap->oneLevel();
    keymap->addKey("AE01", 10, {{one, {XK_1}}});
    keymap->addKey("AE0", 11, {{one, {XK_2}}});
    keymap->addKey("AE01", 12, {{one, {XK_3}}});
    QCOMPARE(keymap->key("AE01").x11Keycode(), KeyCode(10));
    QCOMPARE(keymap->key("AE0").x11Keycode(), KeyCode(11));
    QCOMPARE(keymap->key("AE").x11Keycode(), KeyCode(0));
    QCOMPARE(keymap->key("AE01").name(), QString("AE01"));
}

void KeySymbolsTest::aKeyThatTheKeymapLacksHasNothing()
{
    KeySymbols symbols = keymap->key("I999");
    symbols.setSelectedGroup(1);
    QCOMPARE(symbols.name(), QString("I999"));
    QCOMPARE(symbols.x11Keycode(), KeyCode(0));
    QCOMPARE(symbols.groupCount(), 0);
    QVERIFY(!symbols.hasSymbols());
    QVERIFY(!symbols.isModifier());
    QCOMPARE(symbols.modifierName(), QString());
    QCOMPARE(symbols.activeSlot(shift), noSlot);
    QCOMPARE(symbols.keysymWith(shift), x11::none);
    QCOMPARE(symbols.labelWith(shift), QString());
    QVERIFY(symbols.layoutSymbols().isEmpty());
}

void KeySymbolsTest::aKeyWithoutGroupsHasItsCodeOnly()
{
    keymap->addKey("AC01", keyA);
    const KeySymbols symbols = keymap->key("AC01");
    QCOMPARE(symbols.x11Keycode(), keyA);
    QCOMPARE(symbols.groupCount(), 0);
    QVERIFY(!symbols.hasSymbols());
    QCOMPARE(symbols.activeSlot(noModifiers), noSlot);
    QCOMPARE(symbols.label(noSlot), QString());
    QCOMPARE(symbols.symbolName(noSlot), QString());
    QVERIFY(!symbols.isDeadKey(noSlot));
}

void KeySymbolsTest::aKeyWithoutLevelsHasGroupsAndNoSymbols()
{
    const KeySymbols symbols = keymap->keyOf(keymap->addType(0, {}), {});
    QCOMPARE(symbols.groupCount(), 1);
    QVERIFY(!symbols.hasSymbols());
    QCOMPARE(symbols.activeSlot(noModifiers), noSlot);
}

void KeySymbolsTest::modifiersSelectTheSymbol_data()
{
    QTest::addColumn<ShiftMask_t>("state");
    QTest::addColumn<QString>("label");
    QTest::addColumn<KeySym>("keysym");
    QTest::newRow("plain") << noModifiers << "q" << KeySym(XK_q);
    QTest::newRow("Shift") << shift << "1" << KeySym(XK_1);
    QTest::newRow("third level") << mod5 << "@" << KeySym(XK_at);
    QTest::newRow("Shift and third level")
        << both(shift, mod5) << "\u03A9" << KeySym(XK_Greek_OMEGA);
    QTest::newRow("an unrelated modifier") << control << "q" << KeySym(XK_q);
    QTest::newRow("Shift and an unrelated modifier") << both(shift, control) << "1" << KeySym(XK_1);
}

void KeySymbolsTest::modifiersSelectTheSymbol()
{
    QFETCH(ShiftMask_t, state);
    const KeySymbols symbols =
        keymap->keyOf(keymap->fourLevels(), {XK_q, XK_1, XK_at, XK_Greek_OMEGA});
    QTEST(symbols.labelWith(state), "label");
    QTEST(symbols.keysymWith(state), "keysym");
}

void KeySymbolsTest::aLevelBeyondTheKeysOwnHasNoSymbol()
{
    const KeySymbols symbols = keymap->keyOf(keymap->addType(2, {{shift, 5}}), {XK_a, XK_A});
    QCOMPARE(symbols.activeLevel(shift), 5);
    QCOMPARE(symbols.activeSlot(shift), noSlot);
    QCOMPARE(symbols.keysymWith(shift), x11::none);
    QCOMPARE(symbols.labelWith(shift), QString());
}

void KeySymbolsTest::slotsAreCountedThroughTheGroups()
{
    const int two = keymap->twoLevels();
    keymap->setLayouts({"us", "gr"});
    keymap->addKey("AC01", keyA, {{two, {XK_a, XK_A}}, {keymap->oneLevel(), {XK_Greek_alpha}}});
    KeySymbols symbols = keymap->key("AC01");
    QCOMPARE(symbols.activeSlot(shift), 1);
    symbols.setSelectedGroup(1);
    QCOMPARE(symbols.activeSlot(shift), 2);
    QCOMPARE(symbols.slotOf(1), 3);
    QCOMPARE(symbols.keysym(2), KeySym(XK_Greek_alpha));
    QCOMPARE(symbols.keysym(3), x11::none);
}

void KeySymbolsTest::deadKeysAreThoseOfTheKeysymList_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<bool>("isDead");
    QTest::newRow("before the first") << KeySym(0xfe4f) << false;
    QTest::newRow("the first") << KeySym(0xfe50) << true;
    QTest::newRow("one of them") << KeySym(XK_dead_cedilla) << true;
    QTest::newRow("the last") << KeySym(0xfe66) << true;
    QTest::newRow("behind the last") << KeySym(0xfe67) << false;
}

void KeySymbolsTest::deadKeysAreThoseOfTheKeysymList()
{
    QFETCH(KeySym, keysym);
    QTEST(keymap->keyOf(keymap->oneLevel(), {keysym}).isDeadKey(0), "isDead");
}

void KeySymbolsTest::capsLockChangesTheCaseOfLetters_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<ShiftMask_t>("state");
    QTest::addColumn<QString>("label");
    QTest::newRow("without Lock") << KeySym(XK_a) << noModifiers << "a";
    QTest::newRow("Lock") << KeySym(XK_a) << lock << "A";
    QTest::newRow("Lock and Shift") << KeySym(XK_a) << both(lock, shift) << "a";
    QTest::newRow("a capital, Lock and Shift") << KeySym(XK_A) << both(lock, shift) << "a";
    QTest::newRow("a capital, Shift alone") << KeySym(XK_A) << shift << "A";
    QTest::newRow("Lock and another modifier") << KeySym(XK_a) << both(lock, mod1) << "A";
    QTest::newRow("a letter with an accent") << KeySym(XK_adiaeresis) << lock << "\u00C4";
    QTest::newRow("a letter whose capital has two") << KeySym(XK_ssharp) << lock << "\u00DF";
    QTest::newRow("a Greek letter") << KeySym(XK_Greek_alpha) << lock << "\u0391";
    QTest::newRow("a figure") << KeySym(XK_7) << lock << "7";
    QTest::newRow("a word") << KeySym(XK_End) << lock << "End";
    QTest::newRow("a word, with Shift") << KeySym(XK_End) << both(lock, shift) << "End";
}

void KeySymbolsTest::capsLockChangesTheCaseOfLetters()
{
    QFETCH(KeySym, keysym);
    QFETCH(ShiftMask_t, state);
    QTEST(keymap->keyOf(keymap->oneLevel(), {keysym}).labelWith(state), "label");
}

void KeySymbolsTest::theSelectedGroupIsShown()
{
    const int two = keymap->twoLevels();
    keymap->setLayouts({"us", "gr"});
    keymap->addKey("AC01", keyA, {{two, {XK_a, XK_A}}, {two, {XK_Greek_alpha, XK_Greek_ALPHA}}});
    KeySymbols symbols = keymap->key("AC01");
    QCOMPARE(symbols.keysymWith(noModifiers), KeySym(XK_a));
    symbols.setSelectedGroup(1);
    QCOMPARE(symbols.keysymWith(noModifiers), KeySym(XK_Greek_alpha));
    QCOMPARE(symbols.keysymWith(shift), KeySym(XK_Greek_ALPHA));
    symbols.setSelectedGroup(0);
    QCOMPARE(symbols.keysymWith(shift), KeySym(XK_A));
}

void KeySymbolsTest::aKeyWithFewerGroupsKeepsTheGroupShown()
{
    const int one = keymap->oneLevel();
    keymap->setLayouts({"us", "gr", "ru"});
    keymap->addKey("AC01", keyA, {{one, {XK_a}}, {one, {XK_Greek_alpha}}});
    KeySymbols symbols = keymap->key("AC01");
    symbols.setSelectedGroup(1);
    symbols.setSelectedGroup(2);
    QCOMPARE(symbols.keysymWith(noModifiers), KeySym(XK_Greek_alpha));
}

void KeySymbolsTest::theSelectedGroupChoosesTheLanguage()
{
    keymap->setLayouts({"us", "de"});
    KeySymbols symbols = keymap->keyOf(keymap->oneLevel(), {XK_Home});
    QCOMPARE(symbols.labelWith(noModifiers), QString("Home"));
    symbols.setSelectedGroup(1);
    QCOMPARE(symbols.labelWith(noModifiers), QString("Pos 1"));
    symbols.setSelectedGroup(3);
    QCOMPARE(symbols.labelWith(noModifiers), QString("Home"));
}

void KeySymbolsTest::strokesAreReportedInTheLanguageOfTheLastLayout()
{
    keymap->setLayouts({"us", "de"});
    const KeySymbols symbols = keymap->keyOf(keymap->oneLevel(), {XK_Home});
    QCOMPARE(symbols.symbolLabel(0), QString("Pos 1"));
}

void KeySymbolsTest::aSymbolHasItsNameInX11()
{
    constexpr KeySym unnamed = 0x1e;
    const KeySymbols symbols = keymap->keyOf(keymap->twoLevels(), {XK_dead_acute, unnamed});
    QCOMPARE(symbols.symbolName(0), QString("dead_acute"));
    QCOMPARE(symbols.symbolName(1), QString());
}

void KeySymbolsTest::aLayoutWhoseGroupTheKeyLacksHasTheSymbolsThatTakeItsPlace()
{
    const int one = keymap->oneLevel();
    keymap->setLayouts({"us", "us", "fr"});
    keymap->addKey("RTRN", keyA, {{one, {XK_a}}, {one, {XK_Return}}});
    keymap->setGroupRule(keyA, clampGroups);
    const QList<LayoutSymbol> symbols = keymap->key("RTRN").layoutSymbols();
    QCOMPARE(symbols.size(), 3);
    QCOMPARE(symbols.at(2).layout, 2);
    QCOMPARE(symbols.at(2).keysym, KeySym(XK_Return));
    QCOMPARE(symbols.at(1).label, QString("\u21B5"));
    QCOMPARE(symbols.at(2).label, QString("\u21B5Entr\u00E9e"));
}

void KeySymbolsTest::symbolsOfNoLayoutAreNotRead()
{
    const int one = keymap->oneLevel();
    keymap->addKey("AC01", keyA, {{one, {XK_a}}, {one, {XK_dead_acute}}});
    const KeySymbols symbols = keymap->key("AC01");
    QCOMPARE(symbols.groupCount(), 2);
    QCOMPARE(symbols.keysym(1), x11::none);
    QVERIFY(!symbols.isDeadKey(1));
    QCOMPARE(symbols.layoutSymbols().size(), 1);
}

void KeySymbolsTest::modifiersAreNamedByTheirFirstKeysym_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<QString>("name");
    QTest::newRow("Caps_Lock") << KeySym(XK_Caps_Lock) << "CapsLock";
    QTest::newRow("Num_Lock") << KeySym(XK_Num_Lock) << "NumLock";
    QTest::newRow("Scroll_Lock") << KeySym(XK_Scroll_Lock) << "ScrollLock";
    QTest::newRow("Shift_L") << KeySym(XK_Shift_L) << "Shift";
    QTest::newRow("Shift_R") << KeySym(XK_Shift_R) << "Shift";
    QTest::newRow("Control_L") << KeySym(XK_Control_L) << "Control";
    QTest::newRow("Control_R") << KeySym(XK_Control_R) << "Control";
    QTest::newRow("Meta_L") << KeySym(XK_Meta_L) << "Meta";
    QTest::newRow("Meta_R") << KeySym(XK_Meta_R) << "Meta";
    QTest::newRow("Alt_L") << KeySym(XK_Alt_L) << "Alt";
    QTest::newRow("Alt_R") << KeySym(XK_Alt_R) << "Alt";
    QTest::newRow("Super_L") << KeySym(XK_Super_L) << "Super";
    QTest::newRow("Super_R") << KeySym(XK_Super_R) << "Super";
    QTest::newRow("Hyper_L") << KeySym(XK_Hyper_L) << "Hyper";
    QTest::newRow("Hyper_R") << KeySym(XK_Hyper_R) << "Hyper";
    QTest::newRow("ISO_Level3_Shift") << KeySym(XK_ISO_Level3_Shift) << "LevelThree";
    QTest::newRow("ISO_Level3_Latch") << KeySym(XK_ISO_Level3_Latch) << "LevelThree";
    QTest::newRow("ISO_Level3_Lock") << KeySym(XK_ISO_Level3_Lock) << "LevelThree";
    QTest::newRow("ISO_Level5_Shift") << KeySym(XK_ISO_Level5_Shift) << "";
    QTest::newRow("a") << KeySym(XK_a) << "";
    QTest::newRow("none") << x11::none << "";
}

void KeySymbolsTest::modifiersAreNamedByTheirFirstKeysym()
{
    QFETCH(KeySym, keysym);
    QTEST(keymap->keyOf(keymap->twoLevels(), {keysym, XK_Shift_L}).modifierName(), "name");
}

void KeySymbolsTest::onlySettingAndLockingMakesAModifier_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("mask");
    QTest::newRow("set") << int(XkbSA_SetMods) << 1 << 5;
    QTest::newRow("lock") << int(XkbSA_LockMods) << 3 << 5;
    QTest::newRow("latch") << int(XkbSA_LatchMods) << 0 << 0;
    QTest::newRow("set the group") << int(XkbSA_SetGroup) << 0 << 0;
    QTest::newRow("none") << int(XkbSA_NoAction) << 0 << 0;
}

void KeySymbolsTest::onlySettingAndLockingMakesAModifier()
{
    QFETCH(int, action);
    QFETCH(int, type);
    keymap->setAction(keyA, static_cast<unsigned char>(action), both(shift, control));
    const KeySymbols symbols = keymap->keyOf(keymap->oneLevel(), {XK_a});
    QCOMPARE(int(symbols.keyType()), type);
    QCOMPARE(symbols.isModifier(), type != 0);
    QTEST(int(symbols.keyModifiers()), "mask");
}

void KeySymbolsTest::aLockKeyHasALockModifier_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<ShiftMask_t>("mask");
    QTest::addColumn<bool>("hasLockModifier");
    QTest::newRow("locks Lock") << int(XkbSA_LockMods) << lock << true;
    QTest::newRow("sets Lock") << int(XkbSA_SetMods) << lock << true;
    QTest::newRow("locks Lock and more") << int(XkbSA_LockMods) << both(lock, shift) << true;
    QTest::newRow("locks Shift") << int(XkbSA_LockMods) << shift << false;
    QTest::newRow("does nothing") << int(XkbSA_NoAction) << lock << false;
}

void KeySymbolsTest::aLockKeyHasALockModifier()
{
    QFETCH(int, action);
    QFETCH(ShiftMask_t, mask);
    keymap->setLockModifiers(both(lock, mod1));
    keymap->setAction(capsLock, static_cast<unsigned char>(action), mask);
    QTEST(keymap->keyOf(keymap->oneLevel(), {XK_Caps_Lock}, capsLock).hasLockModifier(),
        "hasLockModifier");
}

void KeySymbolsTest::aModifierIsOnInPartOrAsAWhole()
{
    keymap->setAction(keyA, XkbSA_SetMods, both(shift, mod1));
    const KeySymbols symbols = keymap->keyOf(keymap->oneLevel(), {XK_Shift_L});
    QVERIFY(!symbols.hasAnyModifierIn(lock));
    QVERIFY(symbols.hasAnyModifierIn(both(lock, mod1)));
    QVERIFY(!symbols.hasAllModifiersIn(both(lock, mod1)));
    QVERIFY(symbols.hasAllModifiersIn(static_cast<ShiftMask_t>(shift | mod1 | lock)));
}

QTEST_MAIN(KeySymbolsTest)

#include "tst_keysymbols.moc"

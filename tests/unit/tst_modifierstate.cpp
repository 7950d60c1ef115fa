#include "model/ModifierState.h"
#include "x11/X11.h"

#include <QTest>

namespace {

// Key codes of the keymap "evdev".
constexpr KeyCode leftControl = 37;
constexpr KeyCode leftShift = 50;
constexpr KeyCode leftAlt = 64;
constexpr KeyCode capsLock = 66;
constexpr KeyCode numLock = 77;
constexpr KeyCode scrollLock = 78;
constexpr KeyCode fifthLevel = 94; // <LSGT>
constexpr KeyCode rightAlt = 108;
constexpr KeyCode levelLock = 203; // <MDSW>
constexpr KeyCode meta = 205;

constexpr ShiftMask_t none = 0;
constexpr ShiftMask_t shift = 1;
constexpr ShiftMask_t lock = 2;
constexpr ShiftMask_t control = 4;
constexpr ShiftMask_t alt = 8;
constexpr ShiftMask_t num = 16;
constexpr ShiftMask_t scroll = 32;
constexpr ShiftMask_t level5 = 32; // of keymaps without Scroll Lock
constexpr ShiftMask_t level3 = 128;

constexpr KeyType_t holds = XkbSA_SetMods;
constexpr KeyType_t locks = XkbSA_LockMods;

template <typename... Masks>
constexpr ShiftMask_t all(Masks... masks)
{
    return static_cast<ShiftMask_t>((masks | ...));
}

using Masks = QMap<QString, ShiftMask_t>;
using Keys = QList<KeyCode>;

// Those of the usual keymap, which binds Scroll Lock to nothing.
Masks usualMasks()
{
    return {{"Shift", shift}, {"CapsLock", lock}, {"Control", control}, {"Alt", alt}, {"Meta", alt},
        {"NumLock", num}, {"LevelThree", level3}};
}

Masks masksWithScrollLock()
{
    Masks masks = usualMasks();
    masks.insert("ScrollLock", scroll);
    return masks;
}

ModifierState stateWith(const Masks& masks, const QList<ModifierKey>& keys)
{
    ModifierState state(masks);
    for (const ModifierKey& key : keys)
        state.addKey(key);
    return state;
}

ModifierState usualState()
{
    return stateWith(usualMasks(),
        {{leftShift, holds, "Shift"}, {leftControl, holds, "Control"}, {leftAlt, holds, "Alt"},
            {rightAlt, holds, "LevelThree"}, {capsLock, locks, "CapsLock"},
            {numLock, locks, "NumLock"}});
}

ModifierState stateWithoutLockKeys()
{
    return stateWith(masksWithScrollLock(), {{leftShift, holds, "Shift"}});
}

} // namespace

class ModifierStateTest : public QObject {
    Q_OBJECT

private slots:
    // Held modifiers.
    void aModifierIsHeldUntilItsKeyIsReleased();
    void aModifierHeldWithTwoKeysIsHeldUntilBothAreReleased();
    void aHeldModifierIsNoLock();

    // Locks.
    void aLockChangesWithEveryPress();
    void releasingALockKeyChangesNothing();
    void aLockIsSwitchedWhileShiftIsHeld();
    void thePictureStartsWithTheLocksOfTheServerOnly();
    void theLocksOfTheStartAreDroppedWithTheFirstChange();
    void theLocksOfTheStartAreDroppedWhenTheStateIsWorkedOutAnew();
    void droppedLocksAreFoundAgainInTheServer();
    void aLockOfTheStartIsClickedOff();

    // Locks of the server.
    void locksOfTheServerAreFollowed_data();
    void locksOfTheServerAreFollowed();
    void locksAreFollowedWhileAModifierIsHeld();
    void noLockIsChangedThatIsAsInTheServer();
    void anOffLockIsFollowedBesideOneOfTheStart();
    void locksThatHaveNoKeyAreFollowedTogether();
    void aLockThatTheKeymapLacksIsLeftAlone();
    void aFollowedLockIsClickedOff();

    // Lamps.
    void theLampsOfAMaskAreTriedInOneOrder_data();
    void theLampsOfAMaskAreTriedInOneOrder();
    void aLockTellsWhetherItIsOn();

    // Keys around a clicked key.
    void noKeyIsPressedWithoutAHeldModifier();
    void heldModifiersArePressedInTheOrderOfTheirNames();
    void everyNameOfAHeldModifierPressesItsKey();
    void locksAreNotPressed();
    void whatTheUserHoldsOnTheRealKeyboardIsNotPressed();
    void aKeyWithoutAModifierNameIsPressedForItsModifier();
    void keysWithoutAModifierNameArePressedInTheOrderOfTheirCodes();
    void aNamedKeyIsPressedInsteadOfOneWithoutAName();
    void aKeyThatLocksOtherModifiersIsNotPressed();
    void ofTwoKeysWithOneNameTheLaterIsPressed();

    // Events.
    void theStateOfAnEventHasModifiersAndGroup_data();
    void theStateOfAnEventHasModifiersAndGroup();

    void aKeyboardWithoutModifiersHoldsWhatIsPressed();
};

void ModifierStateTest::aModifierIsHeldUntilItsKeyIsReleased()
{
    ModifierState state = usualState();
    state.press(leftShift, shift);
    state.press(rightAlt, level3);
    QCOMPARE(state.modifiers(), all(shift, level3));
    QVERIFY(state.release(leftShift, shift));
    QCOMPARE(state.modifiers(), level3);
    QVERIFY(state.release(rightAlt, level3));
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::aModifierHeldWithTwoKeysIsHeldUntilBothAreReleased()
{
    constexpr KeyCode rightShift = 62;
    ModifierState state = usualState();
    state.press(leftShift, shift);
    state.press(rightShift, shift);
    state.release(leftShift, shift);
    QCOMPARE(state.modifiers(), shift);
    state.release(rightShift, shift);
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::aHeldModifierIsNoLock()
{
    ModifierState state = usualState();
    state.press(leftShift, shift);
    QCOMPARE(state.heldModifiers(), shift);
    QCOMPARE(state.lockedModifiers(), none);
    QCOMPARE(state.lockModifierMask(), all(lock, num));
}

void ModifierStateTest::aLockChangesWithEveryPress()
{
    ModifierState state = usualState();
    state.press(capsLock, lock);
    QCOMPARE(state.modifiers(), lock);
    QCOMPARE(state.lockedModifiers(), lock);
    QCOMPARE(state.heldModifiers(), none);
    state.press(capsLock, lock);
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::releasingALockKeyChangesNothing()
{
    ModifierState state = usualState();
    state.press(capsLock, lock);
    QVERIFY(!state.release(capsLock, lock));
    QCOMPARE(state.modifiers(), lock);
    state.press(capsLock, lock);
    QVERIFY(!state.release(capsLock, lock));
    QCOMPARE(state.modifiers(), none);
}

// The server refuses to lock a modifier that it is not asked to change.
void ModifierStateTest::aLockIsSwitchedWhileShiftIsHeld()
{
    ModifierState state = usualState();
    state.press(leftShift, shift);
    state.press(capsLock, lock);
    QCOMPARE(state.modifiers(), all(shift, lock));
    QCOMPARE(state.lockedModifiers(), lock);
}

void ModifierStateTest::thePictureStartsWithTheLocksOfTheServerOnly()
{
    ModifierState state = usualState();
    state.startWith(all(lock, num, level3));
    QCOMPARE(state.modifiers(), all(lock, num));
    QVERIFY(state.keysToPress(none).isEmpty());
}

void ModifierStateTest::theLocksOfTheStartAreDroppedWithTheFirstChange()
{
    ModifierState state = usualState();
    state.startWith(all(lock, num));
    state.press(leftShift, shift);
    QCOMPARE(state.modifiers(), shift);
}

void ModifierStateTest::theLocksOfTheStartAreDroppedWhenTheStateIsWorkedOutAnew()
{
    ModifierState state = usualState();
    state.startWith(lock);
    state.recompute();
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::droppedLocksAreFoundAgainInTheServer()
{
    ModifierState state = usualState();
    state.startWith(all(lock, num));
    state.press(leftShift, shift);
    QCOMPARE(state.followLocks(all(lock, num)), QList<ShiftMask_t>({lock, num}));
    QCOMPARE(state.modifiers(), all(shift, lock, num));
    state.release(leftShift, shift);
    QCOMPARE(state.modifiers(), all(lock, num));
}

void ModifierStateTest::aLockOfTheStartIsClickedOff()
{
    ModifierState state = usualState();
    state.startWith(lock);
    state.press(capsLock, lock);
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::locksOfTheServerAreFollowed_data()
{
    QTest::addColumn<ShiftMask_t>("locked");
    QTest::addColumn<QList<ShiftMask_t>>("changed");
    QTest::newRow("Caps Lock") << lock << QList<ShiftMask_t>{lock};
    QTest::newRow("Num Lock") << num << QList<ShiftMask_t>{num};
    QTest::newRow("Scroll Lock") << scroll << QList<ShiftMask_t>{scroll};
    QTest::newRow("all") << all(scroll, num, lock) << QList<ShiftMask_t>{lock, num, scroll};
}

void ModifierStateTest::locksOfTheServerAreFollowed()
{
    QFETCH(ShiftMask_t, locked);
    QFETCH(QList<ShiftMask_t>, changed);
    ModifierState state = stateWith(masksWithScrollLock(),
        {{capsLock, locks, "CapsLock"}, {numLock, locks, "NumLock"},
            {scrollLock, locks, "ScrollLock"}});
    QCOMPARE(state.followLocks(locked), changed);
    QCOMPARE(state.modifiers(), locked);
    QCOMPARE(state.followLocks(none), changed);
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::locksAreFollowedWhileAModifierIsHeld()
{
    ModifierState state = usualState();
    state.press(leftShift, shift);
    QCOMPARE(state.followLocks(num), QList<ShiftMask_t>{num});
    QCOMPARE(state.modifiers(), all(shift, num));
    QCOMPARE(state.followLocks(none), QList<ShiftMask_t>{num});
    QCOMPARE(state.modifiers(), shift);
}

void ModifierStateTest::noLockIsChangedThatIsAsInTheServer()
{
    ModifierState state = usualState();
    state.startWith(lock);
    QVERIFY(state.followLocks(lock).isEmpty());
    QCOMPARE(state.modifiers(), lock);
    state.press(leftShift, shift);
    QVERIFY(state.followLocks(none).isEmpty());
    QCOMPARE(state.modifiers(), shift);
}

// Caps Lock's change drops Num Lock, which is found again.
void ModifierStateTest::anOffLockIsFollowedBesideOneOfTheStart()
{
    ModifierState state = usualState();
    state.startWith(all(lock, num));
    QCOMPARE(state.followLocks(num), QList<ShiftMask_t>({lock, num}));
    QCOMPARE(state.modifiers(), num);
}

void ModifierStateTest::locksThatHaveNoKeyAreFollowedTogether()
{
    ModifierState state = stateWithoutLockKeys();
    state.followLocks(num);
    state.followLocks(all(lock, num));
    state.followLocks(all(lock, num, scroll));
    QCOMPARE(state.modifiers(), all(lock, num, scroll));
    state.followLocks(all(lock, scroll));
    QCOMPARE(state.modifiers(), all(lock, scroll));
    QVERIFY(state.keysToPress(none).isEmpty());
}

void ModifierStateTest::aLockThatTheKeymapLacksIsLeftAlone()
{
    ModifierState state = usualState();
    QVERIFY(state.followLocks(scroll).isEmpty());
    QCOMPARE(state.modifiers(), none);
    state.press(capsLock, lock);
    QVERIFY(state.followLocks(all(lock, scroll)).isEmpty());
    QCOMPARE(state.modifiers(), lock);
    QVERIFY(!(state.lockModifierMask() & scroll)); // so the server is not asked to unlock it
    QVERIFY(!state.isOn(Lock::Scroll));
}

void ModifierStateTest::aFollowedLockIsClickedOff()
{
    ModifierState state = usualState();
    state.followLocks(lock);
    state.press(capsLock, lock);
    QCOMPARE(state.modifiers(), none);
}

void ModifierStateTest::theLampsOfAMaskAreTriedInOneOrder_data()
{
    QTest::addColumn<ShiftMask_t>("mask");
    QTest::addColumn<QList<Lock>>("expected");
    QTest::newRow("Caps Lock") << lock << QList<Lock>{Lock::Caps};
    QTest::newRow("Num Lock") << num << QList<Lock>{Lock::Num};
    QTest::newRow("Scroll Lock") << scroll << QList<Lock>{Lock::Scroll};
    QTest::newRow("two") << all(num, lock) << QList<Lock>{Lock::Caps, Lock::Num};
    QTest::newRow("one and another modifier") << all(num, level3) << QList<Lock>{Lock::Num};
    QTest::newRow("no lock") << all(shift, level3) << QList<Lock>{};
}

void ModifierStateTest::theLampsOfAMaskAreTriedInOneOrder()
{
    QFETCH(ShiftMask_t, mask);
    QFETCH(QList<Lock>, expected);
    const ModifierState state(masksWithScrollLock());
    QCOMPARE(state.locksWith(mask), expected);
}

void ModifierStateTest::aLockTellsWhetherItIsOn()
{
    ModifierState state = usualState();
    state.press(capsLock, lock);
    QVERIFY(state.isOn(Lock::Caps));
    QVERIFY(!state.isOn(Lock::Num));
    state.press(capsLock, lock);
    QVERIFY(!state.isOn(Lock::Caps));
}

void ModifierStateTest::noKeyIsPressedWithoutAHeldModifier()
{
    ModifierState state = usualState();
    QCOMPARE(state.keysToPress(none), Keys());
    state.press(leftShift, shift);
    state.release(leftShift, shift);
    QCOMPARE(state.keysToPress(none), Keys());
}

// "Alt", "Control", "LevelThree", "Shift".
void ModifierStateTest::heldModifiersArePressedInTheOrderOfTheirNames()
{
    ModifierState state = usualState();
    state.press(leftShift, shift);
    state.press(rightAlt, level3);
    state.press(leftAlt, alt);
    state.press(leftControl, control);
    QCOMPARE(state.keysToPress(none), Keys({leftAlt, leftControl, rightAlt, leftShift}));
}

void ModifierStateTest::everyNameOfAHeldModifierPressesItsKey()
{
    ModifierState state = usualState();
    state.addKey({meta, holds, "Meta"});
    state.press(leftAlt, alt);
    QCOMPARE(state.keysToPress(none), Keys({leftAlt, meta}));
}

void ModifierStateTest::locksAreNotPressed()
{
    ModifierState state = usualState();
    state.press(capsLock, lock);
    state.press(numLock, num);
    QCOMPARE(state.keysToPress(none), Keys());
    state.press(leftShift, shift);
    QCOMPARE(state.keysToPress(none), Keys({leftShift}));
}

void ModifierStateTest::whatTheUserHoldsOnTheRealKeyboardIsNotPressed()
{
    ModifierState state = usualState();
    state.press(leftShift, shift);
    state.press(leftControl, control);
    QCOMPARE(state.keysToPress(shift), Keys({leftControl}));
    QCOMPARE(state.keysToPress(all(shift, control)), Keys());
}

void ModifierStateTest::aKeyWithoutAModifierNameIsPressedForItsModifier()
{
    ModifierState state = usualState();
    state.addKey({fifthLevel, holds, {}});
    state.press(fifthLevel, level5);
    QCOMPARE(state.keysToPress(none), Keys({fifthLevel}));
    QCOMPARE(state.keysToPress(level5), Keys());
}

void ModifierStateTest::keysWithoutAModifierNameArePressedInTheOrderOfTheirCodes()
{
    ModifierState state = usualState();
    for (const KeyCode keycode : {meta, fifthLevel, levelLock}) {
        state.addKey({keycode, holds, {}});
        state.press(keycode, level5);
    }
    state.press(leftShift, shift);
    QCOMPARE(state.keysToPress(none), Keys({leftShift, fifthLevel, levelLock, meta}));
}

void ModifierStateTest::aNamedKeyIsPressedInsteadOfOneWithoutAName()
{
    ModifierState state = usualState();
    state.addKey({fifthLevel, holds, {}});
    state.press(fifthLevel, level3);
    QCOMPARE(state.keysToPress(none), Keys({rightAlt}));
}

// Pressed around a key it would leave its lock behind.
void ModifierStateTest::aKeyThatLocksOtherModifiersIsNotPressed()
{
    ModifierState state = usualState();
    state.addKey({levelLock, locks, {}});
    state.press(levelLock, level5);
    QCOMPARE(state.heldModifiers(), level5);
    QCOMPARE(state.keysToPress(none), Keys());
}

void ModifierStateTest::ofTwoKeysWithOneNameTheLaterIsPressed()
{
    constexpr KeyCode rightShift = 62;
    ModifierState state = usualState();
    state.addKey({rightShift, holds, "Shift"});
    state.press(leftShift, shift);
    QCOMPARE(state.keysToPress(none), Keys({rightShift}));
}

void ModifierStateTest::theStateOfAnEventHasModifiersAndGroup_data()
{
    QTest::addColumn<KeyGroup_t>("group");
    QTest::addColumn<unsigned int>("expected");
    QTest::newRow("first group") << KeyGroup_t(0) << 0x03U;
    QTest::newRow("second group") << KeyGroup_t(1) << 0x2003U;
    QTest::newRow("third group, sent as the second") << KeyGroup_t(2) << 0x2003U;
    QTest::newRow("fourth group, sent as the second") << KeyGroup_t(3) << 0x2003U;
}

void ModifierStateTest::theStateOfAnEventHasModifiersAndGroup()
{
    QFETCH(KeyGroup_t, group);
    ModifierState state = usualState();
    state.press(leftShift, shift);
    state.press(capsLock, lock);
    state.setGroup(group);
    QTEST(state.eventState(), "expected");
    QCOMPARE(state.group(), group);
}

void ModifierStateTest::aKeyboardWithoutModifiersHoldsWhatIsPressed()
{
    ModifierState state;
    QVERIFY(state.followLocks(all(lock, num, scroll)).isEmpty());
    state.press(fifthLevel, level5);
    QCOMPARE(state.modifiers(), level5);
    QCOMPARE(state.keysToPress(none), Keys());
    state.release(fifthLevel, level5);
    QCOMPARE(state.modifiers(), none);
}

QTEST_APPLESS_MAIN(ModifierStateTest)

#include "tst_modifierstate.moc"

// What the picture knows of the keyboard: modifiers, locks and group, the physical keys that tell
// of them, and the keys that are typed under them.

#include "model/KbdGeometry.h"

#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "x11/CoreKeyboard.h"
#include "x11/qt/KeySender.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

// XKB's event state has the group in bits 13 and 14. Every group but the first is deliberately sent
// as the second.
constexpr unsigned int secondGroupState = 0x2000;

} // namespace

void KbdGeometry::x11KeyPressEventIn(XKeyEvent* event)
{
    if (sender->isEcho(*event))
        return;
    const QScopedValueRollback following(followsServer, true);
    if (KbdKey* key = keysByKeycode.value(static_cast<KeyCode>(event->keycode)))
        key->keyPressEventIn(static_cast<ShiftMask_t>(event->state));
}

void KbdGeometry::x11KeyReleaseEventIn(XKeyEvent* event)
{
    if (sender->isEcho(*event))
        return;
    if (KbdKey* key = keysByKeycode.value(static_cast<KeyCode>(event->keycode)))
        key->keyReleaseEventIn(static_cast<ShiftMask_t>(event->state));
}

void KbdGeometry::releasePhysicalKeys()
{
    sender->forgetEchoes();
    for (KbdKey* key : std::as_const(keys)) {
        if (key->isPressed())
            key->keyReleaseEventIn();
    }
}

// A modifier that the keymap does not name is one that is never held.
ShiftMask_t KbdGeometry::maskOf(const QString& modifier)
{
    return modifierMasks[modifier];
}

void KbdGeometry::modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask)
{
    if ((mask & lockModifiers) && (mask & modifierState))
        pressedModifiers.remove(keycode);
    else
        pressedModifiers.insert(keycode, mask);
    adjustModifierState(type, mask);
}

void KbdGeometry::modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask)
{
    if (mask & lockModifiers)
        return;
    pressedModifiers.remove(keycode);
    adjustModifierState(type, mask);
}

void KbdGeometry::adjustModifierState(KeyType_t type, ShiftMask_t mask)
{
    modifierState = 0;
    for (const ShiftMask_t pressed : std::as_const(pressedModifiers))
        modifierState |= pressed;
    for (KbdKey* key : std::as_const(keys))
        key->setCurrentModifiers(modifierState);

    if (type != XkbSA_LockMods)
        return;
    if (!followsServer)
        server->lockModifiers(lockModifiers, modifierState & lockModifiers);
    switchIndicator(mask);
}

// One lamp for one key: the first lock that the mask belongs to.
void KbdGeometry::switchIndicator(ShiftMask_t mask)
{
    const bool on = modifierState & mask;
    if ((maskOf(QStringLiteral("CapsLock")) & mask) && capsLockIndicator)
        capsLockIndicator->setActive(on);
    else if ((maskOf(QStringLiteral("NumLock")) & mask) && numLockIndicator)
        numLockIndicator->setActive(on);
    else if ((maskOf(QStringLiteral("ScrollLock")) & mask) && scrollLockIndicator)
        scrollLockIndicator->setActive(on);
}

void KbdGeometry::x11LockStateChangedIn()
{
    const KeyboardState state = server->state();
    followLocks(state.lockedModifiers);
    followGroup(state.lockedGroup);
}

void KbdGeometry::followLocks(ShiftMask_t locked)
{
    const QScopedValueRollback following(followsServer, true);
    KeyCode standIn = 0;
    for (const auto& lock :
        {QStringLiteral("CapsLock"), QStringLiteral("NumLock"), QStringLiteral("ScrollLock")}) {
        ++standIn;
        const ShiftMask_t mask = maskOf(lock);
        const KeyCode keycode = modifierKeycodes[lock];
        if (mask & (locked ^ modifierState))
            modifierPressed(keycode != 0 ? keycode : standIn, XkbSA_LockMods, mask);
    }
}

void KbdGeometry::followGroup(KeyGroup_t locked)
{
    if (locked == groupNum || !serverHasThisManyGroups())
        return;
    showGroup(locked);
    if (groupObserver)
        groupObserver(locked);
}

void KbdGeometry::setGroupNum(KeyGroup_t group)
{
    server->lockGroup(group);
    showGroup(group);
}

void KbdGeometry::showGroup(KeyGroup_t group)
{
    groupNum = group;
    for (KbdKey* key : std::as_const(keys))
        key->setSelectedGroup(group);
}

void KbdGeometry::x11NewKbdEventIn()
{
    server->lockGroup(groupNum);
}

KeyGroup_t KbdGeometry::firstGroup() const
{
    return groupAtLoad != 0 && serverHasThisManyGroups() ? groupAtLoad : groupNum;
}

// Otherwise the keyboard in the server is another than the one shown, and its groups mean nothing
// here.
bool KbdGeometry::serverHasThisManyGroups() const
{
    return server->groupCount() == keymapGroupCount();
}

void KbdGeometry::synthesizeKeyPress(KeyCode x11Keycode)
{
    if (!useXTest)
        return sendEvent(x11::keyPress, x11Keycode);
    sender->pressThroughXTest(x11Keycode, modifierKeysToPress());
}

void KbdGeometry::synthesizeKeyRelease(KeyCode x11Keycode)
{
    if (!useXTest)
        return sendEvent(x11::keyRelease, x11Keycode);
    sender->releaseThroughXTest(x11Keycode);
}

ShiftMask_t KbdGeometry::heldModifiers() const
{
    return modifierState & ~lockModifiers;
}

// What the user holds on the real keyboard is left out: it acts already, and the release of a
// second press would end it.
QList<KeyCode> KbdGeometry::modifierKeysToPress() const
{
    if (heldModifiers() == 0)
        return {};
    ShiftMask_t missing = heldModifiers() & ~server->state().heldModifiers;
    QList<KeyCode> toPress;
    const ShiftMask_t wanted = missing;
    for (auto mask = modifierMasks.cbegin(); mask != modifierMasks.cend(); ++mask) {
        const KeyCode keycode = modifierKeycodes.value(mask.key());
        if (!(mask.value() & wanted) || keycode == 0)
            continue;
        toPress << keycode;
        missing &= ~mask.value();
    }
    return toPress + unnamedKeysHolding(missing);
}

// Keys such as that of the fifth level, which go by no modifier's name.
QList<KeyCode> KbdGeometry::unnamedKeysHolding(ShiftMask_t modifiers) const
{
    QList<KeyCode> keycodes;
    for (auto held = pressedModifiers.cbegin(); held != pressedModifiers.cend(); ++held) {
        const KbdKey* key = keysByKeycode.value(held.key());
        if ((held.value() & modifiers) && key && key->keyType() == XkbSA_SetMods)
            keycodes << held.key();
    }
    std::sort(keycodes.begin(), keycodes.end());
    return keycodes;
}

void KbdGeometry::sendEvent(int type, KeyCode keycode)
{
    const unsigned int state = modifierState | (groupNum != 0 ? secondGroupState : 0U);
    sender->sendEvent(type, {keycode, state, lastInputTime});
}

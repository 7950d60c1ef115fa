#include "model/ModifierState.h"
#include "x11/X11.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The second group in the state of a key event, whose bits 13 and 14 are the group.
constexpr unsigned int secondGroupState = 0x2000;

QString nameOf(Lock lock)
{
    switch (lock) {
    case Lock::Caps:
        return u"CapsLock"_s;
    case Lock::Num:
        return u"NumLock"_s;
    case Lock::Scroll:
        return u"ScrollLock"_s;
    }
    return {};
}

} // namespace

ModifierState::ModifierState(QMap<QString, ShiftMask_t> masksByName)
    : modifierMasks(std::move(masksByName))
{
    for (const Lock lock : allLocks)
        lockModifiers |= maskOf(lock);
    for (auto name = modifierMasks.keyBegin(); name != modifierMasks.keyEnd(); ++name)
        modifierKeycodes.insert(*name, 0);
}

void ModifierState::addKey(const ModifierKey& key)
{
    if (!key.modifier.isEmpty())
        modifierKeycodes.insert(key.modifier, key.keycode);
    if (key.type == XkbSA_SetMods)
        holdingKeys.insert(key.keycode);
}

void ModifierState::startWith(ShiftMask_t lockedInServer)
{
    modifierState = lockedInServer & lockModifiers;
}

void ModifierState::press(KeyCode keycode, ShiftMask_t mask)
{
    const bool isLockedAlready = (mask & lockModifiers) && (mask & modifierState);
    if (isLockedAlready)
        pressedModifiers.remove(keycode);
    else
        pressedModifiers.insert(keycode, mask);
    recompute();
}

bool ModifierState::release(KeyCode keycode, ShiftMask_t mask)
{
    if (mask & lockModifiers)
        return false;
    pressedModifiers.remove(keycode);
    recompute();
    return true;
}

void ModifierState::recompute()
{
    modifierState = 0;
    for (const ShiftMask_t pressed : std::as_const(pressedModifiers))
        modifierState |= pressed;
}

// Each lock is compared with the state that the locks before it have left, because the first change
// drops the locks that the picture started with.
QList<ShiftMask_t> ModifierState::followLocks(ShiftMask_t lockedInServer)
{
    QList<ShiftMask_t> changed;
    for (const Lock lock : allLocks) {
        const ShiftMask_t mask = maskOf(lock);
        if (!(mask & (lockedInServer ^ modifierState)))
            continue;
        press(keycodeOf(lock), mask);
        changed << mask;
    }
    return changed;
}

// 0 for a lock that the keymap does not name.
ShiftMask_t ModifierState::maskOf(Lock lock) const
{
    return modifierMasks.value(nameOf(lock), 0);
}

KeyCode ModifierState::keycodeOf(Lock lock) const
{
    const KeyCode keycode = modifierKeycodes.value(nameOf(lock), 0);
    return keycode != 0 ? keycode : static_cast<KeyCode>(static_cast<int>(lock) + 1);
}

QList<Lock> ModifierState::locksWith(ShiftMask_t mask) const
{
    QList<Lock> locks;
    for (const Lock lock : allLocks) {
        if (maskOf(lock) & mask)
            locks << lock;
    }
    return locks;
}

QList<KeyCode> ModifierState::keysToPress(ShiftMask_t downInServer) const
{
    const ShiftMask_t wanted = heldModifiers() & ~downInServer;
    if (wanted == 0)
        return {};
    ShiftMask_t missing = wanted;
    QList<KeyCode> toPress;
    for (auto mask = modifierMasks.cbegin(); mask != modifierMasks.cend(); ++mask) {
        const KeyCode keycode = modifierKeycodes.value(mask.key());
        if (!(mask.value() & wanted) || keycode == 0)
            continue;
        toPress << keycode;
        missing &= ~mask.value();
    }
    return toPress + unnamedKeysHolding(missing);
}

// For modifiers whose key has no modifier name, such as the key of the fifth level.
QList<KeyCode> ModifierState::unnamedKeysHolding(ShiftMask_t modifiers) const
{
    QList<KeyCode> keycodes;
    for (auto pressed = pressedModifiers.cbegin(); pressed != pressedModifiers.cend(); ++pressed) {
        if ((pressed.value() & modifiers) && holdingKeys.contains(pressed.key()))
            keycodes << pressed.key();
    }
    std::sort(keycodes.begin(), keycodes.end());
    return keycodes;
}

unsigned int ModifierState::eventState() const
{
    return modifierState | (groupNum != 0 ? secondGroupState : 0U);
}

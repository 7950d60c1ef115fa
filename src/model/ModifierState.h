#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

#include <array>

// The locks that a picture may have indicators for, in the order in which they are looked at.
enum class Lock { Caps, Num, Scroll };
inline constexpr std::array allLocks{Lock::Caps, Lock::Num, Lock::Scroll};

// A key of the picture, as far as modifiers are concerned.
struct ModifierKey {
    KeyCode keycode;
    KeyType_t type;
    QString modifier; // that its first keysym stands for ("Shift", "LevelThree", …); empty for none
};

// Which modifiers are held and locked on the picture, and which group the picture shows. Plain data
// that asks the server nothing: the view enters the keys that go down and up and the server's
// locks, shows the result, and sets the server's locks and group. All masks are core modifier
// masks.
class ModifierState {
public:
    ModifierState() = default;

    // The keymap's modifiers by name, each with its real modifiers.
    explicit ModifierState(QMap<QString, ShiftMask_t> masksByName);

    // Enters a key of the picture; other keys than modifier keys may be entered and do nothing.
    void addKey(const ModifierKey& key);

    // The picture starts with the locks of the server. The first change of a modifier deliberately
    // drops them; followLocks finds them again.
    void startWith(ShiftMask_t lockedInServer);

    // What is held or locked, and the two apart.
    ShiftMask_t modifiers() const { return modifierState; }
    ShiftMask_t heldModifiers() const { return modifierState & ~lockModifiers; }
    ShiftMask_t lockedModifiers() const { return modifierState & lockModifiers; }

    // The modifiers of the lock keys, on or off: those that may be changed in the server.
    ShiftMask_t lockModifierMask() const { return lockModifiers; }

    // A modifier key of the picture went down or up. A lock changes with every press, and its
    // release does nothing: release returns false then.
    void press(KeyCode keycode, ShiftMask_t mask);
    bool release(KeyCode keycode, ShiftMask_t mask);

    // Works modifiers() out anew from the keys that are pressed, as press and release do too.
    void recompute();

    // Switches each lock that is on in the server and off here, or the other way round. Returns
    // the modifiers of each lock that it has switched, in the order of allLocks.
    QList<ShiftMask_t> followLocks(ShiftMask_t lockedInServer);

    bool isOn(Lock lock) const { return modifierState & maskOf(lock); }

    // The locks that have one of these modifiers, in the order of allLocks. Of a picture's
    // indicators only that of the first of these locks is switched.
    QList<Lock> locksWith(ShiftMask_t mask) const;

    // The keys to press around a clicked key, so that it is typed under the held modifiers. Those
    // of keys that are down in the server (downInServer) are left out: they act already, and the
    // release of a second press would end them. Locks are left out too: the server has them.
    QList<KeyCode> keysToPress(ShiftMask_t downInServer) const;

    KeyGroup_t group() const { return groupNum; }
    void setGroup(KeyGroup_t group) { groupNum = group; }

    // Modifiers and group as the state of a key event (XKB protocol, "Computing a State Field from
    // an XKB State"). Every group but the first is deliberately given as the second.
    unsigned int eventState() const;

private:
    ShiftMask_t maskOf(Lock lock) const;
    KeyCode keycodeOf(Lock lock) const;
    QList<KeyCode> unnamedKeysHolding(ShiftMask_t modifiers) const;

    ShiftMask_t modifierState = 0;
    ShiftMask_t lockModifiers = 0;
    QMap<QString, ShiftMask_t> modifierMasks; // real modifiers by modifier name
    QMap<QString, KeyCode> modifierKeycodes; // by modifier name; 0 where the picture has no key
    QSet<KeyCode> holdingKeys; // those that set their modifiers while they are down
    // By the modifier key of the picture. A lock that has no key there is entered under 1, 2 or 3,
    // which are no key codes.
    QHash<KeyCode, ShiftMask_t> pressedModifiers;
    KeyGroup_t groupNum = 0;
};

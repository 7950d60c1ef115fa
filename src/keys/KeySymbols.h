#pragma once

#include "keys/KbdTypes.h"
#include "keys/KeyLevels.h"
#include "x11/Types.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class KbdLabelTable;
class XDisplayClass;

// What all keys of a picture share. Everything is borrowed and outlives the keys.
struct KeyContext {
    XDisplayClass* display = nullptr;
    XkbDescPtr xkb = nullptr;
    const KbdLabelTable* labels = nullptr;
    QStringList layoutNames; // one for each group, empty names for unknown ones
    QStringList variantNames; // parallel to layoutNames, may be shorter
    ShiftMask_t lockModifiers = 0; // those of Caps Lock, Num Lock and Scroll Lock
};

// A symbol of a key in one of the layouts.
struct LayoutSymbol {
    int layout; // from 0
    QString levelName; // empty when the keymap names no levels
    KeySym keysym;
    QString keysymName; // empty when X11 has no name for it
    QString label; // in the layout's language
};

// What one key of the keymap means: its key code, its symbols, what its first action does to the
// modifiers, and which group it shows. Drawing, speech and announcements all ask this value.
//
// A slot is the number of a symbol among all the key's symbols: levels per group × group + level.
// What is asked of slot -1 (no symbol) is none, empty or false.
class KeySymbols {
public:
    // The modifier by which a cap finds its third level, whatever modifier the keymap binds to it.
    static constexpr ShiftMask_t level3Mask = x11::mod5Mask;

    // keyName is the key's XKB name, four characters at the most. A name that the keymap does not
    // have makes a key without key code and without groups.
    KeySymbols(KeyContext keyContext, const QByteArray& keyName);

    // 0 for a key that the keymap does not have.
    KeyCode x11Keycode() const { return keycode; }
    QString name() const { return xkbName; }

    // 0 for a key that has no symbols: it shows nothing and does nothing.
    int groupCount() const;
    bool hasGroups() const { return groupCount() != 0; }

    // False for a key whose groups have no levels, too.
    bool hasSymbols() const { return !keysyms.isEmpty(); }

    // What the key does to the modifiers, and to which; 0 and none for an ordinary key.
    KeyType_t keyType() const { return modifierType; }
    ShiftMask_t keyModifiers() const { return modifierMask; }
    bool isModifier() const { return modifierType != 0; }

    // Whether this is a lock key.
    bool hasLockModifier() const { return modifierMask & context.lockModifiers; }

    // Whether one, or every one, of the modifiers that the key sets or locks is among these.
    bool hasAnyModifierIn(ShiftMask_t modifiers) const { return modifiers & modifierMask; }
    bool hasAllModifiersIn(ShiftMask_t modifiers) const;

    // Whether the key moves the pointer, or presses a button, instead of typing while XKB's control
    // MouseKeys is on.
    bool hasPointerAction() const { return pointerAction; }

    // The modifier that the key's first keysym stands for ("Shift", "CapsLock", "LevelThree", …);
    // empty for an ordinary key.
    QString modifierName() const;

    // Chooses the layout whose language the labels are in and, where the key has this group (from
    // 0), the group that it shows.
    void setSelectedGroup(KeyGroup_t selected);
    int selectedGroup() const { return layoutIndex; }

    // Of the group shown: the level and slot that these modifiers select, the slot of a level, and
    // the levels that a cap with several labels shows. A key without groups has slot -1 only.
    int activeLevel(ShiftMask_t modifiers) const;
    int activeSlot(ShiftMask_t modifiers) const { return slotOf(activeLevel(modifiers)); }
    int slotOf(int level) const;
    CapLevels capLevels() const;

    // The symbol in a slot. label() is in the language of the layout chosen; symbolLabel() in that
    // of the last layout that has the slot, as reports of a stroke give it.
    KeySym keysym(int slot) const { return keysyms.value(slot, x11::none); }
    QString label(int slot) const;
    QString symbolName(int slot) const { return symbolNames.value(slot); }
    QString symbolLabel(int slot) const { return symbolLabels.value(slot); }
    bool isDeadKey(int slot) const { return deadKey.value(slot); }

    // The symbol that these modifiers select; the label with the case that they give a letter.
    KeySym keysymWith(ShiftMask_t modifiers) const { return keysym(activeSlot(modifiers)); }
    QString labelWith(ShiftMask_t modifiers) const;

    // One element for each layout and each level of the group that the key has for it.
    QList<LayoutSymbol> layoutSymbols() const;

private:
    void readActions();
    void makeSlots();
    void readSymbol(int layout, int slot);

    std::optional<int> effectiveGroupFor(int wanted) const;
    QList<int> slotsOf(int layout) const;
    QString levelName(int slot) const;
    QString labelIn(int layout, KeySym symbol) const;

    KeyContext context;
    QString xkbName;
    KeyCode keycode = 0;
    unsigned char levelsPerGroup = 0;
    KeyGroup_t group = 0;
    int layoutIndex = 0;

    // One element for each slot.
    QList<KeySym> keysyms;
    QStringList symbolNames;
    QStringList symbolLabels;
    QList<bool> deadKey;

    QList<const XkbKeyTypeRec*> keyTypes; // one for each group
    KeyType_t modifierType = 0;
    ShiftMask_t modifierMask = 0;
    bool pointerAction = false;
};

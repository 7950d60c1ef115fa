#pragma once

#include "app/description/XDisplayClass.h"
#include "keys/KbdTypes.h"

#include <QMap>
#include <QString>

// The modifiers that a keymap names, and their real modifiers: "Shift", "CapsLock" and "Control"
// by the core protocol, and every virtual modifier of the keymap that is bound to any ("NumLock",
// "ScrollLock", "LevelThree", "Alt", …).
QMap<QString, ShiftMask_t> modifierMasksOf(const XkbDescRec& xkb, XDisplayClass& display);

// The real modifiers of the three locks; a lock that the keymap does not name counts as none.
ShiftMask_t lockModifiersOf(const QMap<QString, ShiftMask_t>& masks);

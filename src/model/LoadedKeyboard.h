#pragma once

#include "app/description/KeyboardSettings.h"
#include "app/description/XDisplayClass.h"
#include "keys/KbdTypes.h"
#include "model/GroupLayouts.h"
#include "x11/XkbDescription.h"

#include <QMap>
#include <QStringList>

#include <memory>
#include <optional>

// A keyboard as the X server has compiled it, and what the picture takes from its names.
struct LoadedKeyboard {
    std::unique_ptr<XDisplayClass> display; // knows the names of all atoms that the picture needs
    XkbDescription xkb; // never null

    // The keymap's descriptions of its groups, untranslated, at least one for each of them.
    QStringList groupNames;
    QStringList groupLayouts; // the layout names in the keymap's symbols name
    int groupCount = 0; // of the key that has most

    // Layout and variant in whose language each group is labelled; at least groupCount elements.
    GroupNames labelNames;

    // The modifiers that the keymap names, each with its real modifiers: "Shift", "CapsLock" and
    // "Control" by the core protocol, and every virtual modifier that is bound to any ("NumLock",
    // "ScrollLock", "LevelThree", "Alt", …).
    QMap<QString, ShiftMask_t> modifierMasks;
};

// Has the server compile the named components, without using them itself, and asks it for all atom
// names at once: two round trips. The layout and variant of the settings choose the language of the
// labels. Nothing when the server gives no keyboard, or none with a geometry, for these names.
// The display is borrowed.
std::optional<LoadedKeyboard> loadKeyboard(
    Display* display, const XkbComponentNamesRec& names, const KeyboardSettings& settings);

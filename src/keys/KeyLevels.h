#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <array>
#include <optional>

// Which of a key's groups and levels the modifiers select, and which levels a cap shows. Plain
// functions over XKB records, which they only read.

// The group (from 0) that a key has in place of the group wanted (from 0), by the wrapping rules of
// the XKB protocol ("Computing Effective Modifiers and Group"). groupInfo is the key's group
// information byte. Nothing when the key has no groups.
std::optional<int> effectiveGroup(unsigned char groupInfo, int wanted);

// The level (from 0) that the modifiers select: that of the last entry of the key type all of whose
// modifiers are among them. Deliberately not the exact match that the XKB protocol asks for: this
// way a cap keeps its shifted label while an unrelated modifier is held.
int activeLevel(const XkbKeyTypeRec& type, ShiftMask_t modifiers);

// The levels that a cap with several labels shows.
struct CapLevels {
    enum Position { Base, Shift, Third, ShiftThird };

    // Levels (from 0) by Position; nothing where the key type has no such level.
    std::array<std::optional<int>, 4> levels{0};

    // How many positions have a level.
    int count() const;
    bool hasThirdLevel() const { return levels[Third] || levels[ShiftThird]; }
    bool shows(int level) const;
};

// The first level that the key type has for each position; level3Mask is the modifier that selects
// the third level.
CapLevels capLevels(const XkbKeyTypeRec& type, ShiftMask_t level3Mask);

#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <array>
#include <optional>

// Which of a key's symbols count: groups, levels and the places of labels on a cap. Plain
// functions over the XKB records, which are borrowed and only read.

// The group that a key shows when the group wanted (from 0) is asked for, after the wrapping rules
// of the XKB protocol ("Computing Effective Modifiers and Group"). groupInfo is the key's group
// information byte. Nothing when the key has no groups.
std::optional<int> effectiveGroup(unsigned char groupInfo, int wanted);

// The level (from 0) that the modifiers select: that of the last entry all of whose modifiers are
// held. Containment, where the XKB protocol asks for an exact match over the type's modifiers: a
// cap then keeps its shifted label while an unrelated modifier is held.
int activeLevel(const XkbKeyTypeRec& type, ShiftMask_t modifiers);

// The levels that a cap with several labels shows.
struct CapLevels {
    enum Position { Base, Shift, Third, ShiftThird };

    // Indexed by Position; nothing where the key type has no such level.
    std::array<std::optional<int>, 4> levels{0};

    int count() const;
    bool hasThirdLevel() const { return levels[Third] || levels[ShiftThird]; }
    bool shows(int level) const;
};

// level3Mask is the modifier that selects the third level.
CapLevels capLevels(const XkbKeyTypeRec& type, ShiftMask_t level3Mask);

#include "keys/KeyLevels.h"

#include "x11/X11.h"

#include <algorithm>

namespace {

// The group information byte of a key (XKB protocol, "Key Symbol Map").
constexpr int groupCountBits = 0x0f;
constexpr int clampBit = 0x40;
constexpr int redirectBit = 0x80;

constexpr int redirectGroup(unsigned char groupInfo)
{
    return (groupInfo >> 4) & 3;
}

void takeFirst(std::optional<int>& position, int level)
{
    if (!position)
        position = level;
}

} // namespace

std::optional<int> effectiveGroup(unsigned char groupInfo, int wanted)
{
    const int groups = groupInfo & groupCountBits;
    if (groups == 0)
        return std::nullopt;
    if (wanted < groups)
        return wanted;
    if (groupInfo & redirectBit) {
        const int target = redirectGroup(groupInfo);
        return target < groups ? target : 0;
    }
    if (groupInfo & clampBit)
        return groups - 1;
    return wanted % groups;
}

int activeLevel(const XkbKeyTypeRec& type, ShiftMask_t modifiers)
{
    int level = 0;
    for (int i = 0; i < type.map_count; ++i) {
        const XkbKTMapEntryRec& entry = type.map[i];
        if (entry.active && (modifiers & entry.mods.mask) == entry.mods.mask)
            level = entry.level;
    }
    return level;
}

int CapLevels::count() const
{
    return static_cast<int>(std::count_if(
        levels.begin(), levels.end(), [](const auto& level) { return level.has_value(); }));
}

bool CapLevels::shows(int level) const
{
    return std::find(levels.begin(), levels.end(), level) != levels.end();
}

CapLevels capLevels(const XkbKeyTypeRec& type, ShiftMask_t level3Mask)
{
    const int shift = x11::shiftMask;
    CapLevels found;
    for (int i = 0; i < type.map_count; ++i) {
        const XkbKTMapEntryRec& entry = type.map[i];
        // An entry whose virtual modifier is bound to nothing never applies, but what is left of
        // its mask could look like one of the masks below.
        if (!entry.active)
            continue;
        const int modifiers = entry.mods.mask & (level3Mask | shift);
        if (modifiers == shift)
            takeFirst(found.levels[CapLevels::Shift], entry.level);
        else if (modifiers == level3Mask)
            takeFirst(found.levels[CapLevels::Third], entry.level);
        else if (modifiers == (level3Mask | shift))
            takeFirst(found.levels[CapLevels::ShiftThird], entry.level);
    }
    return found;
}

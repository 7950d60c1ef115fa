#include "keys/KeySymbols.h"

#include "app/description/XDisplayClass.h"
#include "keys/KbdLabelTable.h"
#include "keys/LabelCase.h"
#include "x11/X11.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

constexpr KeySym firstDeadKeysym = 0xfe50;
constexpr KeySym lastDeadKeysym = 0xfe66;

struct ModifierNameRow {
    KeySym keysym;
    const char* name;
};

constexpr std::array<ModifierNameRow, 18> modifierNames{{
    {XK_Caps_Lock, "CapsLock"},
    {XK_Num_Lock, "NumLock"},
    {XK_Scroll_Lock, "ScrollLock"},
    {XK_Shift_L, "Shift"},
    {XK_Shift_R, "Shift"},
    {XK_Control_L, "Control"},
    {XK_Control_R, "Control"},
    {XK_Meta_L, "Meta"},
    {XK_Meta_R, "Meta"},
    {XK_Alt_L, "Alt"},
    {XK_Alt_R, "Alt"},
    {XK_Super_L, "Super"},
    {XK_Super_R, "Super"},
    {XK_Hyper_L, "Hyper"},
    {XK_Hyper_R, "Hyper"},
    {XK_ISO_Level3_Shift, "LevelThree"},
    {XK_ISO_Level3_Latch, "LevelThree"},
    {XK_ISO_Level3_Lock, "LevelThree"},
}};

// XKB key names are four characters, filled with NUL.
bool isNamed(const XkbKeyNameRec& key, const QByteArray& name)
{
    return std::strncmp(key.name, name.constData(), XkbKeyNameLength) == 0;
}

// The first key of the keymap that has the name; 0 when there is none.
KeyCode keycodeOf(const XkbDescRec& xkb, const QByteArray& name)
{
    for (int code = xkb.min_key_code; code <= xkb.max_key_code; ++code) {
        if (isNamed(xkb.names->keys[code], name))
            return static_cast<KeyCode>(code);
    }
    return 0;
}

// What a key does instead of typing while mouse keys are on (XKB protocol, "Key Actions").
bool isPointerAction(unsigned char type)
{
    return type == XkbSA_MovePtr || type == XkbSA_PtrBtn || type == XkbSA_LockPtrBtn
        || type == XkbSA_SetPtrDflt;
}

} // namespace

KeySymbols::KeySymbols(KeyContext keyContext, const QByteArray& keyName)
    : context(std::move(keyContext))
    , xkbName(QString::fromLatin1(keyName))
    , keycode(keycodeOf(*context.xkb, keyName))
{
    if (keycode == 0)
        return;
    readActions();
    makeSlots();
    for (int layout = 0; layout < context.layoutNames.size(); ++layout) {
        for (const int slot : slotsOf(layout))
            readSymbol(layout, slot);
    }
}

void KeySymbols::readActions()
{
    const XkbServerMapRec* server = context.xkb->server;
    if (!server || !server->key_acts || server->key_acts[keycode] == 0)
        return;
    const int first = server->key_acts[keycode];
    const XkbAction& action = server->acts[first];
    if (action.type == XkbSA_SetMods || action.type == XkbSA_LockMods) {
        modifierType = action.type;
        modifierMask = action.mods.mask;
    }
    // One action for each symbol of each group.
    const int count = groupCount() * context.xkb->map->key_sym_map[keycode].width;
    const int end = std::min<int>(first + count, server->num_acts);
    pointerAction = std::any_of(server->acts + first, server->acts + std::max(first, end),
        [](const XkbAction& each) { return isPointerAction(each.type); });
}

void KeySymbols::makeSlots()
{
    const XkbClientMapRec& map = *context.xkb->map;
    const XkbSymMapRec& symbols = map.key_sym_map[keycode];
    levelsPerGroup = symbols.width;
    const int slotCount = groupCount() * levelsPerGroup;
    keysyms.fill(x11::none, slotCount);
    deadKey.fill(false, slotCount);
    symbolNames.resize(slotCount);
    symbolLabels.resize(slotCount);
    for (int g = 0; g < groupCount(); ++g)
        keyTypes << &map.types[symbols.kt_index[g]];
}

// The slots of the group that the key has for a layout, by level.
QList<int> KeySymbols::slotsOf(int layout) const
{
    QList<int> slotNumbers;
    const std::optional<int> wrappedGroup = effectiveGroupFor(layout);
    if (!wrappedGroup)
        return slotNumbers;
    const int levels = std::min(keyTypes.at(*wrappedGroup)->num_levels, levelsPerGroup);
    for (int level = 0; level < levels; ++level)
        slotNumbers << levelsPerGroup * *wrappedGroup + level;
    return slotNumbers;
}

void KeySymbols::readSymbol(int layout, int slot)
{
    const KeySym keysym =
        XkbKeySymEntry(context.xkb, keycode, slot % levelsPerGroup, slot / levelsPerGroup);
    keysyms[slot] = keysym;
    deadKey[slot] = keysym >= firstDeadKeysym && keysym <= lastDeadKeysym;
    symbolNames[slot] = QString::fromLatin1(XKeysymToString(keysym));
    symbolLabels[slot] = labelIn(layout, keysym);
}

QString KeySymbols::labelIn(int layout, KeySym symbol) const
{
    return context.labels->label(
        symbol, context.layoutNames.value(layout), context.variantNames.value(layout));
}

QString KeySymbols::levelName(int slot) const
{
    const XkbKeyTypeRec& type = *keyTypes.at(slot / levelsPerGroup);
    return type.level_names ? context.display->atomName(type.level_names[slot % levelsPerGroup])
                            : QString();
}

QList<LayoutSymbol> KeySymbols::layoutSymbols() const
{
    QList<LayoutSymbol> symbols;
    for (int layout = 0; layout < context.layoutNames.size(); ++layout) {
        for (const int slot : slotsOf(layout)) {
            symbols.append({layout, levelName(slot), keysyms.at(slot), symbolNames.at(slot),
                labelIn(layout, keysyms.at(slot))});
        }
    }
    return symbols;
}

int KeySymbols::groupCount() const
{
    return keycode == 0 ? 0 : XkbKeyNumGroups(context.xkb, keycode);
}

bool KeySymbols::hasAllModifiersIn(ShiftMask_t modifiers) const
{
    return (modifiers & modifierMask) == modifierMask;
}

QString KeySymbols::modifierName() const
{
    const KeySym first = keysym(0);
    for (const ModifierNameRow& row : modifierNames) {
        if (row.keysym == first)
            return QString::fromLatin1(row.name);
    }
    return {};
}

void KeySymbols::setSelectedGroup(KeyGroup_t selected)
{
    layoutIndex = selected;
    if (selected < groupCount())
        group = selected;
}

std::optional<int> KeySymbols::effectiveGroupFor(int wanted) const
{
    if (keycode == 0)
        return std::nullopt;
    return effectiveGroup(context.xkb->map->key_sym_map[keycode].group_info, wanted);
}

int KeySymbols::activeLevel(ShiftMask_t modifiers) const
{
    const std::optional<int> shown = effectiveGroupFor(group);
    return shown ? ::activeLevel(*keyTypes.at(*shown), modifiers) : 0;
}

// A level can lie beyond the key's own: both come from the server.
int KeySymbols::slotOf(int level) const
{
    const std::optional<int> shown = effectiveGroupFor(group);
    return shown && level < levelsPerGroup ? levelsPerGroup * *shown + level : -1;
}

CapLevels KeySymbols::capLevels() const
{
    const std::optional<int> shown = effectiveGroupFor(group);
    return shown ? ::capLevels(*keyTypes.at(*shown), level3Mask) : CapLevels();
}

QString KeySymbols::label(int slot) const
{
    return slot < 0 || slot >= keysyms.size() ? QString() : labelIn(layoutIndex, keysyms.at(slot));
}

QString KeySymbols::labelWith(ShiftMask_t modifiers) const
{
    return withCaseOf(label(activeSlot(modifiers)), modifiers);
}

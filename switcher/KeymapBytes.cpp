#include "switcher/KeymapBytes.h"

#include "switcher/ComponentAtoms.h"
#include "x11/X11.h"

#include <cstdint>
#include <iterator>
#include <new>
#include <stdexcept>

namespace {

// XKB protocol: key codes start at 8.
constexpr int firstLegalKey = 8;

// Xlib counts the keysyms and the actions of a keymap in 16 bits, and makes room beforehand.
constexpr int mostOfAKeymap = 0x7fff;

// Xlib keeps atoms and keysyms as longs; the protocol has 29 bits for them.
void putIds(ByteWriter& bytes, const unsigned long* first, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        bytes.put(static_cast<std::uint32_t>(first[i]));
}

void takeIds(ByteReader& bytes, unsigned long* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = bytes.take<std::uint32_t>();
}

std::vector<unsigned long> takeIds(ByteReader& bytes, std::size_t count)
{
    std::vector<unsigned long> ids(count);
    takeIds(bytes, ids.data(), count);
    return ids;
}

template <typename T>
std::vector<T> takeMany(ByteReader& bytes, std::size_t count)
{
    std::vector<T> values(count);
    bytes.take(values.data(), count);
    return values;
}

template <typename T>
T* orNull(std::vector<T>& values)
{
    return values.empty() ? nullptr : values.data();
}

void check(bool isSound)
{
    if (!isSound)
        throw std::invalid_argument("the bytes are no keymap");
}

// Xlib's functions for making a description return 0 when they succeed, and refuse sizes that no
// keymap has.
void checkMade(int status)
{
    if (status == BadAlloc)
        throw std::bad_alloc();
    check(status == 0);
}

std::size_t keyCount(const XkbDescRec& keymap)
{
    const int keys = keymap.max_key_code - keymap.min_key_code + 1;
    return static_cast<std::size_t>(keys);
}

void putType(ByteWriter& bytes, const XkbKeyTypeRec& type)
{
    bytes.put(type.mods);
    bytes.put(type.num_levels);
    bytes.put(type.map_count);
    bytes.put(type.preserve != nullptr);
    bytes.put(type.level_names != nullptr);
    putIds(bytes, &type.name, 1);
    bytes.put(type.map, type.map_count);
    if (type.preserve)
        bytes.put(type.preserve, type.map_count);
    if (type.level_names)
        putIds(bytes, type.level_names, type.num_levels);
}

void takeType(ByteReader& bytes, XkbKeyTypeRec& target)
{
    XkbKeyTypeRec type{};
    type.mods = bytes.take<XkbModsRec>();
    type.num_levels = bytes.take<unsigned char>();
    type.map_count = bytes.take<unsigned char>();
    const bool preserves = bytes.take<std::uint8_t>() != 0;
    const bool hasLevelNames = bytes.take<std::uint8_t>() != 0;
    takeIds(bytes, &type.name, 1);
    auto entries = takeMany<XkbKTMapEntryRec>(bytes, type.map_count);
    auto preserved = takeMany<XkbModsRec>(bytes, preserves ? type.map_count : 0);
    auto levelNames = takeIds(bytes, hasLevelNames ? type.num_levels : 0);
    type.map = orNull(entries);
    type.preserve = orNull(preserved);
    type.level_names = orNull(levelNames);
    checkMade(XkbCopyKeyType(&type, &target));
}

void putKey(ByteWriter& bytes, const XkbDescRec& keymap, int key)
{
    const XkbSymMapRec& map = keymap.map->key_sym_map[key];
    bytes.put(map.kt_index);
    bytes.put(map.group_info);
    bytes.put(map.width);
    const auto count = static_cast<std::size_t>(XkbKeyNumSyms(&keymap, key));
    putIds(bytes, XkbKeySymsPtr(&keymap, key), count);
    const bool hasActions = count > 0 && XkbKeyHasActions(&keymap, key);
    bytes.put(hasActions);
    if (hasActions)
        bytes.put(XkbKeyActionsPtr(&keymap, key), count);
}

void takeActions(ByteReader& bytes, XkbDescRec& keymap, int key, int count)
{
    check(count > 0 && keymap.server->num_acts + count <= mostOfAKeymap);
    XkbAction* const actions = XkbResizeKeyActions(&keymap, key, count);
    if (!actions)
        throw std::bad_alloc();
    bytes.take(actions, static_cast<std::size_t>(count));
}

void takeKey(ByteReader& bytes, XkbDescRec& keymap, int key)
{
    XkbSymMapRec map{};
    bytes.take(&map.kt_index, 1);
    map.group_info = bytes.take<unsigned char>();
    map.width = bytes.take<unsigned char>();
    const int groups = XkbNumGroups(map.group_info);
    check(groups <= XkbNumKbdGroups);
    for (int group = 0; group < groups; ++group)
        check(map.kt_index[group] < keymap.map->num_types);
    const int count = groups * map.width;
    check(keymap.map->num_syms + count <= mostOfAKeymap);
    KeySym* const keysyms = XkbResizeKeySyms(&keymap, key, count);
    if (!keysyms)
        throw std::bad_alloc();
    map.offset = keymap.map->key_sym_map[key].offset;
    keymap.map->key_sym_map[key] = map;
    takeIds(bytes, keysyms, static_cast<std::size_t>(count));
    const bool hasActions = bytes.take<std::uint8_t>() != 0;
    if (hasActions)
        takeActions(bytes, keymap, key, count);
}

// What every key has once.
void putKeyTables(ByteWriter& bytes, const XkbDescRec& keymap)
{
    const int first = keymap.min_key_code;
    const std::size_t keys = keyCount(keymap);
    bytes.put(keymap.map->modmap + first, keys);
    bytes.put(keymap.server->c_explicit + first, keys);
    bytes.put(keymap.server->behaviors + first, keys);
    bytes.put(keymap.server->vmodmap + first, keys);
    bytes.put(keymap.server->vmods);
    bytes.put(keymap.names->keys + first, keys);
}

void takeKeyTables(ByteReader& bytes, XkbDescRec& keymap)
{
    const int first = keymap.min_key_code;
    const std::size_t keys = keyCount(keymap);
    bytes.take(keymap.map->modmap + first, keys);
    bytes.take(keymap.server->c_explicit + first, keys);
    bytes.take(keymap.server->behaviors + first, keys);
    bytes.take(keymap.server->vmodmap + first, keys);
    bytes.take(&keymap.server->vmods, 1);
    bytes.take(keymap.names->keys + first, keys);
}

void putNames(ByteWriter& bytes, const XkbDescRec& keymap)
{
    const XkbNamesRec& names = *keymap.names;
    const Atom geometry = ComponentAtoms::of(keymap).geometry;
    for (const Atom name :
        {names.keycodes, geometry, names.symbols, names.types, names.compat, names.phys_symbols})
        putIds(bytes, &name, 1);
    putIds(bytes, names.vmods, std::size(names.vmods));
    putIds(bytes, names.indicators, std::size(names.indicators));
    putIds(bytes, names.groups, std::size(names.groups));
    putIds(bytes, names.radio_groups, names.num_rg);
    bytes.put(names.key_aliases, names.num_key_aliases);
}

void takeNames(ByteReader& bytes, XkbNamesRec& names)
{
    for (Atom* const name : {&names.keycodes, &names.geometry, &names.symbols, &names.types,
             &names.compat, &names.phys_symbols})
        takeIds(bytes, name, 1);
    takeIds(bytes, names.vmods, std::size(names.vmods));
    takeIds(bytes, names.indicators, std::size(names.indicators));
    takeIds(bytes, names.groups, std::size(names.groups));
    takeIds(bytes, names.radio_groups, names.num_rg);
    bytes.take(names.key_aliases, names.num_key_aliases);
}

void putCompatAndIndicators(ByteWriter& bytes, const XkbDescRec& keymap)
{
    bytes.put(keymap.compat->sym_interpret, keymap.compat->num_si);
    bytes.put(keymap.compat->groups);
    putIds(bytes, &keymap.indicators->phys_indicators, 1);
    bytes.put(keymap.indicators->maps);
}

void takeCompatAndIndicators(ByteReader& bytes, XkbDescRec& keymap)
{
    bytes.take(keymap.compat->sym_interpret, keymap.compat->num_si);
    bytes.take(&keymap.compat->groups, 1);
    takeIds(bytes, &keymap.indicators->phys_indicators, 1);
    bytes.take(&keymap.indicators->maps, 1);
}

// How much of everything a keymap has.
struct KeymapSizes {
    std::uint16_t interprets;
    std::uint16_t radioGroups;
    unsigned char types;
    unsigned char aliases;
    unsigned char firstKey;
    unsigned char lastKey;
};

XkbDescription makeKeymap(const KeymapSizes& sizes)
{
    XkbDescription keymap(XkbAllocKeyboard());
    if (!keymap)
        throw std::bad_alloc();
    keymap->min_key_code = sizes.firstKey;
    keymap->max_key_code = sizes.lastKey;
    checkMade(XkbAllocClientMap(keymap.get(), XkbAllClientInfoMask, sizes.types));
    checkMade(XkbAllocServerMap(keymap.get(), XkbAllServerInfoMask, 0));
    keymap->map->num_types = sizes.types;
    checkMade(XkbAllocNames(keymap.get(), XkbAllNamesMask, sizes.radioGroups, sizes.aliases));
    checkMade(XkbAllocCompatMap(keymap.get(), XkbAllCompatMask, sizes.interprets));
    keymap->compat->num_si = sizes.interprets;
    checkMade(XkbAllocIndicatorMaps(keymap.get()));
    return keymap;
}

} // namespace

void putKeymap(ByteWriter& bytes, const XkbDescRec& keymap)
{
    bytes.put(KeymapSizes{keymap.compat->num_si, keymap.names->num_rg, keymap.map->num_types,
        keymap.names->num_key_aliases, keymap.min_key_code, keymap.max_key_code});
    for (int type = 0; type < keymap.map->num_types; ++type)
        putType(bytes, keymap.map->types[type]);
    for (int key = keymap.min_key_code; key <= keymap.max_key_code; ++key)
        putKey(bytes, keymap, key);
    putKeyTables(bytes, keymap);
    putNames(bytes, keymap);
    putCompatAndIndicators(bytes, keymap);
}

XkbDescription takeKeymap(ByteReader& bytes)
{
    const auto sizes = bytes.take<KeymapSizes>();
    check(sizes.firstKey >= firstLegalKey && sizes.firstKey <= sizes.lastKey && sizes.types > 0);
    XkbDescription keymap = makeKeymap(sizes);
    for (int type = 0; type < keymap->map->num_types; ++type)
        takeType(bytes, keymap->map->types[type]);
    for (int key = keymap->min_key_code; key <= keymap->max_key_code; ++key)
        takeKey(bytes, *keymap, key);
    takeKeyTables(bytes, *keymap);
    takeNames(bytes, *keymap->names);
    takeCompatAndIndicators(bytes, *keymap);
    return keymap;
}

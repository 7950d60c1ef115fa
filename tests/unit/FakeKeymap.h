#pragma once

#include "app/description/XDisplayClass.h"
#include "keys/KbdLabelTable.h"
#include "keys/KeySymbols.h"
#include "x11/X11.h"

#include <QList>
#include <QStringList>

#include <algorithm>
#include <cstring>
#include <deque>
#include <vector>

// A keymap made by hand, for tests that have no X server. It owns the records and is filled before
// keys are made of it.
class FakeKeymap {
public:
    struct Entry {
        ShiftMask_t modifiers;
        unsigned char level; // from 0
        bool active = true;
    };

    struct Group {
        int type; // what addType gave
        std::vector<KeySym> keysyms; // one for each level
    };

    FakeKeymap()
    {
        map.key_sym_map = symbols.data();
        server.key_acts = keyActions.data();
        actions.push_back({}); // the action of no index
        names.keys = keyNames.data();
        description.min_key_code = 8;
        description.max_key_code = 255;
        description.map = &map;
        description.server = &server;
        description.names = &names;
        connectArrays();
    }

    ~FakeKeymap() = default;
    FakeKeymap(const FakeKeymap&) = delete;
    FakeKeymap& operator=(const FakeKeymap&) = delete;

    // The index of a key type whose levels have no names.
    int addType(unsigned char levels, const QList<Entry>& entries)
    {
        std::vector<XkbKTMapEntryRec>& list = typeEntries.emplace_back();
        for (const Entry& entry : entries) {
            const XkbModsRec mods{entry.modifiers, entry.modifiers, 0};
            list.push_back({entry.active, entry.level, mods});
        }
        XkbKeyTypeRec type{};
        type.num_levels = levels;
        type.map_count = static_cast<unsigned char>(list.size());
        type.map = list.data();
        types.push_back(type);
        connectArrays();
        return static_cast<int>(types.size()) - 1;
    }

    // The usual types: one level; two levels with Shift; four levels with Shift and Mod5.
    int oneLevel() { return addType(1, {}); }
    int twoLevels() { return addType(2, {{x11::shiftMask, 1}}); }
    int fourLevels()
    {
        return addType(4,
            {{x11::shiftMask, 1}, {x11::mod5Mask, 2},
                {static_cast<ShiftMask_t>(x11::shiftMask | x11::mod5Mask), 3}});
    }

    // A key with at most four groups. The name has four characters at the most.
    void addKey(const char* name, KeyCode code, const std::vector<Group>& groups = {})
    {
        std::strncpy(keyNames.at(code).name, name, XkbKeyNameLength);
        XkbSymMapRec& record = symbols.at(code);
        record.group_info = static_cast<unsigned char>(groups.size());
        for (const Group& group : groups)
            record.width = std::max<unsigned char>(
                record.width, static_cast<unsigned char>(group.keysyms.size()));
        record.offset = static_cast<unsigned short>(keysyms.size());
        for (std::size_t i = 0; i < groups.size(); ++i) {
            record.kt_index[i] = static_cast<unsigned char>(groups[i].type);
            for (std::size_t level = 0; level < record.width; ++level)
                keysyms.push_back(
                    level < groups[i].keysyms.size() ? groups[i].keysyms[level] : x11::none);
        }
        connectArrays();
    }

    // The key's first action.
    void setAction(KeyCode code, unsigned char type, ShiftMask_t mask)
    {
        XkbAction action{};
        action.mods.type = type;
        action.mods.mask = mask;
        keyActions.at(code) = static_cast<unsigned short>(actions.size());
        actions.push_back(action);
        connectArrays();
    }

    // What becomes of groups that the key does not have, beside their number.
    void setGroupRule(KeyCode code, unsigned char bits) { symbols.at(code).group_info |= bits; }

    // One for each group; "us" unless told.
    void setLayouts(const QStringList& groups) { layouts = groups; }

    // None unless told.
    void setLockModifiers(ShiftMask_t modifiers) { lockModifiers = modifiers; }

    // What keys of this keymap are made with; they must not outlive it.
    KeyContext context() { return {&noDisplay, &description, &labels, layouts, {}, lockModifiers}; }

    KeySymbols key(const char* name) { return {context(), name}; }

    // A key of one group, of key code 38 (the letter A) unless told.
    KeySymbols keyOf(int type, const std::vector<KeySym>& levels, KeyCode code = 38)
    {
        addKey("KEY", code, {{type, levels}});
        return key("KEY");
    }

    const XkbKeyTypeRec& type(int index) const { return types.at(index); }

private:
    void connectArrays()
    {
        map.types = types.data();
        map.num_types = static_cast<unsigned char>(types.size());
        map.syms = keysyms.data();
        map.num_syms = static_cast<unsigned short>(keysyms.size());
        server.acts = actions.data();
        server.num_acts = static_cast<unsigned short>(actions.size());
    }

    static constexpr std::size_t keyCodes = 256;
    inline static const KbdLabelTable labels;

    QStringList layouts{"us"};
    ShiftMask_t lockModifiers = 0;
    std::deque<std::vector<XkbKTMapEntryRec>> typeEntries;
    std::vector<XkbKeyTypeRec> types;
    std::vector<KeySym> keysyms;
    std::vector<XkbAction> actions;
    std::vector<XkbSymMapRec> symbols{keyCodes, XkbSymMapRec{}};
    std::vector<unsigned short> keyActions = std::vector<unsigned short>(keyCodes, 0);
    std::vector<XkbKeyNameRec> keyNames{keyCodes, XkbKeyNameRec{}};
    XkbClientMapRec map{};
    XkbServerMapRec server{};
    XkbNamesRec names{};
    XkbDescRec description{};
    XDisplayClass noDisplay{nullptr};
};

#include "tests/long/ServerKeymap.h"

#include "keys/KeyLevels.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <QChar>
#include <QSet>

#include <algorithm>
#include <array>

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

void ServerKeymap::Free::operator()(xkb_context* unused) const
{
    xkb_context_unref(unused);
}

void ServerKeymap::Free::operator()(xkb_keymap* unused) const
{
    xkb_keymap_unref(unused);
}

void ServerKeymap::Free::operator()(xkb_state* unused) const
{
    xkb_state_unref(unused);
}

ServerKeymap::ServerKeymap(Display* xDisplay, xcb_connection_t* connection)
    : display(xDisplay)
    , context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    // What the server's keymap lacks by xkbcommon's view is no concern of this program.
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    const int device = xkb_x11_get_core_keyboard_device_id(connection);
    keymap.reset(xkb_x11_keymap_new_from_device(
        context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (keymap)
        state.reset(xkb_state_new(keymap.get()));
    xkb.reset(XkbGetMap(display, XkbAllClientInfoMask, x11::coreKeyboard));
    if (xkb)
        XkbGetNames(display, XkbKeyTypeNamesMask | XkbVirtualModNamesMask, xkb.get());
}

ServerKeymap::~ServerKeymap() = default;

int ServerKeymap::groupCount() const
{
    return static_cast<int>(xkb_keymap_num_layouts(keymap.get()));
}

QList<ShiftMask_t> ServerKeymap::modifierSets() const
{
    QSet<ShiftMask_t> sets{0, x11::shiftMask, x11::lockMask, x11::shiftMask | x11::lockMask};
    QSet<const XkbKeyTypeRec*> used;
    for (int code = xkb->min_key_code; code <= xkb->max_key_code; ++code) {
        for (int group = 0; group < XkbKeyNumGroups(xkb.get(), code); ++group)
            used << XkbKeyKeyType(xkb.get(), code, group);
    }
    for (const XkbKeyTypeRec* type : std::as_const(used)) {
        for (int i = 0; i < type->map_count; ++i) {
            if (type->map[i].active)
                sets << type->map[i].mods.mask;
        }
    }
    QList<ShiftMask_t> sorted = sets.values();
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

quint32 ServerKeymap::keysym(KeyCode keycode, int group, ShiftMask_t modifiers) const
{
    xkb_state_update_mask(
        state.get(), modifiers, 0, 0, 0, 0, static_cast<xkb_layout_index_t>(group));
    return xkb_state_key_get_one_sym(state.get(), keycode);
}

int ServerKeymap::keptGroup(KeyCode keycode, int group) const
{
    return std::clamp(static_cast<int>(XkbKeyNumGroups(xkb.get(), keycode)) - 1, 0, group);
}

const XkbKeyTypeRec* ServerKeymap::typeOf(KeyCode keycode, int group) const
{
    const auto own = effectiveGroup(xkb->map->key_sym_map[keycode].group_info, group);
    return own ? XkbKeyKeyType(xkb.get(), keycode, *own) : nullptr;
}

QString ServerKeymap::typeName(KeyCode keycode, int group) const
{
    const XkbKeyTypeRec* type = typeOf(keycode, group);
    return type ? QString::fromStdString(x11::atomName(display, type->name)) : QString();
}

ShiftMask_t ServerKeymap::typeModifiers(KeyCode keycode, int group) const
{
    const XkbKeyTypeRec* type = typeOf(keycode, group);
    return type ? type->mods.mask : 0;
}

char32_t characterOf(quint32 keysym)
{
    const char32_t character = xkb_keysym_to_utf32(keysym);
    return QChar::isPrint(character) && !QChar::isSpace(character) ? character : U'\0';
}

QString keysymName(quint32 keysym)
{
    std::array<char, 64> name{};
    xkb_keysym_get_name(keysym, name.data(), name.size());
    return QString::fromLatin1(name.data());
}

#include "x11/XkbDescription.h"

#include "x11/X11.h"

namespace {

// Types, compatibility map, symbols, indicators, key names and geometry. Names of other things come
// with the parts that they belong to.
constexpr unsigned int everything = XkbGBN_AllComponentsMask & ~XkbGBN_OtherNamesMask;

bool keyTypesExist(const XkbDescRec& xkb)
{
    const XkbClientMapRec& map = *xkb.map;
    for (int code = xkb.min_key_code; code <= xkb.max_key_code; ++code) {
        const XkbSymMapRec& symbols = map.key_sym_map[code];
        const int groups = XkbNumGroups(symbols.group_info);
        if (groups > XkbNumKbdGroups)
            return false;
        for (int group = 0; group < groups; ++group) {
            if (symbols.kt_index[group] >= map.num_types)
                return false;
        }
    }
    return true;
}

bool symbolsExist(const XkbDescRec& xkb)
{
    const XkbClientMapRec& map = *xkb.map;
    for (int code = xkb.min_key_code; code <= xkb.max_key_code; ++code) {
        const XkbSymMapRec& symbols = map.key_sym_map[code];
        const int count = XkbNumGroups(symbols.group_info) * symbols.width;
        if (count > 0 && (!map.syms || symbols.offset + count > map.num_syms))
            return false;
    }
    return true;
}

bool actionsExist(const XkbDescRec& xkb)
{
    const XkbServerMapRec& server = *xkb.server;
    if (!server.key_acts)
        return true;
    for (int code = xkb.min_key_code; code <= xkb.max_key_code; ++code) {
        if (server.key_acts[code] != 0
            && (!server.acts || server.key_acts[code] >= server.num_acts))
            return false;
    }
    return true;
}

} // namespace

bool isComplete(const XkbDescRec& xkb)
{
    return xkb.geom && xkb.names && xkb.names->keys && xkb.map && xkb.map->types
        && xkb.map->key_sym_map && xkb.server && keyTypesExist(xkb) && symbolsExist(xkb)
        && actionsExist(xkb);
}

// XkbFreeKeyboard does not free the overlays of a geometry's sections.
void FreeXkbDescription::operator()(XkbDescPtr xkb) const
{
    for (int i = 0; xkb->geom && i < xkb->geom->num_sections; ++i) {
        XkbSectionRec& section = xkb->geom->sections[i];
        if (section.overlays)
            XkbFreeGeomOverlays(&section, 0, section.num_overlays, x11::xTrue);
    }
    XkbFreeKeyboard(xkb, XkbAllComponentsMask, x11::xTrue);
}

XkbDescription compileKeyboard(Display* display, const XkbComponentNamesRec& names)
{
    XkbComponentNamesRec wanted = names; // not changed: Xlib asks for a pointer to non-const
    XkbDescription xkb(XkbGetKeyboardByName(
        display, x11::coreKeyboard, &wanted, everything, everything, x11::xFalse));
    if (!xkb || !isComplete(*xkb))
        return nullptr;
    return xkb;
}

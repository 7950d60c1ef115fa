#include "model/LoadedKeyboard.h"
#include "x11/X11.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QList<Atom> atomsOf(const XkbDescRec& xkb)
{
    QList<Atom> atoms{xkb.names->symbols};
    for (const Atom name : xkb.names->vmods)
        atoms << name;
    for (const Atom name : xkb.names->groups)
        atoms << name;
    for (int i = 0; i < xkb.geom->num_doodads; ++i)
        atoms << xkb.geom->doodads[i].any.name;
    for (int t = 0; t < xkb.map->num_types; ++t) {
        const XkbKeyTypeRec& type = xkb.map->types[t];
        for (int level = 0; type.level_names && level < type.num_levels; ++level)
            atoms << type.level_names[level];
    }
    return atoms;
}

// A group that the keymap does not describe goes by its layout, or else by its number.
QStringList groupDescriptionsOf(
    const XkbDescRec& xkb, XDisplayClass& display, const QStringList& layouts, int groupCount)
{
    QStringList names;
    for (int group = 0; group < XkbNumKbdGroups; ++group) {
        const Atom name = xkb.names->groups[group];
        const QString layout = layouts.value(group);
        if (name != x11::none)
            names << display.atomName(name);
        else if (group < groupCount)
            names << (layout.isEmpty() ? QString::number(group + 1) : layout);
    }
    return names;
}

int groupCountOf(XkbDescRec& xkb)
{
    int groups = 1;
    for (int code = xkb.min_key_code; code <= xkb.max_key_code; ++code)
        groups = std::max<int>(groups, XkbKeyNumGroups(&xkb, code));
    return groups;
}

QMap<QString, ShiftMask_t> modifierMasksOf(const XkbDescRec& xkb, XDisplayClass& display)
{
    QMap<QString, ShiftMask_t> masks{
        {u"Shift"_s, x11::shiftMask},
        {u"CapsLock"_s, x11::lockMask},
        {u"Control"_s, x11::controlMask},
    };
    for (int i = 0; i < XkbNumVirtualMods; ++i) {
        const Atom name = xkb.names->vmods[i];
        const ShiftMask_t mask = xkb.server->vmods[i];
        if (name != x11::none && mask != 0)
            masks.insert(display.atomName(name), mask);
    }
    return masks;
}

// The settings come first. The keymap's names fill in for layouts that they do not set, and for all
// of them where the server's own keyboard is shown.
GroupNames labelNamesOf(const KeyboardSettings& settings, GroupNames namesOfKeymap)
{
    if (settings.layout.isEmpty())
        return namesOfKeymap;

    const QStringList layouts = settings.layout.split(u',');
    const QStringList variants = settings.variant.split(u',');
    const qsizetype groups = std::max(layouts.size(), namesOfKeymap.layouts.size());
    namesOfKeymap.layouts.resize(groups);
    namesOfKeymap.variants.resize(groups);
    for (qsizetype i = 0; i < layouts.size(); ++i) {
        namesOfKeymap.layouts[i] = layouts.at(i);
        namesOfKeymap.variants[i] = variants.value(i);
    }
    return namesOfKeymap;
}

} // namespace

std::optional<LoadedKeyboard> loadKeyboard(
    Display* display, const XkbComponentNamesRec& names, const KeyboardSettings& settings)
{
    LoadedKeyboard keyboard;
    keyboard.xkb = compileKeyboard(display, names);
    if (!keyboard.xkb)
        return std::nullopt;

    XkbDescRec& xkb = *keyboard.xkb;
    keyboard.display = std::make_unique<XDisplayClass>(display);
    XDisplayClass& atoms = *keyboard.display;
    atoms.learnAtomNames(atomsOf(xkb));

    const QString symbolsName = atoms.atomName(xkb.names->symbols);
    keyboard.groupLayouts = groupLayoutsOf(symbolsName);
    keyboard.groupCount = groupCountOf(xkb);
    const GroupNames namesOfKeymap = groupNamesOf(symbolsName, keyboard.groupCount);
    keyboard.groupNames =
        groupDescriptionsOf(xkb, atoms, namesOfKeymap.layouts, keyboard.groupCount);
    keyboard.labelNames = labelNamesOf(settings, namesOfKeymap);
    keyboard.modifierMasks = modifierMasksOf(xkb, atoms);
    return keyboard;
}

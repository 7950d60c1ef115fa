#pragma once

#include <QString>
#include <QStringList>

// The layout names in a keymap's symbols name such as "pc+us+de(nodeadkeys)+inet(evdev)": one for
// each group, without variants and without the multimedia part ("inet"). The parts that options add
// ("compose(ralt)") follow as if they were layouts, and a group suffix ("de:2") is kept.
QStringList groupLayoutsOf(const QString& symbolsName);

// The layout and variant of each group, as parallel lists.
struct GroupNames {
    QStringList layouts;
    QStringList variants;
};

// The layout and variant that a keymap's symbols name has for each group: lists of groupCount
// elements, empty for a group that has no layout in the name.
GroupNames groupNamesOf(const QString& symbolsName, int groupCount);

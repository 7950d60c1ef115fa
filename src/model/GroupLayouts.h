#pragma once

#include <QString>
#include <QStringList>

// The layout names in a keymap's symbols name such as "pc+us+de(nodeadkeys)+inet(evdev)", one for
// each group, without variants and without the multimedia part. What options add to the symbols
// name ("compose(ralt)") stays at the end of the list, a group suffix ("de:2") with its name.
QStringList groupLayoutsOf(const QString& symbolsName);

// The layout and variant of each group, as parallel lists.
struct GroupNames {
    QStringList layouts;
    QStringList variants;
};

// What a keymap's symbols name tells of its groups: exactly groupCount elements each, empty where
// it names nothing for a group.
GroupNames groupNamesOf(const QString& symbolsName, int groupCount);

#pragma once

#include <QString>
#include <QStringList>

// One entry of the selector. The three lists are parallel, as is given: element 0 is the primary
// keyboard, element 1 (if any) a secondary one. An element may be a comma-separated XKB list.
struct kbdSpec_t {
    QString name; // the key of the keyboard table, untranslated
    QString displayName;
    QString icon; // file name, relative to the icon directory; also the keyboard's flag
    QStringList models;
    QStringList layouts;
    QStringList variants;
};

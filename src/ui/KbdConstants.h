#pragma once

#include <QIcon>
#include <QSize>
#include <QString>

// Where the installed data lie. The directories end with a slash.
class KbdConstants {
public:
    static const QString layoutDirectory;
    static const QString specTablePath;
    static const QString iconDirectory;

    // The size that icons get in the controls, in device independent pixels: the flags' 4 : 3.
    static constexpr QSize controlIconSize{24, 18};

    // The first of iconDirectory, "./icons/" and "../src/icons/" (a build tree's) followed by
    // fileName that is a readable file; empty when there is none.
    static QString iconPath(const QString& fileName);

    // The file at iconPath as an icon, decoded when it is first drawn; null when there is none.
    static QIcon icon(const QString& fileName);
};

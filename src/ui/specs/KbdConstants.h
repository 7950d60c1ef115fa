#pragma once

#include <QString>

// Where the installed data lie. The directories end with a slash.
class KbdConstants {
public:
    static const QString layoutDirectory;
    static const QString specTablePath;
    static const QString iconDirectory;

    // The first of iconDirectory, "./icons/" and "../src/icons/" (a build tree's) followed by
    // fileName that is a readable file; empty when there is none.
    static QString iconPath(const QString& fileName);
};

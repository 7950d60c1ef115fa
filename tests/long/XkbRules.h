#pragma once

#include "app/description/KeyboardSettings.h"

#include <QList>
#include <QStringList>

// What the installed keyboard data offer, by the lists of the rules "evdev" (evdev.xml and
// evdev.extras.xml).
struct XkbRules {
    QStringList models;
    QList<KeyboardSettings> layouts; // every layout, alone and with each of its variants
    QStringList options;

    // directory holds the lists. Empty where there are none.
    static XkbRules read(const QString& directory);
};

// The settings as setxkbmap takes them, and the options that the server has cleared.
QStringList setxkbmapArguments(const KeyboardSettings& settings);

// In one line, for messages.
QString textOf(const KeyboardSettings& settings);

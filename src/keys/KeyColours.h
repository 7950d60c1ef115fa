#pragma once

#include <QColor>

// The two colour schemes of the picture; the print mode is handed down as one of these numbers.
enum class ColourScheme : unsigned char { OnScreen = 0, OnPaper = 1 };

// What a colour of a key is used for.
enum class KeyColour {
    BodyNormal,
    TopNormal,
    BodyDead,
    TopDead,
    BodyModifier,
    TopModifier,
    BodyPressed,
    TopPressed,
    TextModifierOn,
    TextOffPosition, // a symbol for which the cap with several symbols has no place
    TextDead,
    TextNormal,
};

QColor keyColour(KeyColour use, ColourScheme scheme);

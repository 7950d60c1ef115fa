#pragma once

#include <QColor>

// The two colour schemes of the picture, as values of KbdKey's colour scheme.
enum class ColourScheme : unsigned char { OnScreen = 0, OnPaper = 1 };

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
    TextOffPosition,
    TextDead,
    TextNormal,
};

QColor keyColour(KeyColour use, ColourScheme scheme);

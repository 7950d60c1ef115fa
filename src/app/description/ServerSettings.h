#pragma once

#include "app/description/KeyboardSettings.h"
#include "x11/Types.h"

// The settings of the keyboard that the X server has now, as its rules were given them (the root
// window's property _XKB_RULES_NAMES). All are empty where the property is not set.
KeyboardSettings serverSettings(Display* display);

// The settings of the keyboard that setxkbmap makes of these: a model or layout that is not set is
// the server's, and so is the variant where the layout is.
KeyboardSettings withServerSettings(KeyboardSettings settings, Display* display);

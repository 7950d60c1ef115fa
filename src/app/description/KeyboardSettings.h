#pragma once

#include <QString>

// The four settings that name a keyboard, as setxkbmap takes them. Empty: not set, so that the X
// server's own holds. layout and variant are lists, comma separated, one element for each group;
// options is one, too.
struct KeyboardSettings {
    QString model;
    QString layout;
    QString variant;
    QString options;
};

#pragma once

#include <QString>

// The four settings that name a keyboard, as setxkbmap takes them. An empty one is not set: the X
// server keeps its own. layout and variant are comma-separated lists with one element for each
// group; options is a comma-separated list too.
struct KeyboardSettings {
    QString model;
    QString layout;
    QString variant;
    QString options;
};

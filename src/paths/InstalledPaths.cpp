#include "paths/Paths.h"

const char paths::layoutDirectory[] = "/usr/share/orvix-keyboard-layout/";
const char paths::switcherProgram[] = "/usr/bin/orvix-kbd-switcher";

#include "paths/Paths.h"

// An installed keyboard table would be read instead of the tests' own.
const char paths::layoutDirectory[] = KBD_LAYOUT_DIRECTORY;
const char paths::switcherProgram[] = KBD_SWITCHER_PROGRAM;

#include "paths/Paths.h"

// An installed keyboard table would be read instead of the tests' own, and an installed switcher
// would work on their servers. The file of this name is never made.
const char paths::layoutDirectory[] = KBD_LAYOUT_DIRECTORY;
const char paths::switcherProgram[] = KBD_LAYOUT_DIRECTORY "no-switcher";

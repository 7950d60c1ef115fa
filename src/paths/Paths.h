#pragma once

// Places outside the program that it finds by name. Every executable decides which they are by one
// of two object libraries: kbd_paths_installed, where the packages put things, or, of a test, one
// made by kbd_test_paths (tests/KbdTest.cmake).
namespace paths {

// The keyboard table and, below it, the icons. Ends with a slash.
extern const char layoutDirectory[];

// The platform's keyboard switcher.
extern const char switcherProgram[];

} // namespace paths

#include "switcher/Switcher.h"

#include <cstdio>
#include <exception>

// Loads the keyboard of an on-screen keyboard's window, see Switcher.
int main(int argc, char* argv[])
{
    try {
        Switcher(Arguments::parse({argv + 1, argv + argc})).run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orvix-kbd-switcher: %s\n", error.what());
        return 1;
    }
    return 0;
}

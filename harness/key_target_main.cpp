#include "harness/KeyTarget.h"

#include <clocale>
#include <csignal>
#include <cstdio>
#include <unistd.h>

// Prints the key and focus events of a window of its own, see KeyTarget.
int main(int argc, char* argv[])
{
    if (argc > 3) {
        std::fprintf(stderr, "usage: kbd-key-target [DISPLAY [WIDTHxHEIGHT+X+Y]]\n");
        return 1;
    }
    // What keys type is looked up in the locale's encoding.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::signal(SIGTERM, [](int) { _exit(0); });
    KeyTarget target(argc > 1 ? argv[1] : nullptr, argc > 2 ? argv[2] : "");
    if (!target.isOpen()) {
        std::fprintf(stderr, "kbd-key-target: no display\n");
        return 1;
    }
    target.run();
    return 0;
}

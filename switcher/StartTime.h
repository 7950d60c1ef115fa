#pragma once

#include "x11/Types.h"

#include <cstdint>
#include <optional>
#include <sys/types.h>

// When a program was started, to be compared with others of the same machine.
struct StartTime {
    // Clock ticks since the machine was started; 0 where the system does not tell.
    std::uint64_t ticks = 0;

    // Tells those apart that were started within one tick (10 ms): the system counts upwards.
    pid_t process = 0;

    static StartTime ofThisProcess();

    bool isAfter(const StartTime& other) const;

    // Kept with a window, for other programs to see. Nothing where a window tells of none.
    void tellOn(Display* display, Window window) const;
    static std::optional<StartTime> toldOn(Display* display, Window window);
};

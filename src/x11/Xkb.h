#pragma once

// XKB by way of XCB: requests whose answers are taken later, and the events as they come. One of
// its records has a member by the name of a keyword of C++.

#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
// NOLINTNEXTLINE(readability-identifier-naming)
#define explicit explicitComponents
#include <xcb/xkb.h>
#undef explicit
#ifdef __clang__
#pragma clang diagnostic pop
#endif

#include <cstdint>

namespace x11 {

// Whether the first of two requests of one connection was made before the second. Their numbers
// begin anew after the highest.
constexpr bool isBefore(std::uint32_t first, std::uint32_t second)
{
    return static_cast<std::int32_t>(first - second) < 0;
}

} // namespace x11

#pragma once

// The header of the door: through it the other rooms reach Xlib, XKB, XTest and the X input
// extension, and none of them includes <X11/…> itself. Xlib's macros carry names that Qt and moc
// use as identifiers, so they end here, and the few constants that the program needs come back with
// a type, in Types.h.

#include "x11/Types.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XI2.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XKBgeom.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <cstdlib>
#include <memory>

#undef Above
#undef Always
#undef Below
#undef Bool
#undef Complex
#undef CursorShape
#undef Expose
#undef False
#undef FocusIn
#undef FocusOut
#undef FontChange
#undef GrayScale
#undef KeyPress
#undef KeyRelease
#undef NoSymbol
#undef None
#undef Status
#undef Success
#undef True
#undef Unsorted

namespace x11 {

// The XKB device id of the core keyboard (XKB.h).
inline constexpr unsigned int coreKeyboard = XkbUseCoreKbd;

// For what Xlib allocates and XFree releases.
struct Free {
    void operator()(void* data) const { XFree(data); }
};
template <typename T>
using Owned = std::unique_ptr<T, Free>;

// For the replies that XCB allocates and free releases.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

} // namespace x11

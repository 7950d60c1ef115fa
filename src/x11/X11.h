#pragma once

// The one door to Xlib, XKB, XTest and the X input extension. Everything else includes this header
// and never <X11/…> itself: Xlib's macros carry names that Qt and moc use as identifiers, so they
// end here, and the few constants that the program needs come back with a type.

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

// Core protocol event codes (X.h).
inline constexpr int keyPress = 2;
inline constexpr int keyRelease = 3;

// X booleans and the resource id, atom, keysym and time that mean "none" (X.h).
inline constexpr int xFalse = 0;
inline constexpr int xTrue = 1;
inline constexpr unsigned long none = 0;

// Core modifier bits (X.h).
inline constexpr unsigned char shiftMask = 1;
inline constexpr unsigned char lockMask = 2;
inline constexpr unsigned char controlMask = 4;
inline constexpr unsigned char mod5Mask = 128;

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

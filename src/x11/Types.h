#pragma once

// Xlib's types as far as headers need them, and the X constants of this program, without Xlib's
// macros: a header includes this one, and a source that calls X, or looks into a record, X11.h.
// XKeyEvent and XErrorEvent are not here: Xlib gives these records no tag to declare them by.

// NOLINTBEGIN(bugprone-reserved-identifier,modernize-use-using): the same declarations as Xlib's
typedef struct _XDisplay Display;
typedef union _XEvent XEvent;

typedef unsigned long Atom;
typedef unsigned long Time; // of the X server, in milliseconds
typedef unsigned long Window;
typedef unsigned long KeySym;
typedef unsigned char KeyCode;

typedef struct _XkbComponentNames XkbComponentNamesRec;
typedef struct _XkbDesc XkbDescRec, *XkbDescPtr;
typedef union _XkbDoodad XkbDoodadRec;
typedef union _XkbEvent XkbEvent;
typedef struct _XkbGeometry XkbGeometryRec;
typedef struct _XkbKeyType XkbKeyTypeRec;
typedef struct _XkbShape XkbShapeRec;
typedef struct _XkbStateRec XkbStateRec;
// NOLINTEND(bugprone-reserved-identifier,modernize-use-using)

namespace x11 {

// Core protocol event codes (X.h).
inline constexpr int keyPress = 2;
inline constexpr int keyRelease = 3;
inline constexpr int focusIn = 9;

// X booleans, and the resource id, atom, keysym and time that mean "none" (X.h).
inline constexpr int xFalse = 0;
inline constexpr int xTrue = 1;
inline constexpr unsigned long none = 0;

// Core modifier bits (X.h).
inline constexpr unsigned char shiftMask = 1;
inline constexpr unsigned char lockMask = 2;
inline constexpr unsigned char controlMask = 4;
inline constexpr unsigned char mod5Mask = 128;

} // namespace x11

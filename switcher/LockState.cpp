#include "switcher/LockState.h"

#include "x11/X11.h"

namespace {

constexpr unsigned int allModifiers = 0xff;

// Num Lock is Mod2 on every keyboard of the XKB data.
constexpr unsigned int usersLocks = LockMask | Mod2Mask;

} // namespace

LockState LockState::of(Display* display)
{
    XkbStateRec state{};
    XkbGetState(display, x11::coreKeyboard, &state);
    return {state.locked_mods, state.locked_group};
}

LockState LockState::carriedOn(const LockState& now) const
{
    return {(modifiers & ~usersLocks) | (now.modifiers & usersLocks), group};
}

void LockState::apply(Display* display) const
{
    XkbLockModifiers(display, x11::coreKeyboard, allModifiers, modifiers);
    XkbLockGroup(display, x11::coreKeyboard, group);
}

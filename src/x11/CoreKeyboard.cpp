#include "x11/CoreKeyboard.h"

#include "x11/Queries.h"
#include "x11/ServerGrab.h"
#include "x11/X11.h"

#include <array>

CoreKeyboard::CoreKeyboard(Display* xDisplay)
    : display(xDisplay)
{
}

bool CoreKeyboard::hasXkb() const
{
    return display && x11::queryXkb(display);
}

bool CoreKeyboard::hasXTest() const
{
    return x11::hasXTest(display);
}

int CoreKeyboard::groupCount() const
{
    XkbDescRec answer{};
    answer.device_spec = x11::coreKeyboard;
    const bool isKnown = XkbGetControls(display, XkbGroupsWrapMask, &answer) == 0 && answer.ctrls;
    const int groups = isKnown ? answer.ctrls->num_groups : 0;
    XkbFreeControls(&answer, XkbAllControlsMask, x11::xTrue);
    return groups;
}

std::bitset<256> CoreKeyboard::keysDown() const
{
    constexpr std::size_t bitsOfByte = 8;
    std::array<char, 32> keys{};
    XQueryKeymap(display, keys.data());
    std::bitset<256> down;
    for (std::size_t keycode = 0; keycode < down.size(); ++keycode)
        down[keycode] = (keys.at(keycode / bitsOfByte) >> (keycode % bitsOfByte)) & 1;
    return down;
}

bool CoreKeyboard::hasMouseKeysOn() const
{
    XkbDescRec answer{};
    answer.device_spec = x11::coreKeyboard;
    const bool isKnown =
        XkbGetControls(display, XkbControlsEnabledMask, &answer) == 0 && answer.ctrls;
    const bool isOn = isKnown && (answer.ctrls->enabled_ctrls & XkbMouseKeysMask);
    XkbFreeControls(&answer, XkbAllControlsMask, x11::xTrue);
    return isOn;
}

void CoreKeyboard::setMouseKeys(bool on) const
{
    XkbChangeEnabledControls(
        display, x11::coreKeyboard, XkbMouseKeysMask, on ? XkbMouseKeysMask : 0);
    XFlush(display);
}

void CoreKeyboard::withoutMouseKeys(const std::function<void()>& work) const
{
    const ServerGrab grab(display);
    const bool wereOn = hasMouseKeysOn();
    if (wereOn)
        setMouseKeys(false);
    work();
    if (wereOn)
        setMouseKeys(true);
}

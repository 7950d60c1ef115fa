#include "x11/CoreKeyboard.h"

#include "x11/Queries.h"
#include "x11/X11.h"

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
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    return XTestQueryExtension(display, &event, &error, &major, &minor);
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

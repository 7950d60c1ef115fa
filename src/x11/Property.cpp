#include "x11/Property.h"

#include "x11/X11.h"

namespace x11 {

namespace {

constexpr long mostUnits = 1 << 20; // of 32 bits

Atom atomOf(Display* display, const char* name)
{
    return XInternAtom(display, name, xFalse);
}

Property read(Display* display, Window window, Atom name, int deleteIt)
{
    Atom type = none;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, name, 0, mostUnits, deleteIt, AnyPropertyType, &type,
        &format, &count, &rest, &data);
    const Owned<unsigned char> owned(data);

    Property result;
    if (owned && format == 8)
        result.bytes.assign(reinterpret_cast<const char*>(data), count);
    if (owned && format == 32) { // Xlib gives 32 bits as a long
        const auto* numbers = reinterpret_cast<const unsigned long*>(data);
        result.numbers.assign(numbers, numbers + count);
    }
    return result;
}

} // namespace

Property property(Display* display, Window window, Atom name)
{
    return read(display, window, name, xFalse);
}

Property property(Display* display, Window window, const char* name)
{
    return property(display, window, atomOf(display, name));
}

Property takeProperty(Display* display, Window window, Atom name)
{
    return read(display, window, name, xTrue);
}

std::optional<unsigned long> numberProperty(Display* display, Window window, Atom name)
{
    const Property found = property(display, window, name);
    if (found.numbers.empty())
        return std::nullopt;
    return found.numbers.front();
}

std::optional<unsigned long> numberProperty(Display* display, Window window, const char* name)
{
    return numberProperty(display, window, atomOf(display, name));
}

} // namespace x11

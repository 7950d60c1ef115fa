#include "app/description/ServerSettings.h"

#include <QByteArrayList>

#include <algorithm>

namespace {

constexpr long longestProperty = 1024; // units of four bytes

// The property's five strings: rules, model, layout, variant and options, each with a NUL behind
// it.
QByteArrayList rulesNames(Display* display)
{
    const Atom name = XInternAtom(display, "_XKB_RULES_NAMES", x11::xTrue);
    if (name == x11::none)
        return {};
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), name, 0, longestProperty, x11::xFalse,
        XA_STRING, &type, &format, &count, &left, &data);
    const x11::Owned<unsigned char> owned(data);
    if (!data || format != 8)
        return {};
    return QByteArray(reinterpret_cast<const char*>(data), qsizetype(count)).split('\0');
}

// Of layouts without variants the server may have only the commas between them.
QString withoutLoneCommas(const QString& variants)
{
    const bool isEmpty =
        std::all_of(variants.cbegin(), variants.cend(), [](QChar c) { return c == u','; });
    return isEmpty ? QString() : variants;
}

} // namespace

KeyboardSettings serverSettings(Display* display)
{
    const QByteArrayList names = rulesNames(display);
    return {QString::fromUtf8(names.value(1)), QString::fromUtf8(names.value(2)),
        withoutLoneCommas(QString::fromUtf8(names.value(3))), QString::fromUtf8(names.value(4))};
}

KeyboardSettings withServerSettings(KeyboardSettings settings, Display* display)
{
    const KeyboardSettings own = serverSettings(display);
    if (settings.model.isEmpty())
        settings.model = own.model;
    if (settings.layout.isEmpty() && settings.variant.isEmpty())
        settings.variant = own.variant;
    if (settings.layout.isEmpty())
        settings.layout = own.layout;
    return settings;
}

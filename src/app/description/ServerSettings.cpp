#include "app/description/ServerSettings.h"

#include "x11/Property.h"
#include "x11/X11.h"

#include <QByteArrayList>

#include <algorithm>

namespace {

// The property's five strings: rules, model, layout, variant and options, each with a NUL behind
// it.
QByteArrayList rulesNames(Display* display)
{
    const std::string names =
        x11::property(display, DefaultRootWindow(display), "_XKB_RULES_NAMES").bytes;
    return QByteArray::fromStdString(names).split('\0');
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

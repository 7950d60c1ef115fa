#include "keys/GeometryColours.h"

#include "x11/ColourLookup.h"
#include "x11/X11.h"

namespace {

QColor fromServer(const x11::Colour& colour)
{
    return QColor::fromRgb(colour.red >> 8, colour.green >> 8, colour.blue >> 8);
}

} // namespace

GeometryColours::GeometryColours(Display* display, const XkbGeometryRec& geometry)
{
    std::vector<std::string> unknownNames;
    QList<int> unknownIndices;
    for (int i = 0; i < geometry.num_colors; ++i) {
        const char* name = geometry.colors[i].spec ? geometry.colors[i].spec : "";
        const QLatin1StringView text(name);
        colours << (QColor::isValidColorName(text) ? QColor(text) : QColor());
        if (colours.last().isValid())
            continue;
        unknownNames.emplace_back(name);
        unknownIndices << i;
    }

    const auto answers = x11::lookUpColours(display, unknownNames);
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (answers[i])
            colours[unknownIndices[static_cast<int>(i)]] = fromServer(*answers[i]);
    }

    // libX11 sets base_color to one of the table's records.
    const std::ptrdiff_t base = geometry.base_color ? geometry.base_color - geometry.colors : -1;
    if (base >= 0 && base < colours.size())
        baseColour = colours.at(static_cast<int>(base));
}

#include "keys/KeyColours.h"

#include <array>

namespace {

struct ColourRow {
    KeyColour use;
    QRgb screen;
    QRgb print;
};

constexpr std::array<ColourRow, 12> colours{{
    {KeyColour::BodyNormal, qRgb(34, 34, 34), qRgb(255, 255, 255)},
    {KeyColour::TopNormal, qRgb(68, 68, 68), qRgb(255, 255, 255)},
    {KeyColour::BodyDead, qRgb(34, 68, 68), qRgb(153, 255, 255)},
    {KeyColour::TopDead, qRgb(68, 102, 102), qRgb(204, 255, 255)},
    {KeyColour::BodyModifier, qRgb(68, 68, 68), qRgb(153, 153, 153)},
    {KeyColour::TopModifier, qRgb(102, 102, 102), qRgb(204, 204, 204)},
    {KeyColour::BodyPressed, qRgb(153, 51, 51), qRgb(255, 153, 153)},
    {KeyColour::TopPressed, qRgb(204, 102, 102), qRgb(255, 204, 204)},
    {KeyColour::TextModifierOn, qRgb(255, 51, 51), qRgb(102, 0, 0)},
    {KeyColour::TextOffPosition, qRgb(255, 102, 255), qRgb(102, 0, 102)},
    {KeyColour::TextDead, qRgb(102, 255, 255), qRgb(0, 51, 51)},
    {KeyColour::TextNormal, qRgb(255, 255, 255), qRgb(0, 0, 0)},
}};

constexpr bool rowsStandInEnumOrder()
{
    for (std::size_t i = 0; i < colours.size(); ++i) {
        if (static_cast<std::size_t>(colours[i].use) != i)
            return false;
    }
    return true;
}
static_assert(rowsStandInEnumOrder());

} // namespace

QColor keyColour(KeyColour use, ColourScheme scheme)
{
    const ColourRow& row = colours[static_cast<std::size_t>(use)];
    return {scheme == ColourScheme::OnPaper ? row.print : row.screen};
}

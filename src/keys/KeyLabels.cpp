#include "keys/KeyLabels.h"

#include "keys/KeySymbols.h"
#include "keys/LabelCase.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// The Return key of PC keyboards: where it is tall, most of it is narrow.
constexpr KeyCode returnKeycode = 36;
constexpr double tallReturnFactor = 0.7;

// In the order of CapLevels::Position.
std::array<QPointF, 4> cornersOf(const QRectF& area)
{
    const double left = std::trunc(area.x());
    const double right = std::trunc(area.x() + area.width() / 2);
    const double upper = std::trunc(area.y());
    const double lower = std::trunc(area.height() / 2 + area.y());
    return {{{left, lower}, {left, upper}, {right, lower}, {right, upper}}};
}

} // namespace

// A dead key among several symbols has a ground of its own instead.
CapLook KeyLabels::capLook() const
{
    if (state.pressed || state.heldByUser)
        return CapLook::Pressed;
    if (!state.multipleCharacters && symbols.isDeadKey(symbols.activeSlot(state.currentModifiers)))
        return CapLook::Dead;
    return symbols.isModifier() ? CapLook::Modifier : CapLook::Normal;
}

QList<CapLabel> KeyLabels::labels() const
{
    if (!symbols.hasSymbols())
        return {};
    if (!state.multipleCharacters)
        return {singleLabel()};

    const CapLevels shown = symbols.capLevels();
    if (shown.shows(symbols.activeLevel(state.currentModifiers)))
        return isOneSymbol(shown) ? QList{singleLabel()} : positionedLabels(shown);
    CapLabel offPosition = singleLabel();
    if (offPosition.colour != KeyColour::TextModifierOn)
        offPosition.colour = KeyColour::TextOffPosition;
    return {offPosition};
}

bool KeyLabels::isOneSymbol(const CapLevels& shown) const
{
    if (shown.count() == 1)
        return true;
    const std::optional<int> shift = shown.levels[CapLevels::Shift];
    return shown.count() == 2 && shift
        && symbols.keysym(symbols.slotOf(0)) == symbols.keysym(symbols.slotOf(*shift));
}

double KeyLabels::size() const
{
    const double smaller = std::min(shape.width, shape.height);
    const double size = (0.8 * smaller - 10) / 2.5;
    const bool isTallReturn = shape.height > shape.width && symbols.x11Keycode() == returnKeycode;
    return isTallReturn ? size * tallReturnFactor : size;
}

QRectF KeyLabels::area() const
{
    const double d = KeyCapPainter::border(shape);
    return {d, d / 2, shape.width - 2 * d, shape.height - 2 * d};
}

KeyColour KeyLabels::colour(int slot) const
{
    if (symbols.hasAnyModifierIn(state.currentModifiers))
        return KeyColour::TextModifierOn;
    return symbols.isDeadKey(slot) ? KeyColour::TextDead : KeyColour::TextNormal;
}

CapLabel KeyLabels::singleLabel() const
{
    const QString text = symbols.labelWith(state.currentModifiers);
    const int slot = symbols.activeSlot(state.currentModifiers);
    return {text, text.size() == 1 ? 2 * size() : size(), area(), colour(slot)};
}

QList<CapLabel> KeyLabels::positionedLabels(const CapLevels& shown) const
{
    const QRectF whole = area();
    const std::array<QPointF, 4> corners = cornersOf(whole);
    const QSizeF cell(
        shown.hasThirdLevel() ? whole.width() / 2 : whole.width(), whole.height() / 2);

    QList<CapLabel> labels;
    for (std::size_t position = 0; position < corners.size(); ++position) {
        if (!shown.levels[position])
            continue;
        const int slot = symbols.slotOf(*shown.levels[position]);
        const QString text = withCaseOf(symbols.label(slot), state.currentModifiers);
        labels.append(
            {text, size(), {corners[position], cell}, colour(slot), symbols.isDeadKey(slot)});
    }
    return labels;
}

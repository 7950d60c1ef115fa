#pragma once

#include "keys/KeyCapPainter.h"
#include "keys/KeyState.h"

#include <QList>

class KeySymbols;
struct CapLevels;

// What a key's cap carries: which symbols, where, how large and in what colour. A view of the three
// values, which outlive it; drawing is KeyCapPainter's.
class KeyLabels {
public:
    KeyLabels(const KeySymbols& keySymbols, const KeyShape& keyShape, const KeyState& keyState)
        : symbols(keySymbols)
        , shape(keyShape)
        , state(keyState)
    {
    }

    CapFace face() const { return {capLook(), labels()}; }

    CapLook capLook() const;

    // In the order in which they are drawn: the active symbol alone or, with several characters,
    // those of the positions of CapLevels. None for a key without symbols.
    QList<CapLabel> labels() const;

private:
    double size() const;
    QRectF area() const;
    KeyColour colour(int slot) const;
    CapLabel singleLabel() const;
    QList<CapLabel> positionedLabels(const CapLevels& shown) const;
    bool isOneSymbol(const CapLevels& shown) const;

    const KeySymbols& symbols;
    const KeyShape& shape;
    const KeyState& state;
};

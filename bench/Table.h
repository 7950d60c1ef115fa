#pragma once

#include "Samples.h"

#include <QByteArrayList>

// Figures in aligned columns, as text. Names are ASCII; an empty cell leaves its column blank.
class Table {
public:
    // The headings of the columns after the first.
    Table(const QByteArray& title, const QByteArrayList& headings);

    // The columns: the name, the median of each program, the ratios of ours to the others, and what
    // the first ratio, or our figure itself, should be.
    void addComparison(const QByteArray& name, const Series& figures, const QByteArray& unit,
        const QByteArray& aim = {});

    const QByteArray& text() const { return lines; }

private:
    void addRow(const QByteArray& name, const QByteArrayList& cells);

    // One decimal, and the unit.
    static QByteArray number(double value, const QByteArray& unit);

    QByteArray lines;
};

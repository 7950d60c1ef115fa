#pragma once

#include "Samples.h"

#include <QByteArrayList>

// Figures in aligned columns, as text. Names are ASCII; an empty cell leaves its column blank.
class Table {
public:
    // The headings of the columns after the first.
    Table(const QByteArray& title, const QByteArrayList& headings);

    // Name, medians of ours and of the other, their ratio, and what it should be.
    void addComparison(const QByteArray& name, const Compared& figures, const QByteArray& unit,
        const QByteArray& aim = {});

    const QByteArray& text() const { return lines; }

private:
    void addRow(const QByteArray& name, const QByteArrayList& cells);

    // One decimal, and the unit.
    static QByteArray number(double value, const QByteArray& unit);

    QByteArray lines;
};

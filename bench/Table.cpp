#include "Table.h"

namespace {

constexpr int nameWidth = 44;
constexpr int cellWidth = 14;

} // namespace

Table::Table(const QByteArray& title, const QByteArrayList& headings)
{
    addRow(title, headings);
    lines += QByteArray(nameWidth + cellWidth * headings.size(), '-') + '\n';
}

void Table::addComparison(
    const QByteArray& name, const Compared& figures, const QByteArray& unit, const QByteArray& aim)
{
    addRow(name,
        {number(median(figures.ours), unit), number(median(figures.other), unit),
            QByteArray::number(figures.ratio(), 'f', 2), aim});
}

void Table::addRow(const QByteArray& name, const QByteArrayList& cells)
{
    QByteArray line = name.leftJustified(nameWidth);
    for (const QByteArray& cell : cells)
        line += cell.rightJustified(cellWidth);
    lines += line + '\n';
}

QByteArray Table::number(double value, const QByteArray& unit)
{
    return QByteArray::number(value, 'f', 1) + (unit.isEmpty() ? QByteArray() : ' ' + unit);
}

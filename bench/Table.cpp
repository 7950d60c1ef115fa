#include "Table.h"

namespace {

constexpr int nameWidth = 44;
constexpr int cellWidth = 11;

} // namespace

Table::Table(const QByteArray& title, const QByteArrayList& headings)
{
    addRow(title, headings);
    lines += QByteArray(nameWidth + cellWidth * headings.size(), '-') + '\n';
}

void Table::addComparison(
    const QByteArray& name, const Series& figures, const QByteArray& unit, const QByteArray& aim)
{
    QByteArrayList cells;
    for (const Samples& samples : figures)
        cells << number(median(samples), unit);
    for (std::size_t other = 1; other < figures.size(); ++other)
        cells << QByteArray::number(ratioTo(figures, other), 'f', 2);
    addRow(name, cells << aim);
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

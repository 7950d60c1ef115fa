// The keyboard spec table: whatever the file is, its rows have what the selector takes for granted.

#include "ui/specs/SpecTable.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const SpecRows rows(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    for (const SpecRow& row : rows.all()) {
        const QString fields = row.name + row.icon + row.model + row.layout + row.variant;
        if (row.name.startsWith(QLatin1Char('#')) || fields.contains(QLatin1Char('\t'))
            || fields.contains(QLatin1Char('\n')))
            __builtin_trap();
    }
    return 0;
}

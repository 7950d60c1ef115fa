// The keyboard spec table: whatever the file is, its rows have what the selector takes for granted.

#include "tests/fuzz/FuzzFile.h"
#include "ui/specs/SpecTable.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QTemporaryDir directory;
    static FuzzFile file(directory.filePath(QStringLiteral("kbdSpecs.tab")));
    file.fill(data, size);
    const auto rows = SpecTable::rowsOf(file.path());
    if (!rows)
        __builtin_trap();
    for (const SpecRow& row : rows->all()) {
        const QString fields = row.name + row.icon + row.model + row.layout + row.variant;
        if (row.name.startsWith(QLatin1Char('#')) || fields.contains(QLatin1Char('\t'))
            || fields.contains(QLatin1Char('\n')))
            __builtin_trap();
    }
    return 0;
}

// The names of a geometry's colours: every index of the table has an entry, whatever its name is.

#include "keys/GeometryColours.h"
#include "x11/X11.h"

#include <QByteArrayList>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArrayList names =
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)).split('\n');
    std::vector<XkbColorRec> records;
    for (QByteArray& name : names)
        records.push_back({0, name.isEmpty() ? nullptr : name.data()});
    XkbGeometryRec geometry{};
    geometry.num_colors = static_cast<unsigned short>(records.size());
    geometry.colors = records.data();
    geometry.base_color = size > 0 && data[0] % 2 == 0 ? &records.back() : nullptr;
    const GeometryColours colours(nullptr, geometry);
    for (int i = 0; i < geometry.num_colors; ++i) {
        if (!colours.has(i) || (colours.at(i).isValid() && !geometry.colors[i].spec))
            __builtin_trap();
    }
    if (colours.has(geometry.num_colors) || colours.has(-1))
        __builtin_trap();
    return 0;
}

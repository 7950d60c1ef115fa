// The label of any keysym in any layout, its case, and the composition of any two keys.

#include "keys/KbdLabelTable.h"
#include "keys/LabelCase.h"
#include "ui/DeadKeyTable.h"

#include <cstdint>
#include <cstring>

namespace {

// The next value of the input; 0 where it has ended.
template <typename Value>
Value take(const uint8_t*& data, size_t& size)
{
    Value value{};
    const size_t length = std::min(size, sizeof value);
    std::memcpy(&value, data, length);
    data += length;
    size -= length;
    return value;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const KbdLabelTable labels;
    const auto keysym = take<quint32>(data, size);
    const auto modifiers = take<ShiftMask_t>(data, size);
    const int deadKey = take<int>(data, size);
    const int baseKey = take<int>(data, size);
    const DeadKeyRow* row = DeadKeyTable::find(deadKey, baseKey);
    if (row && (row->deadKey != deadKey || row->baseKey != baseKey))
        __builtin_trap();

    const QString names =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString label = labels.label(
        keysym, names.section(QLatin1Char(','), 0, 0), names.section(QLatin1Char(','), 1));
    if (label.isEmpty() || withCaseOf(label, modifiers).size() != label.size())
        __builtin_trap();
    return 0;
}

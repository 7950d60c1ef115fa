#include "switcher/KeySymRows.h"

#include "x11/X11.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <stdexcept>

namespace {

constexpr int mostKeys = 256;

} // namespace

KeySymRows KeySymRows::of(Display* display, unsigned int device)
{
    KeySymRows rows;
    rows.table = x11::deviceKeysyms(display, device);
    return rows;
}

KeySymRows KeySymRows::takeFrom(ByteReader& bytes)
{
    KeySymRows rows;
    rows.table.firstKey = bytes.take<std::uint8_t>();
    rows.table.width = bytes.take<std::uint8_t>();
    const auto keys = bytes.take<std::uint16_t>();
    if (rows.table.firstKey + keys > mostKeys)
        throw std::invalid_argument("these are no keysyms of keys");
    rows.table.keysyms.resize(std::size_t{keys} * static_cast<std::size_t>(rows.table.width));
    bytes.take(rows.table.keysyms.data(), rows.table.keysyms.size());
    return rows;
}

void KeySymRows::put(ByteWriter& bytes) const
{
    const auto keys = static_cast<std::size_t>(keyCount());
    bytes.put(static_cast<std::uint8_t>(table.firstKey));
    bytes.put(static_cast<std::uint8_t>(table.width));
    bytes.put(static_cast<std::uint16_t>(keys));
    bytes.put(table.keysyms.data(), keys * static_cast<std::size_t>(table.width));
}

std::vector<int> KeySymRows::keysChangedSince(const KeySymRows& earlier) const
{
    std::vector<int> result;
    const int columns = std::max(table.width, earlier.table.width);
    for (int key = table.firstKey; key < table.firstKey + keyCount(); ++key) {
        for (int column = 0; column < columns; ++column) {
            if (keysym(key, column) == earlier.keysym(key, column))
                continue;
            result.push_back(key);
            break;
        }
    }
    return result;
}

void KeySymRows::write(
    Display* display, unsigned int device, const std::vector<int>& keycodes) const
{
    for (const int keycode : keycodes) {
        x11::KeysymTable row{keycode, table.width, {}};
        for (int column = 0; column < table.width; ++column)
            row.keysyms.push_back(keysym(keycode, column));
        x11::setDeviceKeysyms(display, device, row);
    }
}

int KeySymRows::keyCount() const
{
    return table.width > 0 ? static_cast<int>(table.keysyms.size()) / table.width : 0;
}

std::uint32_t KeySymRows::keysym(int keycode, int column) const
{
    const std::ptrdiff_t index = std::ptrdiff_t{keycode - table.firstKey} * table.width + column;
    const bool exists = column < table.width && index >= 0 && index < std::ssize(table.keysyms);
    return exists ? table.keysyms[static_cast<std::size_t>(index)] : 0;
}

#include "switcher/KeySymRows.h"

#include "x11/X11.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

KeySymRows KeySymRows::of(Display* display)
{
    KeySymRows rows;
    int lastKey = 0;
    XDisplayKeycodes(display, &rows.firstKey, &lastKey);
    const int count = lastKey - rows.firstKey + 1;
    const x11::Owned<KeySym> mapping(
        XGetKeyboardMapping(display, static_cast<KeyCode>(rows.firstKey), count, &rows.width));
    if (mapping)
        rows.keysyms.assign(mapping.get(), mapping.get() + std::ptrdiff_t{count} * rows.width);
    return rows;
}

std::vector<int> KeySymRows::keysChangedSince(const KeySymRows& earlier) const
{
    std::vector<int> result;
    const int columns = std::max(width, earlier.width);
    const int keys = width > 0 ? static_cast<int>(keysyms.size()) / width : 0;
    for (int key = firstKey; key < firstKey + keys; ++key) {
        for (int column = 0; column < columns; ++column) {
            if (keysym(key, column) == earlier.keysym(key, column))
                continue;
            result.push_back(key);
            break;
        }
    }
    return result;
}

void KeySymRows::write(Display* display, const std::vector<int>& keys) const
{
    for (const int key : keys) {
        std::vector<KeySym> row;
        row.reserve(static_cast<std::size_t>(width));
        for (int column = 0; column < width; ++column)
            row.push_back(keysym(key, column));
        XChangeKeyboardMapping(display, key, width, row.data(), 1);
    }
}

KeySym KeySymRows::keysym(int key, int column) const
{
    const std::ptrdiff_t index = std::ptrdiff_t{key - firstKey} * width + column;
    const bool exists = column < width && index >= 0 && index < std::ssize(keysyms);
    return exists ? keysyms[static_cast<std::size_t>(index)] : x11::none;
}

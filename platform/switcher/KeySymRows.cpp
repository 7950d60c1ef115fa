#include "KeySymRows.h"

#include <algorithm>

KeySymRows KeySymRows::of(Display* display)
{
    KeySymRows rows;
    int lastKey = 0;
    XDisplayKeycodes(display, &rows.m_firstKey, &lastKey);
    const int count = lastKey - rows.m_firstKey + 1;
    const x11::Owned<KeySym> keysyms(
        XGetKeyboardMapping(display, static_cast<KeyCode>(rows.m_firstKey), count, &rows.m_width));
    if (keysyms)
        rows.m_keysyms.assign(keysyms.get(), keysyms.get() + count * rows.m_width);
    return rows;
}

std::vector<int> KeySymRows::keysChangedSince(const KeySymRows& earlier) const
{
    std::vector<int> result;
    const int width = std::max(m_width, earlier.m_width);
    const int keys = m_width > 0 ? static_cast<int>(m_keysyms.size()) / m_width : 0;
    for (int key = m_firstKey; key < m_firstKey + keys; ++key) {
        for (int column = 0; column < width; ++column) {
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
        for (int column = 0; column < m_width; ++column)
            row.push_back(keysym(key, column));
        XChangeKeyboardMapping(display, key, m_width, row.data(), 1);
    }
}

KeySym KeySymRows::keysym(int key, int column) const
{
    const auto index = static_cast<std::size_t>((key - m_firstKey) * m_width + column);
    return column < m_width && index < m_keysyms.size() ? m_keysyms[index] : x11::none;
}

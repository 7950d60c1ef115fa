#pragma once

#include "LinkedDirectory.h"

// A directory of XKB data for a server of its own, in which the usual keyboard has as many keys as
// asked for, in rows of the same square key.
//
// A keymap has at most 255 key codes and 255 aliases of their names, and of keys with one name a
// picture shows the last. So 175 keys have symbols: those of Shift, and of the letters over and
// over. The others have no key code and are blank. Both kinds are mixed in every row.
class ManyKeys {
public:
    // Throws std::runtime_error when the data cannot be copied.
    explicit ManyKeys(int keyCount);

    QString path() const { return data.path(); }

private:
    LinkedDirectory data;
};

#pragma once

#include "keys/DrawnCap.h"
#include "x11/Types.h"

#include <QList>

#include <map>

class KbdKey;

// The caps that a picture has drawn, for the picture that follows it: that one draws only those
// that look different.
class DrawnCaps {
public:
    // Takes them from the keys, which have to draw them anew then.
    explicit DrawnCaps(const QList<KbdKey*>& keys);

    // Gives each to the key of the same key code, if there is one. This is empty then.
    void giveTo(const QList<KbdKey*>& keys);

private:
    std::map<KeyCode, DrawnCap> caps;
};

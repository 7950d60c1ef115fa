#include "model/DrawnCaps.h"

#include "keys/KbdKey.h"

#include <utility>

DrawnCaps::DrawnCaps(const QList<KbdKey*>& keys)
{
    for (KbdKey* key : keys)
        caps.emplace(key->x11Keycode(), key->takeDrawnCap());
}

void DrawnCaps::giveTo(const QList<KbdKey*>& keys)
{
    for (KbdKey* key : keys) {
        if (auto cap = caps.extract(key->x11Keycode()))
            key->reuse(std::move(cap.mapped()));
    }
    caps.clear();
}

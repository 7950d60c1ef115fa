#include "model/KeyFinder.h"

#include "keys/KbdKey.h"

#include <algorithm>

KeyFinder::KeyFinder(const QList<KbdKey*>& keys)
{
    for (KbdKey* key : keys)
        places.prepend({key->sceneBoundingRect(), key});
    // Of keys with the same z value the one that was added last lies above.
    std::stable_sort(places.begin(), places.end(), [](const Place& one, const Place& other) {
        return one.key->zValue() > other.key->zValue();
    });
}

KbdKey* KeyFinder::keyAt(const QRectF& area) const
{
    const auto found = std::find_if(places.cbegin(), places.cend(), [&](const Place& place) {
        return place.bounds.intersects(area)
            && place.key->shape().intersects(place.key->mapRectFromScene(area));
    });
    return found == places.cend() ? nullptr : found->key;
}

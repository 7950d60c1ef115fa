#pragma once

#include <QList>
#include <QRectF>

class KbdKey;

// Finds the key at a place of the picture. The scene would find it too, but goes through the
// outlines of all that lies there, the keyboard's ground included, while a click waits.
class KeyFinder {
public:
    // The keys are borrowed; their positions and stacking order must not change.
    explicit KeyFinder(const QList<KbdKey*>& keys);

    // The key in front of those whose shape() reaches into the area, which is in units of the
    // scene. Null where there is none: the ground between keys is no key's.
    KbdKey* keyAt(const QRectF& area) const;

private:
    struct Place {
        QRectF bounds; // in the scene
        KbdKey* key;
    };

    QList<Place> places; // the one in front first
};

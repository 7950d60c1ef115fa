#include "model/KeyPresses.h"

#include "keys/KbdKey.h"

#include <QGraphicsView>
#include <QMouseEvent>

#include <algorithm>

namespace {

PressId idOf(const QMouseEvent& event)
{
    return {0, static_cast<std::uint32_t>(event.button()), false};
}

} // namespace

KeyPresses::KeyPresses(QGraphicsView* picture, const QList<KbdKey*>& keys)
    : view(picture)
    , finder(keys)
    , presses(picture->viewport(), this)
{
}

void KeyPresses::mousePressed(const QMouseEvent& event)
{
    if (presses.takeAlreadyDelivered(event))
        return;
    qtButtons |= event.button();
    pressed({idOf(event), event.position().toPoint(), static_cast<Time>(event.timestamp())});
}

void KeyPresses::mouseReleased(const QMouseEvent& event)
{
    if (!(qtButtons & event.button()))
        return;
    qtButtons &= ~event.button();
    time = static_cast<Time>(event.timestamp());
    const std::map<PressId, KbdKey*> before = held;
    for (const auto& [id, key] : before) {
        if (!id.isTouch)
            letGo(id);
    }
}

// There is no event with a time here. Two clicks with equal times would look like auto-repeat, so
// the time counts on.
void KeyPresses::click(KbdKey* key)
{
    ++time;
    key->pressByUser();
    ++time;
    key->releaseByUser();
}

void KeyPresses::releaseAll()
{
    while (!held.empty())
        letGo(PressId(held.begin()->first));
}

void KeyPresses::pressed(const PointerPress& press)
{
    time = press.time;
    letGo(press.id);
    KbdKey* key = keyAt(press.position);
    if (!key)
        return;
    letGoOf(key);
    held.emplace(press.id, key);
    key->pressByUser();
}

void KeyPresses::moved(const PointerPress& press)
{
    const auto holding = held.find(press.id);
    if (holding == held.end())
        return;
    const KbdKey* key = holding->second;
    time = press.time;
    if (!key->contains(key->mapFromScene(view->mapToScene(press.position))))
        letGo(press.id);
}

void KeyPresses::released(const PressId& id, Time releaseTime)
{
    if (!held.contains(id))
        return;
    time = releaseTime;
    letGo(id);
}

void KeyPresses::letGo(const PressId& id)
{
    const auto holding = held.find(id);
    if (holding == held.end())
        return;
    KbdKey* key = holding->second;
    held.erase(holding);
    key->releaseByUser();
}

// The pixel belongs to the key that has a part of it, however small.
KbdKey* KeyPresses::keyAt(const QPoint& position) const
{
    const QRectF pixel(position, QSizeF(1, 1));
    return finder.keyAt(view->viewportTransform().inverted().mapRect(pixel));
}

// Two fingers on one key type it twice.
void KeyPresses::letGoOf(const KbdKey* key)
{
    const auto holding = std::find_if(
        held.begin(), held.end(), [key](const auto& each) { return each.second == key; });
    if (holding != held.end())
        letGo(PressId(holding->first));
}

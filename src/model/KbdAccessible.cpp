#include "model/KbdAccessible.h"

#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "model/KeyAccessible.h"

#include <algorithm>

namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    if (auto* view = qobject_cast<KbdGeometry*>(object))
        return new KbdAccessible(view);
    auto* key = qobject_cast<KbdKey*>(object);
    return key && qobject_cast<KbdGeometry*>(key->parent()) ? new KeyAccessible(key) : nullptr;
}

bool isReadBefore(const KbdKey* a, const KbdKey* b)
{
    return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
}

} // namespace

KbdAccessible::KbdAccessible(KbdGeometry* geometry)
    : QAccessibleWidget(geometry, QAccessible::Grouping, tr("Keyboard"))
{
}

void KbdAccessible::install()
{
    QAccessible::installFactory(makeInterface);
}

// Null while the base classes of the view are being destroyed.
KbdGeometry* KbdAccessible::view() const
{
    return qobject_cast<KbdGeometry*>(object());
}

QList<KbdKey*> KbdAccessible::keys() const
{
    QList<KbdKey*> result = view() ? view()->keyItems() : QList<KbdKey*>();
    result.removeIf([](const KbdKey* key) { return key->symbols().groupCount() == 0; });
    std::sort(result.begin(), result.end(), isReadBefore);
    return result;
}

int KbdAccessible::childCount() const
{
    return static_cast<int>(keys().size());
}

QAccessibleInterface* KbdAccessible::child(int index) const
{
    return QAccessible::queryAccessibleInterface(keys().value(index));
}

int KbdAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    return child ? static_cast<int>(keys().indexOf(qobject_cast<KbdKey*>(child->object()))) : -1;
}

QAccessibleInterface* KbdAccessible::childAt(int x, int y) const
{
    if (!view())
        return nullptr;
    const QPoint point = view()->viewport()->mapFromGlobal(QPoint(x, y));
    const QList<QGraphicsItem*> items =
        view()->viewport()->rect().contains(point) ? view()->items(point) : QList<QGraphicsItem*>();
    for (QGraphicsItem* item : items) {
        auto* key = dynamic_cast<KbdKey*>(item);
        if (key && key->symbols().groupCount() != 0)
            return QAccessible::queryAccessibleInterface(key);
    }
    return nullptr;
}

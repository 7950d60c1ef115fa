#include "model/KeyAccessible.h"

#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "model/SpokenName.h"

namespace {

QString nameWith(const KeySymbols& symbols, ShiftMask_t modifiers)
{
    return spokenName(symbols.keysymWith(modifiers), symbols.labelWith(modifiers));
}

} // namespace

KeyAccessible::KeyAccessible(KbdKey* accessibleKey)
    : QAccessibleObject(accessibleKey)
{
}

// Null while the key is being destroyed.
KbdKey* KeyAccessible::key() const
{
    return qobject_cast<KbdKey*>(object());
}

KbdGeometry* KeyAccessible::view() const
{
    return key() ? qobject_cast<KbdGeometry*>(key()->parent()) : nullptr;
}

QAccessibleInterface* KeyAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(view());
}

QWindow* KeyAccessible::window() const
{
    return parent() ? parent()->window() : nullptr;
}

QString KeyAccessible::text(QAccessible::Text kind) const
{
    if (!key())
        return {};
    if (kind == QAccessible::Name)
        return nameWith(key()->symbols(), key()->state().currentModifiers);
    return kind == QAccessible::Description ? description() : QString();
}

QString KeyAccessible::description() const
{
    const KeySymbols& symbols = key()->symbols();
    const ShiftMask_t modifiers = key()->state().currentModifiers;
    const QString shifted = nameWith(symbols, modifiers | x11::shiftMask);
    if (shifted != nameWith(symbols, modifiers))
        return tr("with Shift: %1").arg(shifted);
    return tr("key %1").arg(key()->name());
}

QAccessible::Role KeyAccessible::role() const
{
    return key() && key()->symbols().isModifier() ? QAccessible::CheckBox : QAccessible::Button;
}

QAccessible::State KeyAccessible::state() const
{
    QAccessible::State result;
    result.invalid = !view();
    if (result.invalid)
        return result;
    result.invisible = !view()->isVisible();
    result.disabled = !view()->isEnabled();
    result.checkable = key()->symbols().isModifier();
    result.checked = key()->isModifierOn();
    result.pressed = key()->isPhysicallyDown();
    return result;
}

QRect KeyAccessible::rect() const
{
    if (!view())
        return {};
    const QRect area = view()->mapFromScene(key()->sceneBoundingRect()).boundingRect();
    return {view()->viewport()->mapToGlobal(area.topLeft()), area.size()};
}

void* KeyAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return QAccessibleObject::interface_cast(type);
}

QStringList KeyAccessible::actionNames() const
{
    if (key() && key()->symbols().isModifier())
        return {toggleAction(), pressAction()};
    return {pressAction()};
}

void KeyAccessible::doAction(const QString& actionName)
{
    if (view() && view()->isEnabled() && actionNames().contains(actionName))
        view()->click(key());
}

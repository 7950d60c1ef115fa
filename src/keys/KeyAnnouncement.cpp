#include "keys/KeyAnnouncement.h"

#include "keys/KbdKey.h"

KeyAnnouncement::KeyAnnouncement(KbdKey* changingKey)
    : key(changingKey)
{
    if (QAccessible::isActive() && key->scene())
        before = lookAt(*key);
}

KeyAnnouncement::~KeyAnnouncement()
{
    if (before)
        tellDifference(*before, lookAt(*key));
}

KeyAnnouncement::Symbol KeyAnnouncement::symbolOf(const KeySymbols& symbols, ShiftMask_t modifiers)
{
    return {symbols.keysymWith(modifiers), symbols.labelWith(modifiers)};
}

KeyAnnouncement::Look KeyAnnouncement::lookAt(const KbdKey& key)
{
    const ShiftMask_t now = key.state().currentModifiers;
    return {symbolOf(key.symbols(), now), symbolOf(key.symbols(), now | x11::shiftMask),
        key.isPhysicallyDown(), key.isModifierOn()};
}

void KeyAnnouncement::tellDifference(const Look& was, const Look& is) const
{
    if (was.symbol != is.symbol)
        tell(QAccessible::NameChanged);
    if (was.symbol != is.symbol || was.withShift != is.withShift)
        tell(QAccessible::DescriptionChanged);

    QAccessible::State changed;
    changed.pressed = was.pressed != is.pressed;
    changed.checked = was.modifierOn != is.modifierOn;
    if (!changed.pressed && !changed.checked)
        return;
    QAccessibleStateChangeEvent event(key, changed);
    QAccessible::updateAccessibility(&event);
}

void KeyAnnouncement::tell(QAccessible::Event change) const
{
    QAccessibleEvent event(key, change);
    QAccessible::updateAccessibility(&event);
}

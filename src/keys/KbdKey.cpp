#include "keys/KbdKey.h"

#include "keys/ItemPainting.h"
#include "keys/KeyAnnouncement.h"
#include "keys/KeyCapPainter.h"
#include "keys/KeyDetails.h"
#include "keys/KeyLabels.h"

#include <QGraphicsSceneMouseEvent>

#include <utility>

KbdKey::KbdKey(
    KeyContext keyContext, const QByteArray& keyName, KeyShape shapeOfKey, QObject* parent)
    : QObject(parent)
    , keySymbols(std::move(keyContext), keyName)
    , keyShape(std::move(shapeOfKey))
{
    setFlag(QGraphicsItem::ItemIsFocusable, false);
    setToolTip(KeyDetails::of(keySymbols));
    showState();
}

KeySym KbdKey::activeKeysym() const
{
    return keySymbols.keysymWith(keyState.currentModifiers);
}

QString KbdKey::activeLabel() const
{
    return keySymbols.label(keySymbols.activeSlot(keyState.currentModifiers));
}

void KbdKey::setCurrentModifiers(ShiftMask_t modifiers)
{
    if (modifiers == keyState.currentModifiers)
        return;
    const KeyAnnouncement announcement(this);
    keyState.currentModifiers = modifiers;
    showState();
}

void KbdKey::setMultipleCharacters(bool multiple)
{
    if (multiple == keyState.multipleCharacters)
        return;
    keyState.multipleCharacters = multiple;
    showState();
}

void KbdKey::setSelectedGroup(KeyGroup_t selected)
{
    if (selected == keySymbols.selectedGroup())
        return;
    const KeyAnnouncement announcement(this);
    keySymbols.setSelectedGroup(selected);
    showState();
}

void KbdKey::showState()
{
    CapFace now = KeyLabels(keySymbols, keyShape, keyState).face();
    if (now == face)
        return;
    face = std::move(now);
    update(boundingRect());
}

DrawnCap KbdKey::takeDrawnCap()
{
    return {keyShape, std::exchange(pictures, {})};
}

void KbdKey::reuse(DrawnCap cap)
{
    if (cap.shape == keyShape)
        pictures = std::move(cap.pictures);
}

QRectF KbdKey::boundingRect() const
{
    return {0, 0, keyShape.width, keyShape.height};
}

QPainterPath KbdKey::shape() const
{
    QPainterPath path;
    if (keyShape.outline.isEmpty()) {
        path.addRect(boundingRect());
    } else {
        path.addPolygon(keyShape.outline);
        path.closeSubpath();
    }
    return path;
}

void KbdKey::reportStroke(Stroke stroke, ShiftMask_t modifiers)
{
    const int slot = keySymbols.activeSlot(modifiers);
    QString symbol = keySymbols.symbolLabel(slot);
    QString desc = keySymbols.symbolName(slot);
    emit(this->*stroke)(symbol, desc);
}

void KbdKey::reportModifier(ModifierReport report)
{
    emit(this->*report)(x11Keycode(), keySymbols.keyType(), keySymbols.keyModifiers());
}

void KbdKey::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    pressByUser();
}

// The key is sent before its new look is worked out: the user waits for the letter.
void KbdKey::pressByUser()
{
    if (!keySymbols.hasGroups())
        return;
    reportStroke(&KbdKey::virtualKeyPress, keyState.currentModifiers);
    if (!keySymbols.isModifier())
        emit mouseKeyPressOut(x11Keycode());
    else if (keySymbols.hasLockModifier())
        reportModifier(&KbdKey::modifierPressed);
    else
        toggleModifier();
    setHeldByUser(true);
}

void KbdKey::setHeldByUser(bool held)
{
    keyState.heldByUser = held;
    showState();
}

void KbdKey::toggleModifier()
{
    const bool held = keySymbols.hasAllModifiersIn(keyState.currentModifiers);
    const ModifierReport report = held ? &KbdKey::modifierReleased : &KbdKey::modifierPressed;
    reportModifier(report);
    if (twinKeycode != 0)
        emit(this->*report)(twinKeycode, keySymbols.keyType(), keySymbols.keyModifiers());
}

void KbdKey::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    releaseByUser();
}

void KbdKey::releaseByUser()
{
    if (!keySymbols.hasGroups())
        return;
    reportStroke(&KbdKey::virtualKeyRelease, keyState.currentModifiers);
    if (!keySymbols.isModifier())
        emit mouseKeyReleaseOut(x11Keycode());
    else if (keySymbols.hasLockModifier())
        reportModifier(&KbdKey::modifierReleased);
    setHeldByUser(false);
}

void KbdKey::setPressed(bool down)
{
    const KeyAnnouncement announcement(this);
    keyState.pressed = down;
    showState();
}

void KbdKey::keyPressEventIn(ShiftMask_t modifiers)
{
    if (!keySymbols.hasGroups())
        return;
    setPressed(true);
    if (keySymbols.isModifier())
        reportModifier(&KbdKey::modifierPressed);
    reportStroke(&KbdKey::virtualKeyPress, modifiers);
}

void KbdKey::keyReleaseEventIn(ShiftMask_t modifiers)
{
    if (!keySymbols.hasGroups())
        return;
    if (keySymbols.isModifier())
        reportModifier(&KbdKey::modifierReleased);
    setPressed(false);
    reportStroke(&KbdKey::virtualKeyRelease, modifiers);
}

void KbdKey::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget* widget)
{
    if (!keySymbols.hasGroups())
        return;
    const ItemPainting painting(painter);
    const bool isOnScreen = widget && keyState.colourScheme == ColourScheme::OnScreen;
    if (!isOnScreen)
        return draw(painter);
    pictures.paint(painter, face, KeyCapPainter::drawnArea(keyShape), [this](QPainter* picture) {
        KeyCapPainter(picture, keyShape, keyState.colourScheme).drawPicture(face);
    });
}

void KbdKey::draw(QPainter* painter) const
{
    KeyCapPainter(painter, keyShape, keyState.colourScheme).draw(face);
}

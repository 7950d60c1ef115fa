#pragma once

#include "keys/DrawnCap.h"
#include "keys/KbdTypes.h"
#include "keys/KeyState.h"
#include "keys/KeySymbols.h"
#include "x11/Types.h"

#include <QGraphicsItem>
#include <QObject>

// One key of the picture: draws its cap, turns clicks into key and modifier requests, and shows
// the physical key going down and up.
class KbdKey : public QObject, public QGraphicsItem {
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    // keyName is the key's XKB name, four characters at the most. A name that the keymap does not
    // have makes a key that draws nothing and reports nothing.
    KbdKey(KeyContext keyContext, const QByteArray& keyName, KeyShape shapeOfKey, QObject* parent);

    const KeySymbols& symbols() const { return keySymbols; }
    const KeyState& state() const { return keyState; }

    // 0 for a key that the keymap does not have.
    KeyCode x11Keycode() const { return keySymbols.x11Keycode(); }
    QString name() const { return keySymbols.name(); }

    // The keysym and label that the key shows now; none and empty where it has no symbols.
    KeySym activeKeysym() const;
    QString activeLabel() const;

    // Whether the physical key is down, be the key held on the picture or not.
    bool isPhysicallyDown() const { return keyState.pressed; }

    // Whether a modifier of the key's own is held or locked.
    bool isModifierOn() const { return keySymbols.hasAnyModifierIn(keyState.currentModifiers); }

    // What a press and a release by the user do, be it with a mouse button, a finger or a click of
    // another kind. The cap looks pressed in between. The caller releases every key that it
    // presses.
    void pressByUser();
    void releaseByUser();

    // The same modifier's key on the other side, which a click switches together with this one;
    // 0: none.
    void setTwinKeycode(KeyCode twin) { twinKeycode = twin; }

    // Does not repaint the key.
    void setColourScheme(ColourScheme scheme) { keyState.colourScheme = scheme; }

    // These repaint the key if it looks different then: what is held or locked, whether the cap
    // carries all characters, and the group that the user chose.
    void setCurrentModifiers(ShiftMask_t modifiers);
    void setMultipleCharacters(bool multiple);
    void setSelectedGroup(KeyGroup_t selected);

    // takeDrawnCap moves the pictures of the cap out. reuse takes those of the former picture's
    // key, if that has the same shape; of these, only those with the same transform and face are
    // used.
    DrawnCap takeDrawnCap();
    void reuse(DrawnCap cap);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;

    // On a widget by pictures of the cap as it was drawn before; on anything else, such as paper,
    // the cap is drawn.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public slots:
    // The physical key went down or up; modifiers is the state of the key event.
    void keyPressEventIn(ShiftMask_t modifiers);
    void keyPressEventIn() { keyPressEventIn(0); }
    void keyReleaseEventIn(ShiftMask_t modifiers);
    void keyReleaseEventIn() { keyReleaseEventIn(0); }

signals:
    // A modifier key went down or up. A click on Shift, Control and the like emits one of the two,
    // alternately; one on a lock key emits both, as a physical key does.
    void modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask);
    void modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask);

    // Any key went down or up, physically or by a click. symbol is the label and desc the keysym's
    // name of the symbol that the modifiers select.
    void virtualKeyPress(QString& symbol, QString& desc);
    void virtualKeyRelease(QString& symbol, QString& desc);

    // The mouse button went down or up on an ordinary key, which is to be typed.
    void mouseKeyPressOut(KeyCode x11Keycode);
    void mouseKeyReleaseOut(KeyCode x11Keycode);

protected:
    // Given. KbdGeometry takes the mouse events of its viewport: these come to a key in another
    // view.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void setPressed(bool down);
    void setHeldByUser(bool held);
    void showState();
    void draw(QPainter* painter) const;
    using Stroke = void (KbdKey::*)(QString& symbol, QString& desc);
    void reportStroke(Stroke stroke, ShiftMask_t modifiers);
    using ModifierReport = void (KbdKey::*)(KeyCode keycode, KeyType_t type, ShiftMask_t mask);
    void reportModifier(ModifierReport report);
    void toggleModifier();

    KeySymbols keySymbols;
    KeyShape keyShape;
    KeyState keyState;
    CapFace face; // what the cap shows in this state
    CapPictures pictures;
    KeyCode twinKeycode = 0;
};

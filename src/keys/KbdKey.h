#pragma once

#include "keys/KbdTypes.h"
#include "keys/KeyCapPainter.h"
#include "keys/KeyLevels.h"
#include "keys/KeyShape.h"
#include "x11/Types.h"

#include <QGraphicsItem>
#include <QObject>
#include <QStringList>

class KbdLabelTable;
class KeyDetails;
class XDisplayClass;

// What all keys of a picture share. Everything is borrowed and outlives the keys.
struct KeyContext {
    XDisplayClass* display = nullptr;
    XkbDescPtr xkb = nullptr;
    const KbdLabelTable* labels = nullptr;
    QStringList layoutNames; // one for each group, empty names for unknown ones
    QStringList variantNames; // parallel to layoutNames, may be shorter
    ShiftMask_t momentaryMask = 0; // modifiers whose keys report both going down and going up
};

// One key of the picture: draws its cap, turns clicks into key and modifier requests, and shows
// the physical key going down and up.
class KbdKey : public QObject, public QGraphicsItem {
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    // keyName is the key's XKB name, four characters at the most. A name that the keymap does not
    // have makes a key without key code, which draws nothing and reports nothing.
    KbdKey(KeyContext keyContext, const QByteArray& keyName, KeyShape shapeOfKey, QObject* parent);

    // 0 for a key that the keymap does not have; then there are no groups either.
    KeyCode x11Keycode() const { return keycode; }
    int groupCount() const;

    QString name() const { return xkbName; }

    // What the key does to the modifiers, and to which; 0 and none for an ordinary key.
    KeyType_t keyType() const { return modifierType; }
    ShiftMask_t keyModifiers() const { return modifierMask; }

    // The modifier that the key's first keysym stands for ("Shift", "CapsLock", "LevelThree", …);
    // empty for an ordinary key.
    QString modifierName() const;

    // The keysym and label that the key shows now; none and empty where it has no symbols.
    KeySym activeKeysym() const;
    QString activeLabel() const;

    // The same for modifiers of the caller's, with the case in which the cap shows a letter.
    KeySym keysymWith(ShiftMask_t modifiers) const;
    QString labelWith(ShiftMask_t modifiers) const;

    bool isPressed() const { return pressed; }

    // Whether a modifier of the key's own is held or locked.
    bool isModifierOn() const { return currentModifiers & modifierMask; }

    // The modifiers under which the key shows its symbol.
    ShiftMask_t shownModifiers() const { return currentModifiers; }

    // What the mouse does to the key, for other ways to click it. Each press wants its release.
    void pressByUser();
    void releaseByUser();

    // The key that acts with this modifier key as one: its fellow on the other side; 0: none.
    void setTwinKeycode(KeyCode twin) { twinKeycode = twin; }
    // Does not repaint.
    void setColourScheme(ColourScheme scheme) { colourScheme = scheme; }

    // These repaint the key: what is held or locked, and whether the cap carries all characters.
    void setCurrentModifiers(ShiftMask_t modifiers);
    void setMultipleCharacters(bool multiple);

    // layoutIndex chooses the names for the labels; the group itself stays where the key has no
    // such group.
    void setSelectedGroup(KeyGroup_t selected);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public slots:
    // The physical key went down or up; modifiers is the state of the key event.
    void keyPressEventIn(ShiftMask_t modifiers);
    void keyPressEventIn() { keyPressEventIn(0); }
    void keyReleaseEventIn(ShiftMask_t modifiers);
    void keyReleaseEventIn() { keyReleaseEventIn(0); }

signals:
    // A modifier key went down or up; of a lock key every click tells one, in turn.
    void modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask);
    void modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask);

    // Any key went down or up, physically or by a click: the label and the keysym's name of the
    // symbol that the modifiers select.
    void virtualKeyPress(QString& symbol, QString& desc);
    void virtualKeyRelease(QString& symbol, QString& desc);

    // An ordinary key was clicked: it is to be typed.
    void mouseKeyPressOut(KeyCode x11Keycode);
    void mouseKeyReleaseOut(KeyCode x11Keycode);

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void readKeycode();
    void readAction();
    void readSymbols();
    void makeSlots();
    void readLayout(int layout, KeyDetails& details);
    void readSymbol(int layout, int wrappedGroup, int level);

    bool isModifier() const { return modifierType != 0; }
    bool isMomentary() const { return modifierMask & context.momentaryMask; }
    std::optional<int> shownGroup() const { return wrapped(group); }
    std::optional<int> wrapped(int wanted) const;
    const XkbKeyTypeRec& typeOf(int wrappedGroup) const { return *keyTypes.at(wrappedGroup); }
    int slotOf(int wrappedGroup, int level) const;
    int activeSlot(int wrappedGroup, ShiftMask_t modifiers) const;

    void setPressed(bool down);
    using Stroke = void (KbdKey::*)(QString& symbol, QString& desc);
    void reportStroke(Stroke stroke, ShiftMask_t modifiers);
    void toggleModifier();

    CapLook look(int slot) const;
    double labelSize() const;
    QRectF labelArea() const;
    QString labelOf(int slot) const;
    KeyColour labelColour(int slot, bool offPosition) const;
    void paintLabels(KeyCapPainter& cap, int wrappedGroup, int slot) const;
    void paintSingleLabel(KeyCapPainter& cap, int slot, bool offPosition) const;
    void paintAllLabels(KeyCapPainter& cap, int wrappedGroup, const CapLevels& shown) const;
    bool showsOneSymbol(int wrappedGroup, const CapLevels& shown) const;

    KeyContext context;
    KeyCode keycode = 0;
    KeyCode twinKeycode = 0; // reported with every toggle of this one; 0: none
    unsigned char levelsPerGroup = 0;
    KeyGroup_t group = 0;
    ShiftMask_t level3Mask = x11::mod5Mask;
    int layoutIndex = 0;
    QString xkbName;
    KeyShape keyShape;

    // One element for each slot, which is levelsPerGroup × group + level.
    QList<KeySym> keysyms;
    QStringList symbolNames;
    QStringList symbolLabels;
    QList<bool> deadKey;

    QList<const XkbKeyTypeRec*> keyTypes; // one for each group
    bool multipleCharacters = false;
    bool pressed = false;
    KeyType_t modifierType = 0;
    ShiftMask_t modifierMask = 0;
    ShiftMask_t currentModifiers = 0;
    ColourScheme colourScheme = ColourScheme::OnScreen;
};

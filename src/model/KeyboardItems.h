#pragma once

#include "app/description/KeyboardSettings.h"
#include "keys/KbdTypes.h"
#include "model/ModifierState.h"
#include "x11/Types.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QRect>

#include <memory>

class GeometryColours;
class KbdDoodad;
class KbdKey;
class KbdLabelTable;
class QGraphicsItem;
class QGraphicsRectItem;
class QGraphicsScene;
class QGraphicsTextItem;
struct KeyContext;
struct KeyPlacement;
struct LoadedKeyboard;
struct PictureBounds;

// The items of a keyboard's picture: its keys, doodads, captions and background. Makes them, puts
// them into a scene, owns them and finds them.
class KeyboardItems {
    Q_DECLARE_TR_FUNCTIONS(KbdGeometry) // under this name the translations have the captions

public:
    // The keyboard and the scene are borrowed and outlive the items; the scene's parent, the view,
    // becomes the QObject parent of the keys and doodads. lockModifiers: those of the lock keys.
    // The scene gets the size of the picture, in tenths of a millimetre.
    KeyboardItems(
        const LoadedKeyboard& loadedKeyboard, ShiftMask_t lockModifiers, QGraphicsScene* scene);

    // Adds the captions below the keyboard. To be called once.
    void addCaptions(const KeyboardSettings& settings);

    // Takes the items out of the scene and deletes them.
    ~KeyboardItems();
    Q_DISABLE_COPY(KeyboardItems)

    // Every key in the order of their XKB names, every doodad in the order of the geometry.
    const QList<KbdKey*>& allKeys() const { return keys; }
    const QList<KbdDoodad*>& allDoodads() const { return doodads; }

    // Null where the picture has none.
    KbdKey* keyOf(KeyCode keycode) const { return keysByKeycode.value(keycode); }
    KbdDoodad* indicatorOf(Lock lock) const;

    // Whether the doodad is to hold the layout's flag.
    bool isFlag(const KbdDoodad* doodad) const { return flags.contains(doodad); }

private:
    void readKeyAliases();
    void addDoodads(PictureBounds& bounds);
    void addDoodad(const XkbDoodadRec& record);
    void findPurpose(KbdDoodad* doodad, const QString& name);
    void addKeys(const QMap<QByteArray, KeyPlacement>& placements, ShiftMask_t lockModifiers);
    void addKey(const KeyContext& context, const QByteArray& name, const KeyPlacement& place);
    void pairModifierKeys();
    void addBackground(const PictureBounds& bounds);
    QGraphicsTextItem* addCaption(const QString& text, const QPoint& place);

    const LoadedKeyboard& keyboard;
    QGraphicsScene* keyboardScene;
    std::unique_ptr<KbdLabelTable> labelTable; // lent to the keys
    std::unique_ptr<GeometryColours> colours; // lent to the doodads
    QHash<QByteArray, QByteArray> keyAliases; // real key name by alias
    QList<KbdKey*> keys;
    QList<KbdDoodad*> doodads;
    QList<const KbdDoodad*> flags;
    QHash<KeyCode, KbdKey*> keysByKeycode;
    KbdDoodad* numLockIndicator = nullptr;
    KbdDoodad* capsLockIndicator = nullptr;
    KbdDoodad* scrollLockIndicator = nullptr;

    // Made once and never changed: they are kept to be deleted in the order that is given.
    QGraphicsTextItem* modelText = nullptr;
    QGraphicsTextItem* layoutText = nullptr;
    QGraphicsTextItem* variantText = nullptr;
    QGraphicsTextItem* optionsText = nullptr;
    QGraphicsRectItem* background = nullptr;
};

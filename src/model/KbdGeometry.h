#pragma once

#include "app/description/XDisplayClass.h"
#include "keys/KbdTypes.h"
#include "keys/KeyColours.h"
#include "model/GroupLayouts.h"
#include "model/KeyPlacement.h"
#include "model/XkbDescription.h"

#include <QGraphicsView>
#include <QHash>
#include <QList>
#include <QMap>
#include <QStringList>

#include <functional>
#include <memory>

class CoreKeyboard;
class GeometryColours;
class KbdDoodad;
class KbdKey;
class KbdLabelTable;
class KeySender;
class QGraphicsRectItem;
class QGraphicsTextItem;
struct KeyContext;

// The keyboard model and its picture: loads a keyboard from the X server, draws it, follows the
// modifiers, locks and group of the real one, and types the keys that are clicked.
// Scene units are tenths of a millimetre.
class KbdGeometry : public QGraphicsView {
    Q_OBJECT

public:
    enum ExceptionType {
        NoXkb = 1, // the server has no X Keyboard Extension
        NoDescription = 2, // it gives no keyboard, or none with a geometry, for these names
    };

    // The settings are shown as captions; layout and variant, comma separated, also choose the
    // language of the labels. names is only read. wantXTest: clicked keys go through XTest where
    // the server has it, else as events sent to the focused window.
    // Throws ExceptionType.
    KbdGeometry(QString model, QString layout, QString variant, QString options,
        XkbComponentNamesRec* names, bool wantXTest, QWidget* parent);
    ~KbdGeometry() override;
    Q_DISABLE_COPY(KbdGeometry)

    // The keymap's descriptions of its groups, untranslated, one for each group.
    QStringList groupNames() const;

    // The layout names in the keymap's symbols name.
    QStringList groupLayouts() const { return layoutsOfGroups; }

    // Every key in the order of their XKB names, and every doodad in that of the geometry; owned by
    // this view.
    QList<KbdKey*> keyItems() const { return keys; }
    QList<KbdDoodad*> doodadItems() const { return doodads; }

    // Presses and releases a key of this view as a click of the mouse does.
    void click(KbdKey* key);

    // The modifiers that are held or locked, and the group that is shown (from 0).
    ShiftMask_t modifiers() const { return modifierState; }
    KeyGroup_t group() const { return groupNum; }

    // 1 takes the colours for paper, 0 those for the screen. Does not repaint.
    void setPrintMode(quint8 print);

    // Tells when another program, or a key, has locked another group of this keyboard in the server
    // and the picture has followed. The receiver is called on the main thread.
    using GroupObserver = std::function<void(KeyGroup_t)>;
    void observeGroup(GroupObserver observer) { groupObserver = std::move(observer); }

    // The group to begin with: that locked in the server when this keyboard was loaded, unless the
    // server has another keyboard.
    KeyGroup_t firstGroup() const;

    // The physical keyboard is out of sight from now on: keys shown as pressed are let go.
    void releasePhysicalKeys();

    // Width by height, in units of the scene.
    QSizeF pictureSize() const { return sceneRect().size(); }

signals:
    // A key of the picture went down or up, physically or by a click: its label and the name of its
    // keysym.
    void virtualKeyPress(QString& symbol, QString& desc);
    void virtualKeyRelease(QString& symbol, QString& desc);

    // For the doodad that holds the layout's flag: a file name relative to its directory; empty for
    // none.
    void newFlagFilename(QString filename);

    // With every change of the view's size: how many pixels of the screen one unit has.
    void newScale(qreal scale);

public slots:
    // The caps carry all their characters, or the active one only.
    void setMultishiftDisplay(bool isMulti);

    // Shows this group and locks it in the server.
    void setGroupNum(KeyGroup_t groupNum);

    // Type the key, with the modifiers that are held on the picture. Without the XTest extension it
    // is sent to the window that has the focus.
    void synthesizeKeyPress(KeyCode x11Keycode);
    void synthesizeKeyRelease(KeyCode x11Keycode);

    // A physical key went down or up; one that the picture does not have changes nothing. The event
    // is borrowed and read during the call only.
    void x11KeyPressEventIn(XKeyEvent* event);
    void x11KeyReleaseEventIn(XKeyEvent* event);

    // The server has another keyboard: the group shown is locked in it again. The picture stays.
    void x11NewKbdEventIn();

    // Takes the server's locks over, and its group where its keyboard has as many as this one.
    void x11LockStateChangedIn();

    // Relative to the flag's directory; empty takes the flag away.
    void setFlagFilename(QString filename);

    // Works the modifiers out anew from the keys held on the picture and shows them on every key.
    // After a lock key (XkbSA_LockMods) with this mask, its lock also goes to the server, unless it
    // comes from there, and its lamp is switched.
    void adjustModifierState(KeyType_t type, ShiftMask_t mask);

    // A modifier key of the picture went down or up, physically or by a click. A lock changes with
    // every press; its release does nothing.
    void modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask);
    void modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask);

    // A key's report, which goes on as virtualKeyPress and virtualKeyRelease.
    void gotVirtualKeyPress(QString& symbol, QString& desc);
    void gotVirtualKeyRelease(QString& symbol, QString& desc);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void setUpView();
    void loadKeyboard(const QStringList& captions, const XkbComponentNamesRec& names);
    void openDisplay();
    void learnAtomNames();
    void readModifiers();
    void readKeyAliases();
    void readGroupLayouts(const QString& layout, const QString& variant);
    void addDoodads();
    void addDoodad(const XkbDoodadRec& record);
    void connectDoodad(KbdDoodad* doodad, const QString& name);
    void addKeys();
    void addKey(const KeyContext& context, const QByteArray& name, const KeyPlacement& place);
    void connectKey(const KbdKey* key) const;
    void pairModifierKeys();
    void addBackground();
    void addCaptions(const QStringList& captions);
    QGraphicsTextItem* addCaption(const QString& text, int x, int y);
    void lightIndicators();

    QByteArray keymapNameOf(const QByteArray& geometryName) const;
    int keymapGroupCount() const;
    QString symbolsName() const;
    void fitPicture();
    ShiftMask_t maskOf(const QString& modifier);
    bool serverHasThisManyGroups() const;
    void followLocks(ShiftMask_t locked);
    void followGroup(KeyGroup_t locked);
    void showGroup(KeyGroup_t group);
    ShiftMask_t heldModifiers() const;
    QList<KeyCode> modifierKeysToPress() const;
    QList<KeyCode> unnamedKeysHolding(ShiftMask_t modifiers) const;
    void switchIndicator(ShiftMask_t mask);
    void sendEvent(int type, KeyCode keycode);

    std::unique_ptr<const CoreKeyboard> server;
    std::unique_ptr<XDisplayClass> xDisplay;
    XkbDescription xkb;
    std::unique_ptr<GeometryColours> colours;
    QGraphicsScene* keyboardScene;
    KeyGroup_t groupNum = 0;
    std::unique_ptr<KbdLabelTable> labelTable;
    QHash<QByteArray, QByteArray> keyAliases; // real key name by alias
    QList<KbdKey*> keys; // owned; in the order of their names
    QList<KbdDoodad*> doodads; // owned; in the order of the geometry
    QGraphicsTextItem* modelText = nullptr;
    QGraphicsTextItem* layoutText = nullptr;
    QGraphicsTextItem* variantText = nullptr;
    QGraphicsTextItem* optionsText = nullptr;
    QGraphicsRectItem* background = nullptr;
    QHash<KeyCode, KbdKey*> keysByKeycode;
    ShiftMask_t modifierState = 0;
    ShiftMask_t lockModifiers = 0;
    QMap<QString, ShiftMask_t> modifierMasks; // real modifiers by modifier name
    QMap<QString, KeyCode> modifierKeycodes; // by modifier name; 0 where the picture has no key
    // By the modifier key of the picture; a lock that has none stands under a number below every
    // key code.
    QHash<KeyCode, ShiftMask_t> pressedModifiers;
    // The picture takes over a lock that the server has already. Written back, it would undo what
    // the user has done there since.
    bool followsServer = false;
    KbdDoodad* numLockIndicator = nullptr;
    KbdDoodad* capsLockIndicator = nullptr;
    KbdDoodad* scrollLockIndicator = nullptr;
    QStringList layoutsOfGroups;
    GroupNames labelNames; // layout and variant whose labels each group wears
    KeyPlacements placements;
    bool useXTest = false;
    std::unique_ptr<KeySender> sender;
    GroupObserver groupObserver;
    KeyGroup_t groupAtLoad = 0; // locked in the server
    Time lastInputTime = 0; // server time of the last mouse event, in milliseconds
};

#pragma once

#include "keys/KbdTypes.h"
#include "model/ModifierState.h"
#include "x11/X11.h"

#include <QGraphicsView>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

class CoreKeyboard;
class FollowedKeyboard;
class KbdDoodad;
class KbdKey;
class KeyboardItems;
class KeyPresses;
class KeySender;
struct KeyboardSettings;
struct LoadedKeyboard;

// The picture of a keyboard: shows the keyboard that the X server gives, follows the modifiers,
// locks and group of the real one, and has the keys typed that are clicked.
// Scene units are tenths of a millimetre. Signals and slots, their order, and the names that end in
// In and Out are given.
class KbdGeometry : public QGraphicsView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(KbdGeometry)

public:
    enum ExceptionType {
        NoXkb = 1, // the server has no X Keyboard Extension
        NoDescription = 2, // it gives no keyboard, or none with a geometry, for these names
    };

    // The settings are shown as captions; layout and variant also choose the language of the
    // labels. wantXTest: clicked keys go through XTest where the server has it, else as events sent
    // to the focused window. Throws ExceptionType.
    KbdGeometry(const KeyboardSettings& settings, const XkbComponentNamesRec& names, bool wantXTest,
        QWidget* parent);

    // The same with the parameters that are given. names is borrowed and only read.
    KbdGeometry(QString model, QString layout, QString variant, QString options,
        XkbComponentNamesRec* names, bool wantXTest, QWidget* parent);
    ~KbdGeometry() override;

    // The keymap's descriptions of its groups, untranslated, and the layouts of its symbols name.
    QStringList groupNames() const;
    QStringList groupLayouts() const;

    // Owned by this view: the keys in the order of their XKB names, the doodads in the geometry's.
    QList<KbdKey*> keyItems() const;
    QList<KbdDoodad*> doodadItems() const;

    void click(KbdKey* key); // what a click of the mouse does: presses and releases it

    bool holdsKeys() const; // clicked keys are down in the server: their release must not wait
    // Held or locked; and the group that is shown.
    ShiftMask_t modifiers() const { return modifierState.modifiers(); }
    KeyGroup_t group() const { return modifierState.group(); }

    void setPrintMode(quint8 print); // colours: 1 for paper, 0 for the screen. Does not repaint

    // The observer is called on the main thread when another program, or a key, has locked another
    // group of this keyboard in the server and the picture shows it. No signal: those are given.
    using GroupObserver = std::function<void(KeyGroup_t)>;
    void observeGroup(GroupObserver observer) { groupObserver = std::move(observer); }

    // The group locked in the server at the load; the one shown where it has another keyboard.
    KeyGroup_t firstGroup() const;

    // Shows no key as pressed, for a time without key events; and, after a short one, only those
    // that are down still, which it asks the server. True if there are any.
    void releasePhysicalKeys();
    bool releaseKeysThatAreUp();

    QSizeF pictureSize() const { return sceneRect().size(); } // in units of the scene

signals:
    // A key went down or up, physically or by a click: its label and the name of its keysym.
    void virtualKeyPress(QString& symbol, QString& desc);
    void virtualKeyRelease(QString& symbol, QString& desc);
    void newFlagFilename(QString filename); // see setFlagFilename
    void newScale(qreal scale); // after every change of size: pixels of the screen in one unit

public slots:
    void setMultishiftDisplay(bool isMulti); // all characters on the caps, or the active one only
    void setGroupNum(KeyGroup_t groupNum); // shows this group and locks it in the server

    // Press and release the key in the focused window, with the held modifiers around it: through
    // XTest, or by sent events. Under mouse keys a key that would work the pointer goes up at once.
    void synthesizeKeyPress(KeyCode x11Keycode);
    void synthesizeKeyRelease(KeyCode x11Keycode);

    // A key event of the server, of a physical key or of one typed through XTest while our window
    // has the focus. The event is borrowed and read during the call only.
    void x11KeyPressEventIn(XKeyEvent* event);
    void x11KeyReleaseEventIn(XKeyEvent* event);
    void x11NewKbdEventIn(); // another keyboard: locks the group shown in it, the picture stays

    // Takes the server's locks over, and its group where its keyboard has as many as this one.
    void x11LockStateChangedIn();

    // Goes on to the doodad that holds the layout's flag, whose directory the name is relative to;
    // empty takes the flag away.
    void setFlagFilename(QString filename);

    // Works the modifiers out anew from the keys pressed on the picture and shows them on every
    // key. Where the key's type is XkbSA_LockMods, it also locks them in the server, unless a
    // physical key is being reported, and switches the indicator of the mask.
    void adjustModifierState(KeyType_t type, ShiftMask_t mask);

    // A modifier key went down or up, physically or by a click. Of one with the modifier of Caps,
    // Num or Scroll Lock only presses count.
    void modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask);
    void modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask);

    void gotVirtualKeyPress(QString& symbol, QString& desc); // go on as virtualKeyPress, …Release
    void gotVirtualKeyRelease(QString& symbol, QString& desc);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void releaseClickedKeys();
    void load(const KeyboardSettings& settings, const XkbComponentNamesRec& names, bool wantXTest);
    void showModifiers();
    void showGroup(KeyGroup_t group);
    bool serverHasThisManyGroups() const;

    std::unique_ptr<const CoreKeyboard> coreKeyboard;
    std::unique_ptr<FollowedKeyboard> serverState;
    std::unique_ptr<const LoadedKeyboard> keyboard;
    QGraphicsScene* keyboardScene; // a child of this view; outlives the items
    std::unique_ptr<KeyboardItems> keyboardItems; // below what it borrows
    std::unique_ptr<KeyPresses> keyPresses;
    std::unique_ptr<KeySender> sender; // goes before the items and releases what it holds
    ModifierState modifierState;
    KeyGroup_t groupAtLoad = 0; // locked in the server
    bool useXTest = false;
    bool isReportingPhysicalPress = false; // the server has the key's lock already
    GroupObserver groupObserver;
};

#include "model/KbdGeometry.h"

#include "app/description/KeyboardSettings.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdAccessible.h"
#include "model/KeyPresses.h"
#include "model/KeyboardItems.h"
#include "model/LoadedKeyboard.h"
#include "x11/CoreKeyboard.h"
#include "x11/X11.h"
#include "x11/qt/FollowedKeyboard.h"
#include "x11/qt/KeySender.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

void setUp(QGraphicsView& view)
{
    view.setFocusPolicy(Qt::NoFocus);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setFrameShape(QFrame::NoFrame);
    // The window's own background shows through; on paper there is none.
    view.viewport()->setAutoFillBackground(false);
    view.setRenderHints(
        QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

void fitPicture(QGraphicsView& view)
{
    view.fitInView(view.sceneRect(), Qt::KeepAspectRatio);
}

void connectKey(const KbdKey* key, KbdGeometry* view)
{
    using View = KbdGeometry;
    QObject::connect(key, &KbdKey::modifierPressed, view, &View::modifierPressed);
    QObject::connect(key, &KbdKey::modifierReleased, view, &View::modifierReleased);
    QObject::connect(key, &KbdKey::virtualKeyPress, view, &View::gotVirtualKeyPress);
    QObject::connect(key, &KbdKey::virtualKeyRelease, view, &View::gotVirtualKeyRelease);
    QObject::connect(key, &KbdKey::mouseKeyPressOut, view, &View::synthesizeKeyPress);
    QObject::connect(key, &KbdKey::mouseKeyReleaseOut, view, &View::synthesizeKeyRelease);
}

void connectItems(const KeyboardItems& items, KbdGeometry* view)
{
    for (const KbdKey* key : items.allKeys())
        connectKey(key, view);
    for (const KbdDoodad* doodad : items.allDoodads()) {
        QObject::connect(view, &KbdGeometry::newScale, doodad, &KbdDoodad::setScale);
        if (items.isFlag(doodad))
            QObject::connect(
                view, &KbdGeometry::newFlagFilename, doodad, &KbdDoodad::setFlagFilename);
    }
}

void enterKeys(const KeyboardItems& items, ModifierState& state)
{
    for (const KbdKey* key : items.allKeys())
        state.addKey({key->x11Keycode(), key->symbols().keyType(), key->symbols().modifierName()});
}

void lightIndicators(const KeyboardItems& items, const ModifierState& state)
{
    for (const Lock lock : allLocks) {
        if (KbdDoodad* indicator = items.indicatorOf(lock))
            indicator->setActive(state.isOn(lock));
    }
}

// One indicator only, also where the mask belongs to more than one lock.
void switchIndicator(const KeyboardItems& items, const ModifierState& state, ShiftMask_t mask)
{
    for (const Lock lock : state.locksWith(mask)) {
        if (KbdDoodad* indicator = items.indicatorOf(lock))
            return indicator->setActive(state.modifiers() & mask);
    }
}

// Under mouse keys such a key would press a button at the pointer, which is over the picture.
bool worksPointer(const KbdKey* key, const CoreKeyboard& server)
{
    return key && key->symbols().hasPointerAction() && server.hasMouseKeysOn();
}

} // namespace

KbdGeometry::KbdGeometry( // NOLINT(readability-function-size): the parameters are given
    QString model, QString layout, QString variant, QString options, XkbComponentNamesRec* names,
    bool wantXTest, QWidget* parent)
    : KbdGeometry({model, layout, variant, options}, *names, wantXTest, parent)
{
}

KbdGeometry::KbdGeometry(const KeyboardSettings& settings, const XkbComponentNamesRec& names,
    bool wantXTest, QWidget* parent)
    : QGraphicsView(parent)
    , keyboardScene(new QGraphicsScene(this))
{
    setUp(*this);
    KbdAccessible::install();
    load(settings, names, wantXTest);
    keyPresses = std::make_unique<KeyPresses>(this, keyboardItems->allKeys());
    connectItems(*keyboardItems, this);
    enterKeys(*keyboardItems, modifierState);
    showModifiers();
    lightIndicators(*keyboardItems, modifierState);
    setScene(keyboardScene);
    fitPicture(*this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &KbdGeometry::releaseClickedKeys);
}

// The sender goes before the items: no key may stay pressed in the server whose release can no
// longer come. No repaint is scheduled while the items are deleted.
KbdGeometry::~KbdGeometry()
{
    setViewportUpdateMode(NoViewportUpdate);
}

void KbdGeometry::load(
    const KeyboardSettings& settings, const XkbComponentNamesRec& names, bool wantXTest)
{
    Display* display = toolkitDisplay();
    coreKeyboard = std::make_unique<const CoreKeyboard>(display);
    if (!coreKeyboard->hasXkb())
        throw NoXkb;
    serverState = std::make_unique<FollowedKeyboard>();
    useXTest = wantXTest && coreKeyboard->hasXTest();
    std::optional<LoadedKeyboard> loaded = loadKeyboard(display, names, settings);
    if (!loaded)
        throw NoDescription;
    keyboard = std::make_unique<const LoadedKeyboard>(std::move(*loaded));

    modifierState = ModifierState(keyboard->modifierMasks);
    const KeyboardState state = serverState->state();
    modifierState.startWith(state.lockedModifiers);
    groupAtLoad = state.lockedGroup;
    keyboardItems =
        std::make_unique<KeyboardItems>(*keyboard, modifierState.lockModifierMask(), keyboardScene);
    keyboardItems->addCaptions(settings);
    sender = std::make_unique<KeySender>(display, serverState.get());
}

QStringList KbdGeometry::groupNames() const
{
    return keyboard->groupNames;
}

QStringList KbdGeometry::groupLayouts() const
{
    return keyboard->groupLayouts;
}

// Assistive technology may ask while the items are being made or deleted.
QList<KbdKey*> KbdGeometry::keyItems() const
{
    return keyboardItems ? keyboardItems->allKeys() : QList<KbdKey*>();
}

QList<KbdDoodad*> KbdGeometry::doodadItems() const
{
    return keyboardItems->allDoodads();
}

void KbdGeometry::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    fitPicture(*this);
    emit newScale(viewportTransform().m11());
}

void KbdGeometry::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    keyPresses->watch();
    if (QWindow* handle = window()->windowHandle())
        handle->installEventFilter(this);
}

// Another program may take the window off the screen without Qt hiding it. The window gets every
// release of a button, also one that Qt has no widget for. One over the picture comes once more
// through viewportEvent; KeyPresses has forgotten the button by then and ignores it.
bool KbdGeometry::eventFilter(QObject* watched, QEvent* event)
{
    const auto* handle = qobject_cast<QWindow*>(watched);
    if (handle && event->type() == QEvent::Expose && !handle->isExposed())
        releaseClickedKeys();
    else if (handle && event->type() == QEvent::MouseButtonRelease)
        keyPresses->mouseReleased(*static_cast<QMouseEvent*>(event));
    return QGraphicsView::eventFilter(watched, event);
}

// A button that is down while the picture goes away is never reported as released.
void KbdGeometry::hideEvent(QHideEvent* event)
{
    releaseClickedKeys();
    QGraphicsView::hideEvent(event);
}

void KbdGeometry::releaseClickedKeys()
{
    // The sender first: it waits (XSync) until the server has released the keys.
    sender->releaseAll();
    keyPresses->releaseAll();
}

// Presses go to the keys without the scene, which knows one mouse and no fingers.
bool KbdGeometry::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        keyPresses->mousePressed(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        keyPresses->mouseReleased(*static_cast<QMouseEvent*>(event));
        return true;
    default:
        return QGraphicsView::viewportEvent(event);
    }
}

bool KbdGeometry::holdsKeys() const
{
    return sender->holdsKeys();
}

void KbdGeometry::click(KbdKey* key)
{
    keyPresses->click(key);
}

void KbdGeometry::setPrintMode(quint8 print)
{
    for (KbdKey* key : keyboardItems->allKeys())
        key->setColourScheme(static_cast<ColourScheme>(print));
    for (KbdDoodad* doodad : keyboardItems->allDoodads())
        doodad->setWhite(print);
}

void KbdGeometry::setMultishiftDisplay(bool isMulti)
{
    for (KbdKey* key : keyboardItems->allKeys())
        key->setMultipleCharacters(isMulti);
}

void KbdGeometry::setFlagFilename(QString filename)
{
    emit newFlagFilename(filename);
}

void KbdGeometry::gotVirtualKeyPress(QString& symbol, QString& desc)
{
    emit virtualKeyPress(symbol, desc);
}

void KbdGeometry::gotVirtualKeyRelease(QString& symbol, QString& desc)
{
    emit virtualKeyRelease(symbol, desc);
}

void KbdGeometry::x11KeyPressEventIn(XKeyEvent* event)
{
    if (sender->takeEcho(*event))
        return;
    // A lock is not written back to the server: that would undo what the user has done there since.
    const QScopedValueRollback reporting(isReportingPhysicalPress, true);
    if (KbdKey* key = keyboardItems->keyOf(static_cast<KeyCode>(event->keycode)))
        key->keyPressEventIn(static_cast<ShiftMask_t>(event->state));
}

// If the user also holds the physical key, our release through XTest lifts it in the server. The
// user's own release then brings no event, so the echo of ours counts as that release.
void KbdGeometry::x11KeyReleaseEventIn(XKeyEvent* event)
{
    const bool isEcho = sender->takeEcho(*event);
    KbdKey* key = keyboardItems->keyOf(static_cast<KeyCode>(event->keycode));
    if (key && (!isEcho || key->isPhysicallyDown()))
        key->keyReleaseEventIn(static_cast<ShiftMask_t>(event->state));
}

void KbdGeometry::releasePhysicalKeys()
{
    for (KbdKey* key : keyboardItems->allKeys()) {
        if (key->isPhysicallyDown())
            key->keyReleaseEventIn();
    }
}

bool KbdGeometry::releaseKeysThatAreUp()
{
    QList<KbdKey*> lit = keyboardItems->allKeys();
    lit.removeIf([](const KbdKey* key) { return !key->isPhysicallyDown(); });
    if (lit.isEmpty())
        return false;
    const std::bitset<256> down = coreKeyboard->keysDown();
    const auto isUp = [&](const KbdKey* key) { return !down.test(key->x11Keycode()); };
    for (KbdKey* key : std::as_const(lit)) {
        if (isUp(key))
            key->keyReleaseEventIn();
    }
    return !std::all_of(lit.cbegin(), lit.cend(), isUp);
}

void KbdGeometry::modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask)
{
    modifierState.press(keycode, mask);
    adjustModifierState(type, mask);
}

void KbdGeometry::modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask)
{
    if (modifierState.release(keycode, mask))
        adjustModifierState(type, mask);
}

void KbdGeometry::adjustModifierState(KeyType_t type, ShiftMask_t mask)
{
    modifierState.recompute();
    showModifiers();
    if (type != XkbSA_LockMods)
        return;
    if (!isReportingPhysicalPress)
        serverState->setLocks(modifierState.lockModifierMask(), modifierState.lockedModifiers());
    switchIndicator(*keyboardItems, modifierState, mask);
}

void KbdGeometry::showModifiers()
{
    for (KbdKey* key : keyboardItems->allKeys())
        key->setCurrentModifiers(modifierState.modifiers());
}

void KbdGeometry::x11LockStateChangedIn()
{
    const KeyboardState state = serverState->state();
    if (!modifierState.followLocks(state.lockedModifiers).isEmpty())
        showModifiers();
    // All of them: a click switches one indicator, and may have changed more locks than its own.
    lightIndicators(*keyboardItems, modifierState);

    if (state.lockedGroup == group() || !serverHasThisManyGroups())
        return;
    showGroup(state.lockedGroup);
    if (groupObserver)
        groupObserver(state.lockedGroup);
}

void KbdGeometry::setGroupNum(KeyGroup_t groupNum)
{
    serverState->lockGroup(groupNum);
    showGroup(groupNum);
}

void KbdGeometry::showGroup(KeyGroup_t groupNum)
{
    modifierState.setGroup(groupNum);
    for (KbdKey* key : keyboardItems->allKeys())
        key->setSelectedGroup(groupNum);
}

void KbdGeometry::x11NewKbdEventIn()
{
    serverState->lockGroup(group());
}

KeyGroup_t KbdGeometry::firstGroup() const
{
    return groupAtLoad != 0 && serverHasThisManyGroups() ? groupAtLoad : group();
}

// If not, the server has another keyboard than the one shown, whose groups are others.
bool KbdGeometry::serverHasThisManyGroups() const
{
    return coreKeyboard->groupCount() == keyboard->groupCount;
}

void KbdGeometry::synthesizeKeyPress(KeyCode x11Keycode)
{
    if (!useXTest)
        return sender->sendEvent(
            x11::keyPress, {x11Keycode, modifierState.eventState(), keyPresses->lastTime()});
    const QList<KeyCode> modifierKeys =
        modifierState.keysToPress(serverState->state().downModifiers);
    if (!worksPointer(keyboardItems->keyOf(x11Keycode), *coreKeyboard))
        return sender->pressThroughXTest(x11Keycode, modifierKeys);
    // Released before mouse keys are on again: a key that repeats would work the pointer, too.
    coreKeyboard->withoutMouseKeys([&] { sender->typeThroughXTest(x11Keycode, modifierKeys); });
}

void KbdGeometry::synthesizeKeyRelease(KeyCode x11Keycode)
{
    if (!useXTest)
        return sender->sendEvent(
            x11::keyRelease, {x11Keycode, modifierState.eventState(), keyPresses->lastTime()});
    sender->releaseThroughXTest(x11Keycode);
}

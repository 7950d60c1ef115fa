#include "model/KbdGeometry.h"

#include "app/description/ToolkitDisplay.h"
#include "keys/GeometryColours.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "keys/KbdLabelTable.h"
#include "model/KbdAccessible.h"
#include "model/KeySender.h"
#include "model/ModifierMasks.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGraphicsRectItem>
#include <QGraphicsTextItem>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// All in tenths of a millimetre.
constexpr int backgroundMargin = 20;
constexpr int captionRoom = 80; // below the background
constexpr int captionSize = 60;
constexpr int captionGap = 30;

constexpr double backgroundZ = -200;
constexpr double captionZ = 200;

// XKB's event state has the group in bits 13 and 14. Every group but the first is deliberately sent
// as the second.
constexpr unsigned int secondGroupState = 0x2000;

// Whether the event is one of those expected, which it then is no longer.
bool takeEcho(QHash<KeyCode, int>& echoes, const XKeyEvent* event)
{
    const auto expected = echoes.find(static_cast<KeyCode>(event->keycode));
    if (expected == echoes.end())
        return false;
    if (--*expected == 0)
        echoes.erase(expected);
    return true;
}

QByteArray xkbKeyName(const char* name)
{
    return {name, static_cast<qsizetype>(strnlen(name, XkbKeyNameLength))};
}

} // namespace

KbdGeometry::KbdGeometry(QString model, QString layout, QString variant, QString options,
    XkbComponentNamesRec* names, bool wantXTest, QWidget* parent)
    : QGraphicsView(parent)
    , keyboardScene(new QGraphicsScene(this))
{
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false); // the window's own ground shows, and none on paper
    KbdAccessible::install();

    openDisplay();
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    useXTest =
        wantXTest && XTestQueryExtension(xDisplay->xDisplay(), &event, &error, &major, &minor);
    loadKeyboard({model, layout, variant, options}, *names);

    setScene(keyboardScene);
    setRenderHints(
        QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    fitPicture();
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { sender->releaseAll(); });
}

KbdGeometry::~KbdGeometry()
{
    // Before the keys: the server must not keep one pressed whose release can no longer come.
    sender->releaseAll();

    const QList<QGraphicsItem*> items = keyboardScene->items();
    for (QGraphicsItem* item : items)
        keyboardScene->removeItem(item);
    qDeleteAll(std::exchange(keys, {})); // nobody finds one of them half gone
    qDeleteAll(doodads);
    delete modelText;
    delete layoutText;
    delete variantText;
    delete optionsText;
    delete background;
}

void KbdGeometry::openDisplay()
{
    Display* display = toolkitDisplay();
    int opcode = 0;
    int event = 0;
    int error = 0;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    if (!display || !XkbQueryExtension(display, &opcode, &event, &error, &major, &minor))
        throw NoXkb;

    xDisplay = std::make_unique<XDisplayClass>(display);
    rootWindow = DefaultRootWindow(display);
    sender = std::make_unique<KeySender>(display, rootWindow);
}

void KbdGeometry::loadKeyboard(const QStringList& captions, const XkbComponentNamesRec& names)
{
    xkb = compileKeyboard(xDisplay->xDisplay(), names);
    if (!xkb)
        throw NoDescription;

    learnAtomNames();
    readModifiers();
    keyboardScene->setSceneRect(0, 0, xkb->geom->width_mm, xkb->geom->height_mm);
    placements = placeKeys(*xkb->geom);
    labelTable = std::make_unique<KbdLabelTable>();
    colours = std::make_unique<GeometryColours>(xDisplay->xDisplay(), *xkb->geom);
    readKeyAliases();
    readGroupLayouts(captions.at(1), captions.at(2));
    addDoodads();
    addKeys();
    pairModifierKeys();
    lightIndicators();
    addBackground();
    addCaptions(captions);

    keyboardScene->setSceneRect(background->rect().adjusted(0, 0, 0, captionRoom));
}

// Every atom whose name the picture needs, so that none is asked for alone.
void KbdGeometry::learnAtomNames()
{
    QList<Atom> atoms{xkb->names->symbols};
    for (const Atom name : xkb->names->vmods)
        atoms << name;
    for (const Atom name : xkb->names->groups)
        atoms << name;
    for (int i = 0; i < xkb->geom->num_doodads; ++i)
        atoms << xkb->geom->doodads[i].any.name;
    for (int t = 0; t < xkb->map->num_types; ++t) {
        const XkbKeyTypeRec& type = xkb->map->types[t];
        for (int level = 0; type.level_names && level < type.num_levels; ++level)
            atoms << type.level_names[level];
    }
    xDisplay->learnAtomNames(atoms);
}

void KbdGeometry::readModifiers()
{
    modifierMasks = modifierMasksOf(*xkb, *xDisplay);
    lockModifiers = lockModifiersOf(modifierMasks);
    for (auto mask = modifierMasks.keyBegin(); mask != modifierMasks.keyEnd(); ++mask)
        modifierKeycodes.insert(*mask, 0);
    const XkbStateRec state = serverState();
    modifierState = lockModifiers & state.locked_mods;
    groupAtLoad = state.locked_group;
}

void KbdGeometry::readKeyAliases()
{
    for (int i = 0; i < xkb->names->num_key_aliases; ++i) {
        const XkbKeyAliasRec& alias = xkb->names->key_aliases[i];
        keyAliases.insert(xkbKeyName(alias.alias), xkbKeyName(alias.real));
    }
}

QString KbdGeometry::symbolsName() const
{
    return xDisplay->atomName(xkb->names->symbols);
}

int KbdGeometry::keymapGroupCount() const
{
    int groups = 1;
    for (int code = xkb->min_key_code; code <= xkb->max_key_code; ++code)
        groups = std::max<int>(groups, XkbKeyNumGroups(xkb, code));
    return groups;
}

// The settings name the language of the labels; where they are silent (the server's own keyboard
// is shown), or have fewer names than the keymap has groups, the keymap does.
void KbdGeometry::readGroupLayouts(const QString& layout, const QString& variant)
{
    layoutsOfGroups = groupLayoutsOf(symbolsName());
    labelNames = groupNamesOf(symbolsName(), keymapGroupCount());
    if (layout.isEmpty())
        return;

    const QStringList layouts = layout.split(QLatin1Char(','));
    const QStringList variants = variant.split(QLatin1Char(','));
    const qsizetype groups = std::max(layouts.size(), labelNames.layouts.size());
    labelNames.layouts.resize(groups);
    labelNames.variants.resize(groups);
    for (qsizetype i = 0; i < layouts.size(); ++i) {
        labelNames.layouts[i] = layouts.at(i);
        labelNames.variants[i] = variants.value(i);
    }
}

QStringList KbdGeometry::groupNames() const
{
    QStringList names;
    for (const Atom name : xkb->names->groups) {
        if (name != x11::none)
            names << xDisplay->atomName(name);
    }
    return names;
}

// Only those of the geometry itself: a section's own doodads are left out on purpose.
void KbdGeometry::addDoodads()
{
    for (int i = 0; i < xkb->geom->num_doodads; ++i)
        addDoodad(xkb->geom->doodads[i]);
}

void KbdGeometry::addDoodad(const XkbDoodadRec& record)
{
    auto* doodad = new KbdDoodad(record, *xkb->geom, *colours, this);
    doodads << doodad;
    doodad->setPos(record.any.left, record.any.top);
    doodad->setZValue(record.any.priority);
    keyboardScene->addItem(doodad);
    const QRectF size = doodad->boundingRect();
    placements.bounds.widen(record.any.left, record.any.top, static_cast<int>(size.width()),
        static_cast<int>(size.height()));
    connectDoodad(doodad, xDisplay->atomName(record.any.name));
}

void KbdGeometry::connectDoodad(KbdDoodad* doodad, const QString& name)
{
    connect(this, SIGNAL(newScale(qreal)), doodad, SLOT(setScale(qreal)));
    if (name.startsWith(QLatin1StringView("X-Flag"), Qt::CaseInsensitive))
        connect(this, SIGNAL(newFlagFilename(QString)), doodad, SLOT(setFlagFilename(QString)));

    const auto isNamed = [&name](const char* indicator) {
        return name.compare(QLatin1StringView(indicator), Qt::CaseInsensitive) == 0;
    };
    if (isNamed("Num Lock"))
        numLockIndicator = doodad;
    else if (isNamed("Caps Lock"))
        capsLockIndicator = doodad;
    else if (isNamed("Scroll Lock"))
        scrollLockIndicator = doodad;
}

void KbdGeometry::addKeys()
{
    const KeyContext context{xDisplay.get(), xkb.get(), labelTable.get(), labelNames.layouts,
        labelNames.variants, lockModifiers};
    for (auto place = placements.keys.cbegin(); place != placements.keys.cend(); ++place)
        addKey(context, place.key(), place.value());
}

QByteArray KbdGeometry::keymapNameOf(const QByteArray& geometryName) const
{
    return keyAliases.value(geometryName, geometryName);
}

void KbdGeometry::addKey(
    const KeyContext& context, const QByteArray& name, const KeyPlacement& place)
{
    auto* key = new KbdKey(context, keymapNameOf(name), KeyShape(*place.shape), this);
    keys << key;
    key->setPos(place.x, place.y);
    key->setZValue(place.priority);
    key->setCurrentModifiers(modifierState);
    keyboardScene->addItem(key);
    connectKey(key);

    if (key->x11Keycode() == 0)
        return;
    keysByKeycode.insert(key->x11Keycode(), key);
    const QString modifier = key->modifierName();
    if (!modifier.isEmpty())
        modifierKeycodes.insert(modifier, key->x11Keycode());
}

void KbdGeometry::connectKey(KbdKey* key)
{
    connect(key, &KbdKey::modifierPressed, this, &KbdGeometry::modifierPressed);
    connect(key, &KbdKey::modifierReleased, this, &KbdGeometry::modifierReleased);
    connect(key, &KbdKey::virtualKeyPress, this, &KbdGeometry::gotVirtualKeyPress);
    connect(key, &KbdKey::virtualKeyRelease, this, &KbdGeometry::gotVirtualKeyRelease);
    connect(key, &KbdKey::mouseKeyPressOut, this, &KbdGeometry::synthesizeKeyPress);
    connect(key, &KbdKey::mouseKeyReleaseOut, this, &KbdGeometry::synthesizeKeyRelease);
}

// The left and the right key of a modifier act as one: what one of them holds, the other lets go.
void KbdGeometry::pairModifierKeys()
{
    QHash<QString, QList<KbdKey*>> keysByModifier;
    for (KbdKey* key : std::as_const(keys)) {
        if (key->keyType() == XkbSA_SetMods && !key->modifierName().isEmpty())
            keysByModifier[key->modifierName()] << key;
    }
    for (const QList<KbdKey*>& pair : std::as_const(keysByModifier)) {
        if (pair.size() != 2 || pair.first()->keyModifiers() != pair.last()->keyModifiers())
            continue;
        pair.first()->setTwinKeycode(pair.last()->x11Keycode());
        pair.last()->setTwinKeycode(pair.first()->x11Keycode());
    }
}

void KbdGeometry::lightIndicators()
{
    for (const auto& [modifier, indicator] :
        {std::pair{QStringLiteral("CapsLock"), capsLockIndicator},
            std::pair{QStringLiteral("NumLock"), numLockIndicator},
            std::pair{QStringLiteral("ScrollLock"), scrollLockIndicator}}) {
        if (indicator)
            indicator->setActive(modifierState & maskOf(modifier));
    }
}

void KbdGeometry::addBackground()
{
    PictureBounds& bounds = placements.bounds;
    if (bounds.isEmpty())
        bounds.widen(0, 0, xkb->geom->width_mm, xkb->geom->height_mm);

    const QRectF area(
        bounds.minX, bounds.minY, bounds.maxX - bounds.minX, bounds.maxY - bounds.minY);
    const bool hasBaseColour = xkb->geom->base_color;
    background = keyboardScene->addRect(
        area.adjusted(-backgroundMargin, -backgroundMargin, backgroundMargin, backgroundMargin),
        QPen(Qt::black), hasBaseColour ? QBrush(colours->base()) : QBrush(Qt::NoBrush));
    background->setZValue(backgroundZ);
}

void KbdGeometry::addCaptions(const QStringList& captions)
{
    const PictureBounds& bounds = placements.bounds;
    const int width = bounds.maxX - bounds.minX;
    const int y = bounds.maxY + backgroundMargin;
    modelText = addCaption(tr("Model:  %1").arg(captions.at(0)), bounds.minX, y);
    layoutText = addCaption(tr("Layout:  %1").arg(captions.at(1)), bounds.minX + width / 4, y);
    variantText = addCaption(tr("Variant:  %1").arg(captions.at(2)), bounds.minX + width / 2, y);
    optionsText =
        addCaption(tr("Options:  %1").arg(captions.at(3)), bounds.minX + (3 * width) / 4, y);
}

// A caption has a quarter of the picture's width; what is longer is cut, so that it does not run
// into the next one.
QGraphicsTextItem* KbdGeometry::addCaption(const QString& text, int x, int y)
{
    QFont font;
    font.setPixelSize(captionSize);
    const int room = (placements.bounds.maxX - placements.bounds.minX) / 4 - captionGap;
    const QString fitting = QFontMetricsF(font).elidedText(text, Qt::ElideRight, room);

    auto* caption = new QGraphicsTextItem;
    caption->setHtml(fitting.toHtmlEscaped());
    caption->setFont(font);
    caption->setPos(x, y);
    caption->setZValue(captionZ);
    keyboardScene->addItem(caption);
    return caption;
}

void KbdGeometry::fitPicture()
{
    fitInView(keyboardScene->sceneRect(), Qt::KeepAspectRatio);
}

void KbdGeometry::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    fitPicture();
    emit newScale(viewportTransform().m11());
}

void KbdGeometry::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    if (QWindow* handle = window()->windowHandle())
        handle->installEventFilter(this);
}

// Another program may take the window off the screen without the toolkit hiding it.
bool KbdGeometry::eventFilter(QObject* watched, QEvent* event)
{
    const auto* handle = qobject_cast<QWindow*>(watched);
    if (handle && event->type() == QEvent::Expose && !handle->isExposed())
        sender->releaseAll();
    return QGraphicsView::eventFilter(watched, event);
}

// The release of a button that is down while the picture goes away never arrives.
void KbdGeometry::hideEvent(QHideEvent* event)
{
    sender->releaseAll();
    QGraphicsView::hideEvent(event);
}

void KbdGeometry::mousePressEvent(QMouseEvent* event)
{
    lastInputTime = event->timestamp();
    QGraphicsView::mousePressEvent(event);
}

void KbdGeometry::mouseReleaseEvent(QMouseEvent* event)
{
    lastInputTime = event->timestamp();
    QGraphicsView::mouseReleaseEvent(event);
}

void KbdGeometry::mouseDoubleClickEvent(QMouseEvent* event)
{
    lastInputTime = event->timestamp();
    QGraphicsView::mouseDoubleClickEvent(event);
}

// No event of the server's comes with these, but two keys of the same time pass for one that
// repeats itself.
void KbdGeometry::click(KbdKey* key)
{
    ++lastInputTime;
    key->pressByUser();
    ++lastInputTime;
    key->releaseByUser();
}

void KbdGeometry::setPrintMode(quint8 print)
{
    for (KbdKey* key : std::as_const(keys))
        key->setColourScheme(static_cast<ColourScheme>(print));
    for (KbdDoodad* doodad : std::as_const(doodads))
        doodad->setWhite(print);
}

void KbdGeometry::releasePhysicalKeys()
{
    pressEchoes.clear();
    releaseEchoes.clear();
    for (KbdKey* key : std::as_const(keys)) {
        if (key->isPressed())
            key->keyReleaseEventIn();
    }
}

void KbdGeometry::x11KeyPressEventIn(XKeyEvent* event)
{
    if (takeEcho(pressEchoes, event))
        return;
    const QScopedValueRollback following(followsServer, true);
    if (KbdKey* key = keysByKeycode.value(static_cast<KeyCode>(event->keycode)))
        key->keyPressEventIn(static_cast<ShiftMask_t>(event->state));
}

void KbdGeometry::x11KeyReleaseEventIn(XKeyEvent* event)
{
    if (takeEcho(releaseEchoes, event))
        return;
    if (KbdKey* key = keysByKeycode.value(static_cast<KeyCode>(event->keycode)))
        key->keyReleaseEventIn(static_cast<ShiftMask_t>(event->state));
}

void KbdGeometry::x11NewKbdEventIn()
{
    XkbLockGroup(xDisplay->xDisplay(), x11::coreKeyboard, groupNum);
    XFlush(xDisplay->xDisplay());
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

void KbdGeometry::setMultishiftDisplay(bool isMulti)
{
    for (KbdKey* key : std::as_const(keys))
        key->setMultipleCharacters(isMulti);
}

void KbdGeometry::setGroupNum(KeyGroup_t group)
{
    XkbLockGroup(xDisplay->xDisplay(), x11::coreKeyboard, group);
    XFlush(xDisplay->xDisplay());
    showGroup(group);
}

void KbdGeometry::showGroup(KeyGroup_t group)
{
    groupNum = group;
    for (KbdKey* key : std::as_const(keys))
        key->setSelectedGroup(group);
}

// A modifier that the keymap does not name is one that is never held.
ShiftMask_t KbdGeometry::maskOf(const QString& modifier)
{
    return modifierMasks[modifier];
}

XkbStateRec KbdGeometry::serverState() const
{
    XkbStateRec state{};
    XkbGetState(xDisplay->xDisplay(), x11::coreKeyboard, &state);
    return state;
}

KeyGroup_t KbdGeometry::firstGroup() const
{
    return groupAtLoad != 0 && serverHasThisManyGroups() ? groupAtLoad : groupNum;
}

// Otherwise the keyboard in the server is another than the one shown, and its groups mean nothing
// here.
bool KbdGeometry::serverHasThisManyGroups() const
{
    const XkbDescription server(XkbAllocKeyboard());
    server->device_spec = x11::coreKeyboard;
    return XkbGetControls(xDisplay->xDisplay(), XkbGroupsWrapMask, server.get()) == 0
        && server->ctrls->num_groups == keymapGroupCount();
}

void KbdGeometry::modifierPressed(KeyCode keycode, KeyType_t type, ShiftMask_t mask)
{
    if ((mask & lockModifiers) && (mask & modifierState))
        pressedModifiers.remove(keycode);
    else
        pressedModifiers.insert(keycode, mask);
    adjustModifierState(type, mask);
}

void KbdGeometry::modifierReleased(KeyCode keycode, KeyType_t type, ShiftMask_t mask)
{
    if (mask & lockModifiers)
        return;
    pressedModifiers.remove(keycode);
    adjustModifierState(type, mask);
}

void KbdGeometry::adjustModifierState(KeyType_t type, ShiftMask_t mask)
{
    modifierState = 0;
    for (const ShiftMask_t pressed : std::as_const(pressedModifiers))
        modifierState |= pressed;
    for (KbdKey* key : std::as_const(keys))
        key->setCurrentModifiers(modifierState);

    if (type != XkbSA_LockMods)
        return;
    if (!followsServer)
        lockInServer();
    switchIndicator(mask);
}

void KbdGeometry::lockInServer()
{
    // The server refuses values outside the modifiers that are to be affected.
    XkbLockModifiers(
        xDisplay->xDisplay(), x11::coreKeyboard, lockModifiers, modifierState & lockModifiers);
    XFlush(xDisplay->xDisplay());
}

// One lamp for one key: the first lock that the mask belongs to.
void KbdGeometry::switchIndicator(ShiftMask_t mask)
{
    const bool on = modifierState & mask;
    if ((maskOf(QStringLiteral("CapsLock")) & mask) && capsLockIndicator)
        capsLockIndicator->setActive(on);
    else if ((maskOf(QStringLiteral("NumLock")) & mask) && numLockIndicator)
        numLockIndicator->setActive(on);
    else if ((maskOf(QStringLiteral("ScrollLock")) & mask) && scrollLockIndicator)
        scrollLockIndicator->setActive(on);
}

void KbdGeometry::x11LockStateChangedIn()
{
    const XkbStateRec state = serverState();
    followLocks(state.locked_mods);
    followGroup(state.locked_group);
}

void KbdGeometry::followLocks(ShiftMask_t locked)
{
    const QScopedValueRollback following(followsServer, true);
    KeyCode standIn = 0;
    for (const auto& lock :
        {QStringLiteral("CapsLock"), QStringLiteral("NumLock"), QStringLiteral("ScrollLock")}) {
        ++standIn;
        const ShiftMask_t mask = maskOf(lock);
        const KeyCode keycode = modifierKeycodes[lock];
        if (mask & (locked ^ modifierState))
            modifierPressed(keycode != 0 ? keycode : standIn, XkbSA_LockMods, mask);
    }
}

void KbdGeometry::followGroup(KeyGroup_t locked)
{
    if (locked == groupNum || !serverHasThisManyGroups())
        return;
    showGroup(locked);
    if (groupObserver)
        groupObserver(locked);
}

ShiftMask_t KbdGeometry::heldModifiers() const
{
    return modifierState & ~lockModifiers;
}

// What the user holds on the real keyboard is left out: it acts already, and the release of a
// second press would end it.
QList<KeyCode> KbdGeometry::modifierKeysToPress() const
{
    if (heldModifiers() == 0)
        return {};
    ShiftMask_t missing = heldModifiers() & ~serverState().base_mods;
    QList<KeyCode> toPress;
    const ShiftMask_t wanted = missing;
    for (auto mask = modifierMasks.cbegin(); mask != modifierMasks.cend(); ++mask) {
        const KeyCode keycode = modifierKeycodes.value(mask.key());
        if (!(mask.value() & wanted) || keycode == 0)
            continue;
        toPress << keycode;
        missing &= ~mask.value();
    }
    return toPress + unnamedKeysHolding(missing);
}

// Keys such as that of the fifth level, which go by no modifier's name.
QList<KeyCode> KbdGeometry::unnamedKeysHolding(ShiftMask_t modifiers) const
{
    QList<KeyCode> keycodes;
    for (auto held = pressedModifiers.cbegin(); held != pressedModifiers.cend(); ++held) {
        const KbdKey* key = keysByKeycode.value(held.key());
        if ((held.value() & modifiers) && key && key->keyType() == XkbSA_SetMods)
            keycodes << held.key();
    }
    std::sort(keycodes.begin(), keycodes.end());
    return keycodes;
}

void KbdGeometry::expectEchoes(
    QHash<KeyCode, int>& echoes, const QList<KeyCode>& modifierKeys) const
{
    if (!isActiveWindow())
        return;
    for (const KeyCode keycode : modifierKeys)
        ++echoes[keycode];
}

void KbdGeometry::synthesizeKeyPress(KeyCode x11Keycode)
{
    if (!useXTest)
        return sendEvent(x11::keyPress, x11Keycode);
    const QList<KeyCode> modifierKeys = modifierKeysToPress();
    expectEchoes(pressEchoes, modifierKeys);
    sender->pressThroughXTest(x11Keycode, modifierKeys);
}

void KbdGeometry::synthesizeKeyRelease(KeyCode x11Keycode)
{
    if (!useXTest)
        return sendEvent(x11::keyRelease, x11Keycode);
    expectEchoes(releaseEchoes, sender->releaseThroughXTest(x11Keycode));
}

void KbdGeometry::sendEvent(int type, KeyCode keycode)
{
    const unsigned int state = modifierState | (groupNum != 0 ? secondGroupState : 0U);
    sender->sendEvent(type, {keycode, state, lastInputTime});
}

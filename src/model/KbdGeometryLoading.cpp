// How the picture is made: the keyboard that the server gives, and the items that show it.

#include "model/KbdGeometry.h"

#include "keys/GeometryColours.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "keys/KbdLabelTable.h"
#include "model/ModifierMasks.h"
#include "x11/CoreKeyboard.h"
#include "x11/qt/KeySender.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QFontMetricsF>
#include <QGraphicsRectItem>
#include <QGraphicsTextItem>

#include <algorithm>
#include <utility>

namespace {

// All in tenths of a millimetre.
constexpr int backgroundMargin = 20;
constexpr int captionRoom = 80; // below the background
constexpr int captionSize = 60;
constexpr int captionGap = 30;

constexpr double backgroundZ = -200;
constexpr double captionZ = 200;

} // namespace

void KbdGeometry::openDisplay()
{
    Display* display = toolkitDisplay();
    server = std::make_unique<const CoreKeyboard>(display);
    if (!server->hasXkb())
        throw NoXkb;

    xDisplay = std::make_unique<XDisplayClass>(display);
    sender = std::make_unique<KeySender>(display, this);
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
    const KeyboardState state = server->state();
    modifierState = lockModifiers & state.lockedModifiers;
    groupAtLoad = state.lockedGroup;
}

void KbdGeometry::readKeyAliases()
{
    for (int i = 0; i < xkb->names->num_key_aliases; ++i) {
        const XkbKeyAliasRec& alias = xkb->names->key_aliases[i];
        keyAliases.insert(xkbKeyName(alias.alias), xkbKeyName(alias.real));
    }
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

void KbdGeometry::connectKey(const KbdKey* key) const
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

#include "model/KeyboardItems.h"

#include "keys/GeometryColours.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "keys/KbdLabelTable.h"
#include "model/CaptionRow.h"
#include "model/KeyPlacement.h"
#include "model/LoadedKeyboard.h"
#include "x11/X11.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QtMath>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// All in tenths of a millimetre.
constexpr int backgroundMargin = 20;
constexpr int captionRoom = 80; // below the background
constexpr int captionSize = 60;
constexpr int captionGap = 30; // at the least between two texts
constexpr int captionFrame = 8; // of a QGraphicsTextItem, on its left and right together
constexpr int spareRoom = 2; // Qt's cutting rounds otherwise than its measuring

constexpr double backgroundZ = -200;
constexpr double captionZ = 200;

QFont captionFont()
{
    QFont font;
    font.setPixelSize(captionSize);
    return font;
}

bool isNamed(const QString& name, const char* indicator)
{
    return name.compare(QLatin1StringView(indicator), Qt::CaseInsensitive) == 0;
}

} // namespace

KeyboardItems::KeyboardItems(
    const LoadedKeyboard& loadedKeyboard, ShiftMask_t lockModifiers, QGraphicsScene* scene)
    : keyboard(loadedKeyboard)
    , keyboardScene(scene)
    , labelTable(std::make_unique<KbdLabelTable>())
    , colours(std::make_unique<GeometryColours>(keyboard.display->xDisplay(), *keyboard.xkb->geom))
{
    const XkbGeometryRec& geometry = *keyboard.xkb->geom;
    keyboardScene->setSceneRect(0, 0, geometry.width_mm, geometry.height_mm);
    KeyPlacements placements = placeKeys(geometry);
    readKeyAliases();
    addDoodads(placements.bounds);
    addKeys(placements.keys, lockModifiers);
    pairModifierKeys();
    if (placements.bounds.isEmpty())
        placements.bounds.widen(0, 0, geometry.width_mm, geometry.height_mm);
    addBackground(placements.bounds);
    keyboardScene->setSceneRect(background->rect().adjusted(0, 0, 0, captionRoom));
}

KeyboardItems::~KeyboardItems()
{
    const QList<QGraphicsItem*> items = keyboardScene->items();
    for (QGraphicsItem* item : items)
        keyboardScene->removeItem(item);
    // The list is emptied first: assistive technology asks for the keys when it hears that one is
    // being deleted.
    qDeleteAll(std::exchange(keys, {}));
    qDeleteAll(doodads);
    delete modelText;
    delete layoutText;
    delete variantText;
    delete optionsText;
    delete background;
}

KbdDoodad* KeyboardItems::indicatorOf(Lock lock) const
{
    switch (lock) {
    case Lock::Caps:
        return capsLockIndicator;
    case Lock::Num:
        return numLockIndicator;
    case Lock::Scroll:
        return scrollLockIndicator;
    }
    return nullptr;
}

void KeyboardItems::readKeyAliases()
{
    const XkbNamesRec& names = *keyboard.xkb->names;
    for (int i = 0; i < names.num_key_aliases; ++i) {
        const XkbKeyAliasRec& alias = names.key_aliases[i];
        keyAliases.insert(xkbKeyName(alias.alias), xkbKeyName(alias.real));
    }
}

// Only those of the geometry itself: the doodads of its sections are left out on purpose.
void KeyboardItems::addDoodads(PictureBounds& bounds)
{
    const XkbGeometryRec& geometry = *keyboard.xkb->geom;
    for (int i = 0; i < geometry.num_doodads; ++i) {
        addDoodad(geometry.doodads[i]);
        const XkbAnyDoodadRec& place = geometry.doodads[i].any;
        const QRectF size = doodads.last()->boundingRect();
        bounds.widen(
            place.left, place.top, static_cast<int>(size.width()), static_cast<int>(size.height()));
    }
}

void KeyboardItems::addDoodad(const XkbDoodadRec& record)
{
    auto* doodad = new KbdDoodad(record, *keyboard.xkb->geom, *colours, keyboardScene->parent());
    doodads << doodad;
    doodad->setPos(record.any.left, record.any.top);
    doodad->setZValue(record.any.priority);
    keyboardScene->addItem(doodad);
    findPurpose(doodad, keyboard.display->atomName(record.any.name));
}

// The doodad's name says whether it is the flag or the indicator of a lock.
void KeyboardItems::findPurpose(KbdDoodad* doodad, const QString& name)
{
    if (name.startsWith("X-Flag"_L1, Qt::CaseInsensitive))
        flags << doodad;
    else if (isNamed(name, "Num Lock"))
        numLockIndicator = doodad;
    else if (isNamed(name, "Caps Lock"))
        capsLockIndicator = doodad;
    else if (isNamed(name, "Scroll Lock"))
        scrollLockIndicator = doodad;
}

void KeyboardItems::addKeys(
    const QMap<QByteArray, KeyPlacement>& placements, ShiftMask_t lockModifiers)
{
    const KeyContext context{keyboard.display.get(), keyboard.xkb.get(), labelTable.get(),
        keyboard.labelNames.layouts, keyboard.labelNames.variants, lockModifiers};
    for (auto place = placements.cbegin(); place != placements.cend(); ++place)
        addKey(context, place.key(), place.value());
}

void KeyboardItems::addKey(
    const KeyContext& context, const QByteArray& name, const KeyPlacement& place)
{
    auto* key = new KbdKey(
        context, keyAliases.value(name, name), KeyShape(*place.shape), keyboardScene->parent());
    keys << key;
    key->setPos(place.x, place.y);
    key->setZValue(place.priority);
    keyboardScene->addItem(key);
    if (key->x11Keycode() != 0)
        keysByKeycode.insert(key->x11Keycode(), key);
}

// The left and the right key of a modifier act as one: a click on one of them lets go of the
// modifier that a click on the other one holds.
void KeyboardItems::pairModifierKeys()
{
    QHash<QString, QList<KbdKey*>> keysByModifier;
    for (KbdKey* key : std::as_const(keys)) {
        const KeySymbols& symbols = key->symbols();
        if (symbols.keyType() == XkbSA_SetMods && !symbols.modifierName().isEmpty())
            keysByModifier[symbols.modifierName()] << key;
    }
    for (const QList<KbdKey*>& pair : std::as_const(keysByModifier)) {
        if (pair.size() != 2
            || pair.first()->symbols().keyModifiers() != pair.last()->symbols().keyModifiers())
            continue;
        pair.first()->setTwinKeycode(pair.last()->x11Keycode());
        pair.last()->setTwinKeycode(pair.first()->x11Keycode());
    }
}

void KeyboardItems::addBackground(const PictureBounds& bounds)
{
    const bool hasBaseColour = keyboard.xkb->geom->base_color;
    background = keyboardScene->addRect(bounds.area().adjusted(-backgroundMargin, -backgroundMargin,
                                            backgroundMargin, backgroundMargin),
        QPen(Qt::black), hasBaseColour ? QBrush(colours->base()) : QBrush(Qt::NoBrush));
    background->setZValue(backgroundZ);
}

// Side by side.
void KeyboardItems::addCaptions(const KeyboardSettings& settings)
{
    const QRect bounds = background->rect().toRect().adjusted(
        backgroundMargin, backgroundMargin, -backgroundMargin, -backgroundMargin);
    const QStringList texts{tr("Model:  %1").arg(settings.model),
        tr("Layout:  %1").arg(settings.layout), tr("Variant:  %1").arg(settings.variant),
        tr("Options:  %1").arg(settings.options)};
    const QFontMetricsF metrics(captionFont());
    QList<int> widths;
    for (const QString& text : texts)
        widths << qCeil(metrics.horizontalAdvance(text)) + captionFrame;

    const int right = bounds.x() + bounds.width();
    const int bottom = bounds.y() + bounds.height();
    const CaptionRow row{
        bounds.x(), bounds.width(), right + backgroundMargin, captionGap - captionFrame};
    const QList<CaptionPlace> places = placesInRow(row, widths);
    const std::array captions{&modelText, &layoutText, &variantText, &optionsText};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const auto index = static_cast<qsizetype>(i);
        const QString shown = metrics.elidedText(
            texts.at(index), Qt::ElideRight, places.at(index).room - captionFrame + spareRoom);
        *captions[i] = addCaption(shown, {places.at(index).x, bottom + backgroundMargin});
    }
}

QGraphicsTextItem* KeyboardItems::addCaption(const QString& text, const QPoint& place)
{
    auto* caption = new QGraphicsTextItem;
    caption->setFont(captionFont());
    caption->setHtml(text.toHtmlEscaped()); // laid out in this font at once
    caption->setPos(place);
    caption->setZValue(captionZ);
    keyboardScene->addItem(caption);
    return caption;
}

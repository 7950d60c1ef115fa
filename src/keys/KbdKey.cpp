#include "keys/KbdKey.h"

#include "app/description/XDisplayClass.h"
#include "keys/ItemPainting.h"
#include "keys/KbdLabelTable.h"
#include "keys/KeyAnnouncement.h"
#include "keys/KeyDetails.h"

#include <QGraphicsSceneMouseEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

constexpr KeySym firstDeadKeysym = 0xfe50;
constexpr KeySym lastDeadKeysym = 0xfe66;

// The Return key of PC keyboards: where it is tall, most of it is narrow.
constexpr KeyCode returnKeycode = 36;
constexpr double tallReturnFactor = 0.7;

struct ModifierNameRow {
    KeySym keysym;
    const char* name;
};

constexpr std::array<ModifierNameRow, 18> modifierNames{{
    {XK_Caps_Lock, "CapsLock"},
    {XK_Num_Lock, "NumLock"},
    {XK_Scroll_Lock, "ScrollLock"},
    {XK_Shift_L, "Shift"},
    {XK_Shift_R, "Shift"},
    {XK_Control_L, "Control"},
    {XK_Control_R, "Control"},
    {XK_Meta_L, "Meta"},
    {XK_Meta_R, "Meta"},
    {XK_Alt_L, "Alt"},
    {XK_Alt_R, "Alt"},
    {XK_Super_L, "Super"},
    {XK_Super_R, "Super"},
    {XK_Hyper_L, "Hyper"},
    {XK_Hyper_R, "Hyper"},
    {XK_ISO_Level3_Shift, "LevelThree"},
    {XK_ISO_Level3_Latch, "LevelThree"},
    {XK_ISO_Level3_Lock, "LevelThree"},
}};

// XKB key names are four characters, filled with NUL.
bool sameKeyName(const char* name, const QByteArray& wanted)
{
    return std::strncmp(name, wanted.constData(), XkbKeyNameLength) == 0;
}

} // namespace

KbdKey::KbdKey(
    KeyContext keyContext, const QByteArray& keyName, KeyShape shapeOfKey, QObject* parent)
    : QObject(parent)
    , context(std::move(keyContext))
    , xkbName(QString::fromLatin1(keyName))
    , keyShape(std::move(shapeOfKey))
{
    setFlag(QGraphicsItem::ItemIsFocusable, false);
    readKeycode();
    readAction();
    readSymbols();
}

void KbdKey::readKeycode()
{
    const XkbDescRec& xkb = *context.xkb;
    const QByteArray wanted = xkbName.toLatin1();
    for (int code = xkb.min_key_code; code <= xkb.max_key_code; ++code) {
        if (sameKeyName(xkb.names->keys[code].name, wanted)) {
            keycode = static_cast<KeyCode>(code);
            return;
        }
    }
}

void KbdKey::readAction()
{
    const XkbServerMapRec* server = context.xkb->server;
    if (keycode == 0 || !server || !server->key_acts || server->key_acts[keycode] == 0)
        return;
    const XkbAction& action = server->acts[server->key_acts[keycode]];
    if (action.type != XkbSA_SetMods && action.type != XkbSA_LockMods)
        return;
    modifierType = action.type;
    modifierMask = action.mods.mask;
}

void KbdKey::readSymbols()
{
    KeyDetails details(xkbName, keycode);
    if (keycode != 0) {
        makeSlots();
        for (int layout = 0; layout < context.layoutNames.size(); ++layout)
            readLayout(layout, details);
    }
    details.addModifier(modifierType, modifierMask);
    setToolTip(details.text());
}

void KbdKey::makeSlots()
{
    const XkbClientMapRec& map = *context.xkb->map;
    const XkbSymMapRec& symbols = map.key_sym_map[keycode];
    levelsPerGroup = symbols.width;
    const int slotCount = groupCount() * levelsPerGroup;
    keysyms.fill(x11::none, slotCount);
    deadKey.fill(false, slotCount);
    symbolNames.resize(slotCount);
    symbolLabels.resize(slotCount);
    for (int g = 0; g < groupCount(); ++g)
        keyTypes << &map.types[symbols.kt_index[g]];
}

void KbdKey::readLayout(int layout, KeyDetails& details)
{
    const std::optional<int> wrappedGroup = wrapped(layout);
    if (!wrappedGroup)
        return;
    const XkbKeyTypeRec& keyType = typeOf(*wrappedGroup);
    for (int level = 0; level < keyType.num_levels; ++level) {
        const int slot = slotOf(*wrappedGroup, level);
        if (slot < 0)
            continue;
        readSymbol(layout, *wrappedGroup, level);
        const Atom levelName = keyType.level_names ? keyType.level_names[level] : Atom(x11::none);
        details.addSymbol({layout, context.display->atomName(levelName), keysyms.at(slot),
            symbolNames.at(slot), symbolLabels.at(slot)});
    }
}

void KbdKey::readSymbol(int layout, int wrappedGroup, int level)
{
    const int slot = slotOf(wrappedGroup, level);
    const KeySym keysym = XkbKeySymEntry(context.xkb, keycode, level, wrappedGroup);
    keysyms[slot] = keysym;
    deadKey[slot] = keysym >= firstDeadKeysym && keysym <= lastDeadKeysym;
    symbolNames[slot] = QString::fromLatin1(XKeysymToString(keysym));
    symbolLabels[slot] = context.labels->label(
        keysym, context.layoutNames.value(layout), context.variantNames.value(layout));
}

int KbdKey::groupCount() const
{
    return keycode == 0 ? 0 : XkbKeyNumGroups(context.xkb, keycode);
}

std::optional<int> KbdKey::wrapped(int wanted) const
{
    if (keycode == 0)
        return std::nullopt;
    return effectiveGroup(context.xkb->map->key_sym_map[keycode].group_info, wanted);
}

// Less than 0 for a level beyond the key's own (levels come from the server).
int KbdKey::slotOf(int wrappedGroup, int level) const
{
    return level < levelsPerGroup ? levelsPerGroup * wrappedGroup + level : -1;
}

int KbdKey::activeSlot(int wrappedGroup, ShiftMask_t modifiers) const
{
    return slotOf(wrappedGroup, activeLevel(typeOf(wrappedGroup), modifiers));
}

QString KbdKey::modifierName() const
{
    const KeySym first = keysyms.value(0, x11::none);
    for (const ModifierNameRow& row : modifierNames) {
        if (row.keysym == first)
            return QString::fromLatin1(row.name);
    }
    return {};
}

KeySym KbdKey::activeKeysym() const
{
    return keysymWith(currentModifiers);
}

QString KbdKey::activeLabel() const
{
    const std::optional<int> shown = shownGroup();
    return shown ? labelOf(activeSlot(*shown, currentModifiers)) : QString();
}

KeySym KbdKey::keysymWith(ShiftMask_t modifiers) const
{
    const std::optional<int> shown = shownGroup();
    return shown ? keysyms.value(activeSlot(*shown, modifiers), x11::none) : x11::none;
}

QString KbdKey::labelWith(ShiftMask_t modifiers) const
{
    const std::optional<int> shown = shownGroup();
    return shown ? KeyCapPainter::withCaseOf(labelOf(activeSlot(*shown, modifiers)), modifiers)
                 : QString();
}

void KbdKey::setCurrentModifiers(ShiftMask_t modifiers)
{
    const KeyAnnouncement announcement(this);
    currentModifiers = modifiers;
    update(boundingRect());
}

void KbdKey::setMultipleCharacters(bool multiple)
{
    multipleCharacters = multiple;
    update(boundingRect());
}

void KbdKey::setSelectedGroup(KeyGroup_t selected)
{
    const KeyAnnouncement announcement(this);
    layoutIndex = selected;
    if (selected < groupCount())
        group = selected;
    update(boundingRect());
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
    const int slot = activeSlot(*shownGroup(), modifiers);
    QString symbol = symbolLabels.value(slot);
    QString desc = symbolNames.value(slot);
    emit(this->*stroke)(symbol, desc);
}

void KbdKey::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    pressByUser();
}

void KbdKey::pressByUser()
{
    if (!shownGroup())
        return;
    reportStroke(&KbdKey::virtualKeyPress, currentModifiers);
    if (!isModifier())
        emit mouseKeyPressOut(keycode);
    else if (isMomentary())
        emit modifierPressed(keycode, modifierType, modifierMask);
    else
        toggleModifier();
}

void KbdKey::toggleModifier()
{
    const bool held = (currentModifiers & modifierMask) == modifierMask;
    const auto report = held ? &KbdKey::modifierReleased : &KbdKey::modifierPressed;
    emit(this->*report)(keycode, modifierType, modifierMask);
    if (twinKeycode != 0)
        emit(this->*report)(twinKeycode, modifierType, modifierMask);
}

void KbdKey::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    releaseByUser();
}

void KbdKey::releaseByUser()
{
    if (!shownGroup())
        return;
    reportStroke(&KbdKey::virtualKeyRelease, currentModifiers);
    if (!isModifier())
        emit mouseKeyReleaseOut(keycode);
    else if (isMomentary())
        emit modifierReleased(keycode, modifierType, modifierMask);
}

void KbdKey::setPressed(bool down)
{
    const KeyAnnouncement announcement(this);
    pressed = down;
}

void KbdKey::keyPressEventIn(ShiftMask_t modifiers)
{
    if (!shownGroup())
        return;
    setPressed(true);
    if (isModifier())
        emit modifierPressed(keycode, modifierType, modifierMask);
    update(boundingRect());
    reportStroke(&KbdKey::virtualKeyPress, modifiers);
}

void KbdKey::keyReleaseEventIn(ShiftMask_t modifiers)
{
    if (!shownGroup())
        return;
    if (isModifier())
        emit modifierReleased(keycode, modifierType, modifierMask);
    setPressed(false);
    update(boundingRect());
    reportStroke(&KbdKey::virtualKeyRelease, modifiers);
}

void KbdKey::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const std::optional<int> shown = shownGroup();
    if (!shown)
        return;

    const ItemPainting painting(painter);
    const int slot = activeSlot(*shown, currentModifiers);
    KeyCapPainter cap(painter, keyShape, colourScheme);
    cap.drawCap(look(slot));
    if (!keysyms.isEmpty())
        paintLabels(cap, *shown, slot);
}

CapLook KbdKey::look(int slot) const
{
    if (pressed)
        return CapLook::Pressed;
    if (!multipleCharacters && deadKey.value(slot))
        return CapLook::Dead;
    return isModifier() ? CapLook::Modifier : CapLook::Normal;
}

double KbdKey::labelSize() const
{
    const double smaller = std::min(keyShape.width, keyShape.height);
    const double size = (0.8 * smaller - 10) / 2.5;
    const bool tallReturn = keyShape.height > keyShape.width && keycode == returnKeycode;
    return tallReturn ? size * tallReturnFactor : size;
}

QRectF KbdKey::labelArea() const
{
    const double d = KeyCapPainter::border(keyShape);
    return {d, d / 2, keyShape.width - 2 * d, keyShape.height - 2 * d};
}

QString KbdKey::labelOf(int slot) const
{
    if (slot < 0 || slot >= keysyms.size())
        return {};
    return context.labels->label(keysyms.at(slot), context.layoutNames.value(layoutIndex),
        context.variantNames.value(layoutIndex));
}

KeyColour KbdKey::labelColour(int slot, bool offPosition) const
{
    if (isModifierOn())
        return KeyColour::TextModifierOn;
    if (offPosition)
        return KeyColour::TextOffPosition;
    return deadKey.value(slot) ? KeyColour::TextDead : KeyColour::TextNormal;
}

void KbdKey::paintLabels(KeyCapPainter& cap, int wrappedGroup, int slot) const
{
    if (!multipleCharacters)
        return paintSingleLabel(cap, slot, false);

    const XkbKeyTypeRec& keyType = typeOf(wrappedGroup);
    const CapLevels shown = capLevels(keyType, level3Mask);
    if (!shown.shows(activeLevel(keyType, currentModifiers)))
        paintSingleLabel(cap, slot, true);
    else if (showsOneSymbol(wrappedGroup, shown))
        paintSingleLabel(cap, slot, false);
    else
        paintAllLabels(cap, wrappedGroup, shown);
}

bool KbdKey::showsOneSymbol(int wrappedGroup, const CapLevels& shown) const
{
    if (shown.count() == 1)
        return true;
    const std::optional<int> shift = shown.levels[CapLevels::Shift];
    if (shown.count() != 2 || !shift)
        return false;
    return keysyms.value(slotOf(wrappedGroup, 0)) == keysyms.value(slotOf(wrappedGroup, *shift));
}

void KbdKey::paintSingleLabel(KeyCapPainter& cap, int slot, bool offPosition) const
{
    const QString text = labelOf(slot);
    const double size = text.size() == 1 ? 2 * labelSize() : labelSize();
    cap.drawLabel({text, size, labelArea(), labelColour(slot, offPosition), currentModifiers});
}

void KbdKey::paintAllLabels(KeyCapPainter& cap, int wrappedGroup, const CapLevels& shown) const
{
    const QRectF area = labelArea();
    const double left = std::trunc(area.x());
    const double right = std::trunc(area.x() + area.width() / 2);
    const double upper = std::trunc(area.y());
    const double lower = std::trunc(area.height() / 2 + area.y());
    const QSizeF cell(shown.hasThirdLevel() ? area.width() / 2 : area.width(), area.height() / 2);

    // In the order of CapLevels::Position.
    const std::array<QPointF, 4> corners{
        {{left, lower}, {left, upper}, {right, lower}, {right, upper}}};
    for (std::size_t position = 0; position < corners.size(); ++position) {
        if (!shown.levels[position])
            continue;
        const int slot = slotOf(wrappedGroup, *shown.levels[position]);
        const QRectF rectangle(corners[position], cell);
        if (deadKey.value(slot))
            cap.drawDeadCell(rectangle);
        cap.drawLabel(
            {labelOf(slot), labelSize(), rectangle, labelColour(slot, false), currentModifiers});
    }
}

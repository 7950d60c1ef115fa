// The keyboard description that the X server gives, as Xlib has decoded it: whatever its numbers
// are, it is refused, or a picture is made of it and painted in every way. The input is a keymap as
// the switcher writes it down, with its length in front, and bytes that a geometry is made of.

#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KeyboardItems.h"
#include "model/LoadedKeyboard.h"
#include "switcher/Bytes.h"
#include "switcher/KeymapBytes.h"
#include "tests/unit/FakeGeometry.h"
#include "x11/X11.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

#include <cstdint>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostOfAKind = 8; // shapes, keys of a row, doodads …
constexpr int imageSize = 64; // pixels

// The rest of the input, a value at a time; zeros when it has ended.
class Chance {
public:
    Chance(const uint8_t* data, size_t size)
        : next(data)
        , rest(size)
    {
    }

    int byte() { return rest == 0 ? 0 : (--rest, *next++); }
    short number() { return static_cast<short>(byte() << 8 | byte()); }
    int below(int count) { return byte() % count; }
    QByteArray text()
    {
        QByteArray result;
        for (int length = below(32); length > 0; --length)
            result += static_cast<char>(byte());
        return result;
    }

private:
    const uint8_t* next;
    size_t rest;
};

// Indices, sizes and names as they come: the server may send any.
class AnyGeometry {
public:
    explicit AnyGeometry(Chance& bytes, const XkbDescRec& keymap)
        : chance(bytes)
        , xkb(keymap)
    {
        for (int i = chance.below(mostOfAKind); i > 0; --i)
            geometry.addColour(chance.text().constData());
        for (int i = chance.below(mostOfAKind); i > 0; --i)
            addShape();
        for (int i = chance.below(mostOfAKind); i > 0; --i)
            addSection();
        for (int i = chance.below(mostOfAKind); i > 0; --i)
            addDoodad();
        XkbGeometryRec& record = geometry.xkb();
        record.doodads = doodads.data();
        record.num_doodads = static_cast<unsigned short>(doodads.size());
        record.width_mm = static_cast<unsigned short>(chance.number());
        record.height_mm = static_cast<unsigned short>(chance.number());
        if (record.num_colors > 0)
            record.base_color = record.colors + chance.below(record.num_colors);
    }

    XkbGeometryRec* record() { return &geometry.xkb(); }

private:
    QByteArray keyName()
    {
        const int keycode = xkb.min_key_code + chance.byte();
        if (keycode > xkb.max_key_code)
            return chance.text().left(XkbKeyNameLength);
        const XkbKeyNameRec& name = xkb.names->keys[keycode];
        return {name.name, static_cast<qsizetype>(qstrnlen(name.name, XkbKeyNameLength))};
    }

    void addShape()
    {
        std::vector<FakeGeometry::Outline> outlines(static_cast<size_t>(chance.below(3)));
        for (FakeGeometry::Outline& outline : outlines) {
            outline.cornerRadius = static_cast<unsigned short>(chance.number());
            for (int i = chance.below(mostOfAKind); i > 0; --i)
                outline.points << QPoint(chance.number(), chance.number());
        }
        geometry.addShape(
            {chance.number(), chance.number(), chance.number(), chance.number()}, outlines);
    }

    void addSection()
    {
        FakeGeometry::Row row{chance.number(), chance.number(), {}};
        for (int i = chance.below(mostOfAKind); i > 0; --i)
            row.keys.push_back({geometry.keep(keyName().constData()),
                static_cast<unsigned char>(chance.byte()), chance.number()});
        geometry.addSection(chance.number(), chance.number(), {row});
    }

    void addDoodad()
    {
        XkbDoodadRec& doodad = doodads.emplace_back();
        std::memset(&doodad, 0, sizeof doodad);
        doodad.any.type = static_cast<unsigned char>(chance.below(XkbLogoDoodad + 2));
        doodad.any.left = chance.number();
        doodad.any.top = chance.number();
        if (doodad.any.type == XkbTextDoodad)
            fill(doodad.text);
        else if (doodad.any.type == XkbIndicatorDoodad)
            fill(doodad.indicator);
        else
            fill(doodad.logo); // begins as outlines and solid areas do
    }

    void fill(XkbTextDoodadRec& text)
    {
        text.width = chance.number();
        text.height = chance.number();
        text.color_ndx = static_cast<unsigned short>(chance.byte());
        text.text = geometry.keep(chance.text().constData());
        text.font = geometry.keep(chance.text().constData());
    }

    void fill(XkbIndicatorDoodadRec& indicator)
    {
        indicator.shape_ndx = static_cast<unsigned short>(chance.byte());
        indicator.on_color_ndx = static_cast<unsigned short>(chance.byte());
        indicator.off_color_ndx = static_cast<unsigned short>(chance.byte());
    }

    void fill(XkbLogoDoodadRec& logo)
    {
        logo.color_ndx = static_cast<unsigned short>(chance.byte());
        logo.shape_ndx = static_cast<unsigned short>(chance.byte());
        if (logo.type == XkbLogoDoodad)
            logo.logo_name = geometry.keep("no such picture");
    }

    Chance& chance;
    const XkbDescRec& xkb;
    FakeGeometry geometry;
    std::vector<XkbDoodadRec> doodads;
};

// There is no server to ask for names.
void dropAtoms(XkbDescRec& xkb)
{
    for (int i = 0; i < xkb.map->num_types; ++i) {
        XkbKeyTypeRec& type = xkb.map->types[i];
        type.name = x11::none;
        for (int level = 0; type.level_names && level < type.num_levels; ++level)
            type.level_names[level] = x11::none;
    }
}

// What Xlib does not check.
void spoil(XkbDescRec& xkb, Chance& chance)
{
    for (int i = chance.below(4); i > 0; --i) {
        const int keycode =
            xkb.min_key_code + chance.below(xkb.max_key_code - xkb.min_key_code + 1);
        XkbSymMapRec& symbols = xkb.map->key_sym_map[keycode];
        symbols.kt_index[chance.below(XkbNumKbdGroups)] = static_cast<unsigned char>(chance.byte());
        symbols.group_info = static_cast<unsigned char>(chance.byte());
        symbols.width = static_cast<unsigned char>(chance.byte());
        symbols.offset = static_cast<unsigned short>(chance.number());
        xkb.server->key_acts[keycode] = static_cast<unsigned short>(chance.number());
    }
}

void paintIn(const KeyboardItems& items, QGraphicsScene& scene, Chance& chance)
{
    QImage image(imageSize, imageSize, QImage::Format_RGB32);
    for (const bool several : {false, true}) {
        for (KbdKey* key : items.allKeys()) {
            key->setMultipleCharacters(several);
            key->setSelectedGroup(static_cast<KeyGroup_t>(chance.byte()));
            key->setCurrentModifiers(static_cast<ShiftMask_t>(chance.byte()));
        }
        for (KbdDoodad* doodad : items.allDoodads())
            doodad->setActive(several);
        QPainter painter(&image);
        scene.render(&painter, image.rect(), scene.sceneRect());
    }
}

void show(XkbDescription keymap, Chance& chance)
{
    AnyGeometry geometry(chance, *keymap);
    spoil(*keymap, chance);
    keymap->geom = geometry.record();
    LoadedKeyboard keyboard{std::make_unique<XDisplayClass>(nullptr), std::move(keymap), {}, {}, 4,
        {{u"de"_s, u"us"_s, QString::fromUtf8(chance.text()), u""_s}, {u""_s, u""_s}}, {}};
    if (isComplete(*keyboard.xkb)) {
        QObject owner;
        QGraphicsScene scene(&owner);
        const KeyboardItems items(keyboard, static_cast<ShiftMask_t>(chance.byte()), &scene);
        paintIn(items, scene, chance);
    }
    keyboard.xkb->geom = nullptr; // not Xlib's
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "fuzz_keyboard";
    static char* arguments[] = {name, nullptr};
    static const QApplication application(count, arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const size_t length = std::min<size_t>(data[0] << 8 | data[1], size - 2);
    const std::vector<unsigned char> bytes(data + 2, data + 2 + length);
    Chance chance(data + 2 + length, size - 2 - length);
    ByteReader reader(bytes);
    try {
        XkbDescription keymap = takeKeymap(reader);
        dropAtoms(*keymap);
        show(std::move(keymap), chance);
    } catch (const std::logic_error&) { // no keymap
    }
    return 0;
}

#include "app/description/ComponentNames.h"
#include "harness/PictureKeys.h"
#include "harness/StandardErrorCapture.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "model/KeyFinder.h"
#include "x11/X11.h"
#include "x11/XkbDescription.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QDirIterator>
#include <QFile>
#include <QGraphicsTextItem>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

constexpr char dataFlag[] = "-I" KBD_XKB_DIR; // where the keymap compiler looks

// Keycodes of the keymap "evdev".
constexpr KeyCode returnKey = 36;
constexpr KeyCode keyA = 38;
constexpr KeyCode backslash = 51;
constexpr KeyCode leftShift = 50;
constexpr KeyCode capsLock = 66;

constexpr QRgb baseColour = qRgb(169, 169, 169); // "darkgrey"
constexpr QRgb lampOn = qRgb(124, 252, 0); // "lawngreen"
constexpr QRgb lampOff = qRgb(0, 100, 0); // "darkgreen"
constexpr QRgb bodyNormal = qRgb(34, 34, 34);
constexpr QRgb topNormal = qRgb(68, 68, 68);
constexpr QRgb bodyPressed = qRgb(153, 51, 51);
constexpr QRgb topPressed = qRgb(204, 102, 102);

constexpr int backgroundMargin = 20; // tenths of a millimetre
constexpr int captionRoom = 80;
constexpr double enoughToProbe = 0.5; // pixels for each unit
constexpr double enoughToDraw = 0.1;

struct OwnMap {
    const char* name;
    const char* model;
    const char* layout;
    int keys;
};

// The maps of our geometry that are no parts of others.
constexpr std::array<OwnMap, 5> ownMaps{{
    {"pc104", "pc104", "us", 104},
    {"pc105", "pc105", "de", 105},
    {"jp106", "jp106", "jp", 109},
    {"kr106", "kr106", "kr", 106},
    {"abnt2", "abnt2", "br", 107},
}};

// Parts of other maps that the system's data do not mark as such: the compiler refuses them, since
// the shapes that they name are elsewhere.
constexpr std::array<const char*, 5> refusedMaps{
    "typematrix(tm2030USB_alpha)",
    "typematrix(tm2030USB_ctrl)",
    "typematrix(tm2030USB_func)",
    "typematrix(tm2030_MiscDiod_off)",
    "typematrix(tm2030_MiscDiod_on)",
};

// Maps that have no keys: parts of others, too.
constexpr std::array<const char*, 7> keylessMaps{
    "dell(dell65)",
    "digital_vndr/pc(leds_alone)",
    "digital_vndr/pc(leds_on_keys)",
    "typematrix(tm2030_MiscDiod_102)",
    "typematrix(tm2030_MiscDiod_106)",
    "typematrix(tm2030_MiscDiod_dvk)",
    "typematrix(tm2030_shape)",
};

// Symbols that bind Scroll Lock to a modifier, which the usual ones do not.
constexpr char scrollLockSymbols[] = "pc+us+inet(evdev)+digital_vndr/lk(common)";

// The modifiers of Num Lock, Caps Lock and Scroll Lock there.
constexpr std::array<unsigned int, 3> lockMasks{16, x11::lockMask, 32};

constexpr int ownDoodads = 2 * int(lockMasks.size()) + 1; // lamps, their captions and the flag

template <std::size_t size>
bool contains(const std::array<const char*, size>& maps, const QString& map)
{
    return std::find(maps.begin(), maps.end(), map) != maps.end();
}

const QString ownFile = QStringLiteral(KBD_XKB_DIR "/geometry/pc-arvane");

void replace(char*& name, const QString& text)
{
    std::free(name);
    name = strdup(text.toUtf8().constData());
}

// The server's components with this geometry, and other symbols if there are any.
ComponentNamesGuard componentsWith(
    XkbComponentNamesRec& names, const QString& geometry, const QString& symbols)
{
    ComponentNamesGuard guard(&names);
    if (!queryComponentNames(&names, toolkitDisplay(), {}, {}, {}, {}))
        qFatal("setxkbmap gave no components");
    replace(names.geometry, geometry);
    if (!symbols.isEmpty())
        replace(names.symbols, symbols);
    return guard;
}

// The settings given are captions only.
std::unique_ptr<KbdGeometry> pictureOf(
    const QString& geometry, const QString& symbols = {}, const QString& options = {})
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard = componentsWith(names, geometry, symbols);
    return std::make_unique<KbdGeometry>("pc105", "us", "intl", options, &names, false, nullptr);
}

XkbDescription descriptionOf(const QString& geometry)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard = componentsWith(names, geometry, {});
    return compileKeyboard(toolkitDisplay(), names);
}

// What the whole scene looks like, and where its places are.
class Painting {
public:
    explicit Painting(const KbdGeometry& picture, double scale = enoughToProbe)
        : area(picture.sceneRect())
        , pixelsPerUnit(scale)
        , image((area.size() * pixelsPerUnit).toSize(), QImage::Format_RGB32)
    {
        image.fill(Qt::magenta);
        QPainter painter(&image);
        picture.scene()->render(&painter, image.rect(), area);
    }

    QColor at(const QPointF& scenePoint) const
    {
        return image.pixelColor(((scenePoint - area.topLeft()) * pixelsPerUnit).toPoint());
    }

    bool isUniform() const
    {
        const QImage plain = image.convertToFormat(QImage::Format_RGB32);
        const auto* pixels = reinterpret_cast<const QRgb*>(plain.constBits());
        const qsizetype count = plain.sizeInBytes() / qsizetype(sizeof(QRgb));
        return std::all_of(pixels, pixels + count, [&](QRgb pixel) { return pixel == *pixels; });
    }

private:
    QRectF area;
    double pixelsPerUnit;
    QImage image;
};

QRectF areaOf(const QGraphicsItem& item)
{
    return item.mapRectToScene(item.boundingRect());
}

QList<KbdDoodad*> lampsOf(const KbdGeometry& picture)
{
    QList<KbdDoodad*> lamps = picture.doodadItems();
    lamps.removeIf([](const KbdDoodad* doodad) { return !doodad->isIndicator(); });
    return lamps;
}

QStringList lampStatesOf(const KbdGeometry& picture)
{
    QStringList states;
    for (const KbdDoodad* lamp : lampsOf(picture))
        states << (lamp->isActive() ? "on" : "off");
    return states;
}

bool overlap(const QGraphicsItem& one, const QGraphicsItem& other)
{
    return areaOf(one).intersects(areaOf(other))
        && one.mapToScene(one.shape()).intersects(other.mapToScene(other.shape()));
}

// A doodad by its place in millimetres, as the file of geometries has it.
QString nameOf(const QGraphicsItem& item)
{
    if (const auto* key = dynamic_cast<const KbdKey*>(&item))
        return key->name();
    const QPointF corner = item.scenePos() / 10;
    return QString("the doodad with left = %1, top = %2").arg(corner.x()).arg(corner.y());
}

// Of the keymap compiler for a map as "file(map)".
int compilerStatus(const QString& map)
{
    const QString file = map.section('(', 0, 0);
    const QString name = map.section('(', 1).chopped(1);
    const QTemporaryDir results;
    return runTool("xkbcomp",
        {"-I", dataFlag, "-w", "0", "-m", name, "-xkm", KBD_XKB_DIR "/geometry/" + file,
            results.filePath("compiled.xkm")},
        qgetenv("DISPLAY"))
        .status;
}

// "file(map)" of every map in the server's data, parts of others left out.
QStringList installedMaps()
{
    static const QRegularExpression header(
        QStringLiteral("^[ \t]*((?:\\w+[ \t]+)*)xkb_geometry[ \t]+\"([^\"]+)\""),
        QRegularExpression::MultilineOption);
    const QDir directory(QStringLiteral(KBD_XKB_DIR "/geometry"));
    QStringList maps;
    QDirIterator files(directory.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        for (auto match = header.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch map = match.next();
            if (!map.captured(1).contains("hidden"))
                maps << QString("%1(%2)").arg(
                    directory.relativeFilePath(file.fileName()), map.captured(2));
        }
    }
    maps.sort();
    return maps;
}

KbdKey* keyFoundAt(const QPoint& pixel, const QGraphicsView& view, const KeyFinder& finder)
{
    const QRectF area(pixel, QSizeF(1, 1));
    return finder.keyAt(view.viewportTransform().inverted().mapRect(area));
}

KbdKey* frontKeyAt(const QPoint& pixel, const QGraphicsView& view)
{
    const QList<QGraphicsItem*> items = view.items(pixel);
    for (QGraphicsItem* item : items) {
        if (auto* key = dynamic_cast<KbdKey*>(item))
            return key;
    }
    return nullptr;
}

// What the server has changed arrives as an event: to be looked at until it has.
KbdGeometry& followed(KbdGeometry& picture)
{
    XFlush(toolkitDisplay());
    picture.x11LockStateChangedIn();
    return picture;
}

} // namespace

// The geometries that we ship, and all the others that a server may have.
class GeometriesTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void ourMapsCompileWithoutAWarning_data();
    void ourMapsCompileWithoutAWarning();
    void ourMapsHaveAllTheirKeys_data();
    void ourMapsHaveAllTheirKeys();
    void keysLampsAndDoodadsOfOursDoNotOverlap_data();
    void keysLampsAndDoodadsOfOursDoNotOverlap();
    void ourLampsShowTheLocks_data();
    void ourLampsShowTheLocks();
    void ourFlagTakesItsFileFromTheIcons_data();
    void ourFlagTakesItsFileFromTheIcons();
    void anOptionFindsTheKeyLeftOfA_data();
    void anOptionFindsTheKeyLeftOfA();
    void theSceneIsTheBackgroundAndRoomForTheCaptions_data();
    void theSceneIsTheBackgroundAndRoomForTheCaptions();

    void everyInstalledGeometryIsDrawn_data();
    void everyInstalledGeometryIsDrawn();
    void theKeyAtAPlaceIsTheOneThatTheSceneHasInFront_data();
    void theKeyAtAPlaceIsTheOneThatTheSceneHasInFront();
    void aSectionsOwnDoodadsAreNotDrawn();
    void aGeometryThatTheServerLacksIsRefused();

    void aTallReturnIsHitWithinItsOutlineOnly();
    void aClickBesideATallReturnTypesTheKeyThere();
    void theBackgroundHasTheBaseColour();
    void lampsAreLitAndPutOut();
    void aPressedKeyChangesItsColours();
    void theViewShowsTheWholePicture();
    void captionsStandBelowThePicture();
    void aLongCaptionIsShownWholeWhereThereIsRoom();
    void everyGroupHasANameAlsoWhereTheKeymapHasNone_data();
    void everyGroupHasANameAlsoWhereTheKeymapHasNone();
    void aKeyTellsItsDetails();
};

void GeometriesTest::init()
{
    const QByteArray display = qgetenv("DISPLAY");
    QVERIFY(setKeyboard(display, {"-model", "pc105", "-layout", "us"}));
    XkbLockModifiers(toolkitDisplay(), x11::coreKeyboard, 0xff, 0);
    XSync(toolkitDisplay(), x11::xFalse);
}

void GeometriesTest::ourMapsCompileWithoutAWarning_data()
{
    QTest::addColumn<QString>("map");
    for (const OwnMap& map : ownMaps)
        QTest::newRow(map.name) << map.name;
}

void GeometriesTest::ourMapsCompileWithoutAWarning()
{
    QFETCH(QString, map);
    const QTemporaryDir results;
    const ToolResult result = runTool("xkbcomp",
        {"-I", dataFlag, "-w", "10", "-m", map, "-xkm", ownFile, results.filePath("compiled.xkm")},
        qgetenv("DISPLAY"));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.status, 0);
    QVERIFY(QFile(results.filePath("compiled.xkm")).size() > 0);
}

void GeometriesTest::ourMapsHaveAllTheirKeys_data()
{
    QTest::addColumn<QString>("map");
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("keys");
    for (const OwnMap& map : ownMaps)
        QTest::newRow(map.name) << map.name << map.model << map.layout << map.keys;
}

void GeometriesTest::ourMapsHaveAllTheirKeys()
{
    QFETCH(QString, map);
    QFETCH(QString, model);
    QFETCH(QString, layout);
    QVERIFY(setKeyboard(qgetenv("DISPLAY"), {"-model", model, "-layout", layout}));
    const auto picture = pictureOf("pc-arvane(" + map + ')');
    QTEST(int(picture->keyItems().size()), "keys");
    for (const KbdKey* key : picture->keyItems()) {
        QVERIFY2(key->x11Keycode() != 0, qPrintable(key->name()));
        QVERIFY2(key->symbols().groupCount() != 0, qPrintable(key->name()));
    }
}

void GeometriesTest::keysLampsAndDoodadsOfOursDoNotOverlap_data()
{
    ourMapsCompileWithoutAWarning_data();
}

void GeometriesTest::keysLampsAndDoodadsOfOursDoNotOverlap()
{
    QFETCH(QString, map);
    const auto picture = pictureOf("pc-arvane(" + map + ')');
    QList<const QGraphicsItem*> items;
    for (const KbdKey* key : picture->keyItems())
        items << key;
    for (const KbdDoodad* doodad : picture->doodadItems())
        items << doodad;
    for (int i = 0; i < items.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(!overlap(*items.at(i), *items.at(j)),
                qPrintable(nameOf(*items.at(i)) + " and " + nameOf(*items.at(j))));
    }
    QCOMPARE(int(picture->doodadItems().size()), ownDoodads);
}

void GeometriesTest::ourLampsShowTheLocks_data()
{
    ourMapsCompileWithoutAWarning_data();
}

void GeometriesTest::ourLampsShowTheLocks()
{
    QFETCH(QString, map);
    const auto picture = pictureOf("pc-arvane(" + map + ')', scrollLockSymbols);
    QCOMPARE(int(lampsOf(*picture).size()), int(lockMasks.size()));
    // Every set of locks, those that have one lock and those that have several.
    for (unsigned int set = 0; set < 1U << lockMasks.size(); ++set) {
        unsigned int locked = 0;
        QStringList expected;
        for (std::size_t i = 0; i < lockMasks.size(); ++i) {
            const bool isOn = set >> i & 1U;
            locked |= isOn ? lockMasks[i] : 0;
            expected << (isOn ? "on" : "off");
        }
        XkbLockModifiers(toolkitDisplay(), x11::coreKeyboard, 0xff, locked);
        QTRY_COMPARE(lampStatesOf(followed(*picture)), expected);
    }
}

void GeometriesTest::ourFlagTakesItsFileFromTheIcons_data()
{
    ourMapsCompileWithoutAWarning_data();
}

void GeometriesTest::ourFlagTakesItsFileFromTheIcons()
{
    QFETCH(QString, map);
    const auto picture = pictureOf("pc-arvane(" + map + ')');
    StandardErrorCapture standardError;
    picture->setFlagFilename("no-such-flag.png");
    static const QRegularExpression message(
        QStringLiteral("^Doodad: cannot load '(/.*)/icons/no-such-flag\\.png'\n$"));
    const QString written = QString::fromUtf8(standardError.written());
    QVERIFY2(message.match(written).hasMatch(), qPrintable(written));
    const QList<KbdDoodad*> doodads = picture->doodadItems();
    QCOMPARE(std::count_if(doodads.begin(), doodads.end(),
                 [](const KbdDoodad* doodad) { return !doodad->flagFilename().isEmpty(); }),
        1);
}

void GeometriesTest::anOptionFindsTheKeyLeftOfA_data()
{
    ourMapsCompileWithoutAWarning_data();
}

// Symbols name it by an alias that the system's geometries have.
void GeometriesTest::anOptionFindsTheKeyLeftOfA()
{
    QFETCH(QString, map);
    const auto picture = pictureOf("pc-arvane(" + map + ')', "pc+us+inet(evdev)+ctrl(ac_ctrl)");
    const KbdKey* key = keyWithCode(*picture, capsLock);
    QVERIFY(key);
    QCOMPARE(key->activeKeysym(), KeySym(XK_Control_L));
}

void GeometriesTest::theSceneIsTheBackgroundAndRoomForTheCaptions_data()
{
    ourMapsCompileWithoutAWarning_data();
}

void GeometriesTest::theSceneIsTheBackgroundAndRoomForTheCaptions()
{
    QFETCH(QString, map);
    const auto picture = pictureOf("pc-arvane(" + map + ')');
    QRectF covered;
    for (const KbdKey* key : picture->keyItems())
        covered |= areaOf(*key);
    for (const KbdDoodad* doodad : picture->doodadItems())
        covered |= areaOf(*doodad);
    QCOMPARE(picture->sceneRect(),
        covered.adjusted(-backgroundMargin, -backgroundMargin, backgroundMargin,
            backgroundMargin + captionRoom));
}

void GeometriesTest::everyInstalledGeometryIsDrawn_data()
{
    QTest::addColumn<QString>("map");
    const QStringList maps = installedMaps();
    QVERIFY(maps.contains("pc(pc105)"));
    QVERIFY(maps.contains("pc-arvane(pc105)"));
    for (const QString& map : maps)
        QTest::newRow(qPrintable(map)) << map;
}

void GeometriesTest::everyInstalledGeometryIsDrawn()
{
    QFETCH(QString, map);
    if (contains(refusedMaps, map)) {
        QCOMPARE(compilerStatus(map), 1);
        QVERIFY_THROWS_EXCEPTION(KbdGeometry::ExceptionType, pictureOf(map));
        return;
    }
    const auto picture = pictureOf(map);
    const QList<KbdKey*> keys = picture->keyItems();
    const bool hasLabels = std::any_of(
        keys.begin(), keys.end(), [](const KbdKey* key) { return !key->activeLabel().isEmpty(); });
    QCOMPARE(hasLabels, !contains(keylessMaps, map));
    QVERIFY(!picture->sceneRect().isEmpty());
    QVERIFY(!Painting(*picture, enoughToDraw).isUniform());
    picture->setMultishiftDisplay(true);
    QVERIFY(!Painting(*picture, enoughToDraw).isUniform());
    XSync(toolkitDisplay(), x11::xFalse);
}

void GeometriesTest::theKeyAtAPlaceIsTheOneThatTheSceneHasInFront_data()
{
    everyInstalledGeometryIsDrawn_data();
}

// In a picture that is shown smaller, and in one that is shown larger than some of its keys' gaps.
void GeometriesTest::theKeyAtAPlaceIsTheOneThatTheSceneHasInFront()
{
    QFETCH(QString, map);
    if (contains(refusedMaps, map))
        return;
    const auto picture = pictureOf(map);
    const KeyFinder finder(picture->keyItems());
    for (const QSize size : {QSize(301, 103), QSize(1399, 497)}) {
        picture->resize(size);
        const int step = size.width() / 100; // pixels
        for (int x = 0; x < size.width(); x += step) {
            for (int y = 0; y < size.height(); y += step)
                QCOMPARE(keyFoundAt({x, y}, *picture, finder), frontKeyAt({x, y}, *picture));
        }
    }
}

// The system's data have such doodads.
void GeometriesTest::aSectionsOwnDoodadsAreNotDrawn()
{
    for (const char* map : {"digital_vndr/lk(lk201)", "everex(STEPnote)"}) {
        const XkbDescription xkb = descriptionOf(map);
        QVERIFY2(xkb, map);
        int inSections = 0;
        for (int i = 0; i < xkb->geom->num_sections; ++i)
            inSections += xkb->geom->sections[i].num_doodads;
        QCOMPARE(int(pictureOf(map)->doodadItems().size()), int(xkb->geom->num_doodads));
        QVERIFY2(inSections > 0, map);
    }
}

void GeometriesTest::aGeometryThatTheServerLacksIsRefused()
{
    QVERIFY_THROWS_EXCEPTION(KbdGeometry::ExceptionType, pictureOf("no-such-geometry(pc105)"));
}

void GeometriesTest::aTallReturnIsHitWithinItsOutlineOnly()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    picture->resize(1400, 500);
    const KbdKey* key = keyWithCode(*picture, returnKey);
    QVERIFY(key);
    const auto itemAt = [&](double x, double y) {
        return picture->scene()->items(key->mapToScene(QPointF(x, y))).value(0);
    };
    // Its upper part is 276 wide and 181 high; the lower one begins at 47 and ends at 371.
    QCOMPARE(itemAt(10, 90), key);
    QCOMPARE(itemAt(266, 10), key);
    QCOMPARE(itemAt(57, 361), key);
    QCOMPARE(itemAt(266, 361), key);
    QCOMPARE(itemAt(30, 280), keyWithCode(*picture, backslash));
    QVERIFY(itemAt(42, 280) != key);
    QVERIFY(itemAt(30, 185) != key);
    QVERIFY(key->boundingRect().contains(30, 280));
}

void GeometriesTest::aClickBesideATallReturnTypesTheKeyThere()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    picture->resize(1400, 500);
    picture->show();
    QVERIFY(QTest::qWaitForWindowExposed(picture.get()));
    QStringList typed;
    connect(picture.get(), &KbdGeometry::virtualKeyPress, this,
        [&typed](const QString&, const QString& desc) { typed << desc; });
    const KbdKey* key = keyWithCode(*picture, returnKey);
    for (const QPointF place : {QPointF(25, 280), QPointF(150, 280), QPointF(25, 90)})
        QTest::mouseClick(
            picture->viewport(), Qt::LeftButton, {}, picture->mapFromScene(key->mapToScene(place)));
    QCOMPARE(typed, QStringList({"backslash", "Return", "Return"}));
}

void GeometriesTest::theBackgroundHasTheBaseColour()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    const Painting painting(*picture);
    const QRectF ground = picture->sceneRect().adjusted(0, 0, 0, -captionRoom);
    QCOMPARE(painting.at(ground.topLeft() + QPointF(10, 10)), QColor(baseColour));
    QCOMPARE(painting.at(ground.bottomRight() - QPointF(10, 10)), QColor(baseColour));
    // Between the function keys and the figures.
    QCOMPARE(painting.at({500, 260}), QColor(baseColour));
    QCOMPARE(painting.at(ground.bottomRight() + QPointF(-10, 40)), QColor(Qt::magenta));
}

void GeometriesTest::lampsAreLitAndPutOut()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    const QList<KbdDoodad*> lamps = lampsOf(*picture);
    for (const KbdDoodad* lamp : lamps)
        QCOMPARE(Painting(*picture).at(areaOf(*lamp).center()), QColor(lampOff));
    XkbLockModifiers(toolkitDisplay(), x11::coreKeyboard, x11::lockMask, x11::lockMask);
    QTRY_COMPARE(Painting(followed(*picture)).at(areaOf(*lamps.at(1)).center()), QColor(lampOn));
    QCOMPARE(Painting(*picture).at(areaOf(*lamps.at(0)).center()), QColor(lampOff));
    XkbLockModifiers(toolkitDisplay(), x11::coreKeyboard, x11::lockMask, 0);
    QTRY_COMPARE(Painting(followed(*picture)).at(areaOf(*lamps.at(1)).center()), QColor(lampOff));
}

void GeometriesTest::aPressedKeyChangesItsColours()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    const QPointF corner = keyWithCode(*picture, keyA)->scenePos();
    const QPointF body = corner + QPointF(8, 90);
    const QPointF top = corner + QPointF(155, 20);
    XKeyEvent event{};
    event.keycode = keyA;
    QCOMPARE(Painting(*picture).at(body), QColor(bodyNormal));
    QCOMPARE(Painting(*picture).at(top), QColor(topNormal));
    picture->x11KeyPressEventIn(&event);
    QCOMPARE(Painting(*picture).at(body), QColor(bodyPressed));
    QCOMPARE(Painting(*picture).at(top), QColor(topPressed));
    picture->x11KeyReleaseEventIn(&event);
    QCOMPARE(Painting(*picture).at(body), QColor(bodyNormal));
}

void GeometriesTest::theViewShowsTheWholePicture()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    for (const QSize size : {QSize(1400, 500), QSize(600, 900), QSize(2000, 300)}) {
        picture->resize(size);
        const QImage image = picture->grab().toImage();
        const QRect shown = picture->mapFromScene(picture->sceneRect()).boundingRect();
        QVERIFY(QRect({0, 0}, size).adjusted(-1, -1, 1, 1).contains(shown));
        QVERIFY(shown.width() >= size.width() - 8 || shown.height() >= size.height() - 8);
        const KbdDoodad* lamp = lampsOf(*picture).first();
        QCOMPARE(image.pixelColor(picture->mapFromScene(areaOf(*lamp).center())), QColor(lampOff));
    }
}

// From left to right.
QList<QGraphicsTextItem*> captionsOf(const KbdGeometry& picture)
{
    QList<QGraphicsTextItem*> captions;
    for (QGraphicsItem* item : picture.scene()->items()) {
        if (auto* caption = qgraphicsitem_cast<QGraphicsTextItem*>(item))
            captions << caption;
    }
    std::sort(captions.begin(), captions.end(), [](auto* a, auto* b) { return a->x() < b->x(); });
    return captions;
}

void GeometriesTest::aLongCaptionIsShownWholeWhereThereIsRoom()
{
    const QString options("grp:alt_shift_toggle,compose:ralt,caps:escape_shifted_capslock");
    const auto picture = pictureOf("pc-arvane(pc105)", {}, options);
    const QList<QGraphicsTextItem*> captions = captionsOf(*picture);
    QCOMPARE(captions.last()->toPlainText().simplified(), "Options: " + options);
    qreal free = picture->sceneRect().left();
    for (const QGraphicsTextItem* caption : captions) {
        QVERIFY(caption->x() >= free);
        free = caption->x() + caption->boundingRect().width();
    }
    QVERIFY(free <= picture->sceneRect().right());
}

void GeometriesTest::everyGroupHasANameAlsoWhereTheKeymapHasNone_data()
{
    QTest::addColumn<QString>("symbols");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("the second has none")
        << "pc+sun_vndr/jp(sun_type6)+inet(evdev)" << QStringList{"English (US)", "2"};
    QTest::newRow("the first has none")
        << "pc+us:2+inet(evdev)" << QStringList{"1", "English (US)"};
    QTest::newRow("none is missing")
        << "pc+us+de:2+inet(evdev)" << QStringList{"English (US)", "German"};
}

void GeometriesTest::everyGroupHasANameAlsoWhereTheKeymapHasNone()
{
    QFETCH(QString, symbols);
    QTEST(pictureOf("pc-arvane(pc105)", symbols)->groupNames(), "names");
}

void GeometriesTest::captionsStandBelowThePicture()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    const QRectF ground = picture->sceneRect().adjusted(
        backgroundMargin, backgroundMargin, -backgroundMargin, -backgroundMargin - captionRoom);
    const QList<QGraphicsTextItem*> captions = captionsOf(*picture);
    const int left = static_cast<int>(ground.left());
    const int width = static_cast<int>(ground.width());
    const QList<int> places{left, left + width / 4, left + width / 2, left + (3 * width) / 4};
    const QStringList texts{"Model: pc105", "Layout: us", "Variant: intl", "Options:"};
    QCOMPARE(captions.size(), 4);
    for (int i = 0; i < captions.size(); ++i) {
        QCOMPARE(captions.at(i)->pos(), QPointF(places.at(i), ground.bottom() + 20));
        QCOMPARE(captions.at(i)->toPlainText().simplified(), texts.at(i));
        QCOMPARE(captions.at(i)->font().pixelSize(), 60);
        QCOMPARE(captions.at(i)->zValue(), 200.0);
    }
}

void GeometriesTest::aKeyTellsItsDetails()
{
    const auto picture = pictureOf("pc-arvane(pc105)");
    QCOMPARE(keyWithCode(*picture, leftShift)->toolTip(),
        QString("Details about this key:\n"
                "X11 Identity:  Name='LFSH', Code=0x32\n"
                "Key symbol table:\n"
                "   symbol[0,Any]=0xffe1=Shift_L=\u21E7\n"
                "Modifier 1=0x 1"));
    QCOMPARE(keyWithCode(*picture, keyA)->toolTip(),
        QString("Details about this key:\n"
                "X11 Identity:  Name='AC01', Code=0x26\n"
                "Key symbol table:\n"
                "   symbol[0,Base]=0x61=a=a\n"
                "   symbol[0,Caps]=0x41=A=A"));
}

KBD_X11_TEST_MAIN(GeometriesTest)

#include "tst_geometries.moc"

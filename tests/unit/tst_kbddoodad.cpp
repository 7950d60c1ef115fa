#include "FakeGeometry.h"
#include "harness/PaintRecorder.h"
#include "harness/StandardErrorCapture.h"

#include "keys/GeometryColours.h"
#include "keys/KbdDoodad.h"
#include "x11/ColourLookup.h"
#include "x11/X11.h"

#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

namespace {

// The names that were asked of the server, and in how many questions.
struct ColourQuestions {
    std::vector<std::string> names;
    int count = 0;
};

ColourQuestions& colourQuestions()
{
    static ColourQuestions questions;
    return questions;
}

} // namespace

// In place of the server's list of colours, which takes a connection: one that knows one name.
std::vector<std::optional<x11::Colour>> x11::lookUpColours(
    Display*, const std::vector<std::string>& names)
{
    ++colourQuestions().count;
    std::vector<std::optional<x11::Colour>> answers;
    for (const std::string& name : names) {
        colourQuestions().names.push_back(name);
        answers.push_back(
            name == "grey20" ? std::optional(x11::Colour{0x3333, 0x3333, 0x3333}) : std::nullopt);
    }
    return answers;
}

namespace {

constexpr QRgb ground = qRgb(255, 0, 255);
constexpr int margin = 20; // pixels of ground around a doodad

constexpr QRgb white = qRgb(255, 255, 255);
constexpr QRgb black = qRgb(0, 0, 0);
constexpr QRgb navy = qRgb(0, 0, 128);
constexpr QRgb lawnGreen = qRgb(124, 252, 0);
constexpr QRgb darkGreen = qRgb(0, 100, 0);

// Indices of the geometry's colours, in the order in which they are added.
enum ColourIndex : unsigned short { Navy, LawnGreen, DarkGreen, ColourCount };

constexpr unsigned short noSuchIndex = 99;

struct Coloured {
    QRect area; // of all that is not ground, in units of the doodad; empty when nothing is drawn
    QImage image;

    QColor at(int x, int y) const { return image.pixelColor(margin + x, margin + y); }
};

Coloured painted(KbdDoodad& doodad, QSize size = {200, 200})
{
    QImage image(size.width() + 2 * margin, size.height() + 2 * margin, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.translate(margin, margin);
    doodad.paint(&painter, nullptr, nullptr);
    painter.end();

    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != ground)
                area |= QRect(x - margin, y - margin, 1, 1);
        }
    }
    return {area, image};
}

QList<PaintedText> textsOf(KbdDoodad& doodad)
{
    PaintRecorder recorder;
    QPainter painter(&recorder);
    doodad.paint(&painter, nullptr, nullptr);
    painter.end();
    return recorder.texts();
}

} // namespace

class KbdDoodadTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    // Outlines and solid areas.
    void anAreaHasItsColour_data();
    void anAreaHasItsColour();
    void anAreaOfNoColourIsBlack_data();
    void anAreaOfNoColourIsBlack();
    void anAreaIsWhiteForPrinting_data();
    void anAreaIsWhiteForPrinting();
    void anAreaIsAsLargeAsTheBoxOfItsShape();
    void anAreaOfNoShapeIsOneUnit();
    void anAreaIsDrawnByItsPoints();
    void threePointsMakeARectangle();
    void cornersAreRoundedByTheOutline();
    void aShapeWithoutOutlineHasRoundedCorners();

    // Texts.
    void aTextIsWrittenInItsColour();
    void aTextStandsAtTheLeftOfTheBottom();
    void aTextNamesACharacterByItsCode_data();
    void aTextNamesACharacterByItsCode();
    void aTextOfNoHeightIsSafe();
    void aTextStaysBlackOnPaper();

    // Lamps.
    void aLampShowsWhetherItIsOn();
    void aLampOfNoColourIsWhite();
    void aLampIsOffAtFirst();
    void onlyALampIsSwitched_data();
    void onlyALampIsSwitched();
    void aLampKeepsItsColourOnPaper();

    // Logos and the flag.
    void aFlagIsDrawnAsLargeAsItFits_data();
    void aFlagIsDrawnAsLargeAsItFits();
    void aFlagIsSharpOnEveryDevice();
    void onPaperAFlagHasAllItsPixels();
    void aPreparedFlagLooksLikeAnyOther();
    void aFlagIsReplacedByTheNext();
    void noNameTakesTheFlagAway();
    void aFlagThatCannotBeLoadedIsReported();
    void aFlagOfADoodadWithoutDirectoryIsAPath();
    void aLogoIsLoadedAtOnce();
    void aLogoThatCannotBeLoadedIsReported();
    void aFlagHolderIsEmptyAtFirst();
    void aLogoWithoutShapeIsOneUnit();

    void anyOtherDoodadDrawsNothing();
    void paintingLeavesThePainterAsItWas_data();
    void paintingLeavesThePainterAsItWas();
    void theSwitchesAreProperties();

    // The colours of a geometry.
    void namesThatTheServerAloneKnowsAreAskedTogether();
    void anUnknownNameIsAnInvalidColour();
    void theBaseColourIsOneOfTheGeometry();

private:
    std::unique_ptr<KbdDoodad> doodad(const XkbDoodadRec& record);
    std::unique_ptr<KbdDoodad> area(int type, unsigned short colour, unsigned short shape);
    std::unique_ptr<KbdDoodad> lamp(unsigned short on, unsigned short off);
    std::unique_ptr<KbdDoodad> text(const char* words, short width, short height);
    std::unique_ptr<KbdDoodad> logo(const QString& name, unsigned short shape);
    QString writeFlag(const QString& name, QSize size, Qt::GlobalColor colour);

    std::unique_ptr<FakeGeometry> geometry;
    std::unique_ptr<GeometryColours> colours;
    unsigned short square = 0; // 40 by 40, with sharp corners
    QTemporaryDir directory;
};

void KbdDoodadTest::init()
{
    colourQuestions() = {};
    geometry = std::make_unique<FakeGeometry>();
    for (const char* name : {"navy", "lawngreen", "darkgreen"})
        geometry->addColour(name);
    square = static_cast<unsigned short>(geometry->addShape({0, 0, 40, 40}, {{{{40, 40}}, 0}}));
}

std::unique_ptr<KbdDoodad> KbdDoodadTest::doodad(const XkbDoodadRec& record)
{
    colours = std::make_unique<GeometryColours>(nullptr, geometry->xkb());
    return std::make_unique<KbdDoodad>(record, geometry->xkb(), *colours, nullptr);
}

std::unique_ptr<KbdDoodad> KbdDoodadTest::area(
    int type, unsigned short colour, unsigned short shape)
{
    XkbDoodadRec& record = geometry->addDoodad(static_cast<unsigned short>(type));
    record.shape.color_ndx = colour;
    record.shape.shape_ndx = shape;
    return doodad(record);
}

std::unique_ptr<KbdDoodad> KbdDoodadTest::lamp(unsigned short on, unsigned short off)
{
    XkbDoodadRec& record = geometry->addDoodad(XkbIndicatorDoodad);
    record.indicator.shape_ndx = square;
    record.indicator.on_color_ndx = on;
    record.indicator.off_color_ndx = off;
    return doodad(record);
}

std::unique_ptr<KbdDoodad> KbdDoodadTest::text(const char* words, short width, short height)
{
    XkbDoodadRec& record = geometry->addDoodad(XkbTextDoodad);
    record.text.width = width;
    record.text.height = height;
    record.text.color_ndx = Navy;
    record.text.text = geometry->keep(words);
    return doodad(record);
}

std::unique_ptr<KbdDoodad> KbdDoodadTest::logo(const QString& name, unsigned short shape)
{
    XkbDoodadRec& record = geometry->addDoodad(XkbLogoDoodad);
    record.logo.shape_ndx = shape;
    record.logo.logo_name = geometry->keep(name.toUtf8().constData());
    return doodad(record);
}

// The file's path.
QString KbdDoodadTest::writeFlag(const QString& name, QSize size, Qt::GlobalColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    const QString path = directory.filePath(name);
    return image.save(path, "PNG") ? path : QString();
}

void KbdDoodadTest::anAreaHasItsColour_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("outline") << int(XkbOutlineDoodad);
    QTest::newRow("solid") << int(XkbSolidDoodad);
}

void KbdDoodadTest::anAreaHasItsColour()
{
    QFETCH(int, type);
    QCOMPARE(painted(*area(type, Navy, square)).at(20, 20), QColor(navy));
    QCOMPARE(painted(*area(type, LawnGreen, square)).at(20, 20), QColor(lawnGreen));
}

void KbdDoodadTest::anAreaOfNoColourIsBlack_data()
{
    anAreaHasItsColour_data();
}

void KbdDoodadTest::anAreaOfNoColourIsBlack()
{
    QFETCH(int, type);
    QCOMPARE(painted(*area(type, ColourCount, square)).at(20, 20), QColor(black));
    QCOMPARE(painted(*area(type, noSuchIndex, square)).at(20, 20), QColor(black));
}

void KbdDoodadTest::anAreaIsWhiteForPrinting_data()
{
    anAreaHasItsColour_data();
}

void KbdDoodadTest::anAreaIsWhiteForPrinting()
{
    QFETCH(int, type);
    for (const unsigned short colour : {Navy, ColourCount}) {
        const auto item = area(type, colour, square);
        item->setWhite(true);
        QCOMPARE(painted(*item).at(20, 20), QColor(white));
        item->setWhite(false);
        QCOMPARE(painted(*item).at(20, 20), QColor(colour == Navy ? navy : black));
    }
}

void KbdDoodadTest::anAreaIsAsLargeAsTheBoxOfItsShape()
{
    const auto shape =
        static_cast<unsigned short>(geometry->addShape({-10, -5, 90, 45}, {{{{90, 45}}, 0}}));
    const auto item = area(XkbSolidDoodad, Navy, shape);
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 100, 50));
    // The line around it takes the unit behind its end.
    QCOMPARE(painted(*item).area, QRect(0, 0, 101, 51));
}

void KbdDoodadTest::anAreaOfNoShapeIsOneUnit()
{
    const auto item = area(XkbSolidDoodad, Navy, noSuchIndex);
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 1, 1));
    QVERIFY(painted(*item).area.width() <= 3);
}

void KbdDoodadTest::anAreaIsDrawnByItsPoints()
{
    const auto shape = static_cast<unsigned short>(geometry->addShape(
        {0, 0, 100, 100}, {{{{0, 0}, {100, 0}, {100, 100}, {50, 100}, {50, 50}, {0, 50}}, 30}}));
    const Coloured result = painted(*area(XkbOutlineDoodad, Navy, shape));
    QCOMPARE(result.at(25, 75), QColor(ground));
    QCOMPARE(result.at(2, 2), QColor(navy));
    QCOMPARE(result.at(75, 75), QColor(navy));
}

void KbdDoodadTest::threePointsMakeARectangle()
{
    const auto shape = static_cast<unsigned short>(
        geometry->addShape({0, 0, 100, 100}, {{{{0, 0}, {100, 0}, {0, 100}}, 0}}));
    QCOMPARE(painted(*area(XkbSolidDoodad, Navy, shape)).at(90, 90), QColor(navy));
}

void KbdDoodadTest::cornersAreRoundedByTheOutline()
{
    const auto shape =
        static_cast<unsigned short>(geometry->addShape({0, 0, 100, 100}, {{{{100, 100}}, 40}}));
    const Coloured result = painted(*area(XkbSolidDoodad, Navy, shape));
    QCOMPARE(result.at(5, 5), QColor(ground));
    QCOMPARE(result.at(20, 20), QColor(navy));
}

void KbdDoodadTest::aShapeWithoutOutlineHasRoundedCorners()
{
    const auto shape = static_cast<unsigned short>(geometry->addShape({0, 0, 100, 100}));
    const Coloured result = painted(*area(XkbSolidDoodad, Navy, shape));
    QCOMPARE(result.at(1, 1), QColor(ground));
    QCOMPARE(result.at(5, 5), QColor(navy));
}

void KbdDoodadTest::aTextIsWrittenInItsColour()
{
    const auto item = text("Num \u00DCber", 300, 50);
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 300, 50));
    const QList<PaintedText> texts = textsOf(*item);
    QCOMPARE(texts.size(), 1);
    QCOMPARE(texts.first().text, QString("Num \u00DCber"));
    QCOMPARE(texts.first().pixelSize, 50);
    QCOMPARE(texts.first().colour, QColor(navy));
}

void KbdDoodadTest::aTextStandsAtTheLeftOfTheBottom()
{
    const PaintedText written = textsOf(*text("Num", 300, 50)).constFirst();
    QFont font;
    font.setPixelSize(50);
    QCOMPARE(written.baseline.x(), 0.0);
    QVERIFY(std::abs(written.baseline.y() + QFontMetricsF(font).descent() - 49) <= 1.5);
}

void KbdDoodadTest::aTextNamesACharacterByItsCode_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("written");
    QTest::newRow("an arrow") << QByteArray("U+2191") << "\u2191";
    QTest::newRow("a letter, in small figures") << QByteArray("U+00e4") << "\u00E4";
    QTest::newRow("cut to sixteen bits") << QByteArray("U+12191") << "\u2191";
    QTest::newRow("in small letters it is a text") << QByteArray("u+2191") << "u+2191";
    QTest::newRow("not at the beginning") << QByteArray(" U+2191") << " U+2191";
}

void KbdDoodadTest::aTextNamesACharacterByItsCode()
{
    QFETCH(QByteArray, words);
    const QList<PaintedText> texts = textsOf(*text(words.constData(), 500, 50));
    QCOMPARE(texts.size(), 1);
    QTEST(texts.first().text, "written");
}

void KbdDoodadTest::aTextOfNoHeightIsSafe()
{
    const auto item = text("Num", 0, 0);
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 0, 0));
    for (const PaintedText& written : textsOf(*item))
        QVERIFY(written.pixelSize >= 1);
}

void KbdDoodadTest::aTextStaysBlackOnPaper()
{
    const auto item = text("Num", 300, 50);
    item->setWhite(true);
    QCOMPARE(textsOf(*item).constFirst().colour, QColor(navy));
}

void KbdDoodadTest::aLampShowsWhetherItIsOn()
{
    const auto item = lamp(LawnGreen, DarkGreen);
    QCOMPARE(painted(*item).at(20, 20), QColor(darkGreen));
    item->setActive(true);
    QCOMPARE(painted(*item).at(20, 20), QColor(lawnGreen));
    QCOMPARE(painted(*item).at(20, 0), QColor(black));
    item->setActive(false);
    QCOMPARE(painted(*item).at(20, 20), QColor(darkGreen));
}

void KbdDoodadTest::aLampOfNoColourIsWhite()
{
    const auto item = lamp(noSuchIndex, DarkGreen);
    QCOMPARE(painted(*item).at(20, 20), QColor(darkGreen));
    item->setActive(true);
    QCOMPARE(painted(*item).at(20, 20), QColor(white));
    QCOMPARE(painted(*lamp(LawnGreen, ColourCount)).at(20, 20), QColor(white));
}

void KbdDoodadTest::aLampIsOffAtFirst()
{
    const auto item = lamp(LawnGreen, DarkGreen);
    QVERIFY(item->isIndicator());
    QVERIFY(!item->isActive());
}

void KbdDoodadTest::onlyALampIsSwitched_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("outline") << int(XkbOutlineDoodad);
    QTest::newRow("solid") << int(XkbSolidDoodad);
    QTest::newRow("text") << int(XkbTextDoodad);
    QTest::newRow("unknown") << 77;
}

void KbdDoodadTest::onlyALampIsSwitched()
{
    QFETCH(int, type);
    const auto item = doodad(geometry->addDoodad(static_cast<unsigned short>(type)));
    const QImage before = painted(*item).image;
    item->setActive(true);
    QVERIFY(!item->isIndicator());
    QVERIFY(!item->isActive());
    QCOMPARE(painted(*item).image, before);
}

void KbdDoodadTest::aLampKeepsItsColourOnPaper()
{
    const auto item = lamp(LawnGreen, DarkGreen);
    item->setWhite(true);
    QCOMPARE(painted(*item).at(20, 20), QColor(darkGreen));
}

void KbdDoodadTest::aFlagIsDrawnAsLargeAsItFits_data()
{
    QTest::addColumn<QSize>("flag");
    QTest::addColumn<QSize>("place");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("drawn");
    QTest::newRow("wider than its place")
        << QSize(100, 50) << QSize(40, 40) << 1.0 << QSize(40, 20);
    QTest::newRow("higher than its place")
        << QSize(50, 100) << QSize(40, 40) << 1.0 << QSize(20, 40);
    QTest::newRow("smaller than its place")
        << QSize(10, 5) << QSize(40, 40) << 1.0 << QSize(40, 20);
    QTest::newRow("as its place") << QSize(80, 60) << QSize(40, 30) << 1.0 << QSize(40, 30);
    QTest::newRow("on a small screen") << QSize(100, 50) << QSize(40, 40) << 0.5 << QSize(40, 20);
    QTest::newRow("on a large screen") << QSize(100, 50) << QSize(40, 40) << 3.0 << QSize(40, 20);
    QTest::newRow("at no scale") << QSize(100, 50) << QSize(40, 40) << 0.0 << QSize(40, 20);
}

void KbdDoodadTest::aFlagIsDrawnAsLargeAsItFits()
{
    QFETCH(QSize, flag);
    QFETCH(QSize, place);
    QFETCH(double, scale);
    QFETCH(QSize, drawn);
    const int shape =
        geometry->addShape(static_cast<short>(place.width()), static_cast<short>(place.height()));
    writeFlag("flag.png", flag, Qt::green);
    const auto item = logo(directory.path() + '/', static_cast<unsigned short>(shape));
    item->setScale(scale);
    item->setFlagFilename("flag.png");
    const Coloured result = painted(*item);
    QCOMPARE(result.area, QRect(QPoint(0, 0), drawn));
    QCOMPARE(result.at(drawn.width() / 2, drawn.height() / 2), QColor(Qt::green));
}

void KbdDoodadTest::aFlagIsSharpOnEveryDevice()
{
    QImage stripes(40, 40, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        for (int x = 0; x < stripes.width(); ++x)
            stripes.setPixel(x, y, x % 2 == 0 ? black : white);
    }
    QVERIFY(stripes.save(directory.filePath("stripes.png")));
    const auto item = logo(directory.filePath("stripes.png"), square);
    QImage image(40, 40, QImage::Format_RGB32);
    for (const double factor : {0.25, 1.0}) {
        image.fill(ground);
        QPainter painter(&image);
        painter.scale(factor, factor);
        item->paint(&painter, nullptr, nullptr);
    }
    QCOMPARE(image, stripes);
}

// Paper is finer than the units that it is drawn in. What was made smaller before would be grey.
void KbdDoodadTest::onPaperAFlagHasAllItsPixels()
{
    QImage stripes(40, 40, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        for (int x = 0; x < stripes.width(); ++x)
            stripes.setPixel(x, y, x % 2 == 0 ? black : white);
    }
    QVERIFY(stripes.save(directory.filePath("fine.png")));
    const auto item = logo(directory.filePath("fine.png"), square);
    item->setWhite(true);
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(black);
    QPainter painter(&image);
    painter.scale(0.25, 0.25);
    item->paint(&painter, nullptr, nullptr);
    painter.end();
    for (int x = 0; x < 10; ++x)
        QVERIFY(image.pixel(x, 5) == black || image.pixel(x, 5) == white);
}

// Which was scaled for the doodad that stood there before, to the size that it had.
void KbdDoodadTest::aPreparedFlagLooksLikeAnyOther()
{
    QImage stripes(40, 30, QImage::Format_RGB32);
    for (int x = 0; x < stripes.width(); ++x) {
        for (int y = 0; y < stripes.height(); ++y)
            stripes.setPixel(x, y, x % 3 == 0 ? black : white);
    }
    QVERIFY(stripes.save(directory.filePath("prepared.png")));
    QVERIFY(stripes.save(directory.filePath("other.png")));
    const auto drawn = [this](const QString& name, double preparedAt, double scale) {
        const auto before = logo(directory.path() + '/', square);
        before->setScale(preparedAt);
        if (preparedAt > 0)
            before->prepareFlag(name);
        const auto item = logo(directory.path() + '/', square);
        item->setScale(scale);
        item->setFlagFilename(name);
        QImage image(40, 40, QImage::Format_RGB32);
        image.fill(ground);
        QPainter painter(&image);
        painter.scale(scale, scale);
        item->paint(&painter, nullptr, nullptr);
        painter.end();
        return image;
    };
    QCOMPARE(drawn("prepared.png", 0.7, 0.7), drawn("other.png", 0, 0.7));
    QCOMPARE(drawn("prepared.png", 0.3, 0.9), drawn("other.png", 0, 0.9));
}

void KbdDoodadTest::aFlagIsReplacedByTheNext()
{
    writeFlag("one.png", {40, 40}, Qt::green);
    writeFlag("two.png", {40, 20}, Qt::blue);
    const auto item = logo(directory.path() + '/', square);
    item->setFlagFilename("one.png");
    QCOMPARE(painted(*item).at(20, 30), QColor(Qt::green));
    item->setFlagFilename("two.png");
    QCOMPARE(painted(*item).at(20, 10), QColor(Qt::blue));
    QCOMPARE(painted(*item).area, QRect(0, 0, 40, 20));
}

void KbdDoodadTest::noNameTakesTheFlagAway()
{
    writeFlag("flag.png", {40, 40}, Qt::green);
    StandardErrorCapture standardError;
    const auto item = logo(directory.path() + '/', square);
    item->setFlagFilename("flag.png");
    item->setFlagFilename(QString());
    QVERIFY(painted(*item).area.isEmpty());
    QCOMPARE(standardError.written(), QByteArray());
}

void KbdDoodadTest::aFlagThatCannotBeLoadedIsReported()
{
    writeFlag("flag.png", {40, 40}, Qt::green);
    StandardErrorCapture standardError;
    const auto item = logo(directory.path() + '/', square);
    item->setFlagFilename("flag.png");
    item->setFlagFilename("f\u00F6hlt.png");
    QVERIFY(painted(*item).area.isEmpty());
    QCOMPARE(standardError.written(),
        "Doodad: cannot load '" + directory.filePath("f\u00F6hlt.png").toUtf8() + "'\n");
}

void KbdDoodadTest::aFlagOfADoodadWithoutDirectoryIsAPath()
{
    const QString path = writeFlag("flag.png", {40, 40}, Qt::green);
    const QString first = writeFlag("first.png", {40, 40}, Qt::blue);
    const auto item = logo(first, square);
    item->setFlagFilename(path);
    QCOMPARE(painted(*item).at(20, 20), QColor(Qt::green));
}

void KbdDoodadTest::aLogoIsLoadedAtOnce()
{
    const QString path = writeFlag("logo.png", {40, 40}, Qt::green);
    const auto item = logo(path, square);
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 40, 40));
    QCOMPARE(painted(*item).at(20, 20), QColor(Qt::green));
}

void KbdDoodadTest::aLogoThatCannotBeLoadedIsReported()
{
    StandardErrorCapture standardError;
    const auto item = logo("no-such-logo.png", square);
    QVERIFY(painted(*item).area.isEmpty());
    QCOMPARE(standardError.written(), QByteArray("Doodad: cannot load 'no-such-logo.png'\n"));
}

void KbdDoodadTest::aFlagHolderIsEmptyAtFirst()
{
    StandardErrorCapture standardError;
    const auto item = logo(directory.path() + '/', square);
    QVERIFY(painted(*item).area.isEmpty());
    QCOMPARE(standardError.written(), QByteArray());
}

void KbdDoodadTest::aLogoWithoutShapeIsOneUnit()
{
    writeFlag("flag.png", {40, 40}, Qt::green);
    const auto item = logo(directory.path() + '/', noSuchIndex);
    item->setFlagFilename("flag.png");
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 1, 1));
    QCOMPARE(painted(*item).area, QRect(0, 0, 1, 1));
}

void KbdDoodadTest::anyOtherDoodadDrawsNothing()
{
    for (const unsigned short type : {0, 6, 255}) {
        const auto item = doodad(geometry->addDoodad(type));
        QCOMPARE(item->boundingRect(), QRectF(0, 0, 1, 1));
        QVERIFY(painted(*item).area.isEmpty());
    }
}

void KbdDoodadTest::paintingLeavesThePainterAsItWas_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {XkbOutlineDoodad, XkbSolidDoodad, XkbTextDoodad, XkbIndicatorDoodad})
        QTest::addRow("type %d", type) << type;
}

void KbdDoodadTest::paintingLeavesThePainterAsItWas()
{
    QFETCH(int, type);
    XkbDoodadRec& record = geometry->addDoodad(static_cast<unsigned short>(type));
    if (type == XkbTextDoodad) {
        record.text.text = geometry->keep("Num");
        record.text.height = 30;
    }
    const auto item = doodad(record);
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(77);
    painter.setBrush(Qt::yellow);
    painter.setPen(QPen(Qt::green, 3));
    painter.setFont(font);
    item->paint(&painter, nullptr, nullptr);
    QCOMPARE(painter.brush(), QBrush(Qt::yellow));
    QCOMPARE(painter.pen(), QPen(Qt::green, 3));
    QCOMPARE(painter.font(), font);
}

void KbdDoodadTest::theSwitchesAreProperties()
{
    writeFlag("flag.png", {40, 40}, Qt::green);
    const auto light = lamp(LawnGreen, DarkGreen);
    QVERIFY(light->setProperty("active", true));
    QVERIFY(light->isActive());
    QVERIFY(light->setProperty("scale", 2.5));
    QCOMPARE(light->scaleFactor(), 2.5);
    const auto holder = logo(directory.path() + '/', square);
    QVERIFY(holder->setProperty("filename", "flag.png"));
    QCOMPARE(holder->flagFilename(), QString("flag.png"));
    QCOMPARE(painted(*holder).at(20, 20), QColor(Qt::green));
}

void KbdDoodadTest::namesThatTheServerAloneKnowsAreAskedTogether()
{
    const int grey = geometry->addColour("grey20");
    const int unknown = geometry->addColour("no such colour");
    const GeometryColours resolved(nullptr, geometry->xkb());
    QCOMPARE(colourQuestions().count, 1);
    QCOMPARE(colourQuestions().names, (std::vector<std::string>{"grey20", "no such colour"}));
    QCOMPARE(resolved.at(Navy), QColor(navy));
    QCOMPARE(resolved.at(grey), QColor(0x33, 0x33, 0x33));
    QVERIFY(resolved.has(unknown));
    QVERIFY(!resolved.has(unknown + 1));
    QVERIFY(!resolved.has(-1));
}

void KbdDoodadTest::anUnknownNameIsAnInvalidColour()
{
    geometry->xkb().colors[Navy].spec = nullptr;
    const int unknown = geometry->addColour("no such colour");
    const GeometryColours resolved(nullptr, geometry->xkb());
    QVERIFY(!resolved.at(unknown).isValid());
    QVERIFY(!resolved.at(Navy).isValid());
    QCOMPARE(resolved.at(LawnGreen), QColor(lawnGreen));
}

void KbdDoodadTest::theBaseColourIsOneOfTheGeometry()
{
    QVERIFY(!GeometryColours(nullptr, geometry->xkb()).base().isValid());
    geometry->xkb().base_color = &geometry->xkb().colors[LawnGreen];
    QCOMPARE(GeometryColours(nullptr, geometry->xkb()).base(), QColor(lawnGreen));
    XkbColorRec stray{};
    geometry->xkb().base_color = &stray;
    QVERIFY(!GeometryColours(nullptr, geometry->xkb()).base().isValid());
}

QTEST_MAIN(KbdDoodadTest)

#include "tst_kbddoodad.moc"

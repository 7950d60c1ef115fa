#include "FakeKeymap.h"
#include "harness/PaintRecorder.h"

#include "keys/KbdKey.h"
#include "keys/KeyDetails.h"
#include "x11/X11.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace {

constexpr KeyCode keyA = 38;
constexpr KeyCode leftShift = 50;
constexpr KeyCode rightShift = 62;
constexpr KeyCode capsLock = 66;

constexpr ShiftMask_t noModifiers = 0;
constexpr ShiftMask_t shift = x11::shiftMask;
constexpr ShiftMask_t lock = x11::lockMask;
constexpr ShiftMask_t control = x11::controlMask;
constexpr ShiftMask_t mod1 = 8;

constexpr ShiftMask_t both(ShiftMask_t a, ShiftMask_t b)
{
    return static_cast<ShiftMask_t>(a | b);
}

// What every key is drawn on.
constexpr QRgb ground = qRgb(255, 0, 255);
constexpr int margin = 20; // pixels of ground around a key

constexpr QRgb black = qRgb(0, 0, 0);

struct CapRow {
    const char* name;
    QRgb body[2]; // on screen, on paper
    QRgb top[2];
};

constexpr CapRow normalCap{
    "normal", {qRgb(34, 34, 34), qRgb(255, 255, 255)}, {qRgb(68, 68, 68), qRgb(255, 255, 255)}};
constexpr CapRow deadCap{
    "dead", {qRgb(34, 68, 68), qRgb(153, 255, 255)}, {qRgb(68, 102, 102), qRgb(204, 255, 255)}};
constexpr CapRow modifierCap{"modifier", {qRgb(68, 68, 68), qRgb(153, 153, 153)},
    {qRgb(102, 102, 102), qRgb(204, 204, 204)}};
constexpr CapRow pressedCap{"pressed", {qRgb(153, 51, 51), qRgb(255, 153, 153)},
    {qRgb(204, 102, 102), qRgb(255, 204, 204)}};

struct TextColour {
    QRgb onScreen;
    QRgb onPaper;
};

constexpr TextColour modifierOnText{qRgb(255, 51, 51), qRgb(102, 0, 0)};
constexpr TextColour offPositionText{qRgb(255, 102, 255), qRgb(102, 0, 102)};
constexpr TextColour deadText{qRgb(102, 255, 255), qRgb(0, 51, 51)};
constexpr TextColour normalText{qRgb(255, 255, 255), qRgb(0, 0, 0)};

KeyShape rectangle(double width, double height)
{
    KeyShape shape;
    shape.width = width;
    shape.height = height;
    return shape;
}

const KeyShape square = rectangle(180, 180);

// Wide and high enough for a label of every size that its shorter side allows.
const KeyShape wide = rectangle(1000, 180);
const KeyShape tall = rectangle(180, 600);

QImage paintedOn(KbdKey& key, Qt::LayoutDirection direction = Qt::LeftToRight)
{
    const QSize size = key.boundingRect().size().toSize();
    QImage image(
        size.width() + 2 * margin, size.height() + 2 * margin, QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    QPainter painter(&image);
    painter.translate(margin, margin);
    painter.setLayoutDirection(direction);
    key.paint(&painter, nullptr, nullptr);
    return image;
}

// The key as a view puts it on the screen, or as it is drawn on anything else.
QImage paintedWith(KbdKey& key, const QTransform& transform, QWidget* viewport)
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setTransform(transform);
    key.paint(&painter, nullptr, viewport);
    return image;
}

// A way in which a key can come to look different.
using Change = void (*)(KbdKey&);

constexpr std::array<Change, 6> changesOfLook{
    [](KbdKey& key) { key.setCurrentModifiers(x11::shiftMask); },
    [](KbdKey& key) { key.keyPressEventIn(); },
    [](KbdKey& key) { key.setMultipleCharacters(true); },
    [](KbdKey& key) { key.keyReleaseEventIn(); },
    [](KbdKey& key) { key.setMultipleCharacters(false); },
    [](KbdKey& key) { key.setCurrentModifiers(0); },
};

// What of a key has the colour of a label that is neither dead nor held.
QRect inkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == normalText.onScreen)
                ink |= QRect(x - margin, y - margin, 1, 1);
        }
    }
    return ink;
}

// The colour at a place of the key.
QColor at(const QImage& image, int x, int y)
{
    return image.pixelColor(margin + x, margin + y);
}

QList<PaintedText> textsOf(KbdKey& key)
{
    PaintRecorder recorder;
    QPainter painter(&recorder);
    key.paint(&painter, nullptr, nullptr);
    painter.end();
    return recorder.texts();
}

// The only text of the key; one without a colour when there are more or none.
PaintedText textOf(KbdKey& key)
{
    const QList<PaintedText> texts = textsOf(key);
    return texts.size() == 1 ? texts.first() : PaintedText{{}, 0, 0, {}, {}};
}

QStringList labelsOf(KbdKey& key)
{
    QStringList labels;
    for (const PaintedText& text : textsOf(key))
        labels << text.text;
    return labels;
}

void sendMouse(KbdKey& key, QEvent::Type type)
{
    QGraphicsScene scene;
    scene.addItem(&key);
    QGraphicsSceneMouseEvent event(type);
    event.setButton(Qt::LeftButton);
    scene.sendEvent(&key, &event);
    scene.removeItem(&key);
}

void press(KbdKey& key)
{
    sendMouse(key, QEvent::GraphicsSceneMousePress);
}

void release(KbdKey& key)
{
    sendMouse(key, QEvent::GraphicsSceneMouseRelease);
}

// Writes down every signal of a key, in their order.
class KeyLog : public QObject {
public:
    explicit KeyLog(KbdKey& key)
    {
        connect(&key, &KbdKey::virtualKeyPress, this,
            [this](QString& symbol, QString& desc) { note("virtualKeyPress", {symbol, desc}); });
        connect(&key, &KbdKey::virtualKeyRelease, this,
            [this](QString& symbol, QString& desc) { note("virtualKeyRelease", {symbol, desc}); });
        connect(&key, &KbdKey::mouseKeyPressOut, this,
            [this](KeyCode code) { note("mouseKeyPressOut", {number(code)}); });
        connect(&key, &KbdKey::mouseKeyReleaseOut, this,
            [this](KeyCode code) { note("mouseKeyReleaseOut", {number(code)}); });
        connect(&key, &KbdKey::modifierPressed, this,
            [this](KeyCode code, KeyType_t type, ShiftMask_t mask) {
                note("modifierPressed", {number(code), number(type), number(mask)});
            });
        connect(&key, &KbdKey::modifierReleased, this,
            [this](KeyCode code, KeyType_t type, ShiftMask_t mask) {
                note("modifierReleased", {number(code), number(type), number(mask)});
            });
    }

    // What was written since the last call.
    QStringList take() { return std::exchange(lines, {}); }

private:
    static QString number(int value) { return QString::number(value); }

    void note(const QString& signal, const QStringList& arguments)
    {
        lines << signal + ' ' + arguments.join(' ');
    }

    QStringList lines;
};

QTransform onWholePixels(const QTransform& transform)
{
    return {transform.m11(), 0, 0, transform.m22(), std::round(transform.dx()),
        std::round(transform.dy())};
}

} // namespace

class KbdKeyTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    // The cap.
    void theCapHasTheColoursOfItsState_data();
    void theCapHasTheColoursOfItsState();
    void theTopSitsHigherThanTheMiddle();
    void theBorderIsATenthOfTheShorterSide();
    void partsOfAUnitAreCutOff();
    void cornersAreRounded();
    void anOutlineIsDrawnAsItStands();
    void anOutlineWithoutATopGetsARectangularOne();
    void aKeyWithoutGroupsPaintsNothing();
    void aKeyThatTheKeymapLacksPaintsNothing();
    void aKeyWithoutSymbolsHasAnEmptyCap();
    void paintingLeavesThePainterAsItWas();
    void theWholeKeyIsWithinItsBounds();
    void aClickCountsWithinTheOutlineOnly();
    void aRectangleIsHitEverywhere();
    void aKeyTakesNoFocus();

    // One label.
    void theLabelIsDrawnInItsSizeAndWeight();
    void theLabelHasItsColourOnScreenAndOnPaper_data();
    void theLabelHasItsColourOnScreenAndOnPaper();
    void aLabelOfOneCharacterIsCentredAtTheBottom();
    void aLongerLabelBeginsAtTheLeftOfTheBottom();
    void aLabelOfTwoLinesHasTwoLines();
    void aLabelThatDoesNotFitIsShrunk();
    void aSignOfAnotherFontIsAsLargeAsItsInkAllows_data();
    void aSignOfAnotherFontIsAsLargeAsItsInkAllows();
    void aMarkStandsInTheMiddle_data();
    void aMarkStandsInTheMiddle();
    void theCapIsTheSameWhereTheDesktopIsWrittenFromRightToLeft_data();
    void theCapIsTheSameWhereTheDesktopIsWrittenFromRightToLeft();
    void noLabelIsSmallerThanFourPixels();
    void aKeyTooSmallForItsMarginsStillPaints();
    void aLongLabelStaysOnTheNarrowPartOfAnOutline();
    void symbolsThatStandForNothingAreNotLabelled_data();
    void symbolsThatStandForNothingAreNotLabelled();

    // Several labels.
    void fourLabelsStandInTheQuarters();
    void deadKeysAmongOthersHaveAGroundOfTheirOwn();
    void aDeadKeyAmongOthersLeavesTheCapNormal();
    void aSymbolThatIsNoDeadKeyHasNoGround();

    // What the picture sets.
    void theActiveSymbolFollowsModifiersAndGroup();
    void theToolTipDescribesTheKey();

    // Clicks and the physical key.
    void anOrdinaryKeyTypes();
    void aClickReportsTheActiveSymbol();
    void aKeyIsTypedBeforeItLooksPressed();
    void aDoubleClickIsASecondPress();
    void aLockKeyReportsPressAndRelease();
    void aModifierIsToggled();
    void aModifierThatIsHeldInPartIsPressed();
    void aTwinIsToggledAsWell();
    void aLockKeyHasNoUseForItsTwin();
    void aPhysicalKeyLightsUp();
    void aCapOnTheScreenLooksAsOneDrawnAnew_data();
    void aCapOnTheScreenLooksAsOneDrawnAnew();
    void aTurnedCapIsDrawnAsItStands();
    void aKeyThatLooksTheSameIsNotRepainted();
    void aKeyThatLooksDifferentIsRepainted();
    void aPhysicalKeyReportsTheSymbolOfItsEvent();
    void aPhysicalModifierIsReported();
    void aPhysicalKeyNeedsNoState();
    void aKeyWithoutGroupsReportsNothing();
    void aKeyThatTheKeymapLacksReportsNothing();

private:
    std::unique_ptr<KbdKey> key(const char* name, const KeyShape& shape = square);
    std::unique_ptr<KbdKey> keyOf(int type, const std::vector<KeySym>& keysyms,
        const KeyShape& shape = square, KeyCode code = keyA);
    std::unique_ptr<KbdKey> modifierKey(KeyCode code, KeySym keysym, ShiftMask_t mask);

    std::unique_ptr<FakeKeymap> keymap;
};

Q_DECLARE_METATYPE(CapRow)
Q_DECLARE_METATYPE(TextColour)
Q_DECLARE_METATYPE(KeyShape)

void KbdKeyTest::init()
{
    keymap = std::make_unique<FakeKeymap>();
}

std::unique_ptr<KbdKey> KbdKeyTest::key(const char* name, const KeyShape& shape)
{
    return std::make_unique<KbdKey>(keymap->context(), name, shape, nullptr);
}

std::unique_ptr<KbdKey> KbdKeyTest::keyOf(
    int type, const std::vector<KeySym>& keysyms, const KeyShape& shape, KeyCode code)
{
    keymap->addKey("KEY", code, {{type, keysyms}});
    return key("KEY", shape);
}

std::unique_ptr<KbdKey> KbdKeyTest::modifierKey(KeyCode code, KeySym keysym, ShiftMask_t mask)
{
    keymap->addKey("MODI", code, {{keymap->oneLevel(), {keysym}}});
    keymap->setAction(code, XkbSA_SetMods, mask);
    return key("MODI");
}

void KbdKeyTest::theCapHasTheColoursOfItsState_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<bool>("setsModifiers");
    QTest::addColumn<bool>("isPhysicallyDown");
    QTest::addColumn<ColourScheme>("scheme");
    QTest::addColumn<CapRow>("cap");

    for (const ColourScheme scheme : {ColourScheme::OnScreen, ColourScheme::OnPaper}) {
        const char* const place = scheme == ColourScheme::OnScreen ? "on screen" : "on paper";
        const auto row = [&](const char* name) -> QTestData& {
            return QTest::addRow("%s, %s", name, place);
        };
        row("normal") << KeySym(XK_a) << false << false << scheme << normalCap;
        row("modifier") << KeySym(XK_a) << true << false << scheme << modifierCap;
        row("dead") << KeySym(XK_dead_acute) << false << false << scheme << deadCap;
        row("dead goes before modifier")
            << KeySym(XK_dead_acute) << true << false << scheme << deadCap;
        row("pressed") << KeySym(XK_a) << false << true << scheme << pressedCap;
        row("pressed goes before dead")
            << KeySym(XK_dead_acute) << false << true << scheme << pressedCap;
        row("pressed goes before modifier") << KeySym(XK_a) << true << true << scheme << pressedCap;
    }
}

void KbdKeyTest::theCapHasTheColoursOfItsState()
{
    QFETCH(KeySym, keysym);
    QFETCH(bool, setsModifiers);
    QFETCH(bool, isPhysicallyDown);
    QFETCH(ColourScheme, scheme);
    QFETCH(CapRow, cap);
    if (setsModifiers)
        keymap->setAction(keyA, XkbSA_SetMods, shift);
    const auto item = keyOf(keymap->oneLevel(), {keysym});
    if (isPhysicallyDown)
        item->keyPressEventIn();
    item->setColourScheme(scheme);

    const QImage image = paintedOn(*item);
    const auto index = static_cast<std::size_t>(scheme);
    QCOMPARE(at(image, 9, 90), QColor(cap.body[index]));
    QCOMPARE(at(image, 90, 165), QColor(cap.body[index]));
    QCOMPARE(at(image, 155, 15), QColor(cap.top[index]));
    QCOMPARE(at(image, 25, 15), QColor(cap.top[index]));
}

// The border of a key of 180 by 180 is 18 at the sides, 9 above and 27 below.
void KbdKeyTest::theTopSitsHigherThanTheMiddle()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_VoidSymbol});
    const QImage image = paintedOn(*item);
    const QColor body(normalCap.body[0]);
    const QColor top(normalCap.top[0]);
    QCOMPARE(at(image, 17, 80), body);
    QCOMPARE(at(image, 18, 80), QColor(black));
    QCOMPARE(at(image, 19, 80), top);
    QCOMPARE(at(image, 161, 80), top);
    QCOMPARE(at(image, 162, 80), QColor(black));
    QCOMPARE(at(image, 163, 80), body);
    QCOMPARE(at(image, 90, 8), body);
    QCOMPARE(at(image, 90, 9), QColor(black));
    QCOMPARE(at(image, 90, 10), top);
    QCOMPARE(at(image, 90, 152), top);
    QCOMPARE(at(image, 90, 153), QColor(black));
    QCOMPARE(at(image, 90, 154), body);
    QCOMPARE(at(image, 0, 90), QColor(black));
    QCOMPARE(at(image, 180, 90), QColor(black));
}

void KbdKeyTest::theBorderIsATenthOfTheShorterSide()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_VoidSymbol}, rectangle(400, 100));
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 9, 50), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 11, 50), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 389, 50), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 391, 50), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 200, 4), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 200, 6), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 200, 84), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 200, 86), QColor(normalCap.body[0]));
}

// The top of a key of 187 by 187 lies at (18.7, 9.35) and measures 149.6.
void KbdKeyTest::partsOfAUnitAreCutOff()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_VoidSymbol}, rectangle(187.9, 187));
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 18, 80), QColor(black));
    QCOMPARE(at(image, 90, 9), QColor(black));
    QCOMPARE(at(image, 18 + 150, 80), QColor(black));
    QCOMPARE(at(image, 90, 9 + 149), QColor(black));
    QCOMPARE(at(image, 187, 90), QColor(black));
    QCOMPARE(at(image, 188, 90), QColor(ground));
}

void KbdKeyTest::cornersAreRounded()
{
    KeyShape shape = square;
    shape.cornerRadius = 40;
    const auto item = keyOf(keymap->oneLevel(), {XK_VoidSymbol}, shape);
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 5, 5), QColor(ground));
    QCOMPARE(at(image, 174, 174), QColor(ground));
    QCOMPARE(at(image, 90, 5), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 23, 14), QColor(normalCap.body[0]));
}

void KbdKeyTest::anOutlineIsDrawnAsItStands()
{
    KeyShape shape = rectangle(280, 370);
    shape.outline = QPolygon({{0, 0}, {280, 0}, {280, 370}, {50, 370}, {50, 180}, {0, 180}});
    shape.topOutline = QPolygon({{100, 10}, {260, 10}, {260, 350}, {100, 350}});
    const auto item = keyOf(keymap->oneLevel(), {XK_VoidSymbol}, shape);
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 25, 270), QColor(ground));
    QCOMPARE(at(image, 49, 181), QColor(ground));
    QCOMPARE(at(image, 25, 90), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 90, 270), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 270, 270), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 110, 20), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 250, 340), QColor(normalCap.top[0]));
}

void KbdKeyTest::anOutlineWithoutATopGetsARectangularOne()
{
    KeyShape shape = square;
    shape.outline = QPolygon({{0, 0}, {180, 0}, {180, 180}, {90, 180}, {0, 90}});
    const auto item = keyOf(keymap->oneLevel(), {XK_VoidSymbol}, shape);
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 5, 175), QColor(ground));
    QCOMPARE(at(image, 9, 80), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 30, 145), QColor(normalCap.top[0]));
}

void KbdKeyTest::aKeyWithoutGroupsPaintsNothing()
{
    keymap->addKey("AC01", keyA);
    const auto item = key("AC01");
    QImage empty = paintedOn(*item);
    QCOMPARE(item->symbols().groupCount(), 0);
    QCOMPARE(item->x11Keycode(), keyA);
    QImage untouched = empty;
    untouched.fill(ground);
    QCOMPARE(empty, untouched);
}

void KbdKeyTest::aKeyThatTheKeymapLacksPaintsNothing()
{
    const auto item = key("AC01");
    QImage empty = paintedOn(*item);
    QCOMPARE(item->x11Keycode(), KeyCode(0));
    QImage untouched = empty;
    untouched.fill(ground);
    QCOMPARE(empty, untouched);
}

void KbdKeyTest::aKeyWithoutSymbolsHasAnEmptyCap()
{
    const auto item = keyOf(keymap->addType(0, {}), {});
    QCOMPARE(item->symbols().groupCount(), 1);
    QCOMPARE(at(paintedOn(*item), 25, 15), QColor(normalCap.top[0]));
    QVERIFY(textsOf(*item).isEmpty());
    item->setMultipleCharacters(true);
    QVERIFY(textsOf(*item).isEmpty());
}

void KbdKeyTest::paintingLeavesThePainterAsItWas()
{
    const auto item = keyOf(keymap->fourLevels(), {XK_a, XK_dead_acute, XK_b, XK_B});
    QImage image(300, 300, QImage::Format_ARGB32_Premultiplied);
    QFont font;
    font.setPixelSize(77);
    for (const bool multiple : {false, true}) {
        item->setMultipleCharacters(multiple);
        QPainter painter(&image);
        painter.setBrush(Qt::yellow);
        painter.setPen(QPen(Qt::green, 3));
        painter.setFont(font);
        painter.setLayoutDirection(Qt::RightToLeft);
        item->paint(&painter, nullptr, nullptr);
        QCOMPARE(painter.brush(), QBrush(Qt::yellow));
        QCOMPARE(painter.pen(), QPen(Qt::green, 3));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.layoutDirection(), Qt::RightToLeft);
    }
}

void KbdKeyTest::theWholeKeyIsWithinItsBounds()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_a}, rectangle(271.5, 180));
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 271.5, 180));
}

void KbdKeyTest::aClickCountsWithinTheOutlineOnly()
{
    KeyShape shape = rectangle(280, 370);
    shape.outline = QPolygon({{0, 0}, {280, 0}, {280, 370}, {50, 370}, {50, 180}, {0, 180}});
    const QPainterPath path = keyOf(keymap->oneLevel(), {XK_Return}, shape)->shape();
    QVERIFY(path.contains(QPointF(5, 5)));
    QVERIFY(path.contains(QPointF(5, 175)));
    QVERIFY(path.contains(QPointF(55, 365)));
    QVERIFY(path.contains(QPointF(275, 365)));
    QVERIFY(!path.contains(QPointF(45, 185)));
    QVERIFY(!path.contains(QPointF(5, 365)));
}

void KbdKeyTest::aRectangleIsHitEverywhere()
{
    const QPainterPath path = keyOf(keymap->oneLevel(), {XK_Return})->shape();
    QVERIFY(path.contains(QRectF(1, 1, 178, 178)));
    QVERIFY(!path.contains(QPointF(181, 90)));
    QVERIFY(!path.contains(QPointF(90, -1)));
}

void KbdKeyTest::aKeyTakesNoFocus()
{
    QVERIFY(!keyOf(keymap->oneLevel(), {XK_a})->flags().testFlag(QGraphicsItem::ItemIsFocusable));
}

void KbdKeyTest::theLabelIsDrawnInItsSizeAndWeight()
{
    const PaintedText text = textOf(*keyOf(keymap->oneLevel(), {XK_Delete}, wide));
    QCOMPARE(text.pixelSize, 53); // 53.6, of which the part is cut off
    QCOMPARE(text.weight, int(QFont::Normal));
}

void KbdKeyTest::theLabelHasItsColourOnScreenAndOnPaper_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<ShiftMask_t>("state");
    QTest::addColumn<TextColour>("colour");
    QTest::newRow("normal") << KeySym(XK_Delete) << noModifiers << normalText;
    QTest::newRow("dead") << KeySym(XK_dead_acute) << noModifiers << deadText;
    QTest::newRow("modifier on") << KeySym(XK_Delete) << control << modifierOnText;
    QTest::newRow("off the positions") << KeySym(XK_Delete) << mod1 << offPositionText;
}

void KbdKeyTest::theLabelHasItsColourOnScreenAndOnPaper()
{
    QFETCH(KeySym, keysym);
    QFETCH(ShiftMask_t, state);
    QFETCH(TextColour, colour);
    keymap->setAction(keyA, XkbSA_SetMods, control);
    const auto item = keyOf(keymap->addType(2, {{mod1, 1}}), {keysym, keysym});
    item->setMultipleCharacters(state == mod1);
    item->setCurrentModifiers(state);
    QCOMPARE(textOf(*item).colour, QColor(colour.onScreen));
    item->setColourScheme(ColourScheme::OnPaper);
    QCOMPARE(textOf(*item).colour, QColor(colour.onPaper));
}

// The room for a label on a key of 180 by 600 lies at (28, 14) and measures 129 by 554.
void KbdKeyTest::aLabelOfOneCharacterIsCentredAtTheBottom()
{
    const PaintedText text = textOf(*keyOf(keymap->oneLevel(), {XK_x}, tall));
    QFont font;
    font.setPixelSize(text.pixelSize);
    const QFontMetricsF metrics(font);
    const double centre = text.baseline.x() + metrics.horizontalAdvance("x") / 2;
    QVERIFY(std::abs(centre - (28 + 129 / 2.0)) <= 1);
    QVERIFY(std::abs(text.baseline.y() + metrics.descent() - (14 + 554)) <= 1.5);
}

// The room for a label on a key of 1000 by 180 ends at 153 - 5.
void KbdKeyTest::aLongerLabelBeginsAtTheLeftOfTheBottom()
{
    const PaintedText text = textOf(*keyOf(keymap->oneLevel(), {XK_Delete}, wide));
    QFont font;
    font.setPixelSize(text.pixelSize);
    QCOMPARE(text.baseline.x(), 28.0);
    QVERIFY(std::abs(text.baseline.y() + QFontMetricsF(font).descent() - 148) <= 1.5);
}

void KbdKeyTest::aLabelOfTwoLinesHasTwoLines()
{
    const QList<PaintedText> lines = textsOf(*keyOf(keymap->oneLevel(), {XK_Caps_Lock}, wide));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.first().text, QString("Caps"));
    QCOMPARE(lines.last().text, QString("Lock"));
    QCOMPARE(lines.first().baseline.x(), lines.last().baseline.x());
    QVERIFY(lines.first().baseline.y() < lines.last().baseline.y());
}

void KbdKeyTest::aLabelThatDoesNotFitIsShrunk()
{
    const PaintedText text = textOf(*keyOf(keymap->oneLevel(), {XK_Delete}));

    const double size = 53.6;
    const QRectF room(28, 14, 129, 134);
    PaintRecorder recorder;
    QPainter painter(&recorder);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(size));
    painter.setFont(font);
    const QRectF needed = painter.boundingRect(room, Qt::AlignLeft | Qt::AlignBottom, "Delete");
    QVERIFY(needed.width() > room.width());
    const double ratio =
        std::max(needed.width() / room.width(), needed.height() / room.height()) + 0.05;
    QCOMPARE(text.pixelSize, static_cast<int>(size / ratio));

    font.setPixelSize(text.pixelSize);
    QVERIFY(QFontMetricsF(font).horizontalAdvance("Delete") <= room.width());
}

void KbdKeyTest::aSignOfAnotherFontIsAsLargeAsItsInkAllows_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::newRow("Tibetan, of high lines") << KeySym(0x1000f40);
    QTest::newRow("Burmese") << KeySym(0x1001000);
    QTest::newRow("Devanagari") << KeySym(0x1000915);
}

void KbdKeyTest::aSignOfAnotherFontIsAsLargeAsItsInkAllows()
{
    QFETCH(KeySym, keysym);
    const QRect ink = inkOf(paintedOn(*keyOf(keymap->oneLevel(), {keysym})));
    QVERIFY2(ink.height() > 45 || ink.width() > 80, qPrintable(QString::number(ink.height())));
    QVERIFY(QRectF(square.width / 10, 9, 144, 144).contains(ink));
    QVERIFY(std::abs(ink.center().x() - 90) < 8);
}

void KbdKeyTest::aMarkStandsInTheMiddle_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::newRow("Thai, above its letter") << KeySym(XK_Thai_maiek);
    QTest::newRow("Thai, below its letter") << KeySym(XK_Thai_sarau);
    QTest::newRow("Lao") << KeySym(0x1000eb4);
}

void KbdKeyTest::aMarkStandsInTheMiddle()
{
    QFETCH(KeySym, keysym);
    const QRect ink = inkOf(paintedOn(*keyOf(keymap->oneLevel(), {keysym})));
    QVERIFY(!ink.isEmpty());
    QVERIFY2(std::abs(ink.center().x() - 90) < 8, qPrintable(QString::number(ink.center().x())));
}

void KbdKeyTest::theCapIsTheSameWhereTheDesktopIsWrittenFromRightToLeft_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::newRow("a bracket") << KeySym(XK_parenleft);
    QTest::newRow("a word") << KeySym(XK_End);
    QTest::newRow("a letter") << KeySym(XK_hebrew_aleph);
}

void KbdKeyTest::theCapIsTheSameWhereTheDesktopIsWrittenFromRightToLeft()
{
    QFETCH(KeySym, keysym);
    const auto item = keyOf(keymap->oneLevel(), {keysym});
    QVERIFY(!inkOf(paintedOn(*item)).isEmpty());
    QCOMPARE(paintedOn(*item, Qt::RightToLeft), paintedOn(*item));
}

void KbdKeyTest::noLabelIsSmallerThanFourPixels()
{
    constexpr KeySym raiseVolume = 0x1008ff13;
    const PaintedText text = textOf(*keyOf(keymap->oneLevel(), {raiseVolume}, rectangle(50, 50)));
    QCOMPARE(text.text, QString("AudioRaiseVolume"));
    QCOMPARE(text.pixelSize, 4);
}

void KbdKeyTest::aKeyTooSmallForItsMarginsStillPaints()
{
    const QImage bare = paintedOn(*keyOf(keymap->oneLevel(), {XK_VoidSymbol}, rectangle(15, 15)));
    const auto item = keyOf(keymap->fourLevels(), {XK_a, XK_A, XK_b, XK_B}, rectangle(15, 15));
    for (const bool multiple : {false, true}) {
        item->setMultipleCharacters(multiple);
        const QList<PaintedText> texts = textsOf(*item);
        QCOMPARE(texts.size(), multiple ? 4 : 1);
        for (const PaintedText& text : texts)
            QCOMPARE(text.pixelSize, 4);
        QVERIFY(paintedOn(*item) != bare);
    }
}

void KbdKeyTest::aLongLabelStaysOnTheNarrowPartOfAnOutline()
{
    constexpr int narrowFrom = 80;
    KeyShape shape = rectangle(280, 370);
    const KeyShape whole = shape;
    shape.outline =
        QPolygon({{0, 0}, {280, 0}, {280, 370}, {narrowFrom, 370}, {narrowFrom, 180}, {0, 180}});
    const PaintedText moved = textOf(*keyOf(keymap->oneLevel(), {XK_Delete}, shape));
    QVERIFY(moved.baseline.x() >= narrowFrom);
    const PaintedText plain = textOf(*keyOf(keymap->oneLevel(), {XK_Delete}, whole));
    QCOMPARE(plain.baseline.x(), 38.0);
    QVERIFY(moved.pixelSize < plain.pixelSize);
}

void KbdKeyTest::symbolsThatStandForNothingAreNotLabelled_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::newRow("Void") << KeySym(XK_VoidSymbol);
    QTest::newRow("None") << KeySym(x11::none);
}

void KbdKeyTest::symbolsThatStandForNothingAreNotLabelled()
{
    QFETCH(KeySym, keysym);
    const auto item = keyOf(keymap->twoLevels(), {keysym, XK_a});
    QVERIFY(textsOf(*item).isEmpty());
    item->setMultipleCharacters(true);
    QCOMPARE(labelsOf(*item), QStringList{"a"});
}

// A key of 185 by 181 has its cells, of 74.4 by 72.4, at 18 and 92 across and at 9 and 81 down.
void KbdKeyTest::fourLabelsStandInTheQuarters()
{
    const auto item = keyOf(keymap->fourLevels(), {XK_a, XK_b, XK_c, XK_d}, rectangle(185, 181));
    item->setMultipleCharacters(true);
    const QList<PaintedText> texts = textsOf(*item);
    QCOMPARE(labelsOf(*item), QStringList({"a", "b", "c", "d"}));
    constexpr QSizeF cell(74.4, 72.4);
    const QList<QRectF> cells{{{18, 81}, cell}, {{18, 9}, cell}, {{92, 81}, cell}, {{92, 9}, cell}};
    for (int i = 0; i < cells.size(); ++i) {
        QFont font;
        font.setPixelSize(texts.at(i).pixelSize);
        const QFontMetricsF metrics(font);
        const QRectF room(
            cells.at(i).x() + 10, cells.at(i).y() + 5, cell.width() - 15, cell.height() - 10);
        const double middle =
            texts.at(i).baseline.x() + metrics.horizontalAdvance(texts.at(i).text) / 2;
        QVERIFY(std::abs(middle - room.center().x()) <= 1);
        QVERIFY(std::abs(texts.at(i).baseline.y() + metrics.descent() - room.bottom()) <= 1.5);
    }
}

// The grounds on a key of 185 by 181 are 71 by 69, one unit within the cells' upper left corners.
void KbdKeyTest::deadKeysAmongOthersHaveAGroundOfTheirOwn()
{
    const auto item = keyOf(keymap->fourLevels(),
        {XK_dead_grave, XK_dead_acute, XK_dead_circumflex, XK_dead_tilde}, rectangle(185, 181));
    item->setMultipleCharacters(true);
    const QImage image = paintedOn(*item);
    const QColor dead(deadCap.top[0]);
    const QColor top(normalCap.top[0]);
    for (const int left : {18, 92}) {
        for (const int upper : {9, 81}) {
            QCOMPARE(at(image, left + 1, upper + 1), dead);
            QCOMPARE(at(image, left + 71, upper + 1), dead);
            QCOMPARE(at(image, left + 1, upper + 69), dead);
            QCOMPARE(at(image, left + 71, upper + 69), dead);
        }
    }
    for (const int beside : {90, 91, 92})
        QCOMPARE(at(image, beside, 40), top);
    for (const int beside : {79, 80, 81})
        QCOMPARE(at(image, 20, beside), top);

    item->setColourScheme(ColourScheme::OnPaper);
    QCOMPARE(at(paintedOn(*item), 20, 20), QColor(deadCap.top[1]));
}

void KbdKeyTest::aDeadKeyAmongOthersLeavesTheCapNormal()
{
    const auto item = keyOf(keymap->twoLevels(), {XK_dead_acute, XK_a});
    QCOMPARE(at(paintedOn(*item), 9, 90), QColor(deadCap.body[0]));
    item->setMultipleCharacters(true);
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 9, 90), QColor(normalCap.body[0]));
    QCOMPARE(at(image, 20, 20), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 20, 90), QColor(deadCap.top[0]));
    const QList<PaintedText> texts = textsOf(*item);
    QCOMPARE(texts.first().colour, QColor(deadText.onScreen));
    QCOMPARE(texts.last().colour, QColor(normalText.onScreen));
}

void KbdKeyTest::aSymbolThatIsNoDeadKeyHasNoGround()
{
    const auto item = keyOf(keymap->twoLevels(), {XK_a, XK_b});
    item->setMultipleCharacters(true);
    const QImage image = paintedOn(*item);
    QCOMPARE(at(image, 20, 20), QColor(normalCap.top[0]));
    QCOMPARE(at(image, 20, 90), QColor(normalCap.top[0]));
}

void KbdKeyTest::theActiveSymbolFollowsModifiersAndGroup()
{
    const int two = keymap->twoLevels();
    keymap->setLayouts({"us", "gr"});
    keymap->addKey("AC01", keyA, {{two, {XK_a, XK_A}}, {two, {XK_Greek_alpha, XK_Greek_ALPHA}}});
    const auto item = key("AC01");
    QCOMPARE(labelsOf(*item), QStringList{"a"});
    item->setSelectedGroup(1);
    QCOMPARE(labelsOf(*item), QStringList{"\u03B1"});
    item->setCurrentModifiers(shift);
    QCOMPARE(labelsOf(*item), QStringList{"\u0391"});
    QCOMPARE(item->activeKeysym(), KeySym(XK_Greek_ALPHA));
    QCOMPARE(item->activeLabel(), QString("\u0391"));
    item->setMultipleCharacters(true);
    QCOMPARE(labelsOf(*item), QStringList({"\u03B1", "\u0391"}));
}

void KbdKeyTest::theToolTipDescribesTheKey()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_a});
    QCOMPARE(item->toolTip(), KeyDetails::of(item->symbols()));
}

void KbdKeyTest::anOrdinaryKeyTypes()
{
    const auto item = keyOf(keymap->twoLevels(), {XK_Delete, XK_a});
    KeyLog log(*item);
    press(*item);
    QCOMPARE(log.take(), QStringList({"virtualKeyPress Delete Delete", "mouseKeyPressOut 38"}));
    QVERIFY(!item->isPhysicallyDown());
    release(*item);
    QCOMPARE(log.take(), QStringList({"virtualKeyRelease Delete Delete", "mouseKeyReleaseOut 38"}));
}

void KbdKeyTest::aClickReportsTheActiveSymbol()
{
    const auto item = keyOf(keymap->twoLevels(), {XK_1, XK_exclam});
    KeyLog log(*item);
    item->setCurrentModifiers(shift);
    press(*item);
    item->setCurrentModifiers(noModifiers);
    release(*item);
    QCOMPARE(log.take(),
        QStringList({"virtualKeyPress ! exclam", "mouseKeyPressOut 38", "virtualKeyRelease 1 1",
            "mouseKeyReleaseOut 38"}));
}

// What it costs to look so must not keep the key from the window that waits for it.
void KbdKeyTest::aKeyIsTypedBeforeItLooksPressed()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_a});
    QList<bool> looks;
    const auto look = [&] { looks << item->state().heldByUser; };
    connect(item.get(), &KbdKey::mouseKeyPressOut, this, look);
    connect(item.get(), &KbdKey::mouseKeyReleaseOut, this, look);
    press(*item);
    look();
    release(*item);
    look();
    QCOMPARE(looks, QList<bool>({false, true, true, false}));
}

void KbdKeyTest::aDoubleClickIsASecondPress()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_a});
    KeyLog log(*item);
    sendMouse(*item, QEvent::GraphicsSceneMouseDoubleClick);
    QCOMPARE(log.take(), QStringList({"virtualKeyPress a a", "mouseKeyPressOut 38"}));
}

void KbdKeyTest::aLockKeyReportsPressAndRelease()
{
    keymap->setLockModifiers(both(lock, mod1));
    keymap->addKey("CAPS", capsLock, {{keymap->oneLevel(), {XK_Caps_Lock}}});
    keymap->setAction(capsLock, XkbSA_LockMods, lock);
    const auto item = key("CAPS");
    KeyLog log(*item);
    const QString label("Caps\nLock Caps_Lock");
    for (const ShiftMask_t state : {noModifiers, lock}) {
        item->setCurrentModifiers(state);
        press(*item);
        QCOMPARE(log.take(), QStringList({"virtualKeyPress " + label, "modifierPressed 66 3 2"}));
        release(*item);
        QCOMPARE(
            log.take(), QStringList({"virtualKeyRelease " + label, "modifierReleased 66 3 2"}));
    }
}

void KbdKeyTest::aModifierIsToggled()
{
    const auto item = modifierKey(leftShift, XK_Shift_L, shift);
    KeyLog log(*item);
    const QString label("\u21E7 Shift_L");
    press(*item);
    QCOMPARE(log.take(), QStringList({"virtualKeyPress " + label, "modifierPressed 50 1 1"}));
    release(*item);
    QCOMPARE(log.take(), QStringList{"virtualKeyRelease " + label});

    item->setCurrentModifiers(both(shift, mod1));
    press(*item);
    QCOMPARE(log.take(), QStringList({"virtualKeyPress " + label, "modifierReleased 50 1 1"}));
    release(*item);
    QCOMPARE(log.take(), QStringList{"virtualKeyRelease " + label});
}

void KbdKeyTest::aModifierThatIsHeldInPartIsPressed()
{
    const auto item = modifierKey(leftShift, XK_Shift_L, both(shift, mod1));
    KeyLog log(*item);
    item->setCurrentModifiers(mod1);
    press(*item);
    QCOMPARE(log.take().last(), QString("modifierPressed 50 1 9"));
    item->setCurrentModifiers(both(shift, mod1));
    press(*item);
    QCOMPARE(log.take().last(), QString("modifierReleased 50 1 9"));
}

void KbdKeyTest::aTwinIsToggledAsWell()
{
    const auto item = modifierKey(leftShift, XK_Shift_L, shift);
    item->setTwinKeycode(rightShift);
    KeyLog log(*item);
    press(*item);
    QCOMPARE(log.take().mid(1), QStringList({"modifierPressed 50 1 1", "modifierPressed 62 1 1"}));
    release(*item);
    QCOMPARE(log.take().size(), 1);
    item->setCurrentModifiers(shift);
    press(*item);
    QCOMPARE(
        log.take().mid(1), QStringList({"modifierReleased 50 1 1", "modifierReleased 62 1 1"}));
}

void KbdKeyTest::aLockKeyHasNoUseForItsTwin()
{
    keymap->setLockModifiers(shift);
    const auto item = modifierKey(leftShift, XK_Shift_L, shift);
    item->setTwinKeycode(rightShift);
    KeyLog log(*item);
    press(*item);
    QCOMPARE(log.take().mid(1), QStringList{"modifierPressed 50 1 1"});
    release(*item);
    QCOMPARE(log.take().mid(1), QStringList{"modifierReleased 50 1 1"});
}

void KbdKeyTest::aPhysicalKeyLightsUp()
{
    const auto item = keyOf(keymap->oneLevel(), {XK_a});
    KeyLog log(*item);
    item->keyPressEventIn(noModifiers);
    QVERIFY(item->isPhysicallyDown());
    QCOMPARE(at(paintedOn(*item), 9, 90), QColor(pressedCap.body[0]));
    QCOMPARE(log.take(), QStringList{"virtualKeyPress a a"});
    item->keyReleaseEventIn(noModifiers);
    QVERIFY(!item->isPhysicallyDown());
    QCOMPARE(at(paintedOn(*item), 9, 90), QColor(normalCap.body[0]));
    QCOMPARE(log.take(), QStringList{"virtualKeyRelease a a"});
}

void KbdKeyTest::aCapOnTheScreenLooksAsOneDrawnAnew_data()
{
    QTest::addColumn<KeyShape>("shape");
    QTest::addColumn<QTransform>("first");
    QTest::addColumn<QTransform>("second");
    KeyShape angled = rectangle(300, 380);
    angled.outline = QPolygon({{0, 0}, {280, 0}, {280, 370}, {50, 370}, {50, 180}, {0, 180}});
    KeyShape outside = angled;
    outside.outline.translate(-20, -10);
    const QTransform whole = QTransform::fromTranslate(30, 20);
    const QTransform between = QTransform::fromTranslate(30.375, 20.8125);
    const QTransform small = QTransform::fromScale(0.375, 0.375) * between;
    QTest::newRow("as large as it is") << square << whole << whole;
    QTest::newRow("between two pixels") << square << between << between;
    QTest::newRow("smaller") << square << small << small;
    QTest::newRow("at another place") << square << whole << between;
    QTest::newRow("in another size") << square << whole << small;
    QTest::newRow("with an outline") << angled << small << small;
    QTest::newRow("with an outline that begins elsewhere") << outside << small << small;
}

// Every look is drawn first, then made a picture of, and then copied from that. A cap on the screen
// begins at the nearest pixel.
void KbdKeyTest::aCapOnTheScreenLooksAsOneDrawnAnew()
{
    QFETCH(const KeyShape, shape);
    QFETCH(const QTransform, first);
    QFETCH(const QTransform, second);
    QWidget viewport;
    const auto item = keyOf(keymap->twoLevels(), {XK_a, XK_dead_acute}, shape);
    for (const Change change : changesOfLook) {
        change(*item);
        for (const QTransform& transform : {first, second, first, second, second, second})
            QCOMPARE(paintedWith(*item, transform, &viewport),
                paintedWith(*item, onWholePixels(transform), nullptr));
    }
}

void KbdKeyTest::aTurnedCapIsDrawnAsItStands()
{
    QWidget viewport;
    const auto item = keyOf(keymap->oneLevel(), {XK_a});
    const QTransform turned = QTransform::fromTranslate(200, 50).rotate(30);
    QCOMPARE(paintedWith(*item, turned, &viewport), paintedWith(*item, turned, nullptr));
}

void KbdKeyTest::aKeyThatLooksTheSameIsNotRepainted()
{
    QGraphicsScene scene;
    KbdKey* item = keyOf(keymap->oneLevel(), {XK_F1}).release(); // the scene owns it
    scene.addItem(item);
    QCoreApplication::processEvents();
    const QSignalSpy repaints(&scene, &QGraphicsScene::changed);
    item->setCurrentModifiers(x11::shiftMask);
    item->setMultipleCharacters(true);
    item->setSelectedGroup(1);
    QCoreApplication::processEvents();
    QCOMPARE(repaints.count(), 0);
}

void KbdKeyTest::aKeyThatLooksDifferentIsRepainted()
{
    QGraphicsScene scene;
    KbdKey* item = keyOf(keymap->twoLevels(), {XK_a, XK_dead_acute}).release(); // the scene owns it
    scene.addItem(item);
    QCoreApplication::processEvents();
    QSignalSpy repaints(&scene, &QGraphicsScene::changed);
    for (const Change change : changesOfLook) {
        repaints.clear();
        change(*item);
        QTRY_VERIFY(!repaints.isEmpty());
    }
}

void KbdKeyTest::aPhysicalKeyReportsTheSymbolOfItsEvent()
{
    const auto item = keyOf(keymap->twoLevels(), {XK_1, XK_exclam});
    item->setCurrentModifiers(noModifiers);
    KeyLog log(*item);
    item->keyPressEventIn(shift);
    item->keyReleaseEventIn(noModifiers);
    QCOMPARE(log.take(), QStringList({"virtualKeyPress ! exclam", "virtualKeyRelease 1 1"}));
}

void KbdKeyTest::aPhysicalModifierIsReported()
{
    const auto item = modifierKey(leftShift, XK_Shift_L, shift);
    item->setTwinKeycode(rightShift);
    KeyLog log(*item);
    item->setCurrentModifiers(shift);
    item->keyPressEventIn(noModifiers);
    QCOMPARE(log.take(), QStringList({"modifierPressed 50 1 1", "virtualKeyPress \u21E7 Shift_L"}));
    item->keyReleaseEventIn(shift);
    QCOMPARE(
        log.take(), QStringList({"modifierReleased 50 1 1", "virtualKeyRelease \u21E7 Shift_L"}));
}

void KbdKeyTest::aPhysicalKeyNeedsNoState()
{
    const auto item = keyOf(keymap->twoLevels(), {XK_1, XK_exclam});
    item->setCurrentModifiers(shift);
    KeyLog log(*item);
    item->keyPressEventIn();
    item->keyReleaseEventIn();
    QCOMPARE(log.take(), QStringList({"virtualKeyPress 1 1", "virtualKeyRelease 1 1"}));
}

void KbdKeyTest::aKeyWithoutGroupsReportsNothing()
{
    keymap->addKey("LFSH", leftShift);
    keymap->setAction(leftShift, XkbSA_SetMods, shift);
    const auto item = key("LFSH");
    KeyLog log(*item);
    press(*item);
    release(*item);
    item->keyPressEventIn();
    item->keyReleaseEventIn();
    QCOMPARE(log.take(), QStringList());
}

void KbdKeyTest::aKeyThatTheKeymapLacksReportsNothing()
{
    const auto item = key("I999");
    KeyLog log(*item);
    press(*item);
    release(*item);
    item->keyPressEventIn();
    item->keyReleaseEventIn();
    QCOMPARE(log.take(), QStringList());
}

QTEST_MAIN(KbdKeyTest)

#include "tst_kbdkey.moc"

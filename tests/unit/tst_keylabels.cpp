#include "FakeKeymap.h"

#include "keys/KeyLabels.h"
#include "x11/X11.h"

#include <QTest>

#include <memory>

namespace {

constexpr KeyCode returnKey = 36;
constexpr KeyCode keyA = 38;

constexpr ShiftMask_t noModifiers = 0;
constexpr ShiftMask_t shift = x11::shiftMask;
constexpr ShiftMask_t lock = x11::lockMask;
constexpr ShiftMask_t control = x11::controlMask;
constexpr ShiftMask_t mod1 = 8;
constexpr ShiftMask_t mod5 = x11::mod5Mask;

constexpr ShiftMask_t both(ShiftMask_t a, ShiftMask_t b)
{
    return static_cast<ShiftMask_t>(a | b);
}

KeyShape rectangle(double width, double height)
{
    KeyShape shape;
    shape.width = width;
    shape.height = height;
    return shape;
}

QStringList textsOf(const QList<CapLabel>& labels)
{
    QStringList texts;
    for (const CapLabel& label : labels)
        texts << label.text;
    return texts;
}

QList<QRectF> cellsOf(const QList<CapLabel>& labels)
{
    QList<QRectF> cells;
    for (const CapLabel& label : labels)
        cells << label.cell;
    return cells;
}

} // namespace

class KeyLabelsTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void theCapLooksAsTheKeyStands_data();
    void theCapLooksAsTheKeyStands();
    void aKeyWithoutSymbolsHasNoLabels();

    // One label.
    void theSizeComesFromTheShorterSide_data();
    void theSizeComesFromTheShorterSide();
    void aTallReturnKeyHasSmallerLabels_data();
    void aTallReturnKeyHasSmallerLabels();
    void theLabelHasTheUpperFaceForItsCell();
    void theColourIsThatOfTheState_data();
    void theColourIsThatOfTheState();
    void aLevelBeyondTheKeysOwnIsBlank();

    // Several labels.
    void fourLabelsStandInTheQuarters();
    void twoLabelsShareTheWholeWidth();
    void aThirdLevelAloneStandsAtTheRight();
    void labelsAmongOthersAreNotDoubled();
    void aDeadKeyAmongOthersHasAGround();
    void oneSymbolOnBothLevelsIsShownOnce();
    void oneSymbolOnBothLevelsIsShownTwiceBesideAThird();
    void aKeyOfOneLevelIsShownAsBefore();
    void aSymbolOffThePositionsIsShownAlone();
    void capsLockChangesTheCaseOfAll();

private:
    QList<CapLabel> labelsOf(int type, const std::vector<KeySym>& keysyms);
    CapLabel labelOf(int type, const std::vector<KeySym>& keysyms);

    std::unique_ptr<FakeKeymap> keymap;
    KeyShape shape;
    KeyState state;
};

Q_DECLARE_METATYPE(KeyShape)

void KeyLabelsTest::init()
{
    keymap = std::make_unique<FakeKeymap>();
    shape = rectangle(180, 180);
    state = KeyState();
}

QList<CapLabel> KeyLabelsTest::labelsOf(int type, const std::vector<KeySym>& keysyms)
{
    const KeySymbols symbols = keymap->keyOf(type, keysyms);
    return KeyLabels(symbols, shape, state).labels();
}

// The only label; one without text when there are more or none.
CapLabel KeyLabelsTest::labelOf(int type, const std::vector<KeySym>& keysyms)
{
    const QList<CapLabel> labels = labelsOf(type, keysyms);
    return labels.size() == 1 ? labels.first() : CapLabel{{}, 0, {}, KeyColour::BodyNormal};
}

void KeyLabelsTest::theCapLooksAsTheKeyStands_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<bool>("setsModifiers");
    QTest::addColumn<KeyState>("keyState");
    QTest::addColumn<CapLook>("look");
    const KeyState still;
    const KeyState pressed{noModifiers, true};
    const KeyState multiple{noModifiers, false, true};
    KeyState held;
    held.heldByUser = true;
    QTest::newRow("normal") << KeySym(XK_a) << false << still << CapLook::Normal;
    QTest::newRow("modifier") << KeySym(XK_a) << true << still << CapLook::Modifier;
    QTest::newRow("dead") << KeySym(XK_dead_acute) << false << still << CapLook::Dead;
    QTest::newRow("dead goes before modifier")
        << KeySym(XK_dead_acute) << true << still << CapLook::Dead;
    QTest::newRow("pressed goes before dead")
        << KeySym(XK_dead_acute) << false << pressed << CapLook::Pressed;
    QTest::newRow("pressed goes before modifier")
        << KeySym(XK_a) << true << pressed << CapLook::Pressed;
    QTest::newRow("held goes before modifier") << KeySym(XK_a) << true << held << CapLook::Pressed;
    QTest::newRow("dead among others")
        << KeySym(XK_dead_acute) << false << multiple << CapLook::Normal;
}

void KeyLabelsTest::theCapLooksAsTheKeyStands()
{
    QFETCH(KeySym, keysym);
    QFETCH(bool, setsModifiers);
    QFETCH(KeyState, keyState);
    if (setsModifiers)
        keymap->setAction(keyA, XkbSA_SetMods, shift);
    const KeySymbols symbols = keymap->keyOf(keymap->oneLevel(), {keysym});
    QTEST(KeyLabels(symbols, shape, keyState).capLook(), "look");
}

void KeyLabelsTest::aKeyWithoutSymbolsHasNoLabels()
{
    for (const bool multiple : {false, true}) {
        state.multipleCharacters = multiple;
        QVERIFY(labelsOf(keymap->addType(0, {}), {}).isEmpty());
    }
}

void KeyLabelsTest::theSizeComesFromTheShorterSide_data()
{
    QTest::addColumn<KeyShape>("keyShape");
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<double>("size");
    QTest::newRow("a word on a wide key") << rectangle(1000, 180) << KeySym(XK_Delete) << 53.6;
    QTest::newRow("a letter is twice as high") << rectangle(180, 600) << KeySym(XK_x) << 107.2;
    QTest::newRow("a word on a tall key") << rectangle(360, 1000) << KeySym(XK_End) << 111.2;
    QTest::newRow("a small key") << rectangle(1000, 50) << KeySym(XK_End) << 12.0;
}

void KeyLabelsTest::theSizeComesFromTheShorterSide()
{
    QFETCH(KeySym, keysym);
    QFETCH(KeyShape, keyShape);
    shape = keyShape;
    QTEST(labelOf(keymap->oneLevel(), {keysym}).size, "size");
}

void KeyLabelsTest::aTallReturnKeyHasSmallerLabels_data()
{
    QTest::addColumn<KeyShape>("keyShape");
    QTest::addColumn<int>("keycode");
    QTest::addColumn<double>("size");
    QTest::newRow("Return, tall") << rectangle(180, 600) << int(returnKey) << 0.7 * 53.6;
    QTest::newRow("another tall key") << rectangle(180, 600) << int(keyA) << 53.6;
    QTest::newRow("Return, as high as wide") << rectangle(800, 800) << int(returnKey) << 252.0;
    QTest::newRow("Return, higher by a bit") << rectangle(800, 801) << int(returnKey) << 176.4;
    QTest::newRow("Return, wide") << rectangle(1000, 180) << int(returnKey) << 53.6;
}

void KeyLabelsTest::aTallReturnKeyHasSmallerLabels()
{
    QFETCH(KeyShape, keyShape);
    QFETCH(int, keycode);
    const KeySymbols symbols =
        keymap->keyOf(keymap->oneLevel(), {XK_End}, static_cast<KeyCode>(keycode));
    QTEST(KeyLabels(symbols, keyShape, state).labels().first().size, "size");
}

// The border of a key of 180 by 180 is 18 at the sides and 9 above.
void KeyLabelsTest::theLabelHasTheUpperFaceForItsCell()
{
    QCOMPARE(labelOf(keymap->oneLevel(), {XK_x}).cell, QRectF(18, 9, 144, 144));
}

void KeyLabelsTest::theColourIsThatOfTheState_data()
{
    QTest::addColumn<KeySym>("keysym");
    QTest::addColumn<KeyState>("keyState");
    QTest::addColumn<KeyColour>("colour");
    const auto alone = [](ShiftMask_t modifiers) { return KeyState{modifiers}; };
    const auto amongOthers = [](ShiftMask_t modifiers) { return KeyState{modifiers, false, true}; };
    const KeyState pressed{noModifiers, true};
    QTest::newRow("normal") << KeySym(XK_Delete) << alone(noModifiers) << KeyColour::TextNormal;
    QTest::newRow("dead") << KeySym(XK_dead_acute) << alone(noModifiers) << KeyColour::TextDead;
    QTest::newRow("modifier on") << KeySym(XK_Delete) << alone(control)
                                 << KeyColour::TextModifierOn;
    QTest::newRow("modifier on in part")
        << KeySym(XK_Delete) << alone(both(control, lock)) << KeyColour::TextModifierOn;
    QTest::newRow("modifier on goes before dead")
        << KeySym(XK_dead_acute) << alone(control) << KeyColour::TextModifierOn;
    QTest::newRow("another modifier on")
        << KeySym(XK_Delete) << alone(lock) << KeyColour::TextNormal;
    QTest::newRow("off the positions")
        << KeySym(XK_Delete) << amongOthers(mod1) << KeyColour::TextOffPosition;
    QTest::newRow("off the positions goes before dead")
        << KeySym(XK_dead_acute) << amongOthers(mod1) << KeyColour::TextOffPosition;
    QTest::newRow("modifier on goes before off the positions")
        << KeySym(XK_Delete) << amongOthers(both(mod1, control)) << KeyColour::TextModifierOn;
    QTest::newRow("pressed changes nothing") << KeySym(XK_End) << pressed << KeyColour::TextNormal;
}

void KeyLabelsTest::theColourIsThatOfTheState()
{
    QFETCH(KeySym, keysym);
    QFETCH(KeyState, keyState);
    state = keyState;
    keymap->setAction(keyA, XkbSA_SetMods, both(control, shift));
    QTEST(labelOf(keymap->addType(2, {{mod1, 1}}), {keysym, keysym}).colour, "colour");
}

void KeyLabelsTest::aLevelBeyondTheKeysOwnIsBlank()
{
    const int type = keymap->addType(2, {{shift, 5}});
    state.currentModifiers = shift;
    QCOMPARE(textsOf(labelsOf(type, {XK_a, XK_A})), QStringList{""});
    state.multipleCharacters = true;
    QCOMPARE(textsOf(labelsOf(type, {XK_a, XK_A})), QStringList({"a", ""}));
}

// The upper face of a key of 185 by 181 lies at (18.1, 9.05) and measures 148.8 by 144.8.
void KeyLabelsTest::fourLabelsStandInTheQuarters()
{
    shape = rectangle(185, 181);
    state.multipleCharacters = true;
    const QList<CapLabel> labels = labelsOf(keymap->fourLevels(), {XK_a, XK_b, XK_c, XK_d});
    QCOMPARE(textsOf(labels), QStringList({"a", "b", "c", "d"}));
    constexpr QSizeF cell(74.4, 72.4);
    QCOMPARE(cellsOf(labels),
        QList<QRectF>({{{18, 81}, cell}, {{18, 9}, cell}, {{92, 81}, cell}, {{92, 9}, cell}}));
}

void KeyLabelsTest::twoLabelsShareTheWholeWidth()
{
    shape = rectangle(185, 181);
    state.multipleCharacters = true;
    const QList<CapLabel> labels = labelsOf(keymap->twoLevels(), {XK_a, XK_b});
    QCOMPARE(textsOf(labels), QStringList({"a", "b"}));
    constexpr QSizeF cell(148.8, 72.4);
    QCOMPARE(cellsOf(labels), QList<QRectF>({{{18, 81}, cell}, {{18, 9}, cell}}));
}

void KeyLabelsTest::aThirdLevelAloneStandsAtTheRight()
{
    state.multipleCharacters = true;
    const QList<CapLabel> labels = labelsOf(keymap->addType(2, {{mod5, 1}}), {XK_a, XK_b});
    QCOMPARE(textsOf(labels), QStringList({"a", "b"}));
    constexpr QSizeF cell(72, 72);
    QCOMPARE(cellsOf(labels), QList<QRectF>({{{18, 81}, cell}, {{90, 81}, cell}}));
}

void KeyLabelsTest::labelsAmongOthersAreNotDoubled()
{
    state.multipleCharacters = true;
    for (const CapLabel& label : labelsOf(keymap->twoLevels(), {XK_a, XK_End}))
        QCOMPARE(label.size, 53.6);
}

void KeyLabelsTest::aDeadKeyAmongOthersHasAGround()
{
    const int two = keymap->twoLevels();
    QVERIFY(!labelOf(two, {XK_dead_acute, XK_a}).onDeadGround);
    state.multipleCharacters = true;
    const QList<CapLabel> labels = labelsOf(two, {XK_dead_acute, XK_a});
    QCOMPARE(labels.size(), 2);
    QVERIFY(labels.first().onDeadGround);
    QCOMPARE(labels.first().colour, KeyColour::TextDead);
    QVERIFY(!labels.last().onDeadGround);
    QCOMPARE(labels.last().colour, KeyColour::TextNormal);
}

void KeyLabelsTest::oneSymbolOnBothLevelsIsShownOnce()
{
    state.multipleCharacters = true;
    const CapLabel label = labelOf(keymap->twoLevels(), {XK_x, XK_x});
    QCOMPARE(label.text, QString("x"));
    QCOMPARE(label.size, 107.2);
    QCOMPARE(label.colour, KeyColour::TextNormal);
}

void KeyLabelsTest::oneSymbolOnBothLevelsIsShownTwiceBesideAThird()
{
    state.multipleCharacters = true;
    QCOMPARE(textsOf(labelsOf(keymap->fourLevels(), {XK_x, XK_x, XK_y, XK_y})),
        QStringList({"x", "x", "y", "y"}));
}

void KeyLabelsTest::aKeyOfOneLevelIsShownAsBefore()
{
    const int one = keymap->oneLevel();
    const QList<CapLabel> before = labelsOf(one, {XK_x});
    state.multipleCharacters = true;
    QCOMPARE(labelsOf(one, {XK_x}), before);
}

void KeyLabelsTest::aSymbolOffThePositionsIsShownAlone()
{
    const int type = keymap->addType(3, {{shift, 1}, {mod1, 2}});
    const std::vector<KeySym> keysyms{XK_a, XK_A, XK_dead_acute};
    state.multipleCharacters = true;
    QCOMPARE(textsOf(labelsOf(type, keysyms)), QStringList({"a", "A"}));
    state.currentModifiers = mod1;
    const CapLabel label = labelOf(type, keysyms);
    QCOMPARE(label.text, QString("\u00B4"));
    QCOMPARE(label.size, 107.2);
    QCOMPARE(label.colour, KeyColour::TextOffPosition);
    QVERIFY(!label.onDeadGround);
}

void KeyLabelsTest::capsLockChangesTheCaseOfAll()
{
    const int two = keymap->twoLevels();
    state = {lock, false, true};
    QCOMPARE(textsOf(labelsOf(two, {XK_a, XK_A})), QStringList({"A", "A"}));
    state.currentModifiers = both(lock, shift);
    QCOMPARE(textsOf(labelsOf(two, {XK_a, XK_A})), QStringList({"a", "a"}));
}

QTEST_MAIN(KeyLabelsTest)

#include "tst_keylabels.moc"

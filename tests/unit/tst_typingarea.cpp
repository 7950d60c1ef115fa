#include "ui/TypingArea.h"

#include <QKeyEvent>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace {

const QString placeholder = QStringLiteral("Sample Text Area");

// One key of a made-up keyboard: what its events hold.
struct Stroke {
    int key = 0;
    QString text;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

using Strokes = QList<Stroke>;

Stroke dead(Qt::Key key, const QString& text = {})
{
    return {key, text};
}

Stroke letter(char16_t character)
{
    return {QChar(character).toUpper().unicode(), QString(QChar(character)),
        QChar(character).isUpper() ? Qt::ShiftModifier : Qt::NoModifier};
}

Stroke arrow(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return {key, QString(), modifiers};
}

// Says the text of everything, as a translation would.
class ReplacingTranslator : public QTranslator {
public:
    QString translate(const char* context, const char*, const char*, int) const override
    {
        return QLatin1String(context) == QLatin1String("TypingArea") ? QStringLiteral("Probe")
                                                                     : QString();
    }
    bool isEmpty() const override { return false; }
};

// Notes the texts of the key presses that come through the application.
class PressLog : public QObject {
public:
    QStringList texts;
    QList<int> keys;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && !event->spontaneous()) {
            texts.append(static_cast<QKeyEvent*>(event)->text());
            keys.append(static_cast<QKeyEvent*>(event)->key());
        }
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(Stroke)

class TypingAreaTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theSlotsStandInTheAgreedOrder();
    void aNewAreaIsAReadOnlySample();
    void theSampleTextIsTranslated();
    void theOtherConstructorMakesAnOrdinaryLine();
    void anyKeyPressClearsTheSample_data();
    void anyKeyPressClearsTheSample();
    void aReleaseAloneKeepsTheSample();
    void theSameTextTypedByHandIsClearedToo();
    void strokesType_data();
    void strokesType();
    void nothingAppearsBeforeTheBaseKeyIsReleased();
    void theReleaseOfShiftDoesNotCompose();
    void aLetterThatUnicodeLacksIsTypedAsNul();
    void aComposedKeyHasTheTablesKey();
    void oneStrokeOfAnArrowMovesTheCursorByOne();
    void anArrowMovesTheCursorAtItsRelease();
    void oneStrokeOfAnArrowWithShiftSelectsOneCharacter();
    void arrowsDoNotComposeAPendingDeadKey();
    void keysThatTypeNothingAreLeftAlone_data();
    void keysThatTypeNothingAreLeftAlone();
    void otherReleasesAreIgnored();
    void theAreaStaysReadOnly();
    void theAreaNeverTakesTheFocus();

private:
    void press(const Stroke& stroke);
    bool release(const Stroke& stroke);
    void strike(const Strokes& strokes);

    std::unique_ptr<TypingArea> area;
};

void TypingAreaTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    area = std::make_unique<TypingArea>();
}

void TypingAreaTest::cleanup()
{
    area.reset();
}

// The two as the window hands them over: direct calls with its own events.
void TypingAreaTest::press(const Stroke& stroke)
{
    QKeyEvent event(QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text);
    area->keyPressEvent(&event);
}

bool TypingAreaTest::release(const Stroke& stroke)
{
    QKeyEvent event(QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
    area->keyReleaseEvent(&event);
    return event.isAccepted();
}

void TypingAreaTest::strike(const Strokes& strokes)
{
    for (const Stroke& stroke : strokes) {
        press(stroke);
        release(stroke);
    }
}

void TypingAreaTest::theSlotsStandInTheAgreedOrder()
{
    const QMetaObject& meta = TypingArea::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).parameterNames(), QByteArrayList{"event"});
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    const QStringList expected{
        QStringLiteral("keyPressEvent(QKeyEvent*)"), QStringLiteral("keyReleaseEvent(QKeyEvent*)")};
    QCOMPARE(methods, expected);
}

void TypingAreaTest::aNewAreaIsAReadOnlySample()
{
    QCOMPARE(area->text(), placeholder);
    QVERIFY(area->isReadOnly());
    QCOMPARE(area->focusPolicy(), Qt::NoFocus);
    QVERIFY(!area->testAttribute(Qt::WA_InputMethodEnabled));
}

void TypingAreaTest::theSampleTextIsTranslated()
{
    ReplacingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    area = std::make_unique<TypingArea>();
    QCOMPARE(area->text(), QStringLiteral("Probe"));
    press(letter(u'x'));
    QCOMPARE(area->text(), QStringLiteral("x"));
}

void TypingAreaTest::theOtherConstructorMakesAnOrdinaryLine()
{
    const TypingArea line(QStringLiteral("words"));
    QCOMPARE(line.text(), QStringLiteral("words"));
    QVERIFY(!line.isReadOnly());
    QCOMPARE(line.focusPolicy(), Qt::StrongFocus);
}

void TypingAreaTest::anyKeyPressClearsTheSample_data()
{
    QTest::addColumn<Stroke>("stroke");
    QTest::addColumn<QString>("text");
    QTest::newRow("a letter") << letter(u'a') << "a";
    QTest::newRow("Shift") << Stroke{Qt::Key_Shift, QString()} << "";
    QTest::newRow("a dead key") << dead(Qt::Key_Dead_Acute) << "";
}

void TypingAreaTest::anyKeyPressClearsTheSample()
{
    QFETCH(const Stroke, stroke);
    press(stroke);
    QTEST(area->text(), "text");
}

void TypingAreaTest::aReleaseAloneKeepsTheSample()
{
    release(letter(u'a'));
    QCOMPARE(area->text(), placeholder);
}

void TypingAreaTest::theSameTextTypedByHandIsClearedToo()
{
    press(letter(u'a'));
    area->setText(placeholder);
    press(letter(u'b'));
    QCOMPARE(area->text(), QStringLiteral("b"));
}

void TypingAreaTest::strokesType_data()
{
    QTest::addColumn<Strokes>("strokes");
    QTest::addColumn<QString>("text");

    const Stroke acute = dead(Qt::Key_Dead_Acute);
    const Stroke stroke = dead(Qt::Key_Dead_Stroke);
    const Stroke enter{Qt::Key_Return, QStringLiteral("\r")};
    const Stroke backspace{Qt::Key_Backspace, QStringLiteral("\b")};
    const Stroke unknown{Qt::Key_unknown, QStringLiteral("\u0436")};
    const Stroke surrogates{0, QString::fromUcs4(U"\U0001F600")};

    QTest::newRow("letters") << Strokes{letter(u'a'), letter(u'B')} << "aB";
    QTest::newRow("a key without Qt code") << Strokes{unknown} << "\u0436";
    QTest::newRow("a character of two units") << Strokes{surrogates} << "\U0001F600";
    QTest::newRow("Backspace") << Strokes{letter(u'a'), letter(u'b'), backspace} << "a";
    QTest::newRow("Return") << Strokes{letter(u'a'), enter} << "a";
    QTest::newRow("acute, e") << Strokes{acute, letter(u'e')} << "\u00E9";
    QTest::newRow("acute, E") << Strokes{acute, letter(u'E')} << "\u00C9";
    QTest::newRow("acute twice") << Strokes{acute, acute} << "\u00B4";
    QTest::newRow("acute twice, e") << Strokes{acute, acute, letter(u'e')} << "\u00B4e";
    QTest::newRow("acute, q: the accent is lost") << Strokes{acute, letter(u'q')} << "q";
    QTest::newRow("acute, q, e") << Strokes{acute, letter(u'q'), letter(u'e')} << "qe";
    QTest::newRow("acute, e, e") << Strokes{acute, letter(u'e'), letter(u'e')} << "\u00E9e";
    QTest::newRow("acute, AE") << Strokes{acute, {Qt::Key_AE, QStringLiteral("\u00E6")}}
                               << "\u01FD";
    QTest::newRow("another dead key takes the place of the first")
        << Strokes{acute, dead(Qt::Key_Dead_Grave), letter(u'e')} << "\u00E8";
    QTest::newRow("the dead key's own text is not typed")
        << Strokes{dead(Qt::Key_Dead_Acute, QStringLiteral("\u00B4")), letter(u'e')} << "\u00E9";
    QTest::newRow("iota, a: it composes nothing")
        << Strokes{dead(Qt::Key_Dead_Iota), letter(u'a')} << "a";
    QTest::newRow("iota twice") << Strokes{dead(Qt::Key_Dead_Iota), dead(Qt::Key_Dead_Iota),
        letter(u'a')} << "a";
    QTest::newRow("horn twice: it has no accent")
        << Strokes{dead(Qt::Key_Dead_Horn), dead(Qt::Key_Dead_Horn), letter(u'o')} << "o";
    QTest::newRow("horn, o") << Strokes{dead(Qt::Key_Dead_Horn), letter(u'o')} << "\u01A1";
    QTest::newRow("a dead key beyond the horn is none here")
        << Strokes{stroke, letter(u'l')} << "l";
}

void TypingAreaTest::strokesType()
{
    QFETCH(const Strokes, strokes);
    strike(strokes);
    QTEST(area->text(), "text");
}

void TypingAreaTest::nothingAppearsBeforeTheBaseKeyIsReleased()
{
    strike({dead(Qt::Key_Dead_Acute)});
    QKeyEvent event(QEvent::KeyPress, Qt::Key_E, Qt::NoModifier, QStringLiteral("e"));
    area->keyPressEvent(&event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(area->text(), QString());
    release(letter(u'e'));
    QCOMPARE(area->text(), QStringLiteral("\u00E9"));
}

void TypingAreaTest::theReleaseOfShiftDoesNotCompose()
{
    const Stroke shift{Qt::Key_Shift, QString()};
    strike({dead(Qt::Key_Dead_Acute), shift});
    press(shift);
    strike({letter(u'E')});
    release(shift);
    QCOMPARE(area->text(), QStringLiteral("\u00C9"));
}

// The line edit takes no control characters, so the key types nothing that can be seen.
void TypingAreaTest::aLetterThatUnicodeLacksIsTypedAsNul()
{
    PressLog log;
    area->installEventFilter(&log);
    strike({letter(u'a'), dead(Qt::Key_Dead_Diaeresis), letter(u'T'), letter(u'b')});
    QCOMPARE(log.texts, QStringList{QString(QChar::Null)});
    QCOMPARE(log.keys, QList<int>{Qt::Key_unknown});
    QCOMPARE(area->text(), QStringLiteral("ab"));
}

void TypingAreaTest::aComposedKeyHasTheTablesKey()
{
    PressLog log;
    area->installEventFilter(&log);
    strike({dead(Qt::Key_Dead_Acute), letter(u'e'), dead(Qt::Key_Dead_Caron), letter(u'c')});
    const QList<int> keys{Qt::Key_Eacute, Qt::Key_unknown};
    QCOMPARE(log.keys, keys);
}

void TypingAreaTest::oneStrokeOfAnArrowMovesTheCursorByOne()
{
    strike({letter(u'a'), letter(u'b'), letter(u'c'), arrow(Qt::Key_Left)});
    QCOMPARE(area->cursorPosition(), 2);
    strike({arrow(Qt::Key_Left)});
    QCOMPARE(area->cursorPosition(), 1);
    strike({arrow(Qt::Key_Right)});
    QCOMPARE(area->cursorPosition(), 2);
    QVERIFY(!area->hasSelectedText());
}

void TypingAreaTest::anArrowMovesTheCursorAtItsRelease()
{
    strike({letter(u'a'), letter(u'b')});
    press(arrow(Qt::Key_Left));
    QCOMPARE(area->cursorPosition(), 2);
    release(arrow(Qt::Key_Left));
    QCOMPARE(area->cursorPosition(), 1);
}

void TypingAreaTest::oneStrokeOfAnArrowWithShiftSelectsOneCharacter()
{
    strike({letter(u'a'), letter(u'b'), letter(u'c'), arrow(Qt::Key_Left, Qt::ShiftModifier)});
    QCOMPARE(area->selectedText(), QStringLiteral("c"));
    strike({arrow(Qt::Key_Left, Qt::ShiftModifier)});
    QCOMPARE(area->selectedText(), QStringLiteral("bc"));
    strike({arrow(Qt::Key_Right, Qt::ShiftModifier)});
    QCOMPARE(area->selectedText(), QStringLiteral("c"));
}

void TypingAreaTest::arrowsDoNotComposeAPendingDeadKey()
{
    strike({letter(u'a'), dead(Qt::Key_Dead_Acute)});
    release(arrow(Qt::Key_Left));
    QCOMPARE(area->cursorPosition(), 0);
    strike({letter(u'e')});
    QCOMPARE(area->text(), QStringLiteral("\u00E9a"));
}

void TypingAreaTest::keysThatTypeNothingAreLeftAlone_data()
{
    QTest::addColumn<Stroke>("stroke");
    QTest::newRow("a function key") << Stroke{Qt::Key_F1, QString()};
    QTest::newRow("U+0000") << Stroke{Qt::Key_unknown, QString(QChar::Null)};
    QTest::newRow("U+0001") << Stroke{Qt::Key_unknown, QString(QChar(1))};
    QTest::newRow("Escape") << Stroke{Qt::Key_Escape, QString(QChar(27))};
    QTest::newRow("Tab") << Stroke{Qt::Key_Tab, QStringLiteral("\t")};
    QTest::newRow("a control combination")
        << Stroke{Qt::Key_G, QString(QChar(7)), Qt::ControlModifier};
}

void TypingAreaTest::keysThatTypeNothingAreLeftAlone()
{
    QFETCH(const Stroke, stroke);
    strike({letter(u'a'), stroke});
    QCOMPARE(area->text(), QStringLiteral("a"));
}

void TypingAreaTest::otherReleasesAreIgnored()
{
    QVERIFY(!release(letter(u'a')));
    QVERIFY(!release({Qt::Key_F1, QString()}));
    QVERIFY(release(arrow(Qt::Key_Left)));
    QVERIFY(area->isReadOnly());
}

void TypingAreaTest::theAreaStaysReadOnly()
{
    const Stroke acute = dead(Qt::Key_Dead_Acute);
    for (const Stroke& stroke : Strokes{letter(u'a'), acute, letter(u'e'), acute, letter(u'q'),
             Stroke{Qt::Key_F1, QString()}, arrow(Qt::Key_Left)}) {
        press(stroke);
        QVERIFY(area->isReadOnly());
        release(stroke);
        QVERIFY(area->isReadOnly());
    }
    QVERIFY(!area->testAttribute(Qt::WA_InputMethodEnabled));
}

void TypingAreaTest::theAreaNeverTakesTheFocus()
{
    QWidget window;
    TypingArea line(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.setFocus(Qt::OtherFocusReason);
    QTest::mouseClick(&line, Qt::LeftButton);
    QVERIFY(!line.hasFocus());
    QVERIFY(window.hasFocus());
}

QTEST_MAIN(TypingAreaTest)
#include "tst_typingarea.moc"

#include "ui/specs/SpecTable.h"

#include <QColor>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QStringDecoder>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

// What the installed keyboard rules say of a layout or of one of its variants.
struct RuleItem {
    QStringList countries; // ISO 3166, capitals
    QStringList languages; // ISO 639-2 or -3
};

struct RuleLayout : RuleItem {
    QHash<QString, RuleItem> variants;
};

using Rules = QHash<QString, RuleLayout>;

// A configItem element: its name and, into `item`, what it belongs to.
QString readConfigItem(QXmlStreamReader& xml, RuleItem& item)
{
    QString name;
    while (xml.readNext() != QXmlStreamReader::Invalid) {
        if (xml.isEndElement() && xml.name() == QLatin1String("configItem"))
            break;
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name"))
            name = xml.readElementText();
        else if (xml.name() == QLatin1String("iso3166Id"))
            item.countries.append(xml.readElementText());
        else if (xml.name() == QLatin1String("iso639Id"))
            item.languages.append(xml.readElementText());
    }
    return name;
}

RuleLayout readLayout(QXmlStreamReader& xml, QString& name)
{
    RuleLayout layout;
    bool isVariant = false;
    while (xml.readNext() != QXmlStreamReader::Invalid) {
        if (xml.isEndElement() && xml.name() == QLatin1String("layout"))
            break;
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("variantList"))
            isVariant = true;
        if (xml.name() != QLatin1String("configItem"))
            continue;
        RuleItem item;
        const QString itemName = readConfigItem(xml, item);
        if (isVariant) {
            layout.variants.insert(itemName, item);
        } else {
            name = itemName;
            static_cast<RuleItem&>(layout) = item;
        }
    }
    return layout;
}

// Empty when the file cannot be read.
Rules readRules()
{
    QFile file(QStringLiteral(XKB_RULES_FILE));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    Rules rules;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement() || xml.name() != QLatin1String("layout"))
            continue;
        QString name;
        const RuleLayout layout = readLayout(xml, name);
        rules.insert(name, layout);
    }
    return rules;
}

// Variants for another language that are the country's own all the same, so that its flag is right.
const QSet<QString> otherOfficialLanguages{
    QStringLiteral("ca(eng)"),
    QStringLiteral("ch(fr)"),
    QStringLiteral("dz(ar)"),
    QStringLiteral("in(eng)"),
    QStringLiteral("ma(french)"),
};

// The XKB data of Debian 12 do not have these layouts yet. Every other keyboard of the table can be
// chosen on each release that the program is built for.
const QSet<QString> keyboardsThatSomeRulesLack{
    QStringLiteral("Egypt"),
    QStringLiteral("New Zealand"),
    QStringLiteral("New Zealand, 105 keys"),
};

bool isFlag(const QString& icon)
{
    static const QRegularExpression form(QStringLiteral("^[a-z]{2}\\.png$"));
    return form.match(icon).hasMatch();
}

bool isBadge(const QString& icon)
{
    return icon.startsWith(QLatin1String("badge-"));
}

QString flagOf(const QString& layout)
{
    return layout + QLatin1String(".png");
}

QStringList layoutsOf(const SpecRow& row)
{
    return row.layout.split(QLatin1Char(','));
}

QStringList variantsOf(const SpecRow& row)
{
    return row.variant.isEmpty() ? QStringList() : row.variant.split(QLatin1Char(','));
}

QString englishName(const SpecRow& row)
{
    return row.name.section(QLatin1String(" ["), 0, 0);
}

QString nativeName(const SpecRow& row)
{
    return row.name.section(QLatin1String(" ["), 1);
}

// What follows the name of the usual shape in that of the other, and what the usual one is called
// where its name says its shape, too.
const QLatin1String otherShape(", 105 keys");
const QLatin1String usualShape(", 104 keys");

QString nameOfOtherShape(const SpecRow& usual)
{
    QString name = englishName(usual);
    if (name.endsWith(usualShape))
        name.chop(usualShape.size());
    return name + otherShape;
}

bool isOfOneColour(const QImage& image)
{
    QImage plain(image.size(), image.format());
    plain.fill(image.pixelColor(0, 0));
    return plain == image;
}

enum class Section { Languages, TwoLayouts, Countries };

Section sectionOf(const SpecRow& row)
{
    if (layoutsOf(row).size() > 1)
        return Section::TwoLayouts;
    return isBadge(row.icon) ? Section::Languages : Section::Countries;
}

QList<QByteArray> linesOfTheFile()
{
    QFile file(QStringLiteral(KBD_SPECS_FILE));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().split('\n');
}

} // namespace

// The shipped spec table and its icons, against the installed keyboard rules.
class KbdSpecsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void theFileIsPlainUtf8Lines();
    void aRowHasFiveFieldsWithoutSpareBlanks();
    void aNameIsEnglishAndThenNative();
    void noNameStandsTwice();
    void noKeyboardStandsTwice();
    void japanAndKoreaAreCalledByTheNamesThatTheSelectorKnows();
    void languagesComeBeforeTwoLayoutsBeforeCountriesEachSorted();
    void everyModelHasAShape();
    void whatIsUsualAsAnotherShapeStandsThereWith105KeysToo();
    void onlyTheOtherShapeOfARowIsCalled105Keys();

    void theRulesKnowEveryLayoutAndVariant_data() { addRows(); }
    void theRulesKnowEveryLayoutAndVariant();
    void everyLayoutOfTheRulesHasARow();
    void onlyKeyboardsThatSomeRulesLackAreLeftOut();
    void hindiIsFoundUnderItsName();

    void everyIconIsAPictureOfTheSizeOfAFlag_data() { addRows(); }
    void everyIconIsAPictureOfTheSizeOfAFlag();
    void aFlagThatHasChangedIsTheOneInUse_data();
    void aFlagThatHasChangedIsTheOneInUse();
    void bothKeyCapsArePictures();
    void aFlagIsThatOfACountryOfItsLayouts_data() { addRows(); }
    void aFlagIsThatOfACountryOfItsLayouts();
    void aVariantForAnotherLanguageHasABadge_data() { addRows(); }
    void aVariantForAnotherLanguageHasABadge();
    void theLastRowOfALayoutHasItsFlag();

private:
    void addRows() const;
    SpecRow row() const;

    QList<SpecRow> rows;
    Rules rules;
};

void KbdSpecsTest::initTestCase()
{
    rows = SpecTable::rowsOf(QStringLiteral(KBD_SPECS_FILE)).value_or(SpecRows()).all();
    rules = readRules();
    QVERIFY(!rows.isEmpty());
    QVERIFY(rules.contains(QStringLiteral("us")));
    QVERIFY(rules.value(QStringLiteral("us")).variants.contains(QStringLiteral("dvorak")));
    QCOMPARE(rules.value(QStringLiteral("us")).countries, QStringList{QStringLiteral("US")});
}

void KbdSpecsTest::addRows() const
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(qUtf8Printable(englishName(rows.at(i)))) << i;
}

SpecRow KbdSpecsTest::row() const
{
    QFETCH(int, index);
    return rows.at(index);
}

void KbdSpecsTest::theFileIsPlainUtf8Lines()
{
    const QList<QByteArray> lines = linesOfTheFile();
    const QByteArray contents = lines.join('\n');
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder(contents);
    QVERIFY(!text.isEmpty());
    QVERIFY(!decoder.hasError());
    QVERIFY(!contents.startsWith("\xEF\xBB\xBF"));
    QVERIFY(!contents.contains('\r'));
    QVERIFY(!contents.contains('\0'));
    QVERIFY2(lines.last().isEmpty(), "the last line has no end");
}

void KbdSpecsTest::aRowHasFiveFieldsWithoutSpareBlanks()
{
    int count = 0;
    for (const QByteArray& line : linesOfTheFile()) {
        QVERIFY2(!line.endsWith(' '), line.constData());
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QList<QByteArray> fields = line.split('\t');
        QVERIFY2(fields.size() == 5, line.constData());
        for (const QByteArray& field : fields)
            QVERIFY2(field == field.simplified(), line.constData());
        QVERIFY2(!line.chopped(fields.last().size()).contains("\t\t"), line.constData());
        ++count;
    }
    QCOMPARE(count, rows.size());
}

void KbdSpecsTest::aNameIsEnglishAndThenNative()
{
    static const QRegularExpression form(
        QStringLiteral("^\\p{Lu}[\\p{Latin}0-9' ,]*(?: \\[[^][]+\\])?$"),
        QRegularExpression::UseUnicodePropertiesOption);
    for (const SpecRow& each : std::as_const(rows))
        QVERIFY2(form.match(each.name).hasMatch(), qUtf8Printable(each.name));
}

void KbdSpecsTest::noNameStandsTwice()
{
    // Without the native names too: what is translated must tell two rows apart.
    QSet<QString> seen;
    for (const SpecRow& each : std::as_const(rows)) {
        QVERIFY2(!seen.contains(englishName(each)), qUtf8Printable(each.name));
        seen.insert(englishName(each));
    }
}

void KbdSpecsTest::noKeyboardStandsTwice()
{
    QSet<QStringList> seen;
    for (const SpecRow& each : std::as_const(rows)) {
        const QStringList keyboard{each.model, each.layout, each.variant};
        QVERIFY2(!seen.contains(keyboard), qUtf8Printable(each.name));
        seen.insert(keyboard);
    }
}

void KbdSpecsTest::japanAndKoreaAreCalledByTheNamesThatTheSelectorKnows()
{
    const auto modelOf = [this](const QString& name) {
        const auto found = std::find_if(
            rows.cbegin(), rows.cend(), [&](const SpecRow& each) { return each.name == name; });
        return found == rows.cend() ? QString() : found->model;
    };
    QCOMPARE(modelOf(QStringLiteral("Japan [日本]")), QStringLiteral("jp106"));
    QCOMPARE(modelOf(QStringLiteral("Korea [한국]")), QStringLiteral("kr106"));
}

void KbdSpecsTest::languagesComeBeforeTwoLayoutsBeforeCountriesEachSorted()
{
    const auto stepsBack = [](const SpecRow& a, const SpecRow& b) {
        if (sectionOf(a) != sectionOf(b))
            return sectionOf(b) < sectionOf(a);
        return englishName(b).compare(englishName(a), Qt::CaseInsensitive) < 0;
    };
    const auto found = std::adjacent_find(rows.cbegin(), rows.cend(), stepsBack);
    QVERIFY2(found == rows.cend(), qUtf8Printable(rows.value(found - rows.cbegin()).name));
}

void KbdSpecsTest::everyModelHasAShape()
{
    const QSet<QString> shapes{QStringLiteral("abnt2"), QStringLiteral("jp106"),
        QStringLiteral("kr106"), QStringLiteral("pc104"), QStringLiteral("pc105")};
    QSet<QString> used;
    for (const SpecRow& each : std::as_const(rows))
        used.insert(each.model);
    QCOMPARE(used, shapes);
}

// The model that X servers and Debian start with. Korea's usual keyboard has keys of its own, and
// its layout for keyboards without them has a row.
void KbdSpecsTest::whatIsUsualAsAnotherShapeStandsThereWith105KeysToo()
{
    for (const SpecRow& usual : std::as_const(rows)) {
        if (usual.model == QLatin1String("pc105") || usual.model == QLatin1String("kr106"))
            continue;
        const auto other = std::find_if(rows.cbegin(), rows.cend(), [&](const SpecRow& each) {
            return each.model == QLatin1String("pc105") && each.layout == usual.layout
                && each.variant == usual.variant;
        });
        QVERIFY2(other != rows.cend(), qUtf8Printable(usual.name));
        QCOMPARE(englishName(*other), nameOfOtherShape(usual));
        QCOMPARE(other->icon, usual.icon);
        if (usual.layout != QLatin1String("jp"))
            QCOMPARE(nativeName(*other), nativeName(usual));
    }
}

void KbdSpecsTest::onlyTheOtherShapeOfARowIsCalled105Keys()
{
    QSet<QString> otherShapes;
    for (const SpecRow& each : std::as_const(rows))
        if (each.model != QLatin1String("pc105"))
            otherShapes.insert(nameOfOtherShape(each));
    for (const SpecRow& each : std::as_const(rows)) {
        if (!englishName(each).endsWith(otherShape))
            continue;
        QCOMPARE(each.model, QStringLiteral("pc105"));
        QVERIFY2(otherShapes.contains(englishName(each)), qUtf8Printable(each.name));
    }
}

void KbdSpecsTest::theRulesKnowEveryLayoutAndVariant()
{
    const QStringList layouts = layoutsOf(row());
    const QStringList variants = variantsOf(row());
    QVERIFY(variants.size() <= layouts.size());
    for (qsizetype i = 0; i < layouts.size(); ++i) {
        QVERIFY2(rules.contains(layouts.at(i)), qUtf8Printable(layouts.at(i)));
        const QString variant = variants.value(i);
        const bool isKnown = rules.value(layouts.at(i)).variants.contains(variant);
        QVERIFY2(variant.isEmpty() || isKnown, qUtf8Printable(variant));
    }
}

void KbdSpecsTest::everyLayoutOfTheRulesHasARow()
{
    QSet<QString> missing(rules.keyBegin(), rules.keyEnd());
    missing.remove(QStringLiteral("custom")); // the administrator's own, belongs to nobody
    missing.remove(QStringLiteral("mv")); // Qt draws Thaana with none of the fonts there are
    for (const SpecRow& each : std::as_const(rows))
        missing.remove(each.layout);
    QCOMPARE(missing, QSet<QString>());
}

void KbdSpecsTest::onlyKeyboardsThatSomeRulesLackAreLeftOut()
{
    QSet<QString> leftOut;
    const auto source = SpecTable::rowsOf(QStringLiteral(KBD_SPECS_SOURCE));
    QVERIFY(source);
    for (const SpecRow& each : source->all())
        leftOut.insert(englishName(each));
    QVERIFY2(
        leftOut.contains(keyboardsThatSomeRulesLack), "the source table lacks one of the list");
    for (const SpecRow& each : std::as_const(rows))
        leftOut.remove(englishName(each));
    QCOMPARE(leftOut - keyboardsThatSomeRulesLack, QSet<QString>());
}

// India's layout without a variant is that of Hindi, too.
void KbdSpecsTest::hindiIsFoundUnderItsName()
{
    QSet<QString> wanted{QString()};
    const auto variants = rules.value(QStringLiteral("in")).variants;
    for (auto each = variants.cbegin(); each != variants.cend(); ++each)
        if (each->languages == QStringList{QStringLiteral("hin")})
            wanted.insert(each.key());
    QVERIFY(wanted.size() > 1);

    QSet<QString> found;
    for (const SpecRow& each : std::as_const(rows))
        if (each.layout == QLatin1String("in") && each.name.startsWith(QLatin1String("Hindi, ")))
            found.insert(each.variant);
    QCOMPARE(found, wanted);
}

void KbdSpecsTest::everyIconIsAPictureOfTheSizeOfAFlag()
{
    const QImage image(QStringLiteral(KBD_ICON_DIR "/") + row().icon);
    QCOMPARE(image.size(), QSize(200, 150));
    QVERIFY2(!isOfOneColour(image), qUtf8Printable(row().icon));
}

void KbdSpecsTest::aFlagThatHasChangedIsTheOneInUse_data()
{
    const QColor green(0, 0x7a, 0x3d);
    const QColor red(0xce, 0x11, 0x26);
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("Syria's upper stripe") << "sy.png" << QPoint(100, 25) << green;
    QTest::newRow("Syria's star in the middle") << "sy.png" << QPoint(100, 76) << red;
    QTest::newRow("Iraq without a star at the left")
        << "iq.png" << QPoint(17, 75) << QColor(Qt::white);
    QTest::newRow("Iraq without a star in the middle")
        << "iq.png" << QPoint(100, 75) << QColor(Qt::white);
    QTest::newRow("Iraq's first letter") << "iq.png" << QPoint(165, 75) << green;
    QTest::newRow("Kyrgyzstan's ray to the right")
        << "kg.png" << QPoint(137, 75) << QColor(0xff, 0xef, 0);
}

void KbdSpecsTest::aFlagThatHasChangedIsTheOneInUse()
{
    QFETCH(QString, icon);
    QFETCH(QPoint, place);
    const QImage image(QStringLiteral(KBD_ICON_DIR "/") + icon);
    QVERIFY(!image.isNull());
    QTEST(image.pixelColor(place), "colour");
}

void KbdSpecsTest::bothKeyCapsArePictures()
{
    const QImage single(QStringLiteral(KBD_ICON_DIR "/singlekey.png"));
    const QImage full(QStringLiteral(KBD_ICON_DIR "/fullkey.png"));
    QCOMPARE(single.size(), QSize(48, 48));
    QCOMPARE(full.size(), QSize(48, 48));
    QVERIFY(single != full);
}

void KbdSpecsTest::aFlagIsThatOfACountryOfItsLayouts()
{
    if (isBadge(row().icon))
        return;
    QVERIFY2(isFlag(row().icon), qUtf8Printable(row().icon));
    const QString country = row().icon.left(2);
    QVERIFY2(layoutsOf(row()).contains(country), qUtf8Printable(row().icon));
    // The rules give Armenia's layout to Albania.
    if (country != QLatin1String("am"))
        QVERIFY(rules.value(country).countries.contains(country.toUpper()));
}

void KbdSpecsTest::aVariantForAnotherLanguageHasABadge()
{
    const RuleLayout layout = rules.value(row().layout);
    const QStringList languages = layout.variants.value(row().variant).languages;
    const bool isAnother = std::none_of(languages.cbegin(), languages.cend(),
        [&](const QString& language) { return layout.languages.contains(language); });
    if (languages.isEmpty() || !isAnother)
        return;
    const QString name = row().layout + QLatin1Char('(') + row().variant + QLatin1Char(')');
    QCOMPARE(isBadge(row().icon), !otherOfficialLanguages.contains(name));
}

// The group control goes by the last row on which a layout stands first.
void KbdSpecsTest::theLastRowOfALayoutHasItsFlag()
{
    QHash<QString, QString> shown;
    QSet<QString> withFlag;
    for (const SpecRow& each : std::as_const(rows)) {
        shown.insert(layoutsOf(each).first(), each.icon);
        if (each.icon == flagOf(each.layout))
            withFlag.insert(each.layout);
    }
    for (auto each = shown.cbegin(); each != shown.cend(); ++each) {
        if (withFlag.contains(each.key()))
            QCOMPARE(each.value(), flagOf(each.key()));
        else
            QVERIFY2(isBadge(each.value()), qUtf8Printable(each.key()));
    }
}

QTEST_GUILESS_MAIN(KbdSpecsTest)

#include "tst_kbdspecs.moc"

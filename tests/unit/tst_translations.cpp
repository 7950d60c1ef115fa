#include "ui/specs/SpecTable.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace {

const QString selectorContext = QStringLiteral("CKbdSpecSelector");

// A text as the program asks for it: its context and its English wording.
using Text = std::pair<QString, QString>;
using Texts = QSet<Text>;

// One message of a translation source file.
struct Message {
    Text text;
    QString translation;
    QString state; // "unfinished", "vanished", "obsolete"; empty for a finished one

    const QString& source() const { return text.second; }
};

QString fileName(const QString& locale)
{
    return QStringLiteral("orvix-keyboard-layout_") + locale;
}

QString sourceFileOf(const QString& locale)
{
    return QStringLiteral(KBD_SOURCE_DIR "/translations/") + fileName(locale)
        + QStringLiteral(".ts");
}

// Where the program looks for a translation from where it was built.
QString builtDirectoryOf(const QString& locale)
{
    return QStringLiteral(KBD_PROGRAM_DIR "/../share/orvix-i18n/") + locale;
}

Message messageAt(QXmlStreamReader& xml, const QString& context)
{
    Message message{{context, QString()}, QString(), QString()};
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1StringView("source")) {
            message.text.second = xml.readElementText();
        } else if (xml.name() == QLatin1StringView("translation")) {
            message.state = xml.attributes().value(QLatin1StringView("type")).toString();
            message.translation = xml.readElementText();
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

// Empty when the file cannot be read to its end.
QList<Message> messagesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    QList<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1StringView("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1StringView("message"))
            messages.append(messageAt(xml, context));
    }
    return xml.hasError() ? QList<Message>() : messages;
}

Texts textsOf(const QList<Message>& messages)
{
    Texts texts;
    for (const Message& message : messages)
        texts.insert(message.text);
    return texts;
}

// What lupdate finds in the sources as they are now.
Texts textsOfTheProgram()
{
    const QTemporaryDir directory;
    const QString found = directory.filePath(QStringLiteral("found.ts"));
    const int result = QProcess::execute(QStringLiteral(KBD_LUPDATE),
        {QStringLiteral("-silent"), QStringLiteral("-extensions"), QStringLiteral("cpp,h,inc"),
            QStringLiteral(KBD_SOURCE_DIR "/src"), QStringLiteral(KBD_SOURCE_DIR "/platform"),
            QStringLiteral("-ts"), found});
    return result == 0 ? textsOf(messagesOf(found)) : Texts();
}

// What the build puts behind the name of a keyboard in all languages.
const QString otherShape = QStringLiteral(", 105 keys");

QString baseOf(const QString& name)
{
    return name.section(QLatin1Char('['), 0, 0).trimmed();
}

// What the selector asks for: each name of the table up to its native form in brackets.
QStringList namesOfTheTable()
{
    QStringList names;
    const auto rows = SpecTable::rowsOf(QStringLiteral(KBD_SOURCE_DIR "/src/kbdSpecs.tab"));
    for (const SpecRow& row : rows.value_or(SpecRows()).all())
        names.append(baseOf(row.name));
    return names;
}

Texts textsOfTheTable()
{
    Texts texts;
    for (const QString& name : namesOfTheTable())
        texts.insert({selectorContext,
            name.endsWith(otherShape) ? QStringLiteral("%1") + otherShape : name});
    return texts;
}

// The translations that the program chooses from, as its own rows of locale and translation name
// them.
QStringList localesOfTheProgram()
{
    QFile file(QStringLiteral(KBD_SOURCE_DIR "/src/app/KbdApp.cpp"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression row(
        QStringLiteral("\\{\"[a-z]{2}(_[A-Z]{2})?\", \"(\\w+)\"\\}"));
    QStringList locales;
    auto matches = row.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext())
        locales.append(matches.next().captured(2));
    return locales;
}

QStringList placeholdersOf(const QString& text)
{
    static const QRegularExpression placeholder(QStringLiteral("%\\d"));
    QStringList found;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

QString blanksBefore(const QString& text)
{
    static const QRegularExpression blanks(QStringLiteral("^\\s*"));
    return blanks.match(text).captured();
}

QString blanksBehind(const QString& text)
{
    static const QRegularExpression blanks(QStringLiteral("[ \\n]*$"));
    return blanks.match(text).captured();
}

QByteArray described(const Texts& texts)
{
    QStringList lines;
    for (const Text& text : texts)
        lines.append(text.first + QStringLiteral(": ") + text.second);
    lines.sort();
    return lines.join(QLatin1Char('\n')).toUtf8();
}

} // namespace

class TranslationsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void theProgramChoosesFromTheseFive();

    void everyTextHasAFinishedTranslation_data() { addLocales(); }
    void everyTextHasAFinishedTranslation();
    void everyTextOfTheProgramAndEveryKeyboardIsThere_data() { addLocales(); }
    void everyTextOfTheProgramAndEveryKeyboardIsThere();
    void nothingIsLeftOfTextsThatHaveGone_data() { addLocales(); }
    void nothingIsLeftOfTextsThatHaveGone();
    void placeholdersAndOuterBlanksAreKept_data() { addLocales(); }
    void placeholdersAndOuterBlanksAreKept();
    void theProductKeepsItsName_data() { addLocales(); }
    void theProductKeepsItsName();
    void noTwoKeyboardsHaveOneName_data() { addLocales(); }
    void noTwoKeyboardsHaveOneName();
    void theBuiltFileAnswersForEveryText_data() { addLocales(); }
    void theBuiltFileAnswersForEveryText();
    void theBuiltFileKnowsTheOtherShapeOfAKeyboard_data() { addLocales(); }
    void theBuiltFileKnowsTheOtherShapeOfAKeyboard();
    void theTwoShapesOfAKeyboardStandTogether_data() { addLocales(); }
    void theTwoShapesOfAKeyboardStandTogether();

private:
    static void addLocales();

    Texts wanted;
};

void TranslationsTest::initTestCase()
{
    const Texts program = textsOfTheProgram();
    const Texts table = textsOfTheTable();
    QVERIFY(program.contains({QStringLiteral("MainWindow"), QStringLiteral("Close")}));
    QVERIFY(table.contains({selectorContext, QStringLiteral("Japan")}));
    wanted = program + table;
}

void TranslationsTest::addLocales()
{
    QTest::addColumn<QString>("locale");
    for (const char* locale : {"de_DE", "es_ES", "fr_FR", "ja_JP", "zh_CN"})
        QTest::newRow(locale) << QString::fromLatin1(locale);
}

void TranslationsTest::theProgramChoosesFromTheseFive()
{
    QCOMPARE(localesOfTheProgram(),
        QStringList({QStringLiteral("de_DE"), QStringLiteral("es_ES"), QStringLiteral("fr_FR"),
            QStringLiteral("ja_JP"), QStringLiteral("zh_CN")}));
}

void TranslationsTest::everyTextHasAFinishedTranslation()
{
    QFETCH(QString, locale);
    const QList<Message> messages = messagesOf(sourceFileOf(locale));
    QVERIFY(!messages.isEmpty());
    Texts unfinished;
    for (const Message& message : messages)
        if (!message.state.isEmpty() || message.translation.trimmed().isEmpty())
            unfinished.insert(message.text);
    QVERIFY2(unfinished.isEmpty(), described(unfinished));
}

void TranslationsTest::everyTextOfTheProgramAndEveryKeyboardIsThere()
{
    QFETCH(QString, locale);
    const Texts missing = wanted - textsOf(messagesOf(sourceFileOf(locale)));
    QVERIFY2(missing.isEmpty(), described(missing));
}

void TranslationsTest::nothingIsLeftOfTextsThatHaveGone()
{
    QFETCH(QString, locale);
    const Texts left = textsOf(messagesOf(sourceFileOf(locale))) - wanted;
    QVERIFY2(left.isEmpty(), described(left));
}

void TranslationsTest::placeholdersAndOuterBlanksAreKept()
{
    QFETCH(QString, locale);
    const QList<Message> messages = messagesOf(sourceFileOf(locale));
    QVERIFY(!messages.isEmpty());
    for (const Message& message : messages) {
        QCOMPARE(placeholdersOf(message.translation), placeholdersOf(message.source()));
        QCOMPARE(blanksBefore(message.translation), blanksBefore(message.source()));
        QCOMPARE(blanksBehind(message.translation), blanksBehind(message.source()));
    }
}

void TranslationsTest::theProductKeepsItsName()
{
    QFETCH(QString, locale);
    const QString name = QStringLiteral("Arvane");
    int titles = 0;
    for (const Message& message : messagesOf(sourceFileOf(locale))) {
        if (!message.source().contains(name))
            continue;
        ++titles;
        QVERIFY2(message.translation.contains(name), message.translation.toUtf8());
    }
    QCOMPARE(titles, 2);
}

void TranslationsTest::noTwoKeyboardsHaveOneName()
{
    QFETCH(QString, locale);
    QSet<QString> names;
    for (const Message& message : messagesOf(sourceFileOf(locale))) {
        if (message.text.first != selectorContext)
            continue;
        QVERIFY2(!names.contains(message.translation), message.translation.toUtf8());
        names.insert(message.translation);
    }
    QVERIFY(!names.isEmpty());
}

void TranslationsTest::theBuiltFileAnswersForEveryText()
{
    QFETCH(QString, locale);
    QTranslator translator;
    QVERIFY(translator.load(fileName(locale), builtDirectoryOf(locale)));
    const QList<Message> messages = messagesOf(sourceFileOf(locale));
    QVERIFY(!messages.isEmpty());
    for (const Message& message : messages)
        QCOMPARE(translator.translate(message.text.first.toUtf8().constData(),
                     message.source().toUtf8().constData()),
            message.translation);
}

void TranslationsTest::theBuiltFileKnowsTheOtherShapeOfAKeyboard()
{
    QFETCH(QString, locale);
    QTranslator translator;
    QVERIFY(translator.load(fileName(locale), builtDirectoryOf(locale)));
    const auto translated = [&](const QString& text) {
        return translator.translate("CKbdSpecSelector", text.toUtf8().constData());
    };
    int shapes = 0;
    for (const QString& name : namesOfTheTable()) {
        if (!name.endsWith(otherShape))
            continue;
        const QString usual = translated(name.chopped(otherShape.size()));
        QVERIFY2(!usual.isEmpty(), qUtf8Printable(name));
        QCOMPARE(translated(name), translated(QStringLiteral("%1") + otherShape).arg(usual));
        ++shapes;
    }
    QVERIFY(shapes > 45);
}

// In the order of the selector: by what it shows.
void TranslationsTest::theTwoShapesOfAKeyboardStandTogether()
{
    QFETCH(QString, locale);
    QTranslator translator;
    QVERIFY(translator.load(fileName(locale), builtDirectoryOf(locale)));
    const auto rows = SpecTable::rowsOf(QStringLiteral(KBD_SPECS_FILE));
    QVERIFY(rows);
    QList<std::pair<QString, QString>> shown; // what the selector shows, and the name behind it
    for (const SpecRow& row : rows->all()) {
        const QString base = baseOf(row.name);
        shown.append({translator.translate("CKbdSpecSelector", base.toUtf8().constData())
                + row.name.mid(base.size()),
            base});
    }
    const QCollator collator{QLocale(locale)};
    std::stable_sort(shown.begin(), shown.end(),
        [&](const auto& a, const auto& b) { return collator.compare(a.first, b.first) < 0; });

    for (qsizetype i = 1; i < shown.size(); ++i) {
        QString usual = shown.at(i).second;
        if (!usual.endsWith(otherShape))
            continue;
        usual.chop(otherShape.size());
        const QString before = shown.at(i - 1).second;
        QVERIFY2(before == usual || before == usual + QStringLiteral(", 104 keys"),
            qUtf8Printable(shown.at(i).first));
    }
}

QTEST_GUILESS_MAIN(TranslationsTest)
#include "tst_translations.moc"

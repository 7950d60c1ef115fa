#include "app/Registry.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString sourceDirectory = QStringLiteral(KBD_SOURCE_DIR "/");
const QStringList documents{QStringLiteral("README.md"), QStringLiteral("CONTRIBUTING.md"),
    QStringLiteral("docs/architecture.md"), QStringLiteral("docs/extending.md"),
    QStringLiteral("docs/debugging.md"), QStringLiteral("docs/given.md")};

QString textOf(const QString& file)
{
    QFile source(sourceDirectory + file);
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList captures(const QString& pattern, const QString& text)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (const QRegularExpressionMatch& match : expression.globalMatch(text))
        found << match.captured(1);
    return found;
}

// The lines of the indented block that begins with `firstLine`, without their indentation.
QStringList exampleBeginningWith(const QString& firstLine)
{
    QStringList example;
    for (const QString& line : textOf(documents.first()).split('\n')) {
        const bool isCode = line.startsWith("    ");
        if (example.isEmpty() ? isCode && line.trimmed().startsWith(firstLine) : isCode)
            example << line.mid(4);
        else if (!example.isEmpty())
            break;
    }
    return example;
}

// What the program prints when it is asked for something that it does not know.
QString usage()
{
    QProcess program;
    program.start(KBD_PROGRAM, {"--help"});
    program.waitForFinished();
    return QString::fromUtf8(program.readAllStandardError());
}

} // namespace

// What the documents say of the program is so.
class ReadmeTest : public QObject {
    Q_OBJECT

private slots:
    void whatTheDocumentsNameIsThere_data();
    void whatTheDocumentsNameIsThere();
    void theCommandsCanBeRun();
    void theOptionsAreThoseOfTheProgram();
    void theSettingsForAllUsersAreRead();
    void theNewLineIsInTheTableOfKeyboards();
    void theTestsThatTheDocumentsNameAreThere();
};

void ReadmeTest::whatTheDocumentsNameIsThere_data()
{
    QTest::addColumn<QString>("file");
    for (const QString& document : documents) {
        const QString folder = QFileInfo(document).path() + '/';
        const QString text = textOf(document);
        QVERIFY2(!text.isEmpty(), qPrintable(document));
        for (const QString& link : captures("\\]\\(([^)#:]+)\\)", text))
            QTest::addRow("%s: %s", qPrintable(document), qPrintable(link)) << folder + link;
        const QString sources =
            "`((?:src|tests|data|docs|cmake|platform|switcher|harness)/[^`*<>]+)`";
        for (const QString& name : captures(sources, text))
            QTest::addRow("%s: %s", qPrintable(document), qPrintable(name)) << name;
    }
}

void ReadmeTest::whatTheDocumentsNameIsThere()
{
    QFETCH(QString, file);
    QVERIFY2(QFileInfo::exists(sourceDirectory + file), qPrintable(file));
}

void ReadmeTest::theCommandsCanBeRun()
{
    QStringList commands;
    for (const QString& document : documents)
        commands << captures("(?:^    |`)\\./([a-z/]+)(?=[ `\n])", textOf(document));
    commands.removeDuplicates();
    QVERIFY(commands.contains("run") && commands.contains("check"));
    for (const QString& command : commands)
        QVERIFY2(QFileInfo(sourceDirectory + command).isExecutable(), qPrintable(command));
}

void ReadmeTest::theOptionsAreThoseOfTheProgram()
{
    QStringList described;
    for (const QString& cell : captures("^\\| (`-[^|]*`) \\|", textOf(documents.first())))
        described << captures("`([^`]+)`", cell).join(" | ");
    const QString said = usage();
    QCOMPARE(described, captures("^  (-.*)$", said));
}

void ReadmeTest::theSettingsForAllUsersAreRead()
{
    const QStringList example = exampleBeginningWith("[keyboard]");
    QCOMPARE(example.size(), 5);
    const QTemporaryDir allUsers;
    QVERIFY(QDir(allUsers.path()).mkdir("Orvix"));
    QFile file(allUsers.filePath("Orvix/keyboard.conf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(example.join('\n').toUtf8());
    file.close();
    qputenv("XDG_CONFIG_DIRS", allUsers.path().toLocal8Bit());

    for (const QString& line : example.mid(1)) {
        const qsizetype equals = line.indexOf('=');
        QCOMPARE(readRegistryValue("root/keyboard/" + line.left(equals)), line.mid(equals + 1));
    }
}

void ReadmeTest::theNewLineIsInTheTableOfKeyboards()
{
    const QStringList example = exampleBeginningWith("Iceland");
    QCOMPARE(example.size(), 1);
    QVERIFY(textOf("src/kbdSpecs.tab").split('\n').contains(example.first()));
}

void ReadmeTest::theTestsThatTheDocumentsNameAreThere()
{
    QStringList tests;
    for (const QString& document : documents)
        tests << captures("\\b(tst_[a-z_]+)", textOf(document));
    QVERIFY(!tests.isEmpty());
    for (const QString& test : tests) {
        QVERIFY2(QFileInfo::exists(sourceDirectory + "tests/unit/" + test + ".cpp")
                || QFileInfo::exists(sourceDirectory + "tests/x11/" + test + ".cpp"),
            qPrintable(test));
    }
}

QTEST_GUILESS_MAIN(ReadmeTest)

#include "tst_readme.moc"

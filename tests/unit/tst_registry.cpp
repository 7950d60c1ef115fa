#include "app/Registry.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray none; // no file at all

const QByteArray inKeyboard("[keyboard]\n");

} // namespace

// The registry of a system without the platform's own: the XDG configuration.
class RegistryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void aValueIsReadFromTheFiles_data();
    void aValueIsReadFromTheFiles();
    void onlyPathsBelowTheRootHaveValues_data();
    void onlyPathsBelowTheRootHaveValues();
    void theFirstDirectoryOfAllUsersCounts();
    void aDirectoryInTheFilesPlaceIsNoRegistry();

private:
    QString filePath(const QString& place) const
    {
        return directory.filePath(place + "/Orvix/keyboard.conf");
    }
    bool write(const QString& place, const QByteArray& content);

    QTemporaryDir directory;
    qint64 writes = 0;
};

// The places are read from the environment once.
void RegistryTest::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", directory.filePath("own").toLocal8Bit());
    qputenv("XDG_CONFIG_DIRS",
        (directory.filePath("first") + ':' + directory.filePath("second")).toLocal8Bit());
}

void RegistryTest::cleanup()
{
    for (const char* place : {"own", "first", "second"})
        QDir(directory.filePath(place)).removeRecursively();
}

bool RegistryTest::write(const QString& place, const QByteArray& content)
{
    if (content.isNull())
        return true;
    QFile file(filePath(place));
    if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly)
        || file.write(content) != content.size() || !file.flush())
        return false;
    // Qt knows a changed file by its size and time.
    return file.setFileTime(
        QDateTime::fromSecsSinceEpoch(1000000000 + ++writes), QFile::FileModificationTime);
}

void RegistryTest::aValueIsReadFromTheFiles_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::addColumn<QByteArray>("forAll");
    QTest::addColumn<QString>("value");
    const auto own = [](const char* row, const QByteArray& line, const QString& value) {
        QTest::newRow(row) << inKeyboard + line + '\n' << none << value;
    };
    QTest::newRow("no file") << none << none << QString();
    QTest::newRow("the user's own") << inKeyboard + "XkbModel=pc104\n" << none << "pc104";
    QTest::newRow("that of all users") << none << inKeyboard + "XkbModel=pc105\n" << "pc105";
    QTest::newRow("both: the user's own counts") << inKeyboard + "XkbModel=pc104\n"
                                                 << inKeyboard + "XkbModel=pc105\n"
                                                 << "pc104";
    QTest::newRow("both: nothing of the user's own counts too") << inKeyboard
            + "XkbModel=\n" << inKeyboard + "XkbModel=pc105\n" << QString();
    QTest::newRow("both: the user's own is silent") << inKeyboard + "XkbLayout=de\n"
                                                    << inKeyboard + "XkbModel=pc105\n"
                                                    << "pc105";

    own("a list", "XkbModel=us,de,fr", "us,de,fr");
    own("a list in quotes", "XkbModel=\"us,de,fr\"", "us,de,fr");
    own("a list with blanks", "XkbModel=us, de", "us,de");
    own("a list that begins with nothing", "XkbModel=,nodeadkeys", ",nodeadkeys");
    own("a list that ends with nothing", "XkbModel=nodeadkeys,", "nodeadkeys,");
    own("a list with nothing inside", "XkbModel=a,,c", "a,,c");
    own("a list of nothing", "XkbModel=,,", ",,");
    own("options", "XkbModel=grp:alt_shift_toggle,compose:ralt",
        "grp:alt_shift_toggle,compose:ralt");
    own("blanks around it", "XkbModel =  pc105  ", "pc105");
    own("nothing", "XkbModel=", QString());
    own("a blank in quotes", "XkbModel=\" \"", " ");
    own("not ASCII", "XkbModel=größe", "größe");
    own("a number", "XkbModel=105", "105");
    own("the last one counts", "XkbModel=a\nXkbModel=b", "b");

    own("in other letters", "xkbmodel=pc105", QString());
    own("a comment", "; XkbModel=pc105", QString());
    own("without an equals sign", "XkbModel", QString());
    own("no value", "XkbModel=@Invalid()", QString());
    own("a value that is no text", "XkbModel=@Size(1 2)", QString());
    QTest::newRow("in another group")
        << QByteArray("[mouse]\nXkbModel=pc105\n") << none << QString();
    QTest::newRow("in no group") << QByteArray("XkbModel=pc105\n") << none << QString();
    QTest::newRow("an empty file") << QByteArray("") << none << QString();
    QTest::newRow("no text at all")
        << QByteArray("\x7f\x45\x4c\x46\x00\xff\xfe[[=\\x", 12) << none << QString();
    QTest::newRow("malformed, before that of all users") << QByteArray(
        "\xff[[=") << inKeyboard + "XkbModel=pc105\n" << "pc105";
}

void RegistryTest::aValueIsReadFromTheFiles()
{
    QFETCH(QByteArray, own);
    QFETCH(QByteArray, forAll);
    QFETCH(QString, value);
    QVERIFY(write("own", own));
    QVERIFY(write("first", forAll));
    QCOMPARE(readRegistryValue("root/keyboard/XkbModel"), value);
}

void RegistryTest::onlyPathsBelowTheRootHaveValues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("value");
    QTest::newRow("a value") << "root/keyboard/XkbLayout"
                             << "de";
    QTest::newRow("no such value") << "root/keyboard/XkbVariant" << QString();
    QTest::newRow("no such group") << "root/mouse/XkbLayout" << QString();
    QTest::newRow("a group") << "root/keyboard" << QString();
    QTest::newRow("the root") << "root" << QString();
    QTest::newRow("below another root") << "user/keyboard/XkbLayout" << QString();
    QTest::newRow("below no root") << "keyboard/XkbLayout" << QString();
    QTest::newRow("a root that goes on") << "roots/keyboard/XkbLayout" << QString();
    QTest::newRow("no path") << QString() << QString();
}

void RegistryTest::onlyPathsBelowTheRootHaveValues()
{
    QFETCH(QString, path);
    QFETCH(QString, value);
    QVERIFY(write("own", inKeyboard + "XkbLayout=de\n"));
    QCOMPARE(readRegistryValue(path), value);
}

void RegistryTest::theFirstDirectoryOfAllUsersCounts()
{
    QVERIFY(write("second", inKeyboard + "XkbModel=a\nXkbLayout=b\n"));
    QCOMPARE(readRegistryValue("root/keyboard/XkbModel"), "a");
    QVERIFY(write("first", inKeyboard + "XkbModel=c\n"));
    QCOMPARE(readRegistryValue("root/keyboard/XkbModel"), "c");
    QCOMPARE(readRegistryValue("root/keyboard/XkbLayout"), "b");
}

void RegistryTest::aDirectoryInTheFilesPlaceIsNoRegistry()
{
    QVERIFY(QDir().mkpath(filePath("own")));
    QVERIFY(write("first", inKeyboard + "XkbModel=pc105\n"));
    QCOMPARE(readRegistryValue("root/keyboard/XkbModel"), "pc105");
}

QTEST_GUILESS_MAIN(RegistryTest)

#include "tst_registry.moc"

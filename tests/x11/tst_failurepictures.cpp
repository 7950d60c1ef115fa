#include "harness/FailurePictures.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "x11/X11.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <memory>

namespace {

constexpr QRgb groundColour = qRgb(12, 200, 34);

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using TemporaryFile = std::unique_ptr<std::FILE, CloseFile>;

QByteArray contentOf(std::FILE* file)
{
    std::rewind(file);
    QByteArray content(4096, '\0');
    content.truncate(
        static_cast<qsizetype>(std::fread(content.data(), 1, size_t(content.size()), file)));
    return content;
}

void print(const char* text)
{
    std::fputs(text, stdout);
    std::fflush(stdout);
}

} // namespace

// What a developer gets to see of a test that has failed.
class FailurePicturesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aFailureLeavesAPictureOfItsMoment();
    void aTestThatPassesLeavesNone();
    void withoutAServerTheTestGoesOn();

private:
    static QByteArray display() { return qgetenv("DISPLAY"); }

    TemporaryFile output{std::tmpfile()};
    QTemporaryDir directory;
};

void FailurePicturesTest::initTestCase()
{
    const XConnection connection = openDisplay(display());
    XSetWindowBackground(
        connection.get(), DefaultRootWindow(connection.get()), groundColour & RGB_MASK);
    XClearWindow(connection.get(), DefaultRootWindow(connection.get()));
    XSync(connection.get(), x11::xFalse);
}

void FailurePicturesTest::aFailureLeavesAPictureOfItsMoment()
{
    const QString folder = directory.filePath("of-failures");
    {
        const FailurePictures pictures(display(), folder, output.get());
        print("PASS   : something else\n");
        print("FAIL!  : this one\n");
    }
    const QString file = folder + "/tst_failurepictures.aFailureLeavesAPictureOfItsMoment.png";
    const QImage picture(file);
    QCOMPARE(picture.size(), QSize(1280, 1024));
    QCOMPARE(picture.pixel(600, 500), groundColour);
    QCOMPARE(contentOf(output.get()),
        "PASS   : something else\nFAIL!  : this one\n   Picture: [" + file.toUtf8() + "]\n");
}

void FailurePicturesTest::aTestThatPassesLeavesNone()
{
    {
        const FailurePictures pictures(display(), directory.filePath("of-passes"), output.get());
        print("PASS   : a row named FAIL!  : here\n");
    }
    QVERIFY(!QDir(directory.filePath("of-passes")).exists());
}

void FailurePicturesTest::withoutAServerTheTestGoesOn()
{
    {
        const FailurePictures pictures(":4242", directory.filePath("of-nothing"), output.get());
        print("FAIL!  : without a server\n");
    }
    QVERIFY(!QDir(directory.filePath("of-nothing")).exists());
}

KBD_X11_TEST_MAIN(FailurePicturesTest)

#include "tst_failurepictures.moc"

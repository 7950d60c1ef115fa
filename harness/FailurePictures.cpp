#include "harness/FailurePictures.h"

#include "harness/XTools.h"
#include "x11/X11.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTest>

#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view failureMark = "FAIL!  :"; // how QtTest's plain text begins a failure

struct DestroyImage {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

QImage screenOf(Display* display)
{
    const Window root = DefaultRootWindow(display);
    const int screen = DefaultScreen(display);
    const std::unique_ptr<XImage, DestroyImage> image(
        XGetImage(display, root, 0, 0, static_cast<unsigned>(DisplayWidth(display, screen)),
            static_cast<unsigned>(DisplayHeight(display, screen)), AllPlanes, ZPixmap));
    if (!image || image->bits_per_pixel != 32)
        return {};
    const auto* bytes = reinterpret_cast<const uchar*>(image->data);
    return QImage(bytes, image->width, image->height, image->bytes_per_line, QImage::Format_RGB32)
        .copy();
}

QString fileNameOfTest()
{
    QStringList parts{QFileInfo(QString::fromLocal8Bit(QTest::currentAppName())).fileName(),
        QString::fromUtf8(QTest::currentTestFunction())};
    if (QTest::currentDataTag())
        parts << QString::fromUtf8(QTest::currentDataTag());
    static const QRegularExpression odd(u"[^A-Za-z0-9_.]+"_s);
    return parts.join(u'.').replace(odd, u"-"_s) + ".png"_L1;
}

// Whether one of the lines is that of a failure.
bool hasFailure(std::string_view text)
{
    for (size_t at = text.find(failureMark); at != std::string_view::npos;
        at = text.find(failureMark, at + 1)) {
        if (at == 0 || text[at - 1] == '\n')
            return true;
    }
    return false;
}

} // namespace

FailurePictures::FailurePictures(QByteArray watchedDisplay, QString target, std::FILE* goesTo)
    : display(std::move(watchedDisplay))
    , directory(std::move(target))
    , output(goesTo)
    , previous(stdout)
{
    cookie_io_functions_t functions{};
    functions.write = print;
    watched = fopencookie(this, "w", functions);
    if (watched)
        stdout = watched; // the C library allows it
}

FailurePictures::~FailurePictures()
{
    if (!watched)
        return;
    stdout = previous;
    std::fclose(watched);
}

ssize_t FailurePictures::print(void* self, const char* text, size_t size)
{
    const auto* pictures = static_cast<FailurePictures*>(self);
    const size_t written = std::fwrite(text, 1, size, pictures->output);
    if (hasFailure(std::string_view(text, size))) {
        // Messages from taking the picture must not come back here.
        stdout = pictures->previous;
        pictures->leavePicture();
        stdout = pictures->watched;
    }
    std::fflush(pictures->output);
    return static_cast<ssize_t>(written);
}

void FailurePictures::leavePicture() const
{
    const QString file = QDir(directory).filePath(fileNameOfTest());
    const XConnection connection = openDisplay(display);
    if (connection && QDir().mkpath(directory) && screenOf(connection.get()).save(file))
        std::fprintf(output, "   Picture: [%s]\n", qPrintable(file));
}

int runWithFailurePictures(QObject& test, const QByteArray& display, int argc, char** argv)
{
    const FailurePictures pictures(display, QString::fromUtf8(KBD_FAILURE_DIR), stdout);
    return QTest::qExec(&test, argc, argv);
}

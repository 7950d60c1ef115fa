#include "Screenshot.h"

#include "x11/X11.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QRect>
#include <QScreen>

#include <cstdio>

namespace {

constexpr QRgb groundColour = qRgb(0x4a, 0x60, 0x78);
constexpr int margin = 12; // pixels of ground left around the windows

bool isGround(const QImage& image, int x, int y)
{
    return image.pixel(x, y) == groundColour;
}

QRect allButGround(const QImage& image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        int left = 0;
        int right = image.width() - 1;
        while (left <= right && isGround(image, left, y))
            ++left;
        while (right > left && isGround(image, right, y))
            --right;
        if (left <= right)
            area |= QRect(QPoint(left, y), QPoint(right, y));
    }
    return area;
}

} // namespace

void screenshot::paintGround(Display* display)
{
    // The screens of private servers are of 24 bits, where a pixel is its colour.
    XSetWindowBackground(display, DefaultRootWindow(display), groundColour & RGB_MASK);
    XClearWindow(display, DefaultRootWindow(display));
    XFlush(display);
}

QImage screenshot::ofScreen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(
        QImage::Format_RGB32);
}

QImage screenshot::ofWindows()
{
    QImage screen = ofScreen();
    const QRect windows = allButGround(screen);
    if (windows.isEmpty())
        return screen;
    return screen.copy(
        windows.adjusted(-margin, -margin, margin, margin).intersected(screen.rect()));
}

bool screenshot::leave(const QImage& image, const QString& file)
{
    if (!image.save(file)) {
        std::fprintf(stderr, "kbd-show: cannot write %s\n", qPrintable(file));
        return false;
    }
    std::printf("Screenshot: %s\n", qPrintable(file));
    return true;
}

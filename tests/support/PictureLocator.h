#pragma once

#include "x11/X11.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRgb>

#include <optional>

// The main window of a process that a test has started: the largest of its windows that the user
// can see, popups left out (EWMH, _NET_WM_PID). None while there is no such window.
Window mainWindowOf(Display* display, qint64 processId);

// The part of the screen that a window takes, as the user sees it, and where it lies in pixels of
// the screen. Nothing when the window is not to be seen or the screen has an unusual format.
struct WindowImage {
    QImage image;
    QPoint topLeft;
};
std::optional<WindowImage> grabWindow(Display* display, Window window);

// Finds the picture of a keyboard that another program shows, by the colour of its ground, and
// says where on the screen a place of the picture is.
class PictureLocator {
public:
    // `ground` is the picture's background in the scene (tenths of a millimetre), as groundOf()
    // gives it for the same keyboard, `colour` what it is filled with. The display is borrowed.
    PictureLocator(Display* display, Window window, const QRectF& ground, QRgb colour);

    // The ground of a picture whose whole scene is `scene`: all but the room for the captions.
    static QRectF groundOf(const QRectF& scene);

    // Looks until the picture is there in full and has stayed where it is. False when the deadline
    // is over. To be called again after the window has moved or the picture has been replaced.
    bool waitForPicture(int milliseconds = 10000);

    // What follows is in pixels of the screen and holds after waitForPicture(), within a pixel.
    QRectF area() const { return m_area; }
    QRectF fromScene(const QRectF& rectangle) const;
    QPoint fromScene(const QPointF& point) const;

private:
    std::optional<QRectF> look() const;
    bool hasGroundShape(const QRectF& area) const;

    Display* m_display;
    Window m_window;
    QRectF m_ground;
    QRgb m_colour;
    QRectF m_area;
};

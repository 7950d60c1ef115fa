#pragma once

#include "harness/ProgramWindows.h"

#include <QRect>
#include <QRgb>

// Finds the picture of a keyboard that another program shows, by the colour of its ground, and
// says where on the screen a place of the picture is.
class PictureLocator {
public:
    // `sceneGround` is the picture's background in the scene (tenths of a millimetre), as
    // groundOf() gives it for the same keyboard, `groundColour` what it is filled with. The display
    // is borrowed.
    PictureLocator(
        Display* xDisplay, Window shownWindow, const QRectF& sceneGround, QRgb groundColour);

    // The ground of a picture whose whole scene is `scene`: all but the room for the captions.
    static QRectF groundOf(const QRectF& scene);

    // Looks until the picture is there in full and has stayed where it is. False when the deadline
    // is over. To be called again after the window has moved or the picture has been replaced.
    bool waitForPicture(int milliseconds = 10000);

    // What follows is in pixels of the screen and holds after waitForPicture(), within a pixel.
    QRectF area() const { return pictureArea; }
    QRectF fromScene(const QRectF& rectangle) const;
    QPoint fromScene(const QPointF& point) const;

private:
    std::optional<QRectF> look() const;
    bool hasGroundShape(const QRectF& area) const;

    Display* display;
    Window window;
    QRectF ground;
    QRgb colour;
    QRectF pictureArea;
};

#include "harness/ProgramWindows.h"

#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "x11/Property.h"
#include "x11/X11.h"

#include <QRect>

#include <memory>
#include <vector>

namespace {

std::vector<Window> childrenOf(Display* display, Window window)
{
    Window root = x11::none;
    Window parent = x11::none;
    Window* children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &count))
        return {};
    const x11::Owned<Window> owned(children);
    return {children, children + count};
}

bool belongsTo(Display* display, Window window, qint64 processId)
{
    return x11::numberProperty(display, window, "_NET_WM_PID")
        == static_cast<unsigned long>(processId);
}

// In pixels; zero for a window that is out of sight or not of this kind.
int visibleArea(Display* display, Window window, bool isPopup)
{
    XWindowAttributes attributes{};
    if (!XGetWindowAttributes(display, window, &attributes) || attributes.map_state != IsViewable
        || (attributes.override_redirect != x11::xFalse) != isPopup)
        return 0;
    return attributes.width * attributes.height;
}

Window largestWindowOf(Display* display, qint64 processId, bool isPopup)
{
    // Windows may go while we look at them.
    const ExpectedXErrors errors;
    std::vector<Window> toVisit{XDefaultRootWindow(display)};
    Window largest = x11::none;
    int largestArea = 0;
    while (!toVisit.empty()) {
        const Window window = toVisit.back();
        toVisit.pop_back();
        const std::vector<Window> children = childrenOf(display, window);
        toVisit.insert(toVisit.end(), children.begin(), children.end());
        const int area =
            belongsTo(display, window, processId) ? visibleArea(display, window, isPopup) : 0;
        if (area > largestArea) {
            largestArea = area;
            largest = window;
        }
    }
    return largest;
}

QRect areaOf(Display* display, Window window)
{
    XWindowAttributes attributes{};
    if (window == x11::none || !XGetWindowAttributes(display, window, &attributes)
        || attributes.map_state != IsViewable)
        return {};
    int x = 0;
    int y = 0;
    Window child = x11::none;
    XTranslateCoordinates(display, window, attributes.root, 0, 0, &x, &y, &child);
    const QRect screen(0, 0, XWidthOfScreen(attributes.screen), XHeightOfScreen(attributes.screen));
    return QRect(x, y, attributes.width, attributes.height).intersected(screen);
}

struct DestroyImage {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

} // namespace

Window mainWindowOf(Display* display, qint64 processId)
{
    return largestWindowOf(display, processId, false);
}

Window popupOf(Display* display, qint64 processId)
{
    return largestWindowOf(display, processId, true);
}

std::optional<WindowImage> grabWindow(Display* display, Window window)
{
    const ExpectedXErrors errors;
    const QRect area = areaOf(display, window);
    if (area.isEmpty())
        return std::nullopt;
    const std::unique_ptr<XImage, DestroyImage> image(XGetImage(display,
        XDefaultRootWindow(display), area.x(), area.y(), static_cast<unsigned int>(area.width()),
        static_cast<unsigned int>(area.height()), AllPlanes, ZPixmap));
    if (!image || image->bits_per_pixel != 32)
        return std::nullopt;
    const QImage borrowed(reinterpret_cast<const uchar*>(image->data), image->width, image->height,
        image->bytes_per_line, QImage::Format_RGB32);
    return WindowImage{borrowed.copy(), area.topLeft()};
}

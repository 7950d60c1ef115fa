#include "BareWindow.h"

#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int columns = 15;
constexpr int rows = 7;
constexpr int gap = 4; // pixels between rectangles

constexpr unsigned int sentKeycode = 38;

} // namespace

BareWindow::BareWindow(const QSize& size, bool sendsKeys)
    : keysGoElsewhere(sendsKeys)
{
    if (keysGoElsewhere) {
        setWindowFlag(Qt::WindowDoesNotAcceptFocus);
        setAttribute(Qt::WA_ShowWithoutActivating);
    }
    resize(size);
}

QRect BareWindow::rectangle(int index) const
{
    const int cellWidth = width() / columns;
    const int cellHeight = height() / rows;
    return {(index % columns) * cellWidth + gap / 2, (index / columns) * cellHeight + gap / 2,
        cellWidth - gap, cellHeight - gap};
}

void BareWindow::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    for (int i = 0; i < rows * columns; ++i) {
        if (!event->rect().intersects(rectangle(i)))
            continue;
        painter.fillRect(
            rectangle(i), allLit || i == litIndex ? QColor(204, 102, 102) : QColor(68, 68, 68));
    }
}

void BareWindow::keyPressEvent(QKeyEvent* event)
{
    light(*event, true);
}

void BareWindow::keyReleaseEvent(QKeyEvent* event)
{
    light(*event, false);
}

void BareWindow::light(const QKeyEvent& event, bool on)
{
    if (event.key() == Qt::Key_Shift) {
        allLit = on;
        return update();
    }
    const int index = static_cast<int>(event.nativeScanCode() % (rows * columns));
    litIndex = on ? index : -1;
    update(rectangle(index));
}

void BareWindow::mousePressEvent(QMouseEvent*)
{
    sendKey(true);
}

void BareWindow::mouseReleaseEvent(QMouseEvent*)
{
    sendKey(false);
}

void BareWindow::sendKey(bool down) const
{
    if (!keysGoElsewhere)
        return;
    Display* display = toolkitDisplay();
    XTestFakeKeyEvent(display, sentKeycode, down ? x11::xTrue : x11::xFalse, CurrentTime);
    XFlush(display);
}

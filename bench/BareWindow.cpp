#include "BareWindow.h"

#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int columns = 15;
constexpr int rows = 7;
constexpr int gap = 4; // pixels between rectangles

constexpr int corner = 4; // radius in pixels
constexpr int letters = 26;

constexpr unsigned int sentKeycode = 38;

constexpr QColor litColour(204, 102, 102);
constexpr QColor keyColour(68, 68, 68);

} // namespace

BareWindow::BareWindow(const QSize& size, Look wantedLook, bool sendsKeys)
    : look(wantedLook)
    , keysGoElsewhere(sendsKeys)
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
    painter.setRenderHint(QPainter::Antialiasing, look == Look::Lettered);
    for (int i = 0; i < rows * columns; ++i) {
        if (!event->rect().intersects(rectangle(i)))
            continue;
        if (look == Look::Lettered)
            drawLettered(painter, i);
        else
            painter.fillRect(rectangle(i), isLit(i) ? litColour : keyColour);
    }
}

void BareWindow::drawLettered(QPainter& painter, int index) const
{
    QFont font = painter.font();
    font.setPixelSize(std::max(1, rectangle(index).height() / 2));
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.setBrush(isLit(index) ? litColour : keyColour);
    painter.drawRoundedRect(rectangle(index), corner, corner);
    painter.setPen(Qt::white);
    const char first = shifted ? 'A' : 'a';
    painter.drawText(
        rectangle(index), Qt::AlignCenter, QString(QLatin1Char(char(first + index % letters))));
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
        shifted = on;
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

#pragma once

#include <QWidget>

// The baseline that the keyboard program is compared with: a window that shows plain rectangles, as
// many as a keyboard has keys. It costs what Qt and the server need at least for a window of this
// size.
class BareWindow : public QWidget {
public:
    // `size` is in device independent pixels. A window that sends keys never takes the focus: a
    // click presses one key through XTest and its release lets it go. Otherwise a key press lights
    // one rectangle, and Shift lights all.
    BareWindow(const QSize& size, bool sendsKeys);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRect rectangle(int index) const;
    void light(const QKeyEvent& event, bool on);
    void sendKey(bool down) const;

    bool keysGoElsewhere;
    bool allLit = false;
    int litIndex = -1; // -1: none
};

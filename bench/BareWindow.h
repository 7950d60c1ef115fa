#pragma once

#include <QWidget>

// A window that shows rectangles, as many as a keyboard has keys: the baseline that the keyboard
// program is compared with. It costs what Qt and the server need at least for a window of this
// size.
class BareWindow : public QWidget {
public:
    // Lettered rectangles are rounded and have a letter on them, another one while Shift is down.
    enum class Look { Plain, Lettered };

    // `size` is in device independent pixels. A window that sends keys never takes the focus: a
    // click presses one key through XTest and its release lets it go. Otherwise a key press lights
    // one rectangle, and Shift changes all.
    BareWindow(const QSize& size, Look look, bool sendsKeys);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRect rectangle(int index) const;
    void drawLettered(QPainter& painter, int index) const;
    bool isLit(int index) const { return index == litIndex || (look == Look::Plain && shifted); }
    void light(const QKeyEvent& event, bool on);
    void sendKey(bool down) const;

    Look look;
    bool keysGoElsewhere;
    bool shifted = false;
    int litIndex = -1; // -1: none
};

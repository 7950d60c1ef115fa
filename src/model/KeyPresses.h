#pragma once

#include "model/KeyFinder.h"
#include "x11/qt/PointerPresses.h"

#include <map>

class KbdKey;
class QGraphicsView;
class QMouseEvent;

// Turns presses of mouse buttons and fingers on the picture into presses of its keys, and keeps
// which of them holds which key down. Every key that is pressed is released: when the button or
// finger goes up, when a finger slides off the key, or at the latest by releaseAll(). The
// destructor releases none: the view's KeySender does.
class KeyPresses final : private PointerPresses::Receiver {
public:
    // The view shows the keys; both are borrowed and outlive this object.
    KeyPresses(QGraphicsView* picture, const QList<KbdKey*>& keys);
    ~KeyPresses() override = default;
    Q_DISABLE_COPY_MOVE(KeyPresses)

    // To be called whenever the view is shown.
    void watch() { presses.watch(); }

    // Mouse events of Qt, double clicks among the presses. A press that has already come straight
    // from its device is ignored, and so is its release. The release of any button that was pressed
    // through Qt lets go of every key that a mouse holds, whatever button pressed it; fingers stay.
    void mousePressed(const QMouseEvent& event);
    void mouseReleased(const QMouseEvent& event);

    // Presses and releases a key as a click does.
    void click(KbdKey* key);

    // Releases every key that is held. To be called when the picture goes out of sight, and when
    // the program ends.
    void releaseAll();

    // In milliseconds: the server's time of the last press or release, counted on by one for each
    // press and release of click(); 0 before the first.
    Time lastTime() const { return time; }

private:
    void pressed(const PointerPress& press) override;
    void moved(const PointerPress& press) override;
    void released(const PressId& id, Time releaseTime) override;

    KbdKey* keyAt(const QPoint& position) const;
    void letGo(const PressId& id);
    void letGoOf(const KbdKey* key);

    QGraphicsView* view;
    KeyFinder finder;
    PointerPresses presses;
    std::map<PressId, KbdKey*> held;
    Qt::MouseButtons qtButtons; // that are down and whose press came from Qt, not from the device
    Time time = 0;
};

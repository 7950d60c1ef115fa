#pragma once

#include "x11/Types.h"

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QtGui/qwindowdefs.h>

#include <compare>
#include <cstdint>
#include <functional>
#include <set>

class QMouseEvent;
class QWidget;
struct xcb_focus_in_event_t;
struct xcb_input_button_press_event_t;
struct xcb_input_hierarchy_event_t;

// What tells one press from another while both are down.
struct PressId {
    int device = 0; // of the X input extension; 0 for a press that comes from Qt
    std::uint32_t detail = 0; // the button's number, or the touch's
    bool isTouch = false;

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 sees a null pointer in the comparison
    friend auto operator<=>(const PressId&, const PressId&) = default;
};

struct PointerPress {
    PressId id;
    QPoint position; // in the widget
    Time time = 0; // of the server, in milliseconds
};

// Delivers presses of mouse buttons and fingers on a widget. It hears of them from each device,
// through the X input extension.
//
// Qt's own mouse events come from the master pointer, which all devices together move. A window
// manager grabs the master while it decides what a click does to the windows, and the server loses
// the clicks made meanwhile. Of several fingers the master follows only the first. A grab of the
// master does not stop the events of the single devices.
//
// These presses are not delivered but left to Qt's mouse events: presses beside the widget;
// all while a popup or a dialog of this program is open; those of the mouse in a window that takes
// the focus and does not have it yet; and those of the mouse while a modifier other than Shift and
// Lock is held, because window managers move windows so. Touches on a window that takes the focus
// are delivered once the first of them has brought it. Without the input extension Qt has all
// presses.
class PointerPresses : public QAbstractNativeEventFilter {
public:
    class Receiver {
    public:
        virtual ~Receiver() = default;

        // A button or a finger has gone down. released() follows in any case: when the device is
        // removed, at the latest. It also comes before a second press of the same id.
        virtual void pressed(const PointerPress& press) = 0;

        // A finger that is down has moved; mouse moves are not delivered.
        virtual void moved(const PointerPress& press) = 0;

        // time is the server's, in milliseconds.
        virtual void released(const PressId& id, Time time) = 0;
    };

    // Both are borrowed and outlive this object. Nothing comes before watch().
    PointerPresses(QWidget* pressedWidget, Receiver* pressReceiver);

    // To be called whenever the widget is shown: its X window may be another one by then.
    void watch();

    // Whether this press was delivered to the receiver already. Takes it, and those before it, off
    // the list of presses that Qt has still to report: ask once for each of Qt's.
    bool takeAlreadyDelivered(const QMouseEvent& event);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    using DeviceEvent = xcb_input_button_press_event_t; // the touch events have the same layout

    struct QtPress {
        Time time;
        Qt::MouseButton button;
    };

    // What the receiver gets of a touch once the window has the focus.
    struct Delivery {
        PressId id;
        Time time;
        std::function<void()> send;
    };

    void followFocus(const xcb_focus_in_event_t& event);
    void deliverPress(const Delivery& press);
    void askForFocus(Time time) const;
    void deliverBehindPress(const Delivery& later);
    void deliverWaiting();
    bool handle(int type, const DeviceEvent& event);
    void handlePress(const DeviceEvent& event, const PressId& id);
    void handleRelease(const PressId& id, Time time);
    void handleHierarchy(const xcb_input_hierarchy_event_t& event);
    void releaseDevice(int device, Time time);
    bool isOurs(const DeviceEvent& event) const;
    bool hasFocus() const;
    bool isDirectTouch(int device);
    QWidget* eventWidget() const;
    QPoint windowPosition(const DeviceEvent& event) const;
    PointerPress pressAt(const DeviceEvent& event, const PressId& id) const;

    QWidget* widget;
    Receiver* receiver;
    int opcode = 0; // the input extension's; 0 where there is none
    bool focusIsElsewhere = false; // Qt itself waits 0.4 s for the focus to come back
    WId watchedWindow = 0;
    bool isForQtToo = false; // Qt has asked for the events of the single devices there too
    std::set<PressId> down; // delivered or waiting to be, and not yet released
    QList<Delivery> waiting; // for the focus
    QElapsedTimer sinceLastWaiting;
    QObject focusObserver; // ends what is connected to this object
    QList<QtPress> awaitedFromQt; // those that it has still to report, in the order of time
    QHash<int, bool> directTouch; // by device: is it a touch screen? Those asked about so far
};

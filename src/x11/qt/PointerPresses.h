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

// Tells presses apart that are down at the same time.
struct PressId {
    int device = 0; // of the X input extension; 0 for a press that comes from Qt
    std::uint32_t detail = 0; // the button's number, or the touch's
    bool isTouch = false;

    friend auto operator<=>(const PressId&, const PressId&) = default;
};

struct PointerPress {
    PressId id;
    QPoint position; // in the widget
    Time time = 0; // of the server, in milliseconds
};

// Brings a widget the presses of mouse buttons and fingers straight from the devices, each by
// itself, through the X input extension.
//
// Qt's own mouse events come from the master pointer. A window manager holds that while it decides
// what a click does to the windows, and the server loses clicks that come meanwhile; of several
// fingers it has only the first. A grab of the master does not hold the devices that are attached
// to it.
//
// Presses that others have a claim on are left to Qt: beside the widget, while a popup or a dialog
// of this program is open, those of the mouse in a window that takes the focus and does not have it
// yet, and with a modifier other than Shift held (window managers move windows so). Without the
// input extension everything is. Touches on a window that takes the focus, which the first of them
// brings, are reported once it has come.
class PointerPresses : public QAbstractNativeEventFilter {
public:
    class Receiver {
    public:
        // A button or a finger has gone down. Its release follows in any case, if need be when its
        // device goes; a press of the same id ends the one before.
        virtual void pressed(const PointerPress& press) = 0;

        // A finger that is down has moved; mouse moves are not reported.
        virtual void moved(const PointerPress& press) = 0;

        // time is the server's, in milliseconds.
        virtual void released(const PressId& id, Time time) = 0;

    protected:
        ~Receiver() = default;
    };

    // Both are borrowed and outlive this object. Nothing comes before watch().
    PointerPresses(QWidget* pressedWidget, Receiver* pressReceiver);

    // To be called whenever the widget is shown: its X window may be another one by then.
    void watch();

    // Whether the receiver has had this press already. It is asked once for each press.
    bool hasReported(const QMouseEvent& event);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    using DeviceEvent = xcb_input_button_press_event_t; // the touch events have the same layout

    struct QtPress {
        Time time;
        Qt::MouseButton button;
    };

    // What the receiver gets of a touch once the window has the focus.
    struct Report {
        PressId id;
        Time time;
        std::function<void()> send;
    };

    void followFocus(const xcb_focus_in_event_t& event);
    void reportPress(const Report& press);
    void askForFocus(Time time) const;
    void report(const Report& later);
    void reportWaiting();
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
    bool focusIsElsewhere = false; // Qt takes 0.4 s to notice, in case it comes back
    WId watchedWindow = 0;
    bool isForQtToo = false; // Qt has asked for the devices' own events at that window
    std::set<PressId> down; // reported or waiting to be, and not yet released
    QList<Report> waiting; // for the focus
    QElapsedTimer sinceLastWaiting;
    QObject focusObserver; // ends what is connected to this object
    QList<QtPress> reported; // presses that Qt will report too, in the order of time
    QHash<int, bool> directTouch; // by device, whether it is a touch screen; those asked for
};

#pragma once

#include "x11/AtomRequest.h"

#include <QHash>

#include <optional>

struct xcb_connection_t;

// Which input devices are XTest's: the server marks them with a property. Asked for early and in
// two steps, the list and then the marks, so that nobody waits when a key goes down.
class XTestDevices {
public:
    // Asks for the list and does not wait. The connection, whose server must have version 2 of the
    // input extension, is borrowed.
    explicit XTestDevices(xcb_connection_t* xConnection);
    ~XTestDevices();
    XTestDevices(const XTestDevices&) = delete;
    XTestDevices& operator=(const XTestDevices&) = delete;

    // Devices have come or gone: asks anew. A new device may get the id of one that was removed.
    void askAnew();

    // Takes the next step if there is an answer; to be called now and then, costs no round trip.
    void goOn();

    // Waits for what has not been answered yet.
    bool contains(int device);

private:
    void forget();
    void askForMark(int device);

    xcb_connection_t* connection;
    AtomRequest mark;
    std::optional<unsigned int> list; // the question for it, until it is answered
    QHash<int, unsigned int> questions; // by device id: for the mark
    QHash<int, bool> known; // by device id
};

#pragma once

#include "x11/AtomRequest.h"
#include "x11/Types.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace x11 {

// The name of the property and the selection of a process: see HeldKeys.
std::string heldKeysProperty(pid_t process);

// Tells the X server's other clients which keys this process holds down through XTest, so that they
// can be released when the process is killed: the server would repeat them for ever. As long as
// there are any, their key codes, a byte each, stand on the first root window, in the property that
// is called _ORVIX_KBD_HELD_KEYS_ and the number of the process. As long as the connection is open
// it owns the selection of the same name: a process number alone means nothing to a client on
// another machine, or after the process has gone.
class HeldKeys {
public:
    // The display is borrowed and outlives this object.
    explicit HeldKeys(Display* xDisplay);

    // Deletes the property.
    ~HeldKeys();
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

    // Publishes this list in place of the last. To be called before keys are pressed, and after
    // they are released. The first call waits for the atom that the constructor has asked for.
    void publish(const std::vector<KeyCode>& keycodes);

private:
    Display* display;
    AtomRequest name;
    Window owner = none;
};

// Releases the keys that a process of this machine has published; it must be known to have gone. No
// other key is touched.
void releaseKeysOf(Display* display, pid_t process);

// The same for all processes whose connection has gone, wherever they ran. Two round trips when
// there are none.
void releaseKeysOfTheGone(Display* display);

} // namespace x11

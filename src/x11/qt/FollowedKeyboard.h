#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <optional>

struct xcb_connection_t;

// The state of a keyboard. The masks are core modifier masks, the groups count from 0 to 3.
struct KeyboardState {
    unsigned char downModifiers = 0; // by keys that are down
    unsigned char lockedModifiers = 0;
    unsigned char lockedGroup = 0;
    unsigned char modifiers = 0; // held, latched or locked
    unsigned char group = 0; // that the keys are in
};

// The state of the server's core keyboard: asked for once, without waiting, and followed from then
// on through XKB's state notifications, all of which Qt selects on this connection. What this
// program does to the keyboard counts at once, and notifications that were on their way by then do
// not undo it. Who is told of a notification by another event filter finds its state here if that
// filter was installed before this object was made: Qt asks the latest filter first.
class FollowedKeyboard : public QAbstractNativeEventFilter {
public:
    // The server must have XKB, and the application exist. Notifications are followed from now on.
    FollowedKeyboard();
    ~FollowedKeyboard() override;
    Q_DISABLE_COPY(FollowedKeyboard)

    // No round trip, except that the first call waits if the first answer is still to come. All
    // zero if the server gave none.
    KeyboardState state();

    // Of the affected modifiers locks those that are in locked, and unlocks the others. The server
    // refuses a mask in locked that is not affected. What is set has left for the server when the
    // call returns, as with lockGroup.
    void setLocks(unsigned char affected, unsigned char locked);
    void lockGroup(unsigned char group);

    // Between these two this program itself holds modifier keys down through XTest: they do not
    // count as held, whatever the notifications say. The second is to be called after the requests
    // for the releases.
    void beginOwnModifiers();
    void endOwnModifiers();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    // A change that this program has asked for. A notification from before it is corrected.
    struct Change {
        std::uint32_t request; // its sequence number
        unsigned char affected;
        unsigned char value;
    };

    void takeAnswer();
    void follow(const KeyboardState& told, std::uint32_t request);

    xcb_connection_t* connection;
    int xkbEvent = -1;
    std::optional<unsigned int> question; // until its answer is taken
    KeyboardState current;
    std::optional<Change> modifierChange;
    std::optional<Change> groupChange;
    bool holdsOwnModifiers = false;
    std::optional<std::uint32_t> lastOwnRelease; // the request's sequence number
};

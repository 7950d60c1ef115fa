#include "x11/qt/FollowedKeyboard.h"

#include "x11/X11.h"
#include "x11/Xcb.h"
#include "x11/Xkb.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QCoreApplication>

namespace {

unsigned char merged(unsigned char value, unsigned char affected, unsigned char wanted)
{
    return static_cast<unsigned char>((value & ~affected) | (wanted & affected));
}

constexpr unsigned char everyGroup = 0xff;

} // namespace

FollowedKeyboard::FollowedKeyboard()
    : connection(toolkitConnection())
{
    const auto xkb = x11::findExtension(connection, xcb_xkb_id);
    if (!xkb)
        return;
    xkbEvent = xkb->firstEvent;
    question = xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD).sequence;
    QCoreApplication::instance()->installNativeEventFilter(this);
}

FollowedKeyboard::~FollowedKeyboard()
{
    if (question)
        xcb_discard_reply(connection, *question);
}

KeyboardState FollowedKeyboard::state()
{
    takeAnswer();
    return current;
}

void FollowedKeyboard::takeAnswer()
{
    if (!question)
        return;
    const x11::Reply<xcb_xkb_get_state_reply_t> reply(
        xcb_xkb_get_state_reply(connection, {*question}, nullptr));
    const std::uint32_t request = *question;
    question.reset();
    if (reply)
        follow({reply->baseMods, reply->lockedMods, reply->lockedGroup, reply->mods, reply->group},
            request);
}

bool FollowedKeyboard::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    const auto* generic = static_cast<const xcb_generic_event_t*>(message);
    const auto* event = static_cast<const xcb_xkb_state_notify_event_t*>(message);
    if (generic->response_type != xkbEvent || event->xkbType != XCB_XKB_STATE_NOTIFY)
        return false;
    // The first answer is younger, and includes this.
    if (question && x11::isBefore(generic->full_sequence, *question))
        return false;
    takeAnswer();
    follow({event->baseMods, event->lockedMods, event->lockedGroup, event->mods, event->group},
        generic->full_sequence);
    return false;
}

// request: the sequence number of our last request that the server had processed when it sent this
// state.
void FollowedKeyboard::follow(const KeyboardState& told, std::uint32_t request)
{
    const unsigned char downBefore = current.downModifiers;
    current = told;
    const auto correct = [&](std::optional<Change>& change, unsigned char& value) {
        if (change && x11::isBefore(request, change->request))
            value = merged(value, change->affected, change->value);
        else
            change.reset();
    };
    correct(modifierChange, current.lockedModifiers);
    correct(groupChange, current.lockedGroup);

    if (holdsOwnModifiers || (lastOwnRelease && x11::isBefore(request, *lastOwnRelease)))
        current.downModifiers = downBefore;
    else
        lastOwnRelease.reset();
}

void FollowedKeyboard::setLocks(unsigned char affected, unsigned char locked)
{
    takeAnswer();
    const auto cookie = xcb_xkb_latch_lock_state(
        connection, XCB_XKB_ID_USE_CORE_KBD, affected, locked, 0, 0, 0, 0, 0);
    xcb_flush(connection);
    modifierChange = {cookie.sequence, affected, locked};
    current.lockedModifiers = merged(current.lockedModifiers, affected, locked);
}

void FollowedKeyboard::lockGroup(unsigned char group)
{
    takeAnswer();
    const auto cookie =
        xcb_xkb_latch_lock_state(connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    xcb_flush(connection);
    groupChange = {cookie.sequence, everyGroup, group};
    current.lockedGroup = group;
}

void FollowedKeyboard::beginOwnModifiers()
{
    takeAnswer();
    holdsOwnModifiers = true;
}

// The request before this empty one is the last release.
void FollowedKeyboard::endOwnModifiers()
{
    holdsOwnModifiers = false;
    lastOwnRelease = xcb_no_operation(connection).sequence - 1;
}

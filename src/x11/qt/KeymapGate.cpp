#include "x11/qt/KeymapGate.h"

#include "x11/X11.h"
#include "x11/Xcb.h"
#include "x11/Xkb.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QCoreApplication>

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <cstring>
#include <utility>

namespace {

constexpr uint16_t allMapParts = 0xff;
constexpr uint8_t allGroups = 0xf;
constexpr uint32_t allIndicators = 0xffffffff;
constexpr uint32_t keymapNames = XCB_XKB_NAME_DETAIL_KEYCODES | XCB_XKB_NAME_DETAIL_SYMBOLS
    | XCB_XKB_NAME_DETAIL_TYPES | XCB_XKB_NAME_DETAIL_COMPAT | XCB_XKB_NAME_DETAIL_KEY_TYPE_NAMES
    | XCB_XKB_NAME_DETAIL_KT_LEVEL_NAMES | XCB_XKB_NAME_DETAIL_INDICATOR_NAMES
    | XCB_XKB_NAME_DETAIL_KEY_NAMES | XCB_XKB_NAME_DETAIL_KEY_ALIASES
    | XCB_XKB_NAME_DETAIL_VIRTUAL_MOD_NAMES | XCB_XKB_NAME_DETAIL_GROUP_NAMES;

// Its number in the connection is no part of what a reply says (X protocol, "Replies").
constexpr qsizetype sequenceAt = 2;
constexpr qsizetype sequenceSize = 2;
constexpr qsizetype fixedSize = 32;

uint32_t newWindow(xcb_connection_t* connection)
{
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const uint32_t window = xcb_generate_id(connection);
    xcb_create_window(connection, 0, window, screen->root, -1, -1, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

} // namespace

KeymapGate::KeymapGate(Predicate holdsKeys)
    : connection(toolkitConnection())
    , isBusy(std::move(holdsKeys))
{
    const auto xkb = x11::findExtension(connection, xcb_xkb_id);
    if (!xkb)
        return;
    xkbEvent = xkb->firstEvent;
    window = newWindow(connection);
    questions = ask();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

KeymapGate::~KeymapGate()
{
    if (window == 0)
        return;
    if (isAsking || !isFirstKnown) {
        for (const unsigned int question : questions)
            xcb_discard_reply(connection, question);
    }
    xcb_destroy_window(connection, window);
}

bool KeymapGate::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    if (isOwed && !isAsking && !isBusy())
        askAndSendBack();
    if (!isKeymapEvent(message))
        return false;
    if (event.response_type & x11::sentBySendEvent)
        return isAsking && !comesBack();
    // Qt may have read the keymap before this change, and our first questions came after it: they
    // would hide it.
    if (!isFirstKnown && x11::isBefore(event.full_sequence, questions.back()))
        return false;
    keepBack(message);
    return true;
}

// A new keyboard with the same key codes is nothing to Qt.
bool KeymapGate::isKeymapEvent(const void* message) const
{
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    if ((event.response_type & ~x11::sentBySendEvent) != xkbEvent)
        return false;
    if (event.pad0 == XCB_XKB_MAP_NOTIFY)
        return true;
    const auto& keyboard = *static_cast<const xcb_xkb_new_keyboard_notify_event_t*>(message);
    return event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY
        && (keyboard.changed & XCB_XKB_NKN_DETAIL_KEYCODES);
}

void KeymapGate::keepBack(const void* message)
{
    std::memcpy(keptBack.data(), message, keptBack.size());
    if (!isFirstKnown)
        keymap = answers(questions);
    isFirstKnown = true;
    if (isAsking)
        hasMore = true;
    else
        askAndSendBack();
}

// The answers have come before the announcement.
bool KeymapGate::comesBack()
{
    isAsking = false;
    const QByteArray now = answers(questions);
    isOwed = isOwed || now.isEmpty() || now != keymap;
    keymap = now;
    if (std::exchange(hasMore, false))
        askAndSendBack();
    return !isBusy() && std::exchange(isOwed, false);
}

void KeymapGate::askAndSendBack()
{
    questions = ask();
    xcb_send_event(connection, 0, window, XCB_EVENT_MASK_NO_EVENT, keptBack.data());
    xcb_flush(connection);
    isAsking = true;
}

KeymapGate::Questions KeymapGate::ask() const
{
    constexpr auto core = XCB_XKB_ID_USE_CORE_KBD;
    return {xcb_xkb_get_map(
                connection, core, allMapParts, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0)
                .sequence,
        xcb_xkb_get_names(connection, core, keymapNames).sequence,
        xcb_xkb_get_indicator_map(connection, core, allIndicators).sequence,
        xcb_xkb_get_compat_map(connection, core, allGroups, 1, 0, 0).sequence};
}

// Empty if the server refuses one of them.
QByteArray KeymapGate::answers(const Questions& asked) const
{
    QByteArray all;
    bool isComplete = true;
    for (const unsigned int question : asked) {
        const x11::Reply<xcb_generic_reply_t> reply(
            static_cast<xcb_generic_reply_t*>(xcb_wait_for_reply(connection, question, nullptr)));
        if (!reply) {
            isComplete = false;
            continue;
        }
        const qsizetype size = fixedSize + qsizetype{reply->length} * 4;
        QByteArray bytes(reinterpret_cast<const char*>(reply.get()), size);
        all += bytes.remove(sequenceAt, sequenceSize);
    }
    return isComplete ? all : QByteArray();
}

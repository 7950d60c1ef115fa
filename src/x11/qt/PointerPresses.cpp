#include "x11/qt/PointerPresses.h"

#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/Xcb.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>
#include <QtMath>

#include <xcb/xinput.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

namespace {

// Enough for minutes in which a window manager does not answer.
constexpr qsizetype mostAwaited = 2000;

// Touches that wait longer than this for the focus are dropped.
constexpr int focusPatienceMs = 5000;

constexpr std::uint32_t firstWheelButton = 4;
constexpr std::uint32_t lastWheelButton = 7;
constexpr std::uint32_t lastButton = 31;

constexpr double fixedPointOne = 65536; // FP1616 of the input extension's protocol

constexpr std::uint32_t buttonEvents =
    XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE;
constexpr std::uint32_t touchEvents = XCB_INPUT_XI_EVENT_MASK_TOUCH_BEGIN
    | XCB_INPUT_XI_EVENT_MASK_TOUCH_UPDATE | XCB_INPUT_XI_EVENT_MASK_TOUCH_END;

constexpr std::uint32_t deviceGone = XCB_INPUT_HIERARCHY_MASK_SLAVE_REMOVED
    | XCB_INPUT_HIERARCHY_MASK_SLAVE_DETACHED | XCB_INPUT_HIERARCHY_MASK_DEVICE_DISABLED;

bool isTouchEvent(int type)
{
    return type == XCB_INPUT_TOUCH_BEGIN || type == XCB_INPUT_TOUCH_UPDATE
        || type == XCB_INPUT_TOUCH_END;
}

// The wheel's movements are buttons too, and Qt knows no more than 24 beyond it.
bool isClick(const xcb_input_button_press_event_t& event)
{
    const bool isWheel = event.detail >= firstWheelButton && event.detail <= lastWheelButton;
    return !isWheel && event.detail <= lastButton
        && !(event.flags & XCB_INPUT_POINTER_EVENT_FLAGS_POINTER_EMULATED);
}

bool isForWindowManager(const xcb_input_button_press_event_t& event)
{
    constexpr std::uint32_t harmless = x11::shiftMask | x11::lockMask;
    return event.event_type == XCB_INPUT_BUTTON_PRESS && (event.mods.base & ~harmless);
}

// As Qt names it; Qt turns a touch into a press of the left button.
Qt::MouseButton qtButton(const PressId& id)
{
    constexpr std::uint32_t firstExtraButton = 8; // XInput2: back, forward and those beyond
    constexpr std::array plain{Qt::NoButton, Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
    if (id.isTouch)
        return Qt::LeftButton;
    if (id.detail < plain.size())
        return plain.at(id.detail);
    return static_cast<Qt::MouseButton>(Qt::ExtraButton1 << (id.detail - firstExtraButton));
}

bool hasDirectTouch(const xcb_input_xi_query_device_reply_t* devices)
{
    auto info = xcb_input_xi_query_device_infos_iterator(devices);
    for (; info.rem > 0; xcb_input_xi_device_info_next(&info)) {
        auto each = xcb_input_xi_device_info_classes_iterator(info.data);
        for (; each.rem > 0; xcb_input_device_class_next(&each)) {
            if (each.data->type != XCB_INPUT_DEVICE_CLASS_TYPE_TOUCH)
                continue;
            const auto* touch = reinterpret_cast<const xcb_input_touch_class_t*>(each.data);
            return touch->mode == XCB_INPUT_TOUCH_MODE_DIRECT;
        }
    }
    return false;
}

// What this connection has selected at a window already, as words of 32 event types each.
struct Selected {
    std::vector<std::uint32_t> forAllDevices{0}; // at least the first word
    std::uint32_t forAnyDevice = 0; // the first words taken together
};

Selected selectedAt(xcb_window_t window)
{
    xcb_connection_t* connection = toolkitConnection();
    const x11::Reply<xcb_input_xi_get_selected_events_reply_t> reply(
        xcb_input_xi_get_selected_events_reply(
            connection, xcb_input_xi_get_selected_events(connection, window), nullptr));
    Selected selected;
    if (!reply)
        return selected;
    auto each = xcb_input_xi_get_selected_events_masks_iterator(reply.get());
    for (; each.rem > 0; xcb_input_event_mask_next(&each)) {
        if (each.data->mask_len == 0)
            continue;
        const std::uint32_t* words = xcb_input_event_mask_mask(each.data);
        selected.forAnyDevice |= *words;
        if (each.data->deviceid == XCB_INPUT_DEVICE_ALL)
            selected.forAllDevices.assign(words, words + each.data->mask_len);
    }
    return selected;
}

void select(xcb_window_t window, const std::vector<std::uint32_t>& mask)
{
    const xcb_input_event_mask_t head{
        XCB_INPUT_DEVICE_ALL, static_cast<std::uint16_t>(mask.size())};
    std::vector<std::uint32_t> request(1 + mask.size());
    std::memcpy(request.data(), &head, sizeof head);
    std::copy(mask.cbegin(), mask.cend(), request.begin() + 1);
    xcb_input_xi_select_events(toolkitConnection(), window, 1,
        reinterpret_cast<const xcb_input_event_mask_t*>(request.data()));
}

} // namespace

PointerPresses::PointerPresses(QWidget* pressedWidget, Receiver* pressReceiver)
    : widget(pressedWidget)
    , receiver(pressReceiver)
{
    const auto input = x11::findExtension(toolkitConnection(), xcb_input_id);
    if (!input)
        return;
    opcode = input->opcode;
    qApp->installNativeEventFilter(this);
    QObject::connect(
        qApp, &QGuiApplication::focusWindowChanged, &focusObserver, [this] { deliverWaiting(); });
}

// Qt 6 selects all of this for all devices already, because it needs it while it moves a window; at
// other times it ignores the events of slave devices. Adds what may be missing: the server keeps
// one selection for Qt and for this. Touches only where Qt asks for them, which it does where the
// server has them.
void PointerPresses::watch()
{
    const WId window = widget->effectiveWinId();
    if (opcode == 0 || window == watchedWindow)
        return;
    watchedWindow = window;
    Selected selected = selectedAt(static_cast<xcb_window_t>(window));
    std::uint32_t& mask = selected.forAllDevices.front();
    const std::uint32_t wanted = buttonEvents | (selected.forAnyDevice & touchEvents);
    isForQtToo = (mask & ~wanted) != 0; // bits beyond ours can only be Qt's
    if ((mask & wanted) == wanted)
        return;
    mask |= wanted;
    select(static_cast<xcb_window_t>(window), selected.forAllDevices);
}

bool PointerPresses::takeAlreadyDelivered(const QMouseEvent& event)
{
    const auto same =
        std::find_if(awaitedFromQt.cbegin(), awaitedFromQt.cend(), [&](const QtPress& press) {
            return press.time == event.timestamp() && press.button == event.button();
        });
    if (same == awaitedFromQt.cend())
        return false;
    // Qt reports presses in their order: those before this one are lost to it.
    awaitedFromQt.erase(awaitedFromQt.cbegin(), same + 1);
    return true;
}

bool PointerPresses::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    const auto* generic = static_cast<const xcb_ge_generic_event_t*>(message);
    if (generic->response_type == XCB_FOCUS_IN || generic->response_type == XCB_FOCUS_OUT)
        followFocus(*static_cast<const xcb_focus_in_event_t*>(message));
    if (generic->response_type != XCB_GE_GENERIC || generic->extension != opcode)
        return false;
    const int type = generic->event_type;
    if (type == XCB_INPUT_HIERARCHY)
        handleHierarchy(*static_cast<const xcb_input_hierarchy_event_t*>(message));
    if (type == XCB_INPUT_BUTTON_PRESS || type == XCB_INPUT_BUTTON_RELEASE || isTouchEvent(type))
        return handle(type, *static_cast<const DeviceEvent*>(message));
    return false;
}

void PointerPresses::followFocus(const xcb_focus_in_event_t& event)
{
    const bool isGrab = event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
    if (!isGrab && event.detail < XCB_NOTIFY_DETAIL_POINTER && event.event == watchedWindow)
        focusIsElsewhere = event.response_type == XCB_FOCUS_OUT;
    deliverWaiting();
}

// Delivers at once only if the window has the focus and no earlier press waits.
void PointerPresses::deliverPress(const Delivery& press)
{
    if (waiting.isEmpty() && hasFocus())
        return press.send();
    if (waiting.isEmpty())
        askForFocus(press.time);
    waiting.append(press);
    sinceLastWaiting.start();
}

// A window manager gives the focus to a window that is touched, and Qt asks for it when a button is
// pressed: without a manager nobody does it for a touch.
void PointerPresses::askForFocus(Time time) const
{
    if (!x11::hasWindowManager(toolkitDisplay()))
        xcb_set_input_focus(toolkitConnection(), XCB_INPUT_FOCUS_PARENT,
            static_cast<xcb_window_t>(widget->window()->effectiveWinId()),
            static_cast<xcb_timestamp_t>(time));
}

// A move or a release waits behind its press, if that waits.
void PointerPresses::deliverBehindPress(const Delivery& later)
{
    const bool waits = std::any_of(waiting.cbegin(), waiting.cend(),
        [&](const Delivery& each) { return each.id == later.id; });
    if (waits)
        waiting.append(later);
    else
        later.send();
}

void PointerPresses::deliverWaiting()
{
    if (waiting.isEmpty() || !hasFocus())
        return;
    const QList<Delivery> deliveries = std::exchange(waiting, {});
    if (sinceLastWaiting.hasExpired(focusPatienceMs))
        return;
    for (const Delivery& each : deliveries)
        each.send();
}

// Where Qt has not asked for the devices' own events it must not see them: it would take them for
// further ones of the master.
bool PointerPresses::handle(int type, const DeviceEvent& event)
{
    const PressId id{event.sourceid, event.detail, isTouchEvent(type)};
    if (event.event != widget->effectiveWinId())
        return false;
    // Qt drops all but the last of a row of updates of one touch, whichever device they name.
    if (type == XCB_INPUT_TOUCH_UPDATE && down.contains(id))
        deliverBehindPress(
            {id, event.time, [this, press = pressAt(event, id)] { receiver->moved(press); }});
    if (event.deviceid != event.sourceid)
        return false;
    if ((type == XCB_INPUT_BUTTON_PRESS && isClick(event))
        || (type == XCB_INPUT_TOUCH_BEGIN && isDirectTouch(id.device)))
        handlePress(event, id);
    else if (type == XCB_INPUT_BUTTON_RELEASE || type == XCB_INPUT_TOUCH_END)
        handleRelease(id, event.time);
    return !isForQtToo;
}

void PointerPresses::handlePress(const DeviceEvent& event, const PressId& id)
{
    if (!isOurs(event))
        return;
    handleRelease(id, event.time);
    down.insert(id);
    awaitedFromQt.append({event.time, qtButton(id)});
    if (awaitedFromQt.size() > mostAwaited)
        awaitedFromQt.removeFirst();
    deliverPress(
        {id, event.time, [this, press = pressAt(event, id)] { receiver->pressed(press); }});
}

void PointerPresses::handleRelease(const PressId& id, Time time)
{
    if (down.erase(id) > 0)
        deliverBehindPress({id, time, [this, id, time] { receiver->released(id, time); }});
}

void PointerPresses::handleHierarchy(const xcb_input_hierarchy_event_t& event)
{
    // A new device may have the id of one that has gone.
    directTouch.clear();
    auto info = xcb_input_hierarchy_infos_iterator(&event);
    for (; info.rem > 0; xcb_input_hierarchy_info_next(&info)) {
        if (info.data->flags & deviceGone)
            releaseDevice(info.data->deviceid, event.time);
    }
}

void PointerPresses::releaseDevice(int device, Time time)
{
    const std::set<PressId> before = down;
    for (const PressId& id : before) {
        if (id.device == device)
            handleRelease(id, time);
    }
}

bool PointerPresses::isOurs(const DeviceEvent& event) const
{
    const QWidget* modal = QApplication::activeModalWidget();
    if (isForWindowManager(event) || QApplication::activePopupWidget()
        || (modal && modal != widget->window()) || !(isTouchEvent(event.event_type) || hasFocus()))
        return false;
    const QWidget* native = eventWidget();
    const QPoint position = windowPosition(event);
    return native == widget ? widget->rect().contains(position)
                            : native->childAt(position) == widget;
}

// A window that refuses the focus never gets it, and counts as one that has it.
bool PointerPresses::hasFocus() const
{
    const QWidget* window = widget->window();
    return (window->windowFlags() & Qt::WindowDoesNotAcceptFocus)
        || (window->isActiveWindow() && !focusIsElsewhere);
}

// Touch pads report touches too, at the place of the pointer.
bool PointerPresses::isDirectTouch(int device)
{
    const auto known = directTouch.constFind(device);
    if (known != directTouch.constEnd())
        return *known;
    xcb_connection_t* connection = toolkitConnection();
    const x11::Reply<xcb_input_xi_query_device_reply_t> reply(
        xcb_input_xi_query_device_reply(connection,
            xcb_input_xi_query_device(connection, static_cast<xcb_input_device_id_t>(device)),
            nullptr));
    const bool isDirect = reply && hasDirectTouch(reply.get());
    directTouch.insert(device, isDirect);
    return isDirect;
}

// The widget that the X window belongs to.
QWidget* PointerPresses::eventWidget() const
{
    return widget->internalWinId() != 0 ? widget : widget->nativeParentWidget();
}

QPoint PointerPresses::windowPosition(const DeviceEvent& event) const
{
    const QPointF pixels(event.event_x / fixedPointOne, event.event_y / fixedPointOne);
    const QPointF position = pixels / widget->devicePixelRatio();
    return {qFloor(position.x()), qFloor(position.y())};
}

PointerPress PointerPresses::pressAt(const DeviceEvent& event, const PressId& id) const
{
    return {id, widget->mapFrom(eventWidget(), windowPosition(event)), event.time};
}

#include "x11/qt/ToolkitDisplay.h"

#include <QGuiApplication>

Display* toolkitDisplay()
{
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->display() : nullptr;
}

xcb_connection_t* toolkitConnection()
{
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->connection() : nullptr;
}

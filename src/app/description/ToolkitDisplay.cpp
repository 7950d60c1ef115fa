#include "app/description/ToolkitDisplay.h"

#include <QGuiApplication>

Display* toolkitDisplay()
{
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->display() : nullptr;
}

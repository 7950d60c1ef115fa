#include "x11/qt/WaylandSession.h"

#include "x11/Queries.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QGuiApplication>
#include <QScreen>

// Newer servers say so by an extension of this name, older ones by the names of their screens.
bool isWaylandsServer()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen && screen->name().startsWith(QLatin1StringView("XWAYLAND")))
        return true;
    return x11::hasXwayland(toolkitDisplay());
}

#include "harness/UserEnvironment.h"

#include "harness/ChildProcess.h"

namespace {

QByteArray nameOf(const QByteArray& entry)
{
    return entry.left(entry.indexOf('='));
}

} // namespace

const QByteArrayList& userVariables()
{
    static const QByteArrayList names{"DESKTOP_SESSION", "LANG", "LANGUAGE", "QT_FONT_DPI",
        "QT_PLUGIN_PATH", "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "QT_SCALE_FACTOR",
        "QT_STYLE_OVERRIDE", "SESSION_MANAGER", "WAYLAND_DISPLAY", "XAUTHORITY",
        "XDG_CURRENT_DESKTOP"};
    return names;
}

const QByteArrayList& userDirectories()
{
    static const QByteArrayList names{
        "HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"};
    return names;
}

QByteArrayList environmentWithoutUser(const QByteArray& home, const QByteArrayList& additions)
{
    QByteArrayList result = additions;
    QByteArrayList taken = userVariables();
    for (const QByteArray& entry : additions)
        taken.append(nameOf(entry));
    for (const QByteArray& directory : userDirectories()) {
        if (!taken.contains(directory))
            result.append(directory + '=' + home);
        taken.append(directory);
    }
    for (const QByteArray& entry : currentEnvironment()) {
        if (!taken.contains(nameOf(entry)))
            result.append(entry);
    }
    return result;
}

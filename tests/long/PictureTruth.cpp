#include "tests/long/PictureTruth.h"

#include "harness/PictureKeys.h"
#include "harness/XTools.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "x11/CoreKeyboard.h"
#include "x11/X11.h"

#include <algorithm>
#include <bit>

namespace {

constexpr unsigned char locks = 2 | 16; // Caps Lock and Num Lock in the usual keymaps

QString keyFault(const KbdGeometry& picture, const QByteArray& displayName)
{
    const QList<int> down = pressedKeys(displayName);
    if (!down.isEmpty())
        return QStringLiteral("key %1 is down").arg(down.first());
    const KbdKey* lit = keyThat(picture, [](const KbdKey& key) { return key.isPhysicallyDown(); });
    return lit ? QStringLiteral("key %1 is lit").arg(lit->x11Keycode()) : QString();
}

QString lockFault(const KbdGeometry& picture, const XkbStateRec& state)
{
    const int shown = picture.modifiers() & locks;
    const int locked = state.locked_mods & locks;
    if (shown != locked)
        return QStringLiteral("locks are %1, in the server %2").arg(shown).arg(locked);
    const QList<KbdDoodad*> doodads = picture.doodadItems();
    const auto lit = std::count_if(doodads.begin(), doodads.end(),
        [](const KbdDoodad* doodad) { return doodad->isIndicator() && doodad->isActive(); });
    const int wanted = std::popcount(static_cast<unsigned>(locked));
    return lit == wanted ? QString() : QStringLiteral("%1 lamps, %2 locks").arg(lit).arg(wanted);
}

// Of a keyboard with another number of groups the picture does not follow the group.
QString groupFault(const KbdGeometry& picture, Display* display, const XkbStateRec& state)
{
    if (CoreKeyboard(display).groupCount() != picture.groupNames().size()
        || state.locked_group == picture.group())
        return {};
    return QStringLiteral("the group is %1, in the server %2")
        .arg(picture.group())
        .arg(state.locked_group);
}

} // namespace

QString faultOf(const KbdGeometry& picture, Display* display, const QByteArray& displayName)
{
    XkbStateRec state{};
    XkbGetState(display, x11::coreKeyboard, &state);
    for (const QString& fault : {keyFault(picture, displayName), lockFault(picture, state),
             groupFault(picture, display, state)}) {
        if (!fault.isEmpty())
            return fault;
    }
    return {};
}

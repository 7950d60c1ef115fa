#include "app/KbdSwitcher.h"

#include "app/description/ToolRun.h"
#include "paths/Paths.h"
#include "x11/X11.h"

#include <QCoreApplication>
#include <QProcess>

#include <unistd.h>

using namespace Qt::StringLiterals;

KbdSwitcher::KbdSwitcher(
    Display* xDisplay, Window mainWindow, XkbComponentNamesRec* names, bool isStatic)
    : display(xDisplay)
    , window(mainWindow)
    , staticFlag(isStatic)
{
    if (names)
        setComponentNames(names);
}

void KbdSwitcher::setComponentNames(XkbComponentNamesRec* names)
{
    keycodes = QString::fromUtf8(names->keycodes);
    types = QString::fromUtf8(names->types);
    compat = QString::fromUtf8(names->compat);
    symbols = QString::fromUtf8(names->symbols);
    geometry = QString::fromUtf8(names->geometry);
}

QStringList KbdSwitcher::arguments() const
{
    QStringList list{u"--parent"_s, QString::number(getpid()), u"--window"_s,
        QString::number(static_cast<quint32>(window)), u"--display"_s,
        QString::fromLocal8Bit(XDisplayString(display))};
    appendOption(list, "--keycodes", keycodes);
    appendOption(list, "--types", types);
    appendOption(list, "--compat", compat);
    appendOption(list, "--symbols", symbols);
    appendOption(list, "--geometry", geometry);
    if (staticFlag)
        list << u"--static"_s;
    return list;
}

int KbdSwitcher::launch()
{
    if (access(paths::switcherProgram, X_OK) != 0)
        return -1;
    qint64 started = -1;
    QProcess::startDetached(
        QString::fromLatin1(paths::switcherProgram), arguments(), u"/"_s, &started);
    processId = static_cast<int>(started);
    return processId;
}

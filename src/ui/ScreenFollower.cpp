#include "ui/ScreenFollower.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include <utility>

ScreenFollower::ScreenFollower(QObject* parent)
    : QObject(parent)
{
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, [this] {
        follow();
        tellSoon();
    });
    follow();
}

// Without a screen, as while a server reports a new one, there is nothing to follow.
void ScreenFollower::follow()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    connect(
        screen, &QScreen::geometryChanged, this, &ScreenFollower::tellSoon, Qt::UniqueConnection);
    connect(screen, &QScreen::availableGeometryChanged, this, &ScreenFollower::roomChanged,
        Qt::UniqueConnection);
}

void ScreenFollower::tellSoon()
{
    if (std::exchange(isChanged, true))
        return;
    QTimer::singleShot(0, this, [this] {
        isChanged = false;
        emit screenChanged();
    });
}

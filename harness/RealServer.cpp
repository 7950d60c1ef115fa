#include "harness/RealServer.h"

#include <QFile>
#include <QStandardPaths>
#include <QTextStream>

#include <array>
#include <stdexcept>
#include <unistd.h>

namespace {

constexpr QSizeF screenSize(1280, 1024);

constexpr char configurationFile[] = "xorg.conf";

struct DeviceRow {
    const char* name; // the end of its socket's path too, with "-" for a space
    const char* options;
    const char* role; // in the server's layout
};

constexpr DeviceRow firstKeyboardRow{
    "first keyboard", "Option \"DeviceType\" \"Keyboard\"", "CoreKeyboard"};
constexpr DeviceRow secondKeyboardRow{
    RealServer::otherKeyboardName, "Option \"DeviceType\" \"Keyboard\"", "SendCoreEvents"};
constexpr DeviceRow touchScreenRow{"touch screen",
    "Option \"DeviceType\" \"Touch\"\n  Option \"TouchCount\" \"10\"", "SendCoreEvents"};
constexpr DeviceRow pointerRow{
    "pointer", "Option \"DeviceType\" \"PointerAbsolute\"", "CorePointer"};

constexpr std::array devices{firstKeyboardRow, secondKeyboardRow, touchScreenRow, pointerRow};

constexpr char screenSections[] = R"(
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 64000
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0 - 1000.0
  VertRefresh 5.0 - 200.0
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "1280x1024"
    Virtual 1280 1024
  EndSubSection
EndSection
Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoEnableDevices" "true"
EndSection
)";

QByteArray socketName(const DeviceRow& device)
{
    return QByteArray(device.name).replace(' ', '-');
}

void writeDevice(QTextStream& text, const DeviceRow& device, const QByteArray& socket)
{
    text << "Section \"InputDevice\"\n  Identifier \"" << device.name << "\"\n"
         << "  Driver \"inputtest\"\n  Option \"SocketPath\" \"" << socket << "\"\n  "
         << device.options << "\nEndSection\n";
}

void writeLayout(QTextStream& text)
{
    text << "Section \"ServerLayout\"\n  Identifier \"layout\"\n  Screen \"screen\"\n";
    for (const DeviceRow& device : devices)
        text << "  InputDevice \"" << device.name << "\" \"" << device.role << "\"\n";
    text << "EndSection\n";
}

QByteArrayList serverCommand(const QByteArray& configuration, const QByteArray& log)
{
    return {"Xorg", "-config", configuration, "-logfile", log, "-sharevts", "-novtswitch"};
}

} // namespace

RealServerFolder::RealServerFolder()
{
    QFile file(QString::fromLocal8Bit(path(configurationFile)));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no configuration for X.Org can be written");
    QTextStream text(&file);
    text << screenSections;
    for (const DeviceRow& device : devices)
        writeDevice(text, device, path(socketName(device)));
    writeLayout(text);
}

QByteArray RealServerFolder::path(const QByteArray& file) const
{
    return folder.path().toLocal8Bit() + '/' + file;
}

QString RealServer::obstacle()
{
    if (QStandardPaths::findExecutable("Xorg").isEmpty())
        return "X.Org is not installed (xserver-xorg-core).";
    if (geteuid() != 0)
        return "X.Org with a configuration of its own can be started by root only.";
    return {};
}

RealServer::RealServer()
    : PrivateServer(serverCommand(path(configurationFile), path("log")), currentEnvironment())
    , firstKeyboard(path(socketName(firstKeyboardRow)))
    , secondKeyboard(path(socketName(secondKeyboardRow)))
    , touches(path(socketName(touchScreenRow)), screenSize)
    , mouse(path(socketName(pointerRow)), screenSize)
{
}

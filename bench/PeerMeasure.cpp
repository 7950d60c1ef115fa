#include "PeerMeasure.h"

#include <QDir>
#include <QStandardPaths>

#include <array>
#include <stdexcept>

namespace {

// With a keyboard of 105 keys, where that can be chosen.
const std::array<QByteArrayList, 5> commands{{
    {"gkbd-keyboard-display", "-l", "us"},
    {"kbd-layout-viewer5", "-l", "us"},
    {"onboard"},
    {"xkeycaps", "-keyboard", "pc105"},
    {"matchbox-keyboard"},
}};

Samples startsOf(Desktop& desktop, const QByteArrayList& command, int runs)
{
    Program program(desktop, {command, QDir::rootPath(), {}});
    Samples samples;
    for (int run = 0; run < runs; ++run) {
        samples.push_back(program.startUntilPainted());
        program.stop();
    }
    return samples;
}

} // namespace

std::vector<PeerFigures> measurePeers(
    Desktop& desktop, int runs, const std::function<void(const QByteArray& line)>& tell)
{
    std::vector<PeerFigures> peers;
    for (const QByteArrayList& command : commands) {
        const QByteArray& name = command.first();
        if (QStandardPaths::findExecutable(QString::fromLatin1(name)).isEmpty())
            continue;
        try {
            peers.push_back({name, startsOf(desktop, command, runs)});
        } catch (const std::runtime_error& failure) {
            tell(name + " is left out: " + failure.what());
        }
    }
    return peers;
}

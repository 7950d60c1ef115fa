#include "PeerMeasure.h"

#include <QDir>
#include <QStandardPaths>

#include <array>
#include <stdexcept>
#include <utility>

namespace {

// With a keyboard of 105 keys, where that can be chosen.
const std::array<ProgramSetup, 5> peers{{
    {.command = {"gkbd-keyboard-display", "-l", "us"}},
    {.command = {"kbd-layout-viewer5", "-l", "us"}},
    {.command = {"onboard"}},
    {.command = {"xkeycaps", "-keyboard", "pc105"}, .tellsProcess = false},
    {.command = {"matchbox-keyboard"}, .tellsProcess = false},
}};

Samples startsOf(Desktop& desktop, ProgramSetup peer, int runs)
{
    peer.directory = QDir::rootPath();
    Program program(desktop, std::move(peer));
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
    std::vector<PeerFigures> figures;
    for (const ProgramSetup& peer : peers) {
        const QByteArray& name = peer.command.first();
        if (QStandardPaths::findExecutable(QString::fromLatin1(name)).isEmpty())
            continue;
        try {
            figures.push_back({name, startsOf(desktop, peer, runs)});
        } catch (const std::runtime_error& failure) {
            tell(name + " is left out: " + failure.what());
        }
    }
    return figures;
}

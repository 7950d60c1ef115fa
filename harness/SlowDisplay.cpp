#include "harness/SlowDisplay.h"

#include <stdexcept>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 5s;
constexpr auto lookAgain = 5ms;

} // namespace

SlowDisplay::SlowDisplay(const QByteArray& display, std::chrono::milliseconds delay)
    : link({KBD_SLOW_LINK, display.mid(1), QByteArray::number(static_cast<int>(delay.count()))},
        currentEnvironment())
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!link.output().endsWith('\n') && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(lookAgain);
    if (!link.output().startsWith(':'))
        throw std::runtime_error("no slow line: " + link.output().toStdString());
    displayName = link.output().trimmed();
}

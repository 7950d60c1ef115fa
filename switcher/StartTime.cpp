#include "switcher/StartTime.h"

#include "x11/Property.h"
#include "x11/X11.h"

#include <array>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Process ids start over after the largest one. A difference larger than this, half of the smallest
// range in use, means that they have.
constexpr pid_t farApart = 16384;

constexpr int ticksField = 20; // of those after the name, as proc(5) counts them

constexpr int wordBits = 32;
constexpr int wordCount = 3; // ticks, the upper half first, and process

Atom startProperty(Display* display)
{
    return XInternAtom(display, "_ORVIX_KBD_SWITCHER_START", x11::xFalse);
}

} // namespace

StartTime StartTime::ofThisProcess()
{
    StartTime start;
    start.process = getpid();
    std::ifstream file("/proc/self/stat");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    // The program's name is in brackets, and may contain some.
    const std::size_t nameEnd = text.rfind(')');
    if (nameEnd == std::string::npos)
        return start;
    std::istringstream fields(text.substr(nameEnd + 1));
    std::string skipped;
    for (int field = 1; field < ticksField; ++field)
        fields >> skipped;
    fields >> start.ticks;
    return start;
}

bool StartTime::isAfter(const StartTime& other) const
{
    if (ticks != other.ticks)
        return ticks > other.ticks;
    const pid_t distance = process - other.process;
    const bool startedAnew = distance > farApart || distance < -farApart;
    return startedAnew ? distance < 0 : distance > 0;
}

// Xlib takes and gives 32 bits in a long.
void StartTime::tellOn(Display* display, Window window) const
{
    const std::array<long, wordCount> words{
        static_cast<std::int32_t>(ticks >> wordBits), static_cast<std::int32_t>(ticks), process};
    XChangeProperty(display, window, startProperty(display), XA_INTEGER, wordBits, PropModeReplace,
        reinterpret_cast<const unsigned char*>(words.data()), wordCount);
}

std::optional<StartTime> StartTime::toldOn(Display* display, Window window)
{
    const std::vector<unsigned long> words =
        x11::property(display, window, startProperty(display)).numbers;
    if (words.size() != wordCount)
        return std::nullopt;
    const auto half = [&words](int i) {
        return std::uint64_t{static_cast<std::uint32_t>(words[static_cast<std::size_t>(i)])};
    };
    return StartTime{half(0) << wordBits | half(1), static_cast<pid_t>(words[2])};
}

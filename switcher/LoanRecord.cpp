#include "switcher/LoanRecord.h"

#include "x11/Property.h"
#include "x11/X11.h"

#include <cstdint>
#include <stdexcept>
#include <string>

// The bytes that follow are of this machine's making, and mean something to one like it only.
struct LoanRecord::Header {
    std::uint32_t version = currentVersion;
    std::uint16_t byteOrder = 0x0102;
    std::uint16_t longSize = sizeof(unsigned long);
    std::uint32_t mark = 0;

    bool isReadable() const
    {
        const Header ours;
        return version == ours.version && byteOrder == ours.byteOrder && longSize == ours.longSize;
    }

private:
    // To be raised with every change of what is written.
    static constexpr std::uint32_t currentVersion = 1;
};

LoanRecord::LoanRecord(Display* xDisplay)
    : display(xDisplay)
    , property(XInternAtom(display, "_ORVIX_KBD_SWITCHER_LOAN", x11::xFalse))
    , mark(XAllocID(display))
{
}

void LoanRecord::write(const ReplacedKeyboard& keyboard)
{
    Header header;
    header.mark = static_cast<std::uint32_t>(mark);
    ByteWriter record;
    record.put(header);
    keyboard.put(record);
    XChangeProperty(display, XRootWindow(display, 0), property, property, 8, PropModeReplace,
        record.bytes().data(), static_cast<int>(record.bytes().size()));
}

bool LoanRecord::isOurs() const
{
    const std::vector<unsigned char> record = bytes();
    if (record.size() < sizeof(Header))
        return false;
    const auto header = ByteReader(record).take<Header>();
    return header.isReadable() && header.mark == mark;
}

std::optional<ReplacedKeyboard> LoanRecord::read() const
{
    const std::vector<unsigned char> record = bytes();
    ByteReader reader(record);
    try {
        if (!reader.take<Header>().isReadable())
            return std::nullopt;
        ReplacedKeyboard keyboard = ReplacedKeyboard::takeFrom(reader);
        if (reader.isAtEnd())
            return keyboard;
    } catch (const std::logic_error&) {
        // It is not what put() writes.
    }
    return std::nullopt;
}

void LoanRecord::remove()
{
    XDeleteProperty(display, XRootWindow(display, 0), property);
}

// Empty when the property is not there.
std::vector<unsigned char> LoanRecord::bytes() const
{
    const std::string text = x11::property(display, XRootWindow(display, 0), property).bytes;
    return {text.begin(), text.end()};
}

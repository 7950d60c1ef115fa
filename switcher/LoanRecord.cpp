#include "switcher/LoanRecord.h"

#include <cstdint>
#include <stdexcept>

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

namespace {

// In units of four bytes. A record has some twenty kilobytes for each keymap that is different.
constexpr long headerWords = 3;
constexpr long longestWords = 1L << 18;

} // namespace

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
    const std::vector<unsigned char> start = bytes(headerWords);
    if (start.size() != sizeof(Header))
        return false;
    const auto header = ByteReader(start).take<Header>();
    return header.isReadable() && header.mark == mark;
}

std::optional<ReplacedKeyboard> LoanRecord::read() const
{
    const std::vector<unsigned char> record = bytes(longestWords);
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

// At most so many units of four bytes; empty when the property is not there or not of its type.
std::vector<unsigned char> LoanRecord::bytes(long mostWords) const
{
    Atom type = x11::none;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, XRootWindow(display, 0), property, 0, mostWords, x11::xFalse,
        property, &type, &format, &count, &rest, &data);
    const x11::Owned<unsigned char> owned(data);
    if (!owned || type != property || format != 8)
        return {};
    return {owned.get(), owned.get() + count};
}

#include "switcher/ReplacedKeyboard.h"

#include "switcher/KeyRepeats.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace {

using Lent = std::vector<const KeymapSnapshot*>;

bool isAmong(unsigned int device, const Lent& lent)
{
    return std::any_of(lent.begin(), lent.end(),
        [device](const KeymapSnapshot* keymap) { return keymap->device() == device; });
}

std::vector<KeymapSnapshot> keymapsOfOthers(
    Display* display, const std::vector<unsigned int>& present, const Lent& lent)
{
    std::vector<KeymapSnapshot> result;
    for (const unsigned int device : present) {
        if (isAmong(device, lent))
            continue;
        if (auto keymap = KeymapSnapshot::take(display, device))
            result.push_back(std::move(*keymap));
    }
    return result;
}

std::vector<KeyRepeats> repeatsOf(Display* display, const std::vector<unsigned int>& devices)
{
    std::vector<KeyRepeats> result;
    result.reserve(devices.size());
    for (const unsigned int device : devices)
        result.push_back(KeyRepeats::of(display, device));
    return result;
}

// The keyboards that feed the core keyboard have its keymap as a rule: that is written once.
void putKeymaps(ByteWriter& bytes, const std::vector<KeymapSnapshot>& keymaps)
{
    bytes.put(static_cast<std::uint16_t>(keymaps.size()));
    std::vector<unsigned char> previous;
    for (const KeymapSnapshot& keymap : keymaps) {
        ByteWriter one;
        keymap.put(one);
        const bool isSame = one.bytes() == previous;
        bytes.put(static_cast<std::uint16_t>(keymap.device()));
        bytes.put(isSame);
        if (!isSame)
            bytes.put(one.bytes().data(), one.bytes().size());
        previous = one.bytes();
    }
}

std::vector<KeymapSnapshot> takeKeymaps(ByteReader& bytes)
{
    std::vector<KeymapSnapshot> keymaps;
    const auto count = bytes.take<std::uint16_t>();
    ByteReader previous = bytes;
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int device = bytes.take<std::uint16_t>();
        const bool isSame = bytes.take<std::uint8_t>() != 0;
        if (isSame && i == 0)
            throw std::invalid_argument("a first keymap is like none before it");
        if (!isSame)
            previous = bytes;
        ByteReader same = previous;
        keymaps.push_back(KeymapSnapshot::takeFrom(isSame ? same : bytes, device));
    }
    return keymaps;
}

} // namespace

ReplacedKeyboard ReplacedKeyboard::of(Display* display, const std::vector<unsigned int>& devices)
{
    ReplacedKeyboard result;
    for (const unsigned int device : devices) {
        auto keymap = KeymapSnapshot::take(display, device);
        if (!keymap)
            throw std::runtime_error("the present keyboard cannot be saved");
        result.keymaps.push_back(std::move(*keymap));
    }
    result.locks = LockState::of(display);
    return result;
}

ReplacedKeyboard ReplacedKeyboard::takeFrom(ByteReader& bytes)
{
    ReplacedKeyboard result;
    result.loan = bytes.take<ComponentAtoms>();
    result.locks = bytes.take<LockState>();
    result.loanKeys = KeySymRows::takeFrom(bytes);
    result.keymaps = takeKeymaps(bytes);
    return result;
}

void ReplacedKeyboard::put(ByteWriter& bytes) const
{
    bytes.put(loan);
    bytes.put(locks);
    loanKeys.put(bytes);
    putKeymaps(bytes, keymaps);
}

void ReplacedKeyboard::learn(Display* display)
{
    const unsigned int core = keymaps.front().device();
    loan = ComponentAtoms::of(display, core);
    loanKeys = KeySymRows::of(display, core);
}

// The core keyboard first: the server copies its keymap to all attached keyboards, so those without
// the loan get theirs back after it. The repeats last: the server copies those of the keyboard that
// was used last to the core keyboard.
void ReplacedKeyboard::putBack(Display* display, const std::vector<unsigned int>& present) const
{
    const LockState carriedOn = locks.carriedOn(LockState::of(display));
    const Lent lent = onLoan(display);
    if (lent.empty())
        return;
    std::vector<KeymapSnapshot> others;
    if (isAmong(keymaps.front().device(), lent))
        others = keymapsOfOthers(display, present, lent);
    const std::vector<KeyRepeats> repeats = repeatsOf(display, present);
    const std::vector<Edits> edits = editsOn(display, lent);
    for (const KeymapSnapshot* keymap : lent)
        keymap->putBack(display);
    for (const KeymapSnapshot& keymap : others)
        keymap.putBack(display);
    for (const Edits& each : edits)
        each.rows.write(display, each.device, each.keycodes);
    for (const KeyRepeats& each : repeats)
        each.apply(display);
    carriedOn.apply(display);
}

std::vector<const KeymapSnapshot*> ReplacedKeyboard::onLoan(Display* display) const
{
    Lent lent;
    for (const KeymapSnapshot& keymap : keymaps) {
        if (ComponentAtoms::of(display, keymap.device()) == loan)
            lent.push_back(&keymap);
    }
    return lent;
}

std::vector<ReplacedKeyboard::Edits> ReplacedKeyboard::editsOn(
    Display* display, const Lent& lent) const
{
    std::vector<Edits> result;
    if (loanKeys.isEmpty())
        return result;
    for (const KeymapSnapshot* keymap : lent) {
        KeySymRows rows = KeySymRows::of(display, keymap->device());
        std::vector<int> keycodes = rows.keysChangedSince(loanKeys);
        result.push_back({keymap->device(), std::move(rows), std::move(keycodes)});
    }
    return result;
}

#include "ui/DeadKeyTable.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace Qt;

constexpr DeadKeyRow table[] = {
#include "ui/deadkeys.inc"
};

constexpr bool isBefore(const DeadKeyRow& a, const DeadKeyRow& b)
{
    return a.deadKey < b.deadKey;
}

static_assert(std::size(table) == 184);
static_assert(std::is_sorted(std::begin(table), std::end(table), isBefore));
static_assert(DeadKeyTable::isDeadKey(std::begin(table)->deadKey));
static_assert(DeadKeyTable::isDeadKey(std::rbegin(table)->deadKey));

} // namespace

std::span<const DeadKeyRow> DeadKeyTable::rows()
{
    return table;
}

const DeadKeyRow* DeadKeyTable::find(int deadKey, int baseKey)
{
    const auto* row = std::find_if(std::begin(table), std::end(table),
        [=](const DeadKeyRow& r) { return r.deadKey == deadKey && r.baseKey == baseKey; });
    return row == std::end(table) ? nullptr : row;
}

#pragma once

#include <Qt>

#include <span>

// One composition of a dead key and the key after it.
struct DeadKeyRow {
    int deadKey; // these three are Qt key codes
    int baseKey;
    int resultKey; // that of the letter where Latin-1 has it, mostly; else Qt::Key_unknown
    char16_t shiftCharacter; // 0 where there is no such letter
    char16_t plainCharacter;
};

// What dead keys make of the keys after them.
namespace DeadKeyTable {

// Whether the key is one of the dead keys from Qt::Key_Dead_Grave to Qt::Key_Dead_Horn.
constexpr bool isDeadKey(int key)
{
    return key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Horn;
}

// All rows, the rows of one dead key together.
std::span<const DeadKeyRow> rows();

// The first row for the two keys; null when they do not compose. The row is the table's.
const DeadKeyRow* find(int deadKey, int baseKey);

} // namespace DeadKeyTable

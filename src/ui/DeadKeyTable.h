#pragma once

#include <Qt>

#include <span>

// One composition of a dead key and the key after it.
struct DeadKeyRow {
    int deadKey; // these three are Qt key codes
    int baseKey;
    int resultKey; // mostly the Latin-1 letter's; Qt::Key_unknown for other letters
    char16_t shiftCharacter; // with Shift and without; 0 when there is no such letter
    char16_t plainCharacter;
};

// Which letter a dead key and the key after it make.
namespace DeadKeyTable {

// Whether the key is one of the dead keys from Qt::Key_Dead_Grave to Qt::Key_Dead_Horn.
constexpr bool isDeadKey(int key)
{
    return key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Horn;
}

// All rows, the rows of one dead key together.
std::span<const DeadKeyRow> rows();

// The first row for the two keys, owned by the table; null when they do not compose.
const DeadKeyRow* find(int deadKey, int baseKey);

} // namespace DeadKeyTable

#pragma once

#include "ts3functions.h"

#include <array>
#include <cstring>

/// A table in which every slot is a valid function that answers ERROR_not_implemented. Whoever plays the client fills
/// in the slots that it serves; a plugin never finds a null pointer.
inline TS3Functions stubTable()
{
    constexpr std::size_t slotCount = sizeof(TS3Functions) / sizeof(void*);
    unsigned int (*const notImplemented)() = [] { return static_cast<unsigned int>(ERROR_not_implemented); };
    std::array<void (*)(), slotCount> pointers;
    pointers.fill(reinterpret_cast<void (*)()>(notImplemented));
    TS3Functions table;
    std::memcpy(&table, pointers.data(), sizeof(table));
    return table;
}

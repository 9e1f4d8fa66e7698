// Byte table of the analogue 4:2:2 member's V: the entry at index i holds
// i + 128 clamped to 0..255, so indices to -128 and beyond give 0 and those
// from 127 on give 255.  Its bytes are those of ImgClampTable 128 entries
// on, so it reads that table (indices -512 to 511; the V formula reaches
// -157 and 156).
#ifndef PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_CLAMP_TABLE_H
#define PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_CLAMP_TABLE_H

#include <cstdint>

#include "primitives/colour/clamp_table.h"

namespace pixmoor::colour {

struct ClampPlus128Table {
    uint8_t operator[](int32_t i) const { return ImgClampTable[i + 128]; }
};

inline constexpr ClampPlus128Table ImgClampPlus128Table{};

}  // namespace pixmoor::colour

#endif

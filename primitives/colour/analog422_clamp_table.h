// Byte table of the analogue 4:2:2 member's V: the entry at index i holds
// i + 128 clamped to 0..255, so indices to -128 and beyond give 0 and those
// from 127 on give 255.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_CLAMP_TABLE_H
#define PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_CLAMP_TABLE_H

#include <cstdint>

namespace pixmoor::colour {

struct ClampPlus128Table {
    // Index range; the V formula reaches -157 and 156.
    static constexpr int32_t kLowest = -256;
    static constexpr int32_t kCount = 512;

    uint8_t entries[kCount];

    uint8_t operator[](int32_t i) const { return entries[i - kLowest]; }
};

constexpr ClampPlus128Table MakeClampPlus128Table() {
    ClampPlus128Table t{};
    for (int32_t k = 0; k < ClampPlus128Table::kCount; ++k) {
        const int32_t i = k + ClampPlus128Table::kLowest + 128;
        t.entries[k] = static_cast<uint8_t>(i < 0 ? 0 : i > 255 ? 255 : i);
    }
    return t;
}

extern const ClampPlus128Table ImgClampPlus128Table;

}  // namespace pixmoor::colour

#endif

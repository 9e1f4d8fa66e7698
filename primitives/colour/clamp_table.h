// Byte clamp by lookup: entry i holds i clamped to 0..255.  The plain-code
// tiers clamp through a table so that a pixel costs no branch; px and m6 each
// keep their own copy.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_CLAMP_TABLE_H
#define PIXMOOR_PRIMITIVES_COLOUR_CLAMP_TABLE_H

#include <cstdint>

namespace pixmoor::colour {

struct ClampTable {
    // Index range; covers every value the colour formulas can produce
    // (the widest reach -375 and 629).
    static constexpr int32_t kLowest = -384;
    static constexpr int32_t kCount = 1024;

    uint8_t entries[kCount];

    uint8_t operator[](int32_t i) const { return entries[i - kLowest]; }
};

constexpr ClampTable MakeClampTable() {
    ClampTable t{};
    for (int32_t k = 0; k < ClampTable::kCount; ++k) {
        const int32_t i = k + ClampTable::kLowest;
        t.entries[k] = static_cast<uint8_t>(i < 0 ? 0 : i > 255 ? 255 : i);
    }
    return t;
}

// The px tier's table, also used by the drivers' edge code of every tier.
extern const ClampTable ImgClampTable;
// The m6 tier's own copy.
extern const ClampTable ImgClampTableM6;

}  // namespace pixmoor::colour

#endif

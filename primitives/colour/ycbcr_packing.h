// Packing of 8-bit R, G, B into one 16-bit word: 5-6-5, 5-5-5 or 4-4-4, cut
// with no rounding and no dither.  The order flag puts red in the high field
// and blue at bit 0 (flag 1), or the reverse (flag 0); green stays in the
// middle either way, and bits above the top field are 0.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_PACKING_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_PACKING_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour {

// Field cutting of one word layout: the two outer fields and green already
// in place, and the shift of the high field.
struct Fields565 {
    static constexpr int kHighShift = 11;
    static int32_t Outer(int32_t c) { return c >> 3; }
    static int32_t Green(int32_t g) { return (g >> 2) << 5; }
};
struct Fields555 {
    static constexpr int kHighShift = 10;
    static int32_t Outer(int32_t c) { return c >> 3; }
    static int32_t Green(int32_t g) { return (g >> 3) << 5; }
};
struct Fields444 {
    static constexpr int kHighShift = 8;
    static int32_t Outer(int32_t c) { return c >> 4; }
    static int32_t Green(int32_t g) { return g & 240; }
};

template <class Fields, int RedHigh>
struct WordPacking {
    static uint16_t Pack(Rgb c) {
        const int32_t high = RedHigh ? c.r : c.b;
        const int32_t low = RedHigh ? c.b : c.r;
        return static_cast<uint16_t>((Fields::Outer(high) << Fields::kHighShift) | Fields::Green(c.g) |
                                     Fields::Outer(low));
    }
};

using PackBGR565 = WordPacking<Fields565, 0>;
using PackRGB565 = WordPacking<Fields565, 1>;
using PackBGR555 = WordPacking<Fields555, 0>;
using PackRGB555 = WordPacking<Fields555, 1>;
using PackBGR444 = WordPacking<Fields444, 0>;
using PackRGB444 = WordPacking<Fields444, 1>;

}  // namespace pixmoor::colour

#endif

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
// Each field keeps the top bits of its channel: the outer fields drop
// kOuterDrop low bits, green drops kGreenDrop and sits at bit kGreenAt.
template <int OuterDrop, int GreenDrop, int GreenAt, int HighShift>
struct Fields {
    static constexpr int kOuterDrop = OuterDrop;
    static constexpr int kGreenDrop = GreenDrop;
    static constexpr int kGreenAt = GreenAt;
    static constexpr int kHighShift = HighShift;
    static int32_t Outer(int32_t c) { return c >> OuterDrop; }
    static int32_t Green(int32_t g) { return (g >> GreenDrop) << GreenAt; }
};
using Fields565 = Fields<3, 2, 5, 11>;
using Fields555 = Fields<3, 3, 5, 10>;
using Fields444 = Fields<4, 4, 4, 8>;  // green: G & 240

template <class FieldsOf, int RedHigh>
struct WordPacking {
    using FieldsType = FieldsOf;
    static constexpr bool kRedHigh = RedHigh != 0;
    static uint16_t Pack(Rgb c) {
        const int32_t high = RedHigh ? c.r : c.b;
        const int32_t low = RedHigh ? c.b : c.r;
        return static_cast<uint16_t>((FieldsOf::Outer(high) << FieldsOf::kHighShift) | FieldsOf::Green(c.g) |
                                     FieldsOf::Outer(low));
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

// The lane arithmetics of the vector tiers, in the shape the YCbCr row
// kernel templates take (see ycbcr_row_kernels.h).
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_LANE_ARITH_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_LANE_ARITH_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_lanes.h"

namespace pixmoor::colour::lanes {

// 4:2:0 of a6 and w7: 12-bit coefficients forward, the five-factor inverse.
struct Arith420 {
    static void Block420(const Rgb p[4], uint8_t y[4], uint8_t* cb, uint8_t* cr) {
        for (int i = 0; i < 4; ++i) y[i] = Luma420(p[i]);
        const Rgb s = ycc::Sum(ycc::Sum(p[0], p[1]), ycc::Sum(p[2], p[3]));
        *cb = Cb420(s);
        *cr = Cr420(s);
    }
    static Rgb Inverse(int32_t y, int32_t u, int32_t v) { return Inverse420(y, u, v); }
};

// Inverse of 4:2:2 interleaved sources in w7's multiply-add lanes.
struct ArithW7Inverse422 {
    static Rgb Inverse422(int32_t y, int32_t u, int32_t v) { return lanes::Inverse422(y, u, v); }
};

// Forward 4:4:4 interleaved of w7: the matrix at half scale.
struct ArithW7ForwardHalf {
    static Rgb Forward(Rgb p) { return ForwardHalf(p); }
};

}  // namespace pixmoor::colour::lanes

#endif

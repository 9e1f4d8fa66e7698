// Tier m6 of the gray and analogue 4:2:2 members: the plain arithmetic of
// px.  The 8-bit kernels take three pixels a step; the 16-bit and float
// kernels work in double, as px does.
#include "primitives/colour/analog422_row.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/gray_scalar_rows.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour::gray {
namespace {

template <int Channels>
void Unrolled8uRow(const uint8_t* src, uint8_t* dst, int32_t width, const IntWeights& k) {
    int32_t x = 0;
    for (; x + 3 <= width; x += 3, src += 3 * Channels) {
        dst[x] = Plain8u::Pixel(src, k);
        dst[x + 1] = Plain8u::Pixel(src + Channels, k);
        dst[x + 2] = Plain8u::Pixel(src + 2 * Channels, k);
    }
    ScalarPixels<Plain8u, Channels>(src - Channels * static_cast<intptr_t>(x), dst, x, width, k);
}

}  // namespace

const GrayRows kGrayRowsM6{GrayDepthRows<uint8_t>{&Unrolled8uRow<3>, &Unrolled8uRow<4>},
                           ScalarDepthRows<Plain16u, uint16_t>(),
                           ScalarDepthRows<Plain16s, int16_t>(),
                           ScalarDepthRows<Plain32f, float>(),
                           &analog422::Row,
                           &FinishPlain};

}  // namespace pixmoor::colour::gray

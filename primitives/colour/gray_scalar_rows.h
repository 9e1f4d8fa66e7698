// Plain row kernels of the gray members: one pixel at a time through a
// per-pixel formula of gray_arith.h.  px uses them throughout; the other
// tiers use them where their arithmetic is the plain one, and the vector
// tiers for the pixels after their main loops.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_GRAY_SCALAR_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_GRAY_SCALAR_ROWS_H

#include <cstdint>

#include "primitives/colour/gray_arith.h"
#include "primitives/colour/gray_rows.h"

namespace pixmoor::colour::gray {

// Pixel formulas as types, so that a kernel template can take one.
struct Plain8u {
    static uint8_t Pixel(const uint8_t* p, const IntWeights& k) { return Gray8u(p[0], p[1], p[2], k); }
};
struct Plain16u {
    static uint16_t Pixel(const uint16_t* p, const FloatWeights& k) { return Gray16u(p[0], p[1], p[2], k); }
};
struct Plain16s {
    static int16_t Pixel(const int16_t* p, const FloatWeights& k) { return Gray16s(p[0], p[1], p[2], k); }
};
struct Plain32f {
    static float Pixel(const float* p, const FloatWeights& k) { return Gray32f(p[0], p[1], p[2], k); }
};
struct Single16u {
    static uint16_t Pixel(const uint16_t* p, const FloatWeights& k) { return Gray16uSingle(p[0], p[1], p[2], k); }
};
struct Single16s {
    static int16_t Pixel(const int16_t* p, const FloatWeights& k) { return Gray16sSingle(p[0], p[1], p[2], k); }
};
struct Single32f {
    static float Pixel(const float* p, const FloatWeights& k) { return Gray32fSingle(p[0], p[1], p[2], k); }
};

// Pixels from..width-1 of a line, `Channels` samples a pixel.
template <class Formula, int Channels, typename Sample, typename Weights>
void ScalarPixels(const Sample* src, Sample* dst, int32_t from, int32_t width, const Weights& k) {
    for (int32_t x = from; x < width; ++x) dst[x] = Formula::Pixel(src + Channels * static_cast<intptr_t>(x), k);
}

template <class Formula, int Channels, typename Sample>
void ScalarRow(const Sample* src, Sample* dst, int32_t width, const typename Depth<Sample>::Weights& k) {
    ScalarPixels<Formula, Channels>(src, dst, 0, width, k);
}

template <class Formula, typename Sample>
constexpr GrayDepthRows<Sample> ScalarDepthRows() {
    return GrayDepthRows<Sample>{&ScalarRow<Formula, 3, Sample>, &ScalarRow<Formula, 4, Sample>};
}

}  // namespace pixmoor::colour::gray

#endif

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

// Pixel formulas as types, so that a kernel template can take one: the
// formula F applied to the first three samples of a pixel.
template <auto F>
struct PixelFormula {
    template <typename Sample, typename Weights>
    static Sample Pixel(const Sample* p, const Weights& k) {
        return F(p[0], p[1], p[2], k);
    }
};
using Plain8u = PixelFormula<&Gray8u>;
using Plain16u = PixelFormula<&Gray16u>;
using Plain16s = PixelFormula<&Gray16s>;
using Plain32f = PixelFormula<&Gray32f>;
using Single16u = PixelFormula<&Gray16uSingle>;
using Single16s = PixelFormula<&Gray16sSingle>;
using Single32f = PixelFormula<&Gray32fSingle>;

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

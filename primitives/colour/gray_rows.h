// The row kernels of the gray members and of the analogue 4:2:2 member,
// one set per tier.  Each tier's unit fills its set; the wrappers pick the
// set of the tier they serve.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_GRAY_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_GRAY_ROWS_H

#include <cstdint>

#include "primitives/colour/gray_arith.h"

namespace pixmoor::colour::gray {

// What a sample depth brings along: the form of its weights and the shift
// that turns a byte step into a step in samples.
template <typename Sample>
struct Depth {
    using Weights = FloatWeights;
    static constexpr int32_t kStepShift = sizeof(Sample) == 2 ? 1 : 2;
    static Weights Convert(const float* w) { return ToFloatWeights(w); }
};
template <>
struct Depth<uint8_t> {
    using Weights = IntWeights;
    static constexpr int32_t kStepShift = 0;
    static Weights Convert(const float* w) { return ToIntWeights(w); }
};

// One line of `width` pixels to one line of gray samples.
template <typename Sample>
using GrayRow = void (*)(const Sample* src, Sample* dst, int32_t width,
                         const typename Depth<Sample>::Weights& weights);

// The two pixel layouts of one depth.
template <typename Sample>
struct GrayDepthRows {
    GrayRow<Sample> c3;
    GrayRow<Sample> ac4;
};

// One line of packed RGB to one line of packed 4:2:2.
using Analog422Row = void (*)(const uint8_t* src, uint8_t* dst, int32_t width);

struct GrayRows {
    GrayDepthRows<uint8_t> u8;
    GrayDepthRows<uint16_t> u16;
    GrayDepthRows<int16_t> s16;
    GrayDepthRows<float> f32;
    Analog422Row analog422;
    void (*finish)();

    const GrayDepthRows<uint8_t>& Of(const uint8_t*) const { return u8; }
    const GrayDepthRows<uint16_t>& Of(const uint16_t*) const { return u16; }
    const GrayDepthRows<int16_t>& Of(const int16_t*) const { return s16; }
    const GrayDepthRows<float>& Of(const float*) const { return f32; }
};

extern const GrayRows kGrayRowsPx;
extern const GrayRows kGrayRowsM6;
extern const GrayRows kGrayRowsA6;
extern const GrayRows kGrayRowsW7;

}  // namespace pixmoor::colour::gray

#endif

// Runs the gray members and the analogue 4:2:2 member of any tier on test
// images: lays the source out with the requested byte step, calls the
// member into a guarded destination with its own step, reads the result
// back and tells whether any destination byte outside the samples moved.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_GRAY_HARNESS_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_GRAY_HARNESS_H

#include <pixmoor/primitives/colour.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "gray_model.h"
#include "guarded_buffer.h"

namespace gray_harness {

using pixmoor_test::GuardedBuffer;

template <typename Sample>
using RgbFn = PrimStatus (*)(const Sample*, int32_t, Sample*, int32_t, int32_t, int32_t);
template <typename Sample>
using ColorFn = PrimStatus (*)(const Sample*, int32_t, Sample*, int32_t, int32_t, int32_t, const float*);

// The members of one depth: [tier][0 for C3, 1 for AC4].
template <typename Sample>
struct DepthEntries {
    RgbFn<Sample> rgb[4][2];
    ColorFn<Sample> color[4][2];
};

#define GRAY_TIER_PAIR(t, kind, D) \
    { t##_Img##kind##D##C3, t##_Img##kind##D##AC4 }
#define GRAY_DEPTH_ENTRIES(D)                                                                    \
    {                                                                                           \
        {GRAY_TIER_PAIR(px, RGBToGray, D), GRAY_TIER_PAIR(m6, RGBToGray, D),                    \
         GRAY_TIER_PAIR(a6, RGBToGray, D), GRAY_TIER_PAIR(w7, RGBToGray, D)},                   \
        {                                                                                       \
            GRAY_TIER_PAIR(px, ColorToGray, D), GRAY_TIER_PAIR(m6, ColorToGray, D),             \
                GRAY_TIER_PAIR(a6, ColorToGray, D), GRAY_TIER_PAIR(w7, ColorToGray, D)          \
        }                                                                                       \
    }

template <typename Sample>
const DepthEntries<Sample>& Entries();
template <>
inline const DepthEntries<uint8_t>& Entries<uint8_t>() {
    static const DepthEntries<uint8_t> e = GRAY_DEPTH_ENTRIES(8u);
    return e;
}
template <>
inline const DepthEntries<uint16_t>& Entries<uint16_t>() {
    static const DepthEntries<uint16_t> e = GRAY_DEPTH_ENTRIES(16u);
    return e;
}
template <>
inline const DepthEntries<int16_t>& Entries<int16_t>() {
    static const DepthEntries<int16_t> e = GRAY_DEPTH_ENTRIES(16s);
    return e;
}
template <>
inline const DepthEntries<float>& Entries<float>() {
    static const DepthEntries<float> e = GRAY_DEPTH_ENTRIES(32f);
    return e;
}

using Analog422Fn = RgbFn<uint8_t>;
inline Analog422Fn Analog422Entry(int tier) {
    static const Analog422Fn e[4] = {px_ImgRGBToYUV422C3C2, m6_ImgRGBToYUV422C3C2, a6_ImgRGBToYUV422C3C2,
                                     w7_ImgRGBToYUV422C3C2};
    return e[tier];
}

inline int LayoutIndex(int channels) { return channels == 4 ? 1 : 0; }

// A source image: `channels` samples a pixel, lines `stepBytes` apart as
// the member sees them (the step in samples is stepBytes / sizeof(Sample),
// rounded down).
template <typename Sample>
struct Source {
    int width, height, channels;
    int32_t stepBytes;
    std::vector<Sample> data;

    Source(int w, int h, int ch, int padBytes)
        : width(w), height(h), channels(ch),
          stepBytes(static_cast<int32_t>(ch * w * sizeof(Sample)) + padBytes),
          data(static_cast<size_t>(StepSamples()) * (h - 1) + static_cast<size_t>(ch) * w) {}
    int32_t StepSamples() const { return stepBytes / static_cast<int32_t>(sizeof(Sample)); }
    Sample* Pixel(int x, int y) { return &data[static_cast<size_t>(y) * StepSamples() + static_cast<size_t>(channels) * x]; }
    const Sample* Pixel(int x, int y) const {
        return &data[static_cast<size_t>(y) * StepSamples() + static_cast<size_t>(channels) * x];
    }
};

// Random samples: every byte pattern for the integer depths, values with
// fractions and both signs for floats.
template <typename Sample>
Sample RandomSample(std::mt19937& rng) {
    return static_cast<Sample>(rng());
}
template <>
inline float RandomSample<float>(std::mt19937& rng) {
    return std::uniform_real_distribution<float>(-300.0f, 300.0f)(rng);
}

template <typename Sample>
Source<Sample> RandomSource(int w, int h, int ch, int padBytes, uint32_t seed) {
    Source<Sample> s(w, h, ch, padBytes);
    std::mt19937 rng(seed);
    for (auto& v : s.data) v = RandomSample<Sample>(rng);
    return s;
}

// A destination of `width` samples a line and `stepBytes` between lines,
// in a guarded buffer filled with the canary.
struct Destination {
    int lineBytes, height;
    int32_t stepBytes;
    GuardedBuffer buf;
    Destination(int lineBytes_, int height_, int32_t stepBytes_)
        : lineBytes(lineBytes_), height(height_), stepBytes(stepBytes_),
          buf(static_cast<size_t>(stepBytes_) * (height_ - 1) + lineBytes_) {}
    uint8_t* Line(int y) { return buf.data() + static_cast<size_t>(y) * stepBytes; }
    // True while nothing but the line samples changed.
    bool OutsideUntouched(int writtenBytes) const {
        if (!buf.GuardsIntact()) return false;
        for (size_t i = 0; i < buf.size(); ++i) {
            const size_t inLine = i % static_cast<size_t>(stepBytes);
            if (inLine >= static_cast<size_t>(writtenBytes) && buf[i] != GuardedBuffer::kCanary) return false;
        }
        return true;
    }
};

template <typename Sample>
struct GrayResult {
    PrimStatus status;
    std::vector<Sample> gray;  // width * height, tight
    bool outsideUntouched;
};

// Calls a gray member.  `weighted` picks ColorToGray (with `weights`,
// possibly null) over RGBToGray.  `dstPadBytes` pads each destination line
// and is a multiple of the sample size.
template <typename Sample>
GrayResult<Sample> RunGray(int tier, bool weighted, const float* weights, const Source<Sample>& src,
                           int dstPadBytes) {
    const int w = src.width, h = src.height;
    const int lineBytes = w * static_cast<int>(sizeof(Sample));
    Destination dst(lineBytes, h, lineBytes + dstPadBytes);
    const DepthEntries<Sample>& e = Entries<Sample>();
    const int layout = LayoutIndex(src.channels);
    Sample* d = reinterpret_cast<Sample*>(dst.buf.data());
    const PrimStatus s = weighted ? e.color[tier][layout](src.data.data(), src.stepBytes, d, dst.stepBytes, w, h, weights)
                                  : e.rgb[tier][layout](src.data.data(), src.stepBytes, d, dst.stepBytes, w, h);
    GrayResult<Sample> r{s, std::vector<Sample>(static_cast<size_t>(w) * h), dst.OutsideUntouched(lineBytes)};
    for (int y = 0; y < h; ++y) std::memcpy(&r.gray[static_cast<size_t>(y) * w], dst.Line(y), lineBytes);
    return r;
}

// The model result of one pixel for a tier; `w` are resolved float weights.
inline uint8_t ModelPixel(int tier, const uint8_t* p, const float* w) {
    const gray_model::Weights8 k = gray_model::ToWeights8(w);
    return gray_model::Uses8uLanes(tier) ? gray_model::Gray8Lanes(p[0], p[1], p[2], k)
                                         : gray_model::Gray8Plain(p[0], p[1], p[2], k);
}
inline uint16_t ModelPixel(int tier, const uint16_t* p, const float* w) {
    return gray_model::UsesSingle(tier) ? gray_model::Gray16uSingle(p[0], p[1], p[2], w)
                                        : gray_model::Gray16uPlain(p[0], p[1], p[2], w);
}
inline int16_t ModelPixel(int tier, const int16_t* p, const float* w) {
    return gray_model::UsesSingle(tier) ? gray_model::Gray16sSingle(p[0], p[1], p[2], w)
                                        : gray_model::Gray16sPlain(p[0], p[1], p[2], w);
}
inline float ModelPixel(int tier, const float* p, const float* w) {
    return gray_model::UsesSingle(tier) ? gray_model::Gray32fSingle(p[0], p[1], p[2], w)
                                        : gray_model::Gray32fPlain(p[0], p[1], p[2], w);
}

template <typename Sample>
std::vector<Sample> Model(int tier, const float* weights, const Source<Sample>& src) {
    const float* w = weights ? weights : gray_model::DefaultWeights();
    std::vector<Sample> out(static_cast<size_t>(src.width) * src.height);
    for (int y = 0; y < src.height; ++y)
        for (int x = 0; x < src.width; ++x) out[static_cast<size_t>(y) * src.width + x] = ModelPixel(tier, src.Pixel(x, y), w);
    return out;
}

// Bitwise equality, so that float results compare exactly.
template <typename Sample>
bool SameBits(const std::vector<Sample>& a, const std::vector<Sample>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(Sample)) == 0;
}

}  // namespace gray_harness

#endif

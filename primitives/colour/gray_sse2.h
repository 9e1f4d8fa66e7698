// Vector row kernels of the gray members in 128-bit SSE2 registers:
//   - 16-bit and float depths, tiers a6 and w7: four pixels a step, the
//     samples widened to single-precision lanes, products and sum in single
//     precision, as Gray16uSingle and its kind do for one pixel;
//   - 8-bit depth, tier w7: eight pixels a step on 16-bit lanes, as
//     Gray8uLanes does for one pixel.
// After the main loop the remaining pixels go through that scalar form, so
// a line gives the same samples whatever its length.  Where the processor
// has no SSE2 the scalar form does the whole line.  No load or store needs
// alignment, and no load reaches past the last pixel of the line.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_GRAY_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_GRAY_SSE2_H

#include <cstdint>

#include "primitives/colour/gray_arith.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/gray_scalar_rows.h"
#include "primitives/colour/tier_finish.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#endif

namespace pixmoor::colour::gray {

// The 8-bit lane form, one pixel at a time.
using Lanes8u = PixelFormula<&Gray8uLanes>;

#ifdef PIXMOOR_HAVE_SSE2
namespace sse2_lanes {

// R, G, B of four pixels, one single-precision lane each.
struct Rgb4 {
    __m128 r, g, b;
};

// Four 16-bit pixels as two registers of two pixels, four lanes a pixel.
// A C3 pixel's fourth lane holds the next pixel's R and is not used.
template <int Channels>
inline void LoadPixelPairs(const uint16_t* p, __m128i& p01, __m128i& p23) {
    if (Channels == 4) {
        p01 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        p23 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 8));
    } else {
        const __m128i q0 = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
        const __m128i q1 = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + 3));
        const __m128i q2 = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + 6));
        // Samples 8 to 11, moved down one lane: the last pixel, read
        // without going past it.
        const __m128i q3 = _mm_srli_si128(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + 8)), 2);
        p01 = _mm_unpacklo_epi64(q0, q1);
        p23 = _mm_unpacklo_epi64(q2, q3);
    }
}

// 16-bit samples in lanes as unsigned values 0..65535: `raise` is 0 for
// unsigned samples and 0x8000 for signed ones, which adds 32768 to them.
template <int Channels, typename Sample>
inline Rgb4 Load4(const Sample* p, int16_t raise) {
    __m128i p01, p23;
    LoadPixelPairs<Channels>(reinterpret_cast<const uint16_t*>(p), p01, p23);
    const __m128i t0 = _mm_unpacklo_epi16(p01, p23);  // R0 R2 G0 G2 B0 B2 x x
    const __m128i t1 = _mm_unpackhi_epi16(p01, p23);  // R1 R3 G1 G3 B1 B3 x x
    const __m128i bias = _mm_set1_epi16(raise);
    const __m128i rg = _mm_xor_si128(_mm_unpacklo_epi16(t0, t1), bias);  // R0..R3 G0..G3
    const __m128i bx = _mm_xor_si128(_mm_unpackhi_epi16(t0, t1), bias);  // B0..B3 x
    const __m128i z = _mm_setzero_si128();
    return Rgb4{_mm_cvtepi32_ps(_mm_unpacklo_epi16(rg, z)), _mm_cvtepi32_ps(_mm_unpackhi_epi16(rg, z)),
                _mm_cvtepi32_ps(_mm_unpacklo_epi16(bx, z))};
}

template <int Channels>
inline Rgb4 Load4(const float* p) {
    __m128 a, b, c, d;
    if (Channels == 4) {
        a = _mm_loadu_ps(p);
        b = _mm_loadu_ps(p + 4);
        c = _mm_loadu_ps(p + 8);
        d = _mm_loadu_ps(p + 12);
    } else {
        a = _mm_loadu_ps(p);
        b = _mm_loadu_ps(p + 3);
        c = _mm_loadu_ps(p + 6);
        d = _mm_castsi128_ps(_mm_srli_si128(_mm_castps_si128(_mm_loadu_ps(p + 8)), 4));
    }
    _MM_TRANSPOSE4_PS(a, b, c, d);
    return Rgb4{a, b, c};
}

inline __m128 Weighted(const Rgb4& c, const FloatWeights& k) {
    const __m128 rg = _mm_add_ps(_mm_mul_ps(c.r, _mm_set1_ps(k.w[0])), _mm_mul_ps(c.g, _mm_set1_ps(k.w[1])));
    return _mm_add_ps(rg, _mm_mul_ps(c.b, _mm_set1_ps(k.w[2])));
}

// The low 16 bits of four 32-bit lanes, stored as four 16-bit samples.
inline void StoreLow16(void* d, __m128i v) {
    const __m128i low = _mm_srai_epi32(_mm_slli_epi32(v, 16), 16);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(d), _mm_packs_epi32(low, low));
}

template <int Channels>
inline void Step4(const uint16_t* s, uint16_t* d, const FloatWeights& k) {
    StoreLow16(d, _mm_cvttps_epi32(Weighted(Load4<Channels>(s, 0), k)));
}
template <int Channels>
inline void Step4(const int16_t* s, int16_t* d, const FloatWeights& k) {
    const __m128i raised = _mm_cvttps_epi32(Weighted(Load4<Channels>(s, static_cast<int16_t>(0x8000)), k));
    StoreLow16(d, _mm_sub_epi32(raised, _mm_set1_epi32(kSignedBias)));
}
template <int Channels>
inline void Step4(const float* s, float* d, const FloatWeights& k) {
    _mm_storeu_ps(d, Weighted(Load4<Channels>(s), k));
}

// R, G, B of eight 8-bit pixels, one 16-bit lane each.
struct Rgb8 {
    __m128i r, g, b;
};

template <int Channels>
inline Rgb8 Load8(const uint8_t* p) {
    if (Channels == 4) {
        const __m128i q0 = sse2::Load16(p), q1 = sse2::Load16(p + 16);
        const __m128i m = _mm_set1_epi32(0xFF);
        auto channel = [&](int shift) {
            const __m128i c0 = _mm_and_si128(_mm_srli_epi32(q0, shift), m);
            const __m128i c1 = _mm_and_si128(_mm_srli_epi32(q1, shift), m);
            return _mm_packs_epi32(c0, c1);
        };
        return Rgb8{channel(0), channel(8), channel(16)};
    }
    __m128i a = sse2::Load16(p), b = sse2::Load8(p + 16), c = _mm_setzero_si128();
    sse2::Deinterleave(a, b, c);
    const sse2::Channels w = sse2::WidenLow(a, b, c);
    return Rgb8{w.r, w.g, w.b};
}

inline __m128i LaneProducts(__m128i c, int16_t w) {
    return _mm_mulhi_epi16(_mm_slli_epi16(c, kLaneSampleShift), _mm_set1_epi16(w));
}

template <int Channels>
inline void Step8(const uint8_t* s, uint8_t* d, const LaneWeights& k) {
    const Rgb8 c = Load8<Channels>(s);
    __m128i t = _mm_add_epi16(_mm_add_epi16(LaneProducts(c.r, k.w[0]), LaneProducts(c.g, k.w[1])),
                              LaneProducts(c.b, k.w[2]));
    t = _mm_add_epi16(t, _mm_set1_epi16(kLaneLossMakeUp));
    const __m128i bytes = _mm_and_si128(_mm_srli_epi16(t, kLaneResultShift), _mm_set1_epi16(0xFF));
    sse2::Store8(d, _mm_packus_epi16(bytes, bytes));
}

}  // namespace sse2_lanes
#endif

// 16-bit and float depths in single precision.  SingleFormula is the
// matching one-pixel form (Single16u, Single16s, Single32f).
template <class SingleFormula, int Channels, typename Sample>
void SingleLanesRow(const Sample* src, Sample* dst, int32_t width, const FloatWeights& k) {
    int32_t x = 0;
#ifdef PIXMOOR_HAVE_SSE2
    for (; x < (width & ~3); x += 4) sse2_lanes::Step4<Channels>(src + Channels * static_cast<intptr_t>(x), dst + x, k);
#endif
    ScalarPixels<SingleFormula, Channels>(src, dst, x, width, k);
}

template <class SingleFormula, typename Sample>
constexpr GrayDepthRows<Sample> SingleLanesDepthRows() {
    return GrayDepthRows<Sample>{&SingleLanesRow<SingleFormula, 3, Sample>,
                                 &SingleLanesRow<SingleFormula, 4, Sample>};
}

// 8-bit depth on 16-bit lanes, eight pixels a step.
template <int Channels>
void Lanes8uRow(const uint8_t* src, uint8_t* dst, int32_t width, const IntWeights& weights) {
    const LaneWeights k = ToLaneWeights(weights);
    int32_t x = 0;
#ifdef PIXMOOR_HAVE_SSE2
    for (; x < (width & ~7); x += 8) sse2_lanes::Step8<Channels>(src + Channels * static_cast<intptr_t>(x), dst + x, k);
#endif
    ScalarPixels<Lanes8u, Channels>(src, dst, x, width, k);
}

}  // namespace pixmoor::colour::gray

#endif

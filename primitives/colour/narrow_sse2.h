// Building blocks of the vector tiers' 4:2:0 row kernels, in 128-bit SSE2
// registers.  w7 uses whole registers (16 pixels of a line a step); a6, a
// 64-bit vector tier, runs the same arithmetic in the low halves (8 pixels a
// step).  The arithmetic is the narrow one of narrow_arith.h, lane for lane.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_NARROW_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_NARROW_SSE2_H

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/narrow_arith.h"

namespace pixmoor::colour::sse2 {

inline __m128i Load16(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i Load8(const uint8_t* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }
inline __m128i Load4(const uint8_t* p) {
    int32_t w;
    std::memcpy(&w, p, 4);
    return _mm_cvtsi32_si128(w);
}
inline void Store16(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline void Store8(uint8_t* p, __m128i v) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }
inline void Store4(uint8_t* p, __m128i v) {
    const int32_t w = _mm_cvtsi128_si32(v);
    std::memcpy(p, &w, 4);
}

// One round of the three-way byte transpose: interleaves the halves so that
// four rounds take 48 bytes R G B R G B ... to 16 R, 16 G, 16 B.
inline void DeinterleaveRound(__m128i& a, __m128i& b, __m128i& c) {
    const __m128i x0 = _mm_unpacklo_epi8(a, _mm_unpackhi_epi64(b, b));
    const __m128i x1 = _mm_unpacklo_epi8(_mm_unpackhi_epi64(a, a), c);
    const __m128i x2 = _mm_unpacklo_epi8(b, _mm_unpackhi_epi64(c, c));
    a = x0;
    b = x1;
    c = x2;
}

// The inverse round: splits even and odd bytes back.
inline void InterleaveRound(__m128i& a, __m128i& b, __m128i& c) {
    const __m128i low = _mm_set1_epi16(0xFF);
    const __m128i x0 = _mm_packus_epi16(_mm_and_si128(a, low), _mm_and_si128(b, low));
    const __m128i x1 = _mm_packus_epi16(_mm_and_si128(c, low), _mm_srli_epi16(a, 8));
    const __m128i x2 = _mm_packus_epi16(_mm_srli_epi16(b, 8), _mm_srli_epi16(c, 8));
    a = x0;
    b = x1;
    c = x2;
}

// 48 bytes of packed RGB in a, b, c become R, G, B of 16 pixels.  Output
// byte i of each channel depends only on input bytes 3i to 3i+2, so a
// partly loaded input gives its leading pixels right.
inline void Deinterleave(__m128i& a, __m128i& b, __m128i& c) {
    for (int round = 0; round < 4; ++round) DeinterleaveRound(a, b, c);
}
inline void Interleave(__m128i& r, __m128i& g, __m128i& b) {
    for (int round = 0; round < 4; ++round) InterleaveRound(r, g, b);
}

// Eight pixels, one channel a 16-bit lane.
struct Channels {
    __m128i r, g, b;
};

inline Channels WidenLow(__m128i r, __m128i g, __m128i b) {
    const __m128i z = _mm_setzero_si128();
    return Channels{_mm_unpacklo_epi8(r, z), _mm_unpacklo_epi8(g, z), _mm_unpacklo_epi8(b, z)};
}
inline Channels WidenHigh(__m128i r, __m128i g, __m128i b) {
    const __m128i z = _mm_setzero_si128();
    return Channels{_mm_unpackhi_epi8(r, z), _mm_unpackhi_epi8(g, z), _mm_unpackhi_epi8(b, z)};
}

// Forward luma weights as the multiply-add pairs use them: (R, G) lanes
// against {9798, 19235}, (B, 0) lanes against {3736, 0}.
inline __m128i WeightsRG() { return _mm_set1_epi32((narrow::kWeightG << 16) | narrow::kWeightR); }
inline __m128i WeightsB0() { return _mm_set1_epi32(narrow::kWeightB); }

// D = (9798 R + 19235 G + 3736 B) >> 14, products and sum in 32 bits.
inline __m128i LumaPacked(const Channels& c) {
    const __m128i z = _mm_setzero_si128();
    const __m128i lo = _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(c.r, c.g), WeightsRG()),
                                     _mm_madd_epi16(_mm_unpacklo_epi16(c.b, z), WeightsB0()));
    const __m128i hi = _mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(c.r, c.g), WeightsRG()),
                                     _mm_madd_epi16(_mm_unpackhi_epi16(c.b, z), WeightsB0()));
    return _mm_packs_epi32(_mm_srai_epi32(lo, 14), _mm_srai_epi32(hi, 14));
}

// D of plane samples: each sample widened to (c * 257) >> 6, each product
// the high half of its own 16 by 16 product.
inline __m128i WidenSample(__m128i c) { return _mm_srli_epi16(_mm_or_si128(c, _mm_slli_epi16(c, 8)), 6); }
inline __m128i LumaPlanes(const Channels& c) {
    return _mm_add_epi16(
        _mm_add_epi16(_mm_mulhi_epi16(WidenSample(c.r), _mm_set1_epi16(narrow::kWeightR)),
                      _mm_mulhi_epi16(WidenSample(c.g), _mm_set1_epi16(narrow::kWeightG))),
        _mm_mulhi_epi16(WidenSample(c.b), _mm_set1_epi16(narrow::kWeightB)));
}

struct LumaOfPacked {
    static __m128i D(const Channels& c) { return LumaPacked(c); }
};
struct LumaOfPlanes {
    static __m128i D(const Channels& c) { return LumaPlanes(c); }
};

// Sums over the 2 by 2 blocks of eight 16-bit lanes of two lines: four
// 32-bit sums.  The sums fit in 16 bits before the pair step.
inline __m128i BlockSums(__m128i top, __m128i bottom) {
    return _mm_madd_epi16(_mm_add_epi16(top, bottom), _mm_set1_epi16(1));
}

// Eight pixels of two lines: (PB - A, PR - A) of their four blocks, 32-bit.
struct ChromaDiffs {
    __m128i b, r;
};
inline ChromaDiffs Diffs(__m128i dTop, __m128i dBottom, const Channels& top,
                         const Channels& bottom) {
    const __m128i a = _mm_srai_epi32(BlockSums(dTop, dBottom), 2);
    const __m128i pb = _mm_srai_epi32(BlockSums(top.b, bottom.b), 1);
    const __m128i pr = _mm_srai_epi32(BlockSums(top.r, bottom.r), 1);
    return ChromaDiffs{_mm_sub_epi32(pb, a), _mm_sub_epi32(pr, a)};
}

// mulhi(diff, factor) + 128 on 16-bit lanes; factors in lane order.
inline __m128i ScaleChroma(__m128i diffs, __m128i factors) {
    return _mm_add_epi16(_mm_mulhi_epi16(diffs, factors), _mm_set1_epi16(128));
}

// Y bytes of 16-bit D lanes: D >> 1, saturated.
inline __m128i LumaBytes(__m128i dLow, __m128i dHigh) {
    return _mm_packus_epi16(_mm_srai_epi16(dLow, 1), _mm_srai_epi16(dHigh, 1));
}

// Inverse: u' = 16 (U - 128), v' likewise, for 16-bit lanes of U or V.
inline __m128i Centred(__m128i samples16) {
    return _mm_slli_epi16(_mm_sub_epi16(samples16, _mm_set1_epi16(128)), 4);
}

// Inverse factors per lane, in the order the kernel multiplies them.
struct InverseLanes {
    __m128i rv, ru, gu, gv, bu;
};

inline InverseLanes Uniform(const narrow::InverseFactors& f) {
    return InverseLanes{_mm_set1_epi16(static_cast<int16_t>(f.rv)), _mm_set1_epi16(static_cast<int16_t>(f.ru)),
                        _mm_set1_epi16(static_cast<int16_t>(f.gu)), _mm_set1_epi16(static_cast<int16_t>(f.gv)),
                        _mm_set1_epi16(static_cast<int16_t>(f.bu))};
}

// The chroma terms added to 2Y, each product truncated by itself.
struct InverseTerms {
    __m128i r, g, b;
};
inline InverseTerms Terms(__m128i du, __m128i dv, const InverseLanes& f) {
    return InverseTerms{_mm_add_epi16(_mm_mulhi_epi16(dv, f.rv), _mm_mulhi_epi16(du, f.ru)),
                        _mm_add_epi16(_mm_mulhi_epi16(du, f.gu), _mm_mulhi_epi16(dv, f.gv)),
                        _mm_mulhi_epi16(du, f.bu)};
}
inline InverseTerms DuplicateLow(const InverseTerms& t) {
    return InverseTerms{_mm_unpacklo_epi16(t.r, t.r), _mm_unpacklo_epi16(t.g, t.g),
                        _mm_unpacklo_epi16(t.b, t.b)};
}
inline InverseTerms DuplicateHigh(const InverseTerms& t) {
    return InverseTerms{_mm_unpackhi_epi16(t.r, t.r), _mm_unpackhi_epi16(t.g, t.g),
                        _mm_unpackhi_epi16(t.b, t.b)};
}

// One channel of eight pixels: (2Y + term) >> 1 on 16-bit lanes.
inline __m128i Channel(__m128i y16, __m128i term) {
    return _mm_srai_epi16(_mm_add_epi16(_mm_add_epi16(y16, y16), term), 1);
}

// R, G, B bytes of up to 16 pixels from their 16-bit luma halves.
struct RgbBytes {
    __m128i r, g, b;
};
inline RgbBytes ToRgbBytes(__m128i yLow, __m128i yHigh, const InverseTerms& low,
                           const InverseTerms& high) {
    return RgbBytes{_mm_packus_epi16(Channel(yLow, low.r), Channel(yHigh, high.r)),
                    _mm_packus_epi16(Channel(yLow, low.g), Channel(yHigh, high.g)),
                    _mm_packus_epi16(Channel(yLow, low.b), Channel(yHigh, high.b))};
}

}  // namespace pixmoor::colour::sse2

#endif

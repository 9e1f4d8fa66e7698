// Vector row kernel of ImgRGBToYUV422C3C2 for the tiers a6 and w7: eight
// pixels (four pairs) a step in 128-bit SSE2 registers, with the integer
// arithmetic of analog422::Row exactly, so every tier writes the same
// bytes.  The pixels after the last whole step, and the odd last pixel,
// go through analog422::Row.  Where the processor has no SSE2 that kernel
// does the whole line.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_SSE2_H

#include <cstdint>

#include "primitives/colour/analog422_row.h"
#include "primitives/colour/gray_sse2.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour::analog422 {

#ifdef PIXMOOR_HAVE_SSE2
namespace sse2_pairs {

// A = 19595 R + 38470 G + 7471 B of four pixels in 32-bit lanes, from
// their 16-bit lanes interleaved as (R, G) and (B, 0).  38470 does not fit
// a signed 16-bit factor, so G is weighed by 38470 - 65536 and G << 16 is
// added back.
inline __m128i Luma4(__m128i rg, __m128i b0, __m128i g32) {
    const __m128i kRG = _mm_set1_epi32(static_cast<int32_t>((static_cast<uint32_t>(kLumaG) << 16) | kLumaR));
    const __m128i kB = _mm_set1_epi32(kLumaB);
    return _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(rg, kRG), _mm_madd_epi16(b0, kB)), _mm_slli_epi32(g32, 16));
}

// Lanes 0 and 2 of two registers, in order: the pair sums of A + (A >> 32).
inline __m128i PairSums(__m128i lo, __m128i hi) {
    const __m128i sLo = _mm_shuffle_epi32(_mm_add_epi32(lo, _mm_srli_epi64(lo, 32)), _MM_SHUFFLE(3, 1, 2, 0));
    const __m128i sHi = _mm_shuffle_epi32(_mm_add_epi32(hi, _mm_srli_epi64(hi, 32)), _MM_SHUFFLE(3, 1, 2, 0));
    return _mm_unpacklo_epi64(sLo, sHi);
}

// (sum << 16 - s + 65535) >> 16 for the four pairs.
inline __m128i Difference(__m128i channelSums, __m128i s) {
    return _mm_srai_epi32(_mm_add_epi32(_mm_sub_epi32(_mm_slli_epi32(channelSums, 16), s), _mm_set1_epi32(65535)), 16);
}

inline void Step8(const uint8_t* src, uint8_t* dst) {
    const gray::sse2_lanes::Rgb8 c = gray::sse2_lanes::Load8<3>(src);
    const __m128i z = _mm_setzero_si128();
    const __m128i aLo = Luma4(_mm_unpacklo_epi16(c.r, c.g), _mm_unpacklo_epi16(c.b, z), _mm_unpacklo_epi16(c.g, z));
    const __m128i aHi = Luma4(_mm_unpackhi_epi16(c.r, c.g), _mm_unpackhi_epi16(c.b, z), _mm_unpackhi_epi16(c.g, z));
    const __m128i s = PairSums(aLo, aHi);
    const __m128i ones = _mm_set1_epi16(1);
    const __m128i db = Difference(_mm_madd_epi16(c.b, ones), s);
    const __m128i dr = Difference(_mm_madd_epi16(c.r, ones), s);
    // The differences fit 16 bits (|d| <= 452): d * 32244 is one
    // multiply-add lane; d * 57475 is (d << 16) - d * 8061.
    const __m128i u = _mm_add_epi32(_mm_srai_epi32(_mm_madd_epi16(db, _mm_set1_epi32(kFactorU)), 17), _mm_set1_epi32(128));
    const __m128i vIndex = _mm_srai_epi32(
        _mm_sub_epi32(_mm_slli_epi32(dr, 16), _mm_madd_epi16(dr, _mm_set1_epi32(65536 - kFactorV))), 17);
    const __m128i v = _mm_add_epi32(vIndex, _mm_set1_epi32(128));
    // U V U V ... as 16-bit lanes.  V is clamped to a byte; U stays within
    // 17..239 by its formula, so the same clamp leaves it as it is.
    __m128i uv = _mm_packs_epi32(_mm_unpacklo_epi32(u, v), _mm_unpackhi_epi32(u, v));
    uv = _mm_min_epi16(_mm_max_epi16(uv, z), _mm_set1_epi16(255));
    const __m128i y = _mm_packs_epi32(_mm_srli_epi32(aLo, 16), _mm_srli_epi32(aHi, 16));
    sse2::Store16(dst, _mm_packus_epi16(_mm_unpacklo_epi16(y, uv), _mm_unpackhi_epi16(y, uv)));
}

}  // namespace sse2_pairs
#endif

inline void VectorRow(const uint8_t* src, uint8_t* dst, int32_t width) {
    int32_t x = 0;
#ifdef PIXMOOR_HAVE_SSE2
    for (; x < (width & ~7); x += 8) sse2_pairs::Step8(src + 3 * static_cast<intptr_t>(x), dst + 2 * static_cast<intptr_t>(x));
#endif
    Row(src + 3 * static_cast<intptr_t>(x), dst + 2 * static_cast<intptr_t>(x), width - x);
}

}  // namespace pixmoor::colour::analog422

#endif

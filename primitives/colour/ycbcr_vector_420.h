// The 4:2:0 row kernels of the vector tiers: the 12-bit lane forward and
// the five-factor lane inverse, a block of pairs a step in SSE2 registers,
// then one pair at a time in plain lane code with the same results.  Both
// tiers take 4 pairs of each line a step forward; inverse, a6 takes 2 pairs
// (four lumas of each line) and w7 8.  a6 prefetches 32 bytes ahead of its
// sources.  Without SSE2 the plain lane code does every pair.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_VECTOR_420_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_VECTOR_420_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_lane_arith.h"
#include "primitives/colour/ycbcr_row_kernels.h"
#ifdef PIXMOOR_HAVE_SSE2
#include <xmmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/ycbcr_sse2.h"
#endif

namespace pixmoor::colour::ycc_vector {

#ifdef PIXMOOR_HAVE_SSE2
inline void PrefetchAhead(const uint8_t* p) {
    _mm_prefetch(reinterpret_cast<const char*>(p + 32), _MM_HINT_NTA);
}

// Eight pixels of packed RGB from p (24 bytes).
inline sse2::Channels LoadEight(const uint8_t* p) {
    __m128i a = sse2::Load16(p), b = sse2::Load8(p + 16), c = _mm_setzero_si128();
    sse2::Deinterleave(a, b, c);
    return sse2::WidenLow(a, b, c);
}
#endif

template <bool Prefetch>
void Forward420(PackedRgbIn::Line top, PackedRgbIn::Line bottom, const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    int32_t j = 0;
#ifdef PIXMOOR_HAVE_SSE2
    for (const int32_t blocks = pairs & ~3; j < blocks; j += 4) {
        const intptr_t x = 2 * static_cast<intptr_t>(j);
        const uint8_t* t = top + 3 * x;
        const uint8_t* b = bottom + 3 * x;
        if (Prefetch) {
            PrefetchAhead(t);
            PrefetchAhead(b);
        }
        ycc_sse2::Forward420Eight(LoadEight(t), LoadEight(b), out.y0 + x, out.y1 + x, out.u + j, out.v + j);
    }
#endif
    ycc::Forward420From<lanes::Arith420>(top, bottom, out, j, pairs);
}

#ifdef PIXMOOR_HAVE_SSE2
// Two pairs of chroma samples into the low lanes.
inline __m128i LoadTwo(const uint8_t* p) { return _mm_cvtsi32_si128(p[0] | (p[1] << 8)); }
#endif

template <int PairsPerStep>
void Inverse420(const Yuv420Lines<const uint8_t>& in, PackedRgbOut::Line top, PackedRgbOut::Line bottom,
                int32_t pairs) {
    int32_t j = 0;
#ifdef PIXMOOR_HAVE_SSE2
    const __m128i z = _mm_setzero_si128();
    for (const int32_t blocks = pairs & ~(PairsPerStep - 1); j < blocks; j += PairsPerStep) {
        const intptr_t x = 2 * static_cast<intptr_t>(j);
        if (PairsPerStep == 2) {
            PrefetchAhead(in.y0 + x);
            PrefetchAhead(in.y1 + x);
            PrefetchAhead(in.u + j);
            PrefetchAhead(in.v + j);
            const ycc_sse2::Terms420 t = ycc_sse2::DuplicateLow(
                ycc_sse2::Terms(_mm_unpacklo_epi8(LoadTwo(in.u + j), z), _mm_unpacklo_epi8(LoadTwo(in.v + j), z)));
            for (int line = 0; line < 2; ++line) {
                const sse2::Channels c =
                    ycc_sse2::Inverse420(_mm_unpacklo_epi8(sse2::Load4((line ? in.y1 : in.y0) + x), z), t);
                __m128i r = _mm_packus_epi16(c.r, c.r), g = _mm_packus_epi16(c.g, c.g), b = _mm_packus_epi16(c.b, c.b);
                sse2::Interleave(r, g, b);
                uint8_t* p = (line ? bottom : top) + 3 * x;
                sse2::Store8(p, r);
                sse2::Store4(p + 8, _mm_unpackhi_epi64(r, r));
            }
        } else {
            const ycc_sse2::Terms420 t = ycc_sse2::Terms(_mm_unpacklo_epi8(sse2::Load8(in.u + j), z),
                                                         _mm_unpacklo_epi8(sse2::Load8(in.v + j), z));
            const ycc_sse2::Terms420 low = ycc_sse2::DuplicateLow(t), high = ycc_sse2::DuplicateHigh(t);
            for (int line = 0; line < 2; ++line) {
                const __m128i y = sse2::Load16((line ? in.y1 : in.y0) + x);
                uint8_t* p = (line ? bottom : top) + 3 * x;
                ycc_sse2::StoreInterleaved8(p, ycc_sse2::Inverse420(_mm_unpacklo_epi8(y, z), low));
                ycc_sse2::StoreInterleaved8(p + 24, ycc_sse2::Inverse420(_mm_unpackhi_epi8(y, z), high));
            }
        }
    }
#endif
    ycc::Inverse420From<lanes::Arith420>(in, top, bottom, j, pairs);
}

}  // namespace pixmoor::colour::ycc_vector

#endif

// What the a6 colour kernels of every group share: the prefetch 32 bytes
// ahead on a source line, the non-temporal 8-byte store to packed RGB, and
// the inverse factor lanes of the packed RGB kernels, odd row included.
// The lane table serves the portable forms too; the rest exists only with
// SSE2.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_A6_SHARED_H
#define PIXMOOR_PRIMITIVES_COLOUR_A6_SHARED_H

#include <cstdint>

#include "primitives/colour/narrow_arith.h"
#include "primitives/vector_build.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>
#include <xmmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#endif

namespace pixmoor::colour::a6 {

#ifdef PIXMOOR_HAVE_SSE2
inline void Prefetch(const uint8_t* p) { _mm_prefetch(reinterpret_cast<const char*>(p + 32), _MM_HINT_NTA); }

// Non-temporal store of the low 8 bytes of v.
inline void Stream8(uint8_t* p, __m128i v) {
#if defined(__x86_64__) || defined(_M_X64)
    _mm_stream_si64(reinterpret_cast<long long*>(p), _mm_cvtsi128_si64(v));
#else
    _mm_stream_si32(reinterpret_cast<int*>(p), _mm_cvtsi128_si32(v));
    _mm_stream_si32(reinterpret_cast<int*>(p + 4), _mm_cvtsi128_si32(_mm_srli_epi64(v, 32)));
#endif
}
#endif

// Inverse factor lanes of a main-loop step of the packed RGB kernels, one
// lane per pixel 0 to 7 of a line, rows in the order R from v', R from u',
// G from u', G from v', B from u'.  The odd row stands at pixels 3 and 7.
alignas(16) inline const int16_t kPackedInverseLanes[5][8] = {
    {9339, 9339, 9339, 9339, 9339, 9339, 9339, 9339},
    {0, 0, 0, 4, 0, 0, 0, 4},
    {-3228, -3228, -3228, -3232, -3228, -3228, -3228, -3232},
    {-4760, -4760, -4760, -4760, -4760, -4760, -4760, -4760},
    {16646, 16646, 16646, 16646, 16646, 16646, 16646, 16646},
};

// The factors of one lane (one pixel position) of a table of that form.
inline narrow::InverseFactors LaneFactors(const int16_t (&t)[5][8], int lane) {
    return narrow::InverseFactors{t[0][lane], t[1][lane], t[2][lane], t[3][lane], t[4][lane]};
}

// A line pair's inverse in plain code with lanes: the pixels of pairs
// [0, mainPairs) on the lane of their position in a group of eight, as in
// a main loop of such a table, the rest with the factors `tail`.
template <class Out>
void FromYuv420LanePairs(const Yuv420Lines<const uint8_t>& in, typename Out::Line top, typename Out::Line bottom,
                         int32_t mainPairs, int32_t pairs, const int16_t (&lanes)[5][8],
                         const narrow::InverseFactors& tail) {
    for (int32_t x = 0; x < 2 * mainPairs; ++x) {
        const narrow::InverseFactors f = LaneFactors(lanes, x & 7);
        const int32_t u = in.u[x >> 1];
        const int32_t v = in.v[x >> 1];
        Out::Store(top, x, narrow::ToRgb(in.y0[x], u, v, f));
        Out::Store(bottom, x, narrow::ToRgb(in.y1[x], u, v, f));
    }
    narrow::FromYuv420Pairs<Out>(in, top, bottom, mainPairs, pairs, tail);
}

#ifdef PIXMOOR_HAVE_SSE2
// A table of that form in registers.
inline sse2::InverseLanes LoadInverseLanes(const int16_t (&t)[5][8]) {
    auto row = [&](int i) { return _mm_load_si128(reinterpret_cast<const __m128i*>(t[i])); };
    return sse2::InverseLanes{row(0), row(1), row(2), row(3), row(4)};
}
#endif

}  // namespace pixmoor::colour::a6

#endif

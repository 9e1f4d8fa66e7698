// Packed-lane sums of tier w7: doubles in four 2-lane accumulators and exact
// 16-bit sums with packed adds.  Without SSE2 the double lanes are eight
// doubles in plain code, each added in the same order, and the 16-bit sums,
// exact either way, are the plain tier's.
#include <algorithm>

#include "primitives/signal/element_access.h"
#include "primitives/signal/sum_kernels.h"
#include "primitives/vector_build.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>
#endif

namespace pixmoor {
namespace signal {

double SumPacked64f(const double* src, int32_t n) {
    // Lanes a1..a8 are the eight accumulators of the rotation; one element
    // taken to reach a 16-byte boundary starts a1.
    double acc[8] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    int32_t i = 0;
    if (IsAligned(src, 8) && !IsAligned(src, 16)) acc[0] += LoadAt<double>(src, i++);
#ifdef PIXMOOR_HAVE_SSE2
    const bool aligned = IsAligned(src + i, 16);
    __m128d r0 = _mm_loadu_pd(acc), r1 = _mm_loadu_pd(acc + 2);
    __m128d r2 = _mm_loadu_pd(acc + 4), r3 = _mm_loadu_pd(acc + 6);
    if (aligned) {
        for (; n - i >= 8; i += 8) {
            r0 = _mm_add_pd(r0, _mm_load_pd(src + i));
            r1 = _mm_add_pd(r1, _mm_load_pd(src + i + 2));
            r2 = _mm_add_pd(r2, _mm_load_pd(src + i + 4));
            r3 = _mm_add_pd(r3, _mm_load_pd(src + i + 6));
        }
    } else {
        for (; n - i >= 8; i += 8) {
            r0 = _mm_add_pd(r0, _mm_loadu_pd(src + i));
            r1 = _mm_add_pd(r1, _mm_loadu_pd(src + i + 2));
            r2 = _mm_add_pd(r2, _mm_loadu_pd(src + i + 4));
            r3 = _mm_add_pd(r3, _mm_loadu_pd(src + i + 6));
        }
    }
    _mm_storeu_pd(acc, r0);
    _mm_storeu_pd(acc + 2, r1);
    _mm_storeu_pd(acc + 4, r2);
    _mm_storeu_pd(acc + 6, r3);
#else
    for (; n - i >= 8; i += 8)
        for (int32_t k = 0; k < 8; ++k) acc[k] += LoadAt<double>(src, i + k);
#endif
    for (; i < n; ++i) acc[7] += LoadAt<double>(src, i);
    return JoinEight(acc);
}

#ifdef PIXMOOR_HAVE_SSE2
namespace {
constexpr int32_t kExactBlock = 0x10000;

inline int64_t LaneTotal(__m128i v) {
    alignas(16) int32_t lanes[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(lanes), v);
    return static_cast<int64_t>(lanes[0]) + lanes[1] + lanes[2] + lanes[3];
}

// One block of `count` elements (of `width` 16-bit values) from `p`: scalar
// until a 16-byte boundary, 32 values a round, scalar tail.
void SumBlock(const int16_t* p, int32_t count, int32_t width, int64_t totals[2]) {
    const bool elementAligned = IsAligned(p, 2 * static_cast<uintptr_t>(width));
    int32_t i = 0;
    int32_t head[2] = {0, 0};
    if (elementAligned)
        for (; i < count && !IsAligned(p + ElementOffset(i, width), 16); ++i)
            for (int32_t k = 0; k < width; ++k) head[k] += LoadAt<int16_t>(p, ElementOffset(i, width) + k);
    const bool aligned = elementAligned;
    const int32_t perRound = 32 / width;
    const __m128i ones = _mm_set1_epi16(1);
    __m128i accA = _mm_setzero_si128();
    __m128i accB = _mm_setzero_si128();
    for (; count - i >= perRound; i += perRound) {
        const __m128i* q = reinterpret_cast<const __m128i*>(p + ElementOffset(i, width));
        for (int k = 0; k < 4; ++k) {
            const __m128i v = aligned ? _mm_load_si128(q + k) : _mm_loadu_si128(q + k);
            if (width == 1) {
                accA = _mm_add_epi32(accA, _mm_madd_epi16(v, ones));
            } else {
                // Each 32-bit lane is one complex element: real part low.
                accA = _mm_add_epi32(accA, _mm_srai_epi32(_mm_slli_epi32(v, 16), 16));
                accB = _mm_add_epi32(accB, _mm_srai_epi32(v, 16));
            }
        }
    }
    for (; i < count; ++i)
        for (int32_t k = 0; k < width; ++k) head[k] += LoadAt<int16_t>(p, ElementOffset(i, width) + k);
    totals[0] += LaneTotal(accA) + head[0];
    totals[1] += LaneTotal(accB) + head[1];
}
}  // namespace

void SumExact16sPacked(const int16_t* src, int32_t n, bool complex, int64_t totals[2]) {
    const int32_t width = complex ? 2 : 1;
    totals[0] = 0;
    totals[1] = 0;
    for (int32_t i = 0; i < n; i += kExactBlock)
        SumBlock(src + ElementOffset(i, width), std::min(kExactBlock, n - i), width, totals);
}
#else
void SumExact16sPacked(const int16_t* src, int32_t n, bool complex, int64_t totals[2]) {
    totals[0] = SumExact16s(src, n, complex ? 2 : 1);
    totals[1] = complex ? SumExact16s(src + 1, n, 2) : 0;
}
#endif

}  // namespace signal
}  // namespace pixmoor

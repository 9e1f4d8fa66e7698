// The px and m6 forward 4:2:0 row kernel from packed RGB with AVX2: 8 pixel
// pairs (16 pixels of each line) a step, the same integer arithmetic as the
// plain kernel and so the same bytes: luma in 32-bit lanes, chroma in
// 16-bit lanes.
//
// A pixel's luma F = 19595 R + 38470 G + 7471 B is two multiply-adds on
// 16-bit halves: (R, B) against (19595, 7471) and (G, G) against
// (19235, 19235).  The 2 by 2 block sums come from a horizontal add of the
// two lines' sums, whose lane order one permute puts right.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/wide_arith.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

static_assert(wide::kWeightG % 2 == 0, "G weight splits into two equal halves");

PIXMOOR_TARGET_AVX2 __m256i Luma(const avx2::RbGg& p) {
    const __m256i wRB = _mm256_set1_epi32((wide::kWeightB << 16) | wide::kWeightR);
    const __m256i wGG = _mm256_set1_epi32(((wide::kWeightG / 2) << 16) | (wide::kWeightG / 2));
    return _mm256_add_epi32(_mm256_madd_epi16(p.rb, wRB), _mm256_madd_epi16(p.gg, wGG));
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideToYuv420Avx2(const uint8_t* top, const uint8_t* bottom,
                                             const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    const int32_t whole = pairs & ~7;
    for (int32_t j = 0; j < whole; j += 8) {
        const intptr_t at = 6 * static_cast<intptr_t>(j);
        const avx2::TwoLines16 p = avx2::LoadTwoLines16(top + at, bottom + at);
        const __m256i ft0 = Luma(p.topEven), ft1 = Luma(p.topOdd);
        const __m256i fb0 = Luma(p.bottomEven), fb1 = Luma(p.bottomOdd);
        avx2::StoreShifted(out.y0 + 2 * j, ft0, ft1, 16);
        avx2::StoreShifted(out.y1 + 2 * j, fb0, fb1, 16);

        // T = ((channel sum << 16) - luma sum + bias) >> 16 as in
        // wide_terms_avx2.h, in 16-bit lanes: T' (R) low, T (B) high.
        const __m256i biasLessLuma = _mm256_sub_epi32(_mm256_set1_epi32(wide::kBlockBias), avx2::BlockSum(ft0, fb0, ft1, fb1));
        // R and B sums side by side: a block's R sum stays below 1024, so
        // it never carries into the B half of its 32-bit lane.
        const __m256i rb = avx2::BlockSum(p.topEven.rb, p.bottomEven.rb, p.topOdd.rb, p.bottomOdd.rb);
        const __m256i t = _mm256_add_epi16(rb, _mm256_shuffle_epi8(biasLessLuma, avx2::Mask(avx2::kHighHalfToBoth)));
        const __m256i high = _mm256_mulhi_epi16(t, _mm256_set1_epi32(avx2::kChromaRests));
        const __m256i scaled = _mm256_add_epi16(high, _mm256_and_si256(t, _mm256_set1_epi32(0xFFFF)));
        // V (clamped by the saturating pack) low, U high.
        const __m256i vu = _mm256_add_epi16(_mm256_srai_epi16(scaled, 2), _mm256_set1_epi16(128));
        avx2::StoreChroma(out.u + j, out.v + j, avx2::ChromaWordBytes(vu));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

// The px and m6 forward 4:2:0 row kernel from packed RGB with AVX2: 8 pixel
// pairs (16 pixels of each line) a step in 32-bit lanes, the same integer
// arithmetic as the plain kernel and so the same bytes.
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

namespace pixmoor::colour::fast {
namespace {

static_assert(wide::kWeightG % 2 == 0, "G weight splits into two equal halves");

PIXMOOR_TARGET_AVX2 __m256i Luma(const avx2::RbGg& p) {
    const __m256i wRB = _mm256_set1_epi32((wide::kWeightB << 16) | wide::kWeightR);
    const __m256i wGG = _mm256_set1_epi32(((wide::kWeightG / 2) << 16) | (wide::kWeightG / 2));
    return _mm256_add_epi32(_mm256_madd_epi16(p.rb, wRB), _mm256_madd_epi16(p.gg, wGG));
}

PIXMOOR_TARGET_AVX2 __m256i Difference(__m256i channelSum, __m256i lumaSum) {
    return _mm256_srai_epi32(
        _mm256_add_epi32(_mm256_sub_epi32(_mm256_slli_epi32(channelSum, 16), lumaSum),
                         _mm256_set1_epi32(wide::kBlockBias)),
        16);
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideToYuv420Avx2(const uint8_t* top, const uint8_t* bottom,
                                             const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    const __m256i low16 = _mm256_set1_epi32(0xFFFF);
    const __m256i c128 = _mm256_set1_epi32(128);
    const __m256i byteMask = _mm256_set1_epi32(0xFF);
    const int32_t whole = pairs & ~7;
    for (int32_t j = 0; j < whole; j += 8) {
        const intptr_t at = 6 * static_cast<intptr_t>(j);
        const avx2::TwoLines16 p = avx2::LoadTwoLines16(top + at, bottom + at);
        const __m256i ft0 = Luma(p.topEven), ft1 = Luma(p.topOdd);
        const __m256i fb0 = Luma(p.bottomEven), fb1 = Luma(p.bottomOdd);
        avx2::StoreShifted(out.y0 + 2 * j, ft0, ft1, 16);
        avx2::StoreShifted(out.y1 + 2 * j, fb0, fb1, 16);

        const __m256i luma = avx2::BlockSum(ft0, fb0, ft1, fb1);
        // R and B sums side by side: a block's R sum stays below 1024, so
        // it never carries into the B half of its 32-bit lane.
        const __m256i rb = avx2::BlockSum(p.topEven.rb, p.bottomEven.rb, p.topOdd.rb, p.bottomOdd.rb);
        const __m256i sumR = _mm256_and_si256(rb, low16);
        const __m256i sumB = _mm256_srli_epi32(rb, 16);
        // U is kept as the byte it is (no clamp), V is clamped.
        const __m256i u = _mm256_and_si256(
            _mm256_add_epi32(_mm256_srai_epi32(_mm256_mullo_epi32(Difference(sumB, luma),
                                                                  _mm256_set1_epi32(wide::kFactorU)),
                                               18),
                             c128),
            byteMask);
        const __m256i v = _mm256_add_epi32(
            _mm256_srai_epi32(_mm256_mullo_epi32(Difference(sumR, luma), _mm256_set1_epi32(wide::kFactorV)),
                              18),
            c128);
        avx2::StoreChroma(out.u + j, out.v + j, avx2::ChromaBytes(_mm256_packs_epi32(u, v)));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

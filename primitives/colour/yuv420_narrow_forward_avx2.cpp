// The a6 and w7 forward 4:2:0 row kernel from packed RGB with AVX2: the
// narrow arithmetic of narrow_arith.h, lane for lane as in the SSE2 forms,
// 8 pixel pairs (16 pixels of each line) a step.  Both tiers run the same
// forward arithmetic in their main loops and tails, so one form serves
// both.
//
// D = (9798 R + 19235 G + 3736 B) >> 14 comes from two multiply-adds in
// 32-bit lanes, (R, B) against (9798, 3736) and (G, G) against (19235, 0);
// Y = D >> 1 is the same sum shifted by 15.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/rgb24_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX2 __m256i WeightedSum(const avx2::RbGg& p) {
    const __m256i wRB = _mm256_set1_epi32((narrow::kWeightB << 16) | narrow::kWeightR);
    const __m256i wG0 = _mm256_set1_epi32(narrow::kWeightG);
    return _mm256_add_epi32(_mm256_madd_epi16(p.rb, wRB), _mm256_madd_epi16(p.gg, wG0));
}

// mulhi(difference, factor) + 128 in 16-bit lanes, 32-bit differences of
// U blocks 0-3, V 0-3 | U 4-7, V 4-7 in lane order.
PIXMOOR_TARGET_AVX2 __m256i Scaled(__m256i diffU, __m256i diffV) {
    const __m256i factors = _mm256_setr_epi16(
        narrow::kFactorU, narrow::kFactorU, narrow::kFactorU, narrow::kFactorU, narrow::kFactorV, narrow::kFactorV,
        narrow::kFactorV, narrow::kFactorV, narrow::kFactorU, narrow::kFactorU, narrow::kFactorU, narrow::kFactorU,
        narrow::kFactorV, narrow::kFactorV, narrow::kFactorV, narrow::kFactorV);
    return _mm256_add_epi16(_mm256_mulhi_epi16(_mm256_packs_epi32(diffU, diffV), factors), _mm256_set1_epi16(128));
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t NarrowToYuv420Avx2(const uint8_t* top, const uint8_t* bottom,
                                               const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    const __m256i low16 = _mm256_set1_epi32(0xFFFF);
    const int32_t whole = pairs & ~7;
    for (int32_t j = 0; j < whole; j += 8) {
        const intptr_t at = 6 * static_cast<intptr_t>(j);
        const avx2::TwoLines16 p = avx2::LoadTwoLines16(top + at, bottom + at);
        const __m256i st0 = WeightedSum(p.topEven), st1 = WeightedSum(p.topOdd);
        const __m256i sb0 = WeightedSum(p.bottomEven), sb1 = WeightedSum(p.bottomOdd);
        avx2::StoreShifted(out.y0 + 2 * j, st0, st1, 15);
        avx2::StoreShifted(out.y1 + 2 * j, sb0, sb1, 15);

        const __m256i mean = _mm256_srai_epi32(
            avx2::BlockSum(_mm256_srai_epi32(st0, 14), _mm256_srai_epi32(sb0, 14), _mm256_srai_epi32(st1, 14),
                           _mm256_srai_epi32(sb1, 14)),
            2);
        // R and B sums side by side: a block's R sum stays below 1024.
        const __m256i rb = avx2::BlockSum(p.topEven.rb, p.bottomEven.rb, p.topOdd.rb, p.bottomOdd.rb);
        const __m256i halfR = _mm256_srai_epi32(_mm256_and_si256(rb, low16), 1);
        const __m256i halfB = _mm256_srli_epi32(rb, 17);
        const __m256i uv = Scaled(_mm256_sub_epi32(halfB, mean), _mm256_sub_epi32(halfR, mean));
        avx2::StoreChroma(out.u + j, out.v + j, avx2::ChromaBytes(uv));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

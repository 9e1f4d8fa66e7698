// The a6 and w7 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX2, 16 pixels a step: the narrow arithmetic of their SSE2 main loop
// (yuv422_sse2.h).  Each channel is (2 Y + term) >> 1, that is
// Y + (term >> 1) since 2 Y is even; the terms are reckoned once a pair.
// Both tiers use the same factors in their main loops; their lone last
// pixels stay with their own kernels.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/packed422_avx2.h"

namespace pixmoor::colour::fast {
namespace {

// B's and R's terms halved, (mulhi(16 d, f) >> 1), are mulhi(8 d, f):
// both are 8 d f >> 16.  G's two terms are each mulhi(16 d, f); their sum
// halved lands in the high half by a multiply-add and a shift by 15.
PIXMOOR_TARGET_AVX2 avx2::PairTerms Terms(__m256i bytes) {
    const __m256i c8 = avx2::CentredPairChroma(bytes, 8);  // 8 (U - 128) low, 8 (V - 128) high
    const __m256i g2 = _mm256_mulhi_epi16(_mm256_add_epi16(c8, c8), _mm256_set1_epi32(avx2::kNarrowGreen));
    return avx2::PairTerms{_mm256_mulhi_epi16(c8, _mm256_set1_epi32(avx2::kNarrowBlueRed)),
                           _mm256_slli_epi32(_mm256_madd_epi16(g2, _mm256_set1_epi16(1)), 15)};
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t NarrowPacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx2::Packed422Steps<&Terms>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

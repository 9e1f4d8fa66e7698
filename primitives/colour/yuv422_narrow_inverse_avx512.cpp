// The a6 and w7 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX-512, 32 pixels a step.  Each channel is (2 Y + term) >> 1, that is
// Y + (term >> 1) since 2 Y is even; the terms are reckoned once a pair.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/packed422_avx512.h"

namespace pixmoor::colour::fast {
namespace {

// B's and R's terms halved, (mulhi(16 d, f) >> 1), are mulhi(8 d, f):
// both are 8 d f >> 16.  G's two terms are each mulhi(16 d, f); their sum
// halved lands in the high half by a multiply-add and a shift by 15.
PIXMOOR_TARGET_AVX512 avx512::PairTerms Terms(__m512i bytes) {
    const __m512i c8 = avx512::CentredPairChroma(bytes, 8);  // 8 (U - 128) low, 8 (V - 128) high
    const __m512i g2 = _mm512_mulhi_epi16(_mm512_add_epi16(c8, c8), _mm512_set1_epi32(avx2::kNarrowGreen));
    return avx512::PairTerms{_mm512_mulhi_epi16(c8, _mm512_set1_epi32(avx2::kNarrowBlueRed)),
                             _mm512_slli_epi32(_mm512_madd_epi16(g2, _mm512_set1_epi16(1)), 15)};
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowPacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::Packed422Steps<&Terms>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

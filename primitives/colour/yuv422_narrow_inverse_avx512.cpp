// The a6 and w7 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX-512, 32 pixels a step.  Each channel is (2 Y + term) >> 1, that is
// Y + (term >> 1) since 2 Y is even; the terms are reckoned once a pair.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/packed422_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"
#include "primitives/colour/yuv422_arith.h"

namespace pixmoor::colour::fast {
namespace {

static_assert(yuv422::kInverse.ru == 0, "R takes no U term in these kernels");

PIXMOOR_TARGET_AVX512 avx512::PairTerms Terms(__m512i bytes) {
    constexpr narrow::InverseFactors f = yuv422::kInverse;
    // 16 (U - 128) low and 16 (V - 128) high.
    const __m512i c = _mm512_slli_epi16(avx512::CentredPairChroma(bytes), 4);
    const __m512i blueRed = _mm512_srai_epi16(_mm512_mulhi_epi16(c, _mm512_set1_epi32(avx2::LanePair(f.bu, f.rv))), 1);
    const __m512i g2 = _mm512_mulhi_epi16(c, _mm512_set1_epi32(avx2::LanePair(f.gu, f.gv)));
    const __m512i green = _mm512_srai_epi16(_mm512_add_epi16(g2, _mm512_slli_epi32(g2, 16)), 1);  // high half
    return avx512::PairTerms{blueRed, green};
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowPacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::Packed422Steps<&Terms>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

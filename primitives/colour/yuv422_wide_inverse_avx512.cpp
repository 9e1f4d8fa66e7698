// The px and m6 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX-512: the chroma terms of wide_terms_avx2.h reckoned once a pair, 32
// pixels a step, the same bytes as the plain kernel.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/packed422_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX512 avx512::PairTerms Terms(__m512i bytes) {
    const __m512i c = avx512::CentredPairChroma(bytes, 1);  // du low, dv high
    // 2 du + mulhi(du, 2097) low, dv + mulhi(dv, 9175) high; the whole
    // parts by a shift of each half by its own count.
    const __m512i blueRed = _mm512_add_epi16(_mm512_sllv_epi16(c, _mm512_set1_epi32(avx2::LanePair(1, 0))),
                                             _mm512_mulhi_epi16(c, _mm512_set1_epi32(avx2::kBlueRedRests)));
    const __m512i green = _mm512_sub_epi16(_mm512_madd_epi16(c, _mm512_set1_epi32(avx2::kGreenFactors)), c);
    return avx512::PairTerms{blueRed, green};
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WidePacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::Packed422Steps<&Terms>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

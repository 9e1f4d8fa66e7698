// The px and m6 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX-512: the lane arithmetic of the AVX2 form
// (yuv422_wide_inverse_avx2.cpp, wide_terms_avx2.h) on 512-bit vectors,
// 64 pixels a step, the same bytes as the plain kernel.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/packed422_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX512 avx512::ChannelWords Pixels32(__m512i bytes) {
    const __m512i y = avx512::LumaWords(bytes);
    // du in the low, dv in the high half of each pair's lane.
    const __m512i c = _mm512_sub_epi16(avx512::ChromaWords(bytes), _mm512_set1_epi16(128));
    const __m512i r = _mm512_add_epi16(c, _mm512_mulhi_epi16(c, _mm512_set1_epi16(avx2::kRvRest)));
    const __m512i gFactors = _mm512_broadcast_i32x4(_mm256_castsi256_si128(avx2::GreenFactors()));
    const __m512i g = _mm512_sub_epi16(_mm512_srai_epi32(_mm512_madd_epi16(c, gFactors), 16), _mm512_srli_epi32(c, 16));
    const __m512i b = _mm512_add_epi16(_mm512_add_epi16(c, c), _mm512_mulhi_epi16(c, _mm512_set1_epi16(avx2::kBuRest)));
    return avx512::ChannelWords{_mm512_add_epi16(y, avx512::SpreadHigh(r)), _mm512_add_epi16(y, avx512::SpreadLow(g)),
                                _mm512_add_epi16(y, avx512::SpreadLow(b))};
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WidePacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::Packed422Steps<&Pixels32>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

// The px and m6 row kernel of ImgYUVAToRGBA with AVX-512: the lane
// arithmetic of the AVX2 form (yuv444_wide_rgba_avx2.cpp,
// wide_terms_avx2.h) on 512-bit vectors, 16 pixels a step, byte 3 never
// written.
#include "primitives/colour/yuv444_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgba_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX512 __m512i Pixels16(__m512i src) {
    const __m512i c = avx512::CentredChroma(src, 1);  // du low, dv high
    // 2 du + mulhi(du, 2097) low, dv + mulhi(dv, 9175) high; the whole
    // parts by a shift of each half by its own count.
    const __m512i blueRed = _mm512_add_epi16(_mm512_sllv_epi16(c, _mm512_set1_epi32(avx2::LanePair(1, 0))),
                                             _mm512_mulhi_epi16(c, _mm512_set1_epi32(avx2::kBlueRedRests)));
    const __m512i green = _mm512_sub_epi16(_mm512_madd_epi16(c, _mm512_set1_epi32(avx2::kGreenFactors)), c);
    return avx512::ToPixels(avx512::LumaWords(src), blueRed, green);
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideYuvaToRgbaAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::RgbaSteps<&Pixels16>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

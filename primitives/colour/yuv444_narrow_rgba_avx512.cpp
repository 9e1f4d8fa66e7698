// The a6 and w7 row kernel of ImgYUVAToRGBA with AVX-512: the lane
// arithmetic of the AVX2 form (yuv444_narrow_rgba_avx2.cpp) on 512-bit
// vectors, 16 pixels a step, byte 3 never written.
#include "primitives/colour/yuv444_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgba_avx512.h"
#include "primitives/colour/yuv444_narrow.h"

namespace pixmoor::colour::fast {
namespace {

using F = narrow444::AlphaFactors;

// Factors against (u', v') in the low and high halves of a lane.
PIXMOOR_TARGET_AVX512 __m512i Pair(int32_t low, int32_t high) {
    return _mm512_set1_epi32(static_cast<int32_t>((static_cast<uint32_t>(high) << 16) | (static_cast<uint32_t>(low) & 0xFFFF)));
}

PIXMOOR_TARGET_AVX512 __m512i Pixels16(__m512i src) {
    const __m512i c = avx512::CentredChroma(src, 8);  // u' low, v' high
    const __m512i blueRed = _mm512_mulhi_epi16(c, Pair(F::kBU, F::kRV));    // B low, R high
    const __m512i g2 = _mm512_mulhi_epi16(c, Pair(F::kGU, F::kGV));
    const __m512i green = _mm512_add_epi16(g2, _mm512_slli_epi32(g2, 16));  // high half
    return avx512::ToPixels(avx512::LumaWords(src), blueRed, green);
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowYuvaToRgbaAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::RgbaSteps<&Pixels16>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

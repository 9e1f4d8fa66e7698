// The a6 and w7 row kernel of ImgYUVAToRGBA with AVX2: the narrow
// arithmetic of their SSE2 blocks (yuv444_sse2.h), lane for lane, 8 pixels
// a step: u' = 8 (U - 128), v' likewise, R = Y + mulhi(v', 9339),
// G = Y + mulhi(u', -3228) + mulhi(v', -4760), B = Y + mulhi(u', 16646),
// saturated.  Both tiers use it in all their blocks.
#include "primitives/colour/yuv444_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgba_avx2.h"
#include "primitives/colour/yuv444_narrow.h"

namespace pixmoor::colour::fast {
namespace {

using F = narrow444::AlphaFactors;

// Factors against (u', v') in the low and high halves of a lane.
PIXMOOR_TARGET_AVX2 __m256i Pair(int32_t low, int32_t high) {
    return _mm256_set1_epi32(static_cast<int32_t>((static_cast<uint32_t>(high) << 16) | (static_cast<uint32_t>(low) & 0xFFFF)));
}

PIXMOOR_TARGET_AVX2 __m256i Pixels8(__m256i src) {
    const __m256i c = avx2::CentredChroma(src, 8);  // u' low, v' high
    const __m256i blueRed = _mm256_mulhi_epi16(c, Pair(F::kBU, F::kRV));  // B low, R high
    const __m256i g2 = _mm256_mulhi_epi16(c, Pair(F::kGU, F::kGV));
    const __m256i green = _mm256_add_epi16(g2, _mm256_slli_epi32(g2, 16));  // high half
    return avx2::ToPixels(avx2::LumaWords(src), blueRed, green);
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t NarrowYuvaToRgbaAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx2::RgbaSteps<&Pixels8>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

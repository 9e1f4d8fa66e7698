// The a6 and w7 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX2: the narrow arithmetic of their SSE2 main loop (yuv422_sse2.h), lane
// for lane, 32 pixels a step.  Both tiers use the same factors in their
// main loops; their lone last pixels stay with their own kernels.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/packed422_avx2.h"
#include "primitives/colour/yuv422_arith.h"

namespace pixmoor::colour::fast {
namespace {

static_assert(yuv422::kInverse.ru == 0, "R takes no U term in these kernels");

// (2Y + term) >> 1 of 16 pixels.
PIXMOOR_TARGET_AVX2 __m256i Channel(__m256i y, __m256i term) {
    return _mm256_srai_epi16(_mm256_add_epi16(_mm256_add_epi16(y, y), term), 1);
}

PIXMOOR_TARGET_AVX2 __m256i Factor(int32_t f) { return _mm256_set1_epi16(static_cast<int16_t>(f)); }

PIXMOOR_TARGET_AVX2 avx2::ChannelWords Pixels16(const uint8_t* p) {
    const __m256i bytes = avx2::Load32(p);
    const __m256i y = avx2::LumaWords(bytes);
    // 16 (U - 128) and 16 (V - 128), each spread to both pixels of its pair.
    const __m256i uv = _mm256_slli_epi16(_mm256_sub_epi16(avx2::ChromaWords(bytes), _mm256_set1_epi16(128)), 4);
    const __m256i du = avx2::SpreadLow(uv), dv = avx2::SpreadHigh(uv);
    const __m256i r = _mm256_mulhi_epi16(dv, Factor(yuv422::kInverse.rv));
    const __m256i g = _mm256_add_epi16(_mm256_mulhi_epi16(du, Factor(yuv422::kInverse.gu)),
                                       _mm256_mulhi_epi16(dv, Factor(yuv422::kInverse.gv)));
    const __m256i b = _mm256_mulhi_epi16(du, Factor(yuv422::kInverse.bu));
    return avx2::ChannelWords{Channel(y, r), Channel(y, g), Channel(y, b)};
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t NarrowPacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx2::Packed422Steps<&Pixels16>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

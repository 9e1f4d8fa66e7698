// The a6 and w7 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX2: the narrow arithmetic of their SSE2 main loop (yuv422_sse2.h), lane
// for lane, 32 pixels a step.  Both tiers use the same factors in their
// main loops; their lone last pixels stay with their own kernels.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/yuv422_arith.h"

namespace pixmoor::colour::fast {
namespace {

static_assert(yuv422::kInverse.ru == 0, "R takes no U term in these kernels");

// (2Y + term) >> 1 of 16 pixels.
PIXMOOR_TARGET_AVX2 __m256i Channel(__m256i y, __m256i term) {
    return _mm256_srai_epi16(_mm256_add_epi16(_mm256_add_epi16(y, y), term), 1);
}

struct Words {
    __m256i r, g, b;  // 16 pixels, one 16-bit lane each, not yet saturated
};

PIXMOOR_TARGET_AVX2 Words Pixels16(const uint8_t* p) {
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    const __m256i y = _mm256_and_si256(bytes, _mm256_set1_epi16(0xFF));
    // 16 (U - 128) and 16 (V - 128) alternate; each goes to both pixels.
    const __m256i uv = _mm256_slli_epi16(_mm256_sub_epi16(_mm256_srli_epi16(bytes, 8), _mm256_set1_epi16(128)), 4);
    const __m256i du = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(uv, 0xA0), 0xA0);
    const __m256i dv = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(uv, 0xF5), 0xF5);
    const auto factor = [](int32_t f) { return static_cast<int16_t>(f); };
    const __m256i r = _mm256_mulhi_epi16(dv, _mm256_set1_epi16(factor(yuv422::kInverse.rv)));
    const __m256i g = _mm256_add_epi16(_mm256_mulhi_epi16(du, _mm256_set1_epi16(factor(yuv422::kInverse.gu))),
                                       _mm256_mulhi_epi16(dv, _mm256_set1_epi16(factor(yuv422::kInverse.gv))));
    const __m256i b = _mm256_mulhi_epi16(du, _mm256_set1_epi16(factor(yuv422::kInverse.bu)));
    return Words{Channel(y, r), Channel(y, g), Channel(y, b)};
}

// Saturated bytes of 32 pixels in pixel order.
PIXMOOR_TARGET_AVX2 __m256i Saturated(__m256i first, __m256i second) {
    return _mm256_permute4x64_epi64(_mm256_packus_epi16(first, second), 0xD8);
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t NarrowPacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~31;
    for (int32_t x = 0; x < whole; x += 32) {
        const Words a = Pixels16(in + 2 * static_cast<intptr_t>(x));
        const Words b = Pixels16(in + 2 * static_cast<intptr_t>(x) + 32);
        avx2::StoreRgb32(out + 3 * static_cast<intptr_t>(x), Saturated(a.r, b.r), Saturated(a.g, b.g),
                         Saturated(a.b, b.b));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

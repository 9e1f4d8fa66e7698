// The px and m6 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX2: 32 pixels (64 source bytes) a step, the same bytes as the plain
// kernel.  As in the 4:2:0 form (yuv420_wide_inverse_avx2.cpp), each
// channel is clamp(Y + (t >> 16)) with the chroma term's whole part added
// and its 16-bit remainder taken by mulhi; here the pair's U and V stay in
// the two 16-bit halves of its 32-bit lane, beside its two Y.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour::fast {
namespace {

constexpr int16_t kRvRest = wide::kRFromV - 65536;      // R = Y + dv + mulhi(dv, 9175)
constexpr int16_t kBuRest = wide::kBFromU - 2 * 65536;  // B = Y + 2 du + mulhi(du, 2097)
constexpr int16_t kGvRest = 65536 - wide::kGFromV;      // G = Y - dv + (27460 dv - 25821 du) >> 16

// Copies one 16-bit half of every 32-bit lane into both halves.
PIXMOOR_TARGET_AVX2 __m256i SpreadLow(__m256i x) {
    return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(x, 0xA0), 0xA0);
}
PIXMOOR_TARGET_AVX2 __m256i SpreadHigh(__m256i x) {
    return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(x, 0xF5), 0xF5);
}

struct Words {
    __m256i r, g, b;  // 16 pixels, one 16-bit lane each, not yet clamped
};

// 16 pixels from 32 source bytes.
PIXMOOR_TARGET_AVX2 Words Pixels16(const uint8_t* p) {
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    const __m256i y = _mm256_and_si256(bytes, _mm256_set1_epi16(0xFF));
    // du in the low, dv in the high half of each pair's lane.
    const __m256i c = _mm256_sub_epi16(_mm256_srli_epi16(bytes, 8), _mm256_set1_epi16(128));
    const __m256i r = _mm256_add_epi16(c, _mm256_mulhi_epi16(c, _mm256_set1_epi16(kRvRest)));
    const __m256i b = _mm256_add_epi16(_mm256_add_epi16(c, c), _mm256_mulhi_epi16(c, _mm256_set1_epi16(kBuRest)));
    const __m256i gFactors = _mm256_set1_epi32(static_cast<int32_t>(
        (static_cast<uint32_t>(static_cast<uint16_t>(kGvRest)) << 16) |
        static_cast<uint16_t>(-wide::kGFromU)));
    const __m256i g = _mm256_sub_epi16(_mm256_srai_epi32(_mm256_madd_epi16(c, gFactors), 16),
                                       _mm256_srli_epi32(c, 16));
    return Words{_mm256_add_epi16(y, SpreadHigh(r)), _mm256_add_epi16(y, SpreadLow(g)),
                 _mm256_add_epi16(y, SpreadLow(b))};
}

// Clamped bytes of 32 pixels in pixel order.
PIXMOOR_TARGET_AVX2 __m256i Clamped(__m256i first, __m256i second) {
    return _mm256_permute4x64_epi64(_mm256_packus_epi16(first, second), 0xD8);
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WidePacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~31;
    for (int32_t x = 0; x < whole; x += 32) {
        const Words a = Pixels16(in + 2 * static_cast<intptr_t>(x));
        const Words b = Pixels16(in + 2 * static_cast<intptr_t>(x) + 32);
        avx2::StoreRgb32(out + 3 * static_cast<intptr_t>(x), Clamped(a.r, b.r), Clamped(a.g, b.g),
                         Clamped(a.b, b.b));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

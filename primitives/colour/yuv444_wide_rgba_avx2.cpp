// The px and m6 row kernel of ImgYUVAToRGBA with AVX2: 8 pixels a step, the
// same bytes as the plain kernel.  Each channel is clamp(Y + (t >> 16))
// with the chroma term's whole part added and its 16-bit remainder taken by
// mulhi, as in the 4:2:0 form (yuv420_wide_inverse_avx2.cpp).
#include "primitives/colour/yuv444_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgba_avx2.h"
#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour::fast {
namespace {

constexpr int16_t kRvRest = wide::kRFromV - 65536;      // R = Y + dv + mulhi(dv, 9175)
constexpr int16_t kBuRest = wide::kBFromU - 2 * 65536;  // B = Y + 2 du + mulhi(du, 2097)
constexpr int16_t kGvRest = 65536 - wide::kGFromV;      // G = Y - dv + (27460 dv - 25821 du) >> 16

PIXMOOR_TARGET_AVX2 __m256i Pixels8(__m256i src) {
    const __m256i c = avx2::CentredChroma(src);  // du low, dv high
    const __m256i r = _mm256_add_epi16(c, _mm256_mulhi_epi16(c, _mm256_set1_epi16(kRvRest)));
    const __m256i b = _mm256_add_epi16(_mm256_add_epi16(c, c), _mm256_mulhi_epi16(c, _mm256_set1_epi16(kBuRest)));
    const __m256i gFactors = _mm256_set1_epi32(static_cast<int32_t>(
        (static_cast<uint32_t>(static_cast<uint16_t>(kGvRest)) << 16) |
        static_cast<uint16_t>(-wide::kGFromU)));
    const __m256i g = _mm256_sub_epi16(_mm256_srai_epi32(_mm256_madd_epi16(c, gFactors), 16),
                                       _mm256_srli_epi32(c, 16));
    return avx2::ToPixels(avx2::Luma(src), r, g, b);
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideYuvaToRgbaAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~7;
    for (int32_t x = 0; x < whole; x += 8) {
        const intptr_t at = 4 * static_cast<intptr_t>(x);
        avx2::StoreKeepingByte3(out + at, Pixels8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(in + at))));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

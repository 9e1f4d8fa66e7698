// The px and m6 row kernel of ImgYUVAToRGBA with AVX2: 16 pixels a step,
// the same bytes as the plain kernel.  Each channel is clamp(Y + (t >> 16))
// with the chroma term's whole part added and its 16-bit remainder taken by
// mulhi, as in the 4:2:0 form (yuv420_wide_inverse_avx2.cpp).  Byte 3 of
// each destination pixel keeps what it holds: the step reads the
// destination and writes that byte back unchanged.
#include "primitives/colour/yuv444_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour::fast {
namespace {

constexpr int16_t kRvRest = wide::kRFromV - 65536;      // R = Y + dv + mulhi(dv, 9175)
constexpr int16_t kBuRest = wide::kBFromU - 2 * 65536;  // B = Y + 2 du + mulhi(du, 2097)
constexpr int16_t kGvRest = 65536 - wide::kGFromV;      // G = Y - dv + (27460 dv - 25821 du) >> 16

// Per pixel (a 32-bit lane): U and V to the two 16-bit halves.
alignas(16) constexpr int8_t kChromaWords[16] = {1, -128, 2, -128, 5, -128, 6, -128,
                                                 9, -128, 10, -128, 13, -128, 14, -128};
// After packing (R, G) words of 4 pixels and (B, -) words of the same 4:
// bytes R G B - of each pixel.
alignas(16) constexpr int8_t kToPixels[16] = {0, 1, 8, -128, 2, 3, 10, -128,
                                              4, 5, 12, -128, 6, 7, 14, -128};

PIXMOOR_TARGET_AVX2 __m256i Broadcast(const int8_t (&m)[16]) {
    return _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// R, G, B bytes of 8 pixels at bytes 0 to 2 of their lanes; byte 3 is 0.
PIXMOOR_TARGET_AVX2 __m256i Pixels8(__m256i src) {
    const __m256i y = _mm256_and_si256(src, _mm256_set1_epi32(0xFF));
    const __m256i c = _mm256_sub_epi16(_mm256_shuffle_epi8(src, Broadcast(kChromaWords)), _mm256_set1_epi16(128));
    const __m256i r = _mm256_add_epi16(c, _mm256_mulhi_epi16(c, _mm256_set1_epi16(kRvRest)));  // high half
    const __m256i b = _mm256_add_epi16(_mm256_add_epi16(c, c), _mm256_mulhi_epi16(c, _mm256_set1_epi16(kBuRest)));
    const __m256i gFactors = _mm256_set1_epi32(static_cast<int32_t>(
        (static_cast<uint32_t>(static_cast<uint16_t>(kGvRest)) << 16) |
        static_cast<uint16_t>(-wide::kGFromU)));
    const __m256i g = _mm256_sub_epi16(_mm256_srai_epi32(_mm256_madd_epi16(c, gFactors), 16),
                                       _mm256_srli_epi32(c, 16));  // low half
    const __m256i rg = _mm256_add_epi16(_mm256_or_si256(y, _mm256_slli_epi32(y, 16)),
                                        _mm256_blend_epi16(_mm256_srli_epi32(r, 16), _mm256_slli_epi32(g, 16), 0xAA));
    const __m256i bx = _mm256_add_epi16(y, b);
    return _mm256_shuffle_epi8(_mm256_packus_epi16(rg, bx), Broadcast(kToPixels));
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideYuvaToRgbaAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    const __m256i keep = _mm256_set1_epi32(static_cast<int32_t>(0xFF000000u));
    const int32_t whole = count & ~7;
    for (int32_t x = 0; x < whole; x += 8) {
        const intptr_t at = 4 * static_cast<intptr_t>(x);
        __m256i* d = reinterpret_cast<__m256i*>(out + at);
        const __m256i rgb = Pixels8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(in + at)));
        _mm256_storeu_si256(d, _mm256_blendv_epi8(rgb, _mm256_loadu_si256(d), keep));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

// 4-byte pixels (byte 3 never written with a value of its own) in and out
// of 256-bit registers, for the AVX2 row kernels of ImgYUVAToRGBA.  Only
// units whose functions carry PIXMOOR_TARGET_AVX2 include this header; every
// function here carries it too.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGBA_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGBA_AVX2_H

#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx2 {

// Per pixel (a 32-bit lane): bytes 1 and 2 (U and V) to the two 16-bit
// halves.
alignas(16) inline constexpr int8_t kChromaWords[16] = {1, -128, 2, -128, 5, -128, 6, -128,
                                                        9, -128, 10, -128, 13, -128, 14, -128};
// After packing (R, G) words of 4 pixels and (B, -) words of the same 4:
// bytes R G B - of each pixel.
alignas(16) inline constexpr int8_t kToPixels[16] = {0, 1, 8, -128, 2, 3, 10, -128,
                                                     4, 5, 12, -128, 6, 7, 14, -128};

PIXMOOR_TARGET_AVX2 inline __m256i Broadcast(const int8_t (&m)[16]) {
    return _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// U - 128 and V - 128 of 8 pixels in the low and high halves of their lanes.
PIXMOOR_TARGET_AVX2 inline __m256i CentredChroma(__m256i pixels) {
    return _mm256_sub_epi16(_mm256_shuffle_epi8(pixels, Broadcast(kChromaWords)), _mm256_set1_epi16(128));
}

// Y of 8 pixels, one 32-bit lane each.
PIXMOOR_TARGET_AVX2 inline __m256i Luma(__m256i pixels) { return _mm256_and_si256(pixels, _mm256_set1_epi32(0xFF)); }

// Bytes R G B of 8 pixels from Y and the three chroma terms: `r` in the high
// half of each lane, `g` and `b` in the low half.  Each sum is saturated.
PIXMOOR_TARGET_AVX2 inline __m256i ToPixels(__m256i y, __m256i r, __m256i g, __m256i b) {
    const __m256i rg = _mm256_add_epi16(_mm256_or_si256(y, _mm256_slli_epi32(y, 16)),
                                        _mm256_blend_epi16(_mm256_srli_epi32(r, 16), _mm256_slli_epi32(g, 16), 0xAA));
    return _mm256_shuffle_epi8(_mm256_packus_epi16(rg, _mm256_add_epi16(y, b)), Broadcast(kToPixels));
}

// Stores bytes 0 to 2 of 8 pixels; byte 3 of each keeps what it holds (the
// step reads the destination and writes that byte back unchanged).
PIXMOOR_TARGET_AVX2 inline void StoreKeepingByte3(uint8_t* p, __m256i rgb) {
    __m256i* d = reinterpret_cast<__m256i*>(p);
    const __m256i keep = _mm256_set1_epi32(static_cast<int32_t>(0xFF000000u));
    _mm256_storeu_si256(d, _mm256_blendv_epi8(rgb, _mm256_loadu_si256(d), keep));
}

// 8 pixels a step while whole steps fit; returns the pixels done.
// `Pixels8` turns 32 source bytes into the R G B bytes of their pixels.
template <__m256i (*Pixels8)(__m256i)>
PIXMOOR_TARGET_AVX2 inline int32_t RgbaSteps(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~7;
    for (int32_t x = 0; x < whole; x += 8) {
        const intptr_t at = 4 * static_cast<intptr_t>(x);
        StoreKeepingByte3(out + at, Pixels8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(in + at))));
    }
    return whole;
}

}  // namespace pixmoor::colour::avx2

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

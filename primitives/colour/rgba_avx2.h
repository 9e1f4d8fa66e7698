// 4-byte pixels (byte 3 never written with a value of its own) in and out
// of 256-bit registers, for the AVX2 row kernels of ImgYUVAToRGBA, and the
// store of 4-byte pixels with a zero byte 3 of the 4:2:0 kernels.  Only
// units whose functions carry PIXMOOR_TARGET_AVX2 include this header; every
// function here carries it too.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGBA_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGBA_AVX2_H

#include "primitives/colour/lane_constants.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx2 {

// Per pixel (a 32-bit lane): byte 0 (Y) to both 16-bit halves.
alignas(16) inline constexpr int8_t kLumaWords[16] = {0, -128, 0, -128, 4, -128, 4, -128,
                                                      8, -128, 8, -128, 12, -128, 12, -128};
// After packing the (B, R) words of 4 pixels and the (-, G) words of the
// same 4: bytes R G B - of each pixel.
alignas(16) inline constexpr int8_t kToPixels[16] = {1, 9, 0, -128, 3, 11, 2, -128,
                                                     5, 13, 4, -128, 7, 15, 6, -128};

PIXMOOR_TARGET_AVX2 inline __m256i Broadcast(const int8_t (&m)[16]) {
    return _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// scale (U - 128) and scale (V - 128) of 8 pixels in the low and high
// halves of their lanes (scale up to 8): bytes 1 and 2 picked and scaled by
// one unsigned-by-signed byte multiply-add.
PIXMOOR_TARGET_AVX2 inline __m256i CentredChroma(__m256i pixels, int scale) {
    return _mm256_sub_epi16(_mm256_maddubs_epi16(pixels, _mm256_set1_epi32(ByteWeights(0, scale, scale, 0))),
                            _mm256_set1_epi16(static_cast<int16_t>(128 * scale)));
}

// Y of 8 pixels in both halves of their lanes.
PIXMOOR_TARGET_AVX2 inline __m256i LumaWords(__m256i pixels) {
    return _mm256_shuffle_epi8(pixels, Broadcast(kLumaWords));
}

// Bytes R G B of 8 pixels from Y in both halves of each lane (LumaWords)
// and the chroma terms: `blueRed` holds B's term in the low and R's in the
// high half of each lane, `green` G's term in the high half.  Each sum is
// saturated.
PIXMOOR_TARGET_AVX2 inline __m256i ToPixels(__m256i y, __m256i blueRed, __m256i green) {
    const __m256i packed = _mm256_packus_epi16(_mm256_add_epi16(y, blueRed), _mm256_add_epi16(y, green));
    return _mm256_shuffle_epi8(packed, Broadcast(kToPixels));
}

// Stores bytes 0 to 2 of 8 pixels; byte 3 of each keeps what it holds (the
// step reads the destination and writes that byte back unchanged).
PIXMOOR_TARGET_AVX2 inline void StoreKeepingByte3(uint8_t* p, __m256i rgb) {
    __m256i* d = reinterpret_cast<__m256i*>(p);
    const __m256i keep = _mm256_set1_epi32(static_cast<int32_t>(0xFF000000u));
    _mm256_storeu_si256(d, _mm256_blendv_epi8(rgb, _mm256_loadu_si256(d), keep));
}

// Writes 32 pixels (128 bytes) from their R, G, B bytes in pixel order,
// each followed by a zero byte.
PIXMOOR_TARGET_AVX2 inline void StoreRgb0x32(uint8_t* p, __m256i r, __m256i g, __m256i b) {
    const __m256i z = _mm256_setzero_si256();
    const __m256i rgLow = _mm256_unpacklo_epi8(r, g), rgHigh = _mm256_unpackhi_epi8(r, g);
    const __m256i b0Low = _mm256_unpacklo_epi8(b, z), b0High = _mm256_unpackhi_epi8(b, z);
    // Each lane holds 4 pixels of its own 16: lane 0 of q0 pixels 0-3, lane
    // 1 pixels 16-19, and so on.
    const __m256i q0 = _mm256_unpacklo_epi16(rgLow, b0Low), q1 = _mm256_unpackhi_epi16(rgLow, b0Low);
    const __m256i q2 = _mm256_unpacklo_epi16(rgHigh, b0High), q3 = _mm256_unpackhi_epi16(rgHigh, b0High);
    __m256i* d = reinterpret_cast<__m256i*>(p);
    _mm256_storeu_si256(d, _mm256_permute2x128_si256(q0, q1, 0x20));
    _mm256_storeu_si256(d + 1, _mm256_permute2x128_si256(q2, q3, 0x20));
    _mm256_storeu_si256(d + 2, _mm256_permute2x128_si256(q0, q1, 0x31));
    _mm256_storeu_si256(d + 3, _mm256_permute2x128_si256(q2, q3, 0x31));
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

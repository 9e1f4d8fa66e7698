// 4-byte pixels in and out of 512-bit registers for the AVX-512 row
// kernels of ImgYUVAToRGBA, as rgba_avx2.h is for AVX2.  Here a byte-masked
// store writes bytes 0 to 2 of each pixel and never touches byte 3.  Only
// units whose functions carry PIXMOOR_TARGET_AVX512 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGBA_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGBA_AVX512_H

#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/rgba_avx2.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <cstdint>

namespace pixmoor::colour::avx512 {

PIXMOOR_TARGET_AVX512 inline __m512i Broadcast(const int8_t (&m)[16]) {
    return _mm512_broadcast_i32x4(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// scale (U - 128) and scale (V - 128) of 16 pixels, as avx2::CentredChroma.
PIXMOOR_TARGET_AVX512 inline __m512i CentredChroma(__m512i pixels, int scale) {
    return _mm512_sub_epi16(_mm512_maddubs_epi16(pixels, _mm512_set1_epi32(avx2::ByteWeights(0, scale, scale, 0))),
                            _mm512_set1_epi16(static_cast<int16_t>(128 * scale)));
}

// Y of 16 pixels in both halves of their lanes.
PIXMOOR_TARGET_AVX512 inline __m512i LumaWords(__m512i pixels) {
    return _mm512_shuffle_epi8(pixels, Broadcast(avx2::kLumaWords));
}

// Bytes R G B of 16 pixels, as avx2::ToPixels.
PIXMOOR_TARGET_AVX512 inline __m512i ToPixels(__m512i y, __m512i blueRed, __m512i green) {
    const __m512i packed = _mm512_packus_epi16(_mm512_add_epi16(y, blueRed), _mm512_add_epi16(y, green));
    return _mm512_shuffle_epi8(packed, Broadcast(avx2::kToPixels));
}

// 16 pixels a step while whole steps fit; returns the pixels done.
// `Pixels16` turns 64 source bytes into the R G B bytes of their pixels.
template <__m512i (*Pixels16)(__m512i)>
PIXMOOR_TARGET_AVX512 inline int32_t RgbaSteps(const uint8_t* in, uint8_t* out, int32_t count) {
    const __mmask64 channels = 0x7777777777777777ull;  // bytes 0 to 2 of each pixel
    const int32_t whole = count & ~15;
    for (int32_t x = 0; x < whole; x += 16) {
        const intptr_t at = 4 * static_cast<intptr_t>(x);
        _mm512_mask_storeu_epi8(out + at, channels, Pixels16(_mm512_loadu_si512(in + at)));
    }
    return whole;
}

// Writes 64 pixels (256 bytes) from their R, G, B bytes in pixel order,
// each followed by a zero byte.
PIXMOOR_TARGET_AVX512 inline void StoreRgb0x64(uint8_t* p, __m512i r, __m512i g, __m512i b) {
    const __m512i z = _mm512_setzero_si512();
    const __m512i rgLow = _mm512_unpacklo_epi8(r, g), rgHigh = _mm512_unpackhi_epi8(r, g);
    const __m512i b0Low = _mm512_unpacklo_epi8(b, z), b0High = _mm512_unpackhi_epi8(b, z);
    // Lane k of qi holds pixels 16 k + 4 i to 16 k + 4 i + 3.
    const __m512i q0 = _mm512_unpacklo_epi16(rgLow, b0Low), q1 = _mm512_unpackhi_epi16(rgLow, b0Low);
    const __m512i q2 = _mm512_unpacklo_epi16(rgHigh, b0High), q3 = _mm512_unpackhi_epi16(rgHigh, b0High);
    // A 4 by 4 transpose of 128-bit lanes puts 16 pixels in order in each
    // output vector.
    const __m512i q01Low = _mm512_shuffle_i64x2(q0, q1, 0x44), q23Low = _mm512_shuffle_i64x2(q2, q3, 0x44);
    const __m512i q01High = _mm512_shuffle_i64x2(q0, q1, 0xEE), q23High = _mm512_shuffle_i64x2(q2, q3, 0xEE);
    _mm512_storeu_si512(p, _mm512_shuffle_i64x2(q01Low, q23Low, 0x88));
    _mm512_storeu_si512(p + 64, _mm512_shuffle_i64x2(q01Low, q23Low, 0xDD));
    _mm512_storeu_si512(p + 128, _mm512_shuffle_i64x2(q01High, q23High, 0x88));
    _mm512_storeu_si512(p + 192, _mm512_shuffle_i64x2(q01High, q23High, 0xDD));
}

// The same from channel words laid out as rgb24_avx512.h's ChannelWords,
// each channel clamped to 0..255.
PIXMOOR_TARGET_AVX512 inline void StoreRgb0Words64(uint8_t* p, const ChannelWords& w) {
    StoreRgb0x64(p, _mm512_packus_epi16(w.rLow, w.rHigh), _mm512_packus_epi16(w.gLow, w.gHigh),
                 _mm512_packus_epi16(w.bLow, w.bHigh));
}

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

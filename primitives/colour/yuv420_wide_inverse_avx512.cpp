// The px and m6 inverse 4:2:0 row kernel to packed RGB with AVX-512: 32
// pixel pairs (64 pixels of each line) a step, the lane arithmetic of the
// AVX2 form (yuv420_wide_inverse_avx2.cpp) on 512-bit vectors, the same
// bytes as the plain kernel.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

// GCC 12's AVX-512 intrinsics start from an undefined register and warn of
// it; no value here depends on one.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

struct Offsets {
    __m512i r, g, b;  // t >> 16 of 32 chroma pairs, one 16-bit lane each
};

PIXMOOR_TARGET_AVX512 __m512i Centred(const uint8_t* p) {
    return _mm512_sub_epi16(_mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))),
                            _mm512_set1_epi16(128));
}

PIXMOOR_TARGET_AVX512 Offsets PairOffsets(const uint8_t* u, const uint8_t* v) {
    const __m512i du = Centred(u), dv = Centred(v);
    const __m512i r = _mm512_add_epi16(dv, _mm512_mulhi_epi16(dv, _mm512_set1_epi16(avx2::kRvRest)));
    const __m512i b = _mm512_add_epi16(_mm512_add_epi16(du, du), _mm512_mulhi_epi16(du, _mm512_set1_epi16(avx2::kBuRest)));
    const __m512i gFactors = _mm512_broadcast_i32x4(_mm256_castsi256_si128(avx2::GreenFactors()));
    const __m512i gLow = _mm512_srai_epi32(_mm512_madd_epi16(_mm512_unpacklo_epi16(du, dv), gFactors), 16);
    const __m512i gHigh = _mm512_srai_epi32(_mm512_madd_epi16(_mm512_unpackhi_epi16(du, dv), gFactors), 16);
    return Offsets{r, _mm512_sub_epi16(_mm512_packs_epi32(gLow, gHigh), dv), b};
}

// One channel of 64 pixels in pixel order: Y plus the offset of its pair,
// clamped.
PIXMOOR_TARGET_AVX512 __m512i Channel(__m512i yLow, __m512i yHigh, __m512i offset) {
    return _mm512_packus_epi16(_mm512_add_epi16(yLow, _mm512_unpacklo_epi16(offset, offset)),
                               _mm512_add_epi16(yHigh, _mm512_unpackhi_epi16(offset, offset)));
}

PIXMOOR_TARGET_AVX512 __m512i Mask(const int8_t (&t)[16]) {
    return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t)));
}

// One output register of the interleave, lane by lane (16 pixels a lane).
PIXMOOR_TARGET_AVX512 __m512i InterleavePart(__m512i r, __m512i g, __m512i b, int m) {
    const auto& k = avx2::kInterleave.bytes;
    return _mm512_or_si512(_mm512_or_si512(_mm512_shuffle_epi8(r, Mask(k[0][m])), _mm512_shuffle_epi8(g, Mask(k[1][m]))),
                           _mm512_shuffle_epi8(b, Mask(k[2][m])));
}

// Writes 64 pixels (192 bytes) from their R, G, B bytes in pixel order.
// Lane k of the three interleaved registers holds output bytes 48 k to
// 48 k + 47; the stores take the 16-byte pieces in that order.
PIXMOOR_TARGET_AVX512 void StoreRgb64(uint8_t* p, __m512i r, __m512i g, __m512i b) {
    const __m512i o0 = InterleavePart(r, g, b, 0);
    const __m512i o1 = InterleavePart(r, g, b, 1);
    const __m512i o2 = InterleavePart(r, g, b, 2);
    // 16-byte pieces in output order: o0.0 o1.0 o2.0 o0.1 | o1.1 o2.1 o0.2
    // o1.2 | o2.2 o0.3 o1.3 o2.3.  Each store takes three pieces from two
    // registers (64-bit indices, 8 and up from the second) and its third
    // piece from the remaining register.
    const __m512i z0 = _mm512_permutex2var_epi64(o0, _mm512_setr_epi64(0, 1, 8, 9, 0, 0, 2, 3), o1);
    const __m512i z1 = _mm512_permutex2var_epi64(o1, _mm512_setr_epi64(2, 3, 10, 11, 0, 0, 4, 5), o2);
    const __m512i z2 = _mm512_permutex2var_epi64(o2, _mm512_setr_epi64(4, 5, 14, 15, 0, 0, 6, 7), o0);
    _mm512_storeu_si512(p, _mm512_mask_permutexvar_epi64(z0, 0x30, _mm512_setr_epi64(0, 0, 0, 0, 0, 1, 0, 0), o2));
    _mm512_storeu_si512(p + 64, _mm512_mask_permutexvar_epi64(z1, 0x30, _mm512_setr_epi64(0, 0, 0, 0, 4, 5, 0, 0), o0));
    _mm512_storeu_si512(p + 128, _mm512_mask_permutexvar_epi64(z2, 0x30, _mm512_setr_epi64(0, 0, 0, 0, 6, 7, 0, 0), o1));
}

PIXMOOR_TARGET_AVX512 void Line64(const uint8_t* y, const Offsets& o, uint8_t* out) {
    const __m512i z = _mm512_setzero_si512();
    const __m512i bytes = _mm512_loadu_si512(y);
    const __m512i yLow = _mm512_unpacklo_epi8(bytes, z);
    const __m512i yHigh = _mm512_unpackhi_epi8(bytes, z);
    StoreRgb64(out, Channel(yLow, yHigh, o.r), Channel(yLow, yHigh, o.g), Channel(yLow, yHigh, o.b));
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                   uint8_t* bottom, int32_t pairs) {
    const int32_t whole = pairs & ~31;
    for (int32_t j = 0; j < whole; j += 32) {
        const Offsets o = PairOffsets(in.u + j, in.v + j);
        Line64(in.y0 + 2 * j, o, top + 6 * static_cast<intptr_t>(j));
        Line64(in.y1 + 2 * j, o, bottom + 6 * static_cast<intptr_t>(j));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

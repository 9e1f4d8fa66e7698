// Packed RGB (3 bytes a pixel) out of 512-bit registers, for the AVX-512
// row kernels: the byte shuffles of rgb24_avx2.h in each 128-bit lane, then
// the 16-byte pieces put in output order.  Only units whose functions
// carry PIXMOOR_TARGET_AVX512 include this header; every function here
// carries it too.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB24_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB24_AVX512_H

#include "primitives/colour/rgb24_avx2.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx512 {

PIXMOOR_TARGET_AVX512 inline __m512i Mask(const int8_t (&t)[16]) {
    return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t)));
}

// One output register of the interleave, lane by lane (16 pixels a lane).
PIXMOOR_TARGET_AVX512 inline __m512i InterleavePart(__m512i r, __m512i g, __m512i b, int m) {
    const auto& k = avx2::kInterleave.bytes;
    return _mm512_or_si512(_mm512_or_si512(_mm512_shuffle_epi8(r, Mask(k[0][m])), _mm512_shuffle_epi8(g, Mask(k[1][m]))),
                           _mm512_shuffle_epi8(b, Mask(k[2][m])));
}

// Writes 64 pixels (192 bytes) from their R, G, B bytes in pixel order.
// Lane k of the three interleaved registers holds output bytes 48 k to
// 48 k + 47; the stores take the 16-byte pieces in that order.
PIXMOOR_TARGET_AVX512 inline void StoreRgb64(uint8_t* p, __m512i r, __m512i g, __m512i b) {
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

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

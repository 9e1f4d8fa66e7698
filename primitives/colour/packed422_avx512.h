// Packed 4:2:2 (Y0 U Y1 V) to packed RGB in 512-bit registers: the step
// loop and lane helpers of the AVX-512 row kernels, as packed422_avx2.h is
// for AVX2; each kernel brings its own arithmetic for 32 pixels.  Only
// units whose functions carry PIXMOOR_TARGET_AVX512 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX512_H

#include "primitives/colour/packed422_avx2.h"
#include "primitives/colour/rgb24_avx512.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <cstdint>

namespace pixmoor::colour::avx512 {

// Copies the low (high) 16-bit half of every 32-bit lane into both halves:
// a pair's chroma value to both its pixels.
PIXMOOR_TARGET_AVX512 inline __m512i SpreadLow(__m512i x) { return _mm512_shuffle_epi8(x, Mask(avx2::kSpreadLow)); }
PIXMOOR_TARGET_AVX512 inline __m512i SpreadHigh(__m512i x) { return _mm512_shuffle_epi8(x, Mask(avx2::kSpreadHigh)); }

// Y of the 32 pixels in 64 source bytes, one 16-bit lane each; and their
// chroma bytes (U in the low, V in the high half of each pair's lane).
PIXMOOR_TARGET_AVX512 inline __m512i LumaWords(__m512i bytes) {
    return _mm512_and_si512(bytes, _mm512_set1_epi16(0xFF));
}
PIXMOOR_TARGET_AVX512 inline __m512i ChromaWords(__m512i bytes) { return _mm512_srli_epi16(bytes, 8); }

// R, G, B of 32 pixels, one 16-bit lane each, before saturation.
struct ChannelWords {
    __m512i r, g, b;
};

// Saturated bytes of 64 pixels in pixel order from two sets of 32.
PIXMOOR_TARGET_AVX512 inline __m512i Saturated(__m512i first, __m512i second) {
    return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), _mm512_packus_epi16(first, second));
}

// 64 pixels (128 source bytes) a step while whole steps fit; returns the
// pixels done.
template <ChannelWords (*Pixels32)(__m512i)>
PIXMOOR_TARGET_AVX512 inline int32_t Packed422Steps(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~63;
    for (int32_t x = 0; x < whole; x += 64) {
        const uint8_t* p = in + 2 * static_cast<intptr_t>(x);
        const ChannelWords a = Pixels32(_mm512_loadu_si512(p));
        const ChannelWords b = Pixels32(_mm512_loadu_si512(p + 64));
        StoreRgb64(out + 3 * static_cast<intptr_t>(x), Saturated(a.r, b.r), Saturated(a.g, b.g), Saturated(a.b, b.b));
    }
    return whole;
}

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

// Packed 4:2:2 (Y0 U Y1 V) to packed RGB in 256-bit registers: the step
// loop and lane helpers that the AVX2 row kernels of every tier share; each
// kernel brings its own arithmetic for 16 pixels.  Only units whose
// functions carry PIXMOOR_TARGET_AVX2 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX2_H

#include "primitives/colour/rgb24_avx2.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx2 {

// Byte shuffles that copy the low (high) 16-bit half of every 32-bit lane
// into both halves: a pair's chroma value to both its pixels.
alignas(16) inline constexpr int8_t kSpreadLow[16] = {0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13};
alignas(16) inline constexpr int8_t kSpreadHigh[16] = {2, 3, 2, 3, 6, 7, 6, 7, 10, 11, 10, 11, 14, 15, 14, 15};

PIXMOOR_TARGET_AVX2 inline __m256i SpreadLow(__m256i x) { return _mm256_shuffle_epi8(x, Mask(kSpreadLow)); }
PIXMOOR_TARGET_AVX2 inline __m256i SpreadHigh(__m256i x) { return _mm256_shuffle_epi8(x, Mask(kSpreadHigh)); }

// Y of the 16 pixels in 32 source bytes, one 16-bit lane each; and their
// chroma bytes (U in the low, V in the high half of each pair's lane).
PIXMOOR_TARGET_AVX2 inline __m256i Load32(const uint8_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}
PIXMOOR_TARGET_AVX2 inline __m256i LumaWords(__m256i bytes) { return _mm256_and_si256(bytes, _mm256_set1_epi16(0xFF)); }
PIXMOOR_TARGET_AVX2 inline __m256i ChromaWords(__m256i bytes) { return _mm256_srli_epi16(bytes, 8); }

// R, G, B of 16 pixels, one 16-bit lane each, before saturation.
struct ChannelWords {
    __m256i r, g, b;
};

// Saturated bytes of 32 pixels in pixel order from two sets of 16.
PIXMOOR_TARGET_AVX2 inline __m256i Saturated(__m256i first, __m256i second) {
    return _mm256_permute4x64_epi64(_mm256_packus_epi16(first, second), 0xD8);
}

// 32 pixels (64 source bytes) a step while whole steps fit; returns the
// pixels done.
template <ChannelWords (*Pixels16)(const uint8_t*)>
PIXMOOR_TARGET_AVX2 inline int32_t Packed422Steps(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~31;
    for (int32_t x = 0; x < whole; x += 32) {
        const ChannelWords a = Pixels16(in + 2 * static_cast<intptr_t>(x));
        const ChannelWords b = Pixels16(in + 2 * static_cast<intptr_t>(x) + 32);
        StoreRgb32(out + 3 * static_cast<intptr_t>(x), Saturated(a.r, b.r), Saturated(a.g, b.g), Saturated(a.b, b.b));
    }
    return whole;
}

}  // namespace pixmoor::colour::avx2

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

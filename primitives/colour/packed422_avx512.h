// Packed 4:2:2 (Y0 U Y1 V) to packed RGB in 512-bit registers: the step
// loop of the AVX-512 row kernels.  Each 32-bit lane holds one pixel pair
// from its load to its store: the kernel reckons the pair's chroma terms
// once (B's in the low and R's in the high half of one lane, G's in the
// high half of another), both pixels' Y are added, saturating packs make
// bytes, and two byte shuffles a 128-bit lane lay out its 4 pairs' 24
// bytes.  Only units whose functions carry PIXMOOR_TARGET_AVX512 include
// this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX512_H

#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <array>
#include <cstdint>

namespace pixmoor::colour::avx512 {

// The chroma terms of 16 pairs: `blueRed` holds B's term in the low and R's
// in the high half of each lane, `green` G's term in the high half.
struct PairTerms {
    __m512i blueRed, green;
};

// Per pair lane: byte 1 (U) and byte 3 (V) to the two 16-bit halves; byte
// 0 (Y0) or byte 2 (Y1) to both.
alignas(16) inline constexpr int8_t kPairChroma[16] = {1, -128, 3, -128, 5, -128, 7, -128,
                                                       9, -128, 11, -128, 13, -128, 15, -128};
alignas(16) inline constexpr int8_t kFirstLuma[16] = {0, -128, 0, -128, 4, -128, 4, -128,
                                                      8, -128, 8, -128, 12, -128, 12, -128};
alignas(16) inline constexpr int8_t kSecondLuma[16] = {2, -128, 2, -128, 6, -128, 6, -128,
                                                       10, -128, 10, -128, 14, -128, 14, -128};

PIXMOOR_TARGET_AVX512 inline __m512i Lanes(const int8_t* m) {
    return _mm512_broadcast_i32x4(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// U - 128 and V - 128 of 16 pairs in the low and high halves of their lanes.
PIXMOOR_TARGET_AVX512 inline __m512i CentredPairChroma(__m512i bytes) {
    return _mm512_sub_epi16(_mm512_shuffle_epi8(bytes, Lanes(kPairChroma)), _mm512_set1_epi16(128));
}

// The byte shuffles that lay out 4 pairs (24 output bytes, R G B of the
// first pixel and then of the second) in two halves of 12 bytes, from
//   BR = bytes B0 R0 of pairs 0-3, then B1 R1 of pairs 0-3;
//   GG = bytes - G0 of pairs 0-3, then - G1 of pairs 0-3;
// `fromBr` and `fromGg` are the shuffles of each, `takeGg` the bytes taken
// from the second.
struct PairLayout {
    std::array<int8_t, 16> fromBr[2];
    std::array<int8_t, 16> fromGg[2];
    uint16_t takeGg;
};

constexpr PairLayout MakePairLayout() {
    PairLayout t{};
    for (int half = 0; half < 2; ++half)
        for (int o = 0; o < 16; ++o) {
            t.fromBr[half][o] = -128;
            t.fromGg[half][o] = -128;
        }
    for (int o = 0; o < 12; ++o) {
        const int i = o / 6, k = o % 6;  // pair within the half, byte of the pair
        for (int half = 0; half < 2; ++half) {
            const int pair = 2 * half + i;
            const int second = k >= 3 ? 8 : 0;  // the second pixel's bytes follow at 8
            switch (k % 3) {
                case 0: t.fromBr[half][o] = static_cast<int8_t>(second + 2 * pair + 1); break;  // R
                case 1: t.fromGg[half][o] = static_cast<int8_t>(second + 2 * pair + 1); break;  // G
                default: t.fromBr[half][o] = static_cast<int8_t>(second + 2 * pair); break;     // B
            }
        }
        if (k % 3 == 1) t.takeGg = static_cast<uint16_t>(t.takeGg | (1u << o));
    }
    return t;
}

alignas(16) inline constexpr PairLayout kPairLayout = MakePairLayout();

// Bytes of one half of each lane's 4 pairs: its 12 bytes first.
PIXMOOR_TARGET_AVX512 inline __m512i LayOut(__m512i br, __m512i gg, int half) {
    const __mmask64 take = 0x0001000100010001ull * kPairLayout.takeGg;
    return _mm512_mask_shuffle_epi8(_mm512_shuffle_epi8(br, Lanes(kPairLayout.fromBr[half].data())), take, gg,
                                    Lanes(kPairLayout.fromGg[half].data()));
}

// 32 pixels (64 source bytes) a step while whole steps fit; returns the
// pixels done.  `Terms` gives the chroma terms of the 16 pairs in 64 bytes.
template <PairTerms (*Terms)(__m512i bytes)>
PIXMOOR_TARGET_AVX512 inline int32_t Packed422Steps(const uint8_t* in, uint8_t* out, int32_t count) {
    // Output order: the 12 bytes of half 0 and then of half 1 of each lane
    // (32-bit lanes 0-2 of a lane of the first register, 16 and up the
    // second).
    const __m512i firstPick = _mm512_setr_epi32(0, 1, 2, 16, 17, 18, 4, 5, 6, 20, 21, 22, 8, 9, 10, 24);
    const __m512i secondPick = _mm512_setr_epi32(25, 26, 12, 13, 14, 28, 29, 30, 0, 0, 0, 0, 0, 0, 0, 0);
    const int32_t whole = count & ~31;
    for (int32_t x = 0; x < whole; x += 32) {
        const __m512i bytes = _mm512_loadu_si512(in + 2 * static_cast<intptr_t>(x));
        const PairTerms t = Terms(bytes);
        const __m512i y0 = _mm512_shuffle_epi8(bytes, Lanes(kFirstLuma));
        const __m512i y1 = _mm512_shuffle_epi8(bytes, Lanes(kSecondLuma));
        const __m512i br = _mm512_packus_epi16(_mm512_add_epi16(y0, t.blueRed), _mm512_add_epi16(y1, t.blueRed));
        const __m512i gg = _mm512_packus_epi16(_mm512_add_epi16(y0, t.green), _mm512_add_epi16(y1, t.green));
        const __m512i half0 = LayOut(br, gg, 0), half1 = LayOut(br, gg, 1);
        uint8_t* o = out + 3 * static_cast<intptr_t>(x);
        _mm512_storeu_si512(o, _mm512_permutex2var_epi32(half0, firstPick, half1));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(o + 64),
                            _mm512_castsi512_si256(_mm512_permutex2var_epi32(half0, secondPick, half1)));
    }
    return whole;
}

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

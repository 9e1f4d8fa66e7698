// Packed 4:2:2 (Y0 U Y1 V) to packed RGB in 256-bit registers: the step
// loop that the AVX2 row kernels of every tier share, and the lane tables
// that the AVX-512 loop (packed422_avx512.h) shares with it.  Each 32-bit
// lane holds one pixel pair from its load to its store: the kernel reckons
// the pair's chroma terms once (B's in the low and R's in the high half of
// one lane, G's in the high half of another), both pixels' Y are added,
// saturating packs make bytes, and byte shuffles lay out each 128-bit
// lane's 4 pairs (24 output bytes) in windows of its output.  Only units
// whose functions carry PIXMOOR_TARGET_AVX2 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX2_H

#include "primitives/colour/lane_constants.h"
#include "primitives/colour/wide_terms_avx2.h"
#include "primitives/colour/yuv422_arith.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <array>
#include <cstdint>

namespace pixmoor::colour::avx2 {

// Per pair lane: byte 0 (Y0) or byte 2 (Y1) to both 16-bit halves.
alignas(16) inline constexpr int8_t kFirstLuma[16] = {0, -128, 0, -128, 4, -128, 4, -128,
                                                      8, -128, 8, -128, 12, -128, 12, -128};
alignas(16) inline constexpr int8_t kSecondLuma[16] = {2, -128, 2, -128, 6, -128, 6, -128,
                                                       10, -128, 10, -128, 14, -128, 14, -128};

// The byte shuffles that put output bytes [first, first + count) of a
// lane's 4 pairs (R G B of the first pixel, then of the second, pair by
// pair) at the start of the lane, from
//   BR = bytes B0 R0 of pairs 0-3, then B1 R1 of pairs 0-3;
//   GG = bytes - G0 of pairs 0-3, then - G1 of pairs 0-3.
// Bytes that a shuffle does not give are cleared; `takeGg` marks the bytes
// given by the GG shuffle.
struct PairWindow {
    std::array<int8_t, 16> fromBr;
    std::array<int8_t, 16> fromGg;
    uint16_t takeGg;
};

constexpr PairWindow MakePairWindow(int first, int count) {
    PairWindow t{};
    for (int o = 0; o < 16; ++o) {
        t.fromBr[o] = -128;
        t.fromGg[o] = -128;
    }
    for (int o = 0; o < count; ++o) {
        const int b = first + o;
        const int pair = b / 6, k = b % 6;
        const int8_t at = static_cast<int8_t>((k >= 3 ? 8 : 0) + 2 * pair);  // the second pixel's bytes follow at 8
        switch (k % 3) {
            case 0: t.fromBr[o] = static_cast<int8_t>(at + 1); break;  // R
            case 1:
                t.fromGg[o] = static_cast<int8_t>(at + 1);  // G
                t.takeGg = static_cast<uint16_t>(t.takeGg | (1u << o));
                break;
            default: t.fromBr[o] = at; break;  // B
        }
    }
    return t;
}

// AVX2 windows: bytes 0-15 and 8-23, stored overlapping.
alignas(16) inline constexpr PairWindow kHeadWindow = MakePairWindow(0, 16);
alignas(16) inline constexpr PairWindow kTailWindow = MakePairWindow(8, 16);

PIXMOOR_TARGET_AVX2 inline __m256i Lanes(const int8_t* m) {
    return _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// scale (U - 128) and scale (V - 128) of 8 pairs in the low and high halves
// of their lanes (scale up to 8): U and V picked and scaled by one
// multiply-add.
PIXMOOR_TARGET_AVX2 inline __m256i CentredPairChroma(__m256i bytes, int scale) {
    return _mm256_sub_epi16(_mm256_maddubs_epi16(bytes, _mm256_set1_epi32(ByteWeights(0, scale, 0, scale))),
                            _mm256_set1_epi16(static_cast<int16_t>(128 * scale)));
}

// The narrow main-loop factors of a6 and w7 against (16 du, 16 dv) in the
// low and high halves of a lane: B's and R's; G's two.
static_assert(yuv422::kInverse.ru == 0, "R takes no U term in these kernels");
constexpr int32_t kNarrowBlueRed = LanePair(yuv422::kInverse.bu, yuv422::kInverse.rv);
constexpr int32_t kNarrowGreen = LanePair(yuv422::kInverse.gu, yuv422::kInverse.gv);

// The chroma terms of 8 pairs: `blueRed` holds B's term in the low and R's
// in the high half of each lane, `green` G's term in the high half.
struct PairTerms {
    __m256i blueRed, green;
};

PIXMOOR_TARGET_AVX2 inline __m256i Window(__m256i br, __m256i gg, const PairWindow& w) {
    return _mm256_or_si256(_mm256_shuffle_epi8(br, Lanes(w.fromBr.data())), _mm256_shuffle_epi8(gg, Lanes(w.fromGg.data())));
}

// 16 pixels (32 source bytes) a step while whole steps fit; returns the
// pixels done.  `Terms` gives the chroma terms of the 8 pairs in 32 bytes.
template <PairTerms (*Terms)(__m256i bytes)>
PIXMOOR_TARGET_AVX2 inline int32_t Packed422Steps(const uint8_t* in, uint8_t* out, int32_t count) {
    const int32_t whole = count & ~15;
    for (int32_t x = 0; x < whole; x += 16) {
        const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in + 2 * static_cast<intptr_t>(x)));
        const PairTerms t = Terms(bytes);
        const __m256i y0 = _mm256_shuffle_epi8(bytes, Lanes(kFirstLuma));
        const __m256i y1 = _mm256_shuffle_epi8(bytes, Lanes(kSecondLuma));
        const __m256i br = _mm256_packus_epi16(_mm256_add_epi16(y0, t.blueRed), _mm256_add_epi16(y1, t.blueRed));
        const __m256i gg = _mm256_packus_epi16(_mm256_add_epi16(y0, t.green), _mm256_add_epi16(y1, t.green));
        const __m256i head = Window(br, gg, kHeadWindow), tail = Window(br, gg, kTailWindow);
        uint8_t* o = out + 3 * static_cast<intptr_t>(x);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o), _mm256_castsi256_si128(head));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o + 8), _mm256_castsi256_si128(tail));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o + 24), _mm256_extracti128_si256(head, 1));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o + 32), _mm256_extracti128_si256(tail, 1));
    }
    return whole;
}

}  // namespace pixmoor::colour::avx2

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

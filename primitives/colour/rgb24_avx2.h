// Packed RGB (3 bytes a pixel) in and out of 256-bit registers, for the
// AVX2 row kernels.  Only units whose functions carry PIXMOOR_TARGET_AVX2
// include this header; every function here carries it too.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB24_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB24_AVX2_H

#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx2 {

// Byte shuffles that spread 16 R (G, B) bytes of a 128-bit lane over the 48
// bytes of 16 packed pixels: output register m, byte i is output byte
// k = 16 m + i, which is channel k % 3 of pixel k / 3.  -128 clears a byte.
struct InterleaveMasks {
    int8_t bytes[3][3][16];  // [channel][output register][byte]
};

constexpr InterleaveMasks MakeInterleaveMasks() {
    InterleaveMasks t{};
    for (int c = 0; c < 3; ++c)
        for (int m = 0; m < 3; ++m)
            for (int i = 0; i < 16; ++i) {
                const int k = 16 * m + i;
                t.bytes[c][m][i] = static_cast<int8_t>(k % 3 == c ? k / 3 : -128);
            }
    return t;
}

inline constexpr InterleaveMasks kInterleave = MakeInterleaveMasks();

PIXMOOR_TARGET_AVX2 inline __m256i Mask(const int8_t (&m)[16]) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(m)));
}

// One output register of the interleave: the three channels' shares of it.
PIXMOOR_TARGET_AVX2 inline __m256i InterleavePart(__m256i r, __m256i g, __m256i b, int m) {
    return _mm256_or_si256(
        _mm256_or_si256(_mm256_shuffle_epi8(r, Mask(kInterleave.bytes[0][m])),
                        _mm256_shuffle_epi8(g, Mask(kInterleave.bytes[1][m]))),
        _mm256_shuffle_epi8(b, Mask(kInterleave.bytes[2][m])));
}

PIXMOOR_TARGET_AVX2 inline void Store32(uint8_t* p, __m256i v) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
}

// Writes 32 pixels (96 bytes) from their R, G, B bytes in pixel order.
PIXMOOR_TARGET_AVX2 inline void StoreRgb32(uint8_t* p, __m256i r, __m256i g, __m256i b) {
    // Each lane makes the 48 bytes of its own 16 pixels.
    const __m256i o0 = InterleavePart(r, g, b, 0);
    const __m256i o1 = InterleavePart(r, g, b, 1);
    const __m256i o2 = InterleavePart(r, g, b, 2);
    Store32(p, _mm256_permute2x128_si256(o0, o1, 0x20));
    Store32(p + 32, _mm256_permute2x128_si256(o2, o0, 0x30));
    Store32(p + 64, _mm256_permute2x128_si256(o1, o2, 0x31));
}

// Two 16-byte loads into the lanes of one register.
PIXMOOR_TARGET_AVX2 inline __m256i LoadLanes(const uint8_t* low, const uint8_t* high) {
    return _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(low))),
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(high)), 1);
}

// Byte shuffles that take 4 packed pixels starting at byte `offset` of a
// lane to one 32-bit lane each: (R, B) as 16-bit halves, or (G, G).
struct SpreadMasks {
    int8_t rb[2][16];  // [offset 0 or 4][byte]
    int8_t gg[2][16];
};

constexpr SpreadMasks MakeSpreadMasks() {
    SpreadMasks t{};
    for (int o = 0; o < 2; ++o)
        for (int k = 0; k < 4; ++k) {
            const int at = 4 * o + 3 * k;
            const int8_t rb[4] = {static_cast<int8_t>(at), -128, static_cast<int8_t>(at + 2), -128};
            const int8_t gg[4] = {static_cast<int8_t>(at + 1), -128, static_cast<int8_t>(at + 1), -128};
            for (int i = 0; i < 4; ++i) {
                t.rb[o][4 * k + i] = rb[i];
                t.gg[o][4 * k + i] = gg[i];
            }
        }
    return t;
}

inline constexpr SpreadMasks kSpread = MakeSpreadMasks();

PIXMOOR_TARGET_AVX2 inline __m256i LaneMasks(const int8_t (&low)[16], const int8_t (&high)[16]) {
    return _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(low))),
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(high)), 1);
}

// Eight packed pixels, one per 32-bit lane: R in the low and B in the high
// 16 bits, and G in both halves.
struct RbGg {
    __m256i rb, gg;
};

// The 16 pixels of the 48 bytes at p, reading no byte past them: `even`
// holds pixels 0-3 and 8-11 in its two lanes, `odd` pixels 4-7 and 12-15.
// That order lets lane-wise packs and horizontal adds of the two come out
// in pixel order.
PIXMOOR_TARGET_AVX2 inline void LoadRgb16(const uint8_t* p, RbGg& even, RbGg& odd) {
    const __m256i rb0 = LaneMasks(kSpread.rb[0], kSpread.rb[0]);
    const __m256i gg0 = LaneMasks(kSpread.gg[0], kSpread.gg[0]);
    const __m256i rb4 = LaneMasks(kSpread.rb[0], kSpread.rb[1]);
    const __m256i gg4 = LaneMasks(kSpread.gg[0], kSpread.gg[1]);
    const __m256i a = LoadLanes(p, p + 24);       // pixels 0-3 | 8-11
    const __m256i b = LoadLanes(p + 12, p + 32);  // pixels 4-7 | (4 bytes on) 12-15
    even = RbGg{_mm256_shuffle_epi8(a, rb0), _mm256_shuffle_epi8(a, gg0)};
    odd = RbGg{_mm256_shuffle_epi8(b, rb4), _mm256_shuffle_epi8(b, gg4)};
}

// 16 pixels of each of two lines: the 8 blocks (2 by 2) of one step of the
// forward 4:2:0 kernels, each line in the even/odd order of LoadRgb16.
struct TwoLines16 {
    RbGg topEven, topOdd, bottomEven, bottomOdd;
};

PIXMOOR_TARGET_AVX2 inline TwoLines16 LoadTwoLines16(const uint8_t* top, const uint8_t* bottom) {
    TwoLines16 l;
    LoadRgb16(top, l.topEven, l.topOdd);
    LoadRgb16(bottom, l.bottomEven, l.bottomOdd);
    return l;
}

// The sums over the 8 blocks (2 by 2) of 16 pixels of two lines, from
// 32-bit pixel lanes in the even/odd order of LoadRgb16: the horizontal add
// comes out in block order.
PIXMOOR_TARGET_AVX2 inline __m256i BlockSum(__m256i topEven, __m256i bottomEven, __m256i topOdd,
                                            __m256i bottomOdd) {
    return _mm256_hadd_epi32(_mm256_add_epi32(topEven, bottomEven), _mm256_add_epi32(topOdd, bottomOdd));
}

// Bytes of 16 pixels from 32-bit lanes in that even/odd order, each value
// saturated to 0..255.
PIXMOOR_TARGET_AVX2 inline __m128i PixelBytes(__m256i even, __m256i odd) {
    const __m256i words = _mm256_packs_epi32(even, odd);
    return _mm_packus_epi16(_mm256_castsi256_si128(words), _mm256_extracti128_si256(words, 1));
}

// U and V of 8 blocks from 16-bit lanes u0-3 v0-3 | u4-7 v4-7 (a packs of
// 32-bit U and V lanes): the 8 U bytes, then the 8 V bytes, saturated.
PIXMOOR_TARGET_AVX2 inline __m128i ChromaBytes(__m256i uvWords) {
    const __m256i bytes = _mm256_packus_epi16(uvWords, _mm256_setzero_si256());
    return _mm_unpacklo_epi32(_mm256_castsi256_si128(bytes), _mm256_extracti128_si256(bytes, 1));
}

// Byte shuffles that copy the low (high) 16-bit half of every 32-bit lane
// into both halves.
alignas(16) inline constexpr int8_t kLowHalfToBoth[16] = {0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13};
alignas(16) inline constexpr int8_t kHighHalfToBoth[16] = {2, 3, 2, 3, 6, 7, 6, 7, 10, 11, 10, 11, 14, 15, 14, 15};

// After packing (V, U) words of 4 blocks: the 4 U bytes, then the 4 V bytes.
alignas(16) inline constexpr int8_t kUThenV[16] = {1, 3, 5, 7, 0, 2, 4, 6, -128, -128, -128, -128, -128, -128, -128, -128};

// Stores the bytes of 16 pixels whose values are 32-bit sums shifted right
// by `shift`.
PIXMOOR_TARGET_AVX2 inline void StoreShifted(uint8_t* p, __m256i even, __m256i odd, int shift) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p),
                     PixelBytes(_mm256_srai_epi32(even, shift), _mm256_srai_epi32(odd, shift)));
}

// U and V bytes of 8 blocks from (V, U) 16-bit lanes in block order, each
// saturated: the 8 U bytes, then the 8 V bytes.
PIXMOOR_TARGET_AVX2 inline __m128i ChromaWordBytes(__m256i vu) {
    const __m256i bytes = _mm256_shuffle_epi8(_mm256_packus_epi16(vu, vu), Mask(kUThenV));
    return _mm_unpacklo_epi32(_mm256_castsi256_si128(bytes), _mm256_extracti128_si256(bytes, 1));
}

PIXMOOR_TARGET_AVX2 inline void StoreChroma(uint8_t* u, uint8_t* v, __m128i uv) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(u), uv);
    // The high half through an unaligned 8-byte store: a chroma line has
    // any alignment, which a double store may not assume.
    _mm_storel_epi64(reinterpret_cast<__m128i*>(v), _mm_unpackhi_epi64(uv, uv));
}

}  // namespace pixmoor::colour::avx2

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

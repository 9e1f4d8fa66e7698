// Packed RGB (3 bytes a pixel) in and out of 512-bit registers, for the
// AVX-512 row kernels.  Out: from channel words, packs and masked byte
// shuffles in each 128-bit lane, then the 16-byte pieces put in output
// order.  In: 4 pixels
// a 128-bit lane, one a 32-bit lane as (R, B) and (G, G) 16-bit halves.
// Only units whose functions carry PIXMOOR_TARGET_AVX512 include this
// header; every function here carries it too.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB24_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB24_AVX512_H

#include "primitives/colour/rgb24_avx2.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <array>
#include <cstdint>

namespace pixmoor::colour::avx512 {

PIXMOOR_TARGET_AVX512 inline __m512i Mask(const int8_t (&t)[16]) {
    return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t)));
}

// 16-bit values of the R, G, B channels of 64 pixels as the byte unpacks
// lay them out: lane k of a Low register holds pixels 16 k to 16 k + 7, of
// a High one pixels 16 k + 8 to 16 k + 15.
struct ChannelWords {
    __m512i rLow, rHigh, gLow, gHigh, bLow, bHigh;
};

// The unsigned saturating packs put R and G of a lane's first 8 pixels in
// one register ("RG low": R in bytes 0-7, G in 8-15), of its last 8 in
// another ("RG high"), and B of all 16 in a third.  Each of the three
// 16-byte pieces of a lane's 48 output bytes is then one byte shuffle of
// one of them, with the bytes of the others shuffled over it under a
// mask; one index table a piece serves all three sources.
struct PieceTables {
    int8_t index[3][16];
    uint16_t rgHigh[3], blue[3];  // bytes taken from RG high, from B
};

constexpr PieceTables MakePieceTables() {
    PieceTables t{};
    for (int q = 0; q < 3; ++q)
        for (int i = 0; i < 16; ++i) {
            const int o = 16 * q + i, pixel = o / 3, channel = o % 3;
            if (channel == 2) {
                t.index[q][i] = static_cast<int8_t>(pixel);
                t.blue[q] = static_cast<uint16_t>(t.blue[q] | 1u << i);
            } else {
                t.index[q][i] = static_cast<int8_t>(8 * channel + pixel % 8);
                if (pixel >= 8) t.rgHigh[q] = static_cast<uint16_t>(t.rgHigh[q] | 1u << i);
            }
        }
    return t;
}

alignas(16) inline constexpr PieceTables kPieces = MakePieceTables();

// A 16-bit lane mask repeated over the four 128-bit lanes.
constexpr __mmask64 EveryLane(uint16_t m) { return 0x0001000100010001ull * m; }

// Piece q of each lane: RG low (where it has bytes) under RG high (where it
// has bytes) under B.
PIXMOOR_TARGET_AVX512 inline __m512i Piece(__m512i rgLow, __m512i rgHigh, __m512i b, int q) {
    const __m512i index = Mask(kPieces.index[q]);
    const bool hasLow = (kPieces.rgHigh[q] | kPieces.blue[q]) != 0xFFFF;
    __m512i piece = _mm512_shuffle_epi8(hasLow ? rgLow : rgHigh, index);
    if (hasLow && kPieces.rgHigh[q] != 0)
        piece = _mm512_mask_shuffle_epi8(piece, EveryLane(kPieces.rgHigh[q]), rgHigh, index);
    return _mm512_mask_shuffle_epi8(piece, EveryLane(kPieces.blue[q]), b, index);
}

// Writes 192 bytes from o0, o1, o2, whose lane k holds output bytes 48 k to
// 48 k + 47 (16 each, in that order).
PIXMOOR_TARGET_AVX512 inline void StoreLanePieces(uint8_t* p, __m512i o0, __m512i o1, __m512i o2) {
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

// Writes 64 pixels (192 bytes), each channel clamped to 0..255.
PIXMOOR_TARGET_AVX512 inline void StoreRgbWords64(uint8_t* p, const ChannelWords& w) {
    const __m512i rgLow = _mm512_packus_epi16(w.rLow, w.gLow);
    const __m512i rgHigh = _mm512_packus_epi16(w.rHigh, w.gHigh);
    const __m512i b = _mm512_packus_epi16(w.bLow, w.bHigh);
    StoreLanePieces(p, Piece(rgLow, rgHigh, b, 0), Piece(rgLow, rgHigh, b, 1), Piece(rgLow, rgHigh, b, 2));
}

// ---- In: packed RGB to one pixel a 32-bit lane, for the forward kernels.
//
// Each 128-bit lane takes 4 pixels in the order 0, 2, 1, 3, so that the
// sums of horizontal pairs come from 64-bit unpacks (which cost less than
// permutes across the whole register); the stores put the results back in
// pixel order.

// 16 packed pixels (48 bytes), one a 32-bit lane: (R, B) halves and (G, G).
struct Pixels {
    __m512i rb, gg;
};

// Byte shuffles taking the 4 pixels at the start of a lane to their 32-bit
// lanes, even pixels first: (R, B) halves, or (G, G).
struct EvenOddSpread {
    int8_t rb[16];
    int8_t gg[16];
};

constexpr EvenOddSpread MakeEvenOddSpread() {
    constexpr int kPixelOfSlot[4] = {0, 2, 1, 3};
    EvenOddSpread t{};
    for (int slot = 0; slot < 4; ++slot) {
        const int8_t at = static_cast<int8_t>(3 * kPixelOfSlot[slot]);
        const int8_t rb[4] = {at, -128, static_cast<int8_t>(at + 2), -128};
        const int8_t gg[4] = {static_cast<int8_t>(at + 1), -128, static_cast<int8_t>(at + 1), -128};
        for (int i = 0; i < 4; ++i) {
            t.rb[4 * slot + i] = rb[i];
            t.gg[4 * slot + i] = gg[i];
        }
    }
    return t;
}

alignas(16) inline constexpr EvenOddSpread kEvenOddSpread = MakeEvenOddSpread();

// The 48 bytes at p in a register, by a plain 64-byte load where the 16
// bytes after them may be read, or by a masked one.
PIXMOOR_TARGET_AVX512 inline __m512i Load48(const uint8_t* p, bool mayReadOn) {
    return mayReadOn ? _mm512_loadu_si512(p) : _mm512_maskz_loadu_epi8(0xFFFFFFFFFFFFull, p);
}

PIXMOOR_TARGET_AVX512 inline Pixels Spread(__m512i bytes48) {
    // Lane k gets the 12 bytes of pixels 4k to 4k+3 at its start.
    const __m512i toLanes = _mm512_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 9, 9, 10, 11, 11);
    const __m512i bytes = _mm512_permutexvar_epi32(toLanes, bytes48);
    return Pixels{_mm512_shuffle_epi8(bytes, Mask(kEvenOddSpread.rb)), _mm512_shuffle_epi8(bytes, Mask(kEvenOddSpread.gg))};
}

// Sums of horizontal pixel pairs over 32 pixel lanes (first, second).
// 128-bit lane k holds pairs 2k and 2k+1 of the first and then of the
// second register: pairs 2k, 2k+1, 2k+8, 2k+9.
PIXMOOR_TARGET_AVX512 inline __m512i PairSums(__m512i first, __m512i second) {
    return _mm512_add_epi32(_mm512_unpacklo_epi64(first, second), _mm512_unpackhi_epi64(first, second));
}

// The word permute that takes 16-bit half `half` (0 low, 1 high) of each
// 32-bit lane of two registers of 16 pixels (even-odd order in each
// 128-bit lane), in pixel order: 32 words.
constexpr std::array<int16_t, 32> MakeHalvesInPixelOrder(int half) {
    constexpr int kSlotOfPixel[4] = {0, 2, 1, 3};
    std::array<int16_t, 32> t{};
    for (int p = 0; p < 32; ++p) {
        const int reg = p / 16, q = p % 16;
        t[p] = static_cast<int16_t>(32 * reg + 2 * (4 * (q / 4) + kSlotOfPixel[q % 4]) + half);
    }
    return t;
}

alignas(64) inline constexpr std::array<int16_t, 32> kLowHalves = MakeHalvesInPixelOrder(0);
alignas(64) inline constexpr std::array<int16_t, 32> kHighHalves = MakeHalvesInPixelOrder(1);

// Half `half` of each 32-bit lane of first and then second, in pixel order,
// as 32 words.
PIXMOOR_TARGET_AVX512 inline __m512i HalvesInPixelOrder(__m512i first, __m512i second, int half) {
    const __m512i pick = _mm512_load_si512((half ? kHighHalves : kLowHalves).data());
    return _mm512_permutex2var_epi16(first, pick, second);
}

// Stores the low bytes of 32 words.
PIXMOOR_TARGET_AVX512 inline void StoreLowBytes(uint8_t* p, __m512i words) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm512_cvtepi16_epi8(words));
}

// 32 pixels of each of two lines, 16 a register.  `more` says that bytes
// after the 96 of each line may be read (a next step follows on the same
// lines).
struct TwoLines32 {
    Pixels top0, top1, bottom0, bottom1;
};

PIXMOOR_TARGET_AVX512 inline TwoLines32 LoadTwoLines32(const uint8_t* top, const uint8_t* bottom, bool more) {
    return TwoLines32{Spread(Load48(top, true)), Spread(Load48(top + 48, more)), Spread(Load48(bottom, true)),
                      Spread(Load48(bottom + 48, more))};
}

// After packing (V, U) words of the 4 pairs of a lane (a to d): V of a and
// b, U of a and b, V of c and d, U of c and d, as 16-bit units.
alignas(16) inline constexpr int8_t kChromaUnits[16] = {0, 2, 1, 3, 4, 6, 5, 7, -128, -128, -128, -128, -128, -128, -128, -128};

// Stores 16 V and 16 U samples of pairs in PairSums order, from 16-bit
// lanes holding V in the low and U in the high half of each 32-bit lane,
// each saturated to a byte.
PIXMOOR_TARGET_AVX512 inline void StoreChromaWords(uint8_t* u, uint8_t* v, __m512i vu) {
    const __m512i units = _mm512_shuffle_epi8(_mm512_packus_epi16(vu, vu), Mask(kChromaUnits));
    // Lane k holds pairs 2k, 2k+1 in its units 0 (V) and 1 (U) and pairs
    // 2k+8, 2k+9 in its units 2 and 3; lanes are 8 units apart.
    const __m512i order = _mm512_setr_epi32(0x00080000, 0x00180010, 0x000A0002, 0x001A0012,
                                            0x00090001, 0x00190011, 0x000B0003, 0x001B0013,
                                            0, 0, 0, 0, 0, 0, 0, 0);
    const __m256i vThenU = _mm512_castsi512_si256(_mm512_permutexvar_epi16(order, units));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(v), _mm256_castsi256_si128(vThenU));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(u), _mm256_extracti128_si256(vThenU, 1));
}

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

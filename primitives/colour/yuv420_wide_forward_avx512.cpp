// The px and m6 forward 4:2:0 row kernel from packed RGB with AVX-512: 16
// pixel pairs (32 pixels of each line) a step in 32-bit lanes, the same
// integer arithmetic as the plain kernel and so the same bytes.  The luma
// and the channel sums are formed as in the AVX2 form
// (yuv420_wide_forward_avx2.cpp); here each 128-bit lane takes 4 pixels, so
// 16 pixels fill one register in pixel order, and a block's sum is the sum
// of its even and odd pixel lanes picked from two registers.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

// GCC 12's AVX-512 intrinsics start from an undefined register and warn of
// it; no value here depends on one.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour::fast {
namespace {

// 16 packed pixels (48 bytes), one a 32-bit lane: (R, B) halves and (G, G).
struct Pixels {
    __m512i rb, gg;
};

// The 48 bytes at p in a register, by a plain 64-byte load where the 16
// bytes after them may be read, or by a masked one.
PIXMOOR_TARGET_AVX512 __m512i Load48(const uint8_t* p, bool mayReadOn) {
    return mayReadOn ? _mm512_loadu_si512(p) : _mm512_maskz_loadu_epi8(0xFFFFFFFFFFFFull, p);
}

PIXMOOR_TARGET_AVX512 Pixels Spread(__m512i bytes48) {
    // Lane k gets the 12 bytes of pixels 4k to 4k+3 at its start.
    const __m512i toLanes = _mm512_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 9, 9, 10, 11, 11);
    const __m512i bytes = _mm512_permutexvar_epi32(toLanes, bytes48);
    const __m512i rb = _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(avx2::kSpread.rb[0])));
    const __m512i gg = _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(avx2::kSpread.gg[0])));
    return Pixels{_mm512_shuffle_epi8(bytes, rb), _mm512_shuffle_epi8(bytes, gg)};
}

PIXMOOR_TARGET_AVX512 __m512i Luma(const Pixels& p) {
    const __m512i wRB = _mm512_set1_epi32((wide::kWeightB << 16) | wide::kWeightR);
    const __m512i wGG = _mm512_set1_epi32(((wide::kWeightG / 2) << 16) | (wide::kWeightG / 2));
    return _mm512_add_epi32(_mm512_madd_epi16(p.rb, wRB), _mm512_madd_epi16(p.gg, wGG));
}

// Sums of horizontal pixel pairs over 32 pixel lanes (first, second), in
// pair order.
PIXMOOR_TARGET_AVX512 __m512i PairSums(__m512i first, __m512i second) {
    const __m512i even = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    const __m512i odd = _mm512_setr_epi32(1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
    return _mm512_add_epi32(_mm512_permutex2var_epi32(first, even, second),
                            _mm512_permutex2var_epi32(first, odd, second));
}

// Byte 0 (or 2) of each 32-bit lane gathered into the first 4 bytes of its
// 128-bit lane; the rest cleared.
PIXMOOR_TARGET_AVX512 __m512i GatherByte(__m512i x, int byte) {
    const char b = static_cast<char>(byte);
    return _mm512_shuffle_epi8(x, _mm512_broadcast_i32x4(_mm_setr_epi8(b, static_cast<char>(b + 4),
                                                                       static_cast<char>(b + 8),
                                                                       static_cast<char>(b + 12), -128, -128,
                                                                       -128, -128, -128, -128, -128, -128,
                                                                       -128, -128, -128, -128)));
}

// The first 32-bit lanes of each 128-bit lane of a and then of b: 32 bytes
// in order after GatherByte.
PIXMOOR_TARGET_AVX512 __m256i FirstLanes(__m512i a, __m512i b) {
    const __m512i pick = _mm512_setr_epi32(0, 4, 8, 12, 16, 20, 24, 28, 0, 0, 0, 0, 0, 0, 0, 0);
    return _mm512_castsi512_si256(_mm512_permutex2var_epi32(a, pick, b));
}

// Y bytes of 32 pixels: Y is byte 2 of a luma below 2^24.
PIXMOOR_TARGET_AVX512 void StoreLuma(uint8_t* y, __m512i first, __m512i second) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(y), FirstLanes(GatherByte(first, 2), GatherByte(second, 2)));
}

// ((channel sum << 16) - luma sum + bias) >> 16, with the luma sum already
// lowered by the bias.
PIXMOOR_TARGET_AVX512 __m512i Difference(__m512i channelSum16, __m512i lumaLessBias) {
    return _mm512_srai_epi32(_mm512_sub_epi32(channelSum16, lumaLessBias), 16);
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideToYuv420Avx512(const uint8_t* top, const uint8_t* bottom,
                                                 const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    const __m512i c128 = _mm512_set1_epi32(128);
    uint8_t* const y0 = out.y0;
    uint8_t* const y1 = out.y1;
    uint8_t* const uOut = out.u;
    uint8_t* const vOut = out.v;
    const int32_t whole = pairs & ~15;
    for (int32_t j = 0; j < whole; j += 16) {
        const intptr_t at = 6 * static_cast<intptr_t>(j);
        // Every step but the last has a next one, whose bytes may be read.
        const bool more = j + 16 < whole;
        const Pixels t0 = Spread(Load48(top + at, true)), t1 = Spread(Load48(top + at + 48, more));
        const Pixels b0 = Spread(Load48(bottom + at, true)), b1 = Spread(Load48(bottom + at + 48, more));
        const __m512i ft0 = Luma(t0), ft1 = Luma(t1), fb0 = Luma(b0), fb1 = Luma(b1);
        StoreLuma(y0 + 2 * j, ft0, ft1);
        StoreLuma(y1 + 2 * j, fb0, fb1);

        const __m512i lumaLessBias = _mm512_sub_epi32(PairSums(_mm512_add_epi32(ft0, fb0), _mm512_add_epi32(ft1, fb1)),
                                                      _mm512_set1_epi32(wide::kBlockBias));
        // R and B sums side by side: a block's R sum stays below 1024, so
        // it never carries into the B half of its 32-bit lane.
        const __m512i rb = PairSums(_mm512_add_epi32(t0.rb, b0.rb), _mm512_add_epi32(t1.rb, b1.rb));
        const __m512i sumR16 = _mm512_slli_epi32(rb, 16);
        const __m512i sumB16 = _mm512_and_si512(rb, _mm512_set1_epi32(static_cast<int32_t>(0xFFFF0000u)));
        // U is kept as the byte it is (its low byte), V is clamped.
        const __m512i u = _mm512_add_epi32(
            _mm512_srai_epi32(_mm512_mullo_epi32(Difference(sumB16, lumaLessBias), _mm512_set1_epi32(wide::kFactorU)), 18),
            c128);
        const __m512i v = _mm512_add_epi32(
            _mm512_srai_epi32(_mm512_mullo_epi32(Difference(sumR16, lumaLessBias), _mm512_set1_epi32(wide::kFactorV)), 18),
            c128);
        const __m512i vClamped = _mm512_min_epi32(_mm512_max_epi32(v, _mm512_setzero_si512()), _mm512_set1_epi32(255));
        const __m256i uv = FirstLanes(GatherByte(u, 0), GatherByte(vClamped, 0));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(uOut + j), _mm256_castsi256_si128(uv));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(vOut + j), _mm256_extracti128_si256(uv, 1));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS

// Packed 4:2:2 (Y0 U Y1 V) to packed RGB in 512-bit registers: the step
// loop of the AVX-512 row kernels, the lane work of packed422_avx2.h on
// 16 pairs a register.  Only units whose functions carry
// PIXMOOR_TARGET_AVX512 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_PACKED422_AVX512_H

#include "primitives/colour/packed422_avx2.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <cstdint>

namespace pixmoor::colour::avx512 {

// The chroma terms of 16 pairs: `blueRed` holds B's term in the low and R's
// in the high half of each lane, `green` G's term in the high half.
struct PairTerms {
    __m512i blueRed, green;
};

PIXMOOR_TARGET_AVX512 inline __m512i Lanes(const int8_t* m) {
    return _mm512_broadcast_i32x4(_mm_load_si128(reinterpret_cast<const __m128i*>(m)));
}

// scale (U - 128) and scale (V - 128) of 16 pairs, as avx2::CentredPairChroma.
PIXMOOR_TARGET_AVX512 inline __m512i CentredPairChroma(__m512i bytes, int scale) {
    return _mm512_sub_epi16(_mm512_maddubs_epi16(bytes, _mm512_set1_epi32(avx2::ByteWeights(0, scale, 0, scale))),
                            _mm512_set1_epi16(static_cast<int16_t>(128 * scale)));
}

// AVX-512 windows: bytes 0-11 and 12-23, put together across lanes by
// permutes of 32-bit lanes.
alignas(16) inline constexpr avx2::PairWindow kFirstHalf = avx2::MakePairWindow(0, 12);
alignas(16) inline constexpr avx2::PairWindow kSecondHalf = avx2::MakePairWindow(12, 12);

PIXMOOR_TARGET_AVX512 inline __m512i Window(__m512i br, __m512i gg, const avx2::PairWindow& w) {
    const __mmask64 take = 0x0001000100010001ull * w.takeGg;
    return _mm512_mask_shuffle_epi8(_mm512_shuffle_epi8(br, Lanes(w.fromBr.data())), take, gg, Lanes(w.fromGg.data()));
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
        const __m512i y0 = _mm512_shuffle_epi8(bytes, Lanes(avx2::kFirstLuma));
        const __m512i y1 = _mm512_shuffle_epi8(bytes, Lanes(avx2::kSecondLuma));
        const __m512i br = _mm512_packus_epi16(_mm512_add_epi16(y0, t.blueRed), _mm512_add_epi16(y1, t.blueRed));
        const __m512i gg = _mm512_packus_epi16(_mm512_add_epi16(y0, t.green), _mm512_add_epi16(y1, t.green));
        const __m512i half0 = Window(br, gg, kFirstHalf), half1 = Window(br, gg, kSecondHalf);
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

// AVX-512 form of one row pair of the packed 4:2:2 to "I420" road: 32
// pixel pairs (128 bytes of each row) a step, the steps of the AVX2 form
// (see to_i420_avx2.cpp) on 512-bit vectors.
#include "colour/fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "colour/avx512_intrinsics.h"

namespace pixmoor {
namespace {

template <bool High>
PIXMOOR_TARGET_AVX512 inline __m512i ByteOfWords(__m512i v) {
    return High ? _mm512_srli_epi16(v, 8) : _mm512_and_si512(v, _mm512_set1_epi16(0x00FF));
}

// Packs the words of two vectors to bytes in their order.
PIXMOOR_TARGET_AVX512 inline __m512i PackInOrder(__m512i a, __m512i b) {
    return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), _mm512_packus_epi16(a, b));
}

PIXMOOR_TARGET_AVX512 inline __m512i FloorAverage(__m512i a, __m512i b) {
    return _mm512_sub_epi8(_mm512_avg_epu8(a, b), _mm512_and_si512(_mm512_xor_si512(a, b), _mm512_set1_epi8(1)));
}

template <bool LumaHigh>
PIXMOOR_TARGET_AVX512 int32_t SplitRowPair(const uint8_t* upper, const uint8_t* lower, uint8_t* yUpper,
                                           uint8_t* yLower, uint8_t* uOut, uint8_t* vOut, int32_t pairs) {
    if (pairs < 32) return 0;
    for (int32_t done = 0; done < pairs; done = NextBlock(done, pairs, 32)) {
        const __m512i a0 = _mm512_loadu_si512(upper + 4 * done), a1 = _mm512_loadu_si512(upper + 4 * done + 64);
        const __m512i b0 = _mm512_loadu_si512(lower + 4 * done), b1 = _mm512_loadu_si512(lower + 4 * done + 64);
        _mm512_storeu_si512(yUpper + 2 * done, PackInOrder(ByteOfWords<LumaHigh>(a0), ByteOfWords<LumaHigh>(a1)));
        _mm512_storeu_si512(yLower + 2 * done, PackInOrder(ByteOfWords<LumaHigh>(b0), ByteOfWords<LumaHigh>(b1)));
        const __m512i uv = PackInOrder(ByteOfWords<!LumaHigh>(FloorAverage(a0, b0)),
                                       ByteOfWords<!LumaHigh>(FloorAverage(a1, b1)));
        const __m512i apart = PackInOrder(ByteOfWords<false>(uv), ByteOfWords<true>(uv));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(uOut + done), _mm512_castsi512_si256(apart));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(vOut + done), _mm512_extracti64x4_epi64(apart, 1));
    }
    return pairs;
}

}  // namespace

PackedToI420RowKernel PackedToI420RowPairAvx512(bool lumaHigh) {
    return lumaHigh ? SplitRowPair<true> : SplitRowPair<false>;
}

}  // namespace pixmoor

#endif

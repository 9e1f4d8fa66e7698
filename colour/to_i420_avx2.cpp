// AVX2 form of one row pair of the packed 4:2:2 to "I420" road: sixteen
// pixel pairs (64 bytes of each row) a step.  The chroma average is the
// scalar (lower + upper) >> 1 taken on bytes: the rounding-up average less
// the low bit of the two bytes' difference, which is the floor.
#include "colour/fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

namespace pixmoor {
namespace {

PIXMOOR_TARGET_AVX2 inline __m256i Load(const uint8_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

// The wanted byte of every 16-bit word, as a word.
template <bool High>
PIXMOOR_TARGET_AVX2 inline __m256i ByteOfWords(__m256i v) {
    return High ? _mm256_srli_epi16(v, 8) : _mm256_and_si256(v, _mm256_set1_epi16(0x00FF));
}

// Packs the words of two vectors to bytes in their order (the pack works
// lane by lane, the permutation puts the four groups back in order).
PIXMOOR_TARGET_AVX2 inline __m256i PackInOrder(__m256i a, __m256i b) {
    return _mm256_permute4x64_epi64(_mm256_packus_epi16(a, b), 0xD8);
}

PIXMOOR_TARGET_AVX2 inline __m256i FloorAverage(__m256i a, __m256i b) {
    return _mm256_sub_epi8(_mm256_avg_epu8(a, b), _mm256_and_si256(_mm256_xor_si256(a, b), _mm256_set1_epi8(1)));
}

template <bool LumaHigh>
PIXMOOR_TARGET_AVX2 int32_t SplitRowPair(const uint8_t* upper, const uint8_t* lower, uint8_t* yUpper,
                                         uint8_t* yLower, uint8_t* uOut, uint8_t* vOut, int32_t pairs) {
    if (pairs < 16) return 0;
    for (int32_t done = 0; done < pairs; done = NextBlock(done, pairs, 16)) {
        const __m256i a0 = Load(upper + 4 * done), a1 = Load(upper + 4 * done + 32);
        const __m256i b0 = Load(lower + 4 * done), b1 = Load(lower + 4 * done + 32);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(yUpper + 2 * done),
                            PackInOrder(ByteOfWords<LumaHigh>(a0), ByteOfWords<LumaHigh>(a1)));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(yLower + 2 * done),
                            PackInOrder(ByteOfWords<LumaHigh>(b0), ByteOfWords<LumaHigh>(b1)));
        // U, V of pairs 0-15, one word a pair (U low), then U and V apart.
        const __m256i uv = PackInOrder(ByteOfWords<!LumaHigh>(FloorAverage(a0, b0)),
                                       ByteOfWords<!LumaHigh>(FloorAverage(a1, b1)));
        const __m256i apart = PackInOrder(ByteOfWords<false>(uv), ByteOfWords<true>(uv));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(uOut + done), _mm256_castsi256_si128(apart));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(vOut + done), _mm256_extracti128_si256(apart, 1));
    }
    return pairs;
}

}  // namespace

PackedToI420RowKernel PackedToI420RowPairAvx2(bool lumaHigh) {
    return lumaHigh ? SplitRowPair<true> : SplitRowPair<false>;
}

}  // namespace pixmoor

#endif

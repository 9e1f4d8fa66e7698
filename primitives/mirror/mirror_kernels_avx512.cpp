// Row kernels of every tier on processors with 512-bit vectors (byte and
// word lanes, and their 256-bit forms).  As with the 256-bit set, all four
// tiers share these, since a mirror only moves bytes.
//
// Pixels whose size divides 64 bytes are reversed as whole 512-bit vectors.
// To a destination, pixels of 6 and 12 bytes are reversed ten or five at a
// time by one word or double-word permute over the first 60 bytes of a
// vector, loaded and stored under a mask.  AC4 pixels are written under a byte mask that leaves
// the alpha as it is, so the destination is never read.  Pixels of 3 bytes
// take the byte-shuffled blocks of the 256-bit set (no byte permute across
// lanes is assumed).
#include "primitives/mirror/mirror_fast_kernels.h"

#if PIXMOOR_HAVE_X86_TARGETS

#define PIXMOOR_MIRROR_BLOCK_TARGET PIXMOOR_TARGET_AVX512

namespace pixmoor::mirror {
namespace {
enum BlockKind { kWholeVector, kPermuted, kShuffled };
constexpr BlockKind KindOf(int p) { return 64 % p == 0 ? kWholeVector : (p == 6 || p == 12) ? kPermuted : kShuffled; }
template <int P, int Moved, BlockKind kKind = KindOf(P)>
struct Blocks;
}  // namespace
}  // namespace pixmoor::mirror

#include "primitives/mirror/mirror_block_kernels.h"

namespace pixmoor::mirror {
namespace {

PIXMOOR_TARGET_AVX512 inline __m512i Load64(const uint8_t* p) { return _mm512_loadu_si512(p); }

// Bytes of a vector that hold the moved channels of each pixel, as a mask.
template <int P, int Moved>
constexpr uint64_t MovedBytes() {
    uint64_t mask = 0;
    for (int i = 0; i < 64; ++i)
        if (i % P < Moved) mask |= uint64_t{1} << i;
    return mask;
}

// The whole-vector permutes are taken in their zero-masking forms with every
// lane selected: the same instructions, without the undefined pass-through
// operand of the plain forms (which some compilers warn about).
constexpr __mmask8 kAll8 = 0xFF;
constexpr __mmask16 kAll16 = 0xFFFF;
constexpr __mmask32 kAll32 = 0xFFFFFFFF;
constexpr __mmask64 kAll64 = ~__mmask64{0};

// Reverses the order of the P-byte pixels of a 512-bit vector.
template <int P>
PIXMOOR_TARGET_AVX512 inline __m512i ReverseVector(__m512i v) {
    const __m512i lanesReversed = _mm512_maskz_shuffle_i64x2(kAll8, v, v, _MM_SHUFFLE(0, 1, 2, 3));
    if (P == 16) return lanesReversed;
    if (P == 8) return _mm512_maskz_permutexvar_epi64(kAll8, _mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), v);
    if (P == 4)
        return _mm512_maskz_permutexvar_epi32(
            kAll16, _mm512_setr_epi32(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0), v);
    if (P == 2)
        return _mm512_maskz_permutexvar_epi16(
            kAll32,
            _mm512_set_epi16(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24,
                             25, 26, 27, 28, 29, 30, 31),
            v);
    alignas(64) static constexpr uint8_t kBytesReversedInLane[64] = {
        15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0,
        15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    const __m512i inLane = _mm512_load_si512(kBytesReversedInLane);
    return _mm512_maskz_shuffle_epi8(kAll64, lanesReversed, inLane);
}

template <int P, int Moved>
struct Blocks<P, Moved, kWholeVector> {
    static constexpr int32_t kPixels = 64 / P;
    using Data = __m512i;
    PIXMOOR_TARGET_AVX512 static Data Load(const uint8_t* p) { return Load64(p); }
    PIXMOOR_TARGET_AVX512 static Data Reverse(Data v) { return ReverseVector<P>(v); }
    PIXMOOR_TARGET_AVX512 static void StoreMoved(uint8_t* p, Data v) {
        if (Moved == P)
            _mm512_storeu_si512(p, v);
        else
            _mm512_mask_storeu_epi8(p, MovedBytes<P, Moved>(), v);
    }
};

// Pixels of 6 bytes (three words) ten at a time, of 12 bytes (three double
// words) five at a time: 60 bytes of a vector.
template <int P, int Moved>
struct Blocks<P, Moved, kPermuted> {
    static_assert(Moved == P, "pixels of 6 and 12 bytes move whole");
    static constexpr int32_t kPixels = 60 / P;
    static constexpr int kElementBytes = P / 3;
    static constexpr int kElements = 60 / kElementBytes;
    using Data = __m512i;

    // Element e of a block of reversed pixels is element index(e) of the
    // block as loaded.
    PIXMOOR_TARGET_AVX512 static __m512i Index() {
        alignas(64) uint16_t words[32] = {};
        alignas(64) uint32_t dwords[16] = {};
        for (int e = 0; e < kElements; ++e) {
            const int source = 3 * (kPixels - 1 - e / 3) + e % 3;
            words[e] = static_cast<uint16_t>(source);
            if (e < 16) dwords[e] = static_cast<uint32_t>(source);
        }
        return kElementBytes == 2 ? _mm512_load_si512(words) : _mm512_load_si512(dwords);
    }

    PIXMOOR_TARGET_AVX512 static Data Load(const uint8_t* p) {
        if (kElementBytes == 2) return _mm512_maskz_loadu_epi16((__mmask32{1} << kElements) - 1, p);
        return _mm512_maskz_loadu_epi32(static_cast<__mmask16>((1u << kElements) - 1), p);
    }
    PIXMOOR_TARGET_AVX512 static Data Reverse(Data v) {
        if (kElementBytes == 2) return _mm512_maskz_permutexvar_epi16(kAll32, Index(), v);
        return _mm512_maskz_permutexvar_epi32(kAll16, Index(), v);
    }
    PIXMOOR_TARGET_AVX512 static void StoreMoved(uint8_t* p, Data v) {
        if (kElementBytes == 2)
            _mm512_mask_storeu_epi16(p, (__mmask32{1} << kElements) - 1, v);
        else
            _mm512_mask_storeu_epi32(p, static_cast<__mmask16>((1u << kElements) - 1), v);
    }
};

template <int P, int Moved>
struct Blocks<P, Moved, kShuffled> : ShuffledBlocks<P> {
    static_assert(Moved == P, "pixels of 3 bytes move whole");
};

// In place, the back run's masked loads would reach into the block stored
// just above them and wait for that store; the 6- and 12-byte layouts
// exchange by the byte-shuffled blocks there.
template <int P>
constexpr RowKernels PermutedKernels() {
    return RowKernels{CopyRow<P, P>, ReverseRow<P, P>, SwapRows<P, P>, ReverseSwap<P, P, ShuffledBlocks<P>>};
}

const RowKernels kAvx512Kernels[kLayoutCount] = {
    BlockKernels<1, 1>(), BlockKernels<3, 3>(),     BlockKernels<4, 3>(),     //
    BlockKernels<2, 2>(), PermutedKernels<6>(),     BlockKernels<8, 6>(),     //
    BlockKernels<4, 4>(), PermutedKernels<12>(),    BlockKernels<16, 12>(),   //
};

}  // namespace

const RowKernels* Avx512Kernels() { return kAvx512Kernels; }

}  // namespace pixmoor::mirror

#endif

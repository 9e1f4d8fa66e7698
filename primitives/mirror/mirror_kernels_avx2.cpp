// Row kernels of every tier on processors with 256-bit integer vectors.  A
// mirror only moves bytes, so all four tiers share these: they give exactly
// the bytes of each tier's own kernels, only faster.  Stores are plain
// (cached) stores: a frame of video fits the caches of such processors, and
// the next stage reads it from there.
//
// Pixels whose size divides 32 bytes (C1 of all widths, AC4 of all widths)
// are reversed as whole 256-bit vectors; AC4 merges the moved channels with
// the alpha already in place through a byte mask.  Pixels of 3, 6 and 12
// bytes are reversed in blocks of 16 pixels (P 128-bit vectors), each output
// vector gathered from the two or three input vectors it draws on by byte
// shuffles.
#include "primitives/mirror/mirror_fast_kernels.h"

#if PIXMOOR_HAVE_X86_TARGETS

#define PIXMOOR_MIRROR_BLOCK_TARGET PIXMOOR_TARGET_AVX2

namespace pixmoor::mirror {
namespace {
template <int P, int Moved, bool kWhole = (32 % P == 0)>
struct Blocks;
}  // namespace
}  // namespace pixmoor::mirror

#include "primitives/mirror/mirror_block_kernels.h"

namespace pixmoor::mirror {
namespace {

// Reverses the order of the P-byte pixels of a 256-bit vector.
template <int P>
PIXMOOR_TARGET_AVX2 inline __m256i ReverseVector(__m256i v) {
    if (P == 16) return _mm256_permute4x64_epi64(v, _MM_SHUFFLE(1, 0, 3, 2));
    if (P == 8) return _mm256_permute4x64_epi64(v, _MM_SHUFFLE(0, 1, 2, 3));
    if (P == 4) return _mm256_permutevar8x32_epi32(v, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
    const __m256i inLane = P == 1 ? _mm256_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 15, 14,
                                                     13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0)
                                  : _mm256_setr_epi8(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1, 14, 15,
                                                     12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1);
    return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(v, inLane), _MM_SHUFFLE(1, 0, 3, 2));
}

// Selects the moved bytes of every pixel: the colour channels of AC4 pixels.
template <int P, int Moved>
PIXMOOR_TARGET_AVX2 inline __m256i MovedMask() {
    alignas(32) uint8_t mask[32];
    for (int i = 0; i < 32; ++i) mask[i] = (i % P) < Moved ? 0xFF : 0x00;
    return _mm256_load_si256(reinterpret_cast<const __m256i*>(mask));
}

// 32 bytes a block.
template <int P, int Moved>
struct Blocks<P, Moved, true> {
    static constexpr int32_t kPixels = 32 / P;
    using Data = __m256i;
    PIXMOOR_TARGET_AVX2 static Data Load(const uint8_t* p) { return Load32(p); }
    PIXMOOR_TARGET_AVX2 static Data Reverse(Data v) { return ReverseVector<P>(v); }
    PIXMOOR_TARGET_AVX2 static void StoreMoved(uint8_t* p, Data v) {
        if (Moved != P) v = _mm256_blendv_epi8(Load32(p), v, MovedMask<P, Moved>());
        Store32(p, v);
    }
};

// 16 pixels a block; these layouts move whole pixels.
template <int P, int Moved>
struct Blocks<P, Moved, false> : ShuffledBlocks<P> {
    static_assert(Moved == P, "pixels of 3, 6 and 12 bytes move whole");
};

const RowKernels kAvx2Kernels[kLayoutCount] = PIXMOOR_MIRROR_BLOCK_KERNEL_TABLE;

}  // namespace

const RowKernels* Avx2Kernels() { return kAvx2Kernels; }

}  // namespace pixmoor::mirror

#endif

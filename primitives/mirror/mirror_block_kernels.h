// The four row kernels of the wide-vector sets, written once over a block
// type and compiled in each set's unit with that unit's instruction set.
//
// The including unit defines PIXMOOR_MIRROR_BLOCK_TARGET (the function
// attribute of its instruction set) and a template Blocks<P, Moved> with:
//   kPixels               pixels in a block
//   Data                  a block held in registers
//   Load(p)               the block at p
//   Reverse(d)            the block's pixels in reverse order
//   StoreMoved(p, d)      writes the moved bytes of d at p; alpha at p stays
// Everything here stays local to the including unit.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_BLOCK_KERNELS_H
#define PIXMOOR_PRIMITIVES_MIRROR_BLOCK_KERNELS_H

#include <immintrin.h>

#include <cstring>

#include "primitives/mirror/mirror_kernels.h"
#include "primitives/mirror/mirror_pixel_loops.h"
#include "runtime/wide_moves.h"

namespace pixmoor::mirror {
namespace {

using pixels::Offset;

using wide::Load32;
using wide::Store32;

// ---- Blocks of 16 pixels of 3, 6 or 12 bytes in 128-bit vectors -------------

// For output vector j of a reversed block of 16 P-byte pixels (P vectors),
// the input vectors it draws on and, for each, the byte shuffle that places
// their bytes (other bytes zero).
template <int P>
struct BlockShuffles {
    int first[P];
    int last[P];
    uint8_t mask[P][P][16];
};

template <int P>
constexpr BlockShuffles<P> MakeBlockShuffles() {
    BlockShuffles<P> s{};
    for (int j = 0; j < P; ++j) {
        s.first[j] = P;
        s.last[j] = -1;
        for (int i = 0; i < P; ++i)
            for (int b = 0; b < 16; ++b) s.mask[j][i][b] = 0x80;
        for (int b = 0; b < 16; ++b) {
            const int out = 16 * j + b;
            const int in = P * (15 - out / P) + out % P;
            const int i = in / 16;
            s.mask[j][i][b] = static_cast<uint8_t>(in % 16);
            if (i < s.first[j]) s.first[j] = i;
            if (i > s.last[j]) s.last[j] = i;
        }
    }
    return s;
}

template <int P>
struct PixelBlock {
    __m128i v[P];
};

template <int P>
struct ShuffledBlocks {
    static constexpr int32_t kPixels = 16;
    using Data = PixelBlock<P>;

    PIXMOOR_MIRROR_BLOCK_TARGET static Data Load(const uint8_t* p) {
        Data b;
#pragma GCC unroll 16
        for (int i = 0; i < P; ++i) b.v[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * i));
        return b;
    }

    PIXMOOR_MIRROR_BLOCK_TARGET static void StoreMoved(uint8_t* p, const Data& b) {
#pragma GCC unroll 16
        for (int i = 0; i < P; ++i) _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 16 * i), b.v[i]);
    }

    PIXMOOR_MIRROR_BLOCK_TARGET static Data Reverse(const Data& in) {
        static constexpr BlockShuffles<P> kShuffles = MakeBlockShuffles<P>();
        Data out;
#pragma GCC unroll 16
        for (int j = 0; j < P; ++j) {
            __m128i v = _mm_setzero_si128();
#pragma GCC unroll 4
            for (int i = kShuffles.first[j]; i <= kShuffles.last[j]; ++i) {
                const __m128i mask = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kShuffles.mask[j][i]));
                v = _mm_or_si128(v, _mm_shuffle_epi8(in.v[i], mask));
            }
            out.v[j] = v;
        }
        return out;
    }
};

// ---- Runs of bytes ------------------------------------------------------------

// Lines from this many bytes on go to the C library's block move, which on
// these processors beats vector loops there (its string move writes whole
// cache lines without reading them first).
constexpr int32_t kBlockMoveBytes = 8192;

PIXMOOR_MIRROR_BLOCK_TARGET void CopyBytes(const uint8_t* src, uint8_t* dst, int32_t bytes) {
    if (bytes < 32 || bytes >= kBlockMoveBytes) {
        if (bytes > 0) std::memcpy(dst, src, static_cast<size_t>(bytes));
        return;
    }
    wide::CopyAtLeast32(dst, src, bytes);
}

// The same bytes with streaming stores from the destination's first 32-byte
// boundary on (the head and the last vector go through the cache), closed
// by a store fence so that later readers see them.
PIXMOOR_MIRROR_BLOCK_TARGET void StreamBytes(const uint8_t* src, uint8_t* dst, int32_t bytes) {
    if (bytes < 64) {
        CopyBytes(src, dst, bytes);
        return;
    }
    Store32(dst, Load32(src));
    int32_t done = 32 - static_cast<int32_t>(reinterpret_cast<uintptr_t>(dst) & 31);
    for (; bytes - done >= 32; done += 32)
        _mm256_stream_si256(reinterpret_cast<__m256i*>(dst + done), Load32(src + done));
    if (done < bytes) Store32(dst + bytes - 32, Load32(src + bytes - 32));
    _mm_sfence();
}

PIXMOOR_MIRROR_BLOCK_TARGET void SwapBytes(uint8_t* a, uint8_t* b, int32_t bytes) {
    int32_t done = 0;
    for (; bytes - done >= 64; done += 64) {
        const __m256i a0 = Load32(a + done), a1 = Load32(a + done + 32);
        const __m256i b0 = Load32(b + done), b1 = Load32(b + done + 32);
        Store32(a + done, b0);
        Store32(a + done + 32, b1);
        Store32(b + done, a0);
        Store32(b + done + 32, a1);
    }
    for (; bytes - done >= 32; done += 32) {
        const __m256i a0 = Load32(a + done), b0 = Load32(b + done);
        Store32(a + done, b0);
        Store32(b + done, a0);
    }
    for (; bytes - done >= 8; done += 8) pixels::Exchange<8, 8>(a + done, b + done);
    for (; done < bytes; ++done) pixels::Exchange<1, 1>(a + done, b + done);
}

// ---- The four kernels -------------------------------------------------------------

// `stream` asks for streaming stores where whole pixels move.
template <int P, int Moved>
PIXMOOR_MIRROR_BLOCK_TARGET void CopyRow(const uint8_t* src, uint8_t* dst, int32_t count, int32_t stream) {
    if (Moved == P) {
        if (stream != 0)
            StreamBytes(src, dst, count * P);
        else
            CopyBytes(src, dst, count * P);
        return;
    }
    using B = Blocks<P, Moved>;
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels)
        B::StoreMoved(dst + Offset(done, P), B::Load(src + Offset(done, P)));
    pixels::Copy<P, Moved>(src + Offset(done, P), dst + Offset(done, P), count - done);
}

// The source is read upwards while the destination is written downwards
// from its end.
template <int P, int Moved>
PIXMOOR_MIRROR_BLOCK_TARGET void ReverseRow(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    using B = Blocks<P, Moved>;
    uint8_t* dstEnd = dst + Offset(count, P);
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels)
        B::StoreMoved(dstEnd - Offset(done + B::kPixels, P), B::Reverse(B::Load(src + Offset(done, P))));
    pixels::Reverse<P, Moved>(src + Offset(done, P), dstEnd - Offset(done, P), count - done);
}

// Pixel j of a and pixel j of b change places, a block of each at a time.
template <int P, int Moved>
PIXMOOR_MIRROR_BLOCK_TARGET void SwapRows(uint8_t* a, uint8_t* b, int32_t count) {
    if (Moved == P) {
        SwapBytes(a, b, count * P);
        return;
    }
    using B = Blocks<P, Moved>;
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels) {
        uint8_t* x = a + Offset(done, P);
        uint8_t* y = b + Offset(done, P);
        const typename B::Data xv = B::Load(x), yv = B::Load(y);
        B::StoreMoved(x, yv);
        B::StoreMoved(y, xv);
    }
    pixels::Swap<P, Moved>(a + Offset(done, P), b + Offset(done, P), count - done);
}

// Pixel j of the front run and pixel count - 1 - j of the back run change
// places, a block from each end at a time.  A unit may give other blocks
// than its own for this kernel.
template <int P, int Moved, typename B = Blocks<P, Moved>>
PIXMOOR_MIRROR_BLOCK_TARGET void ReverseSwap(uint8_t* front, uint8_t* back, int32_t count) {
    uint8_t* backEnd = back + Offset(count, P);
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels) {
        uint8_t* f = front + Offset(done, P);
        uint8_t* b = backEnd - Offset(done + B::kPixels, P);
        const typename B::Data fv = B::Load(f), bv = B::Load(b);
        B::StoreMoved(f, B::Reverse(bv));
        B::StoreMoved(b, B::Reverse(fv));
    }
    pixels::ReverseSwap<P, Moved>(front + Offset(done, P), backEnd - Offset(done, P), count - done);
}

template <int P, int Moved>
constexpr RowKernels BlockKernels() {
    return RowKernels{CopyRow<P, Moved>, ReverseRow<P, Moved>, SwapRows<P, Moved>, ReverseSwap<P, Moved>};
}

// Every layout's kernels in table order.
#define PIXMOOR_MIRROR_BLOCK_KERNEL_TABLE                                    \
    {                                                                        \
        BlockKernels<1, 1>(), BlockKernels<3, 3>(), BlockKernels<4, 3>(),    \
        BlockKernels<2, 2>(), BlockKernels<6, 6>(), BlockKernels<8, 6>(),    \
        BlockKernels<4, 4>(), BlockKernels<12, 12>(), BlockKernels<16, 12>() \
    }

}  // namespace
}  // namespace pixmoor::mirror

#endif

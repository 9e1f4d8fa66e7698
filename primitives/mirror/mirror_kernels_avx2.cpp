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

#include <immintrin.h>

#include <cstring>

#include "primitives/mirror/mirror_pixel_loops.h"

namespace pixmoor::mirror {
namespace {

using pixels::Offset;

// ---- Whole vectors: pixels of 1, 2, 4, 8 and 16 bytes -----------------------

PIXMOOR_TARGET_AVX2 inline __m256i Load32(const uint8_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}
PIXMOOR_TARGET_AVX2 inline void Store32(uint8_t* p, __m256i v) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
}

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

// Selects the moved bytes of every pixel: all bytes, or the colour channels
// of AC4 pixels.
template <int P, int Moved>
PIXMOOR_TARGET_AVX2 inline __m256i MovedMask() {
    alignas(32) uint8_t mask[32];
    for (int i = 0; i < 32; ++i) mask[i] = (i % P) < Moved ? 0xFF : 0x00;
    return _mm256_load_si256(reinterpret_cast<const __m256i*>(mask));
}

// ---- Blocks of 16 pixels of 3, 6 or 12 bytes ------------------------------

// For output vector j of a reversed block of 16 P-byte pixels (P vectors),
// the input vectors it draws on and, for each, the shuffle that places their
// bytes (other lanes zero).
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
PIXMOOR_TARGET_AVX2 inline PixelBlock<P> LoadBlock(const uint8_t* p) {
    PixelBlock<P> b;
#pragma GCC unroll 16
    for (int i = 0; i < P; ++i) b.v[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * i));
    return b;
}

template <int P>
PIXMOOR_TARGET_AVX2 inline void StoreBlock(uint8_t* p, const PixelBlock<P>& b) {
#pragma GCC unroll 16
    for (int i = 0; i < P; ++i) _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 16 * i), b.v[i]);
}

template <int P>
PIXMOOR_TARGET_AVX2 inline PixelBlock<P> ReverseBlock(const PixelBlock<P>& in) {
    static constexpr BlockShuffles<P> kShuffles = MakeBlockShuffles<P>();
    PixelBlock<P> out;
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

// ---- One interface over both kinds of block ---------------------------------

template <int P, int Moved, bool kWhole = (32 % P == 0)>
struct Blocks;

// 32 bytes a block.
template <int P, int Moved>
struct Blocks<P, Moved, true> {
    static constexpr int32_t kPixels = 32 / P;
    using Data = __m256i;
    PIXMOOR_TARGET_AVX2 static Data Load(const uint8_t* p) { return Load32(p); }
    PIXMOOR_TARGET_AVX2 static void Store(uint8_t* p, Data v) { Store32(p, v); }
    PIXMOOR_TARGET_AVX2 static Data Reverse(Data v) { return ReverseVector<P>(v); }
    // The moved bytes from `moved`, alpha from `kept`.
    PIXMOOR_TARGET_AVX2 static Data Merge(Data moved, Data kept) {
        if (Moved == P) return moved;
        return _mm256_blendv_epi8(kept, moved, MovedMask<P, Moved>());
    }
    // Whether Merge needs what lies at the destination.
    static constexpr bool kReadsKept = Moved != P;
};

// 16 pixels a block; these layouts move whole pixels.
template <int P, int Moved>
struct Blocks<P, Moved, false> {
    static_assert(Moved == P, "pixels of 3, 6 and 12 bytes move whole");
    static constexpr int32_t kPixels = 16;
    using Data = PixelBlock<P>;
    PIXMOOR_TARGET_AVX2 static Data Load(const uint8_t* p) { return LoadBlock<P>(p); }
    PIXMOOR_TARGET_AVX2 static void Store(uint8_t* p, const Data& v) { StoreBlock<P>(p, v); }
    PIXMOOR_TARGET_AVX2 static Data Reverse(const Data& v) { return ReverseBlock<P>(v); }
    PIXMOOR_TARGET_AVX2 static Data Merge(const Data& moved, const Data&) { return moved; }
    static constexpr bool kReadsKept = false;
};

// ---- Runs of bytes ------------------------------------------------------------

PIXMOOR_TARGET_AVX2 void CopyBytes(const uint8_t* src, uint8_t* dst, int32_t bytes) {
    if (bytes < 32) {
        if (bytes > 0) std::memcpy(dst, src, static_cast<size_t>(bytes));
        return;
    }
    int32_t done = 0;
    for (; bytes - done >= 128; done += 128) {
        const __m256i a = Load32(src + done), b = Load32(src + done + 32);
        const __m256i c = Load32(src + done + 64), d = Load32(src + done + 96);
        Store32(dst + done, a);
        Store32(dst + done + 32, b);
        Store32(dst + done + 64, c);
        Store32(dst + done + 96, d);
    }
    for (; bytes - done >= 32; done += 32) Store32(dst + done, Load32(src + done));
    // The last bytes as one vector ending at the line's end; the bytes it
    // writes again are the same ones.
    if (done < bytes) Store32(dst + bytes - 32, Load32(src + bytes - 32));
}

PIXMOOR_TARGET_AVX2 void SwapBytes(uint8_t* a, uint8_t* b, int32_t bytes) {
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

template <int P, int Moved>
PIXMOOR_TARGET_AVX2 void CopyRow(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    if (Moved == P) {
        CopyBytes(src, dst, count * P);
        return;
    }
    using B = Blocks<P, Moved>;
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels) {
        uint8_t* out = dst + Offset(done, P);
        B::Store(out, B::Merge(B::Load(src + Offset(done, P)), B::Load(out)));
    }
    pixels::Copy<P, Moved>(src + Offset(done, P), dst + Offset(done, P), count - done);
}

// The source is read upwards while the destination is written downwards
// from its end.
template <int P, int Moved>
PIXMOOR_TARGET_AVX2 void ReverseRow(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    using B = Blocks<P, Moved>;
    uint8_t* dstEnd = dst + Offset(count, P);
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels) {
        uint8_t* out = dstEnd - Offset(done + B::kPixels, P);
        const typename B::Data reversed = B::Reverse(B::Load(src + Offset(done, P)));
        B::Store(out, B::kReadsKept ? B::Merge(reversed, B::Load(out)) : reversed);
    }
    pixels::Reverse<P, Moved>(src + Offset(done, P), dstEnd - Offset(done, P), count - done);
}

template <int P, int Moved>
PIXMOOR_TARGET_AVX2 void SwapRows(uint8_t* a, uint8_t* b, int32_t count) {
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
        B::Store(x, B::Merge(yv, xv));
        B::Store(y, B::Merge(xv, yv));
    }
    pixels::Swap<P, Moved>(a + Offset(done, P), b + Offset(done, P), count - done);
}

// Pixel j of the front run and pixel count - 1 - j of the back run change
// places, a block from each end at a time.
template <int P, int Moved>
PIXMOOR_TARGET_AVX2 void ReverseSwap(uint8_t* front, uint8_t* back, int32_t count) {
    using B = Blocks<P, Moved>;
    uint8_t* backEnd = back + Offset(count, P);
    int32_t done = 0;
    for (; count - done >= B::kPixels; done += B::kPixels) {
        uint8_t* f = front + Offset(done, P);
        uint8_t* b = backEnd - Offset(done + B::kPixels, P);
        const typename B::Data fv = B::Load(f), bv = B::Load(b);
        B::Store(f, B::Merge(B::Reverse(bv), fv));
        B::Store(b, B::Merge(B::Reverse(fv), bv));
    }
    pixels::ReverseSwap<P, Moved>(front + Offset(done, P), backEnd - Offset(done, P), count - done);
}

template <int P, int Moved>
constexpr RowKernels Kernels() {
    return RowKernels{CopyRow<P, Moved>, ReverseRow<P, Moved>, SwapRows<P, Moved>, ReverseSwap<P, Moved>};
}

const RowKernels kAvx2Kernels[kLayoutCount] = {
    Kernels<1, 1>(), Kernels<3, 3>(),   Kernels<4, 3>(),    //
    Kernels<2, 2>(), Kernels<6, 6>(),   Kernels<8, 6>(),    //
    Kernels<4, 4>(), Kernels<12, 12>(), Kernels<16, 12>(),  //
};

}  // namespace

const RowKernels* Avx2Kernels() { return kAvx2Kernels; }

}  // namespace pixmoor::mirror

#endif

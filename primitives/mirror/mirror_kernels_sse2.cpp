// Row kernels of the a6 and w7 tiers.  The two tiers share every kernel
// except the copy of axis 0, which is the only place where they differ.
//
// Layouts whose pixel divides 16 bytes (C1 of all widths, AC4 of all widths)
// reverse whole 16-byte vectors; AC4 merges the moved channels with the
// alpha already in place through a mask.  8-bit C3 reverses four pixels at a
// time in general registers.  The 16-bit and 32-bit C3 layouts move a pixel
// at a time in 8-byte and 4- or 2-byte units.
#include "primitives/mirror/mirror_vector_support.h"

#if PIXMOOR_MIRROR_VECTOR_KERNELS

#include <emmintrin.h>

#include <cstring>

#include "primitives/mirror/mirror_kernels.h"
#include "primitives/mirror/mirror_pixel_loops.h"
#include "primitives/mirror/mirror_vector_kernels.h"

namespace pixmoor::mirror {
namespace {

using pixels::Offset;

inline uintptr_t Address(const void* p) { return reinterpret_cast<uintptr_t>(p); }
inline __m128i Load(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

enum class Store { kUnaligned, kAligned, kStream };

template <Store kind>
inline void Put(uint8_t* p, __m128i v) {
    auto* out = reinterpret_cast<__m128i*>(p);
    if (kind == Store::kStream)
        _mm_stream_si128(out, v);
    else if (kind == Store::kAligned)
        _mm_store_si128(out, v);
    else
        _mm_storeu_si128(out, v);
}

// Reverses the order of the P-byte pixels of a vector.
template <int P>
inline __m128i ReversePixels(__m128i v) {
    if (P == 16) return v;
    if (P == 8) return _mm_shuffle_epi32(v, _MM_SHUFFLE(1, 0, 3, 2));
    v = _mm_shuffle_epi32(v, _MM_SHUFFLE(0, 1, 2, 3));
    if (P == 4) return v;
    v = _mm_shufflehi_epi16(_mm_shufflelo_epi16(v, _MM_SHUFFLE(2, 3, 0, 1)), _MM_SHUFFLE(2, 3, 0, 1));
    if (P == 2) return v;
    return _mm_or_si128(_mm_slli_epi16(v, 8), _mm_srli_epi16(v, 8));
}

// Selects the moved bytes of every pixel: all bytes, or the colour channels
// of AC4 pixels.
template <int P, int Moved>
inline __m128i MovedMask() {
    alignas(16) uint8_t mask[16];
    for (int i = 0; i < 16; ++i) mask[i] = (i % P) < Moved ? 0xFF : 0x00;
    return _mm_load_si128(reinterpret_cast<const __m128i*>(mask));
}

// The moved bytes from `moved`, the rest (alpha) from `kept`.
template <int P, int Moved>
inline __m128i Merge(__m128i moved, __m128i kept, __m128i mask) {
    if (Moved == P) return moved;
    return _mm_or_si128(_mm_and_si128(mask, moved), _mm_andnot_si128(mask, kept));
}

// Pixels to move one by one before `end` reaches a 16-byte boundary, going
// down; 0 if it never can at this pixel size.
template <int P>
inline int32_t PixelsToAlignDown(const uint8_t* end, int32_t count) {
    const int32_t over = static_cast<int32_t>(Address(end) & 15);
    if (over % P != 0) return 0;
    return over / P < count ? over / P : count;
}

template <int P>
inline int32_t PixelsToAlignUp(const uint8_t* p, int32_t count) {
    const int32_t under = static_cast<int32_t>((16 - (Address(p) & 15)) & 15);
    if (under % P != 0) return 0;
    return under / P < count ? under / P : count;
}

// AC4 kernels take the vector path only when both pointers are 4-byte
// aligned; otherwise they go pixel by pixel.
template <int P, int Moved>
inline bool VectorPathAllowed(const void* a, const void* b) {
    return Moved == P || ((Address(a) | Address(b)) & 3) == 0;
}

// ---- Axes 1 and 2 ---------------------------------------------------------

// Runs a reversing kernel whose first run is read upwards from `first` while
// its second run is written downwards from `end`: pixel by pixel where the
// vector path is not allowed, otherwise pixels until `end` reaches a 16-byte
// boundary, then whole vectors, then the pixels left.  `pixelsAt(first, end,
// n)` handles n pixels; `blocksAt(first, end, n)` handles whole vectors and
// returns the pixels it did.
template <int P, int Moved, typename First, typename Pixels, typename Blocks>
void DownwardsFromAlignedEnd(First* first, uint8_t* end, int32_t count, Pixels pixelsAt, Blocks blocksAt) {
    if (!VectorPathAllowed<P, Moved>(first, end - Offset(count, P))) {
        pixelsAt(first, end, count);
        return;
    }
    const int32_t head = PixelsToAlignDown<P>(end, count);
    pixelsAt(first, end, head);
    first += Offset(head, P);
    end -= Offset(head, P);
    count -= head;
    const int32_t done = blocksAt(first, end, count);
    pixelsAt(first + Offset(done, P), end - Offset(done, P), count - done);
}

template <int P, int Moved, Store kind>
int32_t ReverseBlocks(const uint8_t* src, uint8_t* dstEnd, int32_t count) {
    constexpr int32_t kPerVector = 16 / P;
    const __m128i mask = MovedMask<P, Moved>();
    int32_t done = 0;
    for (; count - done >= kPerVector; done += kPerVector) {
        uint8_t* out = dstEnd - Offset(done, P) - 16;
        const __m128i reversed = ReversePixels<P>(Load(src + Offset(done, P)));
        Put<kind>(out, Merge<P, Moved>(reversed, Moved == P ? reversed : Load(out), mask));
    }
    if (kind == Store::kStream) _mm_sfence();
    return done;
}

// To a destination: the source is read upwards while the destination is
// written downwards from its end.  Streaming stores need the aligned end.
template <int P, int Moved>
void ReverseRowVector(const uint8_t* src, uint8_t* dst, int32_t count, int32_t flag) {
    DownwardsFromAlignedEnd<P, Moved>(
        src, dst + Offset(count, P), count,
        [](const uint8_t* from, uint8_t* end, int32_t n) { pixels::Reverse<P, Moved>(from, end, n); },
        [flag](const uint8_t* from, uint8_t* end, int32_t n) {
            if ((Address(end) & 15) != 0) return ReverseBlocks<P, Moved, Store::kUnaligned>(from, end, n);
            if (flag != 0) return ReverseBlocks<P, Moved, Store::kStream>(from, end, n);
            return ReverseBlocks<P, Moved, Store::kAligned>(from, end, n);
        });
}

// In place: the front pixels and the back pixels change places, each run
// reversed.
template <int P, int Moved>
int32_t ReverseSwapBlocks(uint8_t* front, uint8_t* backEnd, int32_t count) {
    constexpr int32_t kPerVector = 16 / P;
    const __m128i mask = MovedMask<P, Moved>();
    int32_t done = 0;
    for (; count - done >= kPerVector; done += kPerVector) {
        uint8_t* f = front + Offset(done, P);
        uint8_t* b = backEnd - Offset(done, P) - 16;
        const __m128i fv = Load(f), bv = Load(b);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(f), Merge<P, Moved>(ReversePixels<P>(bv), fv, mask));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(b), Merge<P, Moved>(ReversePixels<P>(fv), bv, mask));
    }
    return done;
}

template <int P, int Moved>
void ReverseSwapVector(uint8_t* front, uint8_t* back, int32_t count) {
    DownwardsFromAlignedEnd<P, Moved>(
        front, back + Offset(count, P), count,
        [](uint8_t* f, uint8_t* end, int32_t n) { pixels::ReverseSwap<P, Moved>(f, end, n); },
        [](uint8_t* f, uint8_t* end, int32_t n) { return ReverseSwapBlocks<P, Moved>(f, end, n); });
}

// ---- Axis 0 for AC4: the alpha of every pixel stays ----------------------

// Runs a kernel that walks both runs upwards, pixel j with pixel j: pixel by
// pixel where the vector path is not allowed, otherwise pixels until the
// second run reaches a 16-byte boundary, then one vector at a time, then the
// pixels left.
template <int P, int Moved, typename First, typename Pixels, typename OneVector>
void UpwardsToAlignedSecond(First* a, uint8_t* b, int32_t count, Pixels pixelsAt, OneVector vectorAt) {
    if (!VectorPathAllowed<P, Moved>(a, b)) {
        pixelsAt(a, b, count);
        return;
    }
    const int32_t head = PixelsToAlignUp<P>(b, count);
    pixelsAt(a, b, head);
    int32_t done = head;
    for (; count - done >= 16 / P; done += 16 / P) vectorAt(a + Offset(done, P), b + Offset(done, P));
    pixelsAt(a + Offset(done, P), b + Offset(done, P), count - done);
}

template <int P, int Moved>
void CopyRowKeepAlpha(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    const __m128i mask = MovedMask<P, Moved>();
    UpwardsToAlignedSecond<P, Moved>(
        src, dst, count, [](const uint8_t* s, uint8_t* d, int32_t n) { pixels::Copy<P, Moved>(s, d, n); },
        [mask](const uint8_t* s, uint8_t* d) { Put<Store::kUnaligned>(d, Merge<P, Moved>(Load(s), Load(d), mask)); });
}

template <int P, int Moved>
void SwapRowsKeepAlpha(uint8_t* a, uint8_t* b, int32_t count) {
    const __m128i mask = MovedMask<P, Moved>();
    UpwardsToAlignedSecond<P, Moved>(
        a, b, count, [](uint8_t* x, uint8_t* y, int32_t n) { pixels::Swap<P, Moved>(x, y, n); },
        [mask](uint8_t* x, uint8_t* y) {
            const __m128i xv = Load(x), yv = Load(y);
            Put<Store::kUnaligned>(x, Merge<P, Moved>(yv, xv, mask));
            Put<Store::kUnaligned>(y, Merge<P, Moved>(xv, yv, mask));
        });
}

// ---- 8-bit C3: four pixels (12 bytes) at a time by shifts ------------------

// Writes the four 3-byte pixels of `in` to `out` in reverse order.
inline void ReverseFourPixels3(const uint8_t* in, uint8_t* out) {
    uint64_t low;
    uint32_t high;
    std::memcpy(&low, in, 8);
    std::memcpy(&high, in + 8, 4);
    const uint64_t p0 = low & 0xFFFFFF;
    const uint64_t p1 = (low >> 24) & 0xFFFFFF;
    const uint64_t p2 = ((low >> 48) | (static_cast<uint64_t>(high) << 16)) & 0xFFFFFF;
    const uint64_t p3 = high >> 8;
    const uint64_t outLow = p3 | (p2 << 24) | (p1 << 48);
    const uint32_t outHigh = static_cast<uint32_t>(p1 >> 16) | static_cast<uint32_t>(p0 << 8);
    std::memcpy(out, &outLow, 8);
    std::memcpy(out + 8, &outHigh, 4);
}

// Pixels until the destination's end is 4-byte aligned, then blocks of four.
void ReverseRow8uC3(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    uint8_t* dstEnd = dst + Offset(count, 3);
    int32_t done = 0;
    for (; done < count && (Address(dstEnd - Offset(done, 3)) & 3) != 0; ++done)
        pixels::Move<3, 3>(dstEnd - Offset(done + 1, 3), src + Offset(done, 3));
    for (; count - done >= 4; done += 4) ReverseFourPixels3(src + Offset(done, 3), dstEnd - Offset(done + 4, 3));
    pixels::Reverse<3, 3>(src + Offset(done, 3), dstEnd - Offset(done, 3), count - done);
}

// The same exchange in place; the block loop runs only if the front
// pointer is 4-byte aligned as well once the back end is.
void ReverseSwap8uC3(uint8_t* front, uint8_t* back, int32_t count) {
    if (count == 0) return;
    uint8_t* backEnd = back + Offset(count, 3);
    int32_t done = 0;
    for (; done < count && (Address(backEnd - Offset(done, 3)) & 3) != 0; ++done)
        pixels::Exchange<3, 3>(front + Offset(done, 3), backEnd - Offset(done + 1, 3));
    if ((Address(front + Offset(done, 3)) & 3) == 0) {
        for (; count - done >= 4; done += 4) {
            uint8_t* f = front + Offset(done, 3);
            uint8_t* b = backEnd - Offset(done + 4, 3);
            uint8_t fromFront[12], fromBack[12];
            ReverseFourPixels3(f, fromFront);
            ReverseFourPixels3(b, fromBack);
            std::memcpy(f, fromBack, 12);
            std::memcpy(b, fromFront, 12);
        }
    }
    pixels::ReverseSwap<3, 3>(front + Offset(done, 3), backEnd - Offset(done, 3), count - done);
}

// ---- 16-bit and 32-bit C3: a pixel at a time -------------------------------

template <int P>
void ReverseRowByPixel(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    pixels::Reverse<P, P>(src, dst + Offset(count, P), count);
}

template <int P>
void ReverseSwapByPixel(uint8_t* front, uint8_t* back, int32_t count) {
    pixels::ReverseSwap<P, P>(front, back + Offset(count, P), count);
}

// ---- The byte kernels at pixel counts ---------------------------------------

template <int P>
void CopyRowW7(const uint8_t* src, uint8_t* dst, int32_t count, int32_t flag) {
    vector::CopyBytesW7(src, dst, count * P, flag);
}

template <int P>
void CopyRowA6(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    vector::CopyBytesA6(src, dst, count * P);
}

template <int P>
void SwapRowsBytes(uint8_t* a, uint8_t* b, int32_t count) {
    vector::SwapBytes(a, b, count * P);
}

// One layout's kernels with the tier's copy of axis 0.
template <int P, void (*CopyBytes)(const uint8_t*, uint8_t*, int32_t, int32_t)>
constexpr RowKernels C1() {
    return RowKernels{CopyBytes, ReverseRowVector<P, P>, SwapRowsBytes<P>, ReverseSwapVector<P, P>};
}

template <int P, void (*CopyBytes)(const uint8_t*, uint8_t*, int32_t, int32_t)>
constexpr RowKernels WideC3() {
    return RowKernels{CopyBytes, ReverseRowByPixel<P>, SwapRowsBytes<P>, ReverseSwapByPixel<P>};
}

template <int P>
constexpr RowKernels AC4() {
    constexpr int kMoved = P / 4 * 3;
    return RowKernels{CopyRowKeepAlpha<P, kMoved>, ReverseRowVector<P, kMoved>, SwapRowsKeepAlpha<P, kMoved>,
                      ReverseSwapVector<P, kMoved>};
}

}  // namespace

// The tiers' tables in layout order, given the tier's copy of axis 0.
#define PIXMOOR_MIRROR_VECTOR_TABLE(CopyRow)                                              \
    {                                                                                     \
        C1<1, CopyRow<1>>(),                                                              \
        RowKernels{CopyRow<3>, ReverseRow8uC3, SwapRowsBytes<3>, ReverseSwap8uC3},        \
        AC4<4>(),                                                                         \
        C1<2, CopyRow<2>>(),                                                              \
        WideC3<6, CopyRow<6>>(),                                                          \
        AC4<8>(),                                                                         \
        C1<4, CopyRow<4>>(),                                                              \
        WideC3<12, CopyRow<12>>(),                                                        \
        AC4<16>(),                                                                        \
    }

const RowKernels kA6Kernels[kLayoutCount] = PIXMOOR_MIRROR_VECTOR_TABLE(CopyRowA6);
const RowKernels kW7Kernels[kLayoutCount] = PIXMOOR_MIRROR_VECTOR_TABLE(CopyRowW7);

}  // namespace pixmoor::mirror

#endif

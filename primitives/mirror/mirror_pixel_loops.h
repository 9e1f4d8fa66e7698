// Pixel-at-a-time loops: the whole of the plain kernels, and the heads and
// tails of the vector kernels.  A pixel is `P` bytes, of which the first
// `Moved` change places: all of them, or the three colour channels of an AC4
// pixel, whose alpha stays where it is.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_PIXEL_LOOPS_H
#define PIXMOOR_PRIMITIVES_MIRROR_PIXEL_LOOPS_H

#include <cstdint>
#include <cstring>

#include "primitives/mirror/mirror_kernels.h"

namespace pixmoor::mirror::pixels {

template <int P, int Moved>
inline void Move(uint8_t* dst, const uint8_t* src) {
    std::memcpy(dst, src, Moved);
}

template <int P, int Moved>
inline void Exchange(uint8_t* a, uint8_t* b) {
    uint8_t held[Moved];
    std::memcpy(held, a, Moved);
    std::memcpy(a, b, Moved);
    std::memcpy(b, held, Moved);
}

inline intptr_t Offset(int32_t pixels, int P) { return static_cast<intptr_t>(pixels) * P; }

// dst pixel j receives src pixel j.
template <int P, int Moved>
inline void Copy(const uint8_t* src, uint8_t* dst, int32_t count) {
    if (Moved == P) {
        std::memcpy(dst, src, static_cast<size_t>(Offset(count, P)));
        return;
    }
    for (int32_t j = 0; j < count; ++j) Move<P, Moved>(dst + Offset(j, P), src + Offset(j, P));
}

// The pixels of src, first to last, land on the pixels of dst that end at
// `dstEnd`, last to first.
template <int P, int Moved>
inline void Reverse(const uint8_t* src, uint8_t* dstEnd, int32_t count) {
    for (int32_t j = 0; j < count; ++j) Move<P, Moved>(dstEnd - Offset(j + 1, P), src + Offset(j, P));
}

// Pixel j of a and pixel j of b change places.
template <int P, int Moved>
inline void Swap(uint8_t* a, uint8_t* b, int32_t count) {
    for (int32_t j = 0; j < count; ++j) Exchange<P, Moved>(a + Offset(j, P), b + Offset(j, P));
}

// Pixel j of front and the j-th pixel before backEnd change places.
template <int P, int Moved>
inline void ReverseSwap(uint8_t* front, uint8_t* backEnd, int32_t count) {
    for (int32_t j = 0; j < count; ++j) Exchange<P, Moved>(front + Offset(j, P), backEnd - Offset(j + 1, P));
}

// The four kernels of a layout, a pixel at a time.
template <int P, int Moved>
void CopyRow(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    Copy<P, Moved>(src, dst, count);
}

template <int P, int Moved>
void ReverseRow(const uint8_t* src, uint8_t* dst, int32_t count, int32_t) {
    Reverse<P, Moved>(src, dst + Offset(count, P), count);
}

template <int P, int Moved>
void SwapRows(uint8_t* a, uint8_t* b, int32_t count) {
    Swap<P, Moved>(a, b, count);
}

template <int P, int Moved>
void ReverseSwapRow(uint8_t* front, uint8_t* back, int32_t count) {
    ReverseSwap<P, Moved>(front, back + Offset(count, P), count);
}

template <int P, int Moved>
constexpr RowKernels Kernels() {
    return RowKernels{CopyRow<P, Moved>, ReverseRow<P, Moved>, SwapRows<P, Moved>, ReverseSwapRow<P, Moved>};
}

// Every layout's kernels in table order.
#define PIXMOOR_MIRROR_PIXEL_KERNEL_TABLE                                                              \
    {                                                                                                 \
        pixels::Kernels<1, 1>(), pixels::Kernels<3, 3>(), pixels::Kernels<4, 3>(),                    \
        pixels::Kernels<2, 2>(), pixels::Kernels<6, 6>(), pixels::Kernels<8, 6>(),                    \
        pixels::Kernels<4, 4>(), pixels::Kernels<12, 12>(), pixels::Kernels<16, 12>(),                \
    }

}  // namespace pixmoor::mirror::pixels

#endif

// Plain row kernels, shared by the px and m6 tiers.  One template serves
// every layout: a pixel is `P` bytes, of which the first `Moved` change
// places (all of them, or the three colour channels of an AC4 pixel).
#include <cstring>

#include "primitives/mirror/mirror_kernels.h"

namespace pixmoor::mirror {
namespace {

template <int P, int Moved>
inline void MovePixel(uint8_t* dst, const uint8_t* src) {
    std::memcpy(dst, src, Moved);
}

template <int P, int Moved>
inline void ExchangePixel(uint8_t* a, uint8_t* b) {
    uint8_t held[Moved];
    std::memcpy(held, a, Moved);
    std::memcpy(a, b, Moved);
    std::memcpy(b, held, Moved);
}

template <int P, int Moved>
void CopyRow(const uint8_t* src, uint8_t* dst, int32_t pixels, int32_t) {
    if (Moved == P) {
        std::memcpy(dst, src, static_cast<size_t>(pixels) * P);
        return;
    }
    for (int32_t j = 0; j < pixels; ++j) MovePixel<P, Moved>(dst + j * P, src + j * P);
}

template <int P, int Moved>
void ReverseRow(const uint8_t* src, uint8_t* dst, int32_t pixels, int32_t) {
    const uint8_t* from = src + static_cast<intptr_t>(pixels) * P;
    for (int32_t j = 0; j < pixels; ++j) {
        from -= P;
        MovePixel<P, Moved>(dst + static_cast<intptr_t>(j) * P, from);
    }
}

template <int P, int Moved>
void SwapRows(uint8_t* a, uint8_t* b, int32_t pixels) {
    for (int32_t j = 0; j < pixels; ++j) ExchangePixel<P, Moved>(a + static_cast<intptr_t>(j) * P, b + static_cast<intptr_t>(j) * P);
}

template <int P, int Moved>
void ReverseSwap(uint8_t* front, uint8_t* back, int32_t pixels) {
    uint8_t* end = back + static_cast<intptr_t>(pixels) * P;
    for (int32_t j = 0; j < pixels; ++j) {
        end -= P;
        ExchangePixel<P, Moved>(front + static_cast<intptr_t>(j) * P, end);
    }
}

template <int P, int Moved>
constexpr RowKernels Plain() {
    return RowKernels{CopyRow<P, Moved>, ReverseRow<P, Moved>, SwapRows<P, Moved>, ReverseSwap<P, Moved>};
}

}  // namespace

const RowKernels kPlainKernels[kLayoutCount] = {
    Plain<1, 1>(),  Plain<3, 3>(),  Plain<4, 3>(),
    Plain<2, 2>(),  Plain<6, 6>(),  Plain<8, 6>(),
    Plain<4, 4>(),  Plain<12, 12>(), Plain<16, 12>(),
};

}  // namespace pixmoor::mirror

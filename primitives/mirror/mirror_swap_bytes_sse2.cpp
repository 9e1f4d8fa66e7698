// The row exchange of the vector tiers (axis 0 in place, C1 and C3).
#include "primitives/mirror/mirror_vector_support.h"

#if PIXMOOR_MIRROR_VECTOR_KERNELS

#include <emmintrin.h>

#include <cstring>

#include "primitives/mirror/mirror_vector_kernels.h"

namespace pixmoor::mirror::vector {
namespace {

template <int N>
inline void ExchangeScalar(uint8_t* a, uint8_t* b) {
    uint8_t held[N];
    std::memcpy(held, a, N);
    std::memcpy(a, b, N);
    std::memcpy(b, held, N);
}

inline __m128i Load(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i LoadAligned(const uint8_t* p) { return _mm_load_si128(reinterpret_cast<const __m128i*>(p)); }
inline void Store(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline void StoreAligned(uint8_t* p, __m128i v) { _mm_store_si128(reinterpret_cast<__m128i*>(p), v); }

}  // namespace

void SwapBytes(uint8_t* a, uint8_t* b, int32_t bytes) {
    // Byte exchanges until the second run is 16-byte aligned.
    for (; bytes > 0 && (reinterpret_cast<uintptr_t>(b) & 15) != 0; --bytes) ExchangeScalar<1>(a++, b++);
    for (; bytes >= 32; bytes -= 32, a += 32, b += 32) {
        const __m128i a0 = Load(a), a1 = Load(a + 16);
        const __m128i b0 = LoadAligned(b), b1 = LoadAligned(b + 16);
        Store(a, b0);
        Store(a + 16, b1);
        StoreAligned(b, a0);
        StoreAligned(b + 16, a1);
    }
    if (bytes >= 16) {
        const __m128i a0 = Load(a), b0 = LoadAligned(b);
        Store(a, b0);
        StoreAligned(b, a0);
        a += 16, b += 16, bytes -= 16;
    }
    for (; bytes >= 8; bytes -= 8, a += 8, b += 8) ExchangeScalar<8>(a, b);
    for (; bytes > 0; --bytes) ExchangeScalar<1>(a++, b++);
}

}  // namespace pixmoor::mirror::vector

#endif

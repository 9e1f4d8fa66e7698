// Crop and pad's walk with 256-bit moves inline: the lines of a frame are
// short runs (margins of a few dozen bytes, lines of a few thousand), where
// a call to the library's movers for each costs as much as the bytes.
#include "size/i420_crop_pad_avx2.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstring>

#include "runtime/wide_moves.h"

#define PIXMOOR_CROP_PAD_TARGET PIXMOOR_TARGET_AVX2

namespace {

using pixmoor::wide::Store32;

// Below 32 bytes: two moves of the widest unit that fits, one from each
// end (they overlap where the count isn't twice the unit), then bytes.
template <typename Unit>
PIXMOOR_TARGET_AVX2 inline bool CopyEnds(uint8_t* dst, const uint8_t* src, int32_t bytes) {
    constexpr int32_t n = sizeof(Unit);
    if (bytes < n) return false;
    Unit head, tail;
    std::memcpy(&head, src, n);
    std::memcpy(&tail, src + bytes - n, n);
    std::memcpy(dst, &head, n);
    std::memcpy(dst + bytes - n, &tail, n);
    return true;
}

struct Bytes16 {
    uint8_t b[16];
};

PIXMOOR_TARGET_AVX2 inline void CopyShort(uint8_t* dst, const uint8_t* src, int32_t bytes) {
    if (CopyEnds<Bytes16>(dst, src, bytes) || CopyEnds<uint64_t>(dst, src, bytes) ||
        CopyEnds<uint32_t>(dst, src, bytes))
        return;
    for (int32_t i = 0; i < bytes; ++i) dst[i] = src[i];
}

PIXMOOR_TARGET_AVX2 inline void CopyBytes(uint8_t* dst, const uint8_t* src, int32_t bytes) {
    if (bytes < 32)
        CopyShort(dst, src, bytes);
    else
        pixmoor::wide::CopyAtLeast32(dst, src, bytes);
}

PIXMOOR_TARGET_AVX2 inline void ZeroBytes(uint8_t* dst, int32_t bytes) {
    if (bytes < 32) {
        static const uint8_t kZeros[32] = {};
        CopyShort(dst, kZeros, bytes);
        return;
    }
    const __m256i zero = _mm256_setzero_si256();
    int32_t done = 0;
    for (; bytes - done > 32; done += 32) Store32(dst + done, zero);
    Store32(dst + bytes - 32, zero);
}

}  // namespace

#include "size/crop_pad_walk.h"

void WalkStripsAvx2(const PlaneStrip* strips, int32_t count, const uint8_t* src, uint8_t* dst) {
    WalkStrips(strips, count, src, dst);
}

#endif

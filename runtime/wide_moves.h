// Runs of bytes moved with 256-bit vectors, for the fast paths of units
// built for processors that have them (the function carries its own
// instruction-set attribute, so every unit gets the same definition).
#ifndef PIXMOOR_RUNTIME_WIDE_MOVES_H
#define PIXMOOR_RUNTIME_WIDE_MOVES_H

#include <cstdint>

#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

namespace pixmoor::wide {

// One unaligned vector.
PIXMOOR_TARGET_AVX2 inline __m256i Load32(const uint8_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

PIXMOOR_TARGET_AVX2 inline void Store32(uint8_t* p, __m256i v) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
}

// Copies `bytes` bytes, 32 or more, from src to dst (which don't overlap):
// four vectors a round, then single ones, and the last vector ends at the
// run's end; the bytes it writes again are the same ones.
PIXMOOR_TARGET_AVX2 inline void CopyAtLeast32(uint8_t* dst, const uint8_t* src, int32_t bytes) {
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
    if (done < bytes) Store32(dst + bytes - 32, Load32(src + bytes - 32));
}

}  // namespace pixmoor::wide

#endif

#endif

// The copy that the 4:2:0 kernels into 4-byte pixels keep of the samples
// of a vector step (the 32 luma samples of each line, 16 of each chroma
// line), made right after the step, while they are at hand.  Only units
// whose functions carry PIXMOOR_TARGET_AVX2 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_KEEP_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_KEEP_AVX2_H

#include "primitives/colour/image_layouts.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx2 {

PIXMOOR_TARGET_AVX2 inline void Copy32(uint8_t* to, const uint8_t* from) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from)));
}
PIXMOOR_TARGET_AVX2 inline void Copy16(uint8_t* to, const uint8_t* from) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
}

// The samples of the step at pair `j`, copied to `kept` when it is there.
PIXMOOR_TARGET_AVX2 inline void KeepStep16(const Yuv420Lines<const uint8_t>& in, const Yuv420Lines<uint8_t>* kept,
                                           int32_t j) {
    if (kept == nullptr) return;
    Copy32(kept->y0 + 2 * j, in.y0 + 2 * j);
    Copy32(kept->y1 + 2 * j, in.y1 + 2 * j);
    Copy16(kept->u + j, in.u + j);
    Copy16(kept->v + j, in.v + j);
}

}  // namespace pixmoor::colour::avx2

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

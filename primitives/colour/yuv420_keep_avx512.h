// The copy of a vector step's samples, as yuv420_keep_avx2.h makes it, for
// the AVX-512 steps (64 luma samples of each line, 32 of each chroma line).
// Only units whose functions carry PIXMOOR_TARGET_AVX512 include this
// header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_KEEP_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_KEEP_AVX512_H

#include "primitives/colour/image_layouts.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <cstdint>

namespace pixmoor::colour::avx512 {

// The samples of the step at pair `j`, copied to `kept` when it is there.
PIXMOOR_TARGET_AVX512 inline void KeepStep32(const Yuv420Lines<const uint8_t>& in, const Yuv420Lines<uint8_t>* kept,
                                             int32_t j) {
    if (kept == nullptr) return;
    _mm512_storeu_si512(kept->y0 + 2 * j, _mm512_loadu_si512(in.y0 + 2 * j));
    _mm512_storeu_si512(kept->y1 + 2 * j, _mm512_loadu_si512(in.y1 + 2 * j));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(kept->u + j),
                        _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in.u + j)));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(kept->v + j),
                        _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in.v + j)));
}

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif

// Wider-vector forms of the 4:4:4 row kernels, each giving exactly the
// bytes of its tier's own kernel.  Each does the leading pixels of a line
// in whole steps and returns how many it did; the tier's own kernel does
// the rest.  Callers pick one only when isa::Has(...) allows its
// instruction set, once a row.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV444_FAST_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV444_FAST_ROWS_H

#include <cstdint>

#include "runtime/isa.h"

namespace pixmoor::colour::fast {

#if PIXMOOR_HAVE_X86_TARGETS

// ImgYUVAToRGBA, the wide arithmetic of px and m6; byte 3 kept.
int32_t WideYuvaToRgbaAvx2(const uint8_t* in, uint8_t* out, int32_t count);
int32_t WideYuvaToRgbaAvx512(const uint8_t* in, uint8_t* out, int32_t count);
// ImgYUVAToRGBA, the narrow arithmetic of a6 and w7; byte 3 kept.
int32_t NarrowYuvaToRgbaAvx2(const uint8_t* in, uint8_t* out, int32_t count);
int32_t NarrowYuvaToRgbaAvx512(const uint8_t* in, uint8_t* out, int32_t count);

// The leading pixels of an ImgYUVAToRGBA row done with the widest vectors
// the processor has, by the forms of one arithmetic; the forms are called
// in turn, each from where the wider one stopped.
using RgbaForm = int32_t (*)(const uint8_t* in, uint8_t* out, int32_t count);

inline int32_t RgbaLeading(RgbaForm avx512, RgbaForm avx2, const uint8_t* in, uint8_t* out, int32_t count) {
    int32_t done = 0;
    if (isa::Has(isa::kAvx512)) done = avx512(in, out, count);
    if (isa::Has(isa::kAvx2))
        done += avx2(in + 4 * static_cast<intptr_t>(done), out + 4 * static_cast<intptr_t>(done), count - done);
    return done;
}

#endif

}  // namespace pixmoor::colour::fast

#endif

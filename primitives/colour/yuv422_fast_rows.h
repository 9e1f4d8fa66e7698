// Wider-vector forms of the 4:2:2 row kernels, each giving exactly the
// bytes of its tier's own kernel.  Each does the leading pixels of a line
// in whole steps and returns how many it did (an even count); the tier's
// own kernel does the rest.  Callers pick one only when isa::Has(...)
// allows its instruction set, once a row.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_FAST_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_FAST_ROWS_H

#include <cstdint>

#include "runtime/isa.h"

namespace pixmoor::colour::fast {

#if PIXMOOR_HAVE_X86_TARGETS

// Packed 4:2:2 to packed RGB, the wide arithmetic of px and m6.
int32_t WidePacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count);
int32_t WidePacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count);
// Packed 4:2:2 to packed RGB, the narrow main-loop arithmetic of a6 and w7.
int32_t NarrowPacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count);
int32_t NarrowPacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count);

// The leading pixels of a packed 4:2:2 to packed RGB row done with the
// widest vectors the processor has, by the forms of one arithmetic; the
// forms are called in turn, each from where the wider one stopped.
using Packed422Form = int32_t (*)(const uint8_t* in, uint8_t* out, int32_t count);

inline int32_t Packed422Leading(Packed422Form avx512, Packed422Form avx2, const uint8_t* in, uint8_t* out,
                                int32_t count) {
    int32_t done = 0;
    if (isa::Has(isa::kAvx512)) done = avx512(in, out, count);
    if (isa::Has(isa::kAvx2))
        done += avx2(in + 2 * static_cast<intptr_t>(done), out + 3 * static_cast<intptr_t>(done), count - done);
    return done;
}

#endif

}  // namespace pixmoor::colour::fast

#endif

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
// Packed 4:2:2 to packed RGB, the narrow main-loop arithmetic of a6 and w7.
int32_t NarrowPacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count);

#endif

}  // namespace pixmoor::colour::fast

#endif

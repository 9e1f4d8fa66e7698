// Lines of the fixed 24-bit routines with byte shuffles, for processors
// with 256-bit integer vectors (whose byte shuffles they use on 128 bits).
#ifndef PIXMOOR_SIZE_FIXED_SCALERS_AVX2_H
#define PIXMOOR_SIZE_FIXED_SCALERS_AVX2_H

#include <cstdint>

#include "runtime/isa.h"

// One line of groups of 8 input pixels: doubling writes 48 bytes a group,
// halving reads 48 bytes a group; both return the pointers past the groups.
struct FixedLineKernels {
    void (*doubleLine)(const uint8_t*& src, uint8_t*& dst, int32_t groups);
    void (*halveLine)(const uint8_t*& src, uint8_t*& dst, int32_t groups);
};

#if PIXMOOR_HAVE_X86_TARGETS
const FixedLineKernels& FixedLineKernelsAvx2();
#endif

#endif

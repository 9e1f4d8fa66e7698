// The pixel map's lines with 256-bit vectors.
#ifndef PIXMOOR_SIZE_PIXEL_MAP_AVX2_H
#define PIXMOOR_SIZE_PIXEL_MAP_AVX2_H

#include <cstdint>

#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS
// Moves `pixels` pixels of 4 bytes, pixel i from src + offsets[i], reading
// nothing beyond the `lineBytes` bytes of the source line; returns the
// output's end.
uint8_t* CopyMappedWordsAvx2(const int32_t* offsets, int32_t pixels, int32_t lineBytes, const uint8_t* src,
                             uint8_t* dst);
#endif

#endif

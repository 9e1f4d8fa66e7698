// Crop and pad's walk with 256-bit moves, for processors that have them.
#ifndef PIXMOOR_SIZE_I420_CROP_PAD_AVX2_H
#define PIXMOOR_SIZE_I420_CROP_PAD_AVX2_H

#include <cstdint>

#include "runtime/isa.h"
#include "size/i420_crop_pad.h"

#if PIXMOOR_HAVE_X86_TARGETS
// Walks `count` strips from src to dst, as the plain walk does.
void WalkStripsAvx2(const PlaneStrip* strips, int32_t count, const uint8_t* src, uint8_t* dst);
#endif

#endif

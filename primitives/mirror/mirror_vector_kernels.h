// Byte kernels of the vector tiers, shared by the layouts whose lines are
// plain bytes (C1 and C3).
#ifndef PIXMOOR_PRIMITIVES_MIRROR_VECTOR_KERNELS_H
#define PIXMOOR_PRIMITIVES_MIRROR_VECTOR_KERNELS_H

#include <cstdint>

namespace pixmoor::mirror::vector {

// w7: 64-byte blocks after aligning the destination to 16 bytes; streaming
// stores when `flag` is set and the pointers' distance allows.
void CopyBytesW7(const uint8_t* src, uint8_t* dst, int32_t bytes, int32_t flag);

// a6: always streams, in 8-byte units after aligning the destination to 8.
void CopyBytesA6(const uint8_t* src, uint8_t* dst, int32_t bytes);

// Both vector tiers: exchanges two runs of bytes.
void SwapBytes(uint8_t* a, uint8_t* b, int32_t bytes);

}  // namespace pixmoor::mirror::vector

#endif

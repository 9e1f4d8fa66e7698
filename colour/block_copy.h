// One block move of a whole picture or plane, for the copying roads.
#ifndef PIXMOOR_COLOUR_BLOCK_COPY_H
#define PIXMOOR_COLOUR_BLOCK_COPY_H

#include <cstdint>

namespace pixmoor {

// Copies `bytes` bytes; the blocks do not overlap.
void CopyBlock(uint8_t* dst, const uint8_t* src, uint32_t bytes);

// The vector form, for blocks of at least 32 bytes that do not overlap, on
// processors with AVX2 (x86 builds only).
void CopyBlockAvx2(uint8_t* dst, const uint8_t* src, uint32_t bytes);

}  // namespace pixmoor

#endif

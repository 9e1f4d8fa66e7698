// One block move of a whole picture or plane, for the copying roads.
#ifndef PIXMOOR_COLOUR_BLOCK_COPY_H
#define PIXMOOR_COLOUR_BLOCK_COPY_H

#include <cstdint>

namespace pixmoor {

// Copies `bytes` bytes; the blocks do not overlap.
void CopyBlock(uint8_t* dst, const uint8_t* src, uint32_t bytes);

}  // namespace pixmoor

#endif

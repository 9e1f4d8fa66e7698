// Constants for the vector row kernels, built as the lanes hold them: two
// 16-bit values in a 32-bit lane, and four byte weights of a lane for the
// unsigned-by-signed byte multiply-add.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_LANE_CONSTANTS_H
#define PIXMOOR_PRIMITIVES_COLOUR_LANE_CONSTANTS_H

#include <cstdint>

namespace pixmoor::colour::avx2 {

// Two 16-bit values as one 32-bit lane: `low` in the low half.
constexpr int32_t LanePair(int32_t low, int32_t high) {
    return static_cast<int32_t>((static_cast<uint32_t>(static_cast<uint16_t>(high)) << 16) | static_cast<uint16_t>(low));
}

// Bytes 0 to 3 of a lane as weights for the byte multiply-add, which sums
// the products of bytes 0 and 1 into the low and of bytes 2 and 3 into the
// high 16-bit half.
constexpr int32_t ByteWeights(int b0, int b1, int b2, int b3) {
    return static_cast<int32_t>(static_cast<uint32_t>(b0 & 0xFF) | static_cast<uint32_t>(b1 & 0xFF) << 8 |
                                static_cast<uint32_t>(b2 & 0xFF) << 16 | static_cast<uint32_t>(b3 & 0xFF) << 24);
}

}  // namespace pixmoor::colour::avx2

#endif

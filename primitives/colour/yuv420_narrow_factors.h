// The inverse factors of the a6 and w7 4:2:0 kernels, for the kernels into
// 3-byte pixels and those into 4-byte pixels alike.  w7 has one set of
// factors everywhere (a6's RGB planes member uses it too); a6's packed
// kernel has the lanes of a6_shared.h in its main loop and its own set,
// one above w7's in size, in its tail.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_NARROW_FACTORS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_NARROW_FACTORS_H

#include <cstdint>

#include "primitives/colour/narrow_arith.h"

namespace pixmoor::colour::narrow {

inline constexpr InverseFactors kW7Inverse = {9338, 0, -3227, -4759, 16645};
inline constexpr InverseFactors kA6PackedTail = {9339, 0, -3228, -4760, 16646};

// The w7 factors as the lanes of a main-loop step (rows as in
// a6::kPackedInverseLanes).
alignas(16) inline const int16_t kW7InverseLanes[5][8] = {
    {9338, 9338, 9338, 9338, 9338, 9338, 9338, 9338},
    {0, 0, 0, 0, 0, 0, 0, 0},
    {-3227, -3227, -3227, -3227, -3227, -3227, -3227, -3227},
    {-4759, -4759, -4759, -4759, -4759, -4759, -4759, -4759},
    {16645, 16645, 16645, 16645, 16645, 16645, 16645, 16645},
};

}  // namespace pixmoor::colour::narrow

#endif

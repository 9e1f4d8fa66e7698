// Tier a6 of the 16-bit members: 64-bit vectors (the low halves of 128-bit
// registers), the same narrow form as w7, 2 pixel pairs a step and a last
// pair alone.
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/rgb16_sse2.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour {

const Rgb16Rows kRgb16RowsA6 = {
    &rgb16_sse2::Kernel<Word565, 2>,
    &rgb16_sse2::Kernel<Word555, 2>,
    &rgb16_sse2::Kernel<Word444, 2>,
    &FinishA6,
};

}  // namespace pixmoor::colour

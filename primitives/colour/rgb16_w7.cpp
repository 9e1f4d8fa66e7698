// Tier w7 of the 16-bit members: 128-bit vectors, the tier's own narrow
// form, 4 pixel pairs a step while the counter is below pairs AND NOT 3,
// then a step of 2 pairs and a last pair.
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/rgb16_sse2.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour {

const Rgb16Rows kRgb16RowsW7 = {
    &rgb16_sse2::Kernel<Word565, 4>,
    &rgb16_sse2::Kernel<Word555, 4>,
    &rgb16_sse2::Kernel<Word444, 4>,
    &FinishW7,
};

}  // namespace pixmoor::colour

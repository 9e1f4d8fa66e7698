// Tier w7 of the 16-bit members: 128-bit vectors, the tier's own narrow
// form, 4 pixel pairs a step while the counter is below pairs AND NOT 3,
// then a step of 2 pairs and a last pair.  Without the vectors the tier
// runs the same arithmetic in plain code.
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/tier_finish.h"

#ifdef PIXMOOR_HAVE_SSE2
#include "primitives/colour/rgb16_sse2.h"
#define PIXMOOR_RGB16_KERNEL(Word) &rgb16_sse2::Kernel<Word, 4>
#else
#define PIXMOOR_RGB16_KERNEL(Word) &narrow16::Kernel<Word>
#endif

namespace pixmoor::colour {

const Rgb16Rows kRgb16RowsW7 = {
    PIXMOOR_RGB16_KERNEL(Word565),
    PIXMOOR_RGB16_KERNEL(Word555),
    PIXMOOR_RGB16_KERNEL(Word444),
    &FinishW7,
};

}  // namespace pixmoor::colour

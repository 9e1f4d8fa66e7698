// Tier a6 of the 16-bit members: 64-bit vectors (the low halves of 128-bit
// registers), the same narrow form as w7, 2 pixel pairs a step and a last
// pair alone.  Without the vectors the tier runs the same arithmetic in
// plain code.
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/tier_finish.h"

#ifdef PIXMOOR_HAVE_SSE2
#include "primitives/colour/rgb16_sse2.h"
#define PIXMOOR_RGB16_KERNEL(Word) &rgb16_sse2::Kernel<Word, 2>
#else
#define PIXMOOR_RGB16_KERNEL(Word) &narrow16::Kernel<Word>
#endif

namespace pixmoor::colour {

const Rgb16Rows kRgb16RowsA6 = {
    PIXMOOR_RGB16_KERNEL(Word565),
    PIXMOOR_RGB16_KERNEL(Word555),
    PIXMOOR_RGB16_KERNEL(Word444),
    &FinishA6,
};

}  // namespace pixmoor::colour

// Tier a6 of the gray and analogue 4:2:2 members.  The 8-bit gray kernels keep
// the plain integer arithmetic of px; the 16-bit and float kernels work in
// single-precision lanes, four pixels a step.
#include "primitives/colour/analog422_sse2.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/gray_scalar_rows.h"
#include "primitives/colour/gray_sse2.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour::gray {

const GrayRows kGrayRowsA6{ScalarDepthRows<Plain8u, uint8_t>(),
                           SingleLanesDepthRows<Single16u, uint16_t>(),
                           SingleLanesDepthRows<Single16s, int16_t>(),
                           SingleLanesDepthRows<Single32f, float>(),
                           &analog422::VectorRow,
                           &FinishA6};

}  // namespace pixmoor::colour::gray

// Tier w7 of the gray and analogue 4:2:2 members.  The 8-bit kernels take
// eight pixels a step on 16-bit lanes; the 16-bit and float kernels work in
// single-precision lanes, four pixels a step.
#include "primitives/colour/analog422_sse2.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/gray_sse2.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour::gray {

const GrayRows kGrayRowsW7{GrayDepthRows<uint8_t>{&Lanes8uRow<3>, &Lanes8uRow<4>},
                           SingleLanesDepthRows<Single16u, uint16_t>(),
                           SingleLanesDepthRows<Single16s, int16_t>(),
                           SingleLanesDepthRows<Single32f, float>(),
                           &analog422::VectorRow,
                           &FinishW7};

}  // namespace pixmoor::colour::gray

// Tier px of the gray and analogue 4:2:2 members: plain code, one pixel at
// a time; 16-bit and float gray in double.
#include "primitives/colour/analog422_row.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/gray_scalar_rows.h"
#include "primitives/colour/tier_finish.h"

namespace pixmoor::colour::gray {

const GrayRows kGrayRowsPx{ScalarDepthRows<Plain8u, uint8_t>(),  ScalarDepthRows<Plain16u, uint16_t>(),
                           ScalarDepthRows<Plain16s, int16_t>(), ScalarDepthRows<Plain32f, float>(),
                           &analog422::Row,                      &FinishPlain};

}  // namespace pixmoor::colour::gray

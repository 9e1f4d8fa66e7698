// Tier m6 of the YCbCr members: the same plain code and arithmetic as px,
// clamping through the tier's own table.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_rows.h"

namespace pixmoor::colour {

const YCbCrRows kYCbCrRowsM6 = ycc::MakeYCbCrRows<ycc::Reference<ImgClampTableM6>>(&FinishPlain);

}  // namespace pixmoor::colour

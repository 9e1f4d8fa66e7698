// Tier px of the YCbCr members: plain code, the reference arithmetic.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_rows.h"

namespace pixmoor::colour {

const YCbCrRows kYCbCrRowsPx = ycc::MakeYCbCrRows<ycc::Reference<ImgClampTable>>(&FinishPlain);

}  // namespace pixmoor::colour

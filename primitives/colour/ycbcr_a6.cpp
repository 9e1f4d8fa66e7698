// Tier a6 of the YCbCr members.  The 4:2:0 members run the 12-bit lane
// arithmetic (forward) and the five-factor lane inverse; every other member
// of this tier, the AC4 members among them, gives the reference results.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_lane_arith.h"
#include "primitives/colour/ycbcr_rows.h"

namespace pixmoor::colour {
namespace {

constexpr YCbCrRows MakeRowsA6() {
    YCbCrRows rows = ycc::MakeYCbCrRows<ycc::Reference<ImgClampTable>>(&FinishA6);
    rows.rgbTo420 = &ycc::Forward420Row<lanes::Arith420>;
    rows.from420ToRgb = &ycc::Inverse420Row<lanes::Arith420>;
    return rows;
}

}  // namespace

const YCbCrRows kYCbCrRowsA6 = MakeRowsA6();

}  // namespace pixmoor::colour

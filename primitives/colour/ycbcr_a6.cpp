// Tier a6 of the YCbCr members.  The 4:2:0 members run the 12-bit lane
// arithmetic (forward, 4 pairs a step) and the five-factor lane inverse
// (four lumas of each line a step); every other member of this tier, the
// AC4 members among them, gives the reference results.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_lane_arith.h"
#include "primitives/colour/ycbcr_rows.h"
#include "primitives/colour/ycbcr_vector_420.h"

namespace pixmoor::colour {
namespace {

constexpr YCbCrRows MakeRowsA6() {
    YCbCrRows rows = ycc::MakeYCbCrRows<ycc::Reference<ImgClampTable>>(&FinishA6);
    rows.rgbTo420 = &ycc_vector::Forward420<true>;
    rows.from420ToRgb = &ycc_vector::Inverse420<2>;
    return rows;
}

}  // namespace

const YCbCrRows kYCbCrRowsA6 = MakeRowsA6();

}  // namespace pixmoor::colour

// Tier px of the 4:4:4 members: plain code, wide arithmetic.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_wide.h"

namespace pixmoor::colour {

const Yuv444Rows kYuv444RowsPx = wide::MakeYuv444Rows<ImgClampTable>(&FinishPlain);

}  // namespace pixmoor::colour

// Tier m6 of the 4:4:4 members: the same plain code and arithmetic as px,
// with the tier's own clamp table; these kernels use no vector instructions.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_wide.h"

namespace pixmoor::colour {

const Yuv444Rows kYuv444RowsM6 = wide::MakeYuv444Rows<ImgClampTableM6>(&FinishPlain);

}  // namespace pixmoor::colour

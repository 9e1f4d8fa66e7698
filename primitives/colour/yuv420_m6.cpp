// Tier m6 of the 4:2:0 members: the same plain code and arithmetic as px,
// with the tier's own clamp table; these kernels use no vector instructions.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_rows.h"
#include "primitives/colour/yuv420_wide_rows.h"

namespace pixmoor::colour {

const Yuv420Rows kYuv420RowsM6 = wide::MakeRows<ImgClampTableM6>(&FinishPlain);

}  // namespace pixmoor::colour

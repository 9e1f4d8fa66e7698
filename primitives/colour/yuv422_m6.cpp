// Tier m6 of the 4:2:2 members: the same plain code and arithmetic as px,
// with the tier's own clamp table; these kernels use no vector
// instructions.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_plain_sets.h"

namespace pixmoor::colour {

const Yuv422Rows kYuv422RowsM6 = yuv422::MakeWideRows<ImgClampTableM6>();

}  // namespace pixmoor::colour

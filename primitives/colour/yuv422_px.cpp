// Tier px of the 4:2:2 members: plain code, wide arithmetic, clamping
// through the tier's table.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_plain_sets.h"

namespace pixmoor::colour {

const Yuv422Rows kYuv422RowsPx = yuv422::MakeWideRows<ImgClampTable>();

}  // namespace pixmoor::colour

// Tier px of the 4:2:0 members: plain code, wide arithmetic.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_rows.h"
#include "primitives/colour/yuv420_wide_rows.h"

namespace pixmoor::colour {

const Yuv420Rows kYuv420RowsPx = wide::MakeRows<ImgClampTable>(&FinishPlain);

}  // namespace pixmoor::colour

// Tier m6 of the 16-bit members: the same plain code and arithmetic as px,
// with the tier's own clamp table.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_wide_rows.h"

namespace pixmoor::colour {

const Rgb16Rows kRgb16RowsM6 = {
    &wide::FromYuv420Kernel<ImgClampTableM6, Rgb16Out<Word565>>,
    &wide::FromYuv420Kernel<ImgClampTableM6, Rgb16Out<Word555>>,
    &wide::FromYuv420Kernel<ImgClampTableM6, Rgb16Out<Word444>>,
    &FinishPlain,
};

}  // namespace pixmoor::colour

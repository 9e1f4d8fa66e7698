// Tier px of the 16-bit members: plain code, the wide arithmetic of the
// 4:2:0 inverse, with the fields cut on the store.
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_wide_rows.h"

namespace pixmoor::colour {

const Rgb16Rows kRgb16RowsPx = {
    &wide::FromYuv420Kernel<ImgClampTable, Rgb16Out<Word565>>,
    &wide::FromYuv420Kernel<ImgClampTable, Rgb16Out<Word555>>,
    &wide::FromYuv420Kernel<ImgClampTable, Rgb16Out<Word444>>,
    &FinishPlain,
};

}  // namespace pixmoor::colour

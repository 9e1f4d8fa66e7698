// The px and m6 drivers of the 4:2:0 conversion into 4-byte pixels: the
// shared driver and wide row kernel over the 4-byte layout, with the clamp
// table of the tier.
#include "primitives/colour/yuv420_wide_rgb0.h"

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_driver.h"
#include "primitives/colour/yuv420_wide_rows.h"

namespace pixmoor::colour {

void Yuv420ToRgb0Wide(PrimTier tier, const uint8_t* const planes[3], uint8_t* dst, int32_t dstStep,
                      int32_t width, int32_t height) {
    const int32_t chromaStep = CompactChromaStep(width);
    const Yuv420Planes<const uint8_t> in{planes[0], planes[1], planes[2], CompactPlaneStep(width), chromaStep,
                                         chromaStep};
    const FromYuv420Row<PackedRgb0Out> row = tier == PrimTierM6
                                                 ? &wide::FromYuv420Kernel<ImgClampTableM6, PackedRgb0Out>
                                                 : &wide::FromYuv420Kernel<ImgClampTable, PackedRgb0Out>;
    DriveFromYuv420(in, PackedRgb0Out{{dst, dstStep}}, width, height, row, &FinishPlain);
}

}  // namespace pixmoor::colour

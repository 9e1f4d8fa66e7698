// The row kernels of the 4:2:0 members, one set per tier, and what each
// tier does after its last row.  Each tier's unit fills its set; the
// wrappers pick the set of the tier they serve.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_ROWS_H

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/yuv420_driver.h"

namespace pixmoor::colour {

struct Yuv420Rows {
    ToYuv420Row<PackedRgbIn> rgbToYuv420;
    ToYuv420Row<RgbPlanesIn> rgbPlanesToYuv420;
    FromYuv420Row<PackedRgbOut> yuv420ToRgb;
    FromYuv420Row<RgbPlanesOut> yuv420ToRgbPlanes;
    TierFinish finish;
};

extern const Yuv420Rows kYuv420RowsPx;
extern const Yuv420Rows kYuv420RowsM6;
extern const Yuv420Rows kYuv420RowsA6;
extern const Yuv420Rows kYuv420RowsW7;

}  // namespace pixmoor::colour

#endif

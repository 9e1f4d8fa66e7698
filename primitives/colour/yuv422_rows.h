// The row kernels of the 4:2:2 members, one set per tier, and what each
// tier does after its last row.  Each tier's unit fills its set; the
// wrappers pick the set of the tier they serve.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_ROWS_H

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/yuv422_driver.h"
#include "primitives/colour/yuv422_layouts.h"

namespace pixmoor::colour {

struct Yuv422Rows {
    Yuv422Row<Packed422In, PackedRgbOut> packedToRgb;
    Yuv422Row<PackedRgbIn, Yuv422PlanesOut> rgbToPlanes;
    Yuv422Row<RgbPlanesIn, Yuv422PlanesOut> rgbPlanesToPlanes;
    Yuv422Row<Yuv422PlanesIn, PackedRgbOut> planesToRgb;
    Yuv422Row<Yuv422PlanesIn, RgbPlanesOut> planesToRgbPlanes;
    TierFinish finish;
};

extern const Yuv422Rows kYuv422RowsPx;
extern const Yuv422Rows kYuv422RowsM6;
extern const Yuv422Rows kYuv422RowsA6;
extern const Yuv422Rows kYuv422RowsW7;

}  // namespace pixmoor::colour

#endif

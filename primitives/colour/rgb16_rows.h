// The row kernels of the 16-bit members, one per word layout and tier, and
// what each tier does after its last row.  Each tier's unit fills its set.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB16_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB16_ROWS_H

#include "primitives/colour/rgb16_words.h"
#include "primitives/colour/yuv420_driver.h"

namespace pixmoor::colour {

struct Rgb16Rows {
    FromYuv420Row<Rgb16Out<Word565>> to565;
    FromYuv420Row<Rgb16Out<Word555>> to555;
    FromYuv420Row<Rgb16Out<Word444>> to444;
    TierFinish finish;
};

extern const Rgb16Rows kRgb16RowsPx;
extern const Rgb16Rows kRgb16RowsM6;
extern const Rgb16Rows kRgb16RowsA6;
extern const Rgb16Rows kRgb16RowsW7;

}  // namespace pixmoor::colour

#endif

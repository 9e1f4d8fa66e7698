// Tier w7 of the 4:2:2 members (interim: plain narrow arithmetic).
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_arith.h"
#include "primitives/colour/yuv422_plain_rows.h"
#include "primitives/colour/yuv422_rows.h"

namespace pixmoor::colour {

using namespace yuv422;

const Yuv422Rows kYuv422RowsW7 = {
    &FromYuv422Kernel<NarrowInverseLone13, Packed422In, PackedRgbOut>,
    &ToYuv422Kernel<NarrowForward, PackedRgbIn>,
    &ToYuv422Kernel<NarrowForward, RgbPlanesIn>,
    &FromYuv422Kernel<NarrowInverse, Yuv422PlanesIn, PackedRgbOut>,
    &FromYuv422Kernel<NarrowInverse, Yuv422PlanesIn, RgbPlanesOut>,
    &FinishW7,
};

}  // namespace pixmoor::colour

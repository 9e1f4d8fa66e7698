// The row kernel set of the plain-code tiers (px, m6): the plain kernels
// with the wide arithmetic and the tier's clamp table.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_WIDE_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_WIDE_ROWS_H

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_arith.h"
#include "primitives/colour/yuv422_plain_rows.h"
#include "primitives/colour/yuv422_rows.h"

namespace pixmoor::colour::yuv422 {

template <const ClampTable& Clamp>
constexpr Yuv422Rows MakeWideRows() {
    using Forward = WideForward<Clamp>;
    using Inverse = WideInverse<Clamp>;
    return Yuv422Rows{
        &FromYuv422Kernel<Inverse, Packed422In, PackedRgbOut>,
        &ToYuv422Kernel<Forward, PackedRgbIn>,
        &ToYuv422Kernel<Forward, RgbPlanesIn>,
        &FromYuv422Kernel<Inverse, Yuv422PlanesIn, PackedRgbOut>,
        &FromYuv422Kernel<Inverse, Yuv422PlanesIn, RgbPlanesOut>,
        &FinishPlain,
    };
}

}  // namespace pixmoor::colour::yuv422

#endif

// Row kernel sets of plain kernels: those of the plain-code tiers (px, m6),
// with the wide arithmetic and the tier's clamp table, and the portable
// forms of the vector tiers where their vectors are missing.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_PLAIN_SETS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_PLAIN_SETS_H

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_arith.h"
#include "primitives/colour/yuv422_plain_rows.h"
#include "primitives/colour/yuv422_rows.h"

namespace pixmoor::colour::yuv422 {

// A set of plain kernels: the forward arithmetic, the inverse arithmetic of
// packed 4:2:2 (whose lone pixel may have its own form) and of the planes.
template <class Forward, class PackedInverse, class Inverse>
constexpr Yuv422Rows MakePlainRows(TierFinish finish) {
    return Yuv422Rows{
        &FromYuv422Kernel<PackedInverse, Packed422In, PackedRgbOut>,
        &ToYuv422Kernel<Forward, PackedRgbIn>,
        &ToYuv422Kernel<Forward, RgbPlanesIn>,
        &FromYuv422Kernel<Inverse, Yuv422PlanesIn, PackedRgbOut>,
        &FromYuv422Kernel<Inverse, Yuv422PlanesIn, RgbPlanesOut>,
        finish,
    };
}

template <const ClampTable& Clamp>
constexpr Yuv422Rows MakeWideRows() {
    return MakePlainRows<WideForward<Clamp>, WideInverse<Clamp>, WideInverse<Clamp>>(&FinishPlain);
}

}  // namespace pixmoor::colour::yuv422

#endif

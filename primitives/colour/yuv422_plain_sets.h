// Row kernel sets of plain kernels: those of the plain-code tiers (px, m6),
// with the wide arithmetic and the tier's clamp table, and the portable
// forms of the vector tiers where their vectors are missing.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_PLAIN_SETS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_PLAIN_SETS_H

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_arith.h"
#include "primitives/colour/yuv422_fast_rows.h"
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

// Packed 4:2:2 to packed RGB in the wide arithmetic: the leading pixels in
// a wider-vector form where the processor has one, the rest in plain code.
template <const ClampTable& Clamp>
void WidePackedToRgb(Packed422In::Line in, PackedRgbOut::Line out, int32_t count) {
    int32_t done = 0;
#if PIXMOOR_HAVE_X86_TARGETS
    done = fast::Packed422Leading(&fast::WidePacked422ToRgbAvx512, &fast::WidePacked422ToRgbAvx2, in, out, count);
#endif
    FromYuv422From<WideInverse<Clamp>, Packed422In, PackedRgbOut>(in, out, done >> 1, count);
}

template <const ClampTable& Clamp>
constexpr Yuv422Rows MakeWideRows() {
    Yuv422Rows rows = MakePlainRows<WideForward<Clamp>, WideInverse<Clamp>, WideInverse<Clamp>>(&FinishPlain);
    rows.packedToRgb = &WidePackedToRgb<Clamp>;
    return rows;
}

}  // namespace pixmoor::colour::yuv422

#endif

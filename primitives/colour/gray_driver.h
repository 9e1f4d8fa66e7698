// Drivers of the gray members and of the analogue 4:2:2 member, shared by
// all four tiers: one row kernel call per line, then the tier's finish.
// The row kernels cover a whole line, odd widths included, so there is no
// edge code here.  Steps arrive in samples of the line's type.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_GRAY_DRIVER_H
#define PIXMOOR_PRIMITIVES_COLOUR_GRAY_DRIVER_H

#include <cstdint>

#include "primitives/colour/gray_arith.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour::gray {

template <typename In, typename Out, class Row>
void EachLine(const In* src, int32_t srcStep, Out* dst, int32_t dstStep, int32_t height, Row row,
              void (*finish)()) {
    for (int32_t i = 0; i < height; ++i) row(LineAt(src, srcStep, i), LineAt(dst, dstStep, i));
    finish();
}

// A null weights pointer selects the defaults; the 8-bit depth turns the
// weights into integers once for the whole image.
template <typename Sample>
void DriveGray(GrayRow<Sample> row, void (*finish)(), const Sample* src, int32_t srcStep,
               Sample* dst, int32_t dstStep, int32_t width, int32_t height, const float* weights) {
    const typename Depth<Sample>::Weights k = Depth<Sample>::Convert(weights ? weights : kDefaultWeights);
    EachLine(src, srcStep, dst, dstStep, height,
             [&](const Sample* s, Sample* d) { row(s, d, width, k); }, finish);
}

inline void DriveAnalog422(Analog422Row row, void (*finish)(), const uint8_t* src, int32_t srcStep,
                           uint8_t* dst, int32_t dstStep, int32_t width, int32_t height) {
    EachLine(src, srcStep, dst, dstStep, height,
             [&](const uint8_t* s, uint8_t* d) { row(s, d, width); }, finish);
}

}  // namespace pixmoor::colour::gray

#endif

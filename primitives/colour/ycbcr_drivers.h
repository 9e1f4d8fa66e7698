// Drivers of the 4:4:4 and 4:2:2 YCbCr members, shared by all four tiers.
// Lines are independent: a driver calls the tier's row kernel once a line
// with the width in pixels (a 4:2:2 kernel treats an odd last pixel
// itself), and lets the tier finish its vector work.  The 4:2:0 members use
// the 4:2:0 drivers with the YCbCr edge arithmetic below.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_DRIVERS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_DRIVERS_H

#include <cstdint>

#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_layouts.h"
#include "primitives/colour/yuv420_driver.h"

namespace pixmoor::colour {

// A row kernel: one source line in, one destination line out, `count`
// pixels.
template <class In, class Out>
using LineRow = void (*)(typename In::Line src, typename Out::Line dst, int32_t count);

template <class In, class Out>
void DriveLines(const In& src, const Out& dst, int32_t width, int32_t height, LineRow<In, Out> row,
                TierFinish finish) {
    for (int32_t i = 0; i < height; ++i) row(src.LineAt(i), dst.LineAt(i), width);
    finish();
}

// The whole-image run of the members that write 16-bit words: when the
// lines have no gaps between them, the image is one long line, taken in a
// first call of width * height pixels rounded down to a multiple of 8 and a
// second call of the rest.  Otherwise line by line; the bytes are the same.
template <class In, class Out>
void DriveLinesOrRun(const In& src, const Out& dst, int32_t width, int32_t height, bool gapless,
                     LineRow<In, Out> row, TierFinish finish) {
    if (!gapless) {
        DriveLines(src, dst, width, height, row, finish);
        return;
    }
    const int32_t pixels = static_cast<int32_t>(static_cast<uint32_t>(width) * static_cast<uint32_t>(height));
    const int32_t first = pixels & ~7;
    row(src.base, dst.base, first);
    if (pixels != first) row(In::Skip(src.base, first), Out::Skip(dst.base, first), pixels - first);
    finish();
}

// 4:2:2 interleaved sources.  A width of 1 goes round the row kernel: each
// line holds Y and one chroma byte, which serves as both chroma values, and
// the driver converts it with comparisons for the clamp, in every tier.
// Other widths go to `lines`, the member's line driver.
template <class Out, class Lines>
void DriveFromC2(const C2In& src, const Out& dst, int32_t width, int32_t height, Lines lines) {
    if (width != 1) {
        lines();
        return;
    }
    for (int32_t i = 0; i < height; ++i) {
        const uint8_t* p = src.LineAt(i);
        StoreAlone(dst, i, ycc::WidthOne(p[0], p[1]));
    }
}

// Edge arithmetic of the 4:2:0 members: the reference formulas, in every
// tier.  Two pixels (the last column's vertical pair or the last line's
// horizontal pair) form a block of two; the corner pixel is alone.
struct YCbCrForwardEdges {
    static uint8_t Y(Rgb p) { return ycc::Luma(p); }
    static void Chroma(Rgb a, Rgb b, uint8_t* cb, uint8_t* cr) {
        const Rgb s = ycc::Sum(a, b);
        *cb = ycc::Cb(s, ycc::kChromaTwo, 17);
        *cr = ycc::Cr(s, ycc::kChromaTwo, 17);
    }
    static void Chroma(Rgb a, uint8_t* cb, uint8_t* cr) {
        *cb = ycc::Cb(a, ycc::kChromaOne, 16);
        *cr = ycc::Cr(a, ycc::kChromaOne, 16);
    }
};

struct YCbCrInverseEdges {
    static Rgb ToRgb(int32_t y, int32_t u, int32_t v) { return ycc::Inverse(ImgClampTable, y, u, v); }
};

}  // namespace pixmoor::colour

#endif

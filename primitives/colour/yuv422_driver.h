// Drivers of the 4:2:2 members, shared by all four tiers.  Lines are
// independent, so a driver is a plain line loop: one row kernel call a line
// for `width` pixels (the kernel treats an odd last pixel itself), then the
// tier's finish.
//
// The compact forms also have the one-long-line path: a frame of at least
// 256 pixels with an even width has no gaps between its lines, so the whole
// image is one line of width * height pixels.  The kernel then runs twice:
// once for the pixels up to a multiple of 8, once for the rest (pointers
// moved on, chroma by half).  Both paths give the same samples.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_DRIVER_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_DRIVER_H

#include <cstdint>

#include "primitives/colour/yuv420_driver.h"
#include "primitives/colour/yuv422_layouts.h"

namespace pixmoor::colour {

// Row kernel: one line in, one line out, `count` pixels.
template <class In, class Out>
using Yuv422Row = void (*)(typename In::Line in, typename Out::Line out, int32_t count);

template <class In, class Out>
void DriveLines(const In& src, const Out& dst, int32_t width, int32_t height,
                Yuv422Row<In, Out> row, TierFinish finish) {
    for (int32_t i = 0; i < height; ++i) row(src.LineAt(i), dst.LineAt(i), width);
    finish();
}

// True when a compact frame may be taken as one long line.
inline bool IsOneLongLine(int32_t width, int32_t height) {
    return static_cast<int64_t>(width) * height >= 256 && (width & 1) == 0;
}

template <class In, class Out>
void DriveCompact(const In& src, const Out& dst, int32_t width, int32_t height,
                  Yuv422Row<In, Out> row, TierFinish finish) {
    if (!IsOneLongLine(width, height)) {
        DriveLines(src, dst, width, height, row, finish);
        return;
    }
    const int32_t pixels = static_cast<int32_t>(static_cast<uint32_t>(width) * static_cast<uint32_t>(height));
    const int32_t whole = pixels & ~7;
    const typename In::Line in = src.LineAt(0);
    const typename Out::Line out = dst.LineAt(0);
    row(in, out, whole);
    if (pixels != whole) row(SkipPixels(in, whole), SkipPixels(out, whole), pixels - whole);
    finish();
}

// ImgYUV422ToRGB at width 1: byte 0 is Y and byte 1 serves as both U and
// V.  This loop is the same in all tiers, wide arithmetic included.
template <class Out>
void DriveSingleColumn(const Packed422In& src, const Out& dst, int32_t height) {
    for (int32_t i = 0; i < height; ++i) {
        const uint8_t* p = src.LineAt(i);
        Out::Store(dst.LineAt(i), 0, WideInverseEdges::ToRgb(p[0], p[1], p[1]));
    }
}

}  // namespace pixmoor::colour

#endif

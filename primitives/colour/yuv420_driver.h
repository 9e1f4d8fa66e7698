// Drivers of the 4:2:0 members, shared by all four tiers.  A driver walks
// the image in line pairs, hands each pair to the tier's row kernel for
// width / 2 pixel pairs, lets the tier finish its vector work, and then
// treats in plain code what the row kernel does not cover:
//   - the last column of an odd width, one chroma sample per line pair;
//   - the last line of an odd height, one chroma sample per pixel pair;
//   - the corner pixel of an odd width and odd height.
// The edge code is the same in every tier (the Edges policy, by default the
// wide arithmetic without rounding bias), so an odd picture's last column
// and line may differ by one from what the tier's own kernel would give.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_DRIVER_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_DRIVER_H

#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"
#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour {

// Row kernels: two lines in, one line pair of 4:2:0 out, or the reverse.
// `pairs` counts pixel pairs of each line.
template <class In>
using ToYuv420Row = void (*)(typename In::Line top, typename In::Line bottom,
                             const Yuv420Lines<uint8_t>& out, int32_t pairs);
template <class Out>
using FromYuv420Row = void (*)(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                               typename Out::Line bottom, int32_t pairs);

// What a tier does once after its last row kernel call (clear the vector
// state, fence its streaming stores).
using TierFinish = void (*)();

// Edge arithmetic of the forward members: wide, px constants, no bias.
struct WideForwardEdges {
    static uint8_t Y(Rgb p) { return wide::LumaByte(p); }
    // Two pixels, vertical or horizontal neighbours.
    static void Chroma(Rgb a, Rgb b, uint8_t* u, uint8_t* v) {
        const int32_t luma = wide::Luma(a) + wide::Luma(b);
        *u = wide::ChromaU(a.b + b.b, luma, 0, 17);
        *v = wide::ChromaV(ImgClampTable, a.r + b.r, luma, 0, 17);
    }
    // The corner pixel alone.
    static void Chroma(Rgb a, uint8_t* u, uint8_t* v) {
        const int32_t luma = wide::Luma(a);
        *u = wide::ChromaU(a.b, luma, 0, 16);
        *v = wide::ChromaV(ImgClampTable, a.r, luma, 0, 16);
    }
};

// Edge arithmetic of the inverse members: the wide formulas.
struct WideInverseEdges {
    static Rgb ToRgb(int32_t y, int32_t u, int32_t v) {
        return wide::ToRgb(ImgClampTable, y, wide::Terms(u, v));
    }
};

template <class In, class Edges = WideForwardEdges>
void DriveToYuv420(const In& src, const Yuv420Planes<uint8_t>& dst, int32_t width,
                   int32_t height, ToYuv420Row<In> row, TierFinish finish) {
    const int32_t pairs = width >> 1;
    const int32_t linePairs = height >> 1;
    for (int32_t i = 0; i < linePairs; ++i)
        row(src.LineAt(2 * i), src.LineAt(2 * i + 1), LinePair(dst, i), pairs);
    finish();

    if (width & 1) {
        const int32_t x = width - 1;
        for (int32_t i = 0; i < linePairs; ++i) {
            const Yuv420Lines<uint8_t> out = LinePair(dst, i);
            const Rgb a = In::Pixel(src.LineAt(2 * i), x);
            const Rgb b = In::Pixel(src.LineAt(2 * i + 1), x);
            out.y0[x] = Edges::Y(a);
            out.y1[x] = Edges::Y(b);
            Edges::Chroma(a, b, out.u + pairs, out.v + pairs);
        }
    }
    if (height & 1) {
        const typename In::Line line = src.LineAt(height - 1);
        uint8_t* y = LineAt(dst.y, dst.yStep, height - 1);
        uint8_t* u = LineAt(dst.u, dst.uStep, linePairs);
        uint8_t* v = LineAt(dst.v, dst.vStep, linePairs);
        for (int32_t j = 0; j < pairs; ++j) {
            const Rgb a = In::Pixel(line, 2 * j);
            const Rgb b = In::Pixel(line, 2 * j + 1);
            y[2 * j] = Edges::Y(a);
            y[2 * j + 1] = Edges::Y(b);
            Edges::Chroma(a, b, u + j, v + j);
        }
        if (width & 1) {
            const Rgb a = In::Pixel(line, width - 1);
            y[width - 1] = Edges::Y(a);
            Edges::Chroma(a, u + pairs, v + pairs);
        }
    }
}

template <class Out, class Edges = WideInverseEdges>
void DriveFromYuv420(const Yuv420Planes<const uint8_t>& src, const Out& dst, int32_t width,
                     int32_t height, FromYuv420Row<Out> row, TierFinish finish) {
    const int32_t pairs = width >> 1;
    const int32_t linePairs = height >> 1;
    for (int32_t i = 0; i < linePairs; ++i)
        row(LinePair(src, i), dst.LineAt(2 * i), dst.LineAt(2 * i + 1), pairs);
    finish();

    if (width & 1) {
        const int32_t x = width - 1;
        for (int32_t i = 0; i < linePairs; ++i) {
            const Yuv420Lines<const uint8_t> in = LinePair(src, i);
            const int32_t u = in.u[pairs];
            const int32_t v = in.v[pairs];
            Out::Store(dst.LineAt(2 * i), x, Edges::ToRgb(in.y0[x], u, v));
            Out::Store(dst.LineAt(2 * i + 1), x, Edges::ToRgb(in.y1[x], u, v));
        }
    }
    if (height & 1) {
        const typename Out::Line line = dst.LineAt(height - 1);
        const uint8_t* y = LineAt(src.y, src.yStep, height - 1);
        const uint8_t* u = LineAt(src.u, src.uStep, linePairs);
        const uint8_t* v = LineAt(src.v, src.vStep, linePairs);
        for (int32_t j = 0; j < pairs; ++j) {
            Out::Store(line, 2 * j, Edges::ToRgb(y[2 * j], u[j], v[j]));
            Out::Store(line, 2 * j + 1, Edges::ToRgb(y[2 * j + 1], u[j], v[j]));
        }
        if (width & 1)
            Out::Store(line, width - 1, Edges::ToRgb(y[width - 1], u[pairs], v[pairs]));
    }
}

}  // namespace pixmoor::colour

#endif

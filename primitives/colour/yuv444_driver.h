// Layouts, row kernels and the driver of the 4:4:4 members.  Every pixel is
// converted by itself, so the driver is a plain line loop: one row kernel
// call per line for `width` pixels, then the tier's finish.  There is no
// odd-size code.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV444_DRIVER_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV444_DRIVER_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/yuv420_driver.h"  // TierFinish

namespace pixmoor::colour {

// The three samples of one YUV pixel.
struct Yuv {
    int32_t y, u, v;
};

// Packed pixels of `Bytes` bytes (3, or 4 with byte 3 left alone), samples
// in memory order.  `Sample` is const-qualified for a source.
template <int Bytes, typename Sample>
struct PackedPixels {
    using Line = Sample*;
    static constexpr int kBytes = Bytes;

    Sample* base;
    int32_t step;

    static PackedPixels From(Sample* p, int32_t step) { return PackedPixels{p, step}; }
    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }

    template <class Trio>
    static Trio Get(Line l, int32_t x) {
        const Sample* p = l + Bytes * static_cast<intptr_t>(x);
        return Trio{p[0], p[1], p[2]};
    }
    template <class Trio>
    static void Put(Line l, int32_t x, const Trio& t) {
        const auto& [a, b, c] = t;
        Sample* p = l + Bytes * static_cast<intptr_t>(x);
        p[0] = static_cast<uint8_t>(a);
        p[1] = static_cast<uint8_t>(b);
        p[2] = static_cast<uint8_t>(c);
    }
};

// The lines of three full-size planes, in array order.
template <typename Sample>
struct PlaneLines {
    Sample* plane[3];
};

// Three full-size planes sharing one step.
template <typename Sample>
struct PlanePixels {
    using Line = PlaneLines<Sample>;

    Sample* plane[3];
    int32_t step;

    static PlanePixels From(Sample* const p[3], int32_t step) { return PlanePixels{{p[0], p[1], p[2]}, step}; }
    Line LineAt(int32_t line) const {
        return Line{{colour::LineAt(plane[0], step, line), colour::LineAt(plane[1], step, line),
                     colour::LineAt(plane[2], step, line)}};
    }

    template <class Trio>
    static Trio Get(const Line& l, int32_t x) {
        return Trio{l.plane[0][x], l.plane[1][x], l.plane[2][x]};
    }
    template <class Trio>
    static void Put(const Line& l, int32_t x, const Trio& t) {
        const auto& [a, b, c] = t;
        l.plane[0][x] = static_cast<uint8_t>(a);
        l.plane[1][x] = static_cast<uint8_t>(b);
        l.plane[2][x] = static_cast<uint8_t>(c);
    }
};

using Packed3In = PackedPixels<3, const uint8_t>;
using Packed3Out = PackedPixels<3, uint8_t>;
using Packed4In = PackedPixels<4, const uint8_t>;
using Packed4Out = PackedPixels<4, uint8_t>;
using PlanesIn = PlanePixels<const uint8_t>;
using PlanesOut = PlanePixels<uint8_t>;

// A row kernel: one source line, one destination line, `count` pixels.
template <class In, class Out>
using Yuv444Row = void (*)(typename In::Line in, typename Out::Line out, int32_t count);

// Pixels [from, to) of a line, one at a time through a per-pixel
// conversion: the whole row of the plain tiers, the tails and prologues of
// the vector tiers.
template <class In, class Out, class Convert>
void ConvertPixels(typename In::Line in, typename Out::Line out, int32_t from, int32_t to) {
    for (int32_t x = from; x < to; ++x)
        Out::Put(out, x, Convert::Pixel(In::template Get<typename Convert::Source>(in, x)));
}

template <class In, class Out, class Convert>
void ConvertRow(typename In::Line in, typename Out::Line out, int32_t count) {
    ConvertPixels<In, Out, Convert>(in, out, 0, count);
}

// The row kernels of one tier.
struct Yuv444Rows {
    Yuv444Row<Packed3In, Packed3Out> rgbToYuv;
    Yuv444Row<Packed4In, Packed4Out> rgbaToYuva;
    Yuv444Row<PlanesIn, PlanesOut> rgbPlanesToYuvPlanes;
    Yuv444Row<Packed3In, PlanesOut> rgbToYuvPlanes;
    Yuv444Row<Packed3In, Packed3Out> yuvToRgb;
    Yuv444Row<Packed4In, Packed4Out> yuvaToRgba;
    Yuv444Row<PlanesIn, PlanesOut> yuvPlanesToRgbPlanes;
    Yuv444Row<PlanesIn, Packed3Out> yuvPlanesToRgb;
    TierFinish finish;
};

extern const Yuv444Rows kYuv444RowsPx;
extern const Yuv444Rows kYuv444RowsM6;
extern const Yuv444Rows kYuv444RowsA6;
extern const Yuv444Rows kYuv444RowsW7;

template <class In, class Out>
void DriveYuv444(const In& src, const Out& dst, int32_t width, int32_t height,
                 Yuv444Row<In, Out> row, TierFinish finish) {
    for (int32_t i = 0; i < height; ++i) row(src.LineAt(i), dst.LineAt(i), width);
    finish();
}

}  // namespace pixmoor::colour

#endif

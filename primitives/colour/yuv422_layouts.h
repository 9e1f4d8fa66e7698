// The 4:2:2 layouts as the drivers and row kernels see them, beside the RGB
// layouts of image_layouts.h: packed 4:2:2 (bytes Y0 U Y1 V a pixel pair)
// and planar 4:2:2 (full-size Y, U and V of ceil(width/2) samples a line,
// every line).  A 4:2:2 row kernel counts pixels; an odd count ends with a
// lone pixel, whose chroma each source layout finds in its own way.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_LAYOUTS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_LAYOUTS_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour {

// One pixel pair of 4:2:2, or a lone pixel (y1 unused).
struct Yuv422Pair {
    int32_t y0, y1, u, v;
};

// Packed 4:2:2 source.  The lone last pixel of an odd count has only Y and
// U bytes of its own; its V is the byte before its Y, the V of the
// previous pair.
struct Packed422In {
    using Line = const uint8_t*;

    const uint8_t* base;
    int32_t step;

    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }
    static Yuv422Pair Pair(Line l, int32_t j) {
        const uint8_t* p = l + 4 * static_cast<intptr_t>(j);
        return Yuv422Pair{p[0], p[2], p[1], p[3]};
    }
    static Yuv422Pair Lone(Line l, int32_t x) {
        const uint8_t* p = l + 2 * static_cast<intptr_t>(x);
        return Yuv422Pair{p[0], 0, p[1], p[-1]};
    }
};

// The lines of planar 4:2:2 at one line index.
template <typename Sample>
struct Yuv422Line {
    Sample* y;
    Sample* u;
    Sample* v;
};

template <typename Sample>
struct Yuv422PlanesOf {
    using Line = Yuv422Line<Sample>;

    Sample* y;
    Sample* u;
    Sample* v;
    int32_t yStep;
    int32_t uStep;
    int32_t vStep;

    Line LineAt(int32_t line) const {
        return Line{colour::LineAt(y, yStep, line), colour::LineAt(u, uStep, line),
                    colour::LineAt(v, vStep, line)};
    }
    // The lone last pixel reads chroma column x / 2, which the chroma width
    // ceil(width / 2) provides.
    static Yuv422Pair Pair(const Line& l, int32_t j) {
        return Yuv422Pair{l.y[2 * j], l.y[2 * j + 1], l.u[j], l.v[j]};
    }
    static Yuv422Pair Lone(const Line& l, int32_t x) {
        return Yuv422Pair{l.y[x], 0, l.u[x >> 1], l.v[x >> 1]};
    }
};

using Yuv422PlanesIn = Yuv422PlanesOf<const uint8_t>;
using Yuv422PlanesOut = Yuv422PlanesOf<uint8_t>;

// A line moved on by an even number of pixels, for the one-long-line path
// of the compact forms.
template <typename T>
T* SkipPixels(T* packedRgb, int32_t pixels) {
    return packedRgb + 3 * static_cast<intptr_t>(pixels);
}
template <typename Sample>
RgbPlaneLines<Sample> SkipPixels(const RgbPlaneLines<Sample>& l, int32_t pixels) {
    return RgbPlaneLines<Sample>{l.r + pixels, l.g + pixels, l.b + pixels};
}
template <typename Sample>
Yuv422Line<Sample> SkipPixels(const Yuv422Line<Sample>& l, int32_t pixels) {
    return Yuv422Line<Sample>{l.y + pixels, l.u + pixels / 2, l.v + pixels / 2};
}

}  // namespace pixmoor::colour

#endif

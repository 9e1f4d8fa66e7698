// How the colour drivers see their images: a base address, a step and the
// rule that finds a pixel on a line.  Row kernels receive the lines that a
// layout hands out; the drivers' edge code reads and writes single pixels
// through the same layout, so both agree on where a sample lives.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_IMAGE_LAYOUTS_H
#define PIXMOOR_PRIMITIVES_COLOUR_IMAGE_LAYOUTS_H

#include <cstdint>

namespace pixmoor::colour {

struct Rgb {
    int32_t r, g, b;
};

// Byte offset of line `line`: computed as a signed 32-bit value and then
// sign-extended, so that address arithmetic wraps as it does on a 32-bit
// build.
inline intptr_t LineOffset(int32_t line, int32_t step) {
    return static_cast<intptr_t>(
        static_cast<int32_t>(static_cast<uint32_t>(line) * static_cast<uint32_t>(step)));
}

template <typename T>
T* LineAt(T* base, int32_t step, int32_t line) {
    return base + LineOffset(line, step);
}

// Steps that the compact forms derive from the width.
inline int32_t CompactPackedStep(int32_t width, int32_t bytesPerPixel) {
    return static_cast<int32_t>(static_cast<uint32_t>(width) * static_cast<uint32_t>(bytesPerPixel));
}
inline int32_t CompactPlaneStep(int32_t width) { return width; }
inline int32_t CompactChromaStep(int32_t width) { return (width >> 1) + (width & 1); }

// Packed RGB source: bytes R, G, B.
struct PackedRgbIn {
    using Line = const uint8_t*;

    const uint8_t* base;
    int32_t step;

    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }
    static Rgb Pixel(Line l, int32_t x) {
        const uint8_t* p = l + 3 * static_cast<intptr_t>(x);
        return Rgb{p[0], p[1], p[2]};
    }
};

// Packed RGB destination.
struct PackedRgbOut {
    using Line = uint8_t*;

    uint8_t* base;
    int32_t step;

    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }
    static void Store(Line l, int32_t x, Rgb c) {
        uint8_t* p = l + 3 * static_cast<intptr_t>(x);
        p[0] = static_cast<uint8_t>(c.r);
        p[1] = static_cast<uint8_t>(c.g);
        p[2] = static_cast<uint8_t>(c.b);
    }
};

// Packed destination of 4-byte pixels: the three channels in the order
// PackedRgbOut writes them, then a zero byte.
struct PackedRgb0Out : PackedRgbOut {
    static void Store(Line l, int32_t x, Rgb c) {
        uint8_t* p = l + 4 * static_cast<intptr_t>(x);
        PackedRgbOut::Store(p, 0, c);
        p[3] = 0;
    }
};

// Three full-size planes R, G, B with one step.
template <typename Sample>
struct RgbPlaneLines {
    Sample* r;
    Sample* g;
    Sample* b;
};

struct RgbPlanesIn {
    using Line = RgbPlaneLines<const uint8_t>;

    const uint8_t* r;
    const uint8_t* g;
    const uint8_t* b;
    int32_t step;

    Line LineAt(int32_t line) const {
        return Line{colour::LineAt(r, step, line), colour::LineAt(g, step, line),
                    colour::LineAt(b, step, line)};
    }
    static Rgb Pixel(const Line& l, int32_t x) { return Rgb{l.r[x], l.g[x], l.b[x]}; }
};

struct RgbPlanesOut {
    using Line = RgbPlaneLines<uint8_t>;

    uint8_t* r;
    uint8_t* g;
    uint8_t* b;
    int32_t step;

    Line LineAt(int32_t line) const {
        return Line{colour::LineAt(r, step, line), colour::LineAt(g, step, line),
                    colour::LineAt(b, step, line)};
    }
    static void Store(const Line& l, int32_t x, Rgb c) {
        l.r[x] = static_cast<uint8_t>(c.r);
        l.g[x] = static_cast<uint8_t>(c.g);
        l.b[x] = static_cast<uint8_t>(c.b);
    }
};

// Planar 4:2:0: Y of full size, U and V on every second line.
template <typename Sample>
struct Yuv420Planes {
    Sample* y;
    Sample* u;
    Sample* v;
    int32_t yStep;
    int32_t uStep;
    int32_t vStep;
};

// The lines of one line pair of a 4:2:0 image: two luma lines and the
// chroma line they share.
template <typename Sample>
struct Yuv420Lines {
    Sample* y0;
    Sample* y1;
    Sample* u;
    Sample* v;
};

template <typename Sample>
Yuv420Lines<Sample> LinePair(const Yuv420Planes<Sample>& img, int32_t pair) {
    return Yuv420Lines<Sample>{LineAt(img.y, img.yStep, 2 * pair),
                               LineAt(img.y, img.yStep, 2 * pair + 1),
                               LineAt(img.u, img.uStep, pair), LineAt(img.v, img.vStep, pair)};
}

}  // namespace pixmoor::colour

#endif

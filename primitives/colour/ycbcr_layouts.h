// Line layouts of the YCbCr members beside those of image_layouts.h:
// interleaved bytes of 2, 3 or 4 bytes a pixel, and 16-bit words.  A layout
// hands out lines; Pixel and Store read and write one pixel of a line
// (three channels, as an Rgb triple whatever the colour space); Skip moves
// a line pointer on by whole pixels, for the whole-image run.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_LAYOUTS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_LAYOUTS_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour {

// Interleaved source, Bytes a pixel; the first three are the channels.
template <int Bytes>
struct InterleavedIn {
    using Line = const uint8_t*;

    const uint8_t* base;
    int32_t step;

    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }
    static Line Skip(Line l, int32_t pixels) { return l + Bytes * static_cast<intptr_t>(pixels); }
    static Rgb Pixel(Line l, int32_t x) {
        const uint8_t* p = l + Bytes * static_cast<intptr_t>(x);
        return Rgb{p[0], p[1], p[2]};
    }
};

// Interleaved destination; a fourth byte (AC4) is never written.
template <int Bytes>
struct InterleavedOut {
    using Line = uint8_t*;

    uint8_t* base;
    int32_t step;

    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }
    static Line Skip(Line l, int32_t pixels) { return l + Bytes * static_cast<intptr_t>(pixels); }
    static void Store(Line l, int32_t x, Rgb c) {
        uint8_t* p = l + Bytes * static_cast<intptr_t>(x);
        p[0] = static_cast<uint8_t>(c.r);
        p[1] = static_cast<uint8_t>(c.g);
        p[2] = static_cast<uint8_t>(c.b);
    }
};

using C2In = InterleavedIn<2>;
using C2Out = InterleavedOut<2>;
using C3In = InterleavedIn<3>;
using C3Out = InterleavedOut<3>;
using AC4In = InterleavedIn<4>;
using AC4Out = InterleavedOut<4>;

// 16-bit words, one a pixel, packed by Packing; the step counts words.
template <class Packing>
struct WordsOut {
    using Line = uint16_t*;

    uint16_t* base;
    int32_t step;

    Line LineAt(int32_t line) const { return colour::LineAt(base, step, line); }
    static Line Skip(Line l, int32_t pixels) { return l + pixels; }
    static void Store(Line l, int32_t x, Rgb c) { l[x] = Packing::Pack(c); }
};

// Where a 4:2:2 source of width 1 puts the one pixel of a line: pixel 0 of
// the destination line, except for 16-bit words, where three plain bytes
// R, G, B go to the start of each line and the word step is taken as a
// byte distance.
template <class Out>
void StoreAlone(const Out& dst, int32_t line, Rgb c) {
    Out::Store(dst.LineAt(line), 0, c);
}
template <class Packing>
void StoreAlone(const WordsOut<Packing>& dst, int32_t line, Rgb c) {
    InterleavedOut<3>::Store(colour::LineAt(reinterpret_cast<uint8_t*>(dst.base), dst.step, line), 0, c);
}

}  // namespace pixmoor::colour

#endif

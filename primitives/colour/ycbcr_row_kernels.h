// Row kernels of the YCbCr members as templates over a line layout and an
// arithmetic.  An arithmetic is a class of static functions (Pair422,
// Odd422, Inverse422, Block420, Inverse, Forward); the plain-code tiers
// hand in the reference arithmetic with their own clamp table, the vector
// tiers their lane arithmetic where they have one.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_ROW_KERNELS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_ROW_KERNELS_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/ycbcr_layouts.h"

namespace pixmoor::colour::ycc {

// RGB to 4:2:2 interleaved: pairs, then an odd last pixel's Y and Cb.
template <class In, class Arith>
void Forward422Row(typename In::Line src, uint8_t* dst, int32_t count) {
    const int32_t pairs = count >> 1;
    for (int32_t j = 0; j < pairs; ++j)
        Arith::Pair422(In::Pixel(src, 2 * j), In::Pixel(src, 2 * j + 1), dst + 4 * static_cast<intptr_t>(j));
    if (count & 1) Arith::Odd422(In::Pixel(src, count - 1), dst + 4 * static_cast<intptr_t>(pairs));
}

// 4:2:2 interleaved to RGB.  An odd last pixel has Y and U of its own and
// borrows the V of the pair before it, the byte in front of its Y.
// Pairs from `from` on, then the odd pixel; a vector kernel hands the rest
// of its line here.
template <class Out, class Arith>
void Inverse422From(const uint8_t* src, typename Out::Line dst, int32_t from, int32_t count) {
    const int32_t pairs = count >> 1;
    for (int32_t j = from; j < pairs; ++j) {
        const uint8_t* p = src + 4 * static_cast<intptr_t>(j);
        Out::Store(dst, 2 * j, Arith::Inverse422(p[0], p[1], p[3]));
        Out::Store(dst, 2 * j + 1, Arith::Inverse422(p[2], p[1], p[3]));
    }
    if (count & 1) {
        const uint8_t* p = src + 4 * static_cast<intptr_t>(pairs);
        Out::Store(dst, count - 1, Arith::Inverse422(p[0], p[1], p[-1]));
    }
}
template <class Out, class Arith>
void Inverse422Row(const uint8_t* src, typename Out::Line dst, int32_t count) {
    Inverse422From<Out, Arith>(src, dst, 0, count);
}

// 4:4:4, pixel by pixel.
template <class Arith>
struct ForwardPixel {
    static Rgb Convert(Rgb p) { return Arith::Forward(p); }
};
template <class Arith>
struct InversePixel {
    static Rgb Convert(Rgb p) { return Arith::Inverse(p.r, p.g, p.b); }
};
template <class In, class Out, class Pixel>
void PixelsFrom(typename In::Line src, typename Out::Line dst, int32_t from, int32_t count) {
    for (int32_t x = from; x < count; ++x) Out::Store(dst, x, Pixel::Convert(In::Pixel(src, x)));
}
template <class In, class Out, class Pixel>
void PixelRow(typename In::Line src, typename Out::Line dst, int32_t count) {
    PixelsFrom<In, Out, Pixel>(src, dst, 0, count);
}

// 4:2:0, one line pair: `pairs` blocks of 2 by 2.
template <class Arith>
void Forward420From(PackedRgbIn::Line top, PackedRgbIn::Line bottom, const Yuv420Lines<uint8_t>& out,
                    int32_t from, int32_t pairs) {
    for (int32_t j = from; j < pairs; ++j) {
        const Rgb p[4] = {PackedRgbIn::Pixel(top, 2 * j), PackedRgbIn::Pixel(top, 2 * j + 1),
                          PackedRgbIn::Pixel(bottom, 2 * j), PackedRgbIn::Pixel(bottom, 2 * j + 1)};
        uint8_t y[4];
        Arith::Block420(p, y, out.u + j, out.v + j);
        out.y0[2 * j] = y[0];
        out.y0[2 * j + 1] = y[1];
        out.y1[2 * j] = y[2];
        out.y1[2 * j + 1] = y[3];
    }
}
template <class Arith>
void Forward420Row(PackedRgbIn::Line top, PackedRgbIn::Line bottom, const Yuv420Lines<uint8_t>& out,
                   int32_t pairs) {
    Forward420From<Arith>(top, bottom, out, 0, pairs);
}

template <class Arith>
void Inverse420From(const Yuv420Lines<const uint8_t>& in, PackedRgbOut::Line top, PackedRgbOut::Line bottom,
                    int32_t from, int32_t pairs) {
    for (int32_t j = from; j < pairs; ++j) {
        const int32_t u = in.u[j], v = in.v[j];
        PackedRgbOut::Store(top, 2 * j, Arith::Inverse(in.y0[2 * j], u, v));
        PackedRgbOut::Store(top, 2 * j + 1, Arith::Inverse(in.y0[2 * j + 1], u, v));
        PackedRgbOut::Store(bottom, 2 * j, Arith::Inverse(in.y1[2 * j], u, v));
        PackedRgbOut::Store(bottom, 2 * j + 1, Arith::Inverse(in.y1[2 * j + 1], u, v));
    }
}

template <class Arith>
void Inverse420Row(const Yuv420Lines<const uint8_t>& in, PackedRgbOut::Line top, PackedRgbOut::Line bottom,
                   int32_t pairs) {
    Inverse420From<Arith>(in, top, bottom, 0, pairs);
}

}  // namespace pixmoor::colour::ycc

#endif

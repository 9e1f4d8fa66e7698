// The reference arithmetic of the video-range YCbCr members: signed 32-bit
// integer code at 16 fraction bits, arithmetic shifts, clamping of the
// inverse results through a clamp table.  Tiers px and m6 run it in their
// row kernels (each with its own table); every tier's drivers use it for
// the edges that no row kernel covers.
//
// Forward, luma 16..235 and chroma 16..240 around 128:
//   Y  = ( 16843 R + 33030 G +  6423 B + luma rounding) >> 16
//   Cb = ( -9699 R - 19071 G + 28770 B + chroma offset) >> shift
//   Cr = ( 28770 R - 24117 G -  4653 B + chroma offset) >> shift
// with the channel sums of 1, 2 or 4 pixels and shift 16, 17 or 18.
//
// Two inverse forms are kept apart on purpose: the form of the 4:2:2
// interleaved sources folds the offsets of 16 and 128 into constants that
// are not the exact products of the form of the 4:2:0 and 4:4:4 sources, so
// one pixel can come out one apart in the two.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_ARITH_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_ARITH_H

#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour::ycc {

// Forward matrix rows, in the order R, G, B.
constexpr int32_t kY[3] = {16843, 33030, 6423};
constexpr int32_t kCb[3] = {-9699, -19071, 28770};
constexpr int32_t kCr[3] = {28770, -24117, -4653};

// Luma rounding: the first luma of a 4:2:2 pair and every other luma add
// 16.5 at 16 fraction bits; the second luma of a pair adds only 16.
constexpr int32_t kLumaRounded = 0x108000;
constexpr int32_t kLumaTruncated = 0x100000;

// Chroma offsets (128 and one half) at the scale of 1, 2 and 4 summed
// pixels.  The 4:2:2 pair carries its own constant, a little above the
// doubled one-pixel constant that the 4:2:0 edges use.
constexpr int32_t kChromaOne = 0x808000;     // >> 16
constexpr int32_t kChromaPair = 0x1010000;   // >> 17, 4:2:2 pairs
constexpr int32_t kChromaTwo = 16793600;     // >> 17, 4:2:0 edge blocks
constexpr int32_t kChromaFour = 33587200;    // >> 18, 4:2:0 blocks

inline int32_t Row(const int32_t k[3], Rgb s) { return k[0] * s.r + k[1] * s.g + k[2] * s.b; }

inline uint8_t Luma(Rgb p, int32_t rounding = kLumaRounded) {
    return static_cast<uint8_t>((Row(kY, p) + rounding) >> 16);
}
// Chroma of channel sums s over 1, 2 or 4 pixels.
inline uint8_t Cb(Rgb s, int32_t offset, int shift) {
    return static_cast<uint8_t>((Row(kCb, s) + offset) >> shift);
}
inline uint8_t Cr(Rgb s, int32_t offset, int shift) {
    return static_cast<uint8_t>((Row(kCr, s) + offset) >> shift);
}

inline Rgb Sum(Rgb a, Rgb b) { return Rgb{a.r + b.r, a.g + b.g, a.b + b.b}; }

// One pixel at 4:4:4, as a triple Y, Cb, Cr.
inline Rgb Forward(Rgb p) {
    return Rgb{Luma(p), Cb(p, kChromaOne, 16), Cr(p, kChromaOne, 16)};
}

// Inverse of the 4:2:2 interleaved sources, folded offsets.  Clamp is a
// clamp table or any callable with the same values.
constexpr int32_t kYScale = 76284;
template <class Clamp>
Rgb Inverse422(const Clamp& clamp, int32_t y, int32_t u, int32_t v) {
    const int32_t luma = y * kYScale;
    const int32_t g = v * 53281 + u * 25690 - 8887730;
    return Rgb{clamp[(luma + v * 104595 - 14608761) >> 16], clamp[(luma - g) >> 16],
               clamp[(luma + u * 132186 - 18140365) >> 16]};
}

// Inverse of the 4:2:0 and 4:4:4 sources: chroma centred first, one offset.
constexpr int32_t kInverseOffset = 1220544;
template <class Clamp>
int32_t InverseR(const Clamp& clamp, int32_t y, int32_t v) {
    return clamp[(y * kYScale + (v - 128) * 104595 - kInverseOffset) >> 16];
}
template <class Clamp>
int32_t InverseG(const Clamp& clamp, int32_t y, int32_t u, int32_t v) {
    return clamp[(y * kYScale - kInverseOffset - (u - 128) * 25690 - (v - 128) * 53281) >> 16];
}
template <class Clamp>
int32_t InverseB(const Clamp& clamp, int32_t y, int32_t u) {
    return clamp[(y * kYScale + (u - 128) * 132186 - kInverseOffset) >> 16];
}
template <class Clamp>
Rgb Inverse(const Clamp& clamp, int32_t y, int32_t u, int32_t v) {
    return Rgb{InverseR(clamp, y, v), InverseG(clamp, y, u, v), InverseB(clamp, y, u)};
}

// The clamp of the drivers' width-1 path: comparisons, not the table.
struct CompareClamp {
    int32_t operator[](int32_t x) const { return x < 0 ? 0 : x > 255 ? 255 : x; }
};

// A 4:2:2 source of width 1: bytes Y and c, c serving as both chroma values.
inline Rgb WidthOne(int32_t y, int32_t c) { return Inverse422(CompareClamp{}, y, c, c); }

// The reference arithmetic as the row kernels use it, with one tier's
// clamp table.
template <const ClampTable& Table>
struct Reference {
    // 4:2:2 pair: out = Y0, Cb, Y1, Cr; the second luma drops its rounding.
    static void Pair422(Rgb a, Rgb b, uint8_t* out) {
        const Rgb s = Sum(a, b);
        out[0] = Luma(a);
        out[1] = Cb(s, kChromaPair, 17);
        out[2] = Luma(b, kLumaTruncated);
        out[3] = Cr(s, kChromaPair, 17);
    }
    // The unpaired last pixel of an odd width: Y and Cb only.
    static void Odd422(Rgb a, uint8_t* out) {
        out[0] = Luma(a);
        out[1] = Cb(a, kChromaOne, 16);
    }
    static Rgb Inverse422(int32_t y, int32_t u, int32_t v) { return ycc::Inverse422(Table, y, u, v); }

    // 4:2:0 block: p[0], p[1] on the top line, p[2], p[3] below.
    static void Block420(const Rgb p[4], uint8_t y[4], uint8_t* cb, uint8_t* cr) {
        for (int i = 0; i < 4; ++i) y[i] = Luma(p[i]);
        const Rgb s = Sum(Sum(p[0], p[1]), Sum(p[2], p[3]));
        *cb = Cb(s, kChromaFour, 18);
        *cr = Cr(s, kChromaFour, 18);
    }
    static Rgb Inverse(int32_t y, int32_t u, int32_t v) { return ycc::Inverse(Table, y, u, v); }
    static Rgb Forward(Rgb p) { return ycc::Forward(p); }
};

}  // namespace pixmoor::colour::ycc

#endif

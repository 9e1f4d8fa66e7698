// The narrow arithmetic of the vector tiers (a6, w7) in plain code: 16-bit
// values, products held in 32 bits, mulhi the high half of a signed 16 by
// 16 product.  The vector row kernels use it for the pairs their vector
// loop leaves over, so the tail gives exactly what the vector loop gives.
//
// Forward, per 2 by 2 block: D = (9798 R + 19235 G + 3736 B) >> 14 is luma
// with one fraction bit, Y = D >> 1; A = (D0 + D1 + D2 + D3) >> 2;
// U = mulhi((B sum >> 1) - A, 16121) + 128, V = mulhi((R sum >> 1) - A,
// 28737) + 128, saturated.  (The weights sum to 32769; that is intended.)
//
// Inverse, per pixel: R = sat((2Y + mulhi(v', cRV) + mulhi(u', cRU)) >> 1),
// G = sat((2Y + mulhi(u', cGU) + mulhi(v', cGV)) >> 1),
// B = sat((2Y + mulhi(u', cBU)) >> 1), with u' = 16 (U - 128) and
// v' = 16 (V - 128); each product is truncated by itself.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_NARROW_ARITH_H
#define PIXMOOR_PRIMITIVES_COLOUR_NARROW_ARITH_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour::narrow {

inline int32_t MulHi(int32_t a, int32_t b) { return (a * b) >> 16; }
inline uint8_t Saturate(int32_t x) { return static_cast<uint8_t>(x < 0 ? 0 : x > 255 ? 255 : x); }

// Forward luma weights (15 fraction bits) and chroma factors.
constexpr int32_t kWeightR = 9798;
constexpr int32_t kWeightG = 19235;
constexpr int32_t kWeightB = 3736;
constexpr int32_t kFactorU = 16121;  // 0.492 at 2^15
constexpr int32_t kFactorV = 28737;  // 0.877 at 2^15

// D of a packed RGB pixel: the weighted sum in 32 bits, then >> 14.
inline int32_t LumaPacked(Rgb p) {
    return (kWeightR * p.r + kWeightG * p.g + kWeightB * p.b) >> 14;
}

// D of a pixel read from RGB planes: each sample widened to
// (c * 257) >> 6, each product taken by mulhi and truncated by itself.
inline int32_t WidenPlaneSample(int32_t c) { return (c * 257) >> 6; }
inline int32_t LumaPlanes(Rgb p) {
    return MulHi(WidenPlaneSample(p.r), kWeightR) + MulHi(WidenPlaneSample(p.g), kWeightG) +
           MulHi(WidenPlaneSample(p.b), kWeightB);
}

struct LumaOfPacked {
    static int32_t D(Rgb p) { return LumaPacked(p); }
};
struct LumaOfPlanes {
    static int32_t D(Rgb p) { return LumaPlanes(p); }
};

// One 2 by 2 block: p[0], p[1] on the top line, p[2], p[3] below.
template <class Luma>
void Block(const Rgb p[4], uint8_t y[4], uint8_t* u, uint8_t* v) {
    int32_t sumD = 0;
    for (int i = 0; i < 4; ++i) {
        const int32_t d = Luma::D(p[i]);
        y[i] = Saturate(d >> 1);
        sumD += d;
    }
    const int32_t a = sumD >> 2;
    const int32_t pb = (p[0].b + p[1].b + p[2].b + p[3].b) >> 1;
    const int32_t pr = (p[0].r + p[1].r + p[2].r + p[3].r) >> 1;
    *u = Saturate(MulHi(pb - a, kFactorU) + 128);
    *v = Saturate(MulHi(pr - a, kFactorV) + 128);
}

// Pairs [from, to) of a line pair, forward.
template <class In, class Luma>
void ToYuv420Pairs(typename In::Line top, typename In::Line bottom,
                   const Yuv420Lines<uint8_t>& out, int32_t from, int32_t to) {
    for (int32_t j = from; j < to; ++j) {
        const Rgb p[4] = {In::Pixel(top, 2 * j), In::Pixel(top, 2 * j + 1),
                          In::Pixel(bottom, 2 * j), In::Pixel(bottom, 2 * j + 1)};
        uint8_t y[4];
        Block<Luma>(p, y, out.u + j, out.v + j);
        out.y0[2 * j] = y[0];
        out.y0[2 * j + 1] = y[1];
        out.y1[2 * j] = y[2];
        out.y1[2 * j + 1] = y[3];
    }
}

// A whole row of pairs in that form: the forward kernel of the vector tiers
// where they have no vectors.
template <class In, class Luma>
void ToYuv420Row(typename In::Line top, typename In::Line bottom, const Yuv420Lines<uint8_t>& out,
                 int32_t pairs) {
    ToYuv420Pairs<In, Luma>(top, bottom, out, 0, pairs);
}

// Inverse factors of one pixel position.  cRU is 0 except at the odd
// positions of one tier's packed kernel.
struct InverseFactors {
    int32_t rv, ru, gu, gv, bu;
};

inline Rgb ToRgb(int32_t y, int32_t u, int32_t v, const InverseFactors& f) {
    const int32_t y2 = 2 * y;
    const int32_t du = 16 * (u - 128);
    const int32_t dv = 16 * (v - 128);
    return Rgb{Saturate((y2 + MulHi(dv, f.rv) + MulHi(du, f.ru)) >> 1),
               Saturate((y2 + MulHi(du, f.gu) + MulHi(dv, f.gv)) >> 1),
               Saturate((y2 + MulHi(du, f.bu)) >> 1)};
}

// Pairs [from, to) of a line pair, inverse.
template <class Out>
void FromYuv420Pairs(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                     typename Out::Line bottom, int32_t from, int32_t to,
                     const InverseFactors& f) {
    for (int32_t j = from; j < to; ++j) {
        const int32_t u = in.u[j];
        const int32_t v = in.v[j];
        Out::Store(top, 2 * j, ToRgb(in.y0[2 * j], u, v, f));
        Out::Store(top, 2 * j + 1, ToRgb(in.y0[2 * j + 1], u, v, f));
        Out::Store(bottom, 2 * j, ToRgb(in.y1[2 * j], u, v, f));
        Out::Store(bottom, 2 * j + 1, ToRgb(in.y1[2 * j + 1], u, v, f));
    }
}

}  // namespace pixmoor::colour::narrow

#endif

// The narrow arithmetic of the 4:4:4 members in the vector tiers (a6, w7),
// in plain code, one pixel at a time.  The vector kernels compute exactly
// these values; their tails and alignment prologues call these forms.
//
// Forward factor sets (products held in 32 bits, one final shift):
//   L  luma 9798, 19235, 3736 at 15 fraction bits; chroma rows
//      U -4817, -9470, 14287 and V 20152, -16876, -3277 at 15 bits.
//   M  luma 19595, 38469, 7471 at 16 fraction bits (38469 does not fit a
//      signed 16-bit lane; the vector code handles it as -27067 plus 2^16);
//      chroma rows U -4816, -9469, 14286 and V 20152, -16875, -3276 at 15.
//   D  the luma D of the 4:2:0 narrow arithmetic (one fraction bit) and its
//      difference form: U = mulhi(2B - D, 16121) + 128, likewise V from R
//      with 28737.
// Chroma gets 128 added; every result saturates to 0..255.
//
// Inverse forms (u, v lowered by 128):
//   Half   the 4:2:0 scale: u' = 16u, v' = 16v, (2Y + terms) >> 1, each term
//          mulhi(., factor) truncated by itself (narrow::ToRgb).
//   Alpha  u' = 8u, v' = 8v, Y + terms, no doubling and no final shift;
//          factors 9339, -3228, -4760, 16646.
//   Planes each plane by itself: R = Y + (18677 v >> 14),
//          G = Y - ((9519 v + 6455 u) >> 14), B = Y + (16646 u >> 13).
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV444_NARROW_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV444_NARROW_H

#include <cstdint>

#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/yuv444_driver.h"

namespace pixmoor::colour::narrow444 {

using narrow::MulHi;
using narrow::Saturate;

// One row of a forward factor set: three weights and the final shift.
struct WeightRow {
    int32_t r, g, b;
    int shift;
    int32_t Dot(Rgb p) const { return (r * p.r + g * p.g + b * p.b) >> shift; }
};

struct ForwardSet {
    WeightRow y, u, v;
};

constexpr ForwardSet kSetL = {{9798, 19235, 3736, 15}, {-4817, -9470, 14287, 15}, {20152, -16876, -3277, 15}};
constexpr ForwardSet kSetM = {{19595, 38469, 7471, 16}, {-4816, -9469, 14286, 15}, {20152, -16875, -3276, 15}};

template <const ForwardSet& S>
struct ToYuvBySet {
    using Source = Rgb;
    static Yuv Pixel(Rgb p) {
        return Yuv{Saturate(S.y.Dot(p)), Saturate(S.u.Dot(p) + 128), Saturate(S.v.Dot(p) + 128)};
    }
};
using ToYuvL = ToYuvBySet<kSetL>;
using ToYuvM = ToYuvBySet<kSetM>;

struct ToYuvD {
    using Source = Rgb;
    static Yuv Pixel(Rgb p) {
        const int32_t d = narrow::LumaPacked(p);
        return Yuv{Saturate(d >> 1), Saturate(MulHi(2 * p.b - d, narrow::kFactorU) + 128),
                   Saturate(MulHi(2 * p.r - d, narrow::kFactorV) + 128)};
    }
};

// Inverse, the 4:2:0 scale, with a fixed factor set.
template <const narrow::InverseFactors& F>
struct ToRgbHalf {
    using Source = Yuv;
    static Rgb Pixel(Yuv p) { return narrow::ToRgb(p.y, p.u, p.v, F); }
};

// The inverse factors at the 4:2:0 scale: the a6 set (normal positions and
// the odd row), and the w7 set.
constexpr narrow::InverseFactors kHalfA6 = {9339, 0, -3228, -4760, 16646};
constexpr narrow::InverseFactors kHalfA6Odd = {9339, 4, -3232, -4760, 16646};
constexpr narrow::InverseFactors kHalfW7 = {9338, 0, -3227, -4759, 16645};

// Inverse of the 4-byte member.
struct AlphaFactors {
    static constexpr int32_t kRV = 9339, kGU = -3228, kGV = -4760, kBU = 16646;
};
struct ToRgbAlpha {
    using Source = Yuv;
    static Rgb Pixel(Yuv p) {
        const int32_t du = 8 * (p.u - 128);
        const int32_t dv = 8 * (p.v - 128);
        return Rgb{Saturate(p.y + MulHi(dv, AlphaFactors::kRV)),
                   Saturate(p.y + MulHi(du, AlphaFactors::kGU) + MulHi(dv, AlphaFactors::kGV)),
                   Saturate(p.y + MulHi(du, AlphaFactors::kBU))};
    }
};

// Inverse of the planes to planes member, one plane at a time.
struct PlanesFactors {
    static constexpr int32_t kRV = 18677;  // 14 fraction bits
    static constexpr int32_t kGV = 9519;   // 14 fraction bits
    static constexpr int32_t kGU = 6455;   // 14 fraction bits
    static constexpr int32_t kBU = 16646;  // 13 fraction bits
};
inline uint8_t PlaneR(Yuv p) { return Saturate(p.y + ((PlanesFactors::kRV * (p.v - 128)) >> 14)); }
inline uint8_t PlaneG(Yuv p) {
    return Saturate(p.y + ((-PlanesFactors::kGV * (p.v - 128) - PlanesFactors::kGU * (p.u - 128)) >> 14));
}
inline uint8_t PlaneB(Yuv p) { return Saturate(p.y + ((PlanesFactors::kBU * (p.u - 128)) >> 13)); }

struct ToRgbPlanes {
    using Source = Yuv;
    static Rgb Pixel(Yuv p) { return Rgb{PlaneR(p), PlaneG(p), PlaneB(p)}; }
};

// The a6 packed RGB inverses as a whole row: the odd factor row at pixels 3
// and 7 of every block of 8 that the vector loop takes, the normal factors
// in its single-pixel tail.  The portable form of that kernel.
template <class In>
void HalfA6Row(typename In::Line in, uint8_t* out, int32_t count) {
    const int32_t blocks = count & ~7;
    for (int32_t x = 0; x < count; ++x) {
        const Yuv p = In::template Get<Yuv>(in, x);
        const narrow::InverseFactors& f = x < blocks && (x & 3) == 3 ? kHalfA6Odd : kHalfA6;
        Packed3Out::Put(out, x, narrow::ToRgb(p.y, p.u, p.v, f));
    }
}

}  // namespace pixmoor::colour::narrow444

#endif

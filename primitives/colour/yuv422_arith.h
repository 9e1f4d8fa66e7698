// The arithmetic of the 4:2:2 row kernels, per pixel pair and per lone
// pixel, as policies of the plain row kernels in yuv422_plain_rows.h.
//
// Forward, wide (px, m6): each Y is F >> 16; chroma of a pair from the sums
// of two pixels with rounding bias 65535 and final shift 17, of a lone last
// pixel with bias 32767 and shift 16.  Forward, narrow (a6, w7): Y = D >> 1,
// A = (D0 + D1) >> 1, U = mulhi((B0 + B1) - A, 16121) + 128, V likewise
// with R and 28737, saturated; a lone pixel is reckoned as a pair of itself.
//
// Inverse: the 4:2:0 inverse formulas, one chroma pair for two pixels; the
// narrow tiers use the factors 9338, -3227, -4759, 16645 (in a6 as well).
// The w7 packed 4:2:2 kernel reckons its lone last pixel at 13 fraction
// bits in plain code.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_ARITH_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_ARITH_H

#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"
#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour::yuv422 {

// Rounding terms of the wide forward kernels.
constexpr int32_t kPairBias = 65535;
constexpr int32_t kLoneBias = 32767;

template <const ClampTable& Clamp>
struct WideForward {
    static void Pair(Rgb a, Rgb b, uint8_t* y, uint8_t* u, uint8_t* v) {
        const int32_t fa = wide::Luma(a);
        const int32_t fb = wide::Luma(b);
        y[0] = static_cast<uint8_t>(fa >> 16);
        y[1] = static_cast<uint8_t>(fb >> 16);
        *u = wide::ChromaU(a.b + b.b, fa + fb, kPairBias, 17);
        *v = wide::ChromaV(Clamp, a.r + b.r, fa + fb, kPairBias, 17);
    }
    static void Lone(Rgb a, uint8_t* y, uint8_t* u, uint8_t* v) {
        const int32_t f = wide::Luma(a);
        *y = static_cast<uint8_t>(f >> 16);
        *u = wide::ChromaU(a.b, f, kLoneBias, 16);
        *v = wide::ChromaV(Clamp, a.r, f, kLoneBias, 16);
    }
};

struct NarrowForward {
    static void Pair(Rgb a, Rgb b, uint8_t* y, uint8_t* u, uint8_t* v) {
        using narrow::MulHi;
        using narrow::Saturate;
        const int32_t da = narrow::LumaPacked(a);
        const int32_t db = narrow::LumaPacked(b);
        y[0] = Saturate(da >> 1);
        y[1] = Saturate(db >> 1);
        const int32_t mean = (da + db) >> 1;
        *u = Saturate(MulHi(a.b + b.b - mean, narrow::kFactorU) + 128);
        *v = Saturate(MulHi(a.r + b.r - mean, narrow::kFactorV) + 128);
    }
    static void Lone(Rgb a, uint8_t* y, uint8_t* u, uint8_t* v) {
        uint8_t twice[2];
        Pair(a, a, twice, u, v);
        *y = twice[0];
    }
};

// Inverse policies: Pair gives the two pixels of a chroma pair, Lone the
// lone last pixel of an odd count.

// The chroma products are taken once a pair and serve both its pixels.
template <const ClampTable& Clamp>
struct WideInverse {
    static void Pair(int32_t y0, int32_t y1, int32_t u, int32_t v, Rgb* first, Rgb* second) {
        const wide::ChromaTerms t = wide::Terms(u, v);
        *first = wide::ToRgb(Clamp, y0, t);
        *second = wide::ToRgb(Clamp, y1, t);
    }
    static Rgb Lone(int32_t y, int32_t u, int32_t v) { return wide::ToRgb(Clamp, y, wide::Terms(u, v)); }
};

// The narrow inverse factors of the 4:2:2 kernels, both vector tiers.
constexpr narrow::InverseFactors kInverse = {9338, 0, -3227, -4759, 16645};

struct NarrowInverse {
    static void Pair(int32_t y0, int32_t y1, int32_t u, int32_t v, Rgb* first, Rgb* second) {
        *first = narrow::ToRgb(y0, u, v, kInverse);
        *second = narrow::ToRgb(y1, u, v, kInverse);
    }
    static Rgb Lone(int32_t y, int32_t u, int32_t v) { return narrow::ToRgb(y, u, v, kInverse); }
};

// The lone pixel at 13 fraction bits: the same factors on u and v lowered
// by 128, one sum, one shift, a clamp.
inline Rgb Inverse13(int32_t y, int32_t u, int32_t v) {
    const int32_t du = u - 128;
    const int32_t dv = v - 128;
    const int32_t y13 = y << 13;
    return Rgb{narrow::Saturate((y13 + kInverse.rv * dv) >> 13),
               narrow::Saturate((y13 + kInverse.gu * du + kInverse.gv * dv) >> 13),
               narrow::Saturate((y13 + kInverse.bu * du) >> 13)};
}

struct NarrowInverseLone13 : NarrowInverse {
    static Rgb Lone(int32_t y, int32_t u, int32_t v) { return Inverse13(y, u, v); }
};

}  // namespace pixmoor::colour::yuv422

#endif

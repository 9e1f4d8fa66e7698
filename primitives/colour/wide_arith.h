// The wide arithmetic of the full-range video colour model: 32-bit integer
// code with weights at 16 fraction bits.  It is the row arithmetic of the
// plain-code tiers and the edge arithmetic of every tier's driver.
//
// Forward: Y = 0.299 R + 0.587 G + 0.114 B, U = 0.492 (B - Y) + 128,
// V = 0.877 (R - Y) + 128, no black-level offset.  Inverse: R = Y + 1.140 v,
// G = Y - 0.394 u - 0.581 v, B = Y + 2.032 u, with u, v lowered by 128.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_WIDE_ARITH_H
#define PIXMOOR_PRIMITIVES_COLOUR_WIDE_ARITH_H

#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour::wide {

// Luma weights and chroma factors, 16 fraction bits.
constexpr int32_t kWeightR = 19595;
constexpr int32_t kWeightG = 38470;
constexpr int32_t kWeightB = 7471;
constexpr int32_t kFactorU = 32244;  // 0.492
constexpr int32_t kFactorV = 57475;  // 0.877

// Inverse factors, 16 fraction bits.
constexpr int32_t kRFromV = 74711;   // 1.140
constexpr int32_t kGFromV = 38076;   // 0.581
constexpr int32_t kGFromU = 25821;   // 0.394
constexpr int32_t kBFromU = 133169;  // 2.032

// A pixel's luma at 16 fraction bits; its Y is this shifted right by 16.
inline int32_t Luma(Rgb p) { return kWeightR * p.r + kWeightG * p.g + kWeightB * p.b; }
inline uint8_t LumaByte(Rgb p) { return static_cast<uint8_t>(Luma(p) >> 16); }

// Chroma of n pixels (n = 1, 2 or 4) from the channel sums and the luma sum.
// `shift` is 16 plus log2(n); `bias` is the rounding term, present only in
// the row kernels.  U cannot leave 0..255 and is not clamped; V is.
inline uint8_t ChromaU(int32_t sumB, int32_t sumLuma, int32_t bias, int shift) {
    const int32_t t = ((sumB << 16) - sumLuma + bias) >> 16;
    return static_cast<uint8_t>(((t * kFactorU) >> shift) + 128);
}
inline uint8_t ChromaV(const ClampTable& clamp, int32_t sumR, int32_t sumLuma, int32_t bias,
                       int shift) {
    const int32_t t = ((sumR << 16) - sumLuma + bias) >> 16;
    return clamp[((t * kFactorV) >> shift) + 128];
}

// Rounding term of the row kernels' 2 by 2 blocks.
constexpr int32_t kBlockBias = 0x1FFFF;

// The chroma products of one U, V pair, shared by the pixels it serves.
struct ChromaTerms {
    int32_t r, g, b;
};

inline ChromaTerms Terms(int32_t u, int32_t v) {
    const int32_t du = u - 128;
    const int32_t dv = v - 128;
    return ChromaTerms{kRFromV * dv, -kGFromV * dv - kGFromU * du, kBFromU * du};
}

inline Rgb ToRgb(const ClampTable& clamp, int32_t y, const ChromaTerms& t) {
    const int32_t y16 = y << 16;
    return Rgb{clamp[(y16 + t.r) >> 16], clamp[(y16 + t.g) >> 16], clamp[(y16 + t.b) >> 16]};
}

}  // namespace pixmoor::colour::wide

#endif

// Row kernel of ImgRGBToYUV422C3C2, packed RGB to bytes Y0 U Y1 V, in plain
// code: the whole line in px and m6, the pixels after the vector steps in
// a6 and w7, whose vector kernel has the same arithmetic.
//
// For a pair of pixels A = 19595 R + 38470 G + 7471 B (luma at scale 2^16);
// each Y is A >> 16 with no rounding term.  With s the pair's A sum and Bs,
// Rs its B and R sums, the chroma differences are
//   dB = (Bs 2^16 - s + 65535) >> 16,   dR = (Rs 2^16 - s + 65535) >> 16,
// twice the mean B - Y and R - Y, and
//   U = ((dB * 32244) >> 17) + 128, not clamped (its range stays in a byte),
//   V = ImgClampPlus128Table[(dR * 57475) >> 17].
// Shifts are arithmetic.  The last pixel of an odd width writes Y and U
// only, U from the pixel alone with bias 32767 and a shift of 16.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_ROW_H
#define PIXMOOR_PRIMITIVES_COLOUR_ANALOG422_ROW_H

#include <cstdint>

#include "primitives/colour/analog422_clamp_table.h"

namespace pixmoor::colour::analog422 {

inline constexpr int32_t kLumaR = 19595, kLumaG = 38470, kLumaB = 7471;
inline constexpr int32_t kFactorU = 32244, kFactorV = 57475;

inline int32_t Luma(const uint8_t* p) { return p[0] * kLumaR + p[1] * kLumaG + p[2] * kLumaB; }

inline void Row(const uint8_t* src, uint8_t* dst, int32_t width) {
    const int32_t pairs = width >> 1;
    for (int32_t j = 0; j < pairs; ++j, src += 6, dst += 4) {
        const int32_t a0 = Luma(src);
        const int32_t a1 = Luma(src + 3);
        const int32_t s = a0 + a1;
        const int32_t db = (((src[2] + src[5]) << 16) - s + 65535) >> 16;
        const int32_t dr = (((src[0] + src[3]) << 16) - s + 65535) >> 16;
        dst[0] = static_cast<uint8_t>(a0 >> 16);
        dst[1] = static_cast<uint8_t>(((db * kFactorU) >> 17) + 128);
        dst[2] = static_cast<uint8_t>(a1 >> 16);
        dst[3] = ImgClampPlus128Table[(dr * kFactorV) >> 17];
    }
    if (width & 1) {
        const int32_t a = Luma(src);
        const int32_t db = ((src[2] << 16) - a + 32767) >> 16;
        dst[0] = static_cast<uint8_t>(a >> 16);
        dst[1] = static_cast<uint8_t>(((db * kFactorU) >> 16) + 128);
    }
}

}  // namespace pixmoor::colour::analog422

#endif

// The 16-bit lane arithmetic of the vector tiers' YCbCr kernels, written as
// plain code, lane for lane: each product is the high half of a 16 by 16
// product and is truncated by itself, sums saturate where the lanes do.
// The kernels run these formulas for every sample, so a main loop and its
// tail give the same bytes, and so does a processor without the vectors.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_LANES_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_LANES_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour::lanes {

// High half of the signed 16 by 16 product; a is a 16-bit lane value.
inline int32_t H(int32_t a, int32_t c) {
    return (static_cast<int32_t>(static_cast<int16_t>(a)) * c) >> 16;
}
// High half of the unsigned 16 by 16 product.
inline int32_t HU(int32_t a, int32_t c) {
    return static_cast<int32_t>((static_cast<uint32_t>(static_cast<uint16_t>(a)) *
                                 static_cast<uint32_t>(static_cast<uint16_t>(c))) >> 16);
}
inline int32_t AddS(int32_t a, int32_t b) {
    const int32_t s = a + b;
    return s < -32768 ? -32768 : s > 32767 ? 32767 : s;
}
inline int32_t AddUS(int32_t a, int32_t b) {
    const int32_t s = a + b;
    return s > 65535 ? 65535 : s;
}
inline int32_t SubUS(int32_t a, int32_t b) { return a > b ? a - b : 0; }
// A 16-bit lane's value after a plain (wrapping) addition or subtraction.
inline int32_t Wrap(int32_t a) { return static_cast<int16_t>(a); }
inline uint8_t Sat8(int32_t x) { return static_cast<uint8_t>(x < 0 ? 0 : x > 255 ? 255 : x); }

// 4:2:0 forward at 12-bit coefficients.  Luma from one pixel, samples
// scaled by 2^7; chroma from the sums of a 2 by 2 block, scaled by 2^5.
inline uint8_t Luma420(Rgb p) {
    const int32_t s = AddS(AddS(AddS(H(p.r << 7, 1052), H(p.g << 7, 2064)), H(p.b << 7, 401)), 128);
    return Sat8(s >> 3);
}
inline uint8_t Cb420(Rgb sums) {
    const int32_t s = AddS(AddS(AddS(H(sums.r << 5, -607), H(sums.g << 5, -1192)), H(sums.b << 5, 1798)), 1024);
    return Sat8(s >> 3);
}
inline uint8_t Cr420(Rgb sums) {
    const int32_t s = AddS(AddS(AddS(H(sums.r << 5, 1798), H(sums.g << 5, -1508)), H(sums.b << 5, -291)), 1024);
    return Sat8(s >> 3);
}

// 4:2:0 inverse: luma less 16 and centred chroma scaled by 2^7.
inline Rgb Inverse420(int32_t y, int32_t u, int32_t v) {
    const int32_t yy = H((y - 16) << 7, 4767);
    const int32_t du = (u - 128) << 7, dv = (v - 128) << 7;
    const int32_t a = H(du, 8261), b = H(dv, 6537), c = H(du, 1605), d = H(dv, 3330);
    return Rgb{Sat8(AddS(yy, b) >> 3), Sat8(AddS(yy, -AddS(c, d)) >> 3), Sat8(AddS(yy, a) >> 3)};
}

// Luma of w7's 4:2:2 and plane kernels: unsigned lanes, samples scaled by
// 2^8, no rounding term, then 16 added with saturation.
inline uint8_t LumaUnsigned(Rgb p) {
    const int32_t s = AddUS(AddUS(HU(p.r << 8, 16843), HU(p.g << 8, 33030)), HU(p.b << 8, 6423));
    return Sat8((s >> 8) + 16);
}

// Chroma of w7's plane kernel: samples scaled by 2^7, the forward matrix
// rows as they stand, >> 7, plus 128.
inline uint8_t ChromaPlanes(Rgb p, const int32_t k[3]) {
    const int32_t s = AddS(AddS(H(p.r << 7, k[0]), H(p.g << 7, k[1])), H(p.b << 7, k[2]));
    return Sat8((s >> 7) + 128);
}

// Inverse of w7's plane kernel.  Y' = Y - 16 saturating at 0, luma term
// unsigned; R adds with saturation, G subtracts plainly, B adds its doubled
// term with saturation; each sum >> 6.
inline int32_t LumaTermPlanes(int32_t y) { return HU(SubUS(y, 16) << 8, 19069); }
inline uint8_t InverseRPlanes(int32_t y, int32_t v) {
    return Sat8(AddS(LumaTermPlanes(y), H((v - 128) << 8, 26146)) >> 6);
}
inline uint8_t InverseGPlanes(int32_t y, int32_t u, int32_t v) {
    return Sat8(Wrap(Wrap(LumaTermPlanes(y) - H((u - 128) << 8, 6421)) - H((v - 128) << 8, 13318)) >> 6);
}
inline uint8_t InverseBPlanes(int32_t y, int32_t u) {
    return Sat8(AddS(LumaTermPlanes(y), Wrap(H((u - 128) << 8, 16520) << 1)) >> 6);
}

// w7's 4:4:4 interleaved forward: the matrix at half scale in 16-bit
// multiply-add lanes, 32-bit sums, the offsets at half scale, >> 15.
constexpr int32_t kYHalf[3] = {8421, 16515, 3211};
constexpr int32_t kCbHalf[3] = {-4850, -9535, 14385};
constexpr int32_t kCrHalf[3] = {14385, -12058, -2327};
inline int32_t RowHalf(const int32_t k[3], Rgb p) { return k[0] * p.r + k[1] * p.g + k[2] * p.b; }
inline Rgb ForwardHalf(Rgb p) {
    return Rgb{Sat8((RowHalf(kYHalf, p) + 0x84000) >> 15), Sat8((RowHalf(kCbHalf, p) + 0x404000) >> 15),
               Sat8((RowHalf(kCrHalf, p) + 0x404000) >> 15)};
}

// w7's inverse of 4:2:2 interleaved sources in 16-bit multiply-add lanes:
// y' = Y - 16, u = U - 128, v = V - 128; luma 19071 and the red factor 26149
// at 2^14, the green factors -12845 and -26640 at 2^15 (their sum halved),
// the blue factor 16523 at 2^13 (taken against 2u); 32-bit sums >> 14.
inline Rgb Inverse422(int32_t y, int32_t u, int32_t v) {
    const int32_t yy = (y - 16) * 19071;
    const int32_t du = u - 128, dv = v - 128;
    return Rgb{Sat8((yy + dv * 26149) >> 14), Sat8((yy + ((du * -12845 + dv * -26640) >> 1)) >> 14),
               Sat8((yy + 2 * du * 16523) >> 14)};
}

}  // namespace pixmoor::colour::lanes

#endif

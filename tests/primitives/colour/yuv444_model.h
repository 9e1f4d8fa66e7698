// Independent scalar models of the 4:4:4 members, written from the formulas
// of the colour model and of each tier's factor sets, not from the kernels:
// one pixel in, one pixel out, given the member, the tier, the pixel's
// position on its line and the line's width (a6's odd factor row depends on
// where the pixel stands).
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV444_MODEL_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV444_MODEL_H

#include <cstdint>

#include "yuv420_model.h"

namespace yuv444_model {

using yuv420_model::Clamp255;
using yuv420_model::kA6;
using yuv420_model::kM6;
using yuv420_model::kPx;
using yuv420_model::kTiers;
using yuv420_model::kW7;
using yuv420_model::Tier;
using yuv420_model::TierName;

enum Member {
    kRgbToYuv,
    kRgbaToYuva,
    kRgbPlanesToYuvPlanes,
    kRgbToYuvPlanes,
    kYuvToRgb,
    kYuvaToRgba,
    kYuvPlanesToRgbPlanes,
    kYuvPlanesToRgb,
};
constexpr Member kMembers[8] = {kRgbToYuv,  kRgbaToYuva,  kRgbPlanesToYuvPlanes, kRgbToYuvPlanes,
                                kYuvToRgb, kYuvaToRgba, kYuvPlanesToRgbPlanes, kYuvPlanesToRgb};
inline const char* MemberName(Member m) {
    static const char* const names[8] = {"ImgRGBToYUV",  "ImgRGBAToYUVA",  "ImgRGBPlanesToYUVPlanes",
                                         "ImgRGBToYUVPlanes", "ImgYUVToRGB", "ImgYUVAToRGBA",
                                         "ImgYUVPlanesToRGBPlanes", "ImgYUVPlanesToRGB"};
    return names[m];
}
inline bool IsForward(Member m) { return m <= kRgbToYuvPlanes; }

// How a side of a member is laid out.
enum Layout { kPacked3, kPacked4, kPlanes };
inline Layout SourceLayout(Member m) {
    switch (m) {
        case kRgbaToYuva: case kYuvaToRgba: return kPacked4;
        case kRgbPlanesToYuvPlanes: case kYuvPlanesToRgbPlanes: case kYuvPlanesToRgb: return kPlanes;
        default: return kPacked3;
    }
}
inline Layout DestLayout(Member m) {
    switch (m) {
        case kRgbaToYuva: case kYuvaToRgba: return kPacked4;
        case kRgbPlanesToYuvPlanes: case kYuvPlanesToRgbPlanes: case kRgbToYuvPlanes: return kPlanes;
        default: return kPacked3;
    }
}

// Three samples in array or memory order (R, G, B or Y, U, V).
struct Trio {
    int s[3];
    bool operator==(const Trio& o) const { return s[0] == o.s[0] && s[1] == o.s[1] && s[2] == o.s[2]; }
};

// Floor of a / 2^n for either sign (GCC and Clang shift signed values
// arithmetically).
inline int64_t FloorShift(int64_t a, int n) { return a >> n; }
inline int MulHi(int64_t a, int64_t b) { return static_cast<int>(FloorShift(a * b, 16)); }

// ---- Wide arithmetic (px, m6).

// Y = F >> 16; U from T = ((B << 16) - F + 32767) >> 16 as ((T * 32244) >> 16)
// + 128, a byte without clamp; V likewise from R with 57475, clamped.
inline Trio WideForward(Trio rgb) {
    const int64_t r = rgb.s[0], g = rgb.s[1], b = rgb.s[2];
    const int64_t f = 19595 * r + 38470 * g + 7471 * b;
    const int64_t t = FloorShift(b * 65536 - f + 32767, 16);
    const int64_t t2 = FloorShift(r * 65536 - f + 32767, 16);
    return Trio{{static_cast<int>(f >> 16), static_cast<int>((FloorShift(t * 32244, 16) + 128) & 0xFF),
                 Clamp255(FloorShift(t2 * 57475, 16) + 128)}};
}

// R = clamp((Y << 16 + a v) >> 16), G = clamp((Y << 16 - c v - b u) >> 16),
// B = clamp((Y << 16 + d u) >> 16); packed sources take 74711, 25821,
// 38076, 133169, planar sources each less one.
inline Trio WideInverse(Trio yuv, bool planarSource) {
    const int64_t k = planarSource ? 1 : 0;
    const int64_t y = int64_t{yuv.s[0]} * 65536, u = yuv.s[1] - 128, v = yuv.s[2] - 128;
    return Trio{{Clamp255(FloorShift(y + (74711 - k) * v, 16)),
                 Clamp255(FloorShift(y - (38076 - k) * v - (25821 - k) * u, 16)),
                 Clamp255(FloorShift(y + (133169 - k) * u, 16))}};
}

// ---- Narrow forward factor sets (a6, w7).

// A set of three weight rows (Y, U, V) and the fraction bits of each;
// chroma gets 128 added, everything is clamped.
struct WeightSet {
    int64_t w[3][3];
    int bits[3];
};
inline Trio BySet(Trio p, const WeightSet& set) {
    Trio out;
    for (int k = 0; k < 3; ++k) {
        const int64_t dot = set.w[k][0] * p.s[0] + set.w[k][1] * p.s[1] + set.w[k][2] * p.s[2];
        out.s[k] = Clamp255(FloorShift(dot, set.bits[k]) + (k == 0 ? 0 : 128));
    }
    return out;
}
// Set L: all rows at 15 fraction bits.
constexpr WeightSet kSetL = {{{9798, 19235, 3736}, {-4817, -9470, 14287}, {20152, -16876, -3277}}, {15, 15, 15}};
// Set M: luma at 16 fraction bits (38469 read unsigned), chroma at 15.
constexpr WeightSet kSetM = {{{19595, 38469, 7471}, {-4816, -9469, 14286}, {20152, -16875, -3276}}, {16, 15, 15}};
inline Trio SetL(Trio p) { return BySet(p, kSetL); }
inline Trio SetM(Trio p) { return BySet(p, kSetM); }
// Set D: D = (9798 R + 19235 G + 3736 B) >> 14, luma with one fraction bit;
// Y = D >> 1; U = mulhi(2B - D, 16121) + 128, V = mulhi(2R - D, 28737) + 128.
inline Trio SetD(Trio p) {
    const int64_t r = p.s[0], g = p.s[1], b = p.s[2];
    const int64_t d = FloorShift(9798 * r + 19235 * g + 3736 * b, 14);
    return Trio{{Clamp255(d >> 1), Clamp255(MulHi(2 * b - d, 16121) + 128),
                 Clamp255(MulHi(2 * r - d, 28737) + 128)}};
}

// ---- Narrow inverse forms.

// The 4:2:0 scale: u' = 16 (U - 128), v' likewise; each channel
// (2Y + products, each truncated by itself) >> 1.  The odd row adds
// mulhi(u', ru) to R.
struct HalfFactors {
    int rv, ru, gu, gv, bu;
};
constexpr HalfFactors kA6Half = {9339, 0, -3228, -4760, 16646};
constexpr HalfFactors kA6HalfOdd = {9339, 4, -3232, -4760, 16646};
constexpr HalfFactors kW7Half = {9338, 0, -3227, -4759, 16645};

inline Trio Half(Trio yuv, const HalfFactors& f) {
    const int64_t y2 = 2 * yuv.s[0], du = 16 * (yuv.s[1] - 128), dv = 16 * (yuv.s[2] - 128);
    return Trio{{Clamp255(FloorShift(y2 + MulHi(dv, f.rv) + MulHi(du, f.ru), 1)),
                 Clamp255(FloorShift(y2 + MulHi(du, f.gu) + MulHi(dv, f.gv), 1)),
                 Clamp255(FloorShift(y2 + MulHi(du, f.bu), 1))}};
}

// The 4-byte inverse: u' = 8 (U - 128), v' likewise, Y plus the products,
// no doubling and no final shift.
inline Trio Alpha(Trio yuv) {
    const int64_t y = yuv.s[0], du = 8 * (yuv.s[1] - 128), dv = 8 * (yuv.s[2] - 128);
    return Trio{{Clamp255(y + MulHi(dv, 9339)), Clamp255(y + MulHi(du, -3228) + MulHi(dv, -4760)),
                 Clamp255(y + MulHi(du, 16646))}};
}

// Planes to planes: R and G at 14 fraction bits (18677; 9519 and 6455), B at
// 13 (16646), each plane's products summed before one shift.
inline Trio PlanesInverse(Trio yuv) {
    const int64_t y = yuv.s[0], u = yuv.s[1] - 128, v = yuv.s[2] - 128;
    return Trio{{Clamp255(y + FloorShift(18677 * v, 14)), Clamp255(y + FloorShift(-9519 * v - 6455 * u, 14)),
                 Clamp255(y + FloorShift(16646 * u, 13))}};
}

// True where a6's odd factor row acts: pixels 3, 7, 11, ... inside the
// main loop, which takes 8 pixels a step below width AND NOT 7.
inline bool A6OddPosition(int x, int width) { return x % 4 == 3 && x < (width & ~7); }

// The value of one pixel of `member` in `tier`.
inline Trio Model(Member m, int tier, Trio in, int x, int width) {
    if (tier == kPx || tier == kM6)
        return IsForward(m) ? WideForward(in) : WideInverse(in, SourceLayout(m) == kPlanes);
    const bool a6 = tier == kA6;
    switch (m) {
        case kRgbToYuv: return a6 ? SetL(in) : SetM(in);
        case kRgbaToYuva: return SetL(in);
        case kRgbToYuvPlanes: return a6 ? SetD(in) : SetM(in);
        case kRgbPlanesToYuvPlanes: return SetM(in);
        case kYuvToRgb: return Half(in, a6 && A6OddPosition(x, width) ? kA6HalfOdd : kA6Half);
        case kYuvPlanesToRgb:
            if (!a6) return Half(in, kW7Half);
            return Half(in, A6OddPosition(x, width) ? kA6HalfOdd : kA6Half);
        case kYuvaToRgba: return Alpha(in);
        case kYuvPlanesToRgbPlanes: return PlanesInverse(in);
    }
    return in;
}

// The wide value of the same pixel, the reference the narrow kernels stay
// close to.
inline Trio Wide(Member m, Trio in) { return Model(m, kPx, in, 0, 1); }

}  // namespace yuv444_model

#endif

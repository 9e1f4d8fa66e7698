// Independent scalar models of the YCbCr members, written from the formulas
// of the conversions (not from the kernels), with 64-bit products and floor
// division in place of shifts.  Each function gives the bytes of one sample
// or one pixel; ycbcr_expect.h walks whole images with them.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YCBCR_MODEL_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YCBCR_MODEL_H

#include <algorithm>
#include <cstdint>

#include "yuv420_model.h"

namespace ycbcr_model {

// Tier names and the floor of a / 2^n: those of the 4:2:0 models.
using yuv420_model::kA6;
using yuv420_model::kM6;
using yuv420_model::kPx;
using yuv420_model::kTiers;
using yuv420_model::kW7;
using yuv420_model::TierName;
inline int64_t Floor(int64_t a, int n) { return yuv420_model::FloorShift(a, n); }
inline int Clamp(int64_t v, int lo = 0, int hi = 255) {
    return static_cast<int>(std::min<int64_t>(hi, std::max<int64_t>(lo, v)));
}

struct Px {
    int a, b, c;  // R, G, B or Y, Cb, Cr
};
inline Px Add(Px p, Px q) { return Px{p.a + q.a, p.b + q.b, p.c + q.c}; }

// ---- reference arithmetic ----------------------------------------------

inline int64_t YSum(Px p) { return 16843LL * p.a + 33030LL * p.b + 6423LL * p.c; }
inline int64_t CbSum(Px s) { return -9699LL * s.a - 19071LL * s.b + 28770LL * s.c; }
inline int64_t CrSum(Px s) { return 28770LL * s.a - 24117LL * s.b - 4653LL * s.c; }

inline int Y(Px p) { return static_cast<int>(Floor(YSum(p) + 0x108000, 16)); }
inline int YSecond(Px p) { return static_cast<int>(Floor(YSum(p) + 0x100000, 16)); }
inline int Cb1(Px p) { return static_cast<int>(Floor(CbSum(p) + 0x808000, 16)); }
inline int Cr1(Px p) { return static_cast<int>(Floor(CrSum(p) + 0x808000, 16)); }
inline int CbPair(Px s) { return static_cast<int>(Floor(CbSum(s) + 0x1010000, 17)); }
inline int CrPair(Px s) { return static_cast<int>(Floor(CrSum(s) + 0x1010000, 17)); }
inline int CbTwo(Px s) { return static_cast<int>(Floor(CbSum(s) + 16793600, 17)); }
inline int CrTwo(Px s) { return static_cast<int>(Floor(CrSum(s) + 16793600, 17)); }
inline int CbFour(Px s) { return static_cast<int>(Floor(CbSum(s) + 33587200, 18)); }
inline int CrFour(Px s) { return static_cast<int>(Floor(CrSum(s) + 33587200, 18)); }

// Inverse of 4:2:2 interleaved sources (folded offsets).
inline Px Inverse422(int y, int u, int v) {
    const int64_t g = 53281LL * v + 25690LL * u - 8887730;
    return Px{Clamp(Floor(76284LL * y + 104595LL * v - 14608761, 16)), Clamp(Floor(76284LL * y - g, 16)),
              Clamp(Floor(76284LL * y + 132186LL * u - 18140365, 16))};
}
// Width 1: c as both chroma values.
inline Px WidthOne(int y, int c) {
    return Px{Clamp(Floor(76284LL * y + 104595LL * c - 14608761, 16)),
              Clamp(Floor(76284LL * y - 78971LL * c + 8887730, 16)),
              Clamp(Floor(76284LL * y + 132186LL * c - 18140365, 16))};
}
// Inverse of 4:2:0 and 4:4:4 sources.
inline Px Inverse(int y, int u, int v) {
    const int64_t cu = u - 128, cv = v - 128;
    return Px{Clamp(Floor(76284LL * y + 104595LL * cv - 1220544, 16)),
              Clamp(Floor(76284LL * y - 1220544 - 25690LL * cu - 53281LL * cv, 16)),
              Clamp(Floor(76284LL * y + 132186LL * cu - 1220544, 16))};
}

// 16-bit words.  bits: 565, 555 or 444; redHigh: the swap flag.
inline uint16_t Pack(Px c, int bits, bool redHigh) {
    int outerShift, g, shift;
    if (bits == 565) {
        outerShift = 3, g = (c.b >> 2) << 5, shift = 11;
    } else if (bits == 555) {
        outerShift = 3, g = (c.b >> 3) << 5, shift = 10;
    } else {
        outerShift = 4, g = c.b & 240, shift = 8;
    }
    const int r = c.a >> outerShift, b = c.c >> outerShift;
    return static_cast<uint16_t>(redHigh ? (r << shift) | g | b : (b << shift) | g | r);
}

// ---- lane arithmetic of the vector tiers -------------------------------

// High half of a 16 by 16 signed product; a must be a 16-bit value.
inline int H(int a, int c) { return static_cast<int>(Floor(static_cast<int64_t>(a) * c, 16)); }
inline int SatS(int v) { return Clamp(v, -32768, 32767); }

// 4:2:0 forward, a6 and w7: 12-bit coefficients.
inline int Y420(Px p) {
    return Clamp(Floor(SatS(SatS(SatS(H(p.a * 128, 1052) + H(p.b * 128, 2064)) + H(p.c * 128, 401)) + 128), 3));
}
inline int Cb420(Px s) {
    return Clamp(Floor(SatS(SatS(SatS(H(s.a * 32, -607) + H(s.b * 32, -1192)) + H(s.c * 32, 1798)) + 1024), 3));
}
inline int Cr420(Px s) {
    return Clamp(Floor(SatS(SatS(SatS(H(s.a * 32, 1798) + H(s.b * 32, -1508)) + H(s.c * 32, -291)) + 1024), 3));
}
// 4:2:0 inverse, a6 and w7.
inline Px Inverse420(int y, int u, int v) {
    const int yy = H((y - 16) * 128, 4767);
    const int a = H((u - 128) * 128, 8261), b = H((v - 128) * 128, 6537);
    const int c = H((u - 128) * 128, 1605), d = H((v - 128) * 128, 3330);
    return Px{Clamp(Floor(SatS(yy + b), 3)), Clamp(Floor(SatS(yy - SatS(c + d)), 3)), Clamp(Floor(SatS(yy + a), 3))};
}

// w7 luma on unsigned lanes: each term (c * 256 * k) >> 16 truncated, the
// sum saturated at 65535, >> 8, plus 16.
inline int YLane(Px p) {
    const int64_t s = std::min<int64_t>(65535, ((p.a * 256LL * 16843) >> 16) + ((p.b * 256LL * 33030) >> 16) +
                                                   ((p.c * 256LL * 6423) >> 16));
    return Clamp((s >> 8) + 16);
}
// w7 plane chroma: sums of H(c << 7, k), saturating, >> 7, plus 128.
inline int ChromaLane(Px p, int kr, int kg, int kb) {
    return Clamp(Floor(SatS(SatS(H(p.a * 128, kr) + H(p.b * 128, kg)) + H(p.c * 128, kb)), 7) + 128);
}
inline int CbLane(Px p) { return ChromaLane(p, -9699, -19071, 28770); }
inline int CrLane(Px p) { return ChromaLane(p, 28770, -24117, -4653); }
// w7 plane inverse.
inline int LumaTerm(int y) { return static_cast<int>(((std::max(y - 16, 0) * 256LL) * 19069) >> 16); }
inline int RLane(int y, int v) { return Clamp(Floor(SatS(LumaTerm(y) + H((v - 128) * 256, 26146)), 6)); }
inline int GLane(int y, int u, int v) {
    const int g = static_cast<int16_t>(LumaTerm(y) - H((u - 128) * 256, 6421) - H((v - 128) * 256, 13318));
    return Clamp(Floor(g, 6));
}
// B's doubled term joins with saturation (a plain addition would wrap the
// brightest blues into the negative).
inline int BLane(int y, int u) {
    return Clamp(Floor(SatS(LumaTerm(y) + static_cast<int16_t>(2 * H((u - 128) * 256, 16520))), 6));
}
// w7 4:4:4 interleaved forward, half-scale matrix, >> 15.
inline Px ForwardHalf(Px p) {
    return Px{Clamp(Floor(8421LL * p.a + 16515LL * p.b + 3211LL * p.c + 0x84000, 15)),
              Clamp(Floor(-4850LL * p.a - 9535LL * p.b + 14385LL * p.c + 0x404000, 15)),
              Clamp(Floor(14385LL * p.a - 12058LL * p.b - 2327LL * p.c + 0x404000, 15))};
}
// w7 4:2:2 interleaved inverse in multiply-add lanes: luma and red at
// 2^14, green at 2^15 (halved), blue at 2^13 against 2u.
inline Px Inverse422Lane(int y, int u, int v) {
    const int64_t yy = 19071LL * (y - 16), cu = u - 128, cv = v - 128;
    return Px{Clamp(Floor(yy + 26149 * cv, 14)), Clamp(Floor(yy + Floor(-12845 * cu - 26640 * cv, 1), 14)),
              Clamp(Floor(yy + 16523 * 2 * cu, 14))};
}

}  // namespace ycbcr_model

#endif

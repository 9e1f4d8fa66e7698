// Independent scalar models of the 4:2:0 colour members, written from the
// formulas of the colour model, not from the kernels: whole frames in,
// whole frames out, per tier.  Images here are planar and tightly stored.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV420_MODEL_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV420_MODEL_H

#include <algorithm>
#include <cstdint>
#include <vector>

namespace yuv420_model {

enum Tier { kPx = 0, kM6 = 1, kA6 = 2, kW7 = 3 };
constexpr Tier kTiers[4] = {kPx, kM6, kA6, kW7};
inline const char* TierName(int t) {
    static const char* const names[4] = {"px", "m6", "a6", "w7"};
    return names[t];
}

// Floor of a / 2^n for any sign: the arithmetic right shift.
inline int64_t FloorShift(int64_t a, int n) {
    const int64_t d = int64_t{1} << n;
    return a >= 0 ? a / d : -((-a + d - 1) / d);
}
inline int MulHi(int a, int b) { return static_cast<int>(FloorShift(int64_t{a} * b, 16)); }
inline int Clamp255(int64_t v) { return static_cast<int>(std::min<int64_t>(255, std::max<int64_t>(0, v))); }

struct Pixel {
    int r, g, b;
};

struct RgbFrame {
    int width = 0, height = 0;
    std::vector<uint8_t> r, g, b;  // width * height each
    Pixel At(int x, int y) const {
        const size_t i = static_cast<size_t>(y) * width + x;
        return Pixel{r[i], g[i], b[i]};
    }
    void Set(int x, int y, Pixel p) {
        const size_t i = static_cast<size_t>(y) * width + x;
        r[i] = static_cast<uint8_t>(p.r);
        g[i] = static_cast<uint8_t>(p.g);
        b[i] = static_cast<uint8_t>(p.b);
    }
    static RgbFrame Make(int w, int h) {
        RgbFrame f;
        f.width = w;
        f.height = h;
        f.r.assign(static_cast<size_t>(w) * h, 0);
        f.g = f.r;
        f.b = f.r;
        return f;
    }
};

struct YuvFrame {
    int width = 0, height = 0;
    int chromaWidth = 0, chromaHeight = 0;
    std::vector<uint8_t> y, u, v;
    static YuvFrame Make(int w, int h) {
        YuvFrame f;
        f.width = w;
        f.height = h;
        f.chromaWidth = (w + 1) / 2;
        f.chromaHeight = (h + 1) / 2;
        f.y.assign(static_cast<size_t>(w) * h, 0);
        f.u.assign(static_cast<size_t>(f.chromaWidth) * f.chromaHeight, 0);
        f.v = f.u;
        return f;
    }
    uint8_t& Y(int x, int yy) { return y[static_cast<size_t>(yy) * width + x]; }
    uint8_t& U(int cx, int cy) { return u[static_cast<size_t>(cy) * chromaWidth + cx]; }
    uint8_t& V(int cx, int cy) { return v[static_cast<size_t>(cy) * chromaWidth + cx]; }
    int Y(int x, int yy) const { return y[static_cast<size_t>(yy) * width + x]; }
    int U(int cx, int cy) const { return u[static_cast<size_t>(cy) * chromaWidth + cx]; }
    int V(int cx, int cy) const { return v[static_cast<size_t>(cy) * chromaWidth + cx]; }
};

// ---- Forward, wide: F = 19595 R + 38470 G + 7471 B; Y = F >> 16.

inline int64_t F(Pixel p) { return 19595LL * p.r + 38470LL * p.g + 7471LL * p.b; }
inline int WideY(Pixel p) { return static_cast<int>(F(p) >> 16); }

// Chroma of n pixels (1, 2 or 4).  `bias` 0x1FFFF in the row kernels of
// px and m6, 0 in the edge code.  Final shift 16 + log2(n).
struct Chroma {
    int u, v;
};
inline Chroma WideChroma(const std::vector<Pixel>& px, int64_t bias) {
    int64_t sf = 0, sb = 0, sr = 0;
    for (const Pixel& p : px) {
        sf += F(p);
        sb += p.b;
        sr += p.r;
    }
    const int shift = px.size() == 4 ? 18 : px.size() == 2 ? 17 : 16;
    const int64_t t = FloorShift(sb * 65536 - sf + bias, 16);
    const int64_t t2 = FloorShift(sr * 65536 - sf + bias, 16);
    const int u = static_cast<int>(FloorShift(t * 32244, shift) + 128);
    const int v = Clamp255(FloorShift(t2 * 57475, shift) + 128);
    return Chroma{u & 0xFF, v};
}

// ---- Forward, narrow: D = (9798 R + 19235 G + 3736 B) >> 14, or for plane
// sources the sum of mulhi((c * 257) >> 6, w) over the three channels.

inline int NarrowD(Pixel p, bool planes) {
    if (!planes) return static_cast<int>(FloorShift(9798LL * p.r + 19235LL * p.g + 3736LL * p.b, 14));
    auto widen = [](int c) { return (c * 257) >> 6; };
    return MulHi(widen(p.r), 9798) + MulHi(widen(p.g), 19235) + MulHi(widen(p.b), 3736);
}

inline void NarrowBlock(const Pixel p[4], bool planes, int y[4], Chroma* c) {
    int sumD = 0;
    for (int i = 0; i < 4; ++i) {
        const int d = NarrowD(p[i], planes);
        y[i] = Clamp255(d >> 1);
        sumD += d;
    }
    const int a = sumD >> 2;
    const int pb = (p[0].b + p[1].b + p[2].b + p[3].b) >> 1;
    const int pr = (p[0].r + p[1].r + p[2].r + p[3].r) >> 1;
    c->u = Clamp255(MulHi(pb - a, 16121) + 128);
    c->v = Clamp255(MulHi(pr - a, 28737) + 128);
}

inline YuvFrame Forward(const RgbFrame& in, Tier tier, bool planesSource) {
    const int w = in.width, h = in.height;
    YuvFrame out = YuvFrame::Make(w, h);
    const bool narrow = tier == kA6 || tier == kW7;
    for (int by = 0; by < h / 2; ++by) {
        for (int bx = 0; bx < w / 2; ++bx) {
            const Pixel p[4] = {in.At(2 * bx, 2 * by), in.At(2 * bx + 1, 2 * by),
                                in.At(2 * bx, 2 * by + 1), in.At(2 * bx + 1, 2 * by + 1)};
            int y[4];
            Chroma c;
            if (narrow) {
                NarrowBlock(p, planesSource, y, &c);
            } else {
                for (int i = 0; i < 4; ++i) y[i] = WideY(p[i]);
                c = WideChroma({p[0], p[1], p[2], p[3]}, 0x1FFFF);
            }
            out.Y(2 * bx, 2 * by) = static_cast<uint8_t>(y[0]);
            out.Y(2 * bx + 1, 2 * by) = static_cast<uint8_t>(y[1]);
            out.Y(2 * bx, 2 * by + 1) = static_cast<uint8_t>(y[2]);
            out.Y(2 * bx + 1, 2 * by + 1) = static_cast<uint8_t>(y[3]);
            out.U(bx, by) = static_cast<uint8_t>(c.u);
            out.V(bx, by) = static_cast<uint8_t>(c.v);
        }
    }
    // Edges: wide, no bias, in every tier.
    if (w % 2 == 1) {
        const int x = w - 1;
        for (int by = 0; by < h / 2; ++by) {
            const Pixel a = in.At(x, 2 * by), b = in.At(x, 2 * by + 1);
            out.Y(x, 2 * by) = static_cast<uint8_t>(WideY(a));
            out.Y(x, 2 * by + 1) = static_cast<uint8_t>(WideY(b));
            const Chroma c = WideChroma({a, b}, 0);
            out.U(w / 2, by) = static_cast<uint8_t>(c.u);
            out.V(w / 2, by) = static_cast<uint8_t>(c.v);
        }
    }
    if (h % 2 == 1) {
        const int yy = h - 1;
        for (int bx = 0; bx < w / 2; ++bx) {
            const Pixel a = in.At(2 * bx, yy), b = in.At(2 * bx + 1, yy);
            out.Y(2 * bx, yy) = static_cast<uint8_t>(WideY(a));
            out.Y(2 * bx + 1, yy) = static_cast<uint8_t>(WideY(b));
            const Chroma c = WideChroma({a, b}, 0);
            out.U(bx, h / 2) = static_cast<uint8_t>(c.u);
            out.V(bx, h / 2) = static_cast<uint8_t>(c.v);
        }
        if (w % 2 == 1) {
            const Pixel a = in.At(w - 1, yy);
            out.Y(w - 1, yy) = static_cast<uint8_t>(WideY(a));
            const Chroma c = WideChroma({a}, 0);
            out.U(w / 2, h / 2) = static_cast<uint8_t>(c.u);
            out.V(w / 2, h / 2) = static_cast<uint8_t>(c.v);
        }
    }
    return out;
}

// ---- Inverse.

inline Pixel WideRgb(int y, int u, int v) {
    const int64_t du = u - 128, dv = v - 128, y16 = int64_t{y} * 65536;
    return Pixel{Clamp255(FloorShift(y16 + 74711 * dv, 16)),
                 Clamp255(FloorShift(y16 - 38076 * dv - 25821 * du, 16)),
                 Clamp255(FloorShift(y16 + 133169 * du, 16))};
}

struct NarrowFactors {
    int rv, gu, gv, bu;
    bool oddRow;  // R gains mulhi(u', 4); G's U factor is the one given
};
constexpr NarrowFactors kW7Factors = {9338, -3227, -4759, 16645, false};
constexpr NarrowFactors kA6Factors = {9339, -3228, -4760, 16646, false};
constexpr NarrowFactors kA6OddFactors = {9339, -3232, -4760, 16646, true};

inline Pixel NarrowRgb(int y, int u, int v, const NarrowFactors& f) {
    const int y2 = 2 * y, du = 16 * (u - 128), dv = 16 * (v - 128);
    const int rExtra = f.oddRow ? MulHi(du, 4) : 0;
    return Pixel{Clamp255((y2 + MulHi(dv, f.rv) + rExtra) >> 1),
                 Clamp255((y2 + MulHi(du, f.gu) + MulHi(dv, f.gv)) >> 1),
                 Clamp255((y2 + MulHi(du, f.bu)) >> 1)};
}

// Which arithmetic a tier's frame uses at pixel (x, y).
inline Pixel InversePixel(const YuvFrame& in, Tier tier, bool planesDest, int x, int y) {
    const int w = in.width, h = in.height;
    const int yv = in.Y(x, y), u = in.U(x / 2, y / 2), v = in.V(x / 2, y / 2);
    const bool inKernel = x < 2 * (w / 2) && y < 2 * (h / 2);
    if (!inKernel || tier == kPx || tier == kM6) return WideRgb(yv, u, v);
    if (tier == kW7 || planesDest) return NarrowRgb(yv, u, v, kW7Factors);
    const int mainLoopPixels = 2 * ((w / 2) & ~3);
    const bool odd = x % 4 == 3 && x < mainLoopPixels;
    return NarrowRgb(yv, u, v, odd ? kA6OddFactors : kA6Factors);
}

inline RgbFrame Inverse(const YuvFrame& in, Tier tier, bool planesDest) {
    RgbFrame out = RgbFrame::Make(in.width, in.height);
    for (int y = 0; y < in.height; ++y)
        for (int x = 0; x < in.width; ++x) out.Set(x, y, InversePixel(in, tier, planesDest, x, y));
    return out;
}

}  // namespace yuv420_model

#endif

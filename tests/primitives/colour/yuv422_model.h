// Independent scalar models of the 4:2:2 members, from the formulas of the
// colour model: whole frames in, whole frames out, per tier.  Lines are
// independent; a pair of pixels shares one chroma pair.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV422_MODEL_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV422_MODEL_H

#include <cstdint>
#include <vector>

#include "yuv420_model.h"

namespace yuv422_model {

using yuv420_model::Clamp255;
using yuv420_model::FloorShift;
using yuv420_model::MulHi;
using yuv420_model::Pixel;
using yuv420_model::RgbFrame;
using yuv420_model::Tier;

inline bool IsNarrow(int tier) { return tier == yuv420_model::kA6 || tier == yuv420_model::kW7; }

// Planar 4:2:2: chroma ceil(width / 2) a line, every line.
struct Yuv422Frame {
    int width = 0, height = 0, chromaWidth = 0;
    std::vector<uint8_t> y, u, v;
    static Yuv422Frame Make(int w, int h) {
        Yuv422Frame f;
        f.width = w;
        f.height = h;
        f.chromaWidth = (w + 1) / 2;
        f.y.assign(static_cast<size_t>(w) * h, 0);
        f.u.assign(static_cast<size_t>(f.chromaWidth) * h, 0);
        f.v = f.u;
        return f;
    }
    uint8_t& Y(int x, int l) { return y[static_cast<size_t>(l) * width + x]; }
    uint8_t& U(int c, int l) { return u[static_cast<size_t>(l) * chromaWidth + c]; }
    uint8_t& V(int c, int l) { return v[static_cast<size_t>(l) * chromaWidth + c]; }
    int Y(int x, int l) const { return y[static_cast<size_t>(l) * width + x]; }
    int U(int c, int l) const { return u[static_cast<size_t>(l) * chromaWidth + c]; }
    int V(int c, int l) const { return v[static_cast<size_t>(l) * chromaWidth + c]; }
};

inline bool Same(const Yuv422Frame& a, const Yuv422Frame& b) { return a.y == b.y && a.u == b.u && a.v == b.v; }

// ---- RGB to 4:2:2.

struct Chroma {
    int u, v;
};

// Wide: T = ((B sum << 16) - F sum + bias) >> 16, U = ((T * 32244) >> s) +
// 128 unclamped, V likewise with R and 57475, clamped; a pair has bias 65535
// and s 17, a lone pixel bias 32767 and s 16.
inline Chroma WideChroma(const std::vector<Pixel>& px) {
    int64_t sf = 0, sb = 0, sr = 0;
    for (const Pixel& p : px) {
        sf += yuv420_model::F(p);
        sb += p.b;
        sr += p.r;
    }
    const bool pair = px.size() == 2;
    const int64_t bias = pair ? 65535 : 32767;
    const int shift = pair ? 17 : 16;
    const int64_t t = FloorShift(sb * 65536 - sf + bias, 16);
    const int64_t t2 = FloorShift(sr * 65536 - sf + bias, 16);
    return Chroma{static_cast<int>(FloorShift(t * 32244, shift) + 128) & 0xFF,
                  Clamp255(FloorShift(t2 * 57475, shift) + 128)};
}

// Narrow: D = (9798 R + 19235 G + 3736 B) >> 14, Y = D >> 1, A = (D0 + D1)
// >> 1, U = mulhi(B0 + B1 - A, 16121) + 128, V = mulhi(R0 + R1 - A, 28737)
// + 128, saturated.  A lone pixel is taken as a pair of itself (reading
// noted in the forward tests).
inline int NarrowD(Pixel p) { return yuv420_model::NarrowD(p, false); }
inline Chroma NarrowChroma(Pixel a, Pixel b) {
    const int mean = (NarrowD(a) + NarrowD(b)) >> 1;
    return Chroma{Clamp255(MulHi(a.b + b.b - mean, 16121) + 128), Clamp255(MulHi(a.r + b.r - mean, 28737) + 128)};
}

inline Yuv422Frame Forward(const RgbFrame& in, int tier) {
    const int w = in.width, h = in.height;
    Yuv422Frame out = Yuv422Frame::Make(w, h);
    for (int l = 0; l < h; ++l) {
        for (int x = 0; x < w; ++x) {
            const Pixel p = in.At(x, l);
            out.Y(x, l) = static_cast<uint8_t>(IsNarrow(tier) ? Clamp255(NarrowD(p) >> 1) : yuv420_model::WideY(p));
        }
        for (int j = 0; j < out.chromaWidth; ++j) {
            const Pixel a = in.At(2 * j, l);
            const bool lone = 2 * j + 1 == w;
            const Pixel b = lone ? a : in.At(2 * j + 1, l);
            Chroma c;
            if (IsNarrow(tier))
                c = NarrowChroma(a, b);
            else
                c = lone ? WideChroma({a}) : WideChroma({a, b});
            out.U(j, l) = static_cast<uint8_t>(c.u);
            out.V(j, l) = static_cast<uint8_t>(c.v);
        }
    }
    return out;
}

// ---- 4:2:2 to RGB.

constexpr yuv420_model::NarrowFactors kFactors = yuv420_model::kW7Factors;  // a6 and w7

inline Pixel TierRgb(int tier, int y, int u, int v) {
    return IsNarrow(tier) ? yuv420_model::NarrowRgb(y, u, v, kFactors) : yuv420_model::WideRgb(y, u, v);
}

// w7's lone last pixel of packed 4:2:2, 13 fraction bits.
inline Pixel Rgb13(int y, int u, int v) {
    const int64_t du = u - 128, dv = v - 128, ys = int64_t{y} * 8192;
    return Pixel{Clamp255(FloorShift(ys + 9338 * dv, 13)), Clamp255(FloorShift(ys - 3227 * du - 4759 * dv, 13)),
                 Clamp255(FloorShift(ys + 16645 * du, 13))};
}

inline RgbFrame FromPlanes(const Yuv422Frame& in, int tier) {
    RgbFrame out = RgbFrame::Make(in.width, in.height);
    for (int l = 0; l < in.height; ++l)
        for (int x = 0; x < in.width; ++x)
            out.Set(x, l, TierRgb(tier, in.Y(x, l), in.U(x / 2, l), in.V(x / 2, l)));
    return out;
}

// Packed 4:2:2: 2 * width bytes a line, Y0 U Y1 V a pair.
struct Packed422Frame {
    int width = 0, height = 0;
    std::vector<uint8_t> bytes;
    int LineBytes() const { return 2 * width; }
    const uint8_t* Line(int l) const { return &bytes[static_cast<size_t>(l) * LineBytes()]; }
};

inline RgbFrame FromPacked(const Packed422Frame& in, int tier) {
    const int w = in.width;
    RgbFrame out = RgbFrame::Make(w, in.height);
    for (int l = 0; l < in.height; ++l) {
        const uint8_t* b = in.Line(l);
        if (w == 1) {  // byte 1 serves as U and V, wide arithmetic in every tier
            out.Set(0, l, yuv420_model::WideRgb(b[0], b[1], b[1]));
            continue;
        }
        for (int x = 0; x < w; ++x) {
            const int j = x / 2;
            if (2 * j + 1 < w) {
                out.Set(x, l, TierRgb(tier, b[4 * j + 2 * (x & 1)], b[4 * j + 1], b[4 * j + 3]));
            } else {  // lone last pixel: Y, U its own bytes, V the byte before Y
                const int y = b[2 * x], u = b[2 * x + 1], v = b[2 * x - 1];
                out.Set(x, l, tier == yuv420_model::kW7 ? Rgb13(y, u, v) : TierRgb(tier, y, u, v));
            }
        }
    }
    return out;
}

}  // namespace yuv422_model

#endif

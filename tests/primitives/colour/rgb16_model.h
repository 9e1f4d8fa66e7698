// Independent scalar model of the 16-bit members, from the formulas of the
// colour model: the inverse 4:2:0 colour (wide in px and m6, the vector
// tiers' own narrow form in a6 and w7), the edges of odd sizes in the wide
// arithmetic, and the fields cut to the word layouts.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_RGB16_MODEL_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_RGB16_MODEL_H

#include <cstdint>
#include <vector>

#include "yuv420_model.h"

namespace rgb16_model {

using yuv420_model::Clamp255;
using yuv420_model::MulHi;
using yuv420_model::Pixel;
using yuv420_model::Tier;
using yuv420_model::YuvFrame;

// Bits of red/blue, bits of green, and whether red is high in the word.
struct Format {
    const char* name;
    int redBlueBits, greenBits;
    bool redHigh;
};
constexpr Format kRgb565 = {"RGB565", 5, 6, true};
constexpr Format kBgr565 = {"BGR565", 5, 6, false};
constexpr Format kRgb555 = {"RGB555", 5, 5, true};
constexpr Format kBgr555 = {"BGR555", 5, 5, false};
constexpr Format kRgb444 = {"RGB444", 4, 4, true};
constexpr Format kBgr444 = {"BGR444", 4, 4, false};
constexpr Format kFormats[6] = {kRgb565, kBgr565, kRgb555, kBgr555, kRgb444, kBgr444};

// Green sits just above the low field; the high field just above green.
inline uint16_t Word(const Format& f, Pixel c) {
    const int low = f.redHigh ? c.b : c.r;
    const int high = f.redHigh ? c.r : c.b;
    const int lowField = low >> (8 - f.redBlueBits);
    const int greenField = c.g >> (8 - f.greenBits);
    const int highField = high >> (8 - f.redBlueBits);
    return static_cast<uint16_t>(lowField | (greenField << f.redBlueBits) |
                                 (highField << (f.redBlueBits + f.greenBits)));
}

// The narrow form of the vector tiers: y = 16 Y, u' = 128 (U - 128),
// v' = 128 (V - 128); the G products are subtracted.
inline Pixel NarrowRgb(int y, int u, int v) {
    const int ys = 16 * y, du = 128 * (u - 128), dv = 128 * (v - 128);
    return Pixel{Clamp255((ys + MulHi(dv, 9338)) >> 4), Clamp255((ys - MulHi(dv, 4759) - MulHi(du, 3227)) >> 4),
                 Clamp255((ys + MulHi(du, 16646)) >> 4)};
}

inline Pixel ModelPixel(int tier, int y, int u, int v, bool inKernel) {
    const bool narrow = tier == yuv420_model::kA6 || tier == yuv420_model::kW7;
    return narrow && inKernel ? NarrowRgb(y, u, v) : yuv420_model::WideRgb(y, u, v);
}

// Words of the whole picture, width * height.  Width or height 1 writes
// nothing: the model then has no words.
inline std::vector<uint16_t> Convert(const YuvFrame& in, int tier, const Format& f) {
    const int w = in.width, h = in.height;
    if (w == 1 || h == 1) return {};
    std::vector<uint16_t> out(static_cast<size_t>(w) * h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const bool inKernel = x < 2 * (w / 2) && y < 2 * (h / 2);
            const Pixel c = ModelPixel(tier, in.Y(x, y), in.U(x / 2, y / 2), in.V(x / 2, y / 2), inKernel);
            out[static_cast<size_t>(y) * w + x] = Word(f, c);
        }
    return out;
}

}  // namespace rgb16_model

#endif

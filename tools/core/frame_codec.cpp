#include "core/frame_codec.h"

#include <algorithm>
#include <cmath>

#include <pixmoor/geometry.h>

namespace pixmoor_tool {
namespace {

uint8_t ClampByte(double v) { return static_cast<uint8_t>(std::clamp(std::lround(v), 0L, 255L)); }

// Widens a field of `bits` bits to 8 by repeating its high bits below it.
uint8_t Widen(uint32_t field, int bits) {
    return static_cast<uint8_t>((field << (8 - bits)) | (field >> (2 * bits - 8)));
}

// Byte offsets of Y0, U, Y1, V inside a packed 4:2:2 pair.
struct PairLayout {
    int y0, u, y1, v;
};
PairLayout PackedLayout(uint32_t code) {
    return code == FCC_UYVY ? PairLayout{1, 0, 3, 2} : PairLayout{0, 1, 2, 3};
}

// Plane offsets of a tight 4:2:0 frame: U and V as the code orders them.
struct PlaneOffsets {
    size_t u, v, chromaWidth;
};
PlaneOffsets PlanarOffsets(uint32_t code, int32_t width, int32_t height) {
    const size_t luma = size_t(width) * size_t(height);
    const size_t chroma = size_t(width / 2) * size_t(height / 2);
    if (code == FCC_YV12) return {luma + chroma, luma, size_t(width / 2)};
    return {luma, luma + chroma, size_t(width / 2)};
}

void DecodeRgbPixel(uint32_t code, const uint8_t* p, Rgb555Layout layout, uint8_t* out) {
    if (code == FCC_RG24 || code == FCC_RG32) {
        out[0] = p[2], out[1] = p[1], out[2] = p[0];
        return;
    }
    const uint32_t word = uint32_t(p[0]) | (uint32_t(p[1]) << 8);
    if (code == FCC_RG56) {
        out[0] = Widen(word >> 11, 5), out[1] = Widen((word >> 5) & 0x3F, 6), out[2] = Widen(word & 0x1F, 5);
        return;
    }
    const uint32_t w = layout == Rgb555Layout::HighAligned ? word >> 1 : word;
    out[0] = Widen((w >> 10) & 0x1F, 5), out[1] = Widen((w >> 5) & 0x1F, 5), out[2] = Widen(w & 0x1F, 5);
}

void EncodeRgbPixel(uint32_t code, const uint8_t* rgb, uint8_t* p) {
    const uint32_t r = rgb[0], g = rgb[1], b = rgb[2];
    switch (code) {
        case FCC_RG24: p[0] = uint8_t(b), p[1] = uint8_t(g), p[2] = uint8_t(r); return;
        case FCC_RG32: p[0] = uint8_t(b), p[1] = uint8_t(g), p[2] = uint8_t(r), p[3] = 0; return;
        default: break;
    }
    const uint32_t word = code == FCC_RG56 ? ((r >> 3) << 11) | ((g >> 2) << 5) | (b >> 3)
                                           : ((r >> 3) << 10) | ((g >> 3) << 5) | (b >> 3);
    p[0] = uint8_t(word & 0xFF), p[1] = uint8_t(word >> 8);
}

}  // namespace

namespace {

constexpr double kWr = 0.114, kWg = 0.587, kWb = 0.299;
constexpr double kGainU = 0.877, kGainV = 0.492;  // U from B - Y, V from R - Y

}  // namespace

void RgbToYuv(const uint8_t rgb[3], int32_t yuv[3]) {
    const double r = rgb[0], g = rgb[1], b = rgb[2];
    const double y = kWr * r + kWg * g + kWb * b;
    yuv[0] = ClampByte(y);
    yuv[1] = ClampByte(128.0 + kGainU * (b - y));
    yuv[2] = ClampByte(128.0 + kGainV * (r - y));
}

void YuvToRgb(int32_t y, int32_t u, int32_t v, uint8_t rgb[3]) {
    const double b = y + (u - 128.0) / kGainU;
    const double r = y + (v - 128.0) / kGainV;
    rgb[0] = ClampByte(r);
    rgb[1] = ClampByte((y - kWr * r - kWb * b) / kWg);
    rgb[2] = ClampByte(b);
}

RgbImage DecodeFrame(const FormatInfo& format, const uint8_t* frame, int32_t width, int32_t height,
                     int32_t pitch, Rgb555Layout layout) {
    RgbImage image(width, height);
    switch (format.kind) {
        case FormatKind::Rgb: {
            const size_t bytes = size_t(format.bitsPerPixel / 8);
            const size_t step = pitch > 0 ? size_t(pitch) : bytes * size_t(width);
            for (int32_t y = 0; y < height; ++y)
                for (int32_t x = 0; x < width; ++x)
                    DecodeRgbPixel(format.code, frame + y * step + x * bytes, layout, image.at(x, y));
            break;
        }
        case FormatKind::Packed422: {
            const PairLayout L = PackedLayout(format.code);
            for (int32_t y = 0; y < height; ++y)
                for (int32_t x = 0; x + 1 < width; x += 2) {
                    const uint8_t* p = frame + (size_t(y) * size_t(width) + size_t(x)) * 2;
                    YuvToRgb(p[L.y0] - kPackedLumaOffset, p[L.u], p[L.v], image.at(x, y));
                    YuvToRgb(p[L.y1] - kPackedLumaOffset, p[L.u], p[L.v], image.at(x + 1, y));
                }
            break;
        }
        case FormatKind::Planar420: {
            const PlaneOffsets o = PlanarOffsets(format.code, width, height);
            for (int32_t y = 0; y < height; ++y)
                for (int32_t x = 0; x < width; ++x) {
                    const size_t c = size_t(y / 2) * o.chromaWidth + size_t(std::min(x / 2, width / 2 - 1));
                    YuvToRgb(frame[size_t(y) * size_t(width) + size_t(x)], frame[o.u + c], frame[o.v + c],
                             image.at(x, y));
                }
            break;
        }
    }
    return image;
}

std::vector<uint8_t> EncodeFrame(const FormatInfo& format, const RgbImage& picture) {
    const int32_t w = picture.width, h = picture.height;
    std::vector<uint8_t> frame(size_t(FileFrameBytes(format, w, h)), 0);
    switch (format.kind) {
        case FormatKind::Rgb: {
            const size_t bytes = size_t(format.bitsPerPixel / 8);
            for (int32_t y = 0; y < h; ++y)
                for (int32_t x = 0; x < w; ++x)
                    EncodeRgbPixel(format.code, picture.at(x, y), &frame[(size_t(y) * size_t(w) + size_t(x)) * bytes]);
            break;
        }
        case FormatKind::Packed422: {
            const PairLayout L = PackedLayout(format.code);
            for (int32_t y = 0; y < h; ++y)
                for (int32_t x = 0; x + 1 < w; x += 2) {
                    int32_t a[3], b[3];
                    RgbToYuv(picture.at(x, y), a);
                    RgbToYuv(picture.at(x + 1, y), b);
                    uint8_t* p = &frame[(size_t(y) * size_t(w) + size_t(x)) * 2];
                    p[L.y0] = uint8_t(std::min(255, a[0] + kPackedLumaOffset));
                    p[L.y1] = uint8_t(std::min(255, b[0] + kPackedLumaOffset));
                    p[L.u] = uint8_t((a[1] + b[1] + 1) / 2), p[L.v] = uint8_t((a[2] + b[2] + 1) / 2);
                }
            break;
        }
        case FormatKind::Planar420: {
            const PlaneOffsets o = PlanarOffsets(format.code, w, h);
            for (int32_t y = 0; y < h; ++y)
                for (int32_t x = 0; x < w; ++x) {
                    int32_t yuv[3];
                    RgbToYuv(picture.at(x, y), yuv);
                    frame[size_t(y) * size_t(w) + size_t(x)] = uint8_t(yuv[0]);
                }
            for (int32_t cy = 0; cy < h / 2; ++cy)
                for (int32_t cx = 0; cx < w / 2; ++cx) {
                    int32_t sum[3] = {0, 0, 0};
                    for (int32_t k = 0; k < 4; ++k) {
                        int32_t yuv[3];
                        RgbToYuv(picture.at(2 * cx + (k & 1), 2 * cy + (k >> 1)), yuv);
                        sum[1] += yuv[1], sum[2] += yuv[2];
                    }
                    const size_t c = size_t(cy) * o.chromaWidth + size_t(cx);
                    frame[o.u + c] = uint8_t((sum[1] + 2) / 4);
                    frame[o.v + c] = uint8_t((sum[2] + 2) / 4);
                }
            break;
        }
    }
    return frame;
}

}  // namespace pixmoor_tool

#include "core/frame_codec.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <pixmoor/geometry.h>

using namespace pixmoor_tool;

namespace {

RgbImage Smooth(int32_t w, int32_t h) {
    RgbImage image(w, h);
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x) {
            uint8_t* p = image.at(x, y);
            p[0] = uint8_t(x * 255 / (w - 1)), p[1] = uint8_t(y * 255 / (h - 1)), p[2] = 90;
        }
    return image;
}

int MaxDifference(const RgbImage& a, const RgbImage& b) {
    int worst = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i) worst = std::max(worst, std::abs(a.pixels[i] - b.pixels[i]));
    return worst;
}

}  // namespace

TEST(ToolFrameCodec, RgbFormatsStoreTheirBytes) {
    RgbImage px(1, 1);
    px.pixels = {3, 2, 1};  // red 3, green 2, blue 1
    EXPECT_EQ(EncodeFrame(*FindFormat(FCC_RG24), px), (std::vector<uint8_t>{1, 2, 3}));
    EXPECT_EQ(EncodeFrame(*FindFormat(FCC_RG32), px), (std::vector<uint8_t>{1, 2, 3, 0}));
    px.pixels = {255, 255, 255};
    EXPECT_EQ(EncodeFrame(*FindFormat(FCC_RG55), px), (std::vector<uint8_t>{0xFF, 0x7F}));
    EXPECT_EQ(EncodeFrame(*FindFormat(FCC_RG56), px), (std::vector<uint8_t>{0xFF, 0xFF}));
    px.pixels = {0, 4, 0};
    EXPECT_EQ(EncodeFrame(*FindFormat(FCC_RG56), px), (std::vector<uint8_t>{0x20, 0x00}));
}

TEST(ToolFrameCodec, RgbRoundTripsExactlyAtFullDepth) {
    const RgbImage image = Smooth(8, 4);
    for (uint32_t code : {FCC_RG24, FCC_RG32}) {
        const FormatInfo& f = *FindFormat(code);
        EXPECT_EQ(DecodeFrame(f, EncodeFrame(f, image).data(), 8, 4).pixels, image.pixels);
    }
    for (uint32_t code : {FCC_RG55, FCC_RG56}) {
        const FormatInfo& f = *FindFormat(code);
        EXPECT_LE(MaxDifference(DecodeFrame(f, EncodeFrame(f, image).data(), 8, 4), image), 7);
    }
}

TEST(ToolFrameCodec, HighAligned555Layout) {
    // 0xEF7A: fields 29, 29, 29 in bits 15..11, 10..6, 5..1.
    const uint8_t word[2] = {0x7A, 0xEF};
    const RgbImage px = DecodeFrame(*FindFormat(FCC_RG55), word, 1, 1, 0, Rgb555Layout::HighAligned);
    EXPECT_EQ(px.pixels, (std::vector<uint8_t>{239, 239, 239}));
    const uint8_t normal[2] = {0xBD, 0x77};  // the same colour in the standard layout
    EXPECT_EQ(DecodeFrame(*FindFormat(FCC_RG55), normal, 1, 1).pixels, px.pixels);
}

TEST(ToolFrameCodec, PitchSkipsRowPadding) {
    const uint8_t rows[] = {1, 2, 3, 9, 9, 4, 5, 6, 9, 9};
    const RgbImage image = DecodeFrame(*FindFormat(FCC_RG24), rows, 1, 2, 5);
    EXPECT_EQ(image.pixels, (std::vector<uint8_t>{3, 2, 1, 6, 5, 4}));
}

TEST(ToolFrameCodec, YuvFormatsRoundTripClosely) {
    const RgbImage image = Smooth(16, 8);
    for (uint32_t code : {FCC_I420, FCC_YV12, FCC_YUY2, FCC_UYVY}) {
        const FormatInfo& f = *FindFormat(code);
        EXPECT_LE(MaxDifference(DecodeFrame(f, EncodeFrame(f, image).data(), 16, 8), image), 24) << f.name;
    }
}

TEST(ToolFrameCodec, GreyIsNeutralInEveryYuvLayout) {
    RgbImage grey(4, 2);
    std::fill(grey.pixels.begin(), grey.pixels.end(), uint8_t(77));
    const auto i420 = EncodeFrame(*FindFormat(FCC_I420), grey);
    EXPECT_EQ(i420, (std::vector<uint8_t>{77, 77, 77, 77, 77, 77, 77, 77, 128, 128, 128, 128}));
    // Packed luma stands 16 higher.
    const auto yuy2 = EncodeFrame(*FindFormat(FCC_YUY2), grey);
    EXPECT_EQ(std::vector<uint8_t>(yuy2.begin(), yuy2.begin() + 4), (std::vector<uint8_t>{93, 128, 93, 128}));
    EXPECT_EQ(DecodeFrame(*FindFormat(FCC_UYVY), EncodeFrame(*FindFormat(FCC_UYVY), grey).data(), 4, 2).pixels,
              grey.pixels);
}

TEST(ToolFrameCodec, PlaneAndByteOrders) {
    RgbImage red(2, 2);
    for (int i = 0; i < 4; ++i) red.pixels[size_t(i) * 3] = 255;
    int32_t yuv[3];
    RgbToYuv(red.at(0, 0), yuv);
    // Y 0.114 * 255 = 29.1; U 128 + 0.877 (0 - 29.1) = 102.5; V 128 + 0.492
    // (255 - 29.1) = 239.1; the library's own RG24 to I420, which cuts where
    // this rounds, gives 29, 102, 239 for pure red.
    EXPECT_EQ(yuv[0], 29);
    EXPECT_EQ(yuv[1], 103);
    EXPECT_EQ(yuv[2], 239);
    const auto i420 = EncodeFrame(*FindFormat(FCC_I420), red);
    const auto yv12 = EncodeFrame(*FindFormat(FCC_YV12), red);
    EXPECT_EQ(i420[4], 103);  // U first
    EXPECT_EQ(i420[5], 239);
    EXPECT_EQ(yv12[4], 239);  // V first
    EXPECT_EQ(yv12[5], 103);
    const auto uyvy = EncodeFrame(*FindFormat(FCC_UYVY), red);
    EXPECT_EQ(std::vector<uint8_t>(uyvy.begin(), uyvy.begin() + 4), (std::vector<uint8_t>{103, 45, 239, 45}));
}

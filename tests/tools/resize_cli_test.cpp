// The installed tool's resize subcommand on generated files.
#include <gtest/gtest.h>

#include <pixmoor/geometry.h>

#include "core/frame_codec.h"
#include "core/png_file.h"
#include "core/test_picture.h"
#include "core/text_parse.h"
#include "tool_runner.h"

using namespace pixmoor_tool;
using namespace pixmoor_test;

namespace {

// A picture whose every pixel tells its own position.
RgbImage Positions(int32_t w, int32_t h) {
    RgbImage p(w, h);
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x) p.at(x, y)[0] = uint8_t(x), p.at(x, y)[1] = uint8_t(y), p.at(x, y)[2] = 99;
    // (positions past 255 wrap: the comparisons wrap the same way)
    return p;
}

}  // namespace

TEST(ToolResizeCli, RgbHalvingKeepsEvenPixelsAndRows) {
    // 40x20 runs the generic scaler; 352x288 at 24 bits a fixed routine.
    TempDir dir;
    const struct {
        const char* format;
        FrameSize in;
    } cases[] = {{"RG24", {40, 20}}, {"RG32", {40, 20}}, {"RG24", {352, 288}}};
    for (const auto& c : cases) {
        const FormatInfo& f = *ParseFormat(c.format)->info;
        const FrameSize out{c.in.width / 2, c.in.height / 2};
        WriteBytes(dir / "in", EncodeFrame(f, Positions(c.in.width, c.in.height)));
        const ToolRun run = RunTool(dir, {"resize", "-i", "in", "-o", "out", "-f", c.format, "-s", FrameSizeText(c.in),
                                          "-S", FrameSizeText(out)});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.err.find("resized 1 frame (" + std::string(c.format) + " " + FrameSizeText(c.in) + " -> " +
                               FrameSizeText(out) + " (scale))"),
                  std::string::npos)
            << run.err;
        const auto bytes = ReadBytes(dir / "out");
        ASSERT_EQ(bytes.size(), size_t(out.width * out.height * f.bitsPerPixel / 8));
        const RgbImage picture = DecodeFrame(f, bytes.data(), out.width, out.height);
        for (int32_t y = 0; y < out.height; ++y)
            for (int32_t x = 0; x < out.width; ++x) {
                ASSERT_EQ(picture.at(x, y)[0], uint8_t(2 * x)) << c.format << " " << x << "," << y;
                ASSERT_EQ(picture.at(x, y)[1], uint8_t(2 * y)) << c.format << " " << x << "," << y;
            }
    }
}

TEST(ToolResizeCli, OddRgbWidthsStayTightInFiles) {
    // 5 pixels of RG24 are 15 bytes in the file and 16 in the library's rows.
    TempDir dir;
    WriteBytes(dir / "in", EncodeFrame(*FindFormat(FCC_RG24), Positions(5, 3)));
    const ToolRun run = RunTool(dir, {"resize", "-i", "in", "-o", "out", "-f", "rg24", "-s", "5x3", "-S", "10x6"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto out = ReadBytes(dir / "out");
    ASSERT_EQ(out.size(), 10u * 6 * 3);
    const RgbImage picture = DecodeFrame(*FindFormat(FCC_RG24), out.data(), 10, 6);
    for (int32_t y = 0; y < 6; ++y)
        for (int32_t x = 0; x < 10; ++x) {
            EXPECT_EQ(picture.at(x, y)[0], x / 2) << x << "," << y;  // doubling repeats each pixel once
            EXPECT_EQ(picture.at(x, y)[1], y / 2) << x << "," << y;
        }
}

TEST(ToolResizeCli, PlainRgbWithItsDepth) {
    TempDir dir;
    WriteBytes(dir / "in", EncodeFrame(*FindFormat(FCC_RG32), Positions(8, 8)));
    const ToolRun run = RunTool(dir, {"resize", "-i", "in", "-o", "out.png", "-f", "0rgb", "--bits", "32", "-s", "8x8",
                                      "-S", "4x4"});
    ASSERT_EQ(run.status, 0) << run.err;
    const RgbImage png = LoadPng(dir / "out-000001.png");
    EXPECT_EQ(png.width, 4);
    EXPECT_EQ(png.at(3, 3)[0], 6);
    EXPECT_EQ(png.at(3, 3)[1], 6);
}

TEST(ToolResizeCli, I420CropAndPadKeepThePictureCentred) {
    TempDir dir;
    const RgbImage picture = MakeTestPicture(64, 32);
    const auto frame = EncodeFrame(*FindFormat(FCC_I420), picture);
    const std::string header = "YUV4MPEG2 W64 H32 F25:1 Ip A1:1 C420jpeg\n";
    std::string y4m = header;
    for (int i = 0; i < 2; ++i) y4m += "FRAME\n" + std::string(frame.begin(), frame.end());
    WriteText(dir / "in.y4m", y4m);

    // Crop the width only: rows keep their full geometry.
    ToolRun run = RunTool(dir, {"resize", "-i", "in.y4m", "-o", "crop.y4m", "-S", "32x32"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string crop = ReadText(dir / "crop.y4m");
    EXPECT_EQ(crop.substr(0, crop.find('\n') + 1), "YUV4MPEG2 W32 H32 F25:1 Ip A1:1 C420jpeg\n");
    const size_t cropFrame = 32 * 32 * 3 / 2;
    ASSERT_EQ(crop.size(), crop.find('\n') + 1 + 2 * (6 + cropFrame));
    const uint8_t* y = reinterpret_cast<const uint8_t*>(crop.data()) + crop.find('\n') + 1 + 6;
    for (int row = 0; row < 32; ++row)
        for (int col = 0; col < 32; ++col) ASSERT_EQ(y[row * 32 + col], frame[size_t(row * 64 + 16 + col)]) << row << "," << col;

    // Pad the width: a zero border of 8 pixels on each side of the luma.
    run = RunTool(dir, {"resize", "-i", "in.y4m", "-o", "pad.i420", "-S", "80x32"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto pad = ReadBytes(dir / "pad.i420");
    ASSERT_EQ(pad.size(), 2u * 80 * 32 * 3 / 2);
    for (int row = 0; row < 32; ++row) {
        EXPECT_EQ(pad[size_t(row * 80)], 0);
        EXPECT_EQ(pad[size_t(row * 80 + 8)], frame[size_t(row * 64)]);
        EXPECT_EQ(pad[size_t(row * 80 + 79)], 0);
    }

    // Raw YV12 with its size given.
    WriteBytes(dir / "in.yv12", EncodeFrame(*FindFormat(FCC_YV12), picture));
    run = RunTool(dir, {"resize", "-i", "in.yv12", "-o", "out.yv12", "-f", "YV12", "-s", "64x32", "-S", "64x32"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(ReadBytes(dir / "out.yv12"), ReadBytes(dir / "in.yv12"));  // equal sizes: a plain copy
}

TEST(ToolResizeCli, HeightChangesWriteWholeFrames) {
    // The library counts the chroma borders of a height change in luma
    // bytes; the tool gives it room and writes exactly one output frame.
    TempDir dir;
    WriteBytes(dir / "in", EncodeFrame(*FindFormat(FCC_I420), MakeTestPicture(176, 144)));
    for (const char* out : {"176x288", "176x72", "352x288", "96x64"}) {
        const ToolRun run = RunTool(dir, {"resize", "-q", "-i", "in", "-o", "out", "-f", "I420", "-s", "176x144", "-S", out});
        ASSERT_EQ(run.status, 0) << out << ": " << run.err;
        const FrameSize s = ParseFrameSize(out);
        EXPECT_EQ(ReadBytes(dir / "out").size(), size_t(s.width * s.height * 3 / 2)) << out;
    }
}

// The installed tool's convert subcommand on generated files.
#include <gtest/gtest.h>

#include <memory>

#include <pixmoor/colour.h>

#include "core/frame_codec.h"
#include "core/png_file.h"
#include "core/test_picture.h"
#include "tool_runner.h"

using namespace pixmoor_tool;
using namespace pixmoor_test;

namespace {

// What the library itself makes of one frame, with top-down files: the
// reference that the tool's plumbing must reproduce byte for byte.
std::vector<uint8_t> LibraryConvert(uint32_t src, uint32_t dst, int32_t w, int32_t h, const std::vector<uint8_t>& in,
                                    int32_t srcOrient = 1, int32_t dstOrient = 1) {
    std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(src, dst));
    EXPECT_TRUE(x && x->Init(AbsSIZE(w, h), CColorXForm::EOrientation(srcOrient), CColorXForm::EOrientation(dstOrient)));
    const FormatInfo& out = *FindFormat(dst);
    std::vector<uint8_t> frame(size_t(FileFrameBytes(out, w, h)), 0);
    x->XForm(in.data(), frame.data(), out.kind == FormatKind::Rgb ? uint32_t(RGBLineSize(w, out.bitsPerPixel)) : 0);
    return frame;
}

std::vector<uint8_t> Frames(const FormatInfo& f, int32_t w, int32_t h, int count) {
    std::vector<uint8_t> all;
    for (int i = 0; i < count; ++i) {
        RgbImage p = MakeTestPicture(w, h);
        for (auto& b : p.pixels) b = uint8_t(b ^ (i * 37));  // each frame its own
        const std::vector<uint8_t> one = EncodeFrame(f, p);
        all.insert(all.end(), one.begin(), one.end());
    }
    return all;
}

std::vector<uint8_t> Slice(const std::vector<uint8_t>& v, size_t at, size_t n) {
    return std::vector<uint8_t>(v.begin() + long(at), v.begin() + long(at + n));
}

}  // namespace

TEST(ToolConvertCli, RawFramesMatchTheLibrary) {
    TempDir dir;
    const int32_t w = 32, h = 16;
    const auto in = Frames(*FindFormat(FCC_YUY2), w, h, 3);
    WriteBytes(dir / "in.yuy2", in);
    const ToolRun run = RunTool(dir, {"convert", "-i", "in.yuy2", "-o", "out.rgb", "--from", "YUY2", "--to", "RG24",
                                      "--size", "32x16"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto out = ReadBytes(dir / "out.rgb");
    const size_t inFrame = size_t(w * h * 2), outFrame = size_t(w * h * 3);
    ASSERT_EQ(out.size(), 3 * outFrame);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(Slice(out, i * outFrame, outFrame),
                  LibraryConvert(FCC_YUY2, FCC_RG24, w, h, Slice(in, i * inFrame, inFrame)))
            << "frame " << i;
    // The summary, and no progress line: standard error is no terminal.
    EXPECT_NE(run.err.find("pixmoor: converted 3 frames (YUY2 -> RG24 32x16, tier "), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("frames/s"), std::string::npos);
    EXPECT_EQ(run.err.find('\r'), std::string::npos);
    EXPECT_EQ(dir.List(), (std::vector<std::string>{"in.yuy2", "out.rgb"}));
}

TEST(ToolConvertCli, EverySpellingOfEveryCodeIsAccepted) {
    TempDir dir;
    const struct {
        const char* spellings[6];
        uint32_t code;
        const char* to;
    } families[] = {
        {{"I420", "i420"}, FCC_I420, "RG32"},
        {{"YV12", "yv12"}, FCC_YV12, "rg32"},
        {{"YUY2", "YUNV", "V422", "yuy2", "yunv", "v422"}, FCC_YUY2, "RG56"},
        {{"UYVY", "Y422", "UYNV", "uyvy", "y422", "uynv"}, FCC_UYVY, "rg56"},
        {{"RG24", "rg24"}, FCC_RG24, "RG55"},
        {{"RG32", "rg32"}, FCC_RG32, "RG32"},
        {{"RG55", "rg55"}, FCC_RG55, "RG55"},
        {{"RG56", "rg56"}, FCC_RG56, "RG56"},
    };
    for (const auto& f : families) {
        WriteBytes(dir / "in", Frames(*FindFormat(f.code), 8, 4, 1));
        for (const char* s : f.spellings) {
            if (!s) break;
            const ToolRun run =
                RunTool(dir, {"convert", "-q", "-i", "in", "-o", "out", "-f", s, "-t", f.to, "-s", "8x4"});
            EXPECT_EQ(run.status, 0) << s << " -> " << f.to << ": " << run.err;
            EXPECT_EQ(run.err, "");
        }
    }
}

TEST(ToolConvertCli, DestinationAliasesToo) {
    TempDir dir;
    WriteBytes(dir / "in", Frames(*FindFormat(FCC_UYVY), 8, 4, 1));
    for (const char* to : {"I420", "i420", "RG24", "rg24", "RG32", "rg32", "RG55", "rg55", "RG56", "rg56"}) {
        const ToolRun run = RunTool(dir, {"convert", "-q", "-i", "in", "-o", "out", "-f", "UYNV", "-t", to, "-s", "8x4"});
        EXPECT_EQ(run.status, 0) << to << ": " << run.err;
    }
}

TEST(ToolConvertCli, FilesAreTopDownUnlessNativeIsAsked) {
    TempDir dir;
    // White top half, black bottom half.
    RgbImage picture(16, 8);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 16; ++x) std::fill_n(picture.at(x, y), 3, uint8_t(255));
    WriteBytes(dir / "in.rgb", EncodeFrame(*FindFormat(FCC_RG24), picture));
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in.rgb", "-o", "top.raw", "-f", "RG24", "-t", "RG32", "-s", "16x8"}).status, 0);
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in.rgb", "-o", "native.raw", "-f", "RG24", "-t", "RG32", "-s", "16x8",
                            "--native"}).status, 0);
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in.rgb", "-o", "flip.raw", "-f", "RG24", "-t", "RG32", "-s", "16x8",
                            "--dest-orient", "bottom-up"}).status, 0);
    const auto top = ReadBytes(dir / "top.raw"), native = ReadBytes(dir / "native.raw"), flip = ReadBytes(dir / "flip.raw");
    ASSERT_EQ(top.size(), 16u * 8 * 4);
    EXPECT_EQ(top[0], 255);                  // first row is the top: white
    EXPECT_EQ(top[top.size() - 4], 0);       // last row black
    // Native: the library's defaults for RGB are equal, so no flip.
    EXPECT_EQ(native, top);
    // Top-down source into a bottom-up destination: turned over.
    EXPECT_EQ(flip[0], 0);
    EXPECT_EQ(flip[flip.size() - 4], 255);
}

TEST(ToolConvertCli, NativeOrientationOnPlanarToRgbMatchesTheLibraryDefaults) {
    TempDir dir;
    const auto in = Frames(*FindFormat(FCC_I420), 16, 8, 1);
    WriteBytes(dir / "in", in);
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "16x8", "--native"}).status, 0);
    EXPECT_EQ(ReadBytes(dir / "out"), LibraryConvert(FCC_I420, FCC_RG24, 16, 8, in, 0, 0));
}

TEST(ToolConvertCli, DestinationPitchWidensRows) {
    TempDir dir;
    const auto in = Frames(*FindFormat(FCC_YUY2), 8, 4, 2);
    WriteBytes(dir / "in", in);
    const ToolRun run = RunTool(dir, {"convert", "-i", "in", "-o", "out", "-f", "YUY2", "-t", "RG24", "-s", "8x4",
                                      "--dest-pitch", "30"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto out = ReadBytes(dir / "out");
    ASSERT_EQ(out.size(), 2u * 30 * 4);
    const auto tight = LibraryConvert(FCC_YUY2, FCC_RG24, 8, 4, Slice(in, 0, 64));
    for (size_t row = 0; row < 4; ++row) {
        EXPECT_EQ(Slice(out, row * 30, 24), Slice(tight, row * 24, 24)) << row;
        EXPECT_EQ(Slice(out, row * 30 + 24, 6), std::vector<uint8_t>(6, 0)) << row;
    }
}

TEST(ToolConvertCli, Y4mInRawOutAndRawInY4mOut) {
    TempDir dir;
    const auto frames = Frames(*FindFormat(FCC_I420), 16, 8, 2);
    const std::string header = "YUV4MPEG2 W16 H8 F30000:1001 Ip A1:1 C420jpeg\n";
    std::vector<uint8_t> y4m(header.begin(), header.end());
    for (int i = 0; i < 2; ++i) {
        const std::string marker = "FRAME\n";
        y4m.insert(y4m.end(), marker.begin(), marker.end());
        const auto f = Slice(frames, size_t(i) * 192, 192);
        y4m.insert(y4m.end(), f.begin(), f.end());
    }
    WriteBytes(dir / "in.y4m", y4m);
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in.y4m", "-o", "out.rgb", "-t", "RG24"}).status, 0);
    EXPECT_EQ(ReadBytes(dir / "out.rgb").size(), 2u * 16 * 8 * 3);

    // Back to I420 as Y4M; the header keeps the input's rate when it had one.
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "out.rgb", "-o", "back.y4m", "-f", "RG24", "-t", "I420", "-s", "16x8",
                            "--rate", "50:1"}).status, 0);
    const std::string back = ReadText(dir / "back.y4m");
    EXPECT_EQ(back.substr(0, back.find('\n') + 1), "YUV4MPEG2 W16 H8 F50:1 Ip A1:1 C420jpeg\n");
    EXPECT_EQ(back.size(), std::string("YUV4MPEG2 W16 H8 F50:1 Ip A1:1 C420jpeg\n").size() + 2 * (6 + 192));

    // I420 to I420 has no routine in the library: frames pass unchanged.
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in.y4m", "-o", "same.y4m", "-t", "I420"}).status, 0);
    EXPECT_EQ(ReadBytes(dir / "same.y4m"), y4m);
}

TEST(ToolConvertCli, StandardInputAndOutput) {
    TempDir dir;
    const auto in = Frames(*FindFormat(FCC_UYVY), 8, 4, 2);
    WriteBytes(dir / "in", in);
    const ToolRun run = RunTool(dir, {"convert", "-i", "-", "-o", "-", "-f", "UYVY", "-t", "RG56", "-s", "8x4"},
                                dir / "in", dir / "piped");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(ReadBytes(dir / "piped"),
              Concat(LibraryConvert(FCC_UYVY, FCC_RG56, 8, 4, Slice(in, 0, 64)),
                     LibraryConvert(FCC_UYVY, FCC_RG56, 8, 4, Slice(in, 64, 64))));

    // A Y4M stream on standard input is recognised by its first bytes.
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in", "-o", "s.y4m", "-f", "UYVY", "-t", "I420", "-s", "8x4"}).status, 0);
    const ToolRun y4m = RunTool(dir, {"convert", "-i", "-", "-o", "-", "--y4m", "-t", "I420"}, dir / "s.y4m",
                                dir / "s2.y4m");
    ASSERT_EQ(y4m.status, 0) << y4m.err;
    EXPECT_EQ(ReadBytes(dir / "s2.y4m"), ReadBytes(dir / "s.y4m"));
}

TEST(ToolConvertCli, PngFramesOfRgbResults) {
    TempDir dir;
    const auto in = Frames(*FindFormat(FCC_YUY2), 16, 8, 2);
    WriteBytes(dir / "in", in);
    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in", "-o", "shot.png", "-f", "YUY2", "-t", "RG32", "-s", "16x8"}).status, 0);
    EXPECT_EQ(dir.List(), (std::vector<std::string>{"in", "shot-000001.png", "shot-000002.png"}));
    const RgbImage png = LoadPng(dir / "shot-000002.png");
    const auto expected = LibraryConvert(FCC_YUY2, FCC_RG32, 16, 8, Slice(in, 256, 256));
    EXPECT_EQ(png.pixels, DecodeFrame(*FindFormat(FCC_RG32), expected.data(), 16, 8).pixels);

    ASSERT_EQ(RunTool(dir, {"convert", "-i", "in", "-o", "f%03d.png", "-f", "YUY2", "-t", "RG55", "-s", "16x8"}).status, 0);
    EXPECT_EQ(LoadPng(dir / "f002.png").width, 16);
    // The packed pairs' 5-5-5 words keep their fields one bit higher; the
    // picture shows them as the colours they are.
    const RgbImage high = LoadPng(dir / "f001.png");
    const auto words = LibraryConvert(FCC_YUY2, FCC_RG55, 16, 8, Slice(in, 0, 256));
    EXPECT_EQ(high.pixels,
              DecodeFrame(*FindFormat(FCC_RG55), words.data(), 16, 8, 0, Rgb555Layout::HighAligned).pixels);
}

TEST(ToolConvertCli, EveryTierCanBeAskedFor) {
    TempDir dir;
    const auto in = Frames(*FindFormat(FCC_I420), 32, 16, 1);
    WriteBytes(dir / "in", in);
    std::vector<std::vector<uint8_t>> outs;
    for (const char* tier : {"px", "m6", "a6", "w7"}) {
        const ToolRun run = RunTool(dir, {"convert", "-i", "in", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "32x16",
                                          "--tier", tier});
        ASSERT_EQ(run.status, 0) << tier << ": " << run.err;
        EXPECT_NE(run.err.find(std::string("tier ") + tier + ")"), std::string::npos) << run.err;
        outs.push_back(ReadBytes(dir / "out"));
    }
    // px and m6 share their arithmetic; the vector tiers differ by one at most.
    EXPECT_EQ(outs[0], outs[1]);
    for (size_t t = 2; t < 4; ++t)
        for (size_t i = 0; i < outs[0].size(); ++i) ASSERT_LE(std::abs(outs[0][i] - outs[t][i]), 1) << t << " " << i;
    EXPECT_EQ(RunTool(dir, {"convert", "-i", "in", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "32x16", "--tier", "x9"})
                  .status,
              2);
}

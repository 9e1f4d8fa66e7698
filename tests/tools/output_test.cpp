#include <gtest/gtest.h>

#include <unistd.h>

#include <pixmoor/geometry.h>

#include "core/errors.h"
#include "core/frame_codec.h"
#include "core/frame_sink.h"
#include "core/output_file.h"
#include "core/png_file.h"
#include "temp_dir.h"

using namespace pixmoor_tool;
using pixmoor_test::TempDir;

TEST(ToolOutputFile, WritesUnderATemporaryNameUntilCommitted) {
    TempDir dir;
    OutputFile out(dir / "result.raw");
    EXPECT_EQ(out.temporaryPath(), dir / (".result.raw.partial-" + std::to_string(::getpid())));
    out.Write("abc", 3);
    EXPECT_EQ(dir.List(), std::vector<std::string>{".result.raw.partial-" + std::to_string(::getpid())});
    out.Commit();
    EXPECT_EQ(dir.List(), std::vector<std::string>{"result.raw"});
    EXPECT_EQ(pixmoor_test::ReadBytes(dir / "result.raw"), (std::vector<uint8_t>{'a', 'b', 'c'}));
}

TEST(ToolOutputFile, AbandonedOutputLeavesNothingAndKeepsAnOldFile) {
    TempDir dir;
    pixmoor_test::WriteText(dir / "result.raw", "old");
    {
        OutputFile out(dir / "result.raw");
        out.Write("new", 3);
    }
    EXPECT_EQ(dir.List(), std::vector<std::string>{"result.raw"});
    EXPECT_EQ(pixmoor_test::ReadBytes(dir / "result.raw"), (std::vector<uint8_t>{'o', 'l', 'd'}));
}

TEST(ToolOutputFile, UnwritablePlacesFailWithOneLine) {
    TempDir dir;
    for (const std::string& path : {dir / "no/such/folder/out.raw", dir.path().string(), dir / "sub/"}) {
        try {
            OutputFile out(path);
            ADD_FAILURE() << path;
        } catch (const ToolError& e) {
            EXPECT_EQ(e.exitStatus(), kExitFailure);
            EXPECT_NE(std::string(e.what()).find("cannot write output"), std::string::npos) << e.what();
            EXPECT_EQ(std::string(e.what()).find('\n'), std::string::npos);
        }
    }
}

TEST(ToolPng, WritesAndReadsBack) {
    TempDir dir;
    RgbImage image(3, 2);
    for (size_t i = 0; i < image.pixels.size(); ++i) image.pixels[i] = uint8_t(i * 13);
    SavePng(dir / "p.png", image);
    EXPECT_EQ(dir.List(), std::vector<std::string>{"p.png"});
    const RgbImage back = LoadPng(dir / "p.png");
    EXPECT_EQ(back.width, 3);
    EXPECT_EQ(back.height, 2);
    EXPECT_EQ(back.pixels, image.pixels);
}

TEST(ToolPng, UnwritableAndUnreadable) {
    TempDir dir;
    EXPECT_THROW(SavePng(dir / "none/p.png", RgbImage(1, 1)), ToolError);
    pixmoor_test::WriteText(dir / "bad.png", "not a png");
    EXPECT_THROW(LoadPng(dir / "bad.png"), ToolError);
}

TEST(ToolPngSequence, PatternsAndNames) {
    EXPECT_EQ(PngPattern("out.png"), "out-%06d.png");
    EXPECT_EQ(PngPattern("dir/out"), "dir/out-%06d.png");
    EXPECT_EQ(PngPattern("f%04d.png"), "f%04d.png");
    EXPECT_EQ(PngPattern("f%d.png"), "f%d.png");
    EXPECT_EQ(PngPattern("100%%_%d.png"), "100%%_%d.png");
    EXPECT_EQ(PngFrameName("out-%06d.png", 7), "out-000007.png");
    EXPECT_EQ(PngFrameName("f%d.png", 12), "f12.png");
    EXPECT_EQ(PngFrameName("f%02d.png", 123), "f123.png");
    EXPECT_EQ(PngFrameName("100%%_%d.png", 1), "100%_1.png");
    for (const char* bad : {"f%s.png", "f%d%d.png", "f%5d.png", "f%00d.png"})
        EXPECT_THROW(PngPattern(bad), ToolError) << bad;
}

TEST(ToolPngSequence, OneFilePerFrame) {
    TempDir dir;
    RgbImage picture(4, 2);
    for (size_t i = 0; i < picture.pixels.size(); ++i) picture.pixels[i] = uint8_t(i * 10);
    const FormatInfo& rg24 = *FindFormat(FCC_RG24);
    const auto frame = EncodeFrame(rg24, picture);
    PngSequenceSink sink(PngPattern(dir / "f.png"), rg24, 4, 2, 0, Rgb555Layout::Standard);
    sink.Write(frame.data());
    sink.Write(frame.data());
    EXPECT_EQ(dir.List(), (std::vector<std::string>{"f-000001.png", "f-000002.png"}));
    EXPECT_EQ(LoadPng(dir / "f-000002.png").pixels, picture.pixels);
}

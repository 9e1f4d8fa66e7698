// Every mistake: one line on standard error, a non-zero status, no crash,
// and no output file that looks complete.
#include <gtest/gtest.h>

#include "core/frame_codec.h"
#include "core/test_picture.h"
#include "tool_runner.h"

#include <pixmoor/geometry.h>

using namespace pixmoor_tool;
using namespace pixmoor_test;

namespace {

// Runs a failing command and checks the shape of its failure: the status,
// one line on standard error holding each of `parts`, no temporary file
// left.  Returns the line.
std::string ExpectFailure(const TempDir& dir, const std::vector<std::string>& args, int status,
                          const std::vector<std::string>& parts = {}) {
    const ToolRun run = RunTool(dir, args);
    EXPECT_EQ(run.status, status) << run.err;
    const std::vector<std::string> lines = run.ErrLines();
    EXPECT_EQ(lines.size(), 1u) << run.err;
    if (lines.empty()) return "";
    EXPECT_EQ(lines.back().rfind("pixmoor: error: ", 0), 0u) << lines.back();
    for (const std::string& part : parts) EXPECT_NE(lines.back().find(part), std::string::npos) << lines.back();
    // Nothing partial left behind: no temporary files in the folder.
    for (const std::string& name : dir.List()) EXPECT_EQ(name.find(".partial-"), std::string::npos) << name;
    return lines.back();
}

std::vector<uint8_t> I420Frames(int32_t w, int32_t h, int count) {
    std::vector<uint8_t> all;
    for (int i = 0; i < count; ++i) all = Concat(all, EncodeFrame(*FindFormat(FCC_I420), MakeTestPicture(w, h)));
    return all;
}

class ToolErrorsCli : public ::testing::Test {
protected:
    void SetUp() override { WriteBytes(dir / "in.i420", I420Frames(16, 8, 2)); }
    TempDir dir;
};

}  // namespace

TEST_F(ToolErrorsCli, UnknownFormatCode) {
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "out", "-f", "NV12", "-t", "RG24", "-s", "16x8"}, 2,
                  {"unknown format code 'NV12'", "YUY2 YUNV V422"});
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "out", "-f", "I420", "-t", "Rg24", "-s", "16x8"}, 2, {"unknown format code 'Rg24'"});
    EXPECT_FALSE(std::filesystem::exists(dir / "out"));
}

TEST_F(ToolErrorsCli, UnsupportedPairs) {
    for (auto [from, to] : {std::pair{"I420", "YV12"}, {"YUY2", "UYVY"}, {"RG32", "I420"}, {"RG55", "RG24"},
                            {"RG56", "RG32"}, {"YV12", "YUY2"}}) {
        ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "out", "-f", from, "-t", to, "-s", "16x8"}, 2,
                      {std::string("unsupported format pair ") + from + " -> " + to});
    }
    EXPECT_FALSE(std::filesystem::exists(dir / "out"));
}

TEST_F(ToolErrorsCli, SizeNotAMultipleOfFour) {
    WriteBytes(dir / "odd", std::vector<uint8_t>(322 * 240 * 2, 16));
    ExpectFailure(dir, {"convert", "-i", "odd", "-o", "out", "-f", "YUY2", "-t", "RG24", "-s", "322x240"}, 2,
                  {"322x240", "multiples of 4"});
    ExpectFailure(dir, {"convert", "-i", "odd", "-o", "out", "-f", "YUY2", "-t", "RG24", "-s", "320x242"}, 2, {"multiples of 4"});
    EXPECT_FALSE(std::filesystem::exists(dir / "out"));
}

TEST_F(ToolErrorsCli, BadSizeText) {
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "16by8"}, 2, {"bad size '16by8'"});
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "out", "-f", "I420", "-t", "RG24"}, 2, {"--size is required"});
}

TEST_F(ToolErrorsCli, MissingOrUnreadableInput) {
    ExpectFailure(dir, {"convert", "-i", "none.yuv", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "16x8"}, 1, {"cannot open input 'none.yuv'"});
    std::filesystem::create_directory(dir / "folder");
    ExpectFailure(dir, {"convert", "-i", "folder", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "16x8"}, 1, {"cannot read input 'folder'"});
    ExpectFailure(dir, {"resize", "-i", "none.y4m", "-o", "out.y4m", "-S", "8x8"}, 1, {"cannot open input 'none.y4m'"});
    EXPECT_FALSE(std::filesystem::exists(dir / "out"));
}

TEST_F(ToolErrorsCli, TruncatedLastFrameKeepsTheCompleteFrames) {
    auto bytes = I420Frames(16, 8, 2);
    bytes.resize(bytes.size() + 100, 7);  // a third frame of 100 of its 192 bytes
    WriteBytes(dir / "cut.i420", bytes);
    const std::string line =
        ExpectFailure(dir, {"convert", "-q", "-i", "cut.i420", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "16x8"}, 3);
    EXPECT_EQ(line,
              "pixmoor: error: truncated last frame in 'cut.i420': frame 3 has 100 of 192 bytes; the 2 complete frames "
              "before it were kept");
    EXPECT_EQ(ReadBytes(dir / "out").size(), 2u * 16 * 8 * 3);
}

TEST_F(ToolErrorsCli, TruncatedY4mFrame) {
    std::string y4m = "YUV4MPEG2 W16 H8\nFRAME\n" + std::string(192, 'a') + "FRAME\n" + std::string(50, 'b');
    WriteText(dir / "cut.y4m", y4m);
    ExpectFailure(dir, {"convert", "-q", "-i", "cut.y4m", "-o", "out.y4m", "-t", "I420"}, 3,
                  {"frame 2 has 50 of 192 bytes; the 1 complete frame before it were kept"});
    EXPECT_EQ(ReadText(dir / "out.y4m").size(), std::string("YUV4MPEG2 W16 H8 F25:1 Ip A1:1 C420jpeg\n").size() + 6 + 192);
}

TEST_F(ToolErrorsCli, MalformedY4mHeader) {
    WriteText(dir / "bad.y4m", "YUV4MPEG2 W16 Hx\nFRAME\n");
    ExpectFailure(dir, {"convert", "-i", "bad.y4m", "-o", "out", "-t", "RG24"}, 1, {"malformed Y4M header in 'bad.y4m'"});
    WriteText(dir / "notyuv.y4m", "RIFF....\n");
    ExpectFailure(dir, {"convert", "-i", "notyuv.y4m", "-o", "out", "-t", "RG24"}, 1, {"malformed Y4M header"});
    WriteText(dir / "c444.y4m", "YUV4MPEG2 W16 H8 C444\nFRAME\n");
    ExpectFailure(dir, {"convert", "-i", "c444.y4m", "-o", "out", "-t", "RG24"}, 1, {"unsupported Y4M chroma 'C444'"});
    WriteText(dir / "marker.y4m", "YUV4MPEG2 W16 H8\nFRAMEX\n");
    ExpectFailure(dir, {"convert", "-i", "marker.y4m", "-o", "out.raw", "-t", "RG24"}, 1, {"bad Y4M frame marker before frame 1"});
    EXPECT_FALSE(std::filesystem::exists(dir / "out"));
    EXPECT_FALSE(std::filesystem::exists(dir / "out.raw"));
}

TEST_F(ToolErrorsCli, OutputThatCantBeWritten) {
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "no/such/dir/out", "-f", "I420", "-t", "RG24",
                                        "-s", "16x8"}, 1, {"cannot write output 'no/such/dir/out'"});
    std::filesystem::create_directory(dir / "outdir");
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "outdir", "-f", "I420", "-t", "RG24", "-s", "16x8"}, 1, {"cannot write output 'outdir'"});
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "no/dir/f.png", "-f", "I420", "-t", "RG24",
                                        "-s", "16x8"}, 1, {"cannot write output 'no/dir/f-000001.png'"});
}

TEST_F(ToolErrorsCli, AFailedRunKeepsAnOlderOutput) {
    WriteText(dir / "out", "older");
    ExpectFailure(dir, {"convert", "-i", "in.y4m", "-o", "out", "-t", "RG24"}, 1);
    EXPECT_EQ(ReadText(dir / "out"), "older");
}

TEST_F(ToolErrorsCli, OutputKindMustFitTheFormat) {
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "x.png", "-f", "RG24", "-t", "I420", "-s", "16x8"}, 2, {"PNG output needs RGB frames"});
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "x.y4m", "-f", "I420", "-t", "RG24", "-s", "16x8"}, 2, {"Y4M output holds I420 frames"});
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "x", "-f", "I420", "-t", "RG24", "-s", "16x8",
                                        "--dest-pitch", "40"}, 2, {"less than a RG24 row"});
}

TEST_F(ToolErrorsCli, CommandLineMistakes) {
    ExpectFailure(dir, {}, 2, {"subcommand"});
    ExpectFailure(dir, {"transcode"}, 2);
    ExpectFailure(dir, {"convert", "-i", "in.i420"}, 2);
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "x", "-t", "RG24", "--dest-pitch", "many"}, 2);
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "x", "-f", "I420", "-t", "RG24", "-s", "16x8",
                                        "--src-orient", "sideways"}, 2, {"bad orientation 'sideways'"});
    ExpectFailure(dir, {"convert", "-i", "in.i420", "-o", "x", "-t", "RG24", "--native", "--src-orient", "top-down"}, 2);
}

TEST_F(ToolErrorsCli, ResizeMistakes) {
    ExpectFailure(dir, {"resize", "-i", "in.i420", "-o", "x", "-f", "YUY2", "-s", "16x8", "-S", "8x8"}, 2, {"unsupported format YUY2 for resize"});
    ExpectFailure(dir, {"resize", "-i", "in.i420", "-o", "x", "-f", "I420", "-s", "16x8", "-S", "9x8"}, 2, {"even sizes"});
    ExpectFailure(dir, {"resize", "-i", "in.i420", "-o", "x", "-f", "RG32", "--bits", "24", "-s", "16x8",
                                        "-S", "8x8"}, 2, {"does not match"});
    auto cut = I420Frames(16, 8, 1);
    cut.resize(cut.size() + 10);
    WriteBytes(dir / "cut", cut);
    ExpectFailure(dir, {"resize", "-q", "-i", "cut", "-o", "x", "-f", "I420", "-s", "16x8", "-S", "8x8"}, 3, {"frame 2 has 10 of 192 bytes"});
    EXPECT_EQ(ReadBytes(dir / "x").size(), 8u * 8 * 3 / 2);
}

TEST_F(ToolErrorsCli, EmptyInputIsZeroFrames) {
    WriteText(dir / "empty", "");
    const ToolRun run = RunTool(dir, {"convert", "-i", "empty", "-o", "out", "-f", "I420", "-t", "RG24", "-s", "16x8"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.err.find("converted 0 frames"), std::string::npos) << run.err;
    EXPECT_EQ(ReadBytes(dir / "out").size(), 0u);
}

TEST_F(ToolErrorsCli, ReaderOfStandardOutputGoingAway) {
    auto frames = I420Frames(352, 288, 1);
    for (int i = 0; i < 4; ++i) frames = Concat(frames, frames);  // 16 frames, 4.8 MB of RGB out
    WriteBytes(dir / "big", frames);
    const std::string command = "cd " + ShellQuote(dir.path().string()) + " && bash -c " +
                                ShellQuote(ToolCommand() +
                                           " convert -q -i big -o - -f I420 -t RG24 -s 352x288 2> err | head -c 1 "
                                           "> /dev/null; echo ${PIPESTATUS[0]} > status");
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadText(dir / "status"), "1\n");
    EXPECT_EQ(ReadText(dir / "err"), "pixmoor: error: cannot write to standard output: Broken pipe\n");
}

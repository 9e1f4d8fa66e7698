// The progress line of the installed tool: drawn on standard error only
// when it is a terminal and the work has gone on for a while.
#include <gtest/gtest.h>

#include "core/frame_codec.h"
#include "core/test_picture.h"
#include "tool_runner.h"

#include <pixmoor/geometry.h>

using namespace pixmoor_tool;
using namespace pixmoor_test;

namespace {

// A shell command that sends two frames, waits, then two more: slow input
// makes long work whatever the machine's speed.
std::string SlowConvert(const TempDir& dir) {
    return "(cat " + ShellQuote(dir / "two") + "; sleep 1.3; cat " + ShellQuote(dir / "two") + ") | " +
           ToolCommand() + " convert -i - -o " + ShellQuote(dir / "out") +
           " -f I420 -t RG24 -s 32x16";
}

}  // namespace

TEST(ToolProgressCli, DrawnOnATerminalWhenTheWorkIsLong) {
    if (std::system("command -v script > /dev/null 2>&1") != 0) GTEST_SKIP() << "no script(1) to make a terminal";
    TempDir dir;
    const auto frame = EncodeFrame(*FindFormat(FCC_I420), MakeTestPicture(32, 16));
    WriteBytes(dir / "two", Concat(frame, frame));
    // script(1) runs the command on a new terminal and copies what it shows.
    const std::string command = "script -qec " + ShellQuote(SlowConvert(dir)) + " /dev/null > " +
                                ShellQuote(dir / "screen") + " 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << ReadText(dir / "screen");
    const std::string screen = ReadText(dir / "screen");
    EXPECT_NE(screen.find("\rpixmoor: frame 3, "), std::string::npos) << screen;
    EXPECT_NE(screen.find("pixmoor: converted 4 frames"), std::string::npos) << screen;
    EXPECT_EQ(ReadBytes(dir / "out").size(), 4u * 32 * 16 * 3);
}

TEST(ToolProgressCli, NeverDrawnWhenStandardErrorIsAFile) {
    TempDir dir;
    const auto frame = EncodeFrame(*FindFormat(FCC_I420), MakeTestPicture(32, 16));
    WriteBytes(dir / "two", Concat(frame, frame));
    const std::string command = "sh -c " + ShellQuote(SlowConvert(dir)) + " 2> " + ShellQuote(dir / "err");
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string err = ReadText(dir / "err");
    EXPECT_EQ(err.find('\r'), std::string::npos) << err;
    EXPECT_NE(err.find("pixmoor: converted 4 frames"), std::string::npos) << err;
}

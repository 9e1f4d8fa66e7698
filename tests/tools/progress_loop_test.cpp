#include <gtest/gtest.h>

#include <cstdio>

#include "core/errors.h"
#include "core/frame_loop.h"
#include "core/progress.h"
#include "temp_dir.h"

using namespace pixmoor_tool;
using pixmoor_test::TempDir;

namespace {

// Captures what the meter writes.
struct Captured {
    std::FILE* file = std::tmpfile();
    ~Captured() { std::fclose(file); }
    std::string Text() {
        std::fflush(file);
        std::rewind(file);
        std::string text;
        for (int c; (c = std::fgetc(file)) != EOF;) text += char(c);
        return text;
    }
};

}  // namespace

TEST(ToolProgress, NothingWhenNotShown) {
    Captured out;
    double now = 0;
    ProgressMeter meter(out.file, false, [&] { return now; });
    for (int i = 0; i < 100; ++i) now += 0.1, meter.CountFrame();
    meter.Finish();
    EXPECT_EQ(meter.frames(), 100);
    EXPECT_EQ(out.Text(), "");
}

TEST(ToolProgress, ShortWorkDrawsNoLine) {
    Captured out;
    double now = 0;
    ProgressMeter meter(out.file, true, [&] { return now; });
    for (int i = 0; i < 50; ++i) now += 0.01, meter.CountFrame();
    meter.Finish();
    EXPECT_FALSE(meter.drewLine());
    EXPECT_EQ(out.Text(), "");
}

TEST(ToolProgress, LongWorkRedrawsAtMostEveryInterval) {
    Captured out;
    double now = 0;
    ProgressMeter meter(out.file, true, [&] { return now; });
    for (int i = 0; i < 32; ++i) now += 0.0625, meter.CountFrame();  // 2 s of work, exact steps
    EXPECT_TRUE(meter.drewLine());
    meter.Finish();
    const std::string text = out.Text();
    EXPECT_EQ(text.find("frame "), text.find("\rpixmoor: frame 16, 16.0 frames/s") + 10) << text;
    // Drawn at 1.0, 1.25, 1.5, 1.75 and 2.0 s: never more often than every
    // quarter second.
    size_t draws = 0;
    for (size_t at = text.find("frame "); at != std::string::npos; at = text.find("frame ", at + 1)) ++draws;
    EXPECT_EQ(draws, 5u);
    EXPECT_NE(text.find("frame 32, 16.0 frames/s"), std::string::npos) << text;
    // Finish erases the line with blanks and returns to its start.
    EXPECT_EQ(text.back(), '\r');
    EXPECT_FALSE(meter.drewLine());
}

TEST(ToolProgress, SummaryLine) {
    EXPECT_EQ(SummaryLine("converted", 12, "I420 352x288 -> RG24", 0.5),
              "converted 12 frames (I420 352x288 -> RG24) in 0.500 s, 24.0 frames/s");
    EXPECT_EQ(SummaryLine("resized", 1, "x", 0.0), "resized 1 frame (x) in 0.000 s, too fast to time");
}

namespace {

// Adds 1 to every byte; remembers the capacity it was offered.
class PlusOne : public FrameTransform {
public:
    explicit PlusOne(size_t frameBytes) : out_(frameBytes) {}
    size_t inputCapacity() const override { return out_.size() + 100; }
    const uint8_t* Apply(uint8_t* input) override {
        for (size_t i = 0; i < out_.size(); ++i) out_[i] = uint8_t(input[i] + 1);
        return out_.data();
    }

private:
    std::vector<uint8_t> out_;
};

}  // namespace

TEST(ToolFrameLoop, ConvertsEveryCompleteFrameAndReportsTheCutOne) {
    TempDir dir;
    pixmoor_test::WriteBytes(dir / "in", std::vector<uint8_t>(8 + 8 + 3, 4));
    InputStream input(dir / "in");
    RawFrameSource source(input, 8);
    PlusOne plus(8);
    LoopResult result;
    {
        OutputFile out(dir / "out");
        RawSink sink(out, 8);
        ProgressMeter meter(stderr, false);
        result = RunFrameLoop(source, plus, sink, meter);
        sink.Commit();
    }
    EXPECT_EQ(result.frames, 2);
    EXPECT_TRUE(result.truncated);
    EXPECT_EQ(result.truncatedBytes, 3);
    EXPECT_EQ(pixmoor_test::ReadBytes(dir / "out"), std::vector<uint8_t>(16, 5));
    try {
        ReportTruncation(result, 8, "'in'");
        ADD_FAILURE();
    } catch (const ToolError& e) {
        EXPECT_EQ(e.exitStatus(), kExitTruncated);
        EXPECT_STREQ(e.what(),
                     "truncated last frame in 'in': frame 3 has 3 of 8 bytes; the 2 complete frames before it "
                     "were kept");
    }
}

TEST(ToolFrameLoop, CleanEndReportsNothing) {
    TempDir dir;
    pixmoor_test::WriteBytes(dir / "in", std::vector<uint8_t>(16, 4));
    InputStream input(dir / "in");
    RawFrameSource source(input, 8);
    PlusOne plus(8);
    OutputFile out(dir / "out");
    RawSink sink(out, 8);
    ProgressMeter meter(stderr, false);
    const LoopResult result = RunFrameLoop(source, plus, sink, meter);
    EXPECT_EQ(result.frames, 2);
    EXPECT_FALSE(result.truncated);
    EXPECT_NO_THROW(ReportTruncation(result, 8, "'in'"));
}

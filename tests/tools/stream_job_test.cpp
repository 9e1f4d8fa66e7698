#include "core/stream_job.h"

#include <gtest/gtest.h>

#include <pixmoor/geometry.h>

#include "core/errors.h"
#include "temp_dir.h"

using namespace pixmoor_tool;
using pixmoor_test::TempDir;

TEST(ToolStreamJob, Y4mByNameOrByItsFirstBytesOnStandardInput) {
    TempDir dir;
    pixmoor_test::WriteText(dir / "clip.y4m", "YUV4MPEG2 W8 H4 F30:1\n");
    pixmoor_test::WriteText(dir / "clip.raw", "YUV4MPEG2 W8 H4 F30:1\n");
    const OpenedInput y4m = OpenInput(dir / "clip.y4m");
    ASSERT_TRUE(y4m.y4m.has_value());
    EXPECT_EQ(y4m.source->frameBytes(), 48);
    // A file named otherwise is raw, whatever it starts with.
    OpenedInput raw = OpenInput(dir / "clip.raw");
    EXPECT_FALSE(raw.y4m.has_value());
    EXPECT_EQ(raw.source, nullptr);
    raw.UseRawFrames(10);
    EXPECT_EQ(raw.source->frameBytes(), 10);
    // A .y4m name must hold a Y4M stream.
    pixmoor_test::WriteText(dir / "bad.y4m", "raw bytes\n");
    EXPECT_THROW(OpenInput(dir / "bad.y4m"), ToolError);
}

TEST(ToolStreamJob, SizeFromTheHeaderOrTheOption) {
    TempDir dir;
    pixmoor_test::WriteText(dir / "clip.y4m", "YUV4MPEG2 W8 H4\n");
    pixmoor_test::WriteText(dir / "clip.raw", "");
    const OpenedInput y4m = OpenInput(dir / "clip.y4m");
    EXPECT_EQ(ResolveInputSize(y4m, ""), (FrameSize{8, 4}));
    EXPECT_EQ(ResolveInputSize(y4m, "8x4"), (FrameSize{8, 4}));
    try {
        ResolveInputSize(y4m, "16x4");
        ADD_FAILURE();
    } catch (const ToolError& e) {
        EXPECT_EQ(e.exitStatus(), kExitUsage);
        EXPECT_NE(std::string(e.what()).find("does not match the Y4M header"), std::string::npos);
    }
    const OpenedInput raw = OpenInput(dir / "clip.raw");
    EXPECT_EQ(ResolveInputSize(raw, "4x2"), (FrameSize{4, 2}));
    EXPECT_THROW(ResolveInputSize(raw, ""), ToolError);
}

TEST(ToolStreamJob, OutputKinds) {
    EXPECT_EQ(OutputKindFor("a.y4m", false), OutputKind::Y4m);
    EXPECT_EQ(OutputKindFor("a.png", false), OutputKind::Png);
    EXPECT_EQ(OutputKindFor("a.%03d.png", false), OutputKind::Png);
    EXPECT_EQ(OutputKindFor("a.rgb", true), OutputKind::Raw);
    EXPECT_EQ(OutputKindFor("-", false), OutputKind::Raw);
    EXPECT_EQ(OutputKindFor("-", true), OutputKind::Y4m);

    OutputPlan plan;
    plan.format = FindFormat(FCC_I420);
    plan.kind = OutputKind::Png;
    EXPECT_THROW(CheckOutputKind(plan), ToolError);
    plan.kind = OutputKind::Y4m;
    EXPECT_NO_THROW(CheckOutputKind(plan));
    plan.format = FindFormat(FCC_YV12);
    EXPECT_THROW(CheckOutputKind(plan), ToolError);
    plan.format = FindFormat(FCC_RG56);
    EXPECT_THROW(CheckOutputKind(plan), ToolError);
    plan.kind = OutputKind::Png;
    plan.path = "a.png";
    EXPECT_NO_THROW(CheckOutputKind(plan));
    plan.path = "a%s.png";
    EXPECT_THROW(CheckOutputKind(plan), ToolError);
}

TEST(ToolStreamJob, OutputHeaderKeepsTheInputsTags) {
    TempDir dir;
    pixmoor_test::WriteText(dir / "clip.y4m", "YUV4MPEG2 W8 H4 F30000:1001 It A10:11 C420mpeg2\n");
    pixmoor_test::WriteText(dir / "clip.raw", "");
    const Y4mHeader kept = OutputY4mHeader(OpenInput(dir / "clip.y4m"), "50:1", {4, 2});
    EXPECT_EQ(FormatY4mHeader(kept), "YUV4MPEG2 W4 H2 F30000:1001 It A10:11 C420mpeg2\n");
    const Y4mHeader fresh = OutputY4mHeader(OpenInput(dir / "clip.raw"), "50:1", {4, 2});
    EXPECT_EQ(FormatY4mHeader(fresh), "YUV4MPEG2 W4 H2 F50:1 Ip A1:1 C420jpeg\n");
    EXPECT_EQ(FormatY4mHeader(OutputY4mHeader(OpenInput(dir / "clip.raw"), "", {4, 2})),
              "YUV4MPEG2 W4 H2 F25:1 Ip A1:1 C420jpeg\n");
}

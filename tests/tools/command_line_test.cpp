#include "core/command_line.h"

#include <gtest/gtest.h>

#include "core/errors.h"

using namespace pixmoor_tool;

namespace {

// Parses a command line given without the program name.
struct Parsed {
    CLI::App app;
    CommandLine line;
    explicit Parsed(std::vector<std::string> args) {
        DefineCommandLine(app, line);
        std::reverse(args.begin(), args.end());  // CLI11 takes them last first
        app.parse(args);
    }
};

bool Refused(std::vector<std::string> args) {
    try {
        Parsed p(std::move(args));
    } catch (const CLI::ParseError&) {
        return true;
    }
    return false;
}

}  // namespace

TEST(ToolCommandLine, ConvertOptions) {
    Parsed p({"convert", "-i", "in.yuv", "-o", "out.rgb", "--from", "yuy2", "--to", "RG24", "--size", "320x240",
              "--dest-pitch", "1000", "--src-orient", "bottom-up", "-q"});
    ASSERT_TRUE(p.line.convertCommand->parsed());
    const ConvertOptions& c = p.line.convert;
    EXPECT_EQ(c.input, "in.yuv");
    EXPECT_EQ(c.output, "out.rgb");
    EXPECT_EQ(c.from, "yuy2");
    EXPECT_EQ(c.to, "RG24");
    EXPECT_EQ(c.size, "320x240");
    EXPECT_EQ(c.destPitch, 1000);
    EXPECT_EQ(c.srcOrient, "bottom-up");
    EXPECT_EQ(c.destOrient, "top-down");
    EXPECT_TRUE(c.quiet);
    EXPECT_FALSE(c.native);
}

TEST(ToolCommandLine, InputAndOutputMayStandByThemselves) {
    Parsed p({"convert", "in.yuv", "out.rgb", "--src", "YUY2", "--dest", "RG24", "-s", "8x8", "--pitch", "24"});
    EXPECT_EQ(p.line.convert.input, "in.yuv");
    EXPECT_EQ(p.line.convert.output, "out.rgb");
    EXPECT_EQ(p.line.convert.from, "YUY2");
    EXPECT_EQ(p.line.convert.to, "RG24");
    EXPECT_EQ(p.line.convert.destPitch, 24);
    Parsed r({"resize", "a.y4m", "b.y4m", "-S", "8x8"});
    EXPECT_EQ(r.line.resize.input, "a.y4m");
    EXPECT_EQ(r.line.resize.output, "b.y4m");
}

TEST(ToolCommandLine, ConvertNeedsInputOutputAndDestination) {
    EXPECT_TRUE(Refused({"convert", "-o", "x", "-t", "RG24"}));
    EXPECT_TRUE(Refused({"convert", "-i", "x", "-t", "RG24"}));
    EXPECT_TRUE(Refused({"convert", "-i", "x", "-o", "y"}));
    EXPECT_FALSE(Refused({"convert", "-i", "x", "-o", "y", "-t", "RG24"}));
}

TEST(ToolCommandLine, NativeExcludesExplicitOrientations) {
    EXPECT_FALSE(Refused({"convert", "-i", "x", "-o", "y", "-t", "RG24", "--native"}));
    EXPECT_TRUE(Refused({"convert", "-i", "x", "-o", "y", "-t", "RG24", "--native", "--src-orient", "top-down"}));
    EXPECT_TRUE(Refused({"convert", "-i", "x", "-o", "y", "-t", "RG24", "--native", "--dest-orient", "default"}));
}

TEST(ToolCommandLine, PitchMustBeANumberInRange) {
    EXPECT_TRUE(Refused({"convert", "-i", "x", "-o", "y", "-t", "RG24", "--dest-pitch", "-4"}));
    EXPECT_TRUE(Refused({"convert", "-i", "x", "-o", "y", "-t", "RG24", "--dest-pitch", "wide"}));
}

TEST(ToolCommandLine, ResizeOptions) {
    Parsed p({"resize", "-i", "a.y4m", "-o", "b.y4m", "-S", "176x144"});
    ASSERT_TRUE(p.line.resizeCommand->parsed());
    EXPECT_EQ(p.line.resize.outSize, "176x144");
    EXPECT_EQ(p.line.resize.bits, 0);
    EXPECT_TRUE(Refused({"resize", "-i", "a", "-o", "b"}));
    EXPECT_TRUE(Refused({"resize", "-i", "a", "-o", "b", "-S", "2x2", "--bits", "12"}));
    EXPECT_FALSE(Refused({"resize", "-i", "a", "-o", "b", "-S", "2x2", "--bits", "32", "-f", "0rgb"}));
}

TEST(ToolCommandLine, DemoAndInfo) {
    Parsed demo({"demo", "out/dir"});
    EXPECT_TRUE(demo.line.demoCommand->parsed());
    EXPECT_EQ(demo.line.demo.directory, "out/dir");
    Parsed plain({"demo"});
    EXPECT_EQ(plain.line.demo.directory, "pixmoor-demo");
    Parsed info({"info"});
    EXPECT_TRUE(info.line.infoCommand->parsed());
    EXPECT_TRUE(Refused({"info", "extra"}));
}

TEST(ToolCommandLine, ExactlyOneSubcommand) {
    EXPECT_TRUE(Refused({}));
    EXPECT_TRUE(Refused({"explode"}));
}

TEST(ToolCommandLine, Orientations) {
    EXPECT_EQ(ParseOrientation("default"), 0);
    EXPECT_EQ(ParseOrientation("top-down"), 1);
    EXPECT_EQ(ParseOrientation("bottom-up"), 2);
    EXPECT_THROW(ParseOrientation("sideways"), ToolError);
}

// The installed tool's info and demo subcommands.
#include <gtest/gtest.h>

#include "core/png_file.h"
#include "tool_runner.h"

using namespace pixmoor_tool;
using namespace pixmoor_test;

TEST(ToolInfoCli, ShowsProcessorTierVersionsAndPairs) {
    TempDir dir;
    const ToolRun run = RunTool(dir, {"info"});
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* part : {"CPUID instruction", "Tier selection", "detection picks", "the slots now run",
                             "Version records of the tier in the slots", "primipx", "primsw7", "v2.0 gold",
                             "Dec 10 2001", "28 pairs", "Size transforms", "crop and pad", "scale"})
        EXPECT_NE(run.out.find(part), std::string::npos) << part << "\n" << run.out;
    // The pair matrix marks the pair without a routine.
    EXPECT_NE(run.out.find("  I420  yes*"), std::string::npos) << run.out;
}

TEST(ToolDemoCli, WritesEveryResultAndTheContactSheet) {
    TempDir dir;
    const ToolRun run = RunTool(dir, {"demo", "pictures/demo", "--repeat", "1"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<std::string> names = [&] {
        std::vector<std::string> n;
        for (const auto& e : std::filesystem::directory_iterator(dir / "pictures/demo"))
            n.push_back(e.path().filename().string());
        std::sort(n.begin(), n.end());
        return n;
    }();
    // Source, 28 colour pairs, 8 size transforms, the sheet.
    EXPECT_EQ(names.size(), 1u + 28 + 8 + 1);
    EXPECT_TRUE(std::count(names.begin(), names.end(), "contact-sheet.png"));
    EXPECT_TRUE(std::count(names.begin(), names.end(), "colour-yuy2-to-rg24.png"));
    EXPECT_TRUE(std::count(names.begin(), names.end(), "colour-i420-to-i420.png"));
    for (const std::string& n : names) EXPECT_EQ(n.find(".partial-"), std::string::npos);

    const RgbImage sheet = LoadPng(dir / "pictures/demo/contact-sheet.png");
    EXPECT_GT(sheet.width, 1000);
    EXPECT_GT(sheet.height, 500);
    const RgbImage pair = LoadPng(dir / "pictures/demo/colour-uyvy-to-rg56.png");
    EXPECT_EQ(pair.width, 352);
    EXPECT_EQ(pair.height, 288);

    // The table: one line per result, with its time, and where it all went.
    for (const char* part : {"transform", "ms/frame", "I420>RG24", "YV12>I420", "RG24 176x144", "I420>I420",
                             "no routine", "contact sheet pictures/demo/contact-sheet.png", "written to pictures/demo/"})
        EXPECT_NE(run.out.find(part), std::string::npos) << part << "\n" << run.out;
}

TEST(ToolDemoCli, UnwritableFolderIsOneLine) {
    TempDir dir;
    WriteText(dir / "file", "x");
    const ToolRun run = RunTool(dir, {"demo", "file/sub"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.ErrLines().size(), 1u) << run.err;
    EXPECT_NE(run.err.find("cannot make folder 'file/sub'"), std::string::npos) << run.err;
}

TEST(ToolHelpCli, HelpAndVersion) {
    TempDir dir;
    ToolRun run = RunTool(dir, {"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.rfind("pixmoor ", 0), 0u) << run.out;
    run = RunTool(dir, {"--help"});
    EXPECT_EQ(run.status, 0);
    for (const char* part : {"convert", "resize", "info", "demo", "Exit status"})
        EXPECT_NE(run.out.find(part), std::string::npos) << part;
    run = RunTool(dir, {"convert", "--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("YUY2 YUNV V422 yuy2 yunv v422"), std::string::npos) << run.out;
    EXPECT_EQ(run.err, "");
}

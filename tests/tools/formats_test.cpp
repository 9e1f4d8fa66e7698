#include "core/formats.h"

#include <gtest/gtest.h>

#include <pixmoor/geometry.h>

#include "core/errors.h"
#include "core/text_parse.h"

using namespace pixmoor_tool;

TEST(ToolFormats, EveryAliasNamesItsCanonicalFormat) {
    const struct {
        const char* text;
        uint32_t canonical;
    } cases[] = {
        {"I420", FCC_I420}, {"i420", FCC_I420}, {"YV12", FCC_YV12}, {"yv12", FCC_YV12},
        {"YUY2", FCC_YUY2}, {"YUNV", FCC_YUY2}, {"V422", FCC_YUY2}, {"yuy2", FCC_YUY2},
        {"yunv", FCC_YUY2}, {"v422", FCC_YUY2}, {"UYVY", FCC_UYVY}, {"Y422", FCC_UYVY},
        {"UYNV", FCC_UYVY}, {"uyvy", FCC_UYVY}, {"y422", FCC_UYVY}, {"uynv", FCC_UYVY},
        {"RG24", FCC_RG24}, {"rg24", FCC_RG24}, {"RG32", FCC_RG32}, {"rg32", FCC_RG32},
        {"RG55", FCC_RG55}, {"rg55", FCC_RG55}, {"RG56", FCC_RG56}, {"rg56", FCC_RG56},
    };
    for (const auto& c : cases) {
        const auto parsed = ParseFormat(c.text);
        ASSERT_TRUE(parsed.has_value()) << c.text;
        EXPECT_EQ(parsed->info->code, c.canonical) << c.text;
        // The code typed is what goes to the library's factories.
        EXPECT_EQ(parsed->typed, *FourCCFromText(c.text)) << c.text;
    }
}

TEST(ToolFormats, MixedCaseAndUnknownCodesAreRefused) {
    for (const char* text : {"Rg24", "yUY2", "I420 ", "I42", "", "NV12", "Y800", "0rgb", "RGB"})
        EXPECT_FALSE(ParseFormat(text).has_value()) << text;
}

TEST(ToolFormats, SizeFactorySpellingsAddIyuv) {
    EXPECT_FALSE(ParseFormat("IYUV").has_value());
    ASSERT_TRUE(ParseFormat("IYUV", CodeSet::Size).has_value());
    EXPECT_EQ(ParseFormat("iyuv", CodeSet::Size)->info->code, FCC_I420);
    EXPECT_EQ(ParseFormat("IYUV", CodeSet::Size)->typed, FCC_IYUV);
}

TEST(ToolFormats, CodeTextRoundTrips) {
    EXPECT_EQ(FourCCFromText("I420"), FCC_I420);
    EXPECT_EQ(FourCCText(FCC_I420), "I420");
    EXPECT_EQ(FourCCText(0), "????");
    EXPECT_FALSE(FourCCFromText("I4200").has_value());
}

TEST(ToolFormats, SpellingListGroupsAliases) {
    EXPECT_EQ(SpellingList(),
              "I420 i420, YV12 yv12, YUY2 YUNV V422 yuy2 yunv v422, UYVY Y422 UYNV uyvy y422 uynv, "
              "RG24 rg24, RG32 rg32, RG55 rg55, RG56 rg56");
}

TEST(ToolFormats, FileFrameBytesAreTight) {
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_I420), 352, 288), 152064);
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_YV12), 176, 144), 38016);
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_YUY2), 320, 240), 153600);
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_RG24), 320, 240), 230400);
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_RG32), 320, 240), 307200);
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_RG55), 320, 240), 153600);
    // Odd RGB widths stay tight in files; the library pads its rows.
    EXPECT_EQ(FileFrameBytes(*FindFormat(FCC_RG24), 5, 3), 45);
    EXPECT_EQ(TightLineBytes(5, 24), 15);
    EXPECT_EQ(LibraryLineBytes(5, 24), 16);
}

TEST(ToolTextParse, FrameSizes) {
    EXPECT_EQ(ParseFrameSize("352x288"), (FrameSize{352, 288}));
    EXPECT_EQ(ParseFrameSize("1X1"), (FrameSize{1, 1}));
    EXPECT_EQ(ParseFrameSize("16384x16384"), (FrameSize{16384, 16384}));
    for (const char* bad : {"", "352", "x288", "352x", "0x288", "352x0", "-352x288", "352x-288", "352x288x1",
                            "16385x2", "352*288", " 352x288", "3.5x2", "99999999999999999999x1"}) {
        try {
            ParseFrameSize(bad);
            ADD_FAILURE() << "accepted '" << bad << "'";
        } catch (const ToolError& e) {
            EXPECT_EQ(e.exitStatus(), kExitUsage);
            EXPECT_NE(std::string(e.what()).find(std::string("'") + bad + "'"), std::string::npos) << e.what();
        }
    }
    EXPECT_EQ(FrameSizeText({352, 288}), "352x288");
}

TEST(ToolTextParse, FrameRates) {
    EXPECT_EQ(ParseFrameRate("30000:1001").num, 30000);
    EXPECT_EQ(ParseFrameRate("30000:1001").den, 1001);
    EXPECT_EQ(ParseFrameRate("25").den, 1);
    for (const char* bad : {"", "0:1", "1:0", "a:b", "25:", ":1", "-25"})
        EXPECT_THROW(ParseFrameRate(bad), ToolError) << bad;
}

TEST(ToolTextParse, Unsigned) {
    EXPECT_EQ(ParseUnsigned("0", 10), 0);
    EXPECT_EQ(ParseUnsigned("10", 10), 10);
    EXPECT_FALSE(ParseUnsigned("11", 10).has_value());
    EXPECT_FALSE(ParseUnsigned("+1", 10).has_value());
    EXPECT_FALSE(ParseUnsigned("", 10).has_value());
}

// The eight version records and the getters of rows 0 and 6.
#include <gtest/gtest.h>
#include <pixmoor/runtime.h>

#include <string>

#include "played_processor.h"

namespace {

using Getter = const PrimVersion* (*)(void);

void ExpectRecord(const PrimVersion* v, int32_t build, const char* tier, const std::string& name) {
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->versionMajor, 2);
    EXPECT_EQ(v->versionMinor, 0);
    EXPECT_EQ(v->versionMajorBuild, 6);
    EXPECT_EQ(v->versionBuild, build);
    EXPECT_EQ(v->targetCpu[0], tier[0]);
    EXPECT_EQ(v->targetCpu[1], tier[1]);
    EXPECT_EQ(v->targetCpu[2], 0);
    EXPECT_EQ(v->targetCpu[3], 0);
    EXPECT_EQ(v->name, name);
    EXPECT_STREQ(v->version, "v2.0 gold");
    EXPECT_STREQ(v->buildDate, "Dec 10 2001");
}

}  // namespace

TEST(VersionRecords, EachSideAndTierHasItsRecord) {
    const char* tiers[] = {"px", "m6", "a6", "w7"};
    const Getter image[] = {px_ImgGetLibVersion, m6_ImgGetLibVersion, a6_ImgGetLibVersion, w7_ImgGetLibVersion};
    const Getter signal[] = {px_SigGetLibVersion, m6_SigGetLibVersion, a6_SigGetLibVersion, w7_SigGetLibVersion};
    for (int t = 0; t < 4; ++t) {
        ExpectRecord(image[t](), 35, tiers[t], std::string("primi") + tiers[t]);
        ExpectRecord(signal[t](), 38, tiers[t], std::string("prims") + tiers[t]);
        // The texts of version and build date are shared by all eight.
        EXPECT_EQ(image[t]()->version, px_SigGetLibVersion()->version);
        EXPECT_EQ(signal[t]()->buildDate, px_ImgGetLibVersion()->buildDate);
    }
}

TEST(VersionRecords, BeforeAnySelectionTheGettersReportPx) {
    EXPECT_STREQ(SigGetLibVersion()->name, "primspx");
    EXPECT_STREQ(ImgGetLibVersion()->name, "primipx");
}

TEST(VersionRecords, AfterSelectingW7TheGettersReportW7) {
    pixmoor_test::RuntimeStateGuard guard;
    ASSERT_EQ(PrimSelectTier(3), 1);
    EXPECT_STREQ(SigGetLibVersion()->name, "primsw7");
    EXPECT_STREQ(ImgGetLibVersion()->name, "primiw7");
    ASSERT_EQ(PrimSelectTier(2), 1);
    EXPECT_STREQ(SigGetLibVersion()->name, "primsa6");
    EXPECT_STREQ(ImgGetLibVersion()->name, "primia6");
}

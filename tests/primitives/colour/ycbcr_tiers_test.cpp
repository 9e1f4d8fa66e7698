// How the tiers of the YCbCr members relate: px and m6 give the same bytes;
// the vector tiers, whose lane forms truncate every product by itself,
// stay within a stated distance of px; and the plain names run the tier
// that PrimGetTier reports.
#include <gtest/gtest.h>

#include <cstdlib>

#include "ycbcr_harness.h"

using namespace ycbcr_harness;

namespace {

// Largest byte difference between two tiers of a member on one random
// image (tight layout, so every byte of the destination is a sample).
int Distance(const Member& m, int a, int b, int w, int h, uint32_t seed) {
    Side src(m.src, w, h, 0, 0, seed);
    Side da(m.dst, w, h, 0, 0, 1), db(m.dst, w, h, 0, 0, 1);
    Bound ba(src, da), bb(src, db);
    EXPECT_EQ(m.tiers[a](ba.args), 0);
    EXPECT_EQ(m.tiers[b](bb.args), 0);
    int most = 0;
    const auto ca = da.Contents(), cb = db.Contents();
    for (size_t p = 0; p < ca.size(); ++p)
        for (size_t i = 0; i < ca[p].size(); ++i) most = std::max(most, std::abs(ca[p][i] - cb[p][i]));
    return most;
}

TEST(YCbCrTiers, PxAndM6GiveTheSameBytes) {
    for (const Member& m : Members())
        for (int w : {1, 2, 5, 33, 64})
            EXPECT_EQ(Distance(m, kPx, kM6, w, 7, 3 + w), 0) << m.name << " width " << w;
}

// Bounds of the vector tiers against px, member by member, on large
// random images.  Members without a lane form in a tier give px's bytes.
TEST(YCbCrTiers, VectorTiersStayCloseToPx) {
    struct Bound {
        const char* name;
        int a6, w7;
    };
    // In w7's planes inverse a Y below 16 counts as 16, so the darkest codes
    // differ from px by up to 19 (16 times 1.164); the rest by at most 1.
    const Bound bounds[] = {
        {"ImgRGBToYCbCr422C3C2", 0, 1}, {"ImgYCbCr422ToRGBC2C3", 0, 1}, {"ImgRGBToYCbCr422P3C2", 0, 0},
        {"ImgYCbCr422ToRGBC2P3", 0, 1}, {"ImgRGBToYCbCr420C3P3", 1, 1}, {"ImgYCbCr420ToRGBP3C3", 1, 1},
        {"ImgRGBToYCbCrP3", 0, 1},      {"ImgYCbCrToRGBP3", 0, 19},     {"ImgRGBToYCbCrC3", 0, 1},
        {"ImgYCbCrToRGBC3", 0, 0},      {"ImgRGBToYCbCrAC4", 0, 0},     {"ImgYCbCrToRGBAC4", 0, 0},
    };
    for (const Bound& b : bounds) {
        const Member& m = Find(b.name);
        int a6 = 0, w7 = 0;
        for (uint32_t seed = 1; seed <= 4; ++seed) {
            a6 = std::max(a6, Distance(m, kPx, kA6, 256, 64, seed));
            w7 = std::max(w7, Distance(m, kPx, kW7, 256, 64, seed));
        }
        EXPECT_LE(a6, b.a6) << b.name;
        EXPECT_LE(w7, b.w7) << b.name;
    }
}

TEST(YCbCrTiers, PlainNamesRunTheReportedTier) {
    const int32_t saved = PrimCurrentTier;
    for (int tier : kTiers) {
        PrimCurrentTier = tier;
        EXPECT_EQ(PrimGetTier(), tier);
        for (const Member& m : Members()) {
            const Outcome o = RunMember(m, tier, Case{40, 6, 2, 4, 1, 2, 77}, true);
            EXPECT_EQ(o.status, 0);
            EXPECT_TRUE(o.asModel) << m.name << " " << TierName(tier);
        }
    }
    PrimCurrentTier = saved;
}

}  // namespace

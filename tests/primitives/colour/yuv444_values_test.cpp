// Worked values and named edge cases of the 4:4:4 members.
#include <gtest/gtest.h>

#include <cstdlib>

#include "yuv444_harness.h"

using namespace yuv444_harness;
using namespace yuv444_model;

namespace {

Trio One(Member m, int tier, Trio in) { return RunMember(m, EntriesOf(tier), {in}, 1, 1).out[0]; }

std::vector<Trio> Line(int w, Trio p) { return std::vector<Trio>(static_cast<size_t>(w), p); }

// Pure red gives Y 76, U 90, V 255 in the wide arithmetic, as in the 4:2:0
// members; the narrow sets give the same.
TEST(Yuv444Values, PureRedInEveryForwardMemberAndTier) {
    for (Member m : {kRgbToYuv, kRgbaToYuva, kRgbPlanesToYuvPlanes, kRgbToYuvPlanes})
        for (int tier : kTiers) EXPECT_EQ(One(m, tier, Trio{{255, 0, 0}}), (Trio{{76, 90, 255}})) << Describe(m, tier, 1, 1);
}

// Further values of the wide forward arithmetic: pure green, pure blue,
// white and black.
TEST(Yuv444Values, WideForwardPrimaries) {
    for (Member m : {kRgbToYuv, kRgbaToYuva, kRgbPlanesToYuvPlanes, kRgbToYuvPlanes})
        for (int tier : {kPx, kM6}) {
            EXPECT_EQ(One(m, tier, Trio{{0, 255, 0}}), (Trio{{149, 54, 0}}));
            EXPECT_EQ(One(m, tier, Trio{{0, 0, 255}}), (Trio{{29, 239, 102}}));
            EXPECT_EQ(One(m, tier, Trio{{255, 255, 255}}), (Trio{{255, 128, 128}}));
            EXPECT_EQ(One(m, tier, Trio{{0, 0, 0}}), (Trio{{0, 128, 128}}));
        }
}

// In the wide arithmetic every grey gives U 128 and V 128: the half-unit
// rounding term keeps the chroma of a grey at zero.
TEST(Yuv444Values, WideGreysHaveNeutralChroma) {
    std::vector<Trio> greys;
    for (int c = 0; c < 256; ++c) greys.push_back(Trio{{c, c, c}});
    for (Member m : {kRgbToYuv, kRgbaToYuva, kRgbPlanesToYuvPlanes, kRgbToYuvPlanes})
        for (int tier : {kPx, kM6}) {
            const RunResult r = RunMember(m, EntriesOf(tier), greys, 256, 1);
            for (int c = 0; c < 256; ++c) EXPECT_EQ(r.out[c], (Trio{{c, 128, 128}})) << c;
        }
}

// (128, 128, 128) is grey in every inverse member and tier.
TEST(Yuv444Values, NeutralChromaInverse) {
    for (Member m : {kYuvToRgb, kYuvaToRgba, kYuvPlanesToRgbPlanes, kYuvPlanesToRgb})
        for (int tier : kTiers)
            for (int y : {0, 1, 100, 128, 254, 255}) EXPECT_EQ(One(m, tier, Trio{{y, 128, 128}}), (Trio{{y, y, y}}));
}

// The two inverse members with a planar source use each wide factor less
// one, so in px they differ from ImgYUVToRGB on some inputs, by one at most.
TEST(Yuv444Values, PlanarSourceFactorsDifferByOneFromPacked) {
    std::vector<Trio> all;
    for (int u = 0; u < 256; ++u)
        for (int v = 0; v < 256; ++v) all.push_back(Trio{{u ^ v, u, v}});
    for (int tier : {kPx, kM6}) {
        const RunResult packed = RunMember(kYuvToRgb, EntriesOf(tier), all, 256, 256);
        const RunResult planar = RunMember(kYuvPlanesToRgb, EntriesOf(tier), all, 256, 256);
        const RunResult planes = RunMember(kYuvPlanesToRgbPlanes, EntriesOf(tier), all, 256, 256);
        int differ = 0, maxDiff = 0;
        for (size_t i = 0; i < all.size(); ++i) {
            EXPECT_EQ(planar.out[i], planes.out[i]);
            for (int k = 0; k < 3; ++k) {
                const int d = std::abs(packed.out[i].s[k] - planar.out[i].s[k]);
                differ += d != 0;
                maxDiff = std::max(maxDiff, d);
            }
        }
        EXPECT_GT(differ, 0);
        EXPECT_EQ(maxDiff, 1);
    }
    // One such input: Y 100, U 1, V 42 gives G 200 with 38076 and 25821,
    // 199 with 38075 and 25820.
    EXPECT_EQ(One(kYuvToRgb, kPx, Trio{{100, 1, 42}}).s[1], 200);
    EXPECT_EQ(One(kYuvPlanesToRgb, kPx, Trio{{100, 1, 42}}).s[1], 199);
    EXPECT_EQ(One(kYuvPlanesToRgbPlanes, kPx, Trio{{100, 1, 42}}).s[1], 199);
}

// ImgYUVAToRGBA in the vector tiers: u' = 8 (U - 128), v' = 8 (V - 128),
// Y plus each product, no doubling and no final shift.
TEST(Yuv444Values, YuvaToRgbaNarrowFormula) {
    for (int tier : {kA6, kW7}) {
        // u' = -64, v' = 576: R = 100 + mulhi(576, 9339) = 182;
        // G = 100 + mulhi(-64, -3228) + mulhi(576, -4760) = 100 + 3 - 42 = 61;
        // B = 100 + mulhi(-64, 16646) = 100 - 17 = 83.
        EXPECT_EQ(One(kYuvaToRgba, tier, Trio{{100, 120, 200}}), (Trio{{182, 61, 83}}));
        // Extreme chroma saturates.
        EXPECT_EQ(One(kYuvaToRgba, tier, Trio{{255, 255, 128}}).s[2], 255);
        EXPECT_EQ(One(kYuvaToRgba, tier, Trio{{0, 0, 128}}).s[2], 0);
    }
}

// a6's odd factor row acts in ImgYUVToRGB and ImgYUVPlanesToRGB at pixels
// 3 and 7 of each 8-pixel step (R 127 there for Y 128, U 0, V 128, 128
// elsewhere); not in the single-pixel tail, not in w7, and never in
// ImgYUVAToRGBA.
TEST(Yuv444Values, A6OddRow) {
    const Trio p{{128, 0, 128}};
    for (Member m : {kYuvToRgb, kYuvPlanesToRgb}) {
        const RunResult eight = RunMember(m, EntriesOf(kA6), Line(8, p), 8, 1);
        for (int x = 0; x < 8; ++x) EXPECT_EQ(eight.out[x].s[0], x % 4 == 3 ? 127 : 128) << MemberName(m) << " " << x;
        const RunResult seven = RunMember(m, EntriesOf(kA6), Line(7, p), 7, 1);
        for (int x = 0; x < 7; ++x) EXPECT_EQ(seven.out[x].s[0], 128) << MemberName(m) << " " << x;
        const RunResult nineteen = RunMember(m, EntriesOf(kA6), Line(19, p), 19, 1);
        for (int x = 0; x < 19; ++x)
            EXPECT_EQ(nineteen.out[x].s[0], x % 4 == 3 && x < 16 ? 127 : 128) << MemberName(m) << " " << x;
        const RunResult w7 = RunMember(m, EntriesOf(kW7), Line(32, p), 32, 1);
        for (int x = 0; x < 32; ++x) EXPECT_EQ(w7.out[x].s[0], 128);
    }
    const RunResult alpha = RunMember(kYuvaToRgba, EntriesOf(kA6), Line(16, p), 16, 1);
    for (int x = 0; x < 16; ++x) EXPECT_EQ(alpha.out[x], alpha.out[0]);
}

// Byte 3 of every 4-byte destination pixel keeps its value in every tier,
// whatever the value, in the blocks of 8 and 4 pixels and in the tail.
TEST(Yuv444Values, ByteThreeOfFourBytePixelsIsNeverChanged) {
    for (Member m : {kYuvaToRgba, kRgbaToYuva})
        for (int tier : kTiers)
            for (int w : {1, 3, 4, 5, 8, 12, 13, 15, 16, 17, 31, 33}) {
                const int h = 2, step = 4 * w + 4;
                std::vector<uint8_t> src(static_cast<size_t>(step) * h), dst(src.size());
                for (size_t i = 0; i < src.size(); ++i) {
                    src[i] = static_cast<uint8_t>(i * 37 + 11);
                    dst[i] = static_cast<uint8_t>(i * 91 + 3);
                }
                const std::vector<uint8_t> before = dst;
                const Entries& e = EntriesOf(tier);
                const PackedFn fn = m == kYuvaToRgba ? e.yuvaToRgba : e.rgbaToYuva;
                ASSERT_EQ(fn(src.data(), step, dst.data(), step, w, h), PrimStatusOk);
                for (int y = 0; y < h; ++y)
                    for (int x = 0; x < w; ++x) {
                        const size_t at = static_cast<size_t>(y) * step + 4 * x + 3;
                        EXPECT_EQ(dst[at], before[at]) << Describe(m, tier, w, h) << " pixel " << x;
                    }
            }
}

// The source's byte 3 is never read for its value.
TEST(Yuv444Values, SourceByteThreeIsIgnored) {
    for (Member m : {kYuvaToRgba, kRgbaToYuva})
        for (int tier : kTiers) {
            const int w = 21;
            std::vector<uint8_t> a(4 * w), b(4 * w), outA(4 * w, 0), outB(4 * w, 0);
            for (int i = 0; i < 4 * w; ++i) a[i] = b[i] = static_cast<uint8_t>(i * 13);
            for (int x = 0; x < w; ++x) b[4 * x + 3] = static_cast<uint8_t>(~a[4 * x + 3]);
            const Entries& e = EntriesOf(tier);
            const PackedFn fn = m == kYuvaToRgba ? e.yuvaToRgba : e.rgbaToYuva;
            fn(a.data(), 4 * w, outA.data(), 4 * w, w, 1);
            fn(b.data(), 4 * w, outB.data(), 4 * w, w, 1);
            EXPECT_EQ(outA, outB);
        }
}

// px and m6 give identical bytes.
TEST(Yuv444Values, PxAndM6Agree) {
    const std::vector<Trio> in = RandomPixels(97, 3, 42);
    for (Member m : kMembers)
        EXPECT_EQ(RunMember(m, EntriesOf(kPx), in, 97, 3).out, RunMember(m, EntriesOf(kM6), in, 97, 3).out) << MemberName(m);
}

}  // namespace

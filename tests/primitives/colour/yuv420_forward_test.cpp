// RGB to planar 4:2:0 in every tier against the scalar model, and the
// worked values of the forward colour model.
#include <gtest/gtest.h>

#include <random>

#include "yuv420_harness.h"
#include "yuv420_model.h"

using namespace yuv420_harness;
using yuv420_model::Pixel;
using yuv420_model::TierName;

namespace {

const char* SourceName(bool planes) { return planes ? "planes" : "packed"; }

void ExpectForwardMatchesModel(int tier, bool planes, bool compact, const RgbFrame& in, int pad) {
    const YuvFrame expect = yuv420_model::Forward(in, static_cast<Tier>(tier), planes);
    const ForwardOut got = RunForward(tier, planes, compact, in, pad);
    ASSERT_EQ(got.result.status, PrimStatusOk);
    EXPECT_TRUE(got.result.outsideUntouched);
    if (Same(got.frame, expect)) return;
    for (int y = 0; y < in.height; ++y)
        for (int x = 0; x < in.width; ++x)
            ASSERT_EQ(got.frame.Y(x, y), expect.Y(x, y)) << "Y at " << x << "," << y;
    for (int y = 0; y < expect.chromaHeight; ++y)
        for (int x = 0; x < expect.chromaWidth; ++x) {
            ASSERT_EQ(got.frame.U(x, y), expect.U(x, y)) << "U at " << x << "," << y;
            ASSERT_EQ(got.frame.V(x, y), expect.V(x, y)) << "V at " << x << "," << y;
        }
}

TEST(RgbToYuv420, EveryTierMatchesTheModelOnManySizes) {
    ForEachSmallCase([&](const Case& c) {
        SCOPED_TRACE(Describe(c));
        ExpectForwardMatchesModel(c.tier, c.planes, c.compact, RandomRgb(c.width, c.height, c.seed), c.pad);
        return !HasFatalFailure();
    });
}

TEST(RgbToYuv420, EveryTierMatchesTheModelOnLargerFrames) {
    ForEachLargeCase([&](const Case& c) {
        SCOPED_TRACE(Describe(c));
        ExpectForwardMatchesModel(c.tier, c.planes, c.compact, RandomRgb(c.width, c.height, c.seed), c.pad);
        return true;
    });
}

// Blocks of one colour, all tiers.  The narrow kernels of the planes
// member widen samples and truncate each luma term by itself, so their Y
// may differ a little from the packed member's (pure green gives 150 there);
// the worked values hold for the packed member in every tier and for the
// planes member in the wide tiers.
TEST(RgbToYuv420, WorkedColoursGiveTheirValuesInEveryTier) {
    struct Case {
        Pixel rgb;
        int y, u, v;
    };
    const Case cases[] = {
        {{255, 0, 0}, 76, 90, 255},    {{0, 255, 0}, 149, 54, 0}, {{0, 0, 255}, 29, 239, 102},
        {{255, 255, 255}, 255, 128, 128}, {{0, 0, 0}, 0, 128, 128},
    };
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (const Case& c : cases) {
                SCOPED_TRACE(testing::Message() << TierName(tier) << " " << SourceName(planes) << " "
                                                << c.rgb.r << "," << c.rgb.g << "," << c.rgb.b);
                if (planes && (tier == yuv420_model::kA6 || tier == yuv420_model::kW7)) continue;
                const ForwardOut out = RunForward(tier, planes, true, Uniform(2, 2, c.rgb));
                for (int i = 0; i < 4; ++i) EXPECT_EQ(out.frame.y[i], c.y);
                EXPECT_EQ(out.frame.u[0], c.u);
                EXPECT_EQ(out.frame.v[0], c.v);
            }
}

// The block (10,200,30), (11,201,31) above (12,202,32), (13,203,33): U is
// 81 in the wide arithmetic and 82 in the narrow one.  At 2 by 2 the
// vector tiers take the pair through their tail loop.
TEST(RgbToYuv420, MixedBlockSeparatesTheTwoArithmetics) {
    RgbFrame f = RgbFrame::Make(2, 2);
    f.Set(0, 0, {10, 200, 30});
    f.Set(1, 0, {11, 201, 31});
    f.Set(0, 1, {12, 202, 32});
    f.Set(1, 1, {13, 203, 33});
    for (int tier : yuv420_model::kTiers) {
        SCOPED_TRACE(TierName(tier));
        const ForwardOut out = RunForward(tier, false, true, f);
        EXPECT_EQ(out.frame.y, (std::vector<uint8_t>{123, 124, 125, 126}));
        EXPECT_EQ(out.frame.v[0], 28);
        EXPECT_EQ(out.frame.u[0], tier == yuv420_model::kA6 || tier == yuv420_model::kW7 ? 82 : 81);
    }
}

// In a wide main loop too: the same block repeated 16 times across.
TEST(RgbToYuv420, MixedBlockInsideTheMainLoops) {
    RgbFrame f = RgbFrame::Make(32, 2);
    for (int x = 0; x < 32; x += 2) {
        f.Set(x, 0, {10, 200, 30});
        f.Set(x + 1, 0, {11, 201, 31});
        f.Set(x, 1, {12, 202, 32});
        f.Set(x + 1, 1, {13, 203, 33});
    }
    for (int tier : yuv420_model::kTiers) {
        const ForwardOut out = RunForward(tier, false, true, f);
        const int u = tier == yuv420_model::kA6 || tier == yuv420_model::kW7 ? 82 : 81;
        for (int j = 0; j < 16; ++j) {
            EXPECT_EQ(out.frame.u[j], u) << TierName(tier) << " " << j;
            EXPECT_EQ(out.frame.v[j], 28) << TierName(tier) << " " << j;
        }
    }
}

TEST(RgbToYuv420, GreyGivesNeutralChromaInTheWideArithmetic) {
    for (int tier : {yuv420_model::kPx, yuv420_model::kM6})
        for (int g = 0; g < 256; ++g) {
            // 3 by 3: the row kernel, the last column, the last line and the corner.
            const ForwardOut out = RunForward(tier, false, true, Uniform(3, 3, {g, g, g}));
            for (uint8_t s : out.frame.y) ASSERT_EQ(s, g);
            for (uint8_t s : out.frame.u) ASSERT_EQ(s, 128) << g;
            for (uint8_t s : out.frame.v) ASSERT_EQ(s, 128) << g;
        }
}

TEST(RgbToYuv420, BlackPictureIsBlackForAllSizes) {
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (int w : {1, 2, 3, 7, 16, 17, 33})
                for (int h : {1, 2, 3, 5}) {
                    const ForwardOut out = RunForward(tier, planes, false, Uniform(w, h, {0, 0, 0}), 3);
                    for (uint8_t s : out.frame.y) ASSERT_EQ(s, 0);
                    for (uint8_t s : out.frame.u) ASSERT_EQ(s, 128);
                    for (uint8_t s : out.frame.v) ASSERT_EQ(s, 128);
                }
}

// A 1 by 1 picture goes through the corner path alone: one Y, U and V from
// the single-pixel formulas, in every tier.
TEST(RgbToYuv420, OneByOneUsesTheCornerFormulas) {
    for (int tier : yuv420_model::kTiers) {
        const ForwardOut red = RunForward(tier, false, true, Uniform(1, 1, {255, 0, 0}));
        // Y 76; U = ((0 - F) >> 16) * 32244 >> 16 + 128 with F = 19595 * 255.
        EXPECT_EQ(red.frame.y[0], 76);
        EXPECT_EQ(red.frame.u[0], ((-77 * 32244) >> 16) + 128);
        EXPECT_EQ(red.frame.v[0], 255);
    }
}

// Width 1, height 2: only the last column path; the pair's chroma from two
// vertical pixels without bias.
TEST(RgbToYuv420, WidthOneHeightTwoUsesTheLastColumnPath) {
    RgbFrame f = RgbFrame::Make(1, 2);
    f.Set(0, 0, {200, 10, 90});
    f.Set(0, 1, {30, 220, 250});
    const auto c = yuv420_model::WideChroma({f.At(0, 0), f.At(0, 1)}, 0);
    for (int tier : yuv420_model::kTiers) {
        const ForwardOut out = RunForward(tier, false, true, f);
        EXPECT_EQ(out.frame.y[0], yuv420_model::WideY(f.At(0, 0)));
        EXPECT_EQ(out.frame.y[1], yuv420_model::WideY(f.At(0, 1)));
        EXPECT_EQ(out.frame.u[0], c.u);
        EXPECT_EQ(out.frame.v[0], c.v);
    }
}

// The last column carries no rounding bias: find a vertical pair whose
// chroma would round up with a bias, and see the driver not do so.
TEST(RgbToYuv420, LastColumnUsesNoRoundingBias) {
    std::mt19937 rng(7);
    for (int found = 0; found < 20;) {
        const Pixel a{static_cast<int>(rng() & 255), static_cast<int>(rng() & 255), static_cast<int>(rng() & 255)};
        const Pixel b{static_cast<int>(rng() & 255), static_cast<int>(rng() & 255), static_cast<int>(rng() & 255)};
        const auto plain = yuv420_model::WideChroma({a, b}, 0);
        const auto biased = yuv420_model::WideChroma({a, b}, 0xFFFF);
        if (plain.u == biased.u && plain.v == biased.v) continue;
        ++found;
        RgbFrame f = RandomRgb(3, 2, found);
        f.Set(2, 0, a);
        f.Set(2, 1, b);
        for (int tier : yuv420_model::kTiers) {
            const ForwardOut out = RunForward(tier, false, true, f);
            EXPECT_EQ(out.frame.u[1], plain.u) << TierName(tier);
            EXPECT_EQ(out.frame.v[1], plain.v) << TierName(tier);
        }
    }
}

// px and m6 agree bit for bit, a6 and w7 agree bit for bit, and the two
// pairs differ by at most 1 in any sample.
TEST(RgbToYuv420, TierPairsAgreeAndDifferByAtMostOne) {
    for (bool planes : {false, true})
        for (int w : {2, 16, 50, 97})
            for (int h : {2, 6, 9}) {
                const RgbFrame in = RandomRgb(w, h, static_cast<uint32_t>(w * 100 + h + planes));
                const YuvFrame px = RunForward(yuv420_model::kPx, planes, false, in, 2).frame;
                const YuvFrame m6 = RunForward(yuv420_model::kM6, planes, false, in, 2).frame;
                const YuvFrame a6 = RunForward(yuv420_model::kA6, planes, false, in, 2).frame;
                const YuvFrame w7 = RunForward(yuv420_model::kW7, planes, false, in, 2).frame;
                EXPECT_TRUE(Same(px, m6));
                EXPECT_TRUE(Same(a6, w7));
                auto close = [](const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
                    for (size_t i = 0; i < a.size(); ++i)
                        if (std::abs(a[i] - b[i]) > 1) return false;
                    return true;
                };
                EXPECT_TRUE(close(px.y, a6.y) && close(px.u, a6.u) && close(px.v, a6.v))
                    << SourceName(planes) << " " << w << "x" << h;
            }
}


// 3 by 3: the row kernel makes the top-left block, the last column path
// column 2 of lines 0 and 1, the last line path pixels 0 and 1 of line 2,
// and the corner path pixel (2, 2).
TEST(RgbToYuv420, ThreeByThreeRegions) {
    const RgbFrame in = RandomRgb(3, 3, 33);
    for (int tier : yuv420_model::kTiers) {
        SCOPED_TRACE(TierName(tier));
        const YuvFrame out = RunForward(tier, false, true, in).frame;
        // Top-left block: the tier's own arithmetic.
        RgbFrame topLeft = RgbFrame::Make(2, 2);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 2; ++x) topLeft.Set(x, y, in.At(x, y));
        const YuvFrame kernel = yuv420_model::Forward(topLeft, static_cast<Tier>(tier), false);
        EXPECT_EQ(out.U(0, 0), kernel.U(0, 0));
        EXPECT_EQ(out.V(0, 0), kernel.V(0, 0));
        EXPECT_EQ(out.Y(1, 1), kernel.Y(1, 1));
        // Last column: the vertical pair, wide, no bias.
        const auto column = yuv420_model::WideChroma({in.At(2, 0), in.At(2, 1)}, 0);
        EXPECT_EQ(out.U(1, 0), column.u);
        EXPECT_EQ(out.V(1, 0), column.v);
        EXPECT_EQ(out.Y(2, 1), yuv420_model::WideY(in.At(2, 1)));
        // Last line: the horizontal pair.
        const auto line = yuv420_model::WideChroma({in.At(0, 2), in.At(1, 2)}, 0);
        EXPECT_EQ(out.U(0, 1), line.u);
        EXPECT_EQ(out.V(0, 1), line.v);
        // Corner: the pixel alone.
        const auto corner = yuv420_model::WideChroma({in.At(2, 2)}, 0);
        EXPECT_EQ(out.U(1, 1), corner.u);
        EXPECT_EQ(out.V(1, 1), corner.v);
        EXPECT_EQ(out.Y(2, 2), yuv420_model::WideY(in.At(2, 2)));
    }
}

// A step form given the steps its compact form derives writes the same
// bytes as the compact form.
TEST(RgbToYuv420, StepFormWithDerivedStepsEqualsCompactForm) {
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (int w : {1, 5, 16, 37})
                for (int h : {1, 4, 7}) {
                    const RgbFrame in = RandomRgb(w, h, static_cast<uint32_t>(w * h + tier));
                    EXPECT_TRUE(Same(RunForward(tier, planes, true, in).frame,
                                     RunForward(tier, planes, false, in, 0).frame));
                }
}

}  // namespace

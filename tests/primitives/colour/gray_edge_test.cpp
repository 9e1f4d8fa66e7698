// Worked values and edge cases of the gray members, and the exhaustive
// sweep of the 8-bit members over all 2^24 colours.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "gray_harness.h"
#include "primitives/colour/gray_arith.h"
#include "sweep_stride.h"

using namespace gray_harness;
using gray_model::kTiers;
using gray_model::TierName;

namespace {

template <typename Sample>
Source<Sample> Uniform(int w, int h, int channels, Sample r, Sample g, Sample b, Sample a) {
    Source<Sample> s(w, h, channels, 0);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            Sample* p = s.Pixel(x, y);
            p[0] = r;
            p[1] = g;
            p[2] = b;
            if (channels == 4) p[3] = a;
        }
    return s;
}

// Each tier and layout on a 19 by 2 picture of one colour: every pixel,
// main loop and tail alike, must give `expected`.
template <typename Sample>
void ExpectEverywhere(bool weighted, const float* weights, Sample r, Sample g, Sample b, Sample expected) {
    for (int tier : kTiers)
        for (int channels : {3, 4}) {
            const Source<Sample> s = Uniform<Sample>(19, 2, channels, r, g, b, Sample(77));
            const GrayResult<Sample> out = RunGray(tier, weighted, weights, s, 0);
            ASSERT_EQ(out.status, 0);
            for (Sample v : out.gray) ASSERT_EQ(v, expected) << TierName(tier) << " C" << channels;
        }
}

TEST(GrayEdges, WhiteGives255) {
    ExpectEverywhere<uint8_t>(false, nullptr, 255, 255, 255, 255);
    ExpectEverywhere<uint8_t>(true, nullptr, 255, 255, 255, 255);
}

TEST(GrayEdges, BlackGivesZero) { ExpectEverywhere<uint8_t>(false, nullptr, 0, 0, 0, 0); }

// No clamp: weights summing to 3.0 turn 100 into 300, stored as 44.
TEST(GrayEdges, WeightsAboveOneWrapInTheStoredByte) {
    const float w[3] = {1.0f, 1.0f, 1.0f};
    ExpectEverywhere<uint8_t>(true, w, 100, 100, 100, 44);
    // (200 * 4096 * 1.5) >> 12 = 300, again 44.
    const float h[3] = {0.5f, 0.5f, 0.5f};
    ExpectEverywhere<uint8_t>(true, h, 200, 200, 200, 44);
}

TEST(GrayEdges, SignedBlackStaysAtTheBottom) {
    ExpectEverywhere<int16_t>(false, nullptr, -32768, -32768, -32768, -32768);
    ExpectEverywhere<int16_t>(true, nullptr, -32768, -32768, -32768, -32768);
}

TEST(GrayEdges, SixteenBitWhiteAndBlack) {
    ExpectEverywhere<uint16_t>(false, nullptr, 65535, 65535, 65535, 65535);
    ExpectEverywhere<uint16_t>(false, nullptr, 0, 0, 0, 0);
    ExpectEverywhere<int16_t>(false, nullptr, 32767, 32767, 32767, 32767);
}

// 16-bit sums are truncated toward zero: 3 * 0.5 gives 1; a negative sum
// keeps its integer part, stored in 16 bits.
TEST(GrayEdges, SixteenBitSumsTruncateTowardZero) {
    const float half[3] = {0.5f, 0.0f, 0.0f};
    ExpectEverywhere<uint16_t>(true, half, 3, 9, 9, 1);
    const float minus[3] = {-0.5f, 0.0f, 0.0f};
    ExpectEverywhere<uint16_t>(true, minus, 3, 9, 9, static_cast<uint16_t>(-1));
    // Signed: (-3 + 32768) * 0.5 = 16382.5, integer part 16382, less 32768.
    ExpectEverywhere<int16_t>(true, half, -3, 0, 0, static_cast<int16_t>(16382 - 32768));
}

TEST(GrayEdges, NullWeightsGiveTheDefaults) {
    std::mt19937 rng(3);
    for (int channels : {3, 4}) {
        const Source<uint8_t> s8 = RandomSource<uint8_t>(37, 3, channels, 0, 11);
        const Source<uint16_t> s16 = RandomSource<uint16_t>(37, 3, channels, 0, 12);
        const Source<int16_t> ss = RandomSource<int16_t>(37, 3, channels, 0, 13);
        const Source<float> sf = RandomSource<float>(37, 3, channels, 0, 14);
        for (int tier : kTiers) {
            EXPECT_TRUE(SameBits(RunGray(tier, true, nullptr, s8, 0).gray, RunGray(tier, false, nullptr, s8, 0).gray));
            EXPECT_TRUE(SameBits(RunGray(tier, true, nullptr, s16, 0).gray, RunGray(tier, false, nullptr, s16, 0).gray));
            EXPECT_TRUE(SameBits(RunGray(tier, true, nullptr, ss, 0).gray, RunGray(tier, false, nullptr, ss, 0).gray));
            EXPECT_TRUE(SameBits(RunGray(tier, true, nullptr, sf, 0).gray, RunGray(tier, false, nullptr, sf, 0).gray));
        }
    }
}

// The alpha sample is never read: not a number there changes nothing.
TEST(GrayEdges, NotANumberInAlphaDoesNotMatter) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (int tier : kTiers) {
        Source<float> a = RandomSource<float>(23, 2, 4, 0, 21);
        Source<float> b = a;
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 23; ++x) {
                a.Pixel(x, y)[3] = nan;
                b.Pixel(x, y)[3] = 0.0f;
            }
        const GrayResult<float> ra = RunGray(tier, false, nullptr, a, 0);
        const GrayResult<float> rb = RunGray(tier, false, nullptr, b, 0);
        ASSERT_TRUE(SameBits(ra.gray, rb.gray)) << TierName(tier);
        for (float v : ra.gray) ASSERT_FALSE(std::isnan(v));
        ASSERT_TRUE(SameBits(ra.gray, Model(tier, nullptr, a)));
    }
}

TEST(GrayEdges, DefaultWeightsAreTheFloatsOfTheirBitPatterns) {
    const uint32_t bits[3] = {1050220167u, 1058424226u, 1038710997u};
    for (int i = 0; i < 3; ++i) {
        uint32_t b;
        std::memcpy(&b, &pixmoor::colour::gray::kDefaultWeights[i], 4);
        EXPECT_EQ(b, bits[i]);
    }
    const pixmoor::colour::gray::IntWeights k = pixmoor::colour::gray::ToIntWeights(gray_model::DefaultWeights());
    EXPECT_EQ(k.w[0], 1225);
    EXPECT_EQ(k.w[1], 2404);
    EXPECT_EQ(k.w[2], 467);
    EXPECT_EQ(k.w[0] + k.w[1] + k.w[2], 4096);
}

// w * 4096 + 0.5: a sum below 1.0 gives 0, a negative sum the negated
// integer part of its magnitude.
TEST(GrayEdges, EightBitWeightConversion) {
    using pixmoor::colour::gray::ToIntWeight;
    EXPECT_EQ(ToIntWeight(1.0f), 4096);
    EXPECT_EQ(ToIntWeight(0.0001f), 0);       // 0.9096
    EXPECT_EQ(ToIntWeight(1.0f / 8192), 1);   // exactly 1.0
    EXPECT_EQ(ToIntWeight(-0.0001f), 0);      // 0.0904
    EXPECT_EQ(ToIntWeight(-0.001f), -3);      // -3.596
    EXPECT_EQ(ToIntWeight(-0.25f), -1023);    // -1023.5
    EXPECT_EQ(ToIntWeight(2.5f), 10240);
    std::mt19937 rng(5);
    std::uniform_real_distribution<float> d(-10.0f, 10.0f);
    for (int i = 0; i < 100000; ++i) {
        const float w = d(rng);
        ASSERT_EQ(ToIntWeight(w), gray_model::Weight8(w)) << w;
    }
}

// All 2^24 colours with the default weights, in each tier and layout, one
// R value a 256 by 256 picture: each tier gives its model's byte, a gray
// pixel keeps its value, and w7 stays within 1 of px.
TEST(GrayEdges, EveryColourEightBit) {
    for (int channels : {3, 4}) {
        Source<uint8_t> s(256, 256, channels, 0);
        for (int r = 0; r < 256; r += pixmoor_test::SweepStride()) {
            for (int g = 0; g < 256; ++g)
                for (int b = 0; b < 256; ++b) {
                    uint8_t* p = s.Pixel(b, g);
                    p[0] = static_cast<uint8_t>(r);
                    p[1] = static_cast<uint8_t>(g);
                    p[2] = static_cast<uint8_t>(b);
                    if (channels == 4) p[3] = static_cast<uint8_t>(g ^ b);
                }
            const std::vector<uint8_t> plain = Model(gray_model::kPx, nullptr, s);
            const std::vector<uint8_t> lanes = Model(gray_model::kW7, nullptr, s);
            for (size_t i = 0; i < plain.size(); ++i) {
                const int d = lanes[i] - plain[i];
                ASSERT_TRUE(d >= -1 && d <= 1) << r << " " << i;
            }
            ASSERT_EQ(plain[static_cast<size_t>(r) * 256 + r], r);
            ASSERT_EQ(lanes[static_cast<size_t>(r) * 256 + r], r);
            for (int tier : kTiers) {
                const GrayResult<uint8_t> out = RunGray(tier, false, nullptr, s, 0);
                ASSERT_TRUE(SameBits(out.gray, gray_model::Uses8uLanes(tier) ? lanes : plain))
                    << TierName(tier) << " C" << channels << " R " << r;
            }
        }
    }
}

}  // namespace

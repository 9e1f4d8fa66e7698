// Every tier of every gray member against the model of its arithmetic on
// seeded random frames: widths 1 to 40 (around the 3, 4 and 8 pixel steps
// of the kernels and their tails), wider lines, one to several lines,
// padded steps (odd byte steps for the 16-bit and float depths), default,
// null and caller's weights.  The vector forms are also held within their
// bound of the plain form.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "gray_harness.h"

using namespace gray_harness;
using gray_model::kTiers;
using gray_model::TierName;

namespace {

// Caller's weights: the defaults, halves and quarters, a sum above 1.0
// (8-bit results wrap), negative weights, a weight that rounds to 0 at the
// 8-bit scale, weights above 1.0.
const float kWeightSets[][3] = {
    {0.299f, 0.587f, 0.114f}, {0.5f, 0.25f, 0.25f},     {1.0f, 1.0f, 1.0f},
    {-0.25f, 0.75f, 0.6f},    {0.0001f, -0.001f, 1.7f}, {2.5f, -1.25f, 0.3f},
};

struct Size {
    int w, h;
};
std::vector<Size> Sizes() {
    std::vector<Size> s;
    for (int h : {1, 2, 3})
        for (int w = 1; w <= 40; ++w) s.push_back({w, h});
    for (Size big : {Size{333, 5}, Size{1024, 2}, Size{67, 9}}) s.push_back(big);
    return s;
}

// Source padding in bytes: none, or a few bytes that for 16-bit and float
// samples leave an odd byte step (the low bits are dropped).
template <typename Sample>
int SourcePad(int w) {
    return (w % 3 == 0) ? 0 : static_cast<int>(2 * sizeof(Sample)) + 1;
}

template <typename Sample>
void CheckAgainstModel(const char* depth) {
    uint32_t seed = 1;
    for (int tier : kTiers)
        for (int channels : {3, 4})
            for (const Size& sz : Sizes()) {
                const Source<Sample> src = RandomSource<Sample>(sz.w, sz.h, channels, SourcePad<Sample>(sz.w), seed++);
                const int dstPad = (sz.w % 2) * static_cast<int>(sizeof(Sample)) * 3;
                const std::string what = std::string(depth) + " " + TierName(tier) + " C" + std::to_string(channels) +
                                         " " + std::to_string(sz.w) + "x" + std::to_string(sz.h);
                // Defaults three ways: RGBToGray, ColorToGray with null, and
                // ColorToGray with the defaults given.
                const std::vector<Sample> expected = Model(tier, nullptr, src);
                for (int way = 0; way < 3; ++way) {
                    const GrayResult<Sample> r =
                        RunGray(tier, way > 0, way == 2 ? gray_model::DefaultWeights() : nullptr, src, dstPad);
                    ASSERT_EQ(r.status, 0) << what;
                    ASSERT_TRUE(r.outsideUntouched) << what;
                    ASSERT_TRUE(SameBits(r.gray, expected)) << what << " way " << way;
                }
                for (const auto& w : kWeightSets) {
                    const GrayResult<Sample> r = RunGray(tier, true, w, src, dstPad);
                    ASSERT_EQ(r.status, 0) << what;
                    ASSERT_TRUE(r.outsideUntouched) << what;
                    ASSERT_TRUE(SameBits(r.gray, Model(tier, w, src))) << what << " weights " << w[0];
                }
            }
}

TEST(GrayFrames, Depth8uMatchesModelInEveryTier) { CheckAgainstModel<uint8_t>("8u"); }
TEST(GrayFrames, Depth16uMatchesModelInEveryTier) { CheckAgainstModel<uint16_t>("16u"); }
TEST(GrayFrames, Depth16sMatchesModelInEveryTier) { CheckAgainstModel<int16_t>("16s"); }
TEST(GrayFrames, Depth32fMatchesModelInEveryTier) { CheckAgainstModel<float>("32f"); }

// px and m6 run the same arithmetic; so do a6 and px for 8-bit samples.
TEST(GrayFrames, PlainTiersAgreeBitForBit) {
    const Source<uint8_t> s8 = RandomSource<uint8_t>(301, 4, 3, 0, 7);
    const Source<uint16_t> s16 = RandomSource<uint16_t>(301, 4, 4, 0, 8);
    const Source<float> s32 = RandomSource<float>(301, 4, 3, 0, 9);
    for (const auto& w : kWeightSets) {
        EXPECT_TRUE(SameBits(RunGray(gray_model::kM6, true, w, s8, 0).gray, RunGray(gray_model::kPx, true, w, s8, 0).gray));
        EXPECT_TRUE(SameBits(RunGray(gray_model::kA6, true, w, s8, 0).gray, RunGray(gray_model::kPx, true, w, s8, 0).gray));
        EXPECT_TRUE(SameBits(RunGray(gray_model::kM6, true, w, s16, 0).gray, RunGray(gray_model::kPx, true, w, s16, 0).gray));
        EXPECT_TRUE(SameBits(RunGray(gray_model::kM6, true, w, s32, 0).gray, RunGray(gray_model::kPx, true, w, s32, 0).gray));
        EXPECT_TRUE(SameBits(RunGray(gray_model::kA6, true, w, s16, 0).gray, RunGray(gray_model::kW7, true, w, s16, 0).gray));
        EXPECT_TRUE(SameBits(RunGray(gray_model::kA6, true, w, s32, 0).gray, RunGray(gray_model::kW7, true, w, s32, 0).gray));
    }
}

// 16-bit results of `tier` within 1 of px, modulo 65536.
template <typename Sample>
void WithinOneOfPx(int tier, const float* w, int channels, uint32_t seed) {
    const Source<Sample> s = RandomSource<Sample>(517, 6, channels, 0, seed);
    const auto plain = RunGray(gray_model::kPx, true, w, s, 0).gray;
    const auto vector = RunGray(tier, true, w, s, 0).gray;
    for (size_t i = 0; i < plain.size(); ++i) {
        const int d = (static_cast<uint16_t>(vector[i]) - static_cast<uint16_t>(plain[i]) + 65536) % 65536;
        ASSERT_TRUE(d <= 1 || d == 65535) << gray_model::TierName(tier) << " " << i;
    }
}

// Bound of the vector forms against px.
//   8-bit w7: within 1, counted modulo 256 since the results wrap.
//   16-bit a6, w7: within 1, modulo 65536.
//   float a6, w7: within 2^-21 of the sum of the products' magnitudes.
TEST(GrayFrames, VectorFormsStayWithinTheirBoundOfPx) {
    uint32_t seed = 100;
    for (const auto& w : kWeightSets)
        for (int channels : {3, 4}) {
            const Source<uint8_t> s8 = RandomSource<uint8_t>(517, 6, channels, 0, seed++);
            const auto p8 = RunGray(gray_model::kPx, true, w, s8, 0).gray;
            const auto v8 = RunGray(gray_model::kW7, true, w, s8, 0).gray;
            for (size_t i = 0; i < p8.size(); ++i) {
                const int d = (v8[i] - p8[i] + 256) % 256;
                ASSERT_TRUE(d <= 1 || d == 255) << i;
            }
            for (int tier : {gray_model::kA6, gray_model::kW7}) {
                WithinOneOfPx<uint16_t>(tier, w, channels, seed++);
                WithinOneOfPx<int16_t>(tier, w, channels, seed++);
                const Source<float> sf = RandomSource<float>(517, 6, channels, 0, seed++);
                const auto pf = RunGray(gray_model::kPx, true, w, sf, 0).gray;
                const auto vf = RunGray(tier, true, w, sf, 0).gray;
                for (int y = 0; y < 6; ++y)
                    for (int x = 0; x < 517; ++x) {
                        const float* p = sf.Pixel(x, y);
                        const double mag = std::fabs(p[0] * w[0]) + std::fabs(p[1] * w[1]) + std::fabs(p[2] * w[2]);
                        const size_t i = static_cast<size_t>(y) * 517 + x;
                        ASSERT_LE(std::fabs(double(vf[i]) - double(pf[i])), mag * std::ldexp(1.0, -21)) << i;
                    }
            }
        }
}

}  // namespace

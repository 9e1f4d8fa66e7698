// The plain names of the gray members and of the analogue 4:2:2 member
// stand in no dispatch row: they run the tier that PrimGetTier reports.
#include <gtest/gtest.h>

#include "gray_harness.h"

using namespace gray_harness;

namespace {

// Each test may set the reported tier; the fixture puts it back.
class GrayPlainNames : public ::testing::Test {
protected:
    void SetUp() override { saved_ = PrimCurrentTier; }
    void TearDown() override { PrimCurrentTier = saved_; }

private:
    int32_t saved_ = 0;
};

template <typename Sample>
std::vector<Sample> Plain(RgbFn<Sample> f, const Source<Sample>& s) {
    std::vector<Sample> out(static_cast<size_t>(s.width) * s.height);
    EXPECT_EQ(f(s.data.data(), s.stepBytes, out.data(), s.width * static_cast<int32_t>(sizeof(Sample)), s.width, s.height), 0);
    return out;
}
template <typename Sample>
std::vector<Sample> Plain(ColorFn<Sample> f, const Source<Sample>& s, const float* w) {
    std::vector<Sample> out(static_cast<size_t>(s.width) * s.height);
    EXPECT_EQ(f(s.data.data(), s.stepBytes, out.data(), s.width * static_cast<int32_t>(sizeof(Sample)), s.width, s.height, w), 0);
    return out;
}

// Pictures wide enough that the vector tiers' forms show (the 8-bit w7
// lanes and the single-precision float lanes differ from px somewhere in
// them).
TEST_F(GrayPlainNames, RunTheReportedTier) {
    const float w[3] = {0.3f, 0.6f, 0.2f};
    const Source<uint8_t> s8c3 = RandomSource<uint8_t>(61, 3, 3, 0, 1), s8ac4 = RandomSource<uint8_t>(61, 3, 4, 0, 2);
    const Source<uint16_t> s16c3 = RandomSource<uint16_t>(61, 3, 3, 0, 3), s16ac4 = RandomSource<uint16_t>(61, 3, 4, 0, 4);
    const Source<int16_t> ssc3 = RandomSource<int16_t>(61, 3, 3, 0, 5), ssac4 = RandomSource<int16_t>(61, 3, 4, 0, 6);
    const Source<float> sfc3 = RandomSource<float>(61, 3, 3, 0, 7), sfac4 = RandomSource<float>(61, 3, 4, 0, 8);
    for (int tier : gray_model::kTiers) {
        SCOPED_TRACE(gray_model::TierName(tier));
        PrimCurrentTier = tier;
        ASSERT_EQ(PrimGetTier(), tier);
        EXPECT_EQ(Plain<uint8_t>(ImgRGBToGray8uC3, s8c3), Model(tier, nullptr, s8c3));
        EXPECT_EQ(Plain<uint8_t>(ImgRGBToGray8uAC4, s8ac4), Model(tier, nullptr, s8ac4));
        EXPECT_EQ(Plain<uint8_t>(ImgColorToGray8uC3, s8c3, w), Model(tier, w, s8c3));
        EXPECT_EQ(Plain<uint8_t>(ImgColorToGray8uAC4, s8ac4, w), Model(tier, w, s8ac4));
        EXPECT_EQ(Plain<uint16_t>(ImgRGBToGray16uC3, s16c3), Model(tier, nullptr, s16c3));
        EXPECT_EQ(Plain<uint16_t>(ImgRGBToGray16uAC4, s16ac4), Model(tier, nullptr, s16ac4));
        EXPECT_EQ(Plain<uint16_t>(ImgColorToGray16uC3, s16c3, w), Model(tier, w, s16c3));
        EXPECT_EQ(Plain<uint16_t>(ImgColorToGray16uAC4, s16ac4, w), Model(tier, w, s16ac4));
        EXPECT_EQ(Plain<int16_t>(ImgRGBToGray16sC3, ssc3), Model(tier, nullptr, ssc3));
        EXPECT_EQ(Plain<int16_t>(ImgRGBToGray16sAC4, ssac4), Model(tier, nullptr, ssac4));
        EXPECT_EQ(Plain<int16_t>(ImgColorToGray16sC3, ssc3, w), Model(tier, w, ssc3));
        EXPECT_EQ(Plain<int16_t>(ImgColorToGray16sAC4, ssac4, w), Model(tier, w, ssac4));
        EXPECT_TRUE(SameBits(Plain<float>(ImgRGBToGray32fC3, sfc3), Model(tier, nullptr, sfc3)));
        EXPECT_TRUE(SameBits(Plain<float>(ImgRGBToGray32fAC4, sfac4), Model(tier, nullptr, sfac4)));
        EXPECT_TRUE(SameBits(Plain<float>(ImgColorToGray32fC3, sfc3, w), Model(tier, w, sfc3)));
        EXPECT_TRUE(SameBits(Plain<float>(ImgColorToGray32fAC4, sfac4, w), Model(tier, w, sfac4)));

        std::vector<uint8_t> a(2 * 61 * 3), b(2 * 61 * 3);
        EXPECT_EQ(ImgRGBToYUV422C3C2(s8c3.data.data(), s8c3.stepBytes, a.data(), 122, 61, 3), 0);
        EXPECT_EQ(Analog422Entry(tier)(s8c3.data.data(), s8c3.stepBytes, b.data(), 122, 61, 3), 0);
        EXPECT_EQ(a, b);
    }
}

// The vector forms really differ from px in these pictures, so the test
// above tells the tiers apart.
TEST_F(GrayPlainNames, PicturesTellTheTiersApart) {
    const float w[3] = {0.3f, 0.6f, 0.2f};
    const Source<uint8_t> s8 = RandomSource<uint8_t>(61, 3, 3, 0, 1);
    const Source<float> sf = RandomSource<float>(61, 3, 3, 0, 7);
    EXPECT_NE(Model(gray_model::kW7, w, s8), Model(gray_model::kPx, w, s8));
    EXPECT_FALSE(SameBits(Model(gray_model::kW7, w, sf), Model(gray_model::kPx, w, sf)));
}

}  // namespace

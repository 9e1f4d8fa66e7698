// The edge cases of the moments members.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "moments_model.h"

using namespace moments_test;

TEST(MomentsEdgeCases, ReadOutBeforeAnyComputeIsAnIllegalChannel) {
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        State state(tier);
        ASSERT_EQ(state->channelCount, -1);
        double value = 1.5;
        double hu[7] = {};
        for (int32_t channel : {-2, -1, 0, 1, 2, 3}) {
            EXPECT_EQ(tier.spatial(state.get(), 0, 0, channel, ImgPoint{0, 0}, &value), PrimStatusBadChannelCount);
            EXPECT_EQ(tier.central(state.get(), 1, 1, channel, &value), PrimStatusBadChannelCount);
            EXPECT_EQ(tier.normSpatial(state.get(), 0, 2, channel, ImgPoint{0, 0}, &value),
                      PrimStatusBadChannelCount);
            EXPECT_EQ(tier.normCentral(state.get(), 2, 0, channel, &value), PrimStatusBadChannelCount);
            EXPECT_EQ(tier.hu(state.get(), channel, hu), PrimStatusBadChannelCount);
        }
        EXPECT_EQ(value, 1.5);
    }
}

TEST(MomentsEdgeCases, NegativeOrderWithinThreeReturnsOkAndWritesNothing) {
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        State state(tier);
        Image image(k8uC1, 4, 4);
        image.FillRandom(2);
        image.Set(1, 1, 0, 50);
        ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
        for (auto [m, n] : {std::pair{-1, 0}, {0, -1}, {-1, 4}, {4, -1}, {-5, -5}, {INT_MIN, 3}, {1, -4}, {3, INT_MIN}}) {
            double value = 42.0;
            EXPECT_EQ(tier.spatial(state.get(), m, n, 0, ImgPoint{1, 1}, &value), PrimStatusOk) << m << "," << n;
            EXPECT_EQ(value, 42.0);
            EXPECT_EQ(tier.central(state.get(), m, n, 0, &value), PrimStatusOk) << m << "," << n;
            EXPECT_EQ(value, 42.0);
        }
    }
}

// Reading: the normalised read-outs scale whatever the plain read-out left in
// the caller's double.  With a negative order that is the caller's own value,
// so the call returns 0 and the value comes back multiplied by the factor.
TEST(MomentsEdgeCases, NormalisedReadOutWithNegativeOrderScalesTheCallersValue) {
    Image image(k8uC1, 3, 3);
    image.Fill(4);  // M(0,0) = 36
    for (const Tier& tier : Tiers()) {
        State state(tier);
        ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
        double value = 2.0;
        EXPECT_EQ(tier.normSpatial(state.get(), -1, 1, 0, ImgPoint{0, 0}, &value), PrimStatusOk);
        EXPECT_EQ(value, 2.0 * std::pow(36.0, -1.0));
        value = 2.0;
        EXPECT_EQ(tier.normCentral(state.get(), 0, -2, 0, &value), PrimStatusOk);
        EXPECT_EQ(value, 2.0 * std::pow(36.0, 0.0));
    }
}

TEST(MomentsEdgeCases, NormalisedSpatialOfZerosIsTooSmallWithThePlainValueWritten) {
    for (const Tier& tier : Tiers())
        for (Layout layout : {k8uC1, k8uAC4, k32fC3}) {
            SCOPED_TRACE(std::string(tier.name) + Info(layout).name);
            Image image(layout, 7, 3);
            image.Fill(0);
            State state(tier);
            ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
            for (auto [m, n] : {std::pair{0, 0}, {1, 2}, {3, 0}}) {
                double value = 99.0;
                EXPECT_EQ(tier.normSpatial(state.get(), m, n, 0, ImgPoint{5, -3}, &value),
                          PrimStatusMomentTooSmall);
                EXPECT_TRUE(SameBits(value, 0.0));
            }
        }
}

TEST(MomentsEdgeCases, NegativeMassGivesNotANumberWithStatusOk) {
    Image image(k32fC1, 4, 3);
    image.Fill(-0.5);  // M(0,0) = -6
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        State state(tier);
        ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
        ASSERT_EQ(state->channelMoments[0][0], -6.0);
        double value = 0.0;
        // Exponent (1 + 0 + 2) * -0.5 = -1.5 of a negative base.
        EXPECT_EQ(tier.normSpatial(state.get(), 1, 0, 0, ImgPoint{0, 0}, &value), PrimStatusOk);
        EXPECT_TRUE(std::isnan(value));
        EXPECT_EQ(tier.normCentral(state.get(), 0, 3, 0, &value), PrimStatusOk);
        EXPECT_TRUE(std::isnan(value));
        // An even total order keeps a whole exponent: (0 + 0 + 2) * -0.5 = -1.
        EXPECT_EQ(tier.normSpatial(state.get(), 0, 0, 0, ImgPoint{0, 0}, &value), PrimStatusOk);
        EXPECT_EQ(value, 1.0);
        double hu[7];
        EXPECT_EQ(tier.hu(state.get(), 0, hu), PrimStatusOk);
        EXPECT_TRUE(std::isnan(hu[2]));  // third-order terms carry M(0,0)^-2.5
    }
}

TEST(MomentsEdgeCases, FourChannelSourcesKeepThreeChannels) {
    for (const Tier& tier : Tiers())
        for (Layout layout : {k8uAC4, k32fAC4}) {
            SCOPED_TRACE(std::string(tier.name) + Info(layout).name);
            Image image(layout, 5, 5);
            image.Fill(1);
            State state(tier);
            ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
            EXPECT_EQ(state->channelCount, 3);
            double value = 0;
            EXPECT_EQ(tier.spatial(state.get(), 0, 0, 2, ImgPoint{0, 0}, &value), PrimStatusOk);
            EXPECT_EQ(value, 25.0);
            EXPECT_EQ(tier.spatial(state.get(), 0, 0, 3, ImgPoint{0, 0}, &value), PrimStatusBadChannelCount);
            double hu[7];
            EXPECT_EQ(tier.hu(state.get(), 3, hu), PrimStatusBadChannelCount);
        }
}

TEST(MomentsEdgeCases, ChannelCountFollowsTheLastCompute) {
    for (const Tier& tier : Tiers()) {
        State state(tier);
        const int expected[kLayoutCount] = {1, 3, 3, 1, 3, 3};
        for (int l = 0; l < kLayoutCount; ++l) {
            Image image(static_cast<Layout>(l), 2, 2);
            image.Fill(3);
            ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
            EXPECT_EQ(state->channelCount, expected[l]) << Info(static_cast<Layout>(l)).name;
        }
    }
}

TEST(MomentsEdgeCases, RowsFollowTheStepAndPaddingIsNotRead) {
    // Padding bytes that would change every moment if they were read.
    for (int l = 0; l < kLayoutCount; ++l) {
        const Layout layout = static_cast<Layout>(l);
        Image tight(layout, 5, 4, 0, 0);
        Image padded(layout, 5, 4, 0, 12);
        tight.FillRandom(31);
        std::memset(padded.bytes(), 0x7F, static_cast<size_t>(padded.step()) * 4);
        for (int32_t y = 0; y < 4; ++y)
            for (int32_t x = 0; x < 5; ++x)
                for (int s = 0; s < Info(layout).samples; ++s) padded.Set(x, y, s, tight.Get(x, y, s));
        // The lane forms split rows by their alignment, which the step
        // changes; the plain sums do not, so they compare across steps.
        for (const Tier& tier : Tiers()) {
            State a(tier, PrimAlgHintAccurate), b(tier, PrimAlgHintAccurate);
            ASSERT_EQ(Compute(tier, tight, a.get()), PrimStatusOk);
            ASSERT_EQ(Compute(tier, padded, b.get()), PrimStatusOk);
            if (&tier == &TierW7()) continue;
            EXPECT_EQ(a->channelCount, b->channelCount);
            const Moments ma = MomentsOf(a.get()), mb = MomentsOf(b.get());
            EXPECT_EQ(std::memcmp(&ma, &mb, sizeof(Moments)), 0) << tier.name << Info(layout).name;
        }
        for (const Image* image : {&tight, &padded}) {
            State fast(TierA6(), PrimAlgHintFast), lanes(TierW7());
            ASSERT_EQ(Compute(TierA6(), *image, fast.get()), PrimStatusOk);
            ASSERT_EQ(Compute(TierW7(), *image, lanes.get()), PrimStatusOk);
            const Moments want4 = ModelFourFloatLanes(*image), want2 = ModelTwoLanes(*image);
            const Moments got4 = MomentsOf(fast.get()), got2 = MomentsOf(lanes.get());
            EXPECT_EQ(std::memcmp(&want4, &got4, sizeof(Moments)), 0) << Info(layout).name;
            EXPECT_EQ(std::memcmp(&want2, &got2, sizeof(Moments)), 0) << Info(layout).name;
        }
    }
}

// Every failure row of the compute members and the read-outs: the status of
// each bad argument, the order of the checks, and that a failing call
// changes neither the state nor the caller's results.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "moments_fixture.h"

using namespace moments_test;

namespace {

// A state that already holds the moments of a small image, so that any
// write by a failing call would show.
void Prime(const Tier& tier, ImgMomentState* state, Layout layout = k8uC3) {
    Image image(layout, 5, 3);
    image.FillRandom(17);
    ASSERT_EQ(Compute(tier, image, state), PrimStatusOk);
}

}  // namespace

TEST(MomentsFailures, ComputeChecksInOrder) {
    for (const Tier& tier : Tiers())
        for (int l = 0; l < kLayoutCount; ++l) {
            const Layout layout = static_cast<Layout>(l);
            SCOPED_TRACE(std::string(tier.name) + Info(layout).name);
            const int32_t rowBytes = 6 * PixelBytes(layout);
            Image image(layout, 6, 4, 0, 0);
            image.FillRandom(3);
            State state(tier);
            Prime(tier, state.get());
            const std::vector<uint8_t> before = Snapshot(state.get());
            ImgMomentState bad = *state.get();
            bad.magic = 34;
            const std::vector<uint8_t> badBefore = Snapshot(&bad);

            auto run = [&](const void* src, int32_t step, int32_t w, int32_t h, ImgMomentState* s) {
                if (Info(layout).elementBytes == 1)
                    return tier.compute8u[layout](static_cast<const uint8_t*>(src), step, w, h, s);
                return tier.compute32f[layout - k32fC1](static_cast<const float*>(src), step, w, h, s);
            };
            const uint8_t* src = image.bytes();

            // Null pointers first, before the record is even looked at.
            EXPECT_EQ(run(nullptr, rowBytes, 6, 4, state.get()), PrimStatusNullPointer);
            EXPECT_EQ(run(src, rowBytes, 6, 4, nullptr), PrimStatusNullPointer);
            EXPECT_EQ(run(nullptr, 0, 0, 0, &bad), PrimStatusNullPointer);
            // Then the record.
            EXPECT_EQ(run(src, rowBytes, 6, 4, &bad), PrimStatusContextMismatch);
            EXPECT_EQ(run(src, 0, 0, 0, &bad), PrimStatusContextMismatch);
            // Then the step.
            for (int32_t step : {0, -1, INT_MIN}) EXPECT_EQ(run(src, step, 6, 4, state.get()), PrimStatusStepError);
            EXPECT_EQ(run(src, 0, 0, -3, state.get()), PrimStatusStepError);
            // Then the size.
            for (auto [w, h] : {std::pair{0, 4}, {6, 0}, {-1, 4}, {6, -1}, {INT_MIN, INT_MIN}})
                EXPECT_EQ(run(src, rowBytes, w, h, state.get()), PrimStatusSizeError) << w << "x" << h;
            EXPECT_EQ(run(src, 1, 0, 4, state.get()), PrimStatusSizeError);
            EXPECT_EQ(run(src, 1, 7, 0, state.get()), PrimStatusSizeError);
            // Last the row length against the step.
            EXPECT_EQ(run(src, rowBytes - 1, 6, 4, state.get()), PrimStatusStrideTooSmall);
            EXPECT_EQ(run(src, 1, INT_MAX, 1, state.get()), PrimStatusStrideTooSmall);
            // Row bytes are counted in full, not cut to 32 bits: 2^30 pixels
            // of 3 bytes or more are longer than any 32-bit step.
            if (PixelBytes(layout) > 1) {
                EXPECT_EQ(run(src, INT_MAX, 1 << 30, 1, state.get()), PrimStatusStrideTooSmall);
            }

            EXPECT_EQ(Snapshot(state.get()), before);
            EXPECT_EQ(Snapshot(&bad), badBefore);
            // A row step exactly the row length is fine.
            EXPECT_EQ(run(src, rowBytes, 6, 4, state.get()), PrimStatusOk);
        }
}

TEST(MomentsFailures, ReadOutsCheckInOrder) {
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        State state(tier);
        Prime(tier, state.get());
        const std::vector<uint8_t> before = Snapshot(state.get());
        ImgMomentState bad = *state.get();
        bad.magic = 0;
        const ImgPoint at{1, 2};
        const double kUntouched = -777.25;
        double value = kUntouched;

        // Each read-out in the two forms that share these checks.
        auto spatial = [&](const ImgMomentState* s, int32_t m, int32_t n, int32_t c, double* out) {
            return tier.spatial(s, m, n, c, at, out);
        };
        auto central = [&](const ImgMomentState* s, int32_t m, int32_t n, int32_t c, double* out) {
            return tier.central(s, m, n, c, out);
        };
        for (int form = 0; form < 2; ++form) {
            auto read = [&](const ImgMomentState* s, int32_t m, int32_t n, int32_t c, double* out) {
                return form == 0 ? spatial(s, m, n, c, out) : central(s, m, n, c, out);
            };
            SCOPED_TRACE(form == 0 ? "spatial" : "central");
            EXPECT_EQ(read(nullptr, 0, 0, 0, &value), PrimStatusNullPointer);
            EXPECT_EQ(read(state.get(), 0, 0, 0, nullptr), PrimStatusNullPointer);
            EXPECT_EQ(read(&bad, 9, 9, 9, nullptr), PrimStatusNullPointer);
            EXPECT_EQ(read(&bad, 0, 0, 0, &value), PrimStatusContextMismatch);
            EXPECT_EQ(read(&bad, 9, 9, 9, &value), PrimStatusContextMismatch);
            for (auto [m, n] : {std::pair{4, 0}, {0, 4}, {2, 2}, {3, 1}, {1, 3}, {100, -90}, {INT_MAX, 1}, {4, -0}})
                EXPECT_EQ(read(state.get(), m, n, 0, &value), PrimStatusSizeError) << m << "," << n;
            EXPECT_EQ(read(state.get(), 2, 2, 7, &value), PrimStatusSizeError);  // order before the channel
            for (int32_t channel : {-1, 3, 4, INT_MIN})
                EXPECT_EQ(read(state.get(), 1, 1, channel, &value), PrimStatusBadChannelCount) << channel;
            EXPECT_EQ(value, kUntouched);
        }

        // The normalised forms test their out pointer, then report the plain
        // read-out's status.
        EXPECT_EQ(tier.normSpatial(state.get(), 0, 0, 0, at, nullptr), PrimStatusNullPointer);
        EXPECT_EQ(tier.normCentral(state.get(), 0, 0, 0, nullptr), PrimStatusNullPointer);
        EXPECT_EQ(tier.normSpatial(nullptr, 0, 0, 0, at, &value), PrimStatusNullPointer);
        EXPECT_EQ(tier.normCentral(nullptr, 0, 0, 0, &value), PrimStatusNullPointer);
        EXPECT_EQ(tier.normSpatial(&bad, 0, 0, 0, at, &value), PrimStatusContextMismatch);
        EXPECT_EQ(tier.normCentral(&bad, 0, 0, 0, &value), PrimStatusContextMismatch);
        EXPECT_EQ(tier.normSpatial(state.get(), 2, 2, 0, at, &value), PrimStatusSizeError);
        EXPECT_EQ(tier.normCentral(state.get(), 0, 4, 0, &value), PrimStatusSizeError);
        EXPECT_EQ(tier.normSpatial(state.get(), 1, 1, 3, at, &value), PrimStatusBadChannelCount);
        EXPECT_EQ(tier.normCentral(state.get(), 1, 1, -1, &value), PrimStatusBadChannelCount);
        EXPECT_EQ(value, kUntouched);

        double hu[7];
        for (double& h : hu) h = kUntouched;
        EXPECT_EQ(tier.hu(nullptr, 0, hu), PrimStatusNullPointer);
        EXPECT_EQ(tier.hu(state.get(), 0, nullptr), PrimStatusNullPointer);
        EXPECT_EQ(tier.hu(&bad, 9, hu), PrimStatusContextMismatch);
        for (int32_t channel : {-1, 3, INT_MAX}) EXPECT_EQ(tier.hu(state.get(), channel, hu), PrimStatusBadChannelCount);
        for (double h : hu) EXPECT_EQ(h, kUntouched);

        EXPECT_EQ(Snapshot(state.get()), before);
    }
}

TEST(MomentsFailures, MassNotAbove2ToMinus52) {
    const double limit = std::ldexp(1.0, -52);
    ASSERT_EQ(limit, 2.220446049250313e-16);
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        // Just above the limit by one step of a float, since the image is one.
        const double above = std::nextafter(static_cast<float>(limit), 1.0f);
        for (double mass : {0.0, limit, -limit, above, -above,
                            std::numeric_limits<double>::quiet_NaN()}) {
            SCOPED_TRACE(mass);
            // One float pixel at the origin: M(0,0) is its value.
            Image image(k32fC1, 1, 1);
            image.Set(0, 0, 0, mass);
            ASSERT_EQ(static_cast<double>(static_cast<float>(mass)) == mass || std::isnan(mass), true);
            State state(tier, PrimAlgHintAccurate);
            ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
            const bool tooSmall = !(std::fabs(mass) > limit);
            const PrimStatus want = tooSmall ? PrimStatusMomentTooSmall : PrimStatusOk;

            double value = -5.0;
            EXPECT_EQ(tier.central(state.get(), 0, 0, 0, &value), want);
            if (tooSmall) {
                EXPECT_EQ(value, -5.0);
            }
            value = -5.0;
            EXPECT_EQ(tier.normCentral(state.get(), 0, 2, 0, &value), want);
            if (tooSmall) {
                EXPECT_EQ(value, -5.0);
            }
            double hu[7] = {-5, -5, -5, -5, -5, -5, -5};
            EXPECT_EQ(tier.hu(state.get(), 0, hu), want);
            if (tooSmall) {
                for (double h : hu) EXPECT_EQ(h, -5.0);
            }
            // Spatial read-outs need no mass; the normalised one writes the
            // plain value before it tests the mass.
            value = -5.0;
            EXPECT_EQ(tier.spatial(state.get(), 0, 0, 0, ImgPoint{0, 0}, &value), PrimStatusOk);
            value = -5.0;
            EXPECT_EQ(tier.normSpatial(state.get(), 0, 0, 0, ImgPoint{0, 0}, &value), want);
            if (tooSmall) {
                EXPECT_TRUE(SameBits(value, mass) || (std::isnan(mass) && std::isnan(value)));
            }
            // The mass check of the central read-out comes after the channel.
            EXPECT_EQ(tier.central(state.get(), 0, 0, 1, &value), PrimStatusBadChannelCount);
        }
    }
}

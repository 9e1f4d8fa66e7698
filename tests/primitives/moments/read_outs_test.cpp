// Read-outs against direct sums over the pixels: shifted coordinates for the
// spatial moments, coordinates about the centroid for the central ones, and
// the invariants built from directly summed central moments.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "moments_model.h"

using namespace moments_test;

namespace {

using Real = long double;

Real Power(Real base, int exponent) {
    Real result = 1.0L;
    for (int k = 0; k < exponent; ++k) result *= base;
    return result;
}

// Sum over pixels of (x + X)^m (y + Y)^n v, and of its absolute terms.
struct DirectSum {
    Real value = 0.0L;
    Real scale = 0.0L;
};

DirectSum Shifted(const Image& img, int c, int m, int n, Real X, Real Y) {
    DirectSum sum;
    for (int32_t y = 0; y < img.height(); ++y)
        for (int32_t x = 0; x < img.width(); ++x) {
            const Real v = img.Get(x, y, c);
            const Real term = Power(x + X, m) * Power(y + Y, n) * v;
            sum.value += term;
            // Every product in the library's expansion is bounded by this.
            sum.scale += Power(std::fabs(Real(x)) + std::fabs(X), m) * Power(std::fabs(Real(y)) + std::fabs(Y), n) *
                         std::fabs(v);
        }
    return sum;
}

Real Mass(const Image& img, int c) { return Shifted(img, c, 0, 0, 0, 0).value; }

DirectSum Centred(const Image& img, int c, int m, int n) {
    const Real mass = Mass(img, c);
    const Real xc = Shifted(img, c, 1, 0, 0, 0).value / mass;
    const Real yc = Shifted(img, c, 0, 1, 0, 0).value / mass;
    return Shifted(img, c, m, n, -xc, -yc);
}

// The ten orders of the read-out tables.
const Order kReadOrders[10] = {{0, 0}, {0, 1}, {0, 2}, {0, 3}, {1, 0}, {1, 1}, {1, 2}, {2, 0}, {2, 1}, {3, 0}};

// Byte images and positive float images of a few shapes.
std::vector<Image> SmallImages() {
    std::vector<Image> images;
    uint32_t seed = 300;
    for (Layout layout : {k8uC1, k8uC3, k8uAC4, k32fC1, k32fC3, k32fAC4})
        for (auto [w, h] : {std::pair{1, 1}, {3, 2}, {5, 7}, {8, 8}, {13, 4}}) {
            Image image(layout, w, h, 0, 4);
            image.FillRandom(seed++);
            if (Info(layout).elementBytes == 4)
                for (int32_t y = 0; y < h; ++y)
                    for (int32_t x = 0; x < w; ++x)
                        for (int s = 0; s < 3; ++s) image.Set(x, y, s, std::fabs(image.Get(x, y, s)) + 0.25);
            else
                image.Set(0, 0, 0, 1);  // no all-zero channel
            images.push_back(image);
        }
    return images;
}

const ImgPoint kOffsets[] = {{0, 0}, {3, -2}, {-7, 5}, {100, 40}, {-1, -1}};

constexpr Real kTolerance = 1e-12L;

// Runs `check(image, tier, state)` for every small image in every tier, the
// state holding the image's moments.
template <typename Check>
void ForEachComputedState(Check check) {
    for (const Image& image : SmallImages())
        for (const Tier& tier : Tiers()) {
            SCOPED_TRACE(std::string(tier.name) + Info(image.layout()).name + " " + std::to_string(image.width()) +
                         "x" + std::to_string(image.height()));
            State state(tier, PrimAlgHintAccurate);
            ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
            check(image, tier, state.get());
        }
}

}  // namespace

TEST(MomentsReadOuts, SpatialMomentsAreMomentsOfTheShiftedImage) {
    ForEachComputedState([](const Image& image, const Tier& tier, const ImgMomentState* state) {
        for (int c = 0; c < Info(image.layout()).channels; ++c)
            for (const ImgPoint& offset : kOffsets)
                for (const Order& o : kReadOrders) {
                    double value = -12345.0;
                    ASSERT_EQ(tier.spatial(state, o.p, o.q, c, offset, &value), PrimStatusOk);
                    const DirectSum want = Shifted(image, c, o.p, o.q, offset.x, offset.y);
                    EXPECT_LE(std::fabs(value - want.value), kTolerance * want.scale + 1e-300L)
                        << o.p << "," << o.q << " offset " << offset.x << "," << offset.y;

                    double normalised = -12345.0;
                    ASSERT_EQ(tier.normSpatial(state, o.p, o.q, c, offset, &normalised), PrimStatusOk);
                    const Real factor = std::pow(Mass(image, c), -(o.p + o.q + 2) / 2.0L);
                    EXPECT_LE(std::fabs(normalised - want.value * factor), kTolerance * want.scale * factor)
                        << "normalised " << o.p << "," << o.q;
                }
    });
}

TEST(MomentsReadOuts, CentralMomentsAreMomentsAboutTheCentroid) {
    ForEachComputedState([](const Image& image, const Tier& tier, const ImgMomentState* state) {
        for (int c = 0; c < Info(image.layout()).channels; ++c)
            for (const Order& o : kReadOrders) {
                double value = -12345.0;
                ASSERT_EQ(tier.central(state, o.p, o.q, c, &value), PrimStatusOk);
                const DirectSum want = Centred(image, c, o.p, o.q);
                // The stored moments about the origin carry the scale of
                // the uncentred sums into the subtraction.
                const Real scale = Shifted(image, c, o.p, o.q, 0, 0).scale + want.scale;
                EXPECT_LE(std::fabs(value - want.value), kTolerance * scale) << o.p << "," << o.q;

                double normalised = -12345.0;
                ASSERT_EQ(tier.normCentral(state, o.p, o.q, c, &normalised), PrimStatusOk);
                const Real factor = std::pow(Mass(image, c), -(o.p + o.q + 2) / 2.0L);
                EXPECT_LE(std::fabs(normalised - want.value * factor), kTolerance * scale * factor)
                    << "normalised " << o.p << "," << o.q;
            }
    });
}

TEST(MomentsReadOuts, FirstOrderCentralMomentsAreExactlyZero) {
    Image image(k32fC1, 7, 5);
    image.FillRandom(8);  // mixed signs: the formula would not give 0 exactly
    for (const Tier& tier : Tiers()) {
        State state(tier, PrimAlgHintAccurate);
        ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
        for (auto [m, n] : {std::pair{0, 1}, {1, 0}}) {
            double value = -1.0;
            ASSERT_EQ(tier.central(state.get(), m, n, 0, &value), PrimStatusOk);
            EXPECT_TRUE(SameBits(value, 0.0));
        }
    }
}

namespace {

// The seven invariants from directly summed normalised central moments.  The
// fifth keeps (e03 + e12)^2 in its first bracket, as this library returns it.
std::vector<Real> DirectInvariants(const Image& image, int c) {
    const Real mass = Mass(image, c);
    auto eta = [&](int p, int q) { return Centred(image, c, p, q).value / std::pow(mass, (p + q + 2) / 2.0L); };
    const Real e20 = eta(2, 0), e02 = eta(0, 2), e11 = eta(1, 1);
    const Real e30 = eta(3, 0), e21 = eta(2, 1), e12 = eta(1, 2), e03 = eta(0, 3);
    const Real a = e30 + e12, b = e21 + e03, cc = e30 - 3 * e12, d = 3 * e21 - e03, e = e03 + e12;
    return {e20 + e02,
            (e20 - e02) * (e20 - e02) + 4 * e11 * e11,
            cc * cc + d * d,
            a * a + b * b,
            cc * a * (e * e - 3 * b * b) + d * b * (3 * a * a - b * b),
            (e20 - e02) * (a * a - b * b) + 4 * e11 * a * b,
            d * a * (a * a - 3 * b * b) - cc * b * (3 * a * a - b * b)};
}

}  // namespace

TEST(MomentsReadOuts, InvariantsFromCentralMoments) {
    ForEachComputedState([](const Image& image, const Tier& tier, const ImgMomentState* state) {
        if (image.width() * image.height() < 4) return;  // a single pixel has no shape
        for (int c = 0; c < Info(image.layout()).channels; ++c) {
            double hu[7];
            ASSERT_EQ(tier.hu(state, c, hu), PrimStatusOk);
            const std::vector<Real> want = DirectInvariants(image, c);
            // Invariants of order k scale with the k-th power of the
            // normalised moments; compare relative to the first.
            const Real unit = std::fabs(want[0]);
            const Real scales[7] = {unit,           unit * unit,    unit * unit * unit, unit * unit * unit,
                                    Power(unit, 6), Power(unit, 4), Power(unit, 6)};
            for (int k = 0; k < 7; ++k)
                EXPECT_LE(std::fabs(hu[k] - want[k]), 1e-8L * scales[k]) << "invariant " << k + 1;
        }
    });
}

TEST(MomentsReadOuts, FifthInvariantKeepsE03PlusE12InItsFirstBracket) {
    // A lopsided shape, so that e30 and e03 differ.
    Image image(k8uC1, 6, 5);
    image.Fill(0);
    const int pixels[][3] = {{0, 0, 9}, {1, 0, 200}, {5, 0, 30}, {2, 1, 80}, {0, 4, 255}, {3, 3, 17}, {4, 2, 120}};
    for (const auto& p : pixels) image.Set(p[0], p[1], 0, p[2]);
    const std::vector<Real> want = DirectInvariants(image, 0);

    // The symmetric textbook form, with a in the bracket, for contrast.
    const Real mass = Mass(image, 0);
    auto eta = [&](int p, int q) { return Centred(image, 0, p, q).value / std::pow(mass, (p + q + 2) / 2.0L); };
    const Real a = eta(3, 0) + eta(1, 2), b = eta(2, 1) + eta(0, 3);
    const Real cc = eta(3, 0) - 3 * eta(1, 2), d = 3 * eta(2, 1) - eta(0, 3);
    const Real symmetric = cc * a * (a * a - 3 * b * b) + d * b * (3 * a * a - b * b);
    ASSERT_GT(std::fabs(symmetric - want[4]), 1e-6L * std::fabs(want[4]));

    for (const Tier& tier : Tiers()) {
        State state(tier, PrimAlgHintAccurate);
        ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
        double hu[7];
        ASSERT_EQ(tier.hu(state.get(), 0, hu), PrimStatusOk);
        EXPECT_LE(std::fabs(hu[4] - want[4]), 1e-9L * std::fabs(want[4])) << tier.name;
    }
}

TEST(MomentsReadOuts, ReadOutsAreTheSameInEveryTier) {
    Image image(k32fC3, 10, 6);
    image.FillRandom(44);
    State source(TierPx(), PrimAlgHintAccurate);
    ASSERT_EQ(Compute(TierPx(), image, source.get()), PrimStatusOk);
    for (const Tier& tier : Tiers())
        for (const Order& o : kReadOrders) {
            double a = 0, b = 0;
            ASSERT_EQ(TierPx().spatial(source.get(), o.p, o.q, 1, ImgPoint{2, -3}, &a), PrimStatusOk);
            ASSERT_EQ(tier.spatial(source.get(), o.p, o.q, 1, ImgPoint{2, -3}, &b), PrimStatusOk);
            EXPECT_TRUE(SameBits(a, b));
            ASSERT_EQ(TierPx().central(source.get(), o.p, o.q, 2, &a), PrimStatusOk);
            ASSERT_EQ(tier.central(source.get(), o.p, o.q, 2, &b), PrimStatusOk);
            EXPECT_TRUE(SameBits(a, b));
        }
}

TEST(MomentsReadOuts, PlainNamesOfTheOtherReadOuts) {
    Image image(k8uC1, 5, 4);
    image.FillRandom(3);
    image.Set(0, 0, 0, 9);
    State state(TierPx(), PrimAlgHintAccurate);
    ASSERT_EQ(Compute(TierPx(), image, state.get()), PrimStatusOk);
    double a = 0, b = 0;
    ASSERT_EQ(ImgGetCentralMoment(state.get(), 2, 1, 0, &a), PrimStatusOk);
    ASSERT_EQ(px_ImgGetCentralMoment(state.get(), 2, 1, 0, &b), PrimStatusOk);
    EXPECT_TRUE(SameBits(a, b));
    ASSERT_EQ(ImgGetNormalizedSpatialMoment(state.get(), 1, 2, 0, ImgPoint{1, 1}, &a), PrimStatusOk);
    ASSERT_EQ(px_ImgGetNormalizedSpatialMoment(state.get(), 1, 2, 0, ImgPoint{1, 1}, &b), PrimStatusOk);
    EXPECT_TRUE(SameBits(a, b));
    ASSERT_EQ(ImgGetNormalizedCentralMoment(state.get(), 0, 3, 0, &a), PrimStatusOk);
    ASSERT_EQ(px_ImgGetNormalizedCentralMoment(state.get(), 0, 3, 0, &b), PrimStatusOk);
    EXPECT_TRUE(SameBits(a, b));
    double hu1[7], hu2[7];
    ASSERT_EQ(ImgGetHuMoments(state.get(), 0, hu1), PrimStatusOk);
    ASSERT_EQ(px_ImgGetHuMoments(state.get(), 0, hu2), PrimStatusOk);
    for (int k = 0; k < 7; ++k) EXPECT_TRUE(SameBits(hu1[k], hu2[k]));
}

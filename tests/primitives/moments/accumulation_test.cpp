// The compute members of every tier against the scalar models: the plain
// double sums exactly for px, m6 and a6 asked for accuracy; the two-lane
// form of w7 exactly against its model and within the rounding of reordered
// additions of the reference; the four float lanes of a6 exactly against
// their model, and where they must part from the reference.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "moments_model.h"
#include "primitives/moments/moment_members.h"

using namespace moments_test;

namespace {

struct Size {
    int32_t width, height;
};

// Widths around the group of four, the 16-byte prefix and longer rows.
const Size kSizes[] = {{1, 1},  {1, 5},  {2, 3},  {3, 1},  {4, 4},  {5, 7},  {7, 3},  {8, 2},
                       {9, 2},  {12, 3}, {15, 3}, {16, 5}, {17, 4}, {19, 2}, {23, 3}, {31, 2},
                       {32, 3}, {33, 3}, {47, 2}, {64, 2}, {65, 1}, {100, 3}, {257, 2}};

// Start offsets: aligned, and every offset a 16-byte boundary can be missed by.
const int kMisaligns[] = {0, 1, 2, 3, 4, 5, 8, 12, 13};

template <typename Check>
void ForEachImage(Check check) {
    uint32_t seed = 1;
    for (int l = 0; l < kLayoutCount; ++l)
        for (const Size& size : kSizes)
            for (int misalign : kMisaligns) {
                // Float images also at byte offsets that break float alignment.
                Image image(static_cast<Layout>(l), size.width, size.height, misalign, (seed % 3) * 5);
                image.FillRandom(seed++);
                SCOPED_TRACE(std::string(Info(image.layout()).name) + " " + std::to_string(size.width) + "x" +
                             std::to_string(size.height) + " misalign " + std::to_string(misalign) + " step " +
                             std::to_string(image.step()));
                check(image);
            }
}

void ExpectSameMoments(const Moments& expected, const ImgMomentState* state, int channels) {
    EXPECT_EQ(state->channelCount, channels);
    for (int c = 0; c < 3; ++c)
        for (int i = 0; i < 16; ++i) {
            const double want = c < channels ? expected.m[c][i] : 0.0;
            EXPECT_TRUE(SameBits(want, state->channelMoments[c][i]))
                << "channel " << c << " index " << i << ": " << want << " vs " << state->channelMoments[c][i];
        }
}

Moments RunTier(const Tier& tier, const Image& image, PrimAlgHint hint) {
    State state(tier, hint);
    EXPECT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
    return MomentsOf(state.get());
}

}  // namespace

TEST(MomentsAccumulation, WorkedValuesOfTwoByTwoOnes) {
    // x in {0, 1}, y in {0, 1}, every value 1.
    Image image(k8uC1, 2, 2);
    image.Fill(1);
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        State state(tier, PrimAlgHintFast);
        ASSERT_EQ(Compute(tier, image, state.get()), PrimStatusOk);
        const double* M = state->channelMoments[0];
        EXPECT_EQ(M[IndexOf(0, 0)], 4.0);
        EXPECT_EQ(M[IndexOf(1, 0)], 2.0);
        EXPECT_EQ(M[IndexOf(2, 0)], 2.0);
        EXPECT_EQ(M[IndexOf(3, 0)], 2.0);
        EXPECT_EQ(M[IndexOf(0, 1)], 2.0);
        EXPECT_EQ(M[IndexOf(1, 1)], 1.0);
        EXPECT_EQ(M[IndexOf(2, 1)], 1.0);
        EXPECT_EQ(M[IndexOf(0, 2)], 2.0);
        EXPECT_EQ(M[IndexOf(1, 2)], 1.0);
        EXPECT_EQ(M[IndexOf(0, 3)], 2.0);
        for (int unused : {7, 10, 11, 13, 14, 15}) EXPECT_EQ(M[unused], 0.0);
    }
}

TEST(MomentsAccumulation, PlainTiersMatchReferenceModelExactly) {
    ForEachImage([](const Image& image) {
        const Moments expected = ModelReference(image);
        const int channels = Info(image.layout()).channels;
        for (const Tier* tier : {&TierPx(), &TierM6()})
            for (PrimAlgHint hint : {PrimAlgHintFast, PrimAlgHintAccurate, static_cast<PrimAlgHint>(0)}) {
                SCOPED_TRACE(std::string(tier->name) + " hint " + std::to_string(hint));
                State state(*tier, hint);
                ASSERT_EQ(Compute(*tier, image, state.get()), PrimStatusOk);
                ExpectSameMoments(expected, state.get(), channels);
            }
        SCOPED_TRACE("a6_ accurate");
        State state(TierA6(), PrimAlgHintAccurate);
        ASSERT_EQ(Compute(TierA6(), image, state.get()), PrimStatusOk);
        ExpectSameMoments(expected, state.get(), channels);
    });
}

TEST(MomentsAccumulation, TwoLaneTierMatchesItsModelExactlyWhateverTheHint) {
    ForEachImage([](const Image& image) {
        const Moments expected = ModelTwoLanes(image);
        for (PrimAlgHint hint : {PrimAlgHintFast, PrimAlgHintAccurate}) {
            State state(TierW7(), hint);
            ASSERT_EQ(Compute(TierW7(), image, state.get()), PrimStatusOk);
            ExpectSameMoments(expected, state.get(), Info(image.layout()).channels);
        }
    });
}

// Both forms add the same products and differ only in the order of the
// additions.  With u = 2^-53 and gamma(k) = k u / (1 - k u), each of them is
// within gamma(W + H + 2) (1 + gamma(3)) A(p,q) of the exact sum of its
// products, where A(p,q) = sum of |v| x^p y^q: a chain of at most W additions
// in a row (either lane arrangement), at most three products per row total
// and H - 1 additions over the rows.  So the two differ by at most
// 2 gamma(W + H + 4) A(p,q).
TEST(MomentsAccumulation, TwoLaneTierWithinReorderingBoundOfReference) {
    int differing = 0;
    ForEachImage([&](const Image& image) {
        const Moments reference = ModelReference(image);
        const Moments lanes = RunTier(TierW7(), image, PrimAlgHintFast);
        const long double u = std::ldexp(1.0L, -53);
        const long double k = image.width() + image.height() + 4;
        const long double bound = 2.0L * (k * u / (1.0L - k * u));
        for (int c = 0; c < Info(image.layout()).channels; ++c)
            for (const Order& o : kOrders) {
                const int i = IndexOf(o.p, o.q);
                const long double diff = std::fabs(static_cast<long double>(lanes.m[c][i]) - reference.m[c][i]);
                EXPECT_LE(diff, bound * AbsoluteMoment(image, c, o.p, o.q)) << "p " << o.p << " q " << o.q;
                if (Info(image.layout()).elementBytes == 1) {
                    // Byte images have integer products; rows this short keep
                    // every partial sum below 2^53, so the order cannot show.
                    EXPECT_TRUE(SameBits(lanes.m[c][i], reference.m[c][i]));
                }
                if (!SameBits(lanes.m[c][i], reference.m[c][i])) ++differing;
            }
    });
    // The reordering is real: float images do show it in the last bits.
    EXPECT_GT(differing, 0);
}

TEST(MomentsAccumulation, FourFloatLanesMatchTheirModelExactly) {
    ForEachImage([](const Image& image) {
        const Moments expected = ModelFourFloatLanes(image);
        for (PrimAlgHint hint : {PrimAlgHintFast, static_cast<PrimAlgHint>(0), static_cast<PrimAlgHint>(3),
                                 static_cast<PrimAlgHint>(-7)}) {
            SCOPED_TRACE(hint);
            State state(TierA6(), hint);
            ASSERT_EQ(Compute(TierA6(), image, state.get()), PrimStatusOk);
            ExpectSameMoments(expected, state.get(), Info(image.layout()).channels);
        }
    });
}

// While every row sum of a byte image fits in 24 bits, the float lanes are
// exact and the fast form gives the reference's moments: 255 * sum of x^3
// over x < 23 is 16322295, below 2^24.
TEST(MomentsAccumulation, FourFloatLanesEqualReferenceWhileRowSumsFitIn24Bits) {
    uint32_t seed = 77;
    for (Layout layout : {k8uC1, k8uC3, k8uAC4})
        for (int32_t width = 1; width <= 23; ++width)
            for (int misalign : {0, 1, 2, 3}) {
                Image image(layout, width, 9, misalign, width % 3);
                image.FillRandom(seed++);
                image.Set(width - 1, 0, 0, 255);
                const Moments reference = ModelReference(image);
                State state(TierA6(), PrimAlgHintFast);
                ASSERT_EQ(Compute(TierA6(), image, state.get()), PrimStatusOk);
                ExpectSameMoments(reference, state.get(), Info(layout).channels);
            }
}

// One pixel of value 1 at column 257: its x^3 = 16974593 needs 25 bits, so
// the float lanes round S3 while the reference keeps it; at column 256,
// x^3 = 2^24 is exact and nothing differs.
TEST(MomentsAccumulation, FourFloatLanesPartFromReferenceOnceARowSumNeedsMoreThan24Bits) {
    for (int32_t column : {256, 257}) {
        Image image(k8uC1, 300, 2);
        image.Fill(0);
        image.Set(column, 1, 0, 1);
        const Moments reference = ModelReference(image);
        const Moments fast = RunTier(TierA6(), image, PrimAlgHintFast);
        const Moments accurate = RunTier(TierA6(), image, PrimAlgHintAccurate);
        EXPECT_EQ(reference.m[0][IndexOf(3, 0)], std::pow(static_cast<double>(column), 3));
        for (const Order& o : kOrders) {
            const int i = IndexOf(o.p, o.q);
            EXPECT_TRUE(SameBits(accurate.m[0][i], reference.m[0][i]));
            const bool mustDiffer = column == 257 && o.p == 3;
            EXPECT_EQ(!SameBits(fast.m[0][i], reference.m[0][i]), mustDiffer) << column << " p " << o.p;
        }
    }
    // A wide bright row pushes every higher sum past 24 bits.
    Image bright(k8uC1, 640, 3);
    bright.Fill(255);
    const Moments reference = ModelReference(bright);
    const Moments fast = RunTier(TierA6(), bright, PrimAlgHintFast);
    EXPECT_FALSE(SameBits(fast.m[0][IndexOf(3, 0)], reference.m[0][IndexOf(3, 0)]));
    EXPECT_TRUE(SameBits(fast.m[0][IndexOf(3, 0)], ModelFourFloatLanes(bright).m[0][IndexOf(3, 0)]));
}

TEST(MomentsAccumulation, EachComputeClearsTheMomentsFirst) {
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        State state(tier, PrimAlgHintAccurate);
        // Whatever the block held before, including not-a-numbers.
        for (auto& block : state->channelMoments)
            for (double& value : block) value = std::numeric_limits<double>::quiet_NaN();
        Image big(k8uC3, 13, 7);
        big.FillRandom(5);
        ASSERT_EQ(Compute(tier, big, state.get()), PrimStatusOk);
        EXPECT_EQ(state->channelCount, 3);
        for (int c = 0; c < 3; ++c)
            for (int unused : {7, 10, 11, 13, 14, 15}) EXPECT_TRUE(SameBits(state->channelMoments[c][unused], 0.0));

        // A one-channel image afterwards: blocks 1 and 2 are zero again.
        Image small(k8uC1, 3, 2);
        small.FillRandom(6);
        ASSERT_EQ(Compute(tier, small, state.get()), PrimStatusOk);
        ExpectSameMoments(ModelReference(small), state.get(), 1);

        // The same image twice gives the same moments, never their sum.
        ASSERT_EQ(Compute(tier, small, state.get()), PrimStatusOk);
        ExpectSameMoments(ModelReference(small), state.get(), 1);
    }
}

TEST(MomentsAccumulation, FourthSampleOfAC4IsIgnored) {
    for (Layout layout : {k8uAC4, k32fAC4}) {
        Image image(layout, 11, 4);
        image.FillRandom(9);
        Image other = image;
        for (int32_t y = 0; y < 4; ++y)
            for (int32_t x = 0; x < 11; ++x) other.Set(x, y, 3, 200);
        for (const Tier& tier : Tiers()) {
            SCOPED_TRACE(tier.name);
            const Moments a = RunTier(tier, image, PrimAlgHintFast);
            const Moments b = RunTier(tier, other, PrimAlgHintFast);
            for (int c = 0; c < 3; ++c)
                for (int i = 0; i < 16; ++i) EXPECT_TRUE(SameBits(a.m[c][i], b.m[c][i]));
        }
    }
}

TEST(MomentsAccumulation, RowStepEqualToRowLengthIsAccepted) {
    for (int l = 0; l < kLayoutCount; ++l) {
        Image image(static_cast<Layout>(l), 6, 3);
        image.FillRandom(11);
        ASSERT_EQ(image.step(), 6 * PixelBytes(static_cast<Layout>(l)));
        for (const Tier& tier : Tiers()) {
            State state(tier, PrimAlgHintAccurate);
            EXPECT_EQ(Compute(tier, image, state.get()), PrimStatusOk) << tier.name;
        }
    }
}

TEST(MomentsAccumulation, PlainNamesRunTheReportedTier) {
    // Before any selection the reported tier is px.
    Image image(k32fC3, 9, 5);
    image.FillRandom(21);
    State state(TierPx(), PrimAlgHintFast);
    ASSERT_EQ(ImgMoments32fC3(reinterpret_cast<const float*>(image.bytes()), image.step(), 9, 5, state.get()),
              PrimStatusOk);
    ExpectSameMoments(ModelReference(image), state.get(), 3);
}

// The plain-code lane forms, which serve processors without the vector unit,
// give the bytes of their models, as the vector forms do.
TEST(MomentsAccumulation, PortableLaneFormsMatchTheirModelsExactly) {
    namespace pm = pixmoor::moments;
    static_assert(static_cast<int>(k8uC1) == pm::kMember8uC1 && static_cast<int>(k32fAC4) == pm::kMember32fAC4,
                  "the test layouts follow the members' order");
    ForEachImage([](const Image& image) {
        const pm::MemberIndex member = static_cast<pm::MemberIndex>(image.layout());
        const Moments twoLanes = ModelTwoLanes(image);
        const Moments fourLanes = ModelFourFloatLanes(image);
        State state(TierPx(), PrimAlgHintFast);
        ASSERT_EQ(pm::ComputeMoments(member, image.bytes(), image.step(), image.width(), image.height(), state.get(),
                                     pm::kTwoLaneRowSumsPortable[member], pm::kTwoLaneRowSumsPortable[member]),
                  PrimStatusOk);
        ExpectSameMoments(twoLanes, state.get(), Info(image.layout()).channels);
        ASSERT_EQ(pm::ComputeMoments(member, image.bytes(), image.step(), image.width(), image.height(), state.get(),
                                     pm::kFourLaneFloatRowSumsPortable[member],
                                     pm::kFourLaneFloatRowSumsPortable[member]),
                  PrimStatusOk);
        ExpectSameMoments(fourLanes, state.get(), Info(image.layout()).channels);
    });
}

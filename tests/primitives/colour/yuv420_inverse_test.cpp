// Planar 4:2:0 to RGB in every tier against the scalar model, and the
// worked values of the inverse colour model.
#include <gtest/gtest.h>

#include "yuv420_harness.h"
#include "yuv420_model.h"

using namespace yuv420_harness;
using yuv420_model::Pixel;
using yuv420_model::TierName;

namespace {

const char* DestName(bool planes) { return planes ? "planes" : "packed"; }

void ExpectInverseMatchesModel(int tier, bool planes, bool compact, const YuvFrame& in, int pad) {
    const RgbFrame expect = yuv420_model::Inverse(in, static_cast<Tier>(tier), planes);
    const InverseOut got = RunInverse(tier, planes, compact, in, pad);
    ASSERT_EQ(got.result.status, PrimStatusOk);
    EXPECT_TRUE(got.result.outsideUntouched);
    if (Same(got.frame, expect)) return;
    for (int y = 0; y < in.height; ++y)
        for (int x = 0; x < in.width; ++x) {
            const Pixel a = got.frame.At(x, y), b = expect.At(x, y);
            ASSERT_TRUE(a.r == b.r && a.g == b.g && a.b == b.b)
                << "at " << x << "," << y << ": " << a.r << " " << a.g << " " << a.b << " expected "
                << b.r << " " << b.g << " " << b.b;
        }
}

TEST(Yuv420ToRgb, EveryTierMatchesTheModelOnManySizes) {
    ForEachSmallCase([&](const Case& c) {
        SCOPED_TRACE(Describe(c));
        ExpectInverseMatchesModel(c.tier, c.planes, c.compact, RandomYuv(c.width, c.height, c.seed), c.pad);
        return !HasFatalFailure();
    });
}

TEST(Yuv420ToRgb, EveryTierMatchesTheModelOnLargerFrames) {
    ForEachLargeCase([&](const Case& c) {
        SCOPED_TRACE(Describe(c));
        ExpectInverseMatchesModel(c.tier, c.planes, c.compact, RandomYuv(c.width, c.height, c.seed), c.pad);
        return true;
    });
}

YuvFrame UniformYuv(int w, int h, int y, int u, int v) {
    YuvFrame f = YuvFrame::Make(w, h);
    std::fill(f.y.begin(), f.y.end(), static_cast<uint8_t>(y));
    std::fill(f.u.begin(), f.u.end(), static_cast<uint8_t>(u));
    std::fill(f.v.begin(), f.v.end(), static_cast<uint8_t>(v));
    return f;
}

void ExpectPixel(const RgbFrame& f, int x, int y, Pixel p, const char* what) {
    const Pixel a = f.At(x, y);
    EXPECT_TRUE(a.r == p.r && a.g == p.g && a.b == p.b)
        << what << " at " << x << ": " << a.r << "," << a.g << "," << a.b << " expected " << p.r << ","
        << p.g << "," << p.b;
}

TEST(Yuv420ToRgb, WorkedValues) {
    // Width 16: a6's main loop covers all 8 pairs, so positions 3, 7, 11, 15
    // are its odd positions; w7's main loop bound (pairs AND NOT 15) is 0,
    // so w7 runs the whole line in its tail.
    for (bool planes : {false, true}) {
        for (int tier : yuv420_model::kTiers) {
            const RgbFrame g = RunInverse(tier, planes, true, UniformYuv(16, 2, 128, 128, 128)).frame;
            for (int x = 0; x < 16; ++x) ExpectPixel(g, x, 1, {128, 128, 128}, TierName(tier));
            const RgbFrame c = RunInverse(tier, planes, true, UniformYuv(16, 2, 16, 240, 16)).frame;
            for (int x = 0; x < 16; ++x) ExpectPixel(c, x, 0, {0, 36, 243}, TierName(tier));
        }
        const YuvFrame mixed = UniformYuv(16, 2, 100, 90, 200);
        for (int tier : {yuv420_model::kPx, yuv420_model::kM6}) {
            const RgbFrame f = RunInverse(tier, planes, true, mixed).frame;
            for (int x = 0; x < 16; ++x) ExpectPixel(f, x, 1, {182, 73, 22}, TierName(tier));
        }
        const RgbFrame w7 = RunInverse(yuv420_model::kW7, planes, true, mixed).frame;
        for (int x = 0; x < 16; ++x) ExpectPixel(w7, x, 0, {182, 72, 22}, "w7");
        const RgbFrame a6 = RunInverse(yuv420_model::kA6, planes, true, mixed).frame;
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 16; ++x) {
                // The planes member uses the w7 factors and has no odd row.
                const bool odd = !planes && x % 4 == 3;
                ExpectPixel(a6, x, y, odd ? Pixel{181, 72, 22} : Pixel{182, 72, 22}, DestName(planes));
            }
    }
}

// The w7 main loop runs only while its counter is below pairs AND NOT 15:
// with 24 pairs it takes 16 pairs and leaves 8 to the tail, with 8 to 15
// pairs it takes none.  Main loop and tail give the same values, so a
// uniform line shows one value throughout.
TEST(Yuv420ToRgb, W7MainLoopAndTailAgree) {
    for (int w : {16, 30, 31, 32, 48, 50, 64}) {
        const RgbFrame f = RunInverse(yuv420_model::kW7, false, true, UniformYuv(w, 2, 100, 90, 200)).frame;
        for (int x = 0; x < 2 * (w / 2); ++x) ExpectPixel(f, x, 1, {182, 72, 22}, "w7");
    }
}

// In a6, a line of 8 pixels of Y 128, U 0, V 128 shows different R or G at
// pixels 3 and 7; a line of 6 pixels (3 pairs, all in the tail) does not.
TEST(Yuv420ToRgb, A6OddRowActsOnlyInsideTheMainLoop) {
    const RgbFrame eight = RunInverse(yuv420_model::kA6, false, true, UniformYuv(8, 2, 128, 0, 128)).frame;
    const Pixel first = eight.At(0, 0);
    for (int x : {1, 2, 4, 5, 6}) ExpectPixel(eight, x, 0, first, "normal");
    for (int x : {3, 7}) {
        const Pixel p = eight.At(x, 0);
        EXPECT_TRUE(p.r != first.r || p.g != first.g) << x;
        EXPECT_EQ(p.r, 127) << x;  // mulhi(-2048, 4) = -1 before the shift
    }
    const RgbFrame six = RunInverse(yuv420_model::kA6, false, true, UniformYuv(6, 2, 128, 0, 128)).frame;
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 6; ++x) ExpectPixel(six, x, y, six.At(0, 0), "tail");
    // 10 pixels: the main loop covers pixels 0 to 7, the last pair is tail.
    const RgbFrame ten = RunInverse(yuv420_model::kA6, false, true, UniformYuv(10, 2, 128, 0, 128)).frame;
    ExpectPixel(ten, 9, 0, ten.At(0, 0), "tail pixel 9");
    EXPECT_EQ(ten.At(7, 1).r, 127);
}

TEST(Yuv420ToRgb, ExtremeChromaSaturates) {
    for (int tier : yuv420_model::kTiers)
        for (int w : {1, 2, 3, 16, 33}) {
            const RgbFrame hi = RunInverse(tier, false, true, UniformYuv(w, 3, 255, 255, 128)).frame;
            for (uint8_t b : hi.b) ASSERT_EQ(b, 255) << TierName(tier);
            const RgbFrame lo = RunInverse(tier, false, true, UniformYuv(w, 3, 0, 0, 128)).frame;
            for (uint8_t b : lo.b) ASSERT_EQ(b, 0) << TierName(tier);
        }
}

// 1 by 1: the corner path, wide arithmetic, in every tier.  (100, 90, 200)
// gives (182, 73, 22) there, where the narrow kernels would give G 72.
TEST(Yuv420ToRgb, OneByOneUsesTheWideCornerPath) {
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true}) {
            const RgbFrame f = RunInverse(tier, planes, true, UniformYuv(1, 1, 100, 90, 200)).frame;
            ExpectPixel(f, 0, 0, {182, 73, 22}, TierName(tier));
        }
}

// Width 3, compact: the chroma step is 2, and the last pixel of each line
// reads chroma column 1.
TEST(Yuv420ToRgb, WidthThreeReadsChromaColumnOne) {
    YuvFrame f = UniformYuv(3, 4, 100, 128, 128);
    // Chroma lines 0 and 1: column 0 neutral, column 1 distinct per line.
    f.U(1, 0) = 90;
    f.V(1, 0) = 200;
    f.U(1, 1) = 200;
    f.V(1, 1) = 60;
    for (int tier : yuv420_model::kTiers) {
        const RgbFrame out = RunInverse(tier, false, true, f).frame;
        for (int y = 0; y < 4; ++y) {
            ExpectPixel(out, 2, y, yuv420_model::WideRgb(100, f.U(1, y / 2), f.V(1, y / 2)), TierName(tier));
            EXPECT_EQ(out.At(0, y).r, out.At(0, y).g);
        }
    }
}

TEST(Yuv420ToRgb, TierPairsAgree) {
    for (bool planes : {false, true})
        for (int w : {2, 16, 50, 97}) {
            const YuvFrame in = RandomYuv(w, 6, static_cast<uint32_t>(w + planes));
            const RgbFrame px = RunInverse(yuv420_model::kPx, planes, false, in, 2).frame;
            const RgbFrame m6 = RunInverse(yuv420_model::kM6, planes, false, in, 2).frame;
            EXPECT_TRUE(Same(px, m6));
            for (int tier : {yuv420_model::kA6, yuv420_model::kW7}) {
                const RgbFrame t = RunInverse(tier, planes, false, in, 2).frame;
                for (size_t i = 0; i < t.r.size(); ++i) {
                    ASSERT_LE(std::abs(t.r[i] - px.r[i]), 1);
                    ASSERT_LE(std::abs(t.g[i] - px.g[i]), 1);
                    ASSERT_LE(std::abs(t.b[i] - px.b[i]), 1);
                }
            }
        }
}


TEST(Yuv420ToRgb, StepFormWithDerivedStepsEqualsCompactForm) {
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (int w : {1, 5, 16, 37})
                for (int h : {1, 4, 7}) {
                    const YuvFrame in = RandomYuv(w, h, static_cast<uint32_t>(w * h + tier));
                    EXPECT_TRUE(Same(RunInverse(tier, planes, true, in).frame,
                                     RunInverse(tier, planes, false, in, 0).frame));
                }
}

}  // namespace

// The 4:2:2 members against the model, bit for bit, in every tier: random
// frames of many sizes (odd widths, width 1, the one-long-line path of the
// compact forms), every RGB colour and every YUV triple, and the worked
// values.
//
// Two readings, chosen to fit the whole description of these members:
//  - the narrow forward kernels reckon the lone last pixel of an odd width
//    as a pair of itself (its own B and R twice against its D twice), the
//    narrow counterpart of the wide kernels' single-pixel chroma;
//  - the members on RGB planes take the same narrow luma as the packed
//    ones (the samples as they stand, no widening), and only the packed
//    4:2:2 kernel of w7 reckons its lone pixel at 13 fraction bits; the
//    other narrow kernels use their pair arithmetic for it.
#include <gtest/gtest.h>

#include <string>

#include "yuv422_harness.h"
#include "sweep_stride.h"

using namespace yuv422_harness;
using yuv420_model::TierName;
using yuv422_model::Same;

namespace {

std::string Describe(int tier, const char* what, int w, int h) {
    return std::string(tier == kPlain ? "plain" : TierName(tier)) + " " + what + " " + std::to_string(w) + "x" +
           std::to_string(h);
}

void ExpectForward(int tier, bool planes, bool compact, const RgbFrame& in, int pad) {
    const ForwardOut r = RunForward(tier, planes, compact, in, pad);
    const std::string what = Describe(tier, planes ? (compact ? "planes compact" : "planes step")
                                                   : (compact ? "packed compact" : "packed step"),
                                      in.width, in.height);
    EXPECT_EQ(r.result.status, PrimStatusOk) << what;
    EXPECT_TRUE(Same(r.frame, yuv422_model::Forward(in, tier))) << what;
    EXPECT_TRUE(r.result.outsideUntouched) << what;
}

void ExpectFromPlanes(int tier, bool planes, bool compact, const Yuv422Frame& in, int pad) {
    const InverseOut r = RunFromPlanes(tier, planes, compact, in, pad);
    const std::string what = Describe(tier, planes ? (compact ? "to planes compact" : "to planes step")
                                                   : (compact ? "to packed compact" : "to packed step"),
                                      in.width, in.height);
    EXPECT_EQ(r.result.status, PrimStatusOk) << what;
    EXPECT_TRUE(yuv420_harness::Same(r.frame, yuv422_model::FromPlanes(in, tier))) << what;
    EXPECT_TRUE(r.result.outsideUntouched) << what;
}

// Widths 1 to 70 pass every vector step (8 and 16 pixels) several times,
// with every tail and odd widths; with 5 lines a compact frame of width 52
// and more takes the one-long-line path.
TEST(Yuv422Convert, SmallFramesMatchTheModel) {
    uint32_t seed = 1;
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (bool compact : {true, false})
                for (int h : {1, 2, 5})
                    for (int w = 1; w <= 70; ++w) {
                        ExpectForward(tier, planes, compact, yuv420_harness::RandomRgb(w, h, seed++), 3);
                        ExpectFromPlanes(tier, planes, compact, RandomYuv422(w, h, seed++), 3);
                    }
}

// Compact frames on both paths: 16 by 16 and 24 by 12 are one long line;
// 18 by 15 and 22 by 13 too, with a rest of 6 pixels for the second kernel
// call; 15 by 20 (odd width) and 14 by 18 (252 pixels) take the line path.
TEST(Yuv422Convert, CompactPathsMatchTheStepForms) {
    const int sizes[][2] = {{16, 16}, {24, 12}, {18, 15}, {22, 13}, {2, 128}, {15, 20}, {14, 18}, {256, 1}, {641, 3}};
    uint32_t seed = 300;
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (const auto& s : sizes) {
                const RgbFrame rgb = yuv420_harness::RandomRgb(s[0], s[1], seed++);
                const ForwardOut a = RunForward(tier, planes, true, rgb, 0);
                const ForwardOut b = RunForward(tier, planes, false, rgb, 0);
                EXPECT_TRUE(Same(a.frame, b.frame)) << Describe(tier, "forward", s[0], s[1]);
                EXPECT_TRUE(Same(a.frame, yuv422_model::Forward(rgb, tier))) << Describe(tier, "forward", s[0], s[1]);
                EXPECT_TRUE(a.result.outsideUntouched);

                const Yuv422Frame yuv = RandomYuv422(s[0], s[1], seed++);
                const InverseOut c = RunFromPlanes(tier, planes, true, yuv, 0);
                const InverseOut d = RunFromPlanes(tier, planes, false, yuv, 0);
                EXPECT_TRUE(yuv420_harness::Same(c.frame, d.frame)) << Describe(tier, "inverse", s[0], s[1]);
                EXPECT_TRUE(yuv420_harness::Same(c.frame, yuv422_model::FromPlanes(yuv, tier)));
                EXPECT_TRUE(c.result.outsideUntouched);
            }
}

TEST(Yuv422Convert, LargeFramesMatchTheModel) {
    const int sizes[][2] = {{641, 9}, {1024, 4}, {333, 17}, {352, 288}};
    uint32_t seed = 900;
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (const auto& s : sizes) {
                ExpectForward(tier, planes, false, yuv420_harness::RandomRgb(s[0], s[1], seed++), 13);
                ExpectForward(tier, planes, true, yuv420_harness::RandomRgb(s[0], s[1], seed++), 0);
                ExpectFromPlanes(tier, planes, false, RandomYuv422(s[0], s[1], seed++), 13);
                ExpectFromPlanes(tier, planes, true, RandomYuv422(s[0], s[1], seed++), 0);
            }
}

void ExpectFromPacked(int tier, const Packed422Frame& in, int srcPad, int dstPad) {
    const InverseOut r = RunFromPacked(tier, in, srcPad, dstPad);
    const std::string what = Describe(tier, "packed 4:2:2", in.width, in.height);
    EXPECT_EQ(r.result.status, PrimStatusOk) << what;
    EXPECT_TRUE(yuv420_harness::Same(r.frame, yuv422_model::FromPacked(in, tier))) << what;
    EXPECT_TRUE(r.result.outsideUntouched) << what;
}

TEST(Yuv422Convert, PackedFramesMatchTheModel) {
    uint32_t seed = 2000;
    for (int tier : yuv420_model::kTiers) {
        for (int h : {1, 2, 3})
            for (int w = 1; w <= 70; ++w) ExpectFromPacked(tier, RandomPacked422(w, h, seed++), w % 5, (w + 1) % 3);
        ExpectFromPacked(tier, RandomPacked422(641, 9, seed++), 4, 7);
        ExpectFromPacked(tier, RandomPacked422(720, 16, seed++), 0, 0);
    }
}

// Dispatch row 15 under its plain name runs the entry in its slot; before
// any selection that is px.
TEST(Yuv422Convert, PackedThroughTheDispatchStub) {
    const Packed422Frame in = RandomPacked422(45, 3, 4000);
    const InverseOut plain = RunFromPacked(kPlain, in, 2, 1);
    EXPECT_EQ(plain.result.status, PrimStatusOk);
    int slotTier = -1;
    for (int t = 0; t < 4; ++t)
        if (*PrimDispatchTable[15].slot == PrimDispatchTable[15].entries[t]) slotTier = t;
    ASSERT_GE(slotTier, 0);
    EXPECT_TRUE(yuv420_harness::Same(plain.frame, yuv422_model::FromPacked(in, slotTier)));
    EXPECT_EQ(PrimDispatchTable[15].entries[0], reinterpret_cast<PrimEntry>(px_ImgYUV422ToRGB));
    EXPECT_EQ(PrimDispatchTable[15].entries[3], reinterpret_cast<PrimEntry>(w7_ImgYUV422ToRGB));
}

// Width 1: Y 100 and byte 1 200 give c 72 and R 182, G 29, B 246 in every
// tier.
TEST(Yuv422Convert, WidthOneUsesByteOneForBothChromaValues) {
    Packed422Frame in;
    in.width = 1;
    in.height = 2;
    in.bytes = {100, 200, 0, 128};
    for (int tier : yuv420_model::kTiers) {
        const InverseOut r = RunFromPacked(tier, in, 1, 2);
        EXPECT_EQ(r.frame.At(0, 0).r, 182) << TierName(tier);
        EXPECT_EQ(r.frame.At(0, 0).g, 29) << TierName(tier);
        EXPECT_EQ(r.frame.At(0, 0).b, 246) << TierName(tier);
        EXPECT_EQ(r.frame.At(0, 1).r, 0);  // Y 0 with neutral chroma
        EXPECT_EQ(r.frame.At(0, 1).g, 0);
        EXPECT_EQ(r.frame.At(0, 1).b, 0);
    }
}

// Width 3: the third pixel takes Y from byte 4, U from byte 5 and V from
// byte 3, the V of the first pair.
TEST(Yuv422Convert, OddWidthLastPixelBorrowsThePreviousV) {
    for (int tier : yuv420_model::kTiers) {
        Packed422Frame in;
        in.width = 3;
        in.height = 1;
        in.bytes = {50, 128, 60, 200, 90, 40};
        const InverseOut r = RunFromPacked(tier, in, 0, 0);
        EXPECT_TRUE(yuv420_harness::Same(r.frame, yuv422_model::FromPacked(in, tier))) << TierName(tier);
        // Changing V (byte 3) moves the third pixel's R; the neutral U of
        // byte 1 does not reach it.
        Packed422Frame other = in;
        other.bytes[3] = 128;
        const InverseOut s = RunFromPacked(tier, other, 0, 0);
        EXPECT_NE(r.frame.At(2, 0).r, s.frame.At(2, 0).r) << TierName(tier);
        other = in;
        other.bytes[1] = 250;
        const InverseOut t = RunFromPacked(tier, other, 0, 0);
        EXPECT_EQ(r.frame.At(2, 0).b, t.frame.At(2, 0).b) << TierName(tier);
        EXPECT_NE(r.frame.At(0, 0).b, t.frame.At(0, 0).b) << TierName(tier);
    }
}

// w7's lone pixel at 13 fraction bits: Y 100, U 90, V 200 gives what the
// 13-bit formulas give, which is not what the pair arithmetic gives.
TEST(Yuv422Convert, W7LonePixelAtThirteenBits) {
    Packed422Frame in;
    in.width = 3;
    in.height = 1;
    in.bytes = {100, 90, 100, 200, 100, 90};
    const InverseOut r = RunFromPacked(yuv420_model::kW7, in, 0, 0);
    const yuv420_model::Pixel lone = r.frame.At(2, 0);
    const yuv420_model::Pixel expected = yuv422_model::Rgb13(100, 90, 200);
    EXPECT_EQ(lone.r, expected.r);
    EXPECT_EQ(lone.g, expected.g);
    EXPECT_EQ(lone.b, expected.b);
    // The pair arithmetic gives G 72 for this triple; 13 bits give 73.
    EXPECT_EQ(r.frame.At(0, 0).g, 72);
    EXPECT_EQ(lone.g, 73);
}

// In wide arithmetic a grey pair gives U 128 and V 128 whatever the value,
// and black gives Y 0 with U, V 128 in every tier.
TEST(Yuv422Convert, GreyAndBlack) {
    for (int tier : yuv420_model::kTiers)
        for (int grey : {0, 1, 77, 128, 254, 255}) {
            const RgbFrame in = yuv420_harness::Uniform(9, 2, yuv420_model::Pixel{grey, grey, grey});
            const ForwardOut r = RunForward(tier, false, true, in, 0);
            if (tier == yuv420_model::kPx || tier == yuv420_model::kM6 || grey == 0) {
                for (size_t i = 0; i < r.frame.u.size(); ++i) {
                    EXPECT_EQ(r.frame.u[i], 128) << TierName(tier) << " grey " << grey;
                    EXPECT_EQ(r.frame.v[i], 128) << TierName(tier) << " grey " << grey;
                }
            }
            if (grey == 0) {
                for (uint8_t y : r.frame.y) EXPECT_EQ(y, 0);
            }
        }
}

// Pure blue: a pair has T = ((510 << 16) - 2 F + 65535) >> 16 = 452 and
// U = ((452 * 32244) >> 17) + 128 = 239; T' = (-2 F + 65535) >> 16 = -58
// and V = ((-58 * 57475) >> 17) + 128 = 102.  The lone third pixel has T =
// ((255 << 16) - F + 32767) >> 16 = 226, U = ((226 * 32244) >> 16) + 128 =
// 239, T' = -29, V = 102.
TEST(Yuv422Convert, WidePureBlue) {
    const RgbFrame in = yuv420_harness::Uniform(3, 1, yuv420_model::Pixel{0, 0, 255});
    for (int tier : {yuv420_model::kPx, yuv420_model::kM6}) {
        const ForwardOut r = RunForward(tier, false, false, in, 1);
        EXPECT_EQ(r.frame.u[0], 239);
        EXPECT_EQ(r.frame.u[1], 239);
        EXPECT_EQ(r.frame.v[0], 102);
        EXPECT_EQ(r.frame.v[1], 102);
        EXPECT_EQ(r.frame.y[0], 29);
    }
}

// The wide kernels round: a pair with bias 65535, a lone pixel with 32767.
// For grey pairs and pixels with one blue step more, find values whose U
// the bias lifts, and check that the kernel gives the lifted value.
TEST(Yuv422Convert, WideRoundingBiasesShow) {
    using yuv420_model::FloorShift;
    int pairsSeen = 0, lonesSeen = 0;
    for (int g = 0; g < 255; ++g) {
        const yuv420_model::Pixel p{g, g, g + 1};
        const int64_t f = yuv420_model::F(p);
        const int64_t tPair = FloorShift(2 * (g + 1) * 65536LL - 2 * f + 65535, 16);
        const int64_t tPairPlain = FloorShift(2 * (g + 1) * 65536LL - 2 * f, 16);
        const int64_t tLone = FloorShift((g + 1) * 65536LL - f + 32767, 16);
        const int64_t tLonePlain = FloorShift((g + 1) * 65536LL - f, 16);
        const RgbFrame in = yuv420_harness::Uniform(3, 1, p);
        for (int tier : {yuv420_model::kPx, yuv420_model::kM6}) {
            const ForwardOut r = RunForward(tier, false, true, in, 0);
            if (tPair != tPairPlain) {
                ++pairsSeen;
                EXPECT_EQ(r.frame.u[0], FloorShift(tPair * 32244, 17) + 128) << g;
            }
            if (tLone != tLonePlain) {
                ++lonesSeen;
                EXPECT_EQ(r.frame.u[1], FloorShift(tLone * 32244, 16) + 128) << g;
            }
        }
    }
    EXPECT_GT(pairsSeen, 0);
    EXPECT_GT(lonesSeen, 0);
}

// All 2^24 colours through the packed RGB member, as pairs of neighbouring
// blue values: one frame of 256 by 256 (G by line, B by column) for each R.
TEST(Yuv422Convert, EveryRgbColourMatchesTheModel) {
    for (int tier : yuv420_model::kTiers) {
        int failures = 0;
        for (int r = 0; r < 256 && failures == 0; r += pixmoor_test::SweepStride()) {
            RgbFrame in = RgbFrame::Make(256, 256);
            for (int g = 0; g < 256; ++g)
                for (int b = 0; b < 256; ++b) in.Set(b, g, {r, g, b});
            if (!Same(RunForward(tier, false, true, in, 0).frame, yuv422_model::Forward(in, tier))) ++failures;
        }
        EXPECT_EQ(failures, 0) << TierName(tier);
    }
}

// All 2^24 YUV triples through the planes member and the packed member:
// for each U a frame of 512 by 128 whose pairs run through every V and
// every Y, two Y values a pair.
TEST(Yuv422Convert, EveryYuvTripleMatchesTheModel) {
    const int w = 512, h = 128;
    for (int tier : yuv420_model::kTiers) {
        int failures = 0;
        for (int u = 0; u < 256 && failures == 0; u += pixmoor_test::SweepStride()) {
            const Packed422Frame packed = EveryYvOfOneU(u);
            Yuv422Frame planes = Yuv422Frame::Make(w, h);
            for (int l = 0; l < h; ++l)
                for (int j = 0; j < w / 2; ++j) {
                    const uint8_t* p = &packed.bytes[static_cast<size_t>(l) * 2 * w + 4 * j];
                    planes.Y(2 * j, l) = p[0];
                    planes.U(j, l) = p[1];
                    planes.Y(2 * j + 1, l) = p[2];
                    planes.V(j, l) = p[3];
                }
            if (!yuv420_harness::Same(RunFromPlanes(tier, false, true, planes, 0).frame,
                                      yuv422_model::FromPlanes(planes, tier)))
                ++failures;
            if (!yuv420_harness::Same(RunFromPacked(tier, packed, 0, 0).frame, yuv422_model::FromPacked(packed, tier)))
                ++failures;
        }
        EXPECT_EQ(failures, 0) << TierName(tier);
    }
}

}  // namespace

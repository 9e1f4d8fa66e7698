// Worked values and edge cases of the YCbCr members, called through their
// tier entries on small hand-made images.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "guarded_buffer.h"
#include "ycbcr_harness.h"

using namespace ycbcr_harness;
using pixmoor_test::GuardedBuffer;

namespace {

#define FOR_EACH_TIER(t) for (int t : kTiers)

using Bytes = std::vector<uint8_t>;

// Runs a packed to packed member on a tight source; the destination is
// filled with the canary first.
template <class Fn>
GuardedBuffer RunPacked(Fn fn, const Bytes& src, int32_t srcStep, size_t dstBytes, int32_t dstStep, int w, int h) {
    GuardedBuffer in(src.size());
    std::memcpy(in.data(), src.data(), src.size());
    GuardedBuffer out(dstBytes);
    EXPECT_EQ(fn(in.data(), srcStep, out.data(), dstStep, w, h), 0);
    EXPECT_TRUE(out.GuardsIntact());
    return out;
}

using BytesFn = PrimStatus (*)(const uint8_t*, int32_t, uint8_t*, int32_t, int32_t, int32_t);
using WordsFn = PrimStatus (*)(const uint8_t*, int32_t, uint16_t*, int32_t, int32_t, int32_t);

const BytesFn kRgbToC2[4] = {px_ImgRGBToYCbCr422C3C2, m6_ImgRGBToYCbCr422C3C2, a6_ImgRGBToYCbCr422C3C2,
                             w7_ImgRGBToYCbCr422C3C2};
const BytesFn kC2ToRgb[4] = {px_ImgYCbCr422ToRGBC2C3, m6_ImgYCbCr422ToRGBC2C3, a6_ImgYCbCr422ToRGBC2C3,
                             w7_ImgYCbCr422ToRGBC2C3};
const BytesFn kC3ToRgb[4] = {px_ImgYCbCrToRGBC3, m6_ImgYCbCrToRGBC3, a6_ImgYCbCrToRGBC3, w7_ImgYCbCrToRGBC3};
const BytesFn kRgbToC3[4] = {px_ImgRGBToYCbCrC3, m6_ImgRGBToYCbCrC3, a6_ImgRGBToYCbCrC3, w7_ImgRGBToYCbCrC3};
const BytesFn kRgbToAC4[4] = {px_ImgRGBToYCbCrAC4, m6_ImgRGBToYCbCrAC4, a6_ImgRGBToYCbCrAC4, w7_ImgRGBToYCbCrAC4};
const BytesFn kAC4ToRgb[4] = {px_ImgYCbCrToRGBAC4, m6_ImgYCbCrToRGBAC4, a6_ImgYCbCrToRGBAC4, w7_ImgYCbCrToRGBAC4};
const WordsFn kC2To565[4] = {px_ImgYCbCr422ToRGB565, m6_ImgYCbCr422ToRGB565, a6_ImgYCbCr422ToRGB565,
                             w7_ImgYCbCr422ToRGB565};

auto AsBytesFn(WordsFn f) {
    return [f](const uint8_t* s, int32_t ss, uint8_t* d, int32_t ds, int32_t w, int32_t h) {
        return f(s, ss, reinterpret_cast<uint16_t*>(d), ds, w, h);
    };
}

TEST(YCbCrEdges, OddWidthLeavesTheLastPairHalfWritten) {
    const Bytes rgb = {10, 20, 30, 40, 50, 60, 200, 100, 50};
    FOR_EACH_TIER(t) {
        const GuardedBuffer out = RunPacked(kRgbToC2[t], rgb, 9, 8, 8, 3, 1);
        const Px last{200, 100, 50};
        EXPECT_EQ(out[4], Y(last)) << TierName(t);
        EXPECT_EQ(out[5], Cb1(last)) << TierName(t);
        EXPECT_EQ(out[6], GuardedBuffer::kCanary);
        EXPECT_EQ(out[7], GuardedBuffer::kCanary);
    }
}

// The first luma of a pair rounds, the second does not.
TEST(YCbCrEdges, TheTwoLumasOfAPairRoundDifferently) {
    for (int t : {kPx, kM6, kA6}) {
        const GuardedBuffer wb = RunPacked(kRgbToC2[t], {255, 255, 255, 0, 0, 0}, 6, 4, 4, 2, 1);
        EXPECT_EQ(wb[0], 235);  // 235.5 truncated
        EXPECT_EQ(wb[2], 16);   // 16.0
        EXPECT_EQ(wb[1], 128);
        EXPECT_EQ(wb[3], 128);
        // Mid grey: 126.45 with the rounding term, 125.95 without.
        const GuardedBuffer grey = RunPacked(kRgbToC2[t], {128, 128, 128, 128, 128, 128}, 6, 4, 4, 2, 1);
        EXPECT_EQ(grey[0], 126) << TierName(t);
        EXPECT_EQ(grey[2], 125) << TierName(t);
    }
}

TEST(YCbCrEdges, WidthOneOfA422SourceTo16BitWritesThreeBytesARow) {
    // Y 100, c 200 on each of three lines; the destination step 8 is
    // halved to 4 and taken as bytes.
    const Bytes c2 = {100, 200, 0, 0, 100, 200, 0, 0, 100, 200, 0, 0};
    const Px expect = WidthOne(100, 200);
    FOR_EACH_TIER(t) {
        const GuardedBuffer out = RunPacked(AsBytesFn(kC2To565[t]), c2, 4, 24, 8, 1, 3);
        for (size_t i = 0; i < 24; ++i) {
            const size_t line = i / 4, k = i % 4;
            const int want = line >= 3 || k == 3 ? GuardedBuffer::kCanary : k == 0 ? expect.a : k == 1 ? expect.b : expect.c;
            EXPECT_EQ(out[i], want) << TierName(t) << " byte " << i;
        }
    }
    EXPECT_EQ(expect.a, 212);
    EXPECT_EQ(expect.b, 11);
    EXPECT_EQ(expect.c, 242);
}

TEST(YCbCrEdges, WidthOneOfA422SourceUsesItsOneChromaByteTwice) {
    FOR_EACH_TIER(t) {
        const GuardedBuffer out = RunPacked(kC2ToRgb[t], {60, 90, 200, 30}, 2, 6, 3, 1, 2);
        const Px a = Inverse422(60, 90, 90), b = Inverse422(200, 30, 30);
        EXPECT_EQ((Bytes{out[0], out[1], out[2], out[3], out[4], out[5]}),
                  (Bytes{uint8_t(a.a), uint8_t(a.b), uint8_t(a.c), uint8_t(b.a), uint8_t(b.b), uint8_t(b.c)}))
            << TierName(t);
    }
}

// The last pixel of an odd width borrows V from the pair before it.
TEST(YCbCrEdges, OddWidthLastPixelTakesTheVOfThePreviousPair) {
    const Bytes c2 = {50, 60, 70, 240, 180, 30};
    for (int t : {kPx, kM6, kA6}) {
        const GuardedBuffer out = RunPacked(kC2ToRgb[t], c2, 6, 9, 9, 3, 1);
        const Px last = Inverse422(180, 30, 240);
        EXPECT_EQ(out[6], last.a);
        EXPECT_EQ(out[7], last.b);
        EXPECT_EQ(out[8], last.c);
    }
}

TEST(YCbCrEdges, BlackAndWhiteLumaThroughTheTableEnds) {
    const int tiers[] = {kPx, kM6, kA6, kW7};
    for (int t : tiers) {
        const GuardedBuffer c3 = RunPacked(kC3ToRgb[t], {0, 128, 128, 255, 128, 128}, 6, 6, 6, 2, 1);
        EXPECT_EQ((Bytes{c3[0], c3[1], c3[2], c3[3], c3[4], c3[5]}), (Bytes{0, 0, 0, 255, 255, 255})) << TierName(t);
        const GuardedBuffer c2 = RunPacked(kC2ToRgb[t], {0, 128, 255, 128}, 4, 6, 6, 2, 1);
        EXPECT_EQ((Bytes{c2[0], c2[1], c2[2], c2[3], c2[4], c2[5]}), (Bytes{0, 0, 0, 255, 255, 255})) << TierName(t);
    }
}

TEST(YCbCrEdges, ForwardWorkedValues) {
    FOR_EACH_TIER(t) {
        const GuardedBuffer out = RunPacked(kRgbToC3[t], {255, 255, 255, 0, 0, 0}, 6, 6, 6, 2, 1);
        EXPECT_EQ((Bytes{out[0], out[1], out[2], out[3], out[4], out[5]}), (Bytes{235, 128, 128, 16, 128, 128}))
            << TierName(t);
    }
}

TEST(YCbCrEdges, AlphaBytesOfAC4DestinationsKeepWhatStoodThere) {
    const Bytes src = {10, 20, 30, 1, 200, 100, 50, 2, 0, 255, 0, 3};
    FOR_EACH_TIER(t) {
        for (const BytesFn fn : {kRgbToAC4[t], kAC4ToRgb[t]}) {
            const GuardedBuffer out = RunPacked(fn, src, 12, 12, 12, 3, 1);
            EXPECT_EQ(out[3], GuardedBuffer::kCanary);
            EXPECT_EQ(out[7], GuardedBuffer::kCanary);
            EXPECT_EQ(out[11], GuardedBuffer::kCanary);
        }
    }
}

// The 4:2:2 form folds its offsets; the same pixel can come out one apart
// from the form of the 4:4:4 sources.
TEST(YCbCrEdges, TheTwoInverseFormsAreKeptApart) {
    bool differ = false;
    for (int y = 0; y < 256 && !differ; y += 3)
        for (int u = 0; u < 256 && !differ; u += 5)
            for (int v = 0; v < 256 && !differ; v += 7) {
                const GuardedBuffer a = RunPacked(kC2ToRgb[kPx], {uint8_t(y), uint8_t(u), uint8_t(y), uint8_t(v)}, 4, 6, 6, 2, 1);
                const GuardedBuffer b = RunPacked(kC3ToRgb[kPx], {uint8_t(y), uint8_t(u), uint8_t(v)}, 3, 3, 3, 1, 1);
                for (int k = 0; k < 3; ++k) {
                    EXPECT_LE(std::abs(a[k] - b[k]), 1);
                    differ = differ || a[k] != b[k];
                }
            }
    EXPECT_TRUE(differ);
}

// 16-bit words: an odd destination step loses its low bit.
TEST(YCbCrEdges, OddWordStepActsAsTheHalvedStep) {
    const Member& m = Find("ImgYCbCrToRGB565");
    FOR_EACH_TIER(t) {
        Case c{5, 3, 0, 7, 0, 0, 3};  // destination step 17 bytes: 8 words
        const Outcome o = RunMember(m, t, c);
        EXPECT_EQ(o.status, 0);
        EXPECT_TRUE(o.asModel) << TierName(t);
    }
}

TEST(YCbCrEdges, PackedWordsOfGreyAndWhite) {
    FOR_EACH_TIER(t) {
        const WordsFn fns[6] = {t == kPx ? px_ImgYCbCrToRGB565 : t == kM6 ? m6_ImgYCbCrToRGB565 : t == kA6 ? a6_ImgYCbCrToRGB565 : w7_ImgYCbCrToRGB565,
                                t == kPx ? px_ImgYCbCrToBGR565 : t == kM6 ? m6_ImgYCbCrToBGR565 : t == kA6 ? a6_ImgYCbCrToBGR565 : w7_ImgYCbCrToBGR565,
                                t == kPx ? px_ImgYCbCrToRGB555 : t == kM6 ? m6_ImgYCbCrToRGB555 : t == kA6 ? a6_ImgYCbCrToRGB555 : w7_ImgYCbCrToRGB555,
                                t == kPx ? px_ImgYCbCrToBGR555 : t == kM6 ? m6_ImgYCbCrToBGR555 : t == kA6 ? a6_ImgYCbCrToBGR555 : w7_ImgYCbCrToBGR555,
                                t == kPx ? px_ImgYCbCrToRGB444 : t == kM6 ? m6_ImgYCbCrToRGB444 : t == kA6 ? a6_ImgYCbCrToRGB444 : w7_ImgYCbCrToRGB444,
                                t == kPx ? px_ImgYCbCrToBGR444 : t == kM6 ? m6_ImgYCbCrToBGR444 : t == kA6 ? a6_ImgYCbCrToBGR444 : w7_ImgYCbCrToBGR444};
        const uint16_t white[6] = {0xFFFF, 0xFFFF, 0x7FFF, 0x7FFF, 0x0FFF, 0x0FFF};
        for (int i = 0; i < 6; ++i) {
            uint16_t out[2] = {0xAAAA, 0xAAAA};
            EXPECT_EQ(fns[i](Bytes{235, 128, 128}.data(), 3, out, 2, 1, 1), 0);
            EXPECT_EQ(out[0], white[i]) << TierName(t) << " " << i;
            EXPECT_EQ(out[1], 0xAAAA);
        }
        // Red alone: the swap flag moves it from the low to the high field.
        uint16_t red[2];
        const Px r = Inverse(82, 90, 240);
        EXPECT_EQ(fns[0](Bytes{82, 90, 240}.data(), 3, red, 2, 1, 1), 0);
        EXPECT_EQ(fns[1](Bytes{82, 90, 240}.data(), 3, red + 1, 2, 1, 1), 0);
        EXPECT_EQ(red[0] >> 11, r.a >> 3);
        EXPECT_EQ(red[1] & 31, r.a >> 3);
    }
}

// The whole-image run gives what the line by line walk gives.
TEST(YCbCrEdges, GaplessImagesRunAsOneLineWithTheSameBytes) {
    for (const char* name : {"ImgYCbCr422ToBGR555", "ImgYCbCrToRGB444"}) {
        const Member& m = Find(name);
        FOR_EACH_TIER(t) {
            for (const auto& s : {std::pair<int, int>{16, 16}, {24, 12}, {6, 5}, {15, 20}, {3, 3}}) {
                Case gapless{s.first, s.second, 0, 0, 0, 0, 11};
                Case padded{s.first, s.second, 4, 6, 0, 0, 11};
                EXPECT_TRUE(RunMember(m, t, gapless).asModel) << name << " " << TierName(t);
                EXPECT_TRUE(RunMember(m, t, padded).asModel) << name << " " << TierName(t);
            }
        }
    }
}

// 4:2:0 sizes that take only the drivers' edge paths give the reference
// results in every tier.
TEST(YCbCrEdges, FourTwoZeroEdgePathsUseTheReferenceInEveryTier) {
    for (const char* name : {"ImgRGBToYCbCr420C3P3", "ImgYCbCr420ToRGBP3C3"}) {
        const Member& m = Find(name);
        for (const auto& s : {std::pair<int, int>{1, 1}, {1, 2}, {9, 1}, {1, 7}}) {
            for (int t : {kA6, kW7}) {
                Case c{s.first, s.second, 0, 0, 0, 0, 21};
                Side src(m.src, c.width, c.height, 0, 0, c.seed);
                Side a(m.dst, c.width, c.height, 0, 0, 99), b(m.dst, c.width, c.height, 0, 0, 99);
                Bound ba(src, a), bb(src, b);
                EXPECT_EQ(m.tiers[kPx](ba.args), 0);
                EXPECT_EQ(m.tiers[t](bb.args), 0);
                EXPECT_EQ(a.Contents(), b.Contents()) << name << " " << TierName(t) << " " << s.first << "x" << s.second;
            }
        }
    }
}

TEST(YCbCrEdges, OneByOneFourTwoZeroWritesOneSampleOfEachPlane) {
    const Member& m = Find("ImgRGBToYCbCr420C3P3");
    FOR_EACH_TIER(t) {
        Side src(kC3, 1, 1, 0, 0, 1), dst(kP3x420, 1, 1, 0, 0, 2);
        std::memcpy(src.ptrs[0], Bytes{255, 0, 0}.data(), 3);
        Bound b(src, dst);
        ASSERT_EQ(m.tiers[t](b.args), 0);
        const Px red{255, 0, 0};
        EXPECT_EQ(dst.ptrs[0][0], Y(red));
        EXPECT_EQ(dst.ptrs[1][0], Cb1(red));
        EXPECT_EQ(dst.ptrs[2][0], Cr1(red));
        EXPECT_EQ(Cr1(red), 240);
    }
}

}  // namespace

// The 16-bit members against the model, bit for bit, in every tier: random
// frames of many sizes, all 2^24 YUV triples, and the worked values.
#include <gtest/gtest.h>

#include <string>

#include "rgb16_harness.h"
#include "sweep_stride.h"

using namespace rgb16_harness;
using rgb16_model::kFormats;
using yuv420_model::TierName;

namespace {

std::string Describe(int format, int tier, int w, int h) {
    return std::string(kFormats[format].name) + " " + TierName(tier) + " " + std::to_string(w) + "x" +
           std::to_string(h);
}

void ExpectModel(int format, int tier, const YuvFrame& in, int pad, int dstPad) {
    const WordRun r = Convert(Entry(format, tier), in, pad, dstPad);
    const std::string what = Describe(format, tier, in.width, in.height);
    EXPECT_EQ(r.status, PrimStatusOk) << what;
    EXPECT_TRUE(r.words == rgb16_model::Convert(in, tier, kFormats[format])) << what;
    EXPECT_TRUE(r.outsideUntouched) << what;
}

// Widths 1 to 40 pass the vector steps of 4 and 2 pairs with every
// remainder, odd widths and every edge; heights give one line, odd and even
// counts of line pairs.
TEST(Rgb16Convert, SmallFramesMatchTheModel) {
    uint32_t seed = 1;
    for (int format = 0; format < 6; ++format)
        for (int tier : yuv420_model::kTiers)
            for (int h : {1, 2, 3, 4, 5})
                for (int w = 1; w <= 40; ++w)
                    ExpectModel(format, tier, yuv420_harness::RandomYuv(w, h, seed++), w % 3, (w + h) % 4);
}

TEST(Rgb16Convert, LargeFramesMatchTheModel) {
    const int sizes[][2] = {{641, 9}, {1024, 4}, {333, 17}, {352, 288}};
    uint32_t seed = 500;
    for (int format = 0; format < 6; ++format)
        for (int tier : yuv420_model::kTiers)
            for (const auto& s : sizes) ExpectModel(format, tier, yuv420_harness::RandomYuv(s[0], s[1], seed++), 7, 3);
}

// All 2^24 triples of Y, U, V through the row kernels: for each U, a
// frame of 512 by 128 whose pairs run through every V and every Y, four Y
// values a pair.  Done for the 5-6-5 and the 4-4-4 layout in each order.
TEST(Rgb16Convert, EveryYuvTripleMatchesTheModel) {
    const int w = 512, h = 128, pairsPerLine = w / 2;
    for (int format : {0, 5})
        for (int tier : yuv420_model::kTiers) {
            int failures = 0;
            for (int u = 0; u < 256 && failures == 0; u += pixmoor_test::SweepStride()) {
                YuvFrame f = YuvFrame::Make(w, h);
                for (int i = 0; i < h / 2; ++i)
                    for (int j = 0; j < pairsPerLine; ++j) {
                        const int n = i * pairsPerLine + j;  // 0 .. 16383
                        const int v = n / 64, y = 4 * (n % 64);
                        f.U(j, i) = static_cast<uint8_t>(u);
                        f.V(j, i) = static_cast<uint8_t>(v);
                        f.Y(2 * j, 2 * i) = static_cast<uint8_t>(y);
                        f.Y(2 * j + 1, 2 * i) = static_cast<uint8_t>(y + 1);
                        f.Y(2 * j, 2 * i + 1) = static_cast<uint8_t>(y + 2);
                        f.Y(2 * j + 1, 2 * i + 1) = static_cast<uint8_t>(y + 3);
                    }
                const WordRun r = Convert(Entry(format, tier), f, 0, 0);
                if (r.words != rgb16_model::Convert(f, tier, kFormats[format])) ++failures;
            }
            EXPECT_EQ(failures, 0) << Describe(format, tier, w, h);
        }
}

YuvFrame UniformYuv(int w, int h, int y, int u, int v) {
    YuvFrame f = YuvFrame::Make(w, h);
    for (auto& s : f.y) s = static_cast<uint8_t>(y);
    for (auto& s : f.u) s = static_cast<uint8_t>(u);
    for (auto& s : f.v) s = static_cast<uint8_t>(v);
    return f;
}

// Mid grey gives 0x8410 in 5-6-5 in both orders and 0x0888 in 4-4-4;
// white 0xFFFF, 0x7FFF, 0x0FFF; in every tier, kernel and edges alike.
TEST(Rgb16Convert, WorkedValues) {
    const uint16_t grey[6] = {0x8410, 0x8410, 0x4210, 0x4210, 0x0888, 0x0888};
    const uint16_t white[6] = {0xFFFF, 0xFFFF, 0x7FFF, 0x7FFF, 0x0FFF, 0x0FFF};
    for (int format = 0; format < 6; ++format)
        for (int tier : yuv420_model::kTiers) {
            const WordRun g = Convert(Entry(format, tier), UniformYuv(19, 5, 128, 128, 128), 0, 0);
            for (uint16_t word : g.words) ASSERT_EQ(word, grey[format]) << Describe(format, tier, 19, 5);
            const WordRun wh = Convert(Entry(format, tier), UniformYuv(19, 5, 255, 128, 128), 0, 0);
            for (uint16_t word : wh.words) ASSERT_EQ(word, white[format]) << Describe(format, tier, 19, 5);
            EXPECT_EQ(g.words.size(), 95u);
        }
}

// Red goes high in the RGB members and low in the BGR members.
TEST(Rgb16Convert, OrderFlagSwapsRedAndBlue) {
    const YuvFrame red = UniformYuv(4, 2, 76, 90, 255);  // close to pure red
    for (int tier : yuv420_model::kTiers)
        for (int format = 0; format < 6; format += 2) {
            const WordRun rgb = Convert(Entry(format, tier), red, 0, 0);
            const WordRun bgr = Convert(Entry(format + 1, tier), red, 0, 0);
            const int rb = kFormats[format].redBlueBits, g = kFormats[format].greenBits;
            const uint16_t a = rgb.words[0], b = bgr.words[0];
            EXPECT_EQ(a >> (rb + g), b & ((1 << rb) - 1)) << Describe(format, tier, 4, 2);
            EXPECT_EQ(a & ((1 << rb) - 1), b >> (rb + g)) << Describe(format, tier, 4, 2);
            EXPECT_EQ((a >> rb) & ((1 << g) - 1), (b >> rb) & ((1 << g) - 1));
            EXPECT_GT(a >> (rb + g), 0);
        }
}

// A height or width of 1 returns 0 with the destination untouched.
TEST(Rgb16Convert, OneLineOrOneColumnWritesNothing) {
    for (int format = 0; format < 6; ++format)
        for (int tier : yuv420_model::kTiers)
            for (const auto& s : {std::pair<int, int>{1, 1}, {1, 6}, {7, 1}, {40, 1}, {1, 33}}) {
                const WordRun r = Convert(Entry(format, tier), yuv420_harness::RandomYuv(s.first, s.second, 9), 1, 1);
                EXPECT_EQ(r.status, PrimStatusOk) << Describe(format, tier, s.first, s.second);
                EXPECT_TRUE(r.words.empty()) << Describe(format, tier, s.first, s.second);
            }
}

// dstStep 1001 bytes acts as 500 words.
TEST(Rgb16Convert, OddDstStepLosesItsLowBit) {
    const int w = 37, h = 5;
    const YuvFrame in = yuv420_harness::RandomYuv(w, h, 77);
    for (int format = 0; format < 6; ++format)
        for (int tier : yuv420_model::kTiers) {
            yuv420_harness::Yuv420Planes src(w, h, 0);
            src.Load(in);
            src.Bind();
            const uint8_t* const sp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
            WordImage odd(w, h, 1001), even(w, h, 1000);
            ASSERT_EQ(Entry(format, tier)(sp, src.steps, odd.data(), 1001, w, h), PrimStatusOk);
            ASSERT_EQ(Entry(format, tier)(sp, src.steps, even.data(), 1000, w, h), PrimStatusOk);
            EXPECT_EQ(odd.Read(), even.Read()) << Describe(format, tier, w, h);
            EXPECT_EQ(odd.Read(), rgb16_model::Convert(in, tier, kFormats[format]));
            // The words of line 1 start 1000 bytes in, not 1001.
            uint16_t first;
            std::memcpy(&first, odd.buf.data() + 1000, 2);
            EXPECT_EQ(first, odd.Read()[w]);
        }
}

}  // namespace

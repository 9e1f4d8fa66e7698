// ImgRGBToYUV422C3C2 in every tier against the pair model: random frames
// of many widths (odd ones write Y and U alone for their last pixel), the
// odd-width single pixel over all 2^24 colours, the chroma extremes and
// the clamp of V.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gray_harness.h"
#include "primitives/colour/analog422_clamp_table.h"
#include "sweep_stride.h"

using namespace gray_harness;
using gray_model::kTiers;
using gray_model::TierName;

namespace {

// The bytes the member writes for one line: Y0 U Y1 V a pair, then Y U for
// an odd last pixel.
std::vector<uint8_t> ModelLine(const uint8_t* p, int width) {
    std::vector<uint8_t> out;
    for (int x = 0; x + 1 < width; x += 2) {
        const uint8_t* a = p + 3 * x;
        const gray_model::Yuv422Pair q = gray_model::Analog422Pair(a[0], a[1], a[2], a[3], a[4], a[5]);
        for (int v : {q.y0, q.u, q.y1, q.v}) out.push_back(static_cast<uint8_t>(v));
    }
    if (width & 1) {
        const uint8_t* a = p + 3 * (width - 1);
        int y, u;
        gray_model::Analog422Single(a[0], a[1], a[2], &y, &u);
        out.push_back(static_cast<uint8_t>(y));
        out.push_back(static_cast<uint8_t>(u));
    }
    return out;
}

int WrittenBytes(int width) { return 4 * (width >> 1) + 2 * (width & 1); }

struct Written {
    PrimStatus status;
    std::vector<std::vector<uint8_t>> lines;
    bool outsideUntouched;
};

// The destination has room for 2 * width bytes a line plus `dstPad`; an odd
// width leaves the last two bytes of the room untouched.
Written RunMember(int tier, const Source<uint8_t>& src, int dstPad) {
    const int w = src.width, h = src.height;
    Destination dst(2 * w, h, 2 * w + dstPad);
    Written r{Analog422Entry(tier)(src.data.data(), src.stepBytes, dst.buf.data(), dst.stepBytes, w, h), {}, false};
    r.outsideUntouched = dst.OutsideUntouched(WrittenBytes(w));
    for (int y = 0; y < h; ++y) r.lines.emplace_back(dst.Line(y), dst.Line(y) + WrittenBytes(w));
    return r;
}

TEST(Analog422, MatchesTheModelInEveryTier) {
    uint32_t seed = 1;
    for (int tier : kTiers)
        for (int h : {1, 2, 3})
            for (int w = 1; w <= 41; ++w)
                for (int pad : {0, 5}) {
                    const Source<uint8_t> src = RandomSource<uint8_t>(w, h, 3, pad, seed++);
                    const Written r = RunMember(tier, src, pad + (w & 1));
                    const std::string what = std::string(TierName(tier)) + " " + std::to_string(w) + "x" + std::to_string(h);
                    ASSERT_EQ(r.status, 0) << what;
                    ASSERT_TRUE(r.outsideUntouched) << what;
                    for (int y = 0; y < h; ++y) ASSERT_EQ(r.lines[y], ModelLine(src.Pixel(0, y), w)) << what << " line " << y;
                }
}

TEST(Analog422, WideFramesMatchTheModel) {
    for (int tier : kTiers) {
        const Source<uint8_t> src = RandomSource<uint8_t>(4097, 8, 3, 3, 77 + tier);
        const Written r = RunMember(tier, src, 2);
        ASSERT_TRUE(r.outsideUntouched);
        for (int y = 0; y < 8; ++y) ASSERT_EQ(r.lines[y], ModelLine(src.Pixel(0, y), 4097)) << TierName(tier);
    }
}

// The last pixel of an odd width, for every colour: a picture one pixel
// wide, one colour a line.
TEST(Analog422, OddLastPixelForEveryColour) {
    Source<uint8_t> src(1, 65536, 3, 0);
    for (int tier : kTiers)
        for (int r = 0; r < 256; r += (tier == 0 ? pixmoor_test::SweepStride() : 15)) {
            for (int i = 0; i < 65536; ++i) {
                uint8_t* p = src.Pixel(0, i);
                p[0] = static_cast<uint8_t>(r);
                p[1] = static_cast<uint8_t>(i >> 8);
                p[2] = static_cast<uint8_t>(i);
            }
            const Written out = RunMember(tier, src, 1);
            ASSERT_TRUE(out.outsideUntouched);
            for (int i = 0; i < 65536; ++i) {
                int y, u;
                gray_model::Analog422Single(r, i >> 8, i & 255, &y, &u);
                ASSERT_EQ(out.lines[i][0], y) << r << " " << i;
                ASSERT_EQ(out.lines[i][1], u) << r << " " << i;
            }
        }
}

// Pairs of one colour: every colour of the 2^24, in lines of 256 pixels.
TEST(Analog422, PairsOfOneColour) {
    Source<uint8_t> src(512, 256, 3, 0);
    for (int tier : kTiers)
        for (int r = 0; r < 256; r += (tier == 0 ? 1 : 51)) {
            for (int g = 0; g < 256; ++g)
                for (int b = 0; b < 256; ++b)
                    for (int k = 0; k < 2; ++k) {
                        uint8_t* p = src.Pixel(2 * b + k, g);
                        p[0] = static_cast<uint8_t>(r);
                        p[1] = static_cast<uint8_t>(g);
                        p[2] = static_cast<uint8_t>(b);
                    }
            const Written out = RunMember(tier, src, 0);
            for (int g = 0; g < 256; ++g) ASSERT_EQ(out.lines[g], ModelLine(src.Pixel(0, g), 512)) << r << " " << g;
        }
}

std::vector<uint8_t> OnePair(int tier, const uint8_t (&rgb)[6]) {
    Source<uint8_t> src(2, 1, 3, 0);
    std::copy(rgb, rgb + 6, src.data.begin());
    return RunMember(tier, src, 0).lines[0];
}

TEST(Analog422, WorkedPairs) {
    for (int tier : kTiers) {
        // White and black: full luma, neutral chroma.
        EXPECT_EQ(OnePair(tier, {255, 255, 255, 255, 255, 255}), (std::vector<uint8_t>{255, 128, 255, 128}));
        EXPECT_EQ(OnePair(tier, {0, 0, 0, 0, 0, 0}), (std::vector<uint8_t>{0, 128, 0, 128}));
        // Red: V index 156 clamps to 255.  Cyan: V index -157 clamps to 0.
        const std::vector<uint8_t> red = OnePair(tier, {255, 0, 0, 255, 0, 0});
        EXPECT_EQ(red[0], 76);
        EXPECT_EQ(red[3], 255);
        const std::vector<uint8_t> cyan = OnePair(tier, {0, 255, 255, 0, 255, 255});
        EXPECT_EQ(cyan[0], 178);
        EXPECT_EQ(cyan[3], 0);
        // Y has no rounding term: 19595 * 255 + ... for (1, 1, 1) is 65536,
        // for (0, 0, 1) 7471; both truncate.
        const std::vector<uint8_t> low = OnePair(tier, {1, 1, 1, 0, 0, 1});
        EXPECT_EQ(low[0], 1);
        EXPECT_EQ(low[2], 0);
    }
}

// An odd width leaves the last pair half written: Y and U only.
TEST(Analog422, OddWidthWritesTwoBytesForTheLastPixel) {
    for (int tier : kTiers) {
        Source<uint8_t> src(3, 1, 3, 0);
        const uint8_t px[9] = {10, 20, 30, 40, 50, 60, 255, 0, 0};
        std::copy(px, px + 9, src.data.begin());
        Destination dst(6, 1, 6);
        ASSERT_EQ(Analog422Entry(tier)(src.data.data(), 9, dst.buf.data(), 6, 3, 1), 0);
        int y, u;
        gray_model::Analog422Single(255, 0, 0, &y, &u);
        EXPECT_EQ(dst.buf[4], y);
        EXPECT_EQ(dst.buf[5], u);
        EXPECT_TRUE(dst.OutsideUntouched(6));
        // Six bytes are all it needs: nothing goes past them.
        EXPECT_EQ(WrittenBytes(3), 6);
    }
}

TEST(Analog422, ClampPlus128Table) {
    using pixmoor::colour::ImgClampPlus128Table;
    for (int i = -256; i < 256; ++i) EXPECT_EQ(ImgClampPlus128Table[i], gray_model::ClampPlus128(i)) << i;
    EXPECT_EQ(ImgClampPlus128Table[-128], 0);
    EXPECT_EQ(ImgClampPlus128Table[-127], 1);
    EXPECT_EQ(ImgClampPlus128Table[126], 254);
    EXPECT_EQ(ImgClampPlus128Table[127], 255);
}

}  // namespace

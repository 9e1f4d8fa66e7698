// Each tier's conversion of 4:2:0 planes straight into 4-byte pixels, at
// every instruction-set level: each pixel must hold the three bytes that
// the tier's ImgYUV420ToRGB gives it, then a zero, and the model's values;
// the bytes between rows and around the picture stay as they were.
#include <gtest/gtest.h>

#include <string>

#include "isa_levels.h"
#include "primitives/colour/yuv420_rgb0.h"
#include "yuv420_harness.h"
#include "yuv420_model.h"

using namespace yuv420_harness;

namespace {

// Widths at, below and past every vector step of the row kernels (16, 32
// and 64 pixels in a line pair's AVX2 and AVX-512 steps), odd ones for the
// lone last column.
// a6's main loop takes 4 pairs a step and w7's 8 (where a line has 16 or
// more), with a6's odd factor row at every fourth pixel: widths 6 to 14 and
// 40 to 46 put a6's tail and lanes at every position.
const int kWidths[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 30, 31, 32, 33, 34, 40, 42, 44,
                       46, 62, 63, 64, 65, 66, 94, 96, 98, 126, 127, 128, 129, 130, 191, 192, 193, 255, 256, 257};
const int kHeights[] = {1, 2, 3, 4, 5};
const int kEveryTier[] = {PrimTierPx, PrimTierM6, PrimTierA6, PrimTierW7};
// Extra bytes after each row: none, one (the "RG32" road's pitch 0) and an
// odd number.
const int kGaps[] = {0, 1, 13};

// The tier's own 3-byte picture of `f`, compact.
std::vector<uint8_t> PrimitiveRows(int tier, const YuvFrame& f) {
    std::vector<uint8_t> rows(static_cast<size_t>(f.width) * f.height * 3);
    const uint8_t* const planes[3] = {f.y.data(), f.u.data(), f.v.data()};
    EXPECT_EQ(Entries(tier).yuv420ToRgb(planes, rows.data(), f.width, f.height), PrimStatusOk);
    return rows;
}

void CheckFrame(int tier, const YuvFrame& f, int gap) {
    const int w = f.width, h = f.height;
    const int step = 4 * w + gap;
    GuardedBuffer out(static_cast<size_t>(step) * (h - 1) + 4 * w, kFill);
    const uint8_t* const planes[3] = {f.y.data(), f.u.data(), f.v.data()};
    pixmoor::colour::Yuv420ToRgb0(static_cast<PrimTier>(tier), planes, out.data(), step, w, h);

    const std::vector<uint8_t> rows = PrimitiveRows(tier, f);
    const RgbFrame model = yuv420_model::Inverse(f, yuv420_model::Tier(tier), false);
    std::vector<uint8_t> expected(out.size(), kFill);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            uint8_t* p = &expected[static_cast<size_t>(y) * step + 4 * x];
            const uint8_t* q = &rows[(static_cast<size_t>(y) * w + x) * 3];
            p[0] = q[0], p[1] = q[1], p[2] = q[2], p[3] = 0;
            const yuv420_model::Pixel m = model.At(x, y);
            ASSERT_EQ((std::vector<int>{q[0], q[1], q[2]}), (std::vector<int>{m.r, m.g, m.b})) << x << "," << y;
        }
    ASSERT_EQ(out.Contents(), expected);
    ASSERT_TRUE(out.GuardsIntact());
}

TEST(Yuv420Rgb0, EveryLevelGivesTheTiersBytesWidened) {
    pixmoor_test::ForEachIsaLevel([] {
        uint32_t seed = 900;
        for (int tier : kEveryTier)
            for (int w : kWidths)
                for (int h : kHeights)
                    for (int gap : kGaps) {
                        SCOPED_TRACE(std::string(yuv420_model::TierName(tier)) + " " + std::to_string(w) + "x" +
                                     std::to_string(h) + " gap " + std::to_string(gap));
                        CheckFrame(tier, RandomYuv(w, h, seed++), gap);
                        if (::testing::Test::HasFatalFailure()) return;
                    }
    });
}

TEST(Yuv420Rgb0, FullHdFrameAtEveryLevel) {
    pixmoor_test::ForEachIsaLevel([] {
        for (int tier : kEveryTier) CheckFrame(tier, RandomYuv(1920, 1080, 77 + tier), 0);
    });
}

// One line pair of an even width through the keeping form: the bytes of
// the whole-picture form, and every sample of the pair copied, nothing
// written around.
void CheckPair(int tier, int w, uint32_t seed) {
    const YuvFrame f = RandomYuv(w, 2, seed);
    const int step = 4 * w;
    std::vector<uint8_t> whole(static_cast<size_t>(step) * 2, kFill);
    const uint8_t* const planes[3] = {f.y.data(), f.u.data(), f.v.data()};
    pixmoor::colour::Yuv420ToRgb0(static_cast<PrimTier>(tier), planes, whole.data(), step, w, 2);
    GuardedBuffer pair(whole.size(), kFill);
    // The copy as the "RG32" road lays it out: both luma lines, then the
    // line of each chroma plane, with nothing between.
    GuardedBuffer kept(static_cast<size_t>(step) - static_cast<size_t>(w), kFill);
    uint8_t* const k = kept.data();
    pixmoor::colour::Yuv420PairToRgb0Keeping(
        static_cast<PrimTier>(tier),
        pixmoor::colour::Yuv420Lines<const uint8_t>{f.y.data(), f.y.data() + w, f.u.data(), f.v.data()}, pair.data(),
        pair.data() + step, w, pixmoor::colour::Yuv420Lines<uint8_t>{k, k + w, k + 2 * w, k + 2 * w + w / 2});
    EXPECT_EQ(pair.Contents(), whole);
    EXPECT_TRUE(pair.GuardsIntact());
    std::vector<uint8_t> samples = f.y;
    samples.insert(samples.end(), f.u.begin(), f.u.end());
    samples.insert(samples.end(), f.v.begin(), f.v.end());
    EXPECT_EQ(kept.Contents(), samples);
    EXPECT_TRUE(kept.GuardsIntact());
}

TEST(Yuv420Rgb0, APairKeepsItsSamplesAtEveryLevel) {
    pixmoor_test::ForEachIsaLevel([] {
        uint32_t seed = 1200;
        for (int tier : kEveryTier)
            for (int w : kWidths)
                if ((w & 1) == 0) {
                    SCOPED_TRACE(std::string(yuv420_model::TierName(tier)) + " width " + std::to_string(w));
                    CheckPair(tier, w, seed++);
                }
    });
}

// Chroma at both ends of its range, where the sums leave 0..255: the
// clamps of the vector forms against the table of the plain code.
TEST(Yuv420Rgb0, ExtremeSamplesClampAlike) {
    pixmoor_test::ForEachIsaLevel([] {
        for (int tier : kEveryTier) {
            YuvFrame f = YuvFrame::Make(130, 4);
            for (size_t i = 0; i < f.y.size(); ++i) f.y[i] = (i & 1) ? 255 : 0;
            for (size_t i = 0; i < f.u.size(); ++i) {
                f.u[i] = (i % 3) == 0 ? 0 : 255;
                f.v[i] = (i % 5) < 2 ? 255 : 0;
            }
            CheckFrame(tier, f, 3);
        }
    });
}

}  // namespace

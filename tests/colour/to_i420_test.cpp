// The scalar roads into "I420": plane copies from "YV12" and the two packed
// 4:2:2 sources.
#include "guarded_buffer.h"
#include "colour_test_util.h"
#include "isa_levels.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;
using pixmoor_test::RandomBytes;

namespace {

// "I420" from a packed frame, from the formulas: lumas as they stand, each
// chroma sample the truncated mean of the two rows of a row pair.
std::vector<uint8_t> ModelPackedToI420(uint32_t src, const std::vector<uint8_t>& frame, int w, int h) {
    const PairLayout L = LayoutOf(src);
    std::vector<uint8_t> y(w * h), u, v;
    for (int r = 0; r < h; ++r)
        for (int p = 0; p < w / 2; ++p) {
            const uint8_t* q = &frame[2 * w * r + 4 * p];
            y[w * r + 2 * p] = q[L.yLeft];
            y[w * r + 2 * p + 1] = q[L.yRight];
        }
    for (int r = 0; r < h; r += 2)
        for (int p = 0; p < w / 2; ++p) {
            const uint8_t* a = &frame[2 * w * r + 4 * p];
            const uint8_t* b = a + 2 * w;
            u.push_back(uint8_t((a[L.u] + b[L.u]) / 2));
            v.push_back(uint8_t((a[L.v] + b[L.v]) / 2));
        }
    y.insert(y.end(), u.begin(), u.end());
    y.insert(y.end(), v.begin(), v.end());
    return y;
}

std::vector<uint8_t> ConvertPacked(uint32_t src, const std::vector<uint8_t>& frame, int w, int h, Orient so = kDefault,
                                   Orient dO = kDefault, uint32_t pitch = 0) {
    XFormPtr x = Ready(src, FCC_I420, w, h, so, dO);
    GuardedBuffer buf(x->DestBufferSize(), 0xC3);
    x->XForm(frame.data(), buf.data(), pitch);
    EXPECT_TRUE(buf.GuardsIntact());
    return buf.Contents();
}

}  // namespace

TEST(YV12ToI420, SwapsTheChromaPlanes) {
    for (auto [w, h] : {std::pair{4, 4}, std::pair{176, 144}, std::pair{12, 8}}) {
        const int ySize = w * h, c = ySize / 4;
        const std::vector<uint8_t> frame = RandomBytes(ySize * 3 / 2, w);
        for (auto [so, dO] : {std::pair{kDefault, kDefault}, std::pair{kBottomUp, kBottomUp},
                              std::pair{AsOrient(5), AsOrient(5)}}) {
            for (uint32_t pitch : {0u, 7u, 100000u}) {
                XFormPtr x = Ready(FCC_YV12, FCC_I420, w, h, so, dO);
                GuardedBuffer buf(x->DestBufferSize(), 0);
                x->XForm(frame.data(), buf.data(), pitch);
                std::vector<uint8_t> expected(frame.begin(), frame.begin() + ySize);
                expected.insert(expected.end(), frame.begin() + ySize + c, frame.end());              // U
                expected.insert(expected.end(), frame.begin() + ySize, frame.begin() + ySize + c);  // V
                EXPECT_EQ(buf.Contents(), expected);
                EXPECT_TRUE(buf.GuardsIntact());
            }
        }
    }
}

TEST(YV12ToI420, DifferentOrientationsWriteNothing) {
    const std::vector<uint8_t> frame = RandomBytes(24, 1);
    for (auto [so, dO] : {std::pair{kTopDown, kBottomUp}, std::pair{kBottomUp, kDefault}, std::pair{kDefault, AsOrient(3)}}) {
        XFormPtr x = Ready(FCC_YV12, FCC_I420, 4, 4, so, dO);
        GuardedBuffer buf(24, 0x99);
        x->XForm(frame.data(), buf.data(), 0);
        EXPECT_EQ(buf.Contents(), std::vector<uint8_t>(24, 0x99));
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

TEST(YV12ToI420, ZeroSizeWritesNothing) {
    XFormPtr x = Ready(FCC_YV12, FCC_I420, 0, 0);
    GuardedBuffer buf(0);
    const uint8_t src[4] = {1, 2, 3, 4};
    x->XForm(src, buf.data(), 0);
    EXPECT_TRUE(buf.GuardsIntact());
}

// Vector blocks and scalar tails at every instruction-set level.
TEST(PackedToI420, RandomFramesMatchTheModel) {
    std::vector<std::pair<int, int>> sizes = {{4, 12}, {176, 144}, {320, 240}, {36, 20}};
    for (int w : FastRowWidths()) sizes.push_back({w, 4});
    pixmoor_test::ForEachIsaLevel([&] {
        for (uint32_t src : {FCC_YUY2, FCC_UYVY})
            for (auto [w, h] : sizes) {
                const std::vector<uint8_t> frame = RandomBytes(2 * w * h, w * 31 + h);
                EXPECT_EQ(ConvertPacked(src, frame, w, h), ModelPackedToI420(src, frame, w, h)) << w << "x" << h;
            }
    });
}

TEST(PackedToI420, ChromaAveragesAreCutNotRounded) {
    pixmoor_test::ForEachIsaLevel([&] {
        for (uint32_t src : {FCC_YUY2, FCC_UYVY}) {
            const PairLayout L = LayoutOf(src);
            std::vector<uint8_t> frame(2 * 4 * 4, 50);
            // Column of the first pair: U 1 over 2; second pair: U 255 over 255;
            // V 3 over 0.
            frame[L.u] = 1, frame[8 + L.u] = 2;
            frame[4 + L.u] = 255, frame[12 + L.u] = 255;
            frame[L.v] = 3, frame[8 + L.v] = 0;
            const std::vector<uint8_t> out = ConvertPacked(src, frame, 4, 4);
            EXPECT_EQ(out[16], 1);
            EXPECT_EQ(out[17], 255);
            EXPECT_EQ(out[20], 1);
        }
    });
}

TEST(PackedToI420, SecondRowChromaIsNeverDropped) {
    pixmoor_test::ForEachIsaLevel([&] {
        // Even rows U = 0, odd rows U = 200: U = 100 throughout (a vector
        // block and a scalar tail a row).
        const int w = 72, h = 8;
        std::vector<uint8_t> frame(2 * w * h, 128);
        for (int r = 0; r < h; ++r)
            for (int p = 0; p < w / 2; ++p) frame[2 * w * r + 4 * p + 1] = uint8_t(r % 2 ? 200 : 0);
        const std::vector<uint8_t> out = ConvertPacked(FCC_YUY2, frame, w, h);
        for (int i = 0; i < w * h / 4; ++i) EXPECT_EQ(out[w * h + i], 100);
    });
}

TEST(PackedToI420, OrientationAndPitchHaveNoInfluence) {
    const std::vector<uint8_t> frame = RandomBytes(2 * 16 * 8, 4);
    for (uint32_t src : {FCC_YUY2, FCC_UYVY}) {
        const std::vector<uint8_t> plain = ConvertPacked(src, frame, 16, 8, kTopDown, kTopDown);
        EXPECT_EQ(ConvertPacked(src, frame, 16, 8, kTopDown, kBottomUp), plain);
        EXPECT_EQ(ConvertPacked(src, frame, 16, 8, kBottomUp, kDefault, 999), plain);
        EXPECT_EQ(ConvertPacked(src, frame, 16, 8, kDefault, kDefault, 0xFFFFFFF0u), plain);
    }
}

TEST(PackedToI420, ZeroSizeWritesNothing) {
    for (uint32_t src : {FCC_YUY2, FCC_UYVY}) {
        for (auto [w, h] : {std::pair{0, 0}, std::pair{0, 8}, std::pair{8, 0}}) {
            XFormPtr x = Ready(src, FCC_I420, w, h);
            GuardedBuffer buf(x->DestBufferSize());
            const std::vector<uint8_t> frame = RandomBytes(64, 2);
            x->XForm(frame.data(), buf.data(), 0);
            EXPECT_TRUE(buf.GuardsIntact());
            EXPECT_EQ(buf.Contents(), std::vector<uint8_t>(buf.size(), GuardedBuffer::kCanary));
        }
        // An object whose first Init failed the size test has size 0 by 0.
        XFormPtr failed = Create(src, FCC_I420);
        EXPECT_FALSE(failed->Init(AbsSIZE(10, 10), kDefault, kDefault));
        GuardedBuffer buf(0);
        const uint8_t one[4] = {1, 2, 3, 4};
        failed->XForm(one, buf.data(), 0);
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

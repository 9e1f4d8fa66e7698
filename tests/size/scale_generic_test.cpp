// The generic RGB scaler against a scalar model of nearest-neighbour
// selection by the error accumulator, at 8, 16, 24 and 32 bits, padded lines
// included.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "size/rgb_scale.h"
#include "isa_levels.h"
#include "size_test_support.h"

using namespace size_test;

namespace {

// Each output pixel is the source pixel the accumulator shows for its column
// on the line it shows for its row; pad bytes at the end of a line are zero.
Frame ModelScale(const Frame& src, AbsSIZE in, AbsSIZE out, int32_t bytesPerPixel) {
    const Selection columns = SelectByAccumulator(in.cx, out.cx, AccumulatorStep(in.cx, out.cx));
    const Selection rows = SelectByAccumulator(in.cy, out.cy, AccumulatorStep(in.cy, out.cy));
    EXPECT_EQ(columns.shown.size(), Bytes(out.cx));
    EXPECT_EQ(rows.shown.size(), Bytes(out.cy));
    const int32_t srcLine = PaddedLine(in.cx, bytesPerPixel), dstLine = PaddedLine(out.cx, bytesPerPixel);
    Frame r(Bytes(dstLine * out.cy), 0);
    for (size_t y = 0; y < rows.shown.size(); ++y)
        for (size_t x = 0; x < columns.shown.size(); ++x)
            for (int32_t b = 0; b < bytesPerPixel; ++b)
                r[y * Bytes(dstLine) + x * Bytes(bytesPerPixel) + Bytes(b)] =
                    src[Bytes(rows.shown[y] * srcLine + columns.shown[x] * bytesPerPixel + b)];
    return r;
}

// Scales a random frame through a fresh transform, with a destination of
// exactly DestBufferSize bytes prefilled with canaries, and compares.
void CheckScale(AbsSIZE in, AbsSIZE out, int32_t bits, uint32_t seed) {
    Transform t = Make(0, static_cast<uint32_t>(bits));
    ASSERT_TRUE(t->Init(in, out, XFormScale, InterpDefault));
    ASSERT_EQ(X::Routine(*t), &CSizeXFormRGBScale::ScaleGeneric);
    const int32_t bpp = bits / 8;
    ASSERT_EQ(t->DestBufferSize(), PaddedLine(out.cx, bpp) * out.cy);
    const Frame src = pixmoor_test::RandomBytes(Bytes(PaddedLine(in.cx, bpp) * in.cy), seed);
    GuardedBuffer dst(Bytes(t->DestBufferSize()));
    t->XForm(src.data(), dst.data());
    EXPECT_EQ(dst.Contents(), ModelScale(src, in, out, bpp))
        << in.cx << "x" << in.cy << " to " << out.cx << "x" << out.cy << " at " << bits;
    EXPECT_TRUE(dst.GuardsIntact());
}

}  // namespace

TEST(ScaleGeneric, RandomSizesAtEveryDepth) {
    pixmoor_test::ForEachIsaLevel([&] {
        std::mt19937 rng(99);
        std::uniform_int_distribution<int32_t> len(1, 300);
        for (int32_t bits : {8, 16, 24, 32}) {
            for (int i = 0; i < 60; ++i) {
                const AbsSIZE in(len(rng), len(rng)), out(len(rng), len(rng));
                if (in == out) continue;
                CheckScale(in, out, bits, static_cast<uint32_t>(i));
            }
        }
    });
}

TEST(ScaleGeneric, SmallAndLopsidedSizes) {
    pixmoor_test::ForEachIsaLevel([&] {
        const int32_t lengths[] = {1, 2, 3, 5, 7, 8, 13, 299, 300};
        uint32_t seed = 0;
        for (int32_t bits : {8, 16, 24, 32})
            for (int32_t a : lengths)
                for (int32_t b : lengths) {
                    if (a == b) continue;  // equal sizes copy
                    CheckScale(AbsSIZE(a, b), AbsSIZE(b, a), bits, ++seed);
                    CheckScale(AbsSIZE(a, 3), AbsSIZE(b, 3), bits, ++seed);
                }
    });
}

TEST(ScaleGeneric, QCIFAt32BitsIsNotInTheTable) {
    pixmoor_test::ForEachIsaLevel([&] {
        CheckScale(AbsSIZE(176, 144), AbsSIZE(352, 288), 32, 5);
        CheckScale(AbsSIZE(160, 120), AbsSIZE(176, 144), 16, 6);
    });
}

TEST(ScaleGeneric, PadBytesAreZeroInCopiedLinesAndRepeatInRepeatedOnes) {
    pixmoor_test::ForEachIsaLevel([&] {
        // 5x2 to 7x5 at 24 bits: 21 bytes of pixels and 3 pad bytes a line; the
        // source pad holds non-zero bytes that must not come through.
        Transform t = Make(FCC_RG24, 24);
        ASSERT_TRUE(t->Init(AbsSIZE(5, 2), AbsSIZE(7, 5), XFormScale, InterpDefault));
        const auto& s = dynamic_cast<const CSizeXFormRGBScale&>(*t);
        ASSERT_EQ(s.dstLinePad, 3);
        ASSERT_EQ(s.runsY->kind, RunCopy);
        ASSERT_EQ(s.runsY->next->kind, RunDuplicate);
        Frame src(32, 0xEE);
        GuardedBuffer dst(120);
        t->XForm(src.data(), dst.data());
        for (size_t line = 0; line < 5; ++line) {
            for (size_t i = 0; i < 21; ++i) EXPECT_EQ(dst[line * 24 + i], 0xEE);
            for (size_t i = 21; i < 24; ++i) EXPECT_EQ(dst[line * 24 + i], 0) << line;
        }
        EXPECT_TRUE(dst.GuardsIntact());
    });
}

TEST(ScaleGeneric, LengthsBelowOneWriteNothing) {
    pixmoor_test::ForEachIsaLevel([&] {
        // An empty list of lines (no input lines) or of pixels (no output width)
        // moves no byte.
        const AbsSIZE cases[][2] = {{AbsSIZE(0, 0), AbsSIZE(4, 4)}, {AbsSIZE(4, 4), AbsSIZE(0, 4)}};
        for (const auto& c : cases) {
            Transform t = Make(FCC_RG24, 24);
            ASSERT_TRUE(t->Init(c[0], c[1], XFormScale, InterpDefault));
            const auto& s = dynamic_cast<const CSizeXFormRGBScale&>(*t);
            EXPECT_TRUE(s.runsX->kind == RunNotStarted || s.runsY->kind == RunNotStarted);
            GuardedBuffer src(64), dst(64);
            t->XForm(src.data(), dst.data());
            for (size_t i = 0; i < 64; ++i) ASSERT_EQ(dst[i], GuardedBuffer::kCanary);
            EXPECT_TRUE(dst.GuardsIntact());
        }
    });
}

TEST(ScaleGeneric, ARepeatedGenericInitRebuildsTheLists) {
    Transform t = Make(0, 16);
    ASSERT_TRUE(t->Init(AbsSIZE(10, 10), AbsSIZE(20, 6), XFormScale, InterpDefault));
    ASSERT_TRUE(t->Init(AbsSIZE(20, 20), AbsSIZE(10, 40), XFormScale, InterpDefault));
    const auto& s = dynamic_cast<const CSizeXFormRGBScale&>(*t);
    EXPECT_EQ(s.stepX, 4000);
    EXPECT_EQ(s.stepY, 1000);
    EXPECT_EQ(s.runsX->next->kind, RunDrop);
    EXPECT_EQ(s.runsY->next->kind, RunDuplicate);
    EXPECT_EQ(s.srcTrailBytes, 2);  // one pixel of 2 bytes left unread
}

// Wide lines, so that the vector moves of the pixel map run: ratios whose
// eight output pixels lie within sixteen source pixels and ratios beyond,
// source lines that end just after or right at a vector window.
TEST(ScaleGeneric, WideLinesAtEveryDepth) {
    const int32_t pairs[][2] = {{1000, 650}, {640, 600}, {100, 37}, {64, 40}, {65, 40}, {700, 1400}, {1920, 1440},
                                {1440, 1920}, {600, 299}, {301, 150}, {96, 48}, {80, 79}};
    uint32_t seed = 50;
    pixmoor_test::ForEachIsaLevel([&] {
        for (int32_t bits : {8, 16, 24, 32})
            for (const auto& p : pairs) {
                CheckScale(AbsSIZE(p[0], 3), AbsSIZE(p[1], 4), bits, ++seed);
                CheckScale(AbsSIZE(p[0], 5), AbsSIZE(p[1], 2), bits, ++seed);
            }
    });
}

// The fixed routines of the RGB scaler for the seven 24-bit size pairs,
// compared with scalar models written from their output patterns.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "size/rgb_scale.h"
#include "isa_levels.h"
#include "size_test_support.h"

using namespace size_test;

namespace {

// A 24-bit frame without line padding, as all the table sizes have.
struct Picture {
    int32_t width, height;
    Frame bytes;
    const uint8_t* Pixel(int32_t x, int32_t y) const { return &bytes[Bytes((y * width + x) * 3)]; }
    uint8_t* Pixel(int32_t x, int32_t y) { return &bytes[Bytes((y * width + x) * 3)]; }
};

Picture Blank(int32_t w, int32_t h) { return {w, h, Frame(Bytes(w * h * 3), 0)}; }

void CopyPixel(uint8_t* to, const uint8_t* from) { std::copy(from, from + 3, to); }

// Every pixel twice and every line twice, except that in each group of 16
// output pixels the 14th (the second copy of the group's pixel 6) takes its
// first byte from pixel 7.
Picture ModelDouble(const Picture& in) {
    Picture out = Blank(in.width * 2, in.height * 2);
    for (int32_t y = 0; y < out.height; ++y)
        for (int32_t x = 0; x < out.width; ++x) {
            const int32_t group = x / 16, position = x % 16;
            uint8_t* p = out.Pixel(x, y);
            CopyPixel(p, in.Pixel(group * 8 + position / 2, y / 2));
            if (position == 13) p[0] = in.Pixel(group * 8 + 7, y / 2)[0];
        }
    return out;
}

// The even pixels of the even lines.
Picture ModelHalve(const Picture& in) {
    Picture out = Blank(in.width / 2, in.height / 2);
    for (int32_t y = 0; y < out.height; ++y)
        for (int32_t x = 0; x < out.width; ++x) CopyPixel(out.Pixel(x, y), in.Pixel(2 * x, 2 * y));
    return out;
}

// In every ten pixels the last is shown twice; every fifth line, counted
// from the fifth, is shown twice.
Picture ModelElevenTenths(const Picture& in) {
    std::vector<int32_t> lines;
    for (int32_t y = 0; y < in.height; ++y) {
        lines.push_back(y);
        if (y % 5 == 4) lines.push_back(y);
    }
    Picture out = Blank(in.width / 10 * 11, static_cast<int32_t>(lines.size()));
    for (int32_t y = 0; y < out.height; ++y)
        for (int32_t x = 0; x < out.width; ++x) {
            const int32_t ten = x / 11, position = std::min(x % 11, 9);
            CopyPixel(out.Pixel(x, y), in.Pixel(ten * 10 + position, lines[Bytes(y)]));
        }
    return out;
}

struct Pair {
    AbsSIZE in, out;
    SizeXFormRoutine routine;
    Picture (*model)(const Picture&);
};

const Pair kPairs[] = {
    {AbsSIZE(176, 144), AbsSIZE(352, 288), &CSizeXFormRGBScale::ScaleDouble24, ModelDouble},
    {AbsSIZE(352, 288), AbsSIZE(704, 576), &CSizeXFormRGBScale::ScaleDouble24, ModelDouble},
    {AbsSIZE(352, 288), AbsSIZE(176, 144), &CSizeXFormRGBScale::ScaleHalve24, ModelHalve},
    {AbsSIZE(704, 576), AbsSIZE(352, 288), &CSizeXFormRGBScale::ScaleHalve24, ModelHalve},
    {AbsSIZE(160, 120), AbsSIZE(176, 144), &CSizeXFormRGBScale::ScaleElevenTenths24, ModelElevenTenths},
    {AbsSIZE(320, 240), AbsSIZE(352, 288), &CSizeXFormRGBScale::ScaleElevenTenths24, ModelElevenTenths},
    {AbsSIZE(640, 480), AbsSIZE(704, 576), &CSizeXFormRGBScale::ScaleElevenTenths24, ModelElevenTenths},
};

// Scales one frame with a destination of exactly DestBufferSize bytes.
Frame Scale(CSizeXForm& t, const Frame& src) {
    GuardedBuffer dst(Bytes(t.DestBufferSize()));
    t.XForm(src.data(), dst.data());
    EXPECT_TRUE(dst.GuardsIntact());
    return dst.Contents();
}

}  // namespace

TEST(FixedScalers, TheTableChoosesTheRoutineAt24Bits) {
    for (const Pair& p : kPairs) {
        for (uint32_t code : {FCC_RG24, FCC_rg24, 0u}) {
            Transform t = Make(code, 24);
            ASSERT_TRUE(t->Init(p.in, p.out, XFormScale, InterpDefault));
            EXPECT_EQ(X::Routine(*t), p.routine);
            EXPECT_EQ(t->DestBufferSize(), p.out.cx * p.out.cy * 3);
            // The line fields and lists belong to the generic path only.
            const auto& s = dynamic_cast<const CSizeXFormRGBScale&>(*t);
            EXPECT_EQ(s.runsX, nullptr);
            EXPECT_EQ(s.runsY, nullptr);
            EXPECT_EQ(s.bytesPerPixel, 0u);
        }
        // The table is for 24 bits only, and asks for all four numbers.
        Transform deep = Make(0, 32);
        ASSERT_TRUE(deep->Init(p.in, p.out, XFormScale, InterpDefault));
        EXPECT_EQ(X::Routine(*deep), &CSizeXFormRGBScale::ScaleGeneric);
        Transform nearMiss = Make(FCC_RG24, 24);
        ASSERT_TRUE(nearMiss->Init(p.in, AbsSIZE(p.out.cx, p.out.cy + 2), XFormScale, InterpDefault));
        EXPECT_EQ(X::Routine(*nearMiss), &CSizeXFormRGBScale::ScaleGeneric);
        Transform swapped = Make(FCC_RG24, 24);
        ASSERT_TRUE(swapped->Init(AbsSIZE(p.in.cy, p.in.cx), p.out, XFormScale, InterpDefault));
        EXPECT_EQ(X::Routine(*swapped), &CSizeXFormRGBScale::ScaleGeneric);
    }
}

TEST(FixedScalers, RandomFramesMatchTheModels) {
    pixmoor_test::ForEachIsaLevel([&] {
        for (const Pair& p : kPairs) {
            for (uint32_t seed = 1; seed <= 3; ++seed) {
                Transform t = Make(FCC_RG24, 24);
                ASSERT_TRUE(t->Init(p.in, p.out, XFormScale, InterpDefault));
                Picture in{p.in.cx, p.in.cy, pixmoor_test::RandomBytes(Bytes(p.in.cx * p.in.cy * 3), seed)};
                const Picture expected = p.model(in);
                ASSERT_EQ(expected.width, p.out.cx);
                ASSERT_EQ(expected.height, p.out.cy);
                EXPECT_EQ(Scale(*t, in.bytes), expected.bytes) << p.in.cx << "x" << p.in.cy;
            }
        }
    });
}

TEST(FixedScalers, DoublingAltersOneByteInEachGroupOfSixteen) {
    pixmoor_test::ForEachIsaLevel([&] {
        // Pixel i of the source holds bytes 3i, 3i+1, 3i+2.
        Transform t = Make(FCC_RG24, 24);
        ASSERT_TRUE(t->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), XFormScale, InterpDefault));
        Frame src(176 * 144 * 3);
        for (size_t i = 0; i < src.size(); ++i) src[i] = static_cast<uint8_t>(i);
        const Frame out = Scale(*t, src);
        const uint8_t expected[48] = {0,  1,  2,  0,  1,  2,  3,  4,  5,  3,  4,  5,  6,  7,  8,  6,
                                      7,  8,  9,  10, 11, 9,  10, 11, 12, 13, 14, 12, 13, 14, 15, 16,
                                      17, 15, 16, 17, 18, 19, 20, 21, 19, 20, 21, 22, 23, 21, 22, 23};
        EXPECT_TRUE(std::equal(expected, expected + 48, out.begin()));
        // The second output line repeats the first.
        EXPECT_TRUE(std::equal(out.begin(), out.begin() + 1056, out.begin() + 1056));
    });
}

TEST(FixedScalers, ElevenTenthsRepeatsPixelNineWhereTheGenericRepeatsPixelZero) {
    pixmoor_test::ForEachIsaLevel([&] {
        Frame src(160 * 120 * 4);
        for (size_t i = 0; i < src.size(); ++i) src[i] = static_cast<uint8_t>(i * 7 + 1);
        Transform fixed = Make(FCC_RG24, 24);
        ASSERT_TRUE(fixed->Init(AbsSIZE(160, 120), AbsSIZE(176, 144), XFormScale, InterpDefault));
        const Frame f = Scale(*fixed, Frame(src.begin(), src.begin() + 160 * 120 * 3));
        EXPECT_TRUE(std::equal(f.begin(), f.begin() + 30, src.begin()));       // pixels 0 to 9
        EXPECT_TRUE(std::equal(f.begin() + 30, f.begin() + 33, src.begin() + 27));  // 9 again
        EXPECT_TRUE(std::equal(f.begin() + 33, f.begin() + 36, src.begin() + 30));  // then 10

        Transform generic = Make(0, 32);
        ASSERT_TRUE(generic->Init(AbsSIZE(160, 120), AbsSIZE(176, 144), XFormScale, InterpDefault));
        const Frame g = Scale(*generic, src);
        EXPECT_TRUE(std::equal(g.begin(), g.begin() + 4, src.begin()));
        EXPECT_TRUE(std::equal(g.begin() + 4, g.begin() + 8, src.begin()));  // pixel 0 at once
        EXPECT_TRUE(std::equal(g.begin() + 8, g.begin() + 12, src.begin() + 4));
    });
}

TEST(FixedScalers, ALaterFixedInitKeepsTheGenericLists) {
    Transform t = Make(FCC_RG24, 24);
    ASSERT_TRUE(t->Init(AbsSIZE(20, 10), AbsSIZE(30, 40), XFormScale, InterpDefault));
    const auto& s = dynamic_cast<const CSizeXFormRGBScale&>(*t);
    const ScaleRun* x = s.runsX;
    const ScaleRun* y = s.runsY;
    ASSERT_NE(x, nullptr);
    const int32_t stepX = s.stepX;
    ASSERT_TRUE(t->Init(AbsSIZE(352, 288), AbsSIZE(176, 144), XFormScale, InterpDefault));
    EXPECT_EQ(X::Routine(*t), &CSizeXFormRGBScale::ScaleHalve24);
    EXPECT_EQ(s.runsX, x);
    EXPECT_EQ(s.runsY, y);
    EXPECT_EQ(s.stepX, stepX);
    EXPECT_EQ(s.runsX->kind, RunCopy);
}

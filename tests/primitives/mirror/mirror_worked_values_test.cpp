// Small images worked by hand.
#include <gtest/gtest.h>
#include <pixmoor/primitives/mirror.h>

#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;

// The four tiers of an in-place 8-bit member on a copy of `image`.
template <typename Fn>
void ExpectInPlaceAllTiers(const Fn (&tiers)[4], const Bytes& image, int32_t step, int32_t w, int32_t h,
                           MirrorAxis axis, const Bytes& expected) {
    for (int t = 0; t < 4; ++t) {
        Bytes work = image;
        EXPECT_EQ(tiers[t](work.data(), step, w, h, axis), 0) << t;
        EXPECT_EQ(work, expected) << t;
    }
}

using InPlace8u = PrimStatus (*)(uint8_t*, int32_t, int32_t, int32_t, MirrorAxis);
const InPlace8u kMirror8uC3I[4] = {px_ImgMirror8uC3I, m6_ImgMirror8uC3I, a6_ImgMirror8uC3I, w7_ImgMirror8uC3I};
const InPlace8u kMirror8uAC4I[4] = {px_ImgMirror8uAC4I, m6_ImgMirror8uAC4I, a6_ImgMirror8uAC4I, w7_ImgMirror8uAC4I};

}  // namespace

TEST(MirrorWorkedValues, OddSizeOnBothAxesInPlaceTurnsAboutTheCentre) {
    // 3 by 3 pixels of three bytes, step 10 (one padding byte per line).
    Bytes image(30);
    for (int i = 0; i < 30; ++i) image[i] = static_cast<uint8_t>(i);
    Bytes expected = image;
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x)
            for (int c = 0; c < 3; ++c) expected[y * 10 + x * 3 + c] = image[(2 - y) * 10 + (2 - x) * 3 + c];
    EXPECT_EQ(expected[13], 13);  // the centre pixel stays
    EXPECT_EQ(expected[9], 9);    // padding stays
    ExpectInPlaceAllTiers(kMirror8uC3I, image, 10, 3, 3, MirrorBothAxes, expected);
}

TEST(MirrorWorkedValues, HeightOneOnAxisZeroAndWidthOneOnAxisOneChangeNothing) {
    const Bytes line = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    ExpectInPlaceAllTiers(kMirror8uC3I, line, 9, 3, 1, MirrorHorizontalAxis, line);
    ExpectInPlaceAllTiers(kMirror8uC3I, line, 3, 1, 3, MirrorVerticalAxis, line);
    // Width 1 on axis 2 only exchanges the lines.
    ExpectInPlaceAllTiers(kMirror8uC3I, line, 3, 1, 3, MirrorBothAxes, Bytes{7, 8, 9, 4, 5, 6, 1, 2, 3});
}

TEST(MirrorWorkedValues, InPlaceAlphaStaysOnBothSidesOfAnExchange) {
    const Bytes image = {1, 2, 3, 0xA1, 4, 5, 6, 0xA2, 7, 8, 9, 0xA3};
    ExpectInPlaceAllTiers(kMirror8uAC4I, image, 12, 3, 1, MirrorVerticalAxis,
                          Bytes{7, 8, 9, 0xA1, 4, 5, 6, 0xA2, 1, 2, 3, 0xA3});
    ExpectInPlaceAllTiers(kMirror8uAC4I, image, 4, 1, 3, MirrorHorizontalAxis,
                          Bytes{7, 8, 9, 0xA1, 4, 5, 6, 0xA2, 1, 2, 3, 0xA3});
}

TEST(MirrorWorkedValues, AnOddStepOfA16BitMemberWalksTheStepRoundedDown) {
    // Width 2, height 3, step 5: lines start at bytes 0, 4 and 8.
    using Fn = PrimStatus (*)(const uint16_t*, int32_t, uint16_t*, int32_t, int32_t, int32_t, MirrorAxis);
    const Fn tiers[4] = {px_ImgMirror16uC1, m6_ImgMirror16uC1, a6_ImgMirror16uC1, w7_ImgMirror16uC1};
    const uint16_t src[6] = {10, 11, 20, 21, 30, 31};
    for (Fn fn : tiers) {
        uint16_t dst[7] = {0, 0, 0, 0, 0, 0, 0xBEEF};
        EXPECT_EQ(fn(src, 5, dst, 5, 2, 3, MirrorHorizontalAxis), 0);
        const uint16_t expected[7] = {30, 31, 20, 21, 10, 11, 0xBEEF};
        for (int i = 0; i < 7; ++i) EXPECT_EQ(dst[i], expected[i]) << i;
    }
}

TEST(MirrorWorkedValues, AStepOfA32BitMemberDropsItsTwoLowBits) {
    using Fn = PrimStatus (*)(int32_t*, int32_t, int32_t, int32_t, MirrorAxis);
    const Fn tiers[4] = {px_ImgMirror32sC1I, m6_ImgMirror32sC1I, a6_ImgMirror32sC1I, w7_ImgMirror32sC1I};
    for (Fn fn : tiers) {
        // Step 11 walks as 8: two elements a line, three lines, odd height on
        // axis 2 so the middle line turns by itself.
        int32_t image[6] = {1, 2, 3, 4, 5, 6};
        EXPECT_EQ(fn(image, 11, 2, 3, MirrorBothAxes), 0);
        const int32_t expected[6] = {6, 5, 4, 3, 2, 1};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(image[i], expected[i]) << i;
    }
}

TEST(MirrorWorkedValues, ToDestinationAC4KeepsTheDestinationAlpha) {
    using Fn = PrimStatus (*)(const uint16_t*, int32_t, uint16_t*, int32_t, int32_t, int32_t, MirrorAxis);
    const Fn tiers[4] = {px_ImgMirror16uAC4, m6_ImgMirror16uAC4, a6_ImgMirror16uAC4, w7_ImgMirror16uAC4};
    const uint16_t src[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    for (Fn fn : tiers) {
        uint16_t dst[8] = {0, 0, 0, 100, 0, 0, 0, 200};
        EXPECT_EQ(fn(src, 16, dst, 16, 2, 1, MirrorBothAxes), 0);
        const uint16_t expected[8] = {5, 6, 7, 100, 1, 2, 3, 200};
        for (int i = 0; i < 8; ++i) EXPECT_EQ(dst[i], expected[i]) << i;
    }
}

#include <gtest/gtest.h>
#include <pixmoor/geometry.h>

TEST(RGBLineSize, RoundsUpToFourBytes) {
    EXPECT_EQ(RGBLineSize(-5, 24), 16);
    EXPECT_EQ(RGBLineSize(5, 24), 16);
    EXPECT_EQ(RGBLineSize(5, 16), 12);
    EXPECT_EQ(RGBLineSize(0, 24), 0);
    EXPECT_EQ(RGBLineSize(5, 7), 0);
    EXPECT_EQ(RGBLineSize(5, 15), 8);  // 15 bits count as one byte a pixel
    EXPECT_EQ(RGBLineSize(320, 24), 960);
    EXPECT_EQ(RGBLineSize(3, 32), 12);
    EXPECT_EQ(RGBLineSize(1, 8), 4);
}

TEST(RGBLineSize, NegativeDepthKeepsItsSign) {
    // -24 >> 3 is -3 bytes a pixel; the wrapped product is then rounded up.
    EXPECT_EQ(RGBLineSize(4, -24), -12);
    EXPECT_EQ(RGBLineSize(1, -8), 0);  // -1 + 3 rounds to 0
}

TEST(RGBImageSize, UsesAbsoluteHeight) {
    EXPECT_EQ(RGBImageSize(5, -3, 24), 48);
    EXPECT_EQ(RGBImageSize(5, 3, 24), 48);
    EXPECT_EQ(RGBImageSize(320, 240, 24), 230400);
    EXPECT_EQ(RGBImageSize(320, 0, 24), 0);
}

TEST(StandardSizes, DV) {
    EXPECT_TRUE(IsDVDim(AbsSIZE(80, 60)));
    EXPECT_TRUE(IsDVDim(AbsSIZE(160, 120)));
    EXPECT_TRUE(IsDVDim(AbsSIZE(320, 240)));
    EXPECT_TRUE(IsDVDim(AbsSIZE(640, 480)));
    EXPECT_FALSE(IsDVDim(AbsSIZE(80, 64)));
    EXPECT_FALSE(IsDVDim(AbsSIZE(60, 80)));
    EXPECT_FALSE(IsDVDim(AbsSIZE(720, 576)));
}

TEST(StandardSizes, ITU) {
    for (auto s : {AbsSIZE(176, 144), AbsSIZE(352, 288), AbsSIZE(704, 576), AbsSIZE(1408, 1152)}) {
        EXPECT_TRUE(IsOrthITUDim(s));
        EXPECT_TRUE(IsITUDim(s));
    }
    EXPECT_TRUE(IsITUDim(AbsSIZE(128, 96)));
    EXPECT_FALSE(IsOrthITUDim(AbsSIZE(128, 96)));
    EXPECT_FALSE(IsITUDim(AbsSIZE(720, 576)));
    EXPECT_FALSE(IsOrthITUDim(AbsSIZE(720, 576)));
    EXPECT_FALSE(IsITUDim(AbsSIZE(320, 240)));
}

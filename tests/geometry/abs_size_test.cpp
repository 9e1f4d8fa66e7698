#include <gtest/gtest.h>
#include <pixmoor/geometry.h>

#include <climits>

TEST(AbsSIZE, DefaultIsZero) {
    AbsSIZE s;
    EXPECT_EQ(s.cx, 0);
    EXPECT_EQ(s.cy, 0);
}

TEST(AbsSIZE, RawValuesAreStoredAbsolute) {
    AbsSIZE s(-320, -240);
    EXPECT_EQ(s.cx, 320);
    EXPECT_EQ(s.cy, 240);
}

TEST(AbsSIZE, MostNegativeValueKeepsItsBits) {
    AbsSIZE s(INT32_MIN, 7);
    EXPECT_EQ(s.cx, INT32_MIN);
    EXPECT_EQ(s.cy, 7);
}

TEST(AbsSIZE, FromTagSizeIsAbsolute) {
    tagSIZE t{-5, 9};
    AbsSIZE s(t);
    EXPECT_EQ(s.cx, 5);
    EXPECT_EQ(s.cy, 9);
    AbsSIZE a;
    AbsSIZE& r = (a = tagSIZE{3, -4});
    EXPECT_EQ(&r, &a);
    EXPECT_EQ(a.cx, 3);
    EXPECT_EQ(a.cy, 4);
}

TEST(AbsSIZE, CopyTakesFieldsAsTheyStand) {
    // A record whose fields were set negative directly is copied unchanged.
    AbsSIZE src;
    src.cx = -10;
    src.cy = -20;
    AbsSIZE copy(src);
    EXPECT_EQ(copy.cx, -10);
    EXPECT_EQ(copy.cy, -20);
    AbsSIZE assigned;
    AbsSIZE& r = (assigned = src);
    EXPECT_EQ(&r, &assigned);
    EXPECT_EQ(assigned.cx, -10);
    EXPECT_EQ(assigned.cy, -20);
}

TEST(AbsSIZE, EqualityNeedsBothFields) {
    EXPECT_TRUE(AbsSIZE(4, 4) == AbsSIZE(4, 4));
    EXPECT_FALSE(AbsSIZE(2, 8) == AbsSIZE(4, 4));
    EXPECT_FALSE(AbsSIZE(4, 5) == AbsSIZE(4, 4));
}

TEST(AbsSIZE, LessComparesAreas) {
    EXPECT_FALSE(AbsSIZE(2, 8) < AbsSIZE(4, 4));
    EXPECT_FALSE(AbsSIZE(4, 4) < AbsSIZE(2, 8));
    EXPECT_TRUE(AbsSIZE(3, 3) < AbsSIZE(2, 5));
    EXPECT_FALSE(AbsSIZE(2, 5) < AbsSIZE(3, 3));
}

TEST(AbsSIZE, AreaWrapsInThirtyTwoBits) {
    EXPECT_TRUE(AbsSIZE(65536, 65536) < AbsSIZE(1, 1));
    // 65536 * 32768 = 2^31 wraps to INT32_MIN, less than anything positive.
    EXPECT_TRUE(AbsSIZE(65536, 32768) < AbsSIZE(0, 0));
}

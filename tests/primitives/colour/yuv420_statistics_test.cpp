// How often the narrow tiers differ from the wide ones: exhaustively over
// all (Y, U, V) triples for the inverse direction, over a large seeded set
// of random blocks for the forward direction.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

#include <pixmoor/primitives/colour.h>

namespace {

// Inverse.  Each line pair carries one (U, V) pair; its 1024 luma samples
// are Y = (x + x / 256) mod 256, so that every Y value stands exactly once
// at each position x mod 4 of the line.  One frame holds the 256 V values
// of one U value; 256 frames cover all 2^24 triples at every position
// class, counted over both lines of each pair.
TEST(Yuv420Statistics, InverseShareOfChannelValuesThatDifferFromPx) {
    constexpr int kWidth = 1024, kHeight = 512;
    std::vector<uint8_t> y(static_cast<size_t>(kWidth) * kHeight), u(kWidth / 2 * kHeight / 2),
        v(u.size());
    for (int line = 0; line < kHeight; ++line)
        for (int x = 0; x < kWidth; ++x) y[static_cast<size_t>(line) * kWidth + x] = static_cast<uint8_t>(x + x / 256);
    const size_t rgbBytes = static_cast<size_t>(kWidth) * kHeight * 3;
    std::vector<uint8_t> px(rgbBytes), a6(rgbBytes), w7(rgbBytes);
    const int32_t steps[3] = {kWidth, kWidth / 2, kWidth / 2};
    const uint8_t* const planes[3] = {y.data(), u.data(), v.data()};

    uint64_t w7Differ = 0, a6Differ[4] = {0, 0, 0, 0}, total = 0, perClass = 0;
    int maxDiff = 0;
    for (int uValue = 0; uValue < 256; ++uValue) {
        for (int pair = 0; pair < kHeight / 2; ++pair)
            for (int c = 0; c < kWidth / 2; ++c) {
                u[static_cast<size_t>(pair) * (kWidth / 2) + c] = static_cast<uint8_t>(uValue);
                v[static_cast<size_t>(pair) * (kWidth / 2) + c] = static_cast<uint8_t>(pair);
            }
        ASSERT_EQ(px_ImgYUV420ToRGB_Step(planes, steps, px.data(), 3 * kWidth, kWidth, kHeight), 0);
        ASSERT_EQ(a6_ImgYUV420ToRGB_Step(planes, steps, a6.data(), 3 * kWidth, kWidth, kHeight), 0);
        ASSERT_EQ(w7_ImgYUV420ToRGB_Step(planes, steps, w7.data(), 3 * kWidth, kWidth, kHeight), 0);
        for (size_t pixel = 0; pixel < rgbBytes / 3; ++pixel) {
            const int cls = static_cast<int>(pixel & 3);  // kWidth is a multiple of 4
            for (size_t i = 3 * pixel; i < 3 * pixel + 3; ++i) {
                const int dw = std::abs(w7[i] - px[i]), da = std::abs(a6[i] - px[i]);
                w7Differ += dw != 0;
                a6Differ[cls] += da != 0;
                maxDiff = std::max(maxDiff, std::max(dw, da));
            }
        }
        total += rgbBytes;
    }
    perClass = total / 4;
    ASSERT_EQ(total, uint64_t{3} << 24 << 3);  // every triple 8 times, three channels
    const double w7Share = 100.0 * w7Differ / total;
    const double a6Normal = 100.0 * (a6Differ[0] + a6Differ[1] + a6Differ[2]) / (3 * perClass);
    const double a6Odd = 100.0 * a6Differ[3] / perClass;
    EXPECT_EQ(maxDiff, 1);
    EXPECT_NEAR(w7Share, 7.0, 0.05);
    EXPECT_NEAR(a6Normal, 7.2, 0.05);
    EXPECT_NEAR(a6Odd, 13.1, 0.05);
    RecordProperty("w7", std::to_string(w7Share));
    RecordProperty("a6Normal", std::to_string(a6Normal));
    RecordProperty("a6Odd", std::to_string(a6Odd));
}

// Forward.  A seeded random frame of 512 by 512 blocks; the shares of Y, U
// and V samples where the narrow tiers differ from the wide ones must be
// near the figures of the colour model (about 0.4, 8 and 14 percent), each
// within a fifth of its figure.
TEST(Yuv420Statistics, ForwardShareOfSamplesThatDifferFromPx) {
    constexpr int kSide = 1024;
    std::mt19937 rng(20240611);
    std::vector<uint8_t> rgb(static_cast<size_t>(kSide) * kSide * 3);
    for (auto& b : rgb) b = static_cast<uint8_t>(rng());
    struct Planes {
        std::vector<uint8_t> y = std::vector<uint8_t>(kSide * kSide);
        std::vector<uint8_t> u = std::vector<uint8_t>(kSide * kSide / 4);
        std::vector<uint8_t> v = std::vector<uint8_t>(kSide * kSide / 4);
        uint8_t* ptrs[3];
        Planes() : ptrs{y.data(), u.data(), v.data()} {}
    } px, a6, w7;
    ASSERT_EQ(px_ImgRGBToYUV420(rgb.data(), px.ptrs, kSide, kSide), 0);
    ASSERT_EQ(a6_ImgRGBToYUV420(rgb.data(), a6.ptrs, kSide, kSide), 0);
    ASSERT_EQ(w7_ImgRGBToYUV420(rgb.data(), w7.ptrs, kSide, kSide), 0);
    EXPECT_TRUE(a6.y == w7.y && a6.u == w7.u && a6.v == w7.v);
    auto share = [](const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
        size_t n = 0;
        for (size_t i = 0; i < a.size(); ++i) {
            EXPECT_LE(std::abs(a[i] - b[i]), 1);
            n += a[i] != b[i];
        }
        return 100.0 * n / a.size();
    };
    const double y = share(px.y, w7.y), u = share(px.u, w7.u), v = share(px.v, w7.v);
    EXPECT_NEAR(y, 0.4, 0.4 / 5);
    EXPECT_NEAR(u, 8.0, 8.0 / 5);
    EXPECT_NEAR(v, 14.0, 14.0 / 5);
    RecordProperty("y", std::to_string(y));
    RecordProperty("u", std::to_string(u));
    RecordProperty("v", std::to_string(v));
}

}  // namespace

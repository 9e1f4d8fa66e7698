// Repeated Init on every colour transform, for the leak check of the
// sanitizer build: helper buffers are replaced at each Init and released by
// the destructor, so nothing may be lost, except by the one road that is
// required to lose its flip buffer at a second Init.  That road's repeated
// Init lives in its own test (colour_required_leak_test.cpp), which the leak
// check excludes by name.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <memory>
#include <vector>

namespace {

using Orient = CColorXForm::EOrientation;

struct Road {
    uint32_t src, dest;
};

// Every road of the factory but the one with the required leak.
const Road kRoads[] = {
    {FCC_YV12, FCC_I420}, {FCC_YUY2, FCC_I420}, {FCC_UYVY, FCC_I420}, {FCC_I420, FCC_I420},
    {FCC_I420, FCC_RG24}, {FCC_YV12, FCC_RG24}, {FCC_YUY2, FCC_RG24}, {FCC_UYVY, FCC_RG24},
    {FCC_RG24, FCC_RG24}, {FCC_I420, FCC_RG55}, {FCC_YV12, FCC_RG55}, {FCC_YUY2, FCC_RG55},
    {FCC_UYVY, FCC_RG55}, {FCC_RG24, FCC_RG55}, {FCC_RG55, FCC_RG55}, {FCC_I420, FCC_RG56},
    {FCC_YV12, FCC_RG56}, {FCC_YUY2, FCC_RG56}, {FCC_UYVY, FCC_RG56}, {FCC_RG24, FCC_RG56},
    {FCC_RG56, FCC_RG56}, {FCC_I420, FCC_RG32}, {FCC_YV12, FCC_RG32}, {FCC_YUY2, FCC_RG32},
    {FCC_UYVY, FCC_RG32}, {FCC_RG24, FCC_RG32}, {FCC_RG32, FCC_RG32},
};

// Sizes that pass and sizes that fail the size test, and orientations.
struct Setting {
    int32_t w, h;
    int32_t srcOrientation, destOrientation;
};
const Setting kSettings[] = {
    {8, 4, 0, 0}, {16, 12, 1, 2}, {6, 4, 0, 0}, {32, 8, 2, 2}, {4, 4, 3, 1}, {12, 10, 0, 1}, {24, 16, 0, 0},
};

// The largest frame of the settings, in any format, with room to spare.
constexpr size_t kRoom = 24 * 16 * 4 * 2 + 64;

TEST(ColourRepeatedInit, EveryRoadReplacesItsBuffersWithoutLoss) {
    const std::vector<uint8_t> source(kRoom, 0x6B);
    for (const Road& road : kRoads) {
        std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(road.src, road.dest));
        ASSERT_TRUE(x) << std::hex << road.src << " " << road.dest;
        for (int round = 0; round < 3; ++round)
            for (const Setting& s : kSettings) {
                const bool passes = s.w % 4 == 0 && s.h % 4 == 0;
                EXPECT_EQ(x->Init(AbsSIZE(s.w, s.h), static_cast<Orient>(s.srcOrientation),
                                  static_cast<Orient>(s.destOrientation)),
                          passes);
            }
        // The last setting passed: the object still converts (I420 to I420
        // has no routine to call).
        if (road.src == FCC_I420 && road.dest == FCC_I420) continue;
        std::vector<uint8_t> frame(kRoom + 24 * 16, 0);
        x->XForm(source.data(), frame.data(), 0);
    }
}

TEST(ColourRepeatedInit, IsSupportedMakesAndEndsAnObjectEachTime) {
    for (int i = 0; i < 50; ++i)
        for (const Road& road : kRoads)
            EXPECT_EQ(CColorXForm::IsSupported(road.src, road.dest, AbsSIZE(4 * (i % 5), 8), CColorXForm::OrientDefault,
                                               CColorXForm::OrientDefault),
                      true);
}

}  // namespace

// Argument checks of every mirror member and tier: the status of each bad
// argument, the order of the checks, and that a failed call writes nothing.
#include <gtest/gtest.h>

#include <vector>

#include "guarded_buffer.h"
#include "mirror_members.h"

using namespace mirror_test;
using pixmoor_test::GuardedBuffer;

namespace {

struct Arguments {
    bool srcNull, dstNull;
    int32_t srcStep, dstStep, width, height, axis;
    PrimStatus expected;
};

constexpr int32_t kGood = 64;  // a valid step, and enough bytes for a 4x4 image of any member

// Bad arguments one by one, then several at once: the first check that
// fails decides.
const Arguments kCases[] = {
    {true, false, kGood, kGood, 4, 4, 0, PrimStatusNullPointer},
    {false, true, kGood, kGood, 4, 4, 1, PrimStatusNullPointer},
    {true, true, kGood, kGood, 4, 4, 2, PrimStatusNullPointer},
    {false, false, 0, kGood, 4, 4, 0, PrimStatusStepError},
    {false, false, kGood, 0, 4, 4, 0, PrimStatusStepError},
    {false, false, -1, kGood, 4, 4, 1, PrimStatusStepError},
    {false, false, kGood, INT32_MIN, 4, 4, 2, PrimStatusStepError},
    {false, false, kGood, kGood, 0, 4, 0, PrimStatusSizeError},
    {false, false, kGood, kGood, 4, 0, 0, PrimStatusSizeError},
    {false, false, kGood, kGood, -4, 4, 0, PrimStatusSizeError},
    {false, false, kGood, kGood, 4, INT32_MIN, 0, PrimStatusSizeError},
    {false, false, kGood, kGood, 4, 4, 3, PrimStatusBadFlipMode},
    {false, false, kGood, kGood, 4, 4, -1, PrimStatusBadFlipMode},
    {false, false, kGood, kGood, 4, 4, INT32_MAX, PrimStatusBadFlipMode},
    // Order.
    {true, false, kGood, kGood, 4, 4, 3, PrimStatusNullPointer},   // null beats a bad axis
    {false, true, 0, 0, 0, 0, 3, PrimStatusNullPointer},
    {false, false, 0, kGood, 0, 4, 0, PrimStatusStepError},        // a zero step beats width 0
    {false, false, kGood, -5, 4, -2, 3, PrimStatusStepError},
    {false, false, kGood, kGood, 0, 0, 3, PrimStatusSizeError},    // size beats axis
};

class MirrorArguments : public ::testing::TestWithParam<int> {};

TEST_P(MirrorArguments, BadArgumentsGiveTheirStatusAndWriteNothing) {
    const Member m = AllMembers()[GetParam()];
    for (int tier = 0; tier < 5; ++tier) {
        for (const Arguments& a : kCases) {
            SCOPED_TRACE(::testing::Message() << m.name << " " << kTierNames[tier] << " steps " << a.srcStep << ","
                                              << a.dstStep << " size " << a.width << "x" << a.height << " axis "
                                              << a.axis);
            GuardedBuffer src(kGood * 4), dst(kGood * 4);
            src.FillRandom(1);
            dst.FillRandom(2);
            const auto srcBefore = src.Contents(), dstBefore = dst.Contents();
            PrimStatus status;
            if (m.inPlace) {
                // The in-place member has one pointer and one step.
                if (a.dstNull || a.dstStep != kGood) continue;
                status = m.inPlaceCall[tier](a.srcNull ? nullptr : src.data(), a.srcStep, a.width, a.height, a.axis);
            } else {
                status = m.toDestination[tier](a.srcNull ? nullptr : src.data(), a.srcStep,
                                               a.dstNull ? nullptr : dst.data(), a.dstStep, a.width, a.height, a.axis);
            }
            EXPECT_EQ(status, a.expected);
            EXPECT_EQ(src.Contents(), srcBefore);
            EXPECT_EQ(dst.Contents(), dstBefore);
            EXPECT_TRUE(src.GuardsIntact());
            EXPECT_TRUE(dst.GuardsIntact());
        }
    }
}

TEST_P(MirrorArguments, TheSmallestImageSucceedsOnEveryAxis) {
    const Member m = AllMembers()[GetParam()];
    for (int tier = 0; tier < 5; ++tier)
        for (int32_t axis = 0; axis < 3; ++axis) {
            GuardedBuffer src(16), dst(16);  // one pixel of any member
            src.FillRandom(3);
            dst.FillRandom(4);
            const auto before = src.Contents();
            const auto dstBefore = dst.Contents();
            if (m.inPlace) {
                // A 1 by 1 image, and a step far smaller than any line would need.
                EXPECT_EQ(m.inPlaceCall[tier](src.data(), 1, 1, 1, axis), 0);
                EXPECT_EQ(src.Contents(), before);
            } else {
                EXPECT_EQ(m.toDestination[tier](src.data(), 1, dst.data(), 1, 1, 1, axis), 0);
                EXPECT_EQ(std::memcmp(dst.data(), src.data(), m.movedBytes()), 0);
                // AC4: the destination's alpha stays.
                for (int b = m.movedBytes(); b < m.pixelBytes(); ++b) EXPECT_EQ(dst[b], dstBefore[b]);
            }
            EXPECT_TRUE(src.GuardsIntact());
            EXPECT_TRUE(dst.GuardsIntact());
        }
}

std::string MemberName(const ::testing::TestParamInfo<int>& info) { return AllMembers()[info.param].name; }

INSTANTIATE_TEST_SUITE_P(AllMembers, MirrorArguments, ::testing::Range(0, 18), MemberName);

}  // namespace

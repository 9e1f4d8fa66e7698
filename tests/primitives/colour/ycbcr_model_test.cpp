// Every tier of every YCbCr member against the scalar model, bit for bit,
// on random images: every width from 1 to 70 (odd widths, width 1, every
// tail after the vector tiers' blocks of 4, 8 and 16 pixels), heights of
// one line, odd and even; steps tight and padded (odd pads included);
// start addresses at every offset within 16 bytes, so the alignment stages
// of w7 start anywhere; larger frames too.
#include <gtest/gtest.h>

#include "ycbcr_harness.h"

using namespace ycbcr_harness;

namespace {

void CheckCase(const Member& m, int tier, const Case& c) {
    const Outcome o = RunMember(m, tier, c);
    ASSERT_EQ(o.status, 0) << Describe(m, tier, c);
    ASSERT_TRUE(o.asModel) << Describe(m, tier, c);
    ASSERT_TRUE(o.guardsIntact) << Describe(m, tier, c);
}

// The destinations of 16-bit words stay on even addresses, as their type
// asks.
int DstOffset(const Member& m, int k) { return m.dst == kWords ? 2 * (k % 8) : k % 16; }

class YCbCrModel : public ::testing::TestWithParam<int> {};

TEST_P(YCbCrModel, SmallImagesEveryTier) {
    const Member& m = Members()[GetParam()];
    uint32_t seed = 7;
    for (int tier : kTiers)
        for (int h : {1, 2, 3, 4, 5})
            for (int w = 1; w <= 70; ++w) {
                const int k = w + 3 * h;
                Case c{w, h, (k % 3 == 0) ? 0 : k % 7, (k % 4 == 0) ? 0 : 1 + k % 5, k % 11, DstOffset(m, k), seed++};
                CheckCase(m, tier, c);
                if (HasFatalFailure()) return;
            }
}

TEST_P(YCbCrModel, TightSmallImagesAtEveryOffset) {
    const Member& m = Members()[GetParam()];
    uint32_t seed = 900;
    for (int tier : kTiers)
        for (int off = 0; off < 16; ++off)
            for (int w : {1, 2, 3, 7, 8, 16, 17, 31, 32, 33, 48})
                for (int h : {1, 2, 3}) {
                    Case c{w, h, 0, 0, off, m.dst == kWords ? off & ~1 : off, seed++};
                    CheckCase(m, tier, c);
                    if (HasFatalFailure()) return;
                }
}

TEST_P(YCbCrModel, LargerImages) {
    const Member& m = Members()[GetParam()];
    const int sizes[][2] = {{641, 5}, {333, 7}, {128, 9}, {352, 18}, {1023, 3}};
    uint32_t seed = 5000;
    for (int tier : kTiers)
        for (const auto& s : sizes) {
            Case c{s[0], s[1], 11, 6, 3, 4, seed++};
            CheckCase(m, tier, c);
            if (HasFatalFailure()) return;
            Case tight{s[0], s[1], 0, 0, 0, 0, seed++};
            CheckCase(m, tier, tight);
            if (HasFatalFailure()) return;
        }
}

std::string MemberName(const ::testing::TestParamInfo<int>& info) { return Members()[info.param].name; }

INSTANTIATE_TEST_SUITE_P(AllMembers, YCbCrModel, ::testing::Range(0, 24), MemberName);

}  // namespace

#include <gtest/gtest.h>

#include "runtime/isa.h"

using namespace pixmoor::isa;

TEST(InstructionSet, DetectionIsStable) { EXPECT_EQ(Detected(), Detected()); }

TEST(InstructionSet, LimitLowersTheLevelInForce) {
    const Level detected = Detected();
    for (int l = kPlain; l <= kAvx512; ++l) {
        ScopedLimit limit(static_cast<Level>(l));
        EXPECT_EQ(Current(), l < detected ? l : detected);
        EXPECT_EQ(Has(kPlain), true);
    }
    EXPECT_EQ(Current(), detected);
}

TEST(InstructionSet, ScopedLimitsNest) {
    ScopedLimit outer(kSse2);
    {
        ScopedLimit inner(kPlain);
        EXPECT_EQ(Current(), kPlain);
    }
    EXPECT_EQ(Limit(), kSse2);
}

#if defined(__x86_64__)
TEST(InstructionSet, SixtyFourBitX86HasAtLeastSse2) { EXPECT_GE(Detected(), kSse2); }
#endif

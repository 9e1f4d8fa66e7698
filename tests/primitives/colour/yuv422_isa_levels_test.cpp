// Packed 4:2:2 to RGB (the dispatched member) at every instruction-set
// level against the scalar model: the wider-vector forms inside the tier
// entries must give exactly the tier's bytes, on widths around each vector
// step (8, 16, 32 and 64 pixels), odd widths with their lone last pixel,
// and padded steps.
#include <gtest/gtest.h>

#include "isa_levels.h"
#include "sweep_stride.h"
#include "yuv422_harness.h"

using namespace yuv422_harness;

namespace {

const int kWidths[] = {1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 32, 33, 34, 63, 64, 65, 66, 95, 96, 97, 127,
                       128, 129, 130, 191, 192, 193, 255, 256, 257, 321};

TEST(Yuv422IsaLevels, PackedToRgbMatchesTheModelAtEveryLevel) {
    pixmoor_test::ForEachIsaLevel([] {
        uint32_t seed = 11;
        for (int tier : yuv420_model::kTiers)
            for (int w : kWidths)
                for (int h : {1, 2, 3}) {
                    const Packed422Frame in = RandomPacked422(w, h, seed++);
                    const InverseOut r = RunFromPacked(tier, in, w % 5, (w + 1) % 3);
                    SCOPED_TRACE(::testing::Message() << yuv420_model::TierName(tier) << " " << w << "x" << h);
                    ASSERT_EQ(r.result.status, PrimStatusOk);
                    ASSERT_TRUE(r.result.outsideUntouched);
                    ASSERT_TRUE(yuv420_harness::Same(r.frame, yuv422_model::FromPacked(in, tier)));
                }
    });
}

// Every YUV triple through the packed member, in every tier, at every
// level.
TEST(Yuv422IsaLevels, EveryPackedTripleMatchesTheModelAtEveryLevel) {
    pixmoor_test::ForEachIsaLevel([] {
        for (int tier : yuv420_model::kTiers) {
            int failures = 0;
            for (int u = 0; u < 256 && failures == 0; u += pixmoor_test::SweepStride()) {
                const Packed422Frame packed = EveryYvOfOneU(u);
                if (!yuv420_harness::Same(RunFromPacked(tier, packed, 0, 0).frame,
                                          yuv422_model::FromPacked(packed, tier)))
                    ++failures;
            }
            EXPECT_EQ(failures, 0) << yuv420_model::TierName(tier);
        }
    });
}

}  // namespace

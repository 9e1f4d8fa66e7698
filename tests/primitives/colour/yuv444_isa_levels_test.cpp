// The 4:4:4 members at every instruction-set level against the scalar
// model: the wider-vector forms inside the tier entries must give exactly
// the tier's bytes, on widths around each vector step (8, 16, 32 and 64
// pixels) and their tails, padded steps and odd start addresses, with byte
// 3 of 4-byte pixels left as it was.
#include <gtest/gtest.h>

#include "isa_levels.h"
#include "yuv444_harness.h"

using namespace yuv444_harness;
using namespace yuv444_model;

namespace {

const int kWidths[] = {1, 2, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 66, 95, 96, 97,
                       127, 128, 129, 191, 192, 193, 255, 256, 257, 321};

TEST(Yuv444IsaLevels, EveryMemberMatchesTheModelAtEveryLevel) {
    pixmoor_test::ForEachIsaLevel([] {
        uint32_t seed = 21;
        for (Member m : kMembers)
            for (int tier : kTiers)
                for (int w : kWidths)
                    for (int h : {1, 3}) {
                        const Layouting l{(w % 3) * 5, (w % 4) * 3, w % 5, (w * 7) % 16};
                        const std::vector<Trio> in = RandomPixels(w, h, seed);
                        const RunResult r = RunMember(m, EntriesOf(tier), in, w, h, l, seed++);
                        ASSERT_TRUE(r.status == PrimStatusOk && r.outsideUntouched &&
                                    r.out == ModelFrame(m, tier, in, w, h))
                            << Describe(m, tier, w, h);
                    }
    });
}

}  // namespace

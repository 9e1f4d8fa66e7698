// Plain names: the 4:2:2 and 16-bit members outside the dispatch table run
// the tier that PrimGetTier reports; ImgYUV422ToRGB, dispatch row 15, runs
// the entry its slot holds.
#include <gtest/gtest.h>

#include "rgb16_harness.h"
#include "yuv422_harness.h"

namespace {

class TierScope {
public:
    explicit TierScope(int32_t tier) : saved_(PrimCurrentTier) { PrimCurrentTier = tier; }
    ~TierScope() { PrimCurrentTier = saved_; }

private:
    int32_t saved_;
};

class SlotScope {
public:
    SlotScope(int row, PrimEntry entry) : slot_(PrimDispatchTable[row].slot), saved_(*slot_) { *slot_ = entry; }
    ~SlotScope() { *slot_ = saved_; }

private:
    PrimEntry* slot_;
    PrimEntry saved_;
};

// Widths where the narrow and wide arithmetic part, odd for the lone pixel.
TEST(Yuv422Rgb16PlainNames, RunTheReportedTier) {
    using namespace yuv422_harness;
    const int w = 43, h = 5;
    const RgbFrame rgb = yuv420_harness::RandomRgb(w, h, 31);
    const Yuv422Frame yuv = RandomYuv422(w, h, 32);
    const yuv420_model::YuvFrame yuv420 = yuv420_harness::RandomYuv(w, h, 33);
    for (int tier : yuv420_model::kTiers) {
        SCOPED_TRACE(yuv420_model::TierName(tier));
        TierScope scope(tier);
        ASSERT_EQ(PrimGetTier(), tier);
        for (bool planes : {false, true})
            for (bool compact : {false, true}) {
                EXPECT_TRUE(yuv422_model::Same(RunForward(kPlain, planes, compact, rgb, 2).frame,
                                               yuv422_model::Forward(rgb, tier)));
                EXPECT_TRUE(yuv420_harness::Same(RunFromPlanes(kPlain, planes, compact, yuv, 2).frame,
                                                 yuv422_model::FromPlanes(yuv, tier)));
            }
        for (int format = 0; format < 6; ++format)
            EXPECT_EQ(rgb16_harness::Convert(rgb16_harness::PlainEntry(format), yuv420, 1, 2).words,
                      rgb16_model::Convert(yuv420, tier, rgb16_model::kFormats[format]))
                << rgb16_model::kFormats[format].name;
    }
}

TEST(Yuv422Rgb16PlainNames, DispatchRowFifteenRunsItsSlot) {
    using namespace yuv422_harness;
    const Packed422Frame in = RandomPacked422(43, 3, 34);
    for (int tier : yuv420_model::kTiers) {
        SlotScope slot(15, PrimDispatchTable[15].entries[tier]);
        const InverseOut r = RunFromPacked(kPlain, in, 1, 1);
        EXPECT_EQ(r.result.status, PrimStatusOk);
        EXPECT_TRUE(yuv420_harness::Same(r.frame, yuv422_model::FromPacked(in, tier))) << yuv420_model::TierName(tier);
    }
}

}  // namespace

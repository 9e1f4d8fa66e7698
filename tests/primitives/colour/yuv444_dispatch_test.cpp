// ImgYUVAToRGBA stands in dispatch row 14: its plain name is the stub that
// jumps through the row's slot, and the row holds the four tier entries.
// The other 4:4:4 members run, under their plain names, the tier that
// PrimGetTier reports.
#include <gtest/gtest.h>

#include "yuv444_harness.h"

using namespace yuv444_harness;
using namespace yuv444_model;

namespace {

constexpr int kRow = 14;

class SlotScope {
public:
    SlotScope() : saved_(*PrimDispatchTable[kRow].slot) {}
    ~SlotScope() { *PrimDispatchTable[kRow].slot = saved_; }

private:
    PrimEntry saved_;
};

class TierScope {
public:
    explicit TierScope(int32_t tier) : saved_(PrimCurrentTier) { PrimCurrentTier = tier; }
    ~TierScope() { PrimCurrentTier = saved_; }

private:
    int32_t saved_;
};

TEST(Yuv444Dispatch, RowFourteenHoldsTheFourTierEntries) {
    const PrimDispatchRow& row = PrimDispatchTable[kRow];
    ASSERT_NE(row.slot, nullptr);
    EXPECT_EQ(row.entries[0], reinterpret_cast<PrimEntry>(px_ImgYUVAToRGBA));
    EXPECT_EQ(row.entries[1], reinterpret_cast<PrimEntry>(m6_ImgYUVAToRGBA));
    EXPECT_EQ(row.entries[2], reinterpret_cast<PrimEntry>(a6_ImgYUVAToRGBA));
    EXPECT_EQ(row.entries[3], reinterpret_cast<PrimEntry>(w7_ImgYUVAToRGBA));
}

// With each tier's entry in the slot the stub gives that tier's bytes
// (px and the vector tiers differ on this frame) and its statuses.
TEST(Yuv444Dispatch, StubRunsTheEntryInTheSlot) {
    SlotScope scope;
    const int w = 37, h = 3;
    const std::vector<Trio> in = RandomPixels(w, h, 77);
    for (int tier : kTiers) {
        *PrimDispatchTable[kRow].slot = PrimDispatchTable[kRow].entries[tier];
        const RunResult viaStub = RunMember(kYuvaToRgba, EntriesOf(kPlain), in, w, h, Layouting{4, 8, 1, 2});
        EXPECT_EQ(viaStub.status, PrimStatusOk);
        EXPECT_TRUE(viaStub.outsideUntouched);
        EXPECT_EQ(viaStub.out, ModelFrame(kYuvaToRgba, tier, in, w, h)) << TierName(tier);
        uint8_t buf[16] = {};
        EXPECT_EQ(ImgYUVAToRGBA(buf, 0, buf, 16, 1, 1), -14);
        EXPECT_EQ(ImgYUVAToRGBA(nullptr, 16, buf, 16, 1, 1), -8);
        EXPECT_EQ(ImgYUVAToRGBA(buf, 16, buf, 16, 0, 1), -6);
    }
}

TEST(Yuv444Dispatch, PlainNamesRunTheReportedTier) {
    const int w = 45, h = 2;
    const std::vector<Trio> in = RandomPixels(w, h, 78);
    for (int tier : kTiers) {
        TierScope scope(tier);
        ASSERT_EQ(PrimGetTier(), tier);
        for (Member m : kMembers) {
            if (m == kYuvaToRgba) continue;  // the dispatch stub
            const RunResult r = RunMember(m, EntriesOf(kPlain), in, w, h, Layouting{3, 5, 0, 1});
            EXPECT_EQ(r.status, PrimStatusOk);
            EXPECT_EQ(r.out, ModelFrame(m, tier, in, w, h)) << Describe(m, kPlain, w, h) << " " << TierName(tier);
        }
    }
}

}  // namespace

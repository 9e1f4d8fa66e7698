// The waterfall, the filling of the slots and the failure messages.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <vector>

#include "played_processor.h"

using namespace pixmoor_test;

namespace {

const char kBestTierFailure[] = " No PRIM matching to examined CPU was found during the Waterfall procedure";
const char kTierFailure[] = " No prim matching to CPU was found during the Waterfall";
const char kCaption[] = "Set prim library error";

std::vector<PrimEntry> Slots() {
    std::vector<PrimEntry> slots;
    for (const auto& row : PrimDispatchTable) slots.push_back(*row.slot);
    return slots;
}

// A test table of 19 rows with slots and entries of its own.
struct TestTable {
    PrimEntry slots[PrimDispatchRowCount] = {};
    static void E0(void) {}
    static void E1(void) {}
    static void E2(void) {}
    static void E3(void) {}

    TestTable() {
        for (int row = 0; row < PrimDispatchRowCount; ++row) {
            PrimDispatchTable[row].slot = &slots[row];
            PrimDispatchTable[row].entries[0] = E0;
            PrimDispatchTable[row].entries[1] = E1;
            PrimDispatchTable[row].entries[2] = E2;
            PrimDispatchTable[row].entries[3] = E3;
        }
    }
};

void ExpectNoTierMessage(const PlayedPlatform& platform, const char* text) {
    ASSERT_EQ(platform.messages().size(), 2u);
    EXPECT_EQ(platform.messages()[0].kind, "beep");
    EXPECT_EQ(platform.messages()[0].style, 16u);
    EXPECT_EQ(platform.messages()[1].kind, "box");
    EXPECT_EQ(platform.messages()[1].style, 16u);
    EXPECT_EQ(platform.messages()[1].text, text);
    EXPECT_EQ(platform.messages()[1].caption, kCaption);
}

}  // namespace

TEST(PrimWaterfallTable, ListsTiersBestFirstClosedByTheMarker) {
    const int32_t expected[4][5] = {{0, 4, 0, 0, 0}, {1, 0, 4, 0, 0}, {2, 1, 0, 4, 0}, {3, 2, 1, 0, 4}};
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 5; ++c) EXPECT_EQ(PrimWaterfallTable[r][c], expected[r][c]) << r << "," << c;
}

TEST(PrimDispatchTable, StartsUnselectedWithSlotsAtPx) {
    EXPECT_EQ(PrimSlotCount, 19);
    EXPECT_EQ(PrimCurrentTier, 0);
    EXPECT_EQ(PrimGetTier(), 0);
    EXPECT_STREQ(PrimErrorCaption, kCaption);
    for (int row = 0; row < PrimDispatchRowCount; ++row) {
        EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[0]) << row;
        // One slot per row, in row order.
        EXPECT_EQ(PrimDispatchTable[row].slot, PrimDispatchTable[0].slot + row) << row;
    }
}

TEST(PrimDispatchTable, GetTierBeforeSelectionIsPxOnAnyProcessor) {
    PlayedPlatform platform(PlayedProcessor::Reference(15, kMmx | kSse | kSse2));
    EXPECT_EQ(PrimGetTier(), 0);
}

TEST(PrimDispatchTable, PresentRowsHoldTheirMembersInTierOrder) {
    using Entry = PrimEntry;
    auto e = [](auto fn) { return reinterpret_cast<Entry>(fn); };
    const struct { int row; Entry px, m6, a6, w7; } rows[] = {
        {0, e(px_SigGetLibVersion), e(m6_SigGetLibVersion), e(a6_SigGetLibVersion), e(w7_SigGetLibVersion)},
        {1, e(px_SigMalloc32f), e(m6_SigMalloc32f), e(a6_SigMalloc32f), e(w7_SigMalloc32f)},
        {2, e(px_SigFree), e(m6_SigFree), e(a6_SigFree), e(w7_SigFree)},
        {5, e(px_SigGetStatusString), e(m6_SigGetStatusString), e(a6_SigGetStatusString), e(w7_SigGetStatusString)},
        {6, e(px_ImgGetLibVersion), e(m6_ImgGetLibVersion), e(a6_ImgGetLibVersion), e(w7_ImgGetLibVersion)},
        {16, e(px_ImgMirror8uC3I), e(m6_ImgMirror8uC3I), e(a6_ImgMirror8uC3I), e(w7_ImgMirror8uC3I)},
        {17, e(px_ImgMirror8uC3), e(m6_ImgMirror8uC3), e(a6_ImgMirror8uC3), e(w7_ImgMirror8uC3)},
        {18, e(px_ImgMirror8uAC4I), e(m6_ImgMirror8uAC4I), e(a6_ImgMirror8uAC4I), e(w7_ImgMirror8uAC4I)},
    };
    for (const auto& r : rows) {
        const PrimDispatchRow& row = PrimDispatchTable[r.row];
        EXPECT_EQ(row.entries[0], r.px) << r.row;
        EXPECT_EQ(row.entries[1], r.m6) << r.row;
        EXPECT_EQ(row.entries[2], r.a6) << r.row;
        EXPECT_EQ(row.entries[3], r.w7) << r.row;
    }
}

TEST(PrimFillSlots, FillsEveryRowOfACompleteColumn) {
    RuntimeStateGuard guard;
    TestTable table;
    for (int32_t column = 0; column < 4; ++column) {
        EXPECT_EQ(PrimFillSlots(column), 1);
        for (int row = 0; row < PrimDispatchRowCount; ++row)
            EXPECT_EQ(table.slots[row], PrimDispatchTable[row].entries[column]) << row;
    }
    EXPECT_EQ(PrimCurrentTier, 0);  // filling alone doesn't change the tier
}

TEST(PrimFillSlots, StopsAtAnAbsentEntryAndKeepsWhatItWrote) {
    RuntimeStateGuard guard;
    for (int gap = 0; gap < PrimDispatchRowCount; ++gap) {
        TestTable table;
        PrimDispatchTable[gap].entries[2] = nullptr;
        EXPECT_EQ(PrimFillSlots(2), 0) << gap;
        for (int row = 0; row < PrimDispatchRowCount; ++row)
            EXPECT_EQ(table.slots[row], row < gap ? PrimEntry(TestTable::E2) : nullptr) << gap << " " << row;
    }
}

TEST(PrimFillSlots, WalksOnlyPrimSlotCountRows) {
    RuntimeStateGuard guard;
    TestTable table;
    PrimDispatchTable[7].entries[1] = nullptr;
    PrimSlotCount = 5;
    EXPECT_EQ(PrimFillSlots(1), 1);
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        EXPECT_EQ(table.slots[row], row < 5 ? PrimEntry(TestTable::E1) : nullptr) << row;
    for (int32_t count : {0, -1, INT32_MIN}) {
        TestTable fresh;
        PrimSlotCount = count;
        EXPECT_EQ(PrimFillSlots(3), 1) << count;
        for (PrimEntry slot : fresh.slots) EXPECT_EQ(slot, nullptr);
    }
}

TEST(PrimFillSlots, OnTheRealTableEveryRowHasAnEntryInEveryTier) {
    RuntimeStateGuard guard;
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        for (int tier = 0; tier < 4; ++tier) EXPECT_NE(PrimDispatchTable[row].entries[tier], nullptr) << row << " " << tier;
    for (int32_t column = 3; column >= 0; --column) {
        ASSERT_EQ(PrimFillSlots(column), 1);
        for (int row = 0; row < PrimDispatchRowCount; ++row)
            EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[column]) << row;
    }
}

TEST(PrimSelectTier, OutOfRangeShowsTheMessageAndChangesNothing) {
    RuntimeStateGuard guard;
    PrimCurrentTier = 2;
    for (int32_t tier : {4, -1, 5, INT32_MIN, INT32_MAX}) {
        PlayedPlatform platform(PlayedProcessor::Reference(6, kSse2));
        const std::vector<PrimEntry> before = Slots();
        EXPECT_EQ(PrimSelectTier(tier), 0) << tier;
        ExpectNoTierMessage(platform, kTierFailure);
        EXPECT_EQ(Slots(), before);
        EXPECT_EQ(PrimCurrentTier, 2);
        EXPECT_TRUE(platform.leaves().empty());  // no detection
    }
}

TEST(PrimSelectTier, FillsTheAskedTierWithoutAskingTheProcessor) {
    RuntimeStateGuard guard;
    PlayedProcessor p = PlayedProcessor::Reference(6, kMmx);  // no SSE2: the request is not checked
    PlayedPlatform platform(p);
    for (int32_t tier : {3, 1, 2, 0}) {
        EXPECT_EQ(PrimSelectTier(tier), 1);
        EXPECT_EQ(PrimCurrentTier, tier);
        EXPECT_EQ(PrimGetTier(), tier);
        for (int row = 0; row < PrimDispatchRowCount; ++row)
            EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[tier]);
    }
    EXPECT_TRUE(platform.messages().empty());
    EXPECT_TRUE(platform.leaves().empty());
    EXPECT_EQ(platform.flagTests(), 0);
}

TEST(PrimSelectTier, AClearedM6EntryOfRow5FallsThroughToPx) {
    RuntimeStateGuard guard;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kMmx));
    PrimDispatchTable[5].entries[1] = nullptr;
    // The m6 column alone stops at row 5 with rows 0 to 4 on m6 ...
    const std::vector<PrimEntry> before = Slots();
    EXPECT_EQ(PrimFillSlots(1), 0);
    for (int row = 0; row < 5; ++row) EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[1]);
    for (int row = 5; row < PrimDispatchRowCount; ++row) EXPECT_EQ(*PrimDispatchTable[row].slot, before[row]);
    // ... and the selection then falls to px, which overwrites every row.
    EXPECT_EQ(PrimSelectTier(1), 1);
    EXPECT_EQ(PrimCurrentTier, 0);
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[0]) << row;
    EXPECT_TRUE(platform.messages().empty());
}

TEST(PrimSelectTier, AnExhaustedRowReportsAndKeepsTheLastPartialFill) {
    RuntimeStateGuard guard;
    TestTable table;
    PrimDispatchTable[9].entries[0] = nullptr;  // every column is cut somewhere
    PrimDispatchTable[4].entries[1] = nullptr;
    PrimDispatchTable[12].entries[2] = nullptr;
    PrimDispatchTable[2].entries[3] = nullptr;
    PrimCurrentTier = 3;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kSse2));
    EXPECT_EQ(PrimSelectTier(3), 0);
    ExpectNoTierMessage(platform, kTierFailure);
    EXPECT_EQ(PrimCurrentTier, 3);
    // px went last and wrote rows 0 to 8 over what a6 and m6 had left.
    for (int row = 0; row < 9; ++row) EXPECT_EQ(table.slots[row], PrimEntry(TestTable::E0)) << row;
    for (int row = 9; row < 12; ++row) EXPECT_EQ(table.slots[row], PrimEntry(TestTable::E2)) << row;
    for (int row = 12; row < PrimDispatchRowCount; ++row) EXPECT_EQ(table.slots[row], nullptr) << row;
}

TEST(PrimSelectTier, NoSlotsIsAFailureThatChangesNothing) {
    RuntimeStateGuard guard;
    TestTable table;
    PrimSlotCount = 0;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kSse2));
    EXPECT_EQ(PrimSelectTier(0), 0);
    ExpectNoTierMessage(platform, kTierFailure);
    for (PrimEntry slot : table.slots) EXPECT_EQ(slot, nullptr);
    EXPECT_EQ(PrimCurrentTier, 0);
}

TEST(PrimSelectBestTier, SelectsTheDetectedTier) {
    const struct { PlayedProcessor processor; int32_t tier; } cases[] = {
        {PlayedProcessor::Reference(6, kMmx | kSse | kSse2), 3},
        {PlayedProcessor::Reference(6, kMmx | kSse), 2},
        {PlayedProcessor::Reference(6, kMmx), 1},
        {PlayedProcessor::Reference(6, 0), 0},
        {PlayedProcessor::Reference(15, kMmx | kSse), 0},
        {PlayedProcessor::Reference(5, kMmx), 0},
    };
    for (const auto& c : cases) {
        RuntimeStateGuard guard;
        PlayedPlatform platform(c.processor);
        EXPECT_EQ(PrimSelectBestTier(), 1);
        EXPECT_EQ(PrimGetTier(), c.tier);
        for (int row = 0; row < PrimDispatchRowCount; ++row)
            EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[c.tier]) << row;
        EXPECT_TRUE(platform.messages().empty());
    }
}

TEST(PrimSelectBestTier, RunsAgainInFullOnEveryCall) {
    RuntimeStateGuard guard;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kSse2));
    EXPECT_EQ(PrimSelectBestTier(), 1);
    *PrimDispatchTable[16].slot = PrimDispatchTable[16].entries[0];
    EXPECT_EQ(PrimSelectBestTier(), 1);
    EXPECT_EQ(*PrimDispatchTable[16].slot, PrimDispatchTable[16].entries[3]);
    EXPECT_EQ(platform.leaves(), (std::vector<uint32_t>{0, 1, 2, 0, 1, 2}));
}

TEST(PrimSelectBestTier, FailureShowsItsOwnText) {
    RuntimeStateGuard guard;
    TestTable table;
    PrimSlotCount = -3;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kSse2));
    EXPECT_EQ(PrimSelectBestTier(), 0);
    ExpectNoTierMessage(platform, kBestTierFailure);
    for (PrimEntry slot : table.slots) EXPECT_EQ(slot, nullptr);
    EXPECT_EQ(PrimCurrentTier, 0);
}

TEST(PrimSelectBestTier, OnTheRealTableTheDetectedTierFillsEverySlot) {
    RuntimeStateGuard guard;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kMmx | kSse | kSse2));
    EXPECT_EQ(PrimSelectBestTier(), 1);
    EXPECT_EQ(PrimCurrentTier, 3);
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[3]) << row;
    EXPECT_TRUE(platform.messages().empty());
}

TEST(PrimSelectBestTier, CaptionComesFromTheCaptionPointer) {
    RuntimeStateGuard guard;
    PrimSlotCount = 0;
    const char* saved = PrimErrorCaption;
    PrimErrorCaption = "played caption";
    PlayedPlatform platform(PlayedProcessor::Reference(6, kSse2));
    EXPECT_EQ(PrimSelectBestTier(), 0);
    PrimErrorCaption = saved;
    ASSERT_EQ(platform.messages().size(), 2u);
    EXPECT_EQ(platform.messages()[1].caption, "played caption");
}

TEST(PrimSetPlatform, TheNativeMessageBoxWritesOneLineToStandardError) {
    RuntimeStateGuard guard;
    PrimSetPlatform(nullptr);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(PrimSelectTier(4), 0);
    const std::string written = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(written, std::string(kCaption) + ": " + kTierFailure + "\n");
}

TEST(PrimSetPlatform, NullFieldsKeepTheNativeFunctions) {
    RuntimeStateGuard guard;
    const PrimPlatform partial = {nullptr, nullptr, nullptr, nullptr};
    PrimSetPlatform(&partial);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(PrimSelectTier(-1), 0);
    EXPECT_FALSE(::testing::internal::GetCapturedStderr().empty());
#if defined(__x86_64__) || defined(__i386__)
    EXPECT_EQ(CpuHasCpuid(), 1);
#endif
    PrimSetPlatform(nullptr);
}

// The queries that tell a routine which of the library's own entries a slot
// holds: any tier's entry of the row counts; a caller's function does
// not, also when the caller has written it into the exported table's entry
// columns, and neither does another row's entry.
#include <gtest/gtest.h>

#include <pixmoor/primitives/mirror.h>

#include "played_processor.h"
#include "runtime/dispatch.h"

namespace {

using pixmoor::dispatch::OwnEntry;
using pixmoor::dispatch::OwnEntryInSlot;
using pixmoor::dispatch::OwnTierInSlot;
using pixmoor::dispatch::RowIndex;

PrimStatus Foreign(void) { return PrimStatusOk; }

TEST(OwnEntryInSlot, EveryTierOfTheRowIsOwn) {
    pixmoor_test::RuntimeStateGuard guard;
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        for (int tier = 0; tier < 4; ++tier) {
            const PrimEntry entry = PrimDispatchTable[row].entries[tier];
            *PrimDispatchTable[row].slot = entry;
            EXPECT_EQ(OwnTierInSlot(static_cast<RowIndex>(row)), tier) << row;
            EXPECT_EQ(OwnEntry(static_cast<RowIndex>(row), tier), entry) << row << " " << tier;
        }
}

TEST(OwnEntryInSlot, AForeignFunctionIsNot) {
    pixmoor_test::RuntimeStateGuard guard;
    const auto foreign = reinterpret_cast<PrimEntry>(&Foreign);
    for (int row = 0; row < PrimDispatchRowCount; ++row) {
        *PrimDispatchTable[row].slot = foreign;
        EXPECT_EQ(OwnTierInSlot(static_cast<RowIndex>(row)), -1) << row;
        // Written into the table's columns too, it is still not the library's,
        // and the library's own entries stay what they were.
        const PrimEntry px = PrimDispatchTable[row].entries[PrimTierPx];
        for (PrimEntry& column : PrimDispatchTable[row].entries) column = foreign;
        EXPECT_EQ(OwnTierInSlot(static_cast<RowIndex>(row)), -1) << row;
        EXPECT_EQ(OwnEntry(static_cast<RowIndex>(row), PrimTierPx), px) << row;
    }
}

TEST(OwnEntryInSlot, AnotherRowsEntryIsNot) {
    pixmoor_test::RuntimeStateGuard guard;
    *PrimDispatchTable[11].slot = PrimDispatchTable[12].entries[PrimTierPx];
    EXPECT_EQ(OwnTierInSlot(pixmoor::dispatch::kRow_ImgRGBToYUV420), -1);
}

// The typed form gives the entry as the member's function type.
TEST(OwnEntryInSlot, TypedAsTheMember) {
    pixmoor_test::RuntimeStateGuard guard;
    *PrimDispatchTable[17].slot = PrimDispatchTable[17].entries[PrimTierA6];
    using Mirror = decltype(&px_ImgMirror8uC3);
    EXPECT_EQ(OwnEntryInSlot<Mirror>(pixmoor::dispatch::kRow_ImgMirror8uC3), &a6_ImgMirror8uC3);
    *PrimDispatchTable[17].slot = reinterpret_cast<PrimEntry>(&Foreign);
    EXPECT_EQ(OwnEntryInSlot<Mirror>(pixmoor::dispatch::kRow_ImgMirror8uC3), nullptr);
}

}  // namespace

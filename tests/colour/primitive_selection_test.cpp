// The tier selection that Init of the five primitive roads runs, and the
// road of one frame: "I420" to "RG24" at 320 by 240 from the factory to the
// turned-over picture.
#include <string>

#include "allocation_probe.h"
#include "colour/planar_to_rgb.h"
#include "primitive_roads.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;
using yuv420_harness::RandomYuv;

namespace {

struct Pair {
    uint32_t src, dest;
};
const Pair kPrimitiveRoads[] = {{FCC_I420, FCC_RG24}, {FCC_YV12, FCC_RG24}, {FCC_I420, FCC_RG32},
                                {FCC_YV12, FCC_RG32}, {FCC_I420, FCC_RG55}, {FCC_YV12, FCC_RG55},
                                {FCC_I420, FCC_RG56}, {FCC_YV12, FCC_RG56}, {FCC_RG24, FCC_I420}};

// Every slot holds the entry of `tier`'s column.
void ExpectSlotsOf(int tier) {
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[tier]) << "row " << row;
}

TEST(PrimitiveRoadSelection, InitSelectsTheDetectedTier) {
    for (const Pair& p : kPrimitiveRoads)
        for (int tier : yuv420_model::kTiers) {
            PlayedTier played(tier);
            PrimCurrentTier = tier == 0 ? 3 : 0;  // something else before Init
            XFormPtr x = Ready(p.src, p.dest, 16, 8);
            EXPECT_EQ(PrimGetTier(), tier);
            ExpectSlotsOf(tier);
            EXPECT_TRUE(played.platform().messages().empty());
        }
}

// RG24 to I420 would lose a flip buffer at each repeated Init; its
// reselection is shown beside that required leak, in its own test.
TEST(PrimitiveRoadSelection, EveryInitSelectsAgain) {
    for (const Pair& p : kPrimitiveRoads) {
        if (p.src == FCC_RG24) continue;
        PlayedTier played(PrimTierPx);
        XFormPtr x = Ready(p.src, p.dest, 16, 8);
        EXPECT_EQ(PrimGetTier(), PrimTierPx);
        played.Play(PrimTierW7);
        EXPECT_TRUE(x->Init(AbsSIZE(8, 8), kDefault, kDefault));
        EXPECT_EQ(PrimGetTier(), PrimTierW7);
        played.Play(PrimTierM6);
        EXPECT_TRUE(x->Init(AbsSIZE(8, 8), kDefault, kDefault));
        EXPECT_EQ(PrimGetTier(), PrimTierM6);
    }
}

// Selection belongs to the leaf's stage, which runs before the size test:
// an Init that fails that test has selected all the same.
TEST(PrimitiveRoadSelection, SelectionRunsBeforeTheSizeTest) {
    for (const Pair& p : kPrimitiveRoads) {
        PlayedTier played(PrimTierA6);
        PrimCurrentTier = 0;
        XFormPtr x = Create(p.src, p.dest);
        EXPECT_FALSE(x->Init(AbsSIZE(322, 240), kDefault, kDefault));
        EXPECT_EQ(PrimGetTier(), PrimTierA6);
    }
}

// The buffered planar roads select after their field arithmetic and before
// they touch rgbBuffer: a failed allocation comes after the selection.
TEST(PrimitiveRoadSelection, SelectionRunsBeforeTheBufferIsAllocated) {
    for (uint32_t dest : {FCC_RG32, FCC_RG55, FCC_RG56}) {
        PlayedTier played(PrimTierW7);
        PrimCurrentTier = 0;
        XFormPtr x = Create(FCC_I420, dest);
        {
            ProbeScope failing(true);
            EXPECT_FALSE(x->Init(AbsSIZE(16, 8), kDefault, kDefault));
        }
        EXPECT_EQ(PrimGetTier(), PrimTierW7);
    }
}

// The roads that use no primitive never ask the processor anything.
TEST(PrimitiveRoadSelection, OtherRoadsDoNotSelect) {
    const Pair others[] = {{FCC_YUY2, FCC_RG24}, {FCC_UYVY, FCC_RG55}, {FCC_RG24, FCC_RG32}, {FCC_RG24, FCC_RG24},
                           {FCC_YV12, FCC_I420}, {FCC_I420, FCC_I420}, {FCC_YUY2, FCC_I420}};
    for (const Pair& p : others) {
        PlayedTier played(PrimTierW7);
        PrimCurrentTier = 0;
        XFormPtr x = Ready(p.src, p.dest, 16, 8);
        EXPECT_EQ(played.platform().flagTests(), 0);
        EXPECT_TRUE(played.platform().leaves().empty());
        EXPECT_EQ(PrimGetTier(), 0);
    }
}

// A selection that fails shows its message and Init goes on; the frame
// then runs on whatever the slots hold.
TEST(PrimitiveRoadSelection, AFailedSelectionLeavesTheSlotsAsTheyWere) {
    PlayedTier played(PrimTierW7);
    ASSERT_EQ(PrimSelectTier(PrimTierA6), 1);
    PrimSlotCount = 0;
    const int w = 40, h = 8;
    XFormPtr x = Ready(FCC_I420, FCC_RG24, w, h, kTopDown, kTopDown);
    ASSERT_FALSE(played.platform().messages().empty());
    EXPECT_EQ(played.platform().messages().back().text,
              " No PRIM matching to examined CPU was found during the Waterfall procedure");
    EXPECT_EQ(PrimGetTier(), PrimTierA6);
    const YuvFrame f = RandomYuv(w, h, 31);
    std::vector<uint8_t> out(x->DestBufferSize());
    x->XForm(PlanarBytes(FCC_I420, f).data(), out.data(), 0);
    EXPECT_EQ(out, ModelPlanarRows(f, PrimTierA6));
}

// XForm goes through the slots as they stand at each frame: a tier chosen
// after Init takes effect at the next frame.
TEST(PrimitiveRoadSelection, FramesRunTheTierTheSlotsHold) {
    PlayedTier played(PrimTierW7);
    const int w = 40, h = 8;
    const YuvFrame f = RandomYuv(w, h, 32);
    const std::vector<uint8_t> frame = PlanarBytes(FCC_YV12, f);
    XFormPtr x = Ready(FCC_YV12, FCC_RG24, w, h, kBottomUp, kBottomUp);
    for (int tier : {PrimTierW7, PrimTierPx, PrimTierA6, PrimTierM6}) {
        ASSERT_EQ(PrimSelectTier(tier), 1);
        std::vector<uint8_t> out(x->DestBufferSize());
        x->XForm(frame.data(), out.data(), 0);
        EXPECT_EQ(out, ModelPlanarRows(f, tier)) << yuv420_model::TierName(tier);
    }
    // The models of the tiers differ on this frame, so the comparison above
    // tells the tiers apart.
    EXPECT_NE(ModelPlanarRows(f, PrimTierW7), ModelPlanarRows(f, PrimTierPx));
    EXPECT_NE(ModelPlanarRows(f, PrimTierW7), ModelPlanarRows(f, PrimTierA6));
    EXPECT_NE(ModelPlanarRows(f, PrimTierA6), ModelPlanarRows(f, PrimTierPx));
}

// The road of one frame, "I420" to "RG24" at 320 by 240, on each tier.
TEST(PrimitiveRoadSelection, TheRoadOfOneFrame) {
    const int w = 320, h = 240;
    const YuvFrame f = RandomYuv(w, h, 320);
    const std::vector<uint8_t> frame = PlanarBytes(FCC_I420, f);
    for (int tier : yuv420_model::kTiers) {
        SCOPED_TRACE(yuv420_model::TierName(tier));
        PlayedTier played(tier);
        // 1. The factory gives the planar class with its canonical codes.
        XFormPtr x = Create(FCC_I420, FCC_RG24);
        ASSERT_NE(x, nullptr);
        const auto* t = dynamic_cast<const CColorXFormPlanarToRG24*>(x.get());
        ASSERT_NE(t, nullptr);
        EXPECT_EQ(t->srcFCC, FCC_I420);
        EXPECT_EQ(t->destFCC, FCC_RG24);
        // 2. Init selects the tier and sizes the destination.
        ASSERT_TRUE(x->Init(AbsSIZE(w, h), kDefault, kDefault));
        EXPECT_EQ(PrimGetTier(), tier);
        EXPECT_EQ(t->srcUOffset, w * h);
        EXPECT_EQ(t->srcVOffset, w * h + w * h / 4);
        EXPECT_EQ(t->rgbLineSize, 960);
        // 3. The application provides the buffer.
        ASSERT_EQ(x->DestBufferSize(), 230400);
        GuardedBuffer buf(x->DestBufferSize(), 0x11);
        // 4. and 5. The frame goes through row 12, then row 16 turns it over.
        {
            SlotSpies spies;
            x->XForm(frame.data(), buf.data(), 0);
            EXPECT_EQ(spies.rows(), std::vector<int>({12, 16}));
        }
        std::vector<uint8_t> expected = ModelPlanarRows(f, tier);
        SwapRows(expected, 0, 3 * w, 3 * w, h);
        EXPECT_TRUE(buf.Contents() == expected);
        EXPECT_TRUE(buf.GuardsIntact());
        // Again straight through the slots, with no spy between.
        GuardedBuffer again(x->DestBufferSize(), 0x22);
        x->XForm(frame.data(), again.data(), 0);
        EXPECT_TRUE(again.Contents() == expected);
    }
}

}  // namespace

// "RG24" to "I420": the turn-over into flipBuffer, the plane array handed to
// the primitive, and every tier's output against the models.
#include <string>

#include "allocation_probe.h"
#include "colour/rgb24_to_i420.h"
#include "primitive_roads.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;
using pixmoor_test::RandomBytes;

namespace {

constexpr uint8_t kFill = 0x3A;

RoadOutcome Convert(const std::vector<uint8_t>& rg24, int w, int h, int tier, Orient so, Orient dO, uint32_t pitch = 0) {
    XFormPtr x = Ready(FCC_RG24, FCC_I420, w, h, so, dO);
    EXPECT_EQ(PrimGetTier(), tier);
    const bool flip = (so != kDefault ? so : kBottomUp) != (dO != kDefault ? dO : kTopDown);
    GuardedBuffer buf(x->DestBufferSize(), kFill);
    const std::vector<uint8_t> source = rg24;
    x->XForm(source.data(), buf.data(), pitch);
    return RoadOutcome{buf.Contents(), ModelRg24ToI420(rg24, w, h, flip, tier), buf.GuardsIntact(), source == rg24};
}

TEST(Rgb24ToI420, EveryTierGivesItsModel) {
    uint32_t seed = 100;
    for (int tier : yuv420_model::kTiers) {
        PlayedTier played(tier);
        for (auto [w, h] : RoadSizes()) {
            const std::vector<uint8_t> rg24 = RandomBytes(size_t(3) * w * h, seed++);
            for (auto [so, dO] : {std::pair{kDefault, kDefault}, std::pair{kBottomUp, kBottomUp},
                                  std::pair{kTopDown, kTopDown}, std::pair{kTopDown, kBottomUp}}) {
                SCOPED_TRACE(std::string(yuv420_model::TierName(tier)) + " " + std::to_string(w) + "x" +
                             std::to_string(h) + " " + std::to_string(so) + std::to_string(dO));
                ExpectModel(Convert(rg24, w, h, tier, so, dO));
            }
        }
    }
}

// Each row one colour: with the default orientations the last source row
// becomes the first luma row; with equal orientations the source is read
// in order.
TEST(Rgb24ToI420, DefaultOrientationsReadTheLastRowFirst) {
    PlayedTier played(PrimTierPx);
    const int w = 8, h = 4;
    std::vector<uint8_t> rg24;
    for (int r = 0; r < h; ++r)
        for (int x = 0; x < w; ++x) rg24.insert(rg24.end(), {uint8_t(60 * r), uint8_t(60 * r), uint8_t(60 * r)});
    for (bool flip : {true, false}) {
        XFormPtr x = flip ? Ready(FCC_RG24, FCC_I420, w, h) : Ready(FCC_RG24, FCC_I420, w, h, kTopDown, kTopDown);
        std::vector<uint8_t> out(x->DestBufferSize());
        x->XForm(rg24.data(), out.data(), 0);
        for (int r = 0; r < h; ++r)  // grey: luma is the value itself in the wide arithmetic
            EXPECT_EQ(out[w * r], flip ? 60 * (h - 1 - r) : 60 * r) << r;
    }
}

// The worked blocks of the forward arithmetic, fed as the primitive reads
// them (byte 0 as red): the primitive's U lands at the V place and its V
// at the U place.
TEST(Rgb24ToI420, WorkedValuesArriveWithTheChromaPlacesExchanged) {
    struct Worked {
        uint8_t b0, b1, b2;
        int y, u, v;  // in the primitive's terms
    };
    const Worked worked[] = {{255, 0, 0, 76, 90, 255}, {0, 255, 0, 149, 54, 0}, {0, 0, 255, 29, 239, 102},
                             {255, 255, 255, 255, 128, 128}, {0, 0, 0, 0, 128, 128}};
    for (int tier : yuv420_model::kTiers) {
        PlayedTier played(tier);
        for (const Worked& k : worked) {
            std::vector<uint8_t> rg24;
            for (int i = 0; i < 16; ++i) rg24.insert(rg24.end(), {k.b0, k.b1, k.b2});
            XFormPtr x = Ready(FCC_RG24, FCC_I420, 4, 4);
            std::vector<uint8_t> out(x->DestBufferSize());
            x->XForm(rg24.data(), out.data(), 0);
            for (int i = 0; i < 16; ++i) EXPECT_EQ(out[i], k.y) << yuv420_model::TierName(tier);
            for (int i = 16; i < 20; ++i) EXPECT_EQ(out[i], k.v) << yuv420_model::TierName(tier);
            for (int i = 20; i < 24; ++i) EXPECT_EQ(out[i], k.u) << yuv420_model::TierName(tier);
        }
    }
}

// Flipping: the mirror goes from the source to flipBuffer on the line size,
// then flipBuffer is converted; without, the source is converted in place.
// The plane array is Y, then the V place, then the U place.
TEST(Rgb24ToI420, MirrorAndConversionCalls) {
    const int w = 12, h = 8;
    const std::vector<uint8_t> rg24 = RandomBytes(size_t(3) * w * h, 4);
    for (bool flip : {true, false}) {
        PlayedTier played(PrimTierA6);
        XFormPtr x = flip ? Ready(FCC_RG24, FCC_I420, w, h) : Ready(FCC_RG24, FCC_I420, w, h, kTopDown, kTopDown);
        const auto& t = dynamic_cast<const CColorXFormRG24ToI420&>(*x);
        std::vector<uint8_t> out(x->DestBufferSize());
        SlotSpies spies;
        x->XForm(rg24.data(), out.data(), 0);
        ASSERT_EQ(spies.rows(), flip ? std::vector<int>({17, 11}) : std::vector<int>({11}));
        if (flip) {
            const SlotCall& m = spies.calls()[0];
            EXPECT_EQ(m.src, rg24.data());
            EXPECT_EQ(m.srcStep, 3 * w);
            EXPECT_EQ(m.dst, t.flipBuffer);
            EXPECT_EQ(m.dstStep, 3 * w);
            EXPECT_EQ(m.width, w);
            EXPECT_EQ(m.height, h);
            EXPECT_EQ(m.axis, 0);
        }
        const SlotCall& c = spies.calls().back();
        EXPECT_EQ(c.src, flip ? t.flipBuffer : rg24.data());
        EXPECT_EQ(c.planes[0], out.data());
        EXPECT_EQ(c.planes[1], out.data() + w * h + w * h / 4);
        EXPECT_EQ(c.planes[2], out.data() + w * h);
        EXPECT_EQ(c.width, w);
        EXPECT_EQ(c.height, h);
    }
}

TEST(Rgb24ToI420, PitchPlaysNoPart) {
    PlayedTier played(PrimTierW7);
    const std::vector<uint8_t> rg24 = RandomBytes(3 * 16 * 8, 5);
    for (uint32_t pitch : {0u, 7u, 48u, 100000u, 0xFFFFFFFFu})
        ExpectModel(Convert(rg24, 16, 8, PrimTierW7, kDefault, kDefault, pitch));
}

// Without flipBuffer (its allocation failed, which Init does not notice)
// a flip leaves the destination as it was; an unflipped frame converts.
TEST(Rgb24ToI420, MissingFlipBuffer) {
    PlayedTier played(PrimTierW7);
    const int w = 8, h = 4;
    const std::vector<uint8_t> rg24 = RandomBytes(3 * w * h, 6);
    for (bool flip : {true, false}) {
        XFormPtr x = Create(FCC_RG24, FCC_I420);
        {
            ProbeScope failing(true);
            EXPECT_TRUE(x->Init(AbsSIZE(w, h), kDefault, flip ? kDefault : kBottomUp));
        }
        EXPECT_EQ(dynamic_cast<const CColorXFormRG24ToI420&>(*x).flipBuffer, nullptr);
        GuardedBuffer buf(x->DestBufferSize(), kFill);
        x->XForm(rg24.data(), buf.data(), 0);
        if (flip)
            EXPECT_TRUE(std::all_of(buf.data(), buf.data() + buf.size(), [](uint8_t v) { return v == kFill; }));
        else
            EXPECT_EQ(buf.Contents(), ModelRg24ToI420(rg24, w, h, false, PrimTierW7));
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

// A zero size passes Init; both primitives then refuse it and nothing is
// written, flipped or not.
TEST(Rgb24ToI420, ZeroSizeWritesNothing) {
    PlayedTier played(PrimTierA6);
    const std::vector<uint8_t> rg24(12, 0x40);
    for (Orient dO : {kDefault, kBottomUp}) {
        XFormPtr x = Ready(FCC_RG24, FCC_I420, 0, 0, kDefault, dO);
        EXPECT_EQ(x->DestBufferSize(), 0);
        GuardedBuffer buf(0);
        x->XForm(rg24.data(), buf.data(), 0);
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

TEST(Rgb24ToI420, DestBufferSize) {
    PlayedTier played(PrimTierPx);
    EXPECT_EQ(Ready(FCC_RG24, FCC_I420, 320, 240)->DestBufferSize(), 115200);
    EXPECT_EQ(Ready(FCC_RG24, FCC_I420, 176, 144)->DestBufferSize(), 38016);
    EXPECT_EQ(Ready(FCC_RG24, FCC_I420, 4, 4)->DestBufferSize(), 24);
    EXPECT_EQ(Create(FCC_RG24, FCC_I420)->DestBufferSize(), 0);
}

}  // namespace

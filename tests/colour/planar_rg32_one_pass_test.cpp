// "I420"/"YV12" to "RG32" in one pass: with one of the library's own
// entries (px, m6, a6, w7) in the conversion's slot, frames go straight
// into the destination.  The
// bytes must be those of the two passes (convert into rgbBuffer, widen) and
// of the model, at every instruction-set level, for every pitch; every
// other slot keeps the two passes call for call; and a frame whose
// conversion fails after frames that went in one pass still widens the
// picture of the last frame converted.
#include <string>

#include "colour/planar_to_rgb.h"
#include "isa_levels.h"
#include "primitive_roads.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;
using yuv420_harness::RandomYuv;

namespace {

constexpr uint8_t kFill = 0xA7;
const uint32_t kSources[] = {FCC_I420, FCC_YV12};
const int kEveryTier[] = {PrimTierPx, PrimTierM6, PrimTierA6, PrimTierW7};

const CColorXFormPlanarToRG32* AsRG32(const XFormPtr& x) {
    return static_cast<const CColorXFormPlanarToRG32*>(x.get());
}

// Byte offset of row r from the destination pointer: 4*W+1 apart for a
// pitch of 0, else `pitch` apart as a signed 32-bit number.
int64_t RowStep(int w, uint32_t pitch) { return pitch == 0 ? 4 * w + 1 : int64_t{int32_t(pitch)}; }

// What the destination holds after a frame of `f` by `tier`.
PlacedRows Model(const YuvFrame& f, int tier, uint32_t pitch) {
    const std::vector<uint8_t> rows = ModelPlanarRows(f, tier);
    std::vector<int64_t> starts;
    for (int r = 0; r < f.height; ++r) starts.push_back(r * RowStep(f.width, pitch));
    return PlaceExpectedRows(ModelRepackRows(FCC_RG32, rows.data(), f.width, f.height), f.height, 4 * f.width,
                             starts, kFill);
}

// One frame through `x` into a guarded buffer laid out as the model says;
// with `twoPasses`, a spy that passes every call on stands in slot 12, so
// the road sees a function of no tier and takes the two passes.
struct Frame {
    std::vector<uint8_t> got;
    bool guardsIntact;
};
Frame RunFrame(const XFormPtr& x, uint32_t src, const YuvFrame& f, const PlacedRows& placed, uint32_t pitch,
          bool twoPasses) {
    GuardedBuffer buf(placed.expected.size(), kFill);
    const std::vector<uint8_t> bytes = PlanarBytes(src, f);
    if (twoPasses) {
        SlotSpies spies;
        x->XForm(bytes.data(), buf.data() + placed.dstOffset, pitch);
        EXPECT_EQ(spies.rows(), std::vector<int>{12});
    } else {
        x->XForm(bytes.data(), buf.data() + placed.dstOffset, pitch);
    }
    return Frame{buf.Contents(), buf.GuardsIntact()};
}

// The one pass leaves a copy of the frame's luma rows in rgbBuffer, two by
// two, each pair 3*W bytes after the last, ending one byte before the
// buffer's end; the two passes leave the 3-byte picture at its start.  A
// sign of the road taken.
bool WentInOnePass(const XFormPtr& x, const YuvFrame& f) {
    const int w = f.width, h = f.height;
    const uint8_t* copy = AsRG32(x)->rgbBuffer + (4 * w * h - 1 - 3 * w * (h / 2));
    for (int pair = 0; pair < h / 2; ++pair)
        if (!std::equal(f.y.begin() + 2 * w * pair, f.y.begin() + 2 * w * (pair + 1), copy + 3 * w * pair))
            return false;
    return true;
}
bool BufferHoldsPicture(const XFormPtr& x, const YuvFrame& f, int tier) {
    const std::vector<uint8_t> rows = ModelPlanarRows(f, tier);
    return std::equal(rows.begin(), rows.end(), AsRG32(x)->rgbBuffer);
}

// Widths (multiples of 4, as Init requires) around the 32- and 64-pixel
// steps of the vector forms, with every tail length of a pair count.
std::vector<std::pair<int, int>> Sizes() {
    std::vector<std::pair<int, int>> s;
    for (int w : {4, 8, 12, 28, 32, 36, 60, 64, 68, 92, 124, 128, 132, 188, 252, 256, 260})
        s.push_back({w, w % 8 == 0 ? 4 : 8});
    s.push_back({176, 12});
    return s;
}

TEST(PlanarToRg32OnePass, GivesTheTwoPassesAndTheModelAtEveryLevel) {
    for (int tier : kEveryTier) {
        PlayedTier played(tier);
        pixmoor_test::ForEachIsaLevel([tier] {
            uint32_t seed = 300;
            for (auto [w, h] : Sizes())
                for (uint32_t src : kSources) {
                    const YuvFrame f = RandomYuv(w, h, seed++);
                    XFormPtr x = Ready(src, FCC_RG32, w, h);
                    ASSERT_EQ(PrimGetTier(), tier);
                    const uint32_t line = static_cast<uint32_t>(4 * w);
                    for (uint32_t pitch : {0u, line, line + 3, line + 4, 2 * line}) {
                        SCOPED_TRACE(std::string(yuv420_model::TierName(tier)) + " " + std::to_string(w) + "x" +
                                     std::to_string(h) + " pitch " + std::to_string(pitch) +
                                     (src == FCC_I420 ? " I420" : " YV12"));
                        const PlacedRows placed = Model(f, tier, pitch);
                        const Frame one = RunFrame(x, src, f, placed, pitch, false);
                        EXPECT_TRUE(WentInOnePass(x, f));
                        const Frame two = RunFrame(x, src, f, placed, pitch, true);
                        EXPECT_TRUE(BufferHoldsPicture(x, f, tier));
                        EXPECT_EQ(one.got, placed.expected);
                        EXPECT_EQ(one.got, two.got);
                        EXPECT_TRUE(one.guardsIntact);
                        EXPECT_TRUE(two.guardsIntact);
                    }
                }
        });
    }
}

TEST(PlanarToRg32OnePass, FullHdFrame) {
    PlayedTier played(PrimTierPx);
    const YuvFrame f = RandomYuv(1920, 1080, 5);
    XFormPtr x = Ready(FCC_YV12, FCC_RG32, 1920, 1080);
    const PlacedRows placed = Model(f, PrimTierPx, 0);
    const Frame one = RunFrame(x, FCC_YV12, f, placed, 0, false);
    EXPECT_TRUE(WentInOnePass(x, f));
    EXPECT_EQ(one.got, placed.expected);
    EXPECT_TRUE(one.guardsIntact);
}

TEST(PlanarToRg32OnePass, FullHdFrameWithTheVectorTiers) {
    for (int tier : {PrimTierA6, PrimTierW7}) {
        PlayedTier played(tier);
        const YuvFrame f = RandomYuv(1920, 1080, 6 + tier);
        XFormPtr x = Ready(FCC_I420, FCC_RG32, 1920, 1080);
        ASSERT_EQ(PrimGetTier(), tier);
        const PlacedRows placed = Model(f, tier, 0);
        const Frame one = RunFrame(x, FCC_I420, f, placed, 0, false);
        EXPECT_TRUE(WentInOnePass(x, f)) << yuv420_model::TierName(tier);
        EXPECT_EQ(one.got, placed.expected) << yuv420_model::TierName(tier);
        EXPECT_TRUE(one.guardsIntact);
    }
}

// The picture that a failed frame widens is that of the tier which
// converted the last frame, also when another tier has been selected
// since: the copy turns back into the picture with the recorded tier.
TEST(PlanarToRg32OnePass, TheCopyTurnsBackWithTheTierThatConvertedIt) {
    PlayedTier played(PrimTierW7);
    pixmoor_test::ForEachIsaLevel([] {
        const int w = 68, h = 8;
        const YuvFrame f = RandomYuv(w, h, 71);
        const uint32_t pitch = static_cast<uint32_t>(4 * w);
        for (int converted : kEveryTier)
            for (int after : kEveryTier) {
                if (after == converted) continue;
                SCOPED_TRACE(std::string(yuv420_model::TierName(converted)) + " then " +
                             yuv420_model::TierName(after));
                XFormPtr x = Ready(FCC_YV12, FCC_RG32, w, h);
                ASSERT_EQ(PrimSelectTier(converted), 1);
                const PlacedRows placed = Model(f, converted, pitch);
                EXPECT_EQ(RunFrame(x, FCC_YV12, f, placed, pitch, false).got, placed.expected);
                EXPECT_TRUE(WentInOnePass(x, f));
                ASSERT_EQ(PrimSelectTier(after), 1);
                GuardedBuffer buf(placed.expected.size(), kFill);
                x->XForm(nullptr, buf.data(), pitch);
                EXPECT_EQ(buf.Contents(), placed.expected);
                EXPECT_TRUE(BufferHoldsPicture(x, f, converted));
            }
    });
}

// A function of the caller's in the slot is called once a frame, into
// rgbBuffer, with the planes as always.
TEST(PlanarToRg32OnePass, AForeignFunctionInTheSlotIsCalledAsBefore) {
    PlayedTier played(PrimTierPx);
    const YuvFrame f = RandomYuv(32, 4, 8);
    XFormPtr x = Ready(FCC_YV12, FCC_RG32, 32, 4);
    const auto* t = AsRG32(x);
    const std::vector<uint8_t> bytes = PlanarBytes(FCC_YV12, f);
    std::vector<uint8_t> out(static_cast<size_t>(x->DestBufferSize()), kFill);
    SlotSpies spies;
    x->XForm(bytes.data(), out.data(), 128);
    ASSERT_EQ(spies.calls().size(), 1u);
    const SlotCall& c = spies.calls()[0];
    EXPECT_EQ(c.row, 12);
    EXPECT_EQ(c.dst, t->rgbBuffer);
    EXPECT_EQ(c.width, 32);
    EXPECT_EQ(c.height, 4);
    EXPECT_EQ(c.planes[0], bytes.data());
    EXPECT_EQ(c.planes[1], bytes.data() + t->srcVOffset);
    EXPECT_EQ(c.planes[2], bytes.data() + t->srcUOffset);
}

// Frames whose conversion fails widen what rgbBuffer holds: the picture of
// the last frame converted, also when that frame went in one pass.
TEST(PlanarToRg32OnePass, AFailedFrameWidensTheLastPictureConverted) {
    for (int tier : kEveryTier) {
        PlayedTier played(tier);
        pixmoor_test::ForEachIsaLevel([tier] {
            const std::vector<std::pair<int, int>> sizes{{4, 4}, {4, 8}, {8, 4}, {36, 8}, {128, 4}, {176, 12}, {20, 20}};
            for (auto [w, h] : sizes) {
                SCOPED_TRACE(std::string(yuv420_model::TierName(tier)) + " " + std::to_string(w) + "x" +
                             std::to_string(h));
                const YuvFrame first = RandomYuv(w, h, 61), second = RandomYuv(w, h, 62), third = RandomYuv(w, h, 63);
                XFormPtr x = Ready(FCC_I420, FCC_RG32, w, h);
                const uint32_t pitch = static_cast<uint32_t>(4 * w + 8);
                const PlacedRows placedSecond = Model(second, tier, pitch);
                RunFrame(x, FCC_I420, first, Model(first, tier, pitch), pitch, false);
                EXPECT_EQ(RunFrame(x, FCC_I420, second, placedSecond, pitch, false).got, placedSecond.expected);
                EXPECT_TRUE(WentInOnePass(x, second));
                {
                    // A slot function that fails and writes nothing.
                    SlotSpies failing(true);
                    GuardedBuffer buf(placedSecond.expected.size(), kFill);
                    x->XForm(PlanarBytes(FCC_I420, third).data(), buf.data(), pitch);
                    EXPECT_EQ(buf.Contents(), placedSecond.expected);
                    EXPECT_EQ(failing.rows(), std::vector<int>{12});
                }
                // The conversion refuses a null source; then again after a frame
                // in one pass.
                for (int round = 0; round < 2; ++round) {
                    GuardedBuffer buf(placedSecond.expected.size(), kFill);
                    x->XForm(nullptr, buf.data(), pitch);
                    EXPECT_EQ(buf.Contents(), placedSecond.expected) << round;
                    EXPECT_TRUE(buf.GuardsIntact());
                    RunFrame(x, FCC_I420, second, placedSecond, pitch, false);
                    EXPECT_TRUE(WentInOnePass(x, second));
                }
                // A frame with a pitch shorter than the line goes through the
                // buffer and converts in full: its own picture is widened.
                const uint32_t shortPitch = static_cast<uint32_t>(4 * w - 4);
                const PlacedRows placedThird = Model(third, tier, shortPitch);
                EXPECT_EQ(RunFrame(x, FCC_I420, third, placedThird, shortPitch, false).got, placedThird.expected);
                EXPECT_TRUE(BufferHoldsPicture(x, third, tier));
                GuardedBuffer buf(placedThird.expected.size(), kFill);
                x->XForm(nullptr, buf.data() + placedThird.dstOffset, shortPitch);
                EXPECT_EQ(buf.Contents(), placedThird.expected);
            }
        });
    }
}

// Rows that overlap (a pitch below the line), and a destination that shares
// bytes with the source: the two passes run, with their bytes.
TEST(PlanarToRg32OnePass, OverlapsKeepTheTwoPasses) {
    for (int tier : kEveryTier) {
        PlayedTier played(tier);
        const int w = 68, h = 8;
        const YuvFrame f = RandomYuv(w, h, 90 + tier);
        XFormPtr x = Ready(FCC_YV12, FCC_RG32, w, h);
        for (uint32_t pitch : {static_cast<uint32_t>(4 * w - 1), static_cast<uint32_t>(4 * w - 4), 4u}) {
            const PlacedRows placed = Model(f, tier, pitch);
            const Frame one = RunFrame(x, FCC_YV12, f, placed, pitch, false);
            EXPECT_TRUE(BufferHoldsPicture(x, f, tier));
            EXPECT_EQ(one.got, placed.expected) << pitch;
            EXPECT_EQ(one.got, RunFrame(x, FCC_YV12, f, placed, pitch, true).got) << pitch;
        }
        // The source inside the destination's span, at several offsets.
        const std::vector<uint8_t> bytes = PlanarBytes(FCC_YV12, f);
        const size_t span = static_cast<size_t>(x->DestBufferSize()) + 64;
        for (size_t at : {size_t{0}, size_t{40}, span - bytes.size()}) {
            std::vector<uint8_t> out[2];
            for (int k = 0; k < 2; ++k) {
                out[k].assign(span, kFill);
                std::copy(bytes.begin(), bytes.end(), out[k].begin() + at);
                if (k == 1) {
                    SlotSpies spies;
                    x->XForm(out[k].data() + at, out[k].data() + 16, 0);
                } else {
                    x->XForm(out[k].data() + at, out[k].data() + 16, 0);
                }
            }
            EXPECT_EQ(out[0], out[1]) << at;
        }
    }
}

}  // namespace

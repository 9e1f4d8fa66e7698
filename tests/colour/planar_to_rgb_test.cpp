// "I420" and "YV12" to the four RGB formats: the plane array handed to the
// primitives, the pitch rules of each destination, the turn-over of "RG24"
// and none elsewhere, and every tier's output against the models.
#include <string>

#include "colour/planar_to_rgb.h"
#include "isa_levels.h"
#include "primitive_roads.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;
using yuv420_harness::RandomYuv;

namespace {

constexpr uint8_t kFill = 0x5C;
const uint32_t kPlanarDests[] = {FCC_RG24, FCC_RG32, FCC_RG55, FCC_RG56};
const uint32_t kPlanarSources[] = {FCC_I420, FCC_YV12};

std::string Name(uint32_t fcc) {
    std::string s;
    for (int i = 0; i < 4; ++i) s += static_cast<char>(fcc >> (8 * i));
    return s;
}

Orient Resolved(Orient given, Orient natural) { return given != kDefault ? given : natural; }

// Only "RG24" honours orientation.
bool FlipsOn(uint32_t dest, Orient so, Orient dO) {
    return dest == FCC_RG24 && Resolved(so, kTopDown) != Resolved(dO, kBottomUp);
}

// The destination a planar road leaves, from the pitch rules: "RG24" takes
// its rows from the primitive, tight for 0 or the line size, else `pitch`
// apart, then turns rows of the line size over; "RG32" puts each row 4*W+1
// bytes after the last for 0, else `pitch` after; "RG55" and "RG56" put
// them `pitch` apart with no default, 0 included.  Pitches count as signed
// 32-bit numbers.
PlacedRows ModelDestination(uint32_t dest, const std::vector<uint8_t>& rows, int w, int h, uint32_t pitch, bool flip) {
    const int line = BytesPerPixel(dest) * w;
    const int64_t signedPitch = static_cast<int32_t>(pitch);
    if (dest == FCC_RG24)
        return ModelRg24Destination(rows, w, h, pitch == 0 || signedPitch == line ? line : signedPitch, line, flip,
                                    kFill);
    const int64_t rowStep = dest == FCC_RG32 && pitch == 0 ? line + 1 : signedPitch;
    std::vector<int64_t> starts;
    for (int r = 0; r < h; ++r) starts.push_back(r * rowStep);
    return PlaceExpectedRows(ModelRepackRows(dest, rows.data(), w, h), h, line, starts, kFill);
}

// Converts `f` on a new transform initialised while `tier` is played, into
// a buffer that covers every byte the model says is written.
RoadOutcome Convert(uint32_t src, uint32_t dest, const YuvFrame& f, int tier, uint32_t pitch, Orient so = kDefault,
                Orient dO = kDefault) {
    const int w = f.width, h = f.height;
    XFormPtr x = Ready(src, dest, w, h, so, dO);
    EXPECT_EQ(PrimGetTier(), tier);
    const PlacedRows placed = ModelDestination(dest, ModelPlanarRows(f, tier), w, h, pitch, FlipsOn(dest, so, dO));
    GuardedBuffer buf(placed.expected.size(), kFill);
    const std::vector<uint8_t> bytes = PlanarBytes(src, f);
    x->XForm(bytes.data(), buf.data() + placed.dstOffset, pitch);
    return RoadOutcome{buf.Contents(), placed.expected, buf.GuardsIntact()};
}

TEST(PlanarToRgb, EveryTierGivesItsModel) {
    uint32_t seed = 1;
    for (int tier : yuv420_model::kTiers) {
        PlayedTier played(tier);
        for (auto [w, h] : RoadSizes()) {
            const YuvFrame f = RandomYuv(w, h, seed++);
            for (uint32_t src : kPlanarSources)
                for (uint32_t dest : kPlanarDests) {
                    SCOPED_TRACE(std::string(yuv420_model::TierName(tier)) + " " + Name(src) + " to " + Name(dest) +
                                 " " + std::to_string(w) + "x" + std::to_string(h));
                    const uint32_t tight = static_cast<uint32_t>(BytesPerPixel(dest) * w);
                    ExpectModel(Convert(src, dest, f, tier, dest == FCC_RG24 ? 0 : tight));
                }
        }
    }
}

// A line of 8 pixels of U 0, V 128 (as the primitive sees them), Y 128:
// a6's main loop gives pixels 3 and 7 their own factors, and the road shows
// it as the tier's model says.
TEST(PlanarToRgb, TheA6OddPositionsShowThroughTheRoad) {
    PlayedTier played(PrimTierA6);
    YuvFrame f = YuvFrame::Make(8, 4);
    std::fill(f.y.begin(), f.y.end(), 128);
    std::fill(f.u.begin(), f.u.end(), 128);  // the primitive's V
    std::fill(f.v.begin(), f.v.end(), 0);    // the primitive's U
    const RoadOutcome o = Convert(FCC_I420, FCC_RG24, f, PrimTierA6, 0, kTopDown, kTopDown);
    ExpectModel(o);
    const uint8_t* row = o.got.data();
    EXPECT_NE(std::vector<uint8_t>(row + 9, row + 12), std::vector<uint8_t>(row + 6, row + 9));
    EXPECT_EQ(std::vector<uint8_t>(row + 0, row + 3), std::vector<uint8_t>(row + 6, row + 9));
}

TEST(PlanarToRgb, Yv12AndI420GiveIdenticalOutputFromSwappedPlanes) {
    for (int tier : yuv420_model::kTiers) {
        PlayedTier played(tier);
        const YuvFrame f = RandomYuv(40, 8, 77 + tier);
        std::vector<uint8_t> i420 = PlanarBytes(FCC_I420, f);
        std::vector<uint8_t> yv12 = PlanarBytes(FCC_YV12, f);
        ASSERT_NE(i420, yv12);
        for (uint32_t dest : kPlanarDests) {
            std::vector<uint8_t> out[2];
            int k = 0;
            for (const auto* frame : {&i420, &yv12}) {
                XFormPtr x = Ready(k == 0 ? FCC_I420 : FCC_YV12, dest, 40, 8);
                out[k].assign(static_cast<size_t>(x->DestBufferSize()) + 8, kFill);
                x->XForm(frame->data(), out[k].data(), static_cast<uint32_t>(BytesPerPixel(dest) * 40));
                ++k;
            }
            EXPECT_EQ(out[0], out[1]) << Name(dest);
        }
    }
}

// The primitives get Y, then the V plane, then the U plane, whatever the
// format; "RG24" alone turns its destination over, with its line size.
TEST(PlanarToRgb, PlaneArrayAndCallsOfEachRoad) {
    const int w = 24, h = 8;
    for (uint32_t src : kPlanarSources)
        for (uint32_t dest : kPlanarDests) {
            SCOPED_TRACE(Name(src) + " to " + Name(dest));
            PlayedTier played(PrimTierW7);
            XFormPtr x = Ready(src, dest, w, h);
            const std::vector<uint8_t> frame = PlanarBytes(src, RandomYuv(w, h, 3));
            std::vector<uint8_t> out(static_cast<size_t>(x->DestBufferSize()) + 8);
            SlotSpies spies;
            x->XForm(frame.data(), out.data(), static_cast<uint32_t>(BytesPerPixel(dest) * w));
            const uint8_t* s = frame.data();
            const uint8_t* uPlane = s + w * h + (src == FCC_I420 ? 0 : w * h / 4);
            const uint8_t* vPlane = s + w * h + (src == FCC_I420 ? w * h / 4 : 0);
            ASSERT_EQ(spies.rows(), dest == FCC_RG24 ? std::vector<int>({12, 16}) : std::vector<int>({12}));
            const SlotCall& c = spies.calls()[0];
            EXPECT_EQ(c.planes[0], s);
            EXPECT_EQ(c.planes[1], vPlane);
            EXPECT_EQ(c.planes[2], uPlane);
            EXPECT_EQ(c.width, w);
            EXPECT_EQ(c.height, h);
            if (dest == FCC_RG24) {
                EXPECT_EQ(c.dst, out.data());
                const SlotCall& m = spies.calls()[1];
                EXPECT_EQ(m.src, out.data());
                EXPECT_EQ(m.srcStep, 3 * w);
                EXPECT_EQ(m.width, w);
                EXPECT_EQ(m.height, h);
                EXPECT_EQ(m.axis, 0);
            } else if (dest == FCC_RG32) {
                EXPECT_EQ(c.dst, dynamic_cast<const CColorXFormPlanarToRG32&>(*x).rgbBuffer);
            } else if (dest == FCC_RG55) {
                EXPECT_EQ(c.dst, dynamic_cast<const CColorXFormPlanarToRG55&>(*x).rgbBuffer);
            } else {
                EXPECT_EQ(c.dst, dynamic_cast<const CColorXFormPlanarToRG56&>(*x).rgbBuffer);
            }
        }
}

// With the default orientations (1 and 2) "RG24" comes out turned over
// against "RG32", "RG55" and "RG56", which never look at orientation.
TEST(PlanarToRgb, DefaultOrientationsTurnOnlyRg24Over) {
    PlayedTier played(PrimTierPx);
    const int w = 16, h = 8;
    const YuvFrame f = RandomYuv(w, h, 21);
    const std::vector<uint8_t> frame = PlanarBytes(FCC_I420, f);
    XFormPtr rg24 = Ready(FCC_I420, FCC_RG24, w, h);
    XFormPtr rg32 = Ready(FCC_I420, FCC_RG32, w, h);
    std::vector<uint8_t> a(rg24->DestBufferSize()), b(rg32->DestBufferSize());
    rg24->XForm(frame.data(), a.data(), 0);
    rg32->XForm(frame.data(), b.data(), static_cast<uint32_t>(4 * w));
    for (int r = 0; r < h; ++r)
        for (int x = 0; x < w; ++x)
            for (int k = 0; k < 3; ++k)
                ASSERT_EQ(a[3 * w * (h - 1 - r) + 3 * x + k], b[4 * w * r + 4 * x + k]) << r << " " << x;

    const std::vector<std::pair<Orient, Orient>> orientations = {
        {kDefault, kDefault}, {kTopDown, kTopDown},   {kBottomUp, kBottomUp}, {kTopDown, kBottomUp},
        {kDefault, kTopDown}, {kBottomUp, kDefault}, {AsOrient(1), AsOrient(3)}, {AsOrient(3), AsOrient(3)},
        {kBottomUp, kTopDown}};
    for (uint32_t dest : kPlanarDests)
        for (auto [so, dO] : orientations) {
            SCOPED_TRACE(Name(dest) + " " + std::to_string(so) + " " + std::to_string(dO));
            ExpectModel(Convert(FCC_YV12, dest, f, PrimTierPx, static_cast<uint32_t>(BytesPerPixel(dest) * w), so, dO));
        }
}

// "RG24": 0 and the line size take the tight primitive, anything else the
// stepped one with steps W, W/2, W/2; the turn-over always walks the line
// size, also when the rows went out on another pitch.
TEST(PlanarToRgb, Rg24PitchRules) {
    const int w = 20, h = 8, line = 3 * w;
    const YuvFrame f = RandomYuv(w, h, 5);
    const std::vector<uint8_t> frame = PlanarBytes(FCC_I420, f);
    for (int tier : {PrimTierPx, PrimTierW7}) {
        PlayedTier played(tier);
        for (uint32_t pitch : {0u, uint32_t(line), uint32_t(line + 4), uint32_t(line + 1), uint32_t(2 * line + 3)})
            for (auto [so, dO] : {std::pair{kDefault, kDefault}, std::pair{kTopDown, kTopDown}}) {
                SCOPED_TRACE(std::to_string(pitch) + (so == kDefault ? " flipped" : " not flipped"));
                ExpectModel(Convert(FCC_I420, FCC_RG24, f, tier, pitch, so, dO));
                XFormPtr x = Ready(FCC_I420, FCC_RG24, w, h, so, dO);
                std::vector<uint8_t> out(static_cast<size_t>(2 * line + 3) * h);
                SlotSpies spies;
                x->XForm(frame.data(), out.data(), pitch);
                const bool tight = pitch == 0 || pitch == uint32_t(line);
                ASSERT_EQ(spies.calls()[0].row, tight ? 12 : 13);
                if (!tight) {
                    const SlotCall& c = spies.calls()[0];
                    EXPECT_EQ(c.planeSteps[0], w);
                    EXPECT_EQ(c.planeSteps[1], w / 2);
                    EXPECT_EQ(c.planeSteps[2], w / 2);
                    EXPECT_EQ(c.dstStep, int32_t(pitch));
                    EXPECT_EQ(c.dst, out.data());
                }
                if (so == kDefault) {
                    ASSERT_EQ(spies.calls().size(), 2u);
                    EXPECT_EQ(spies.calls()[1].srcStep, line);
                } else {
                    EXPECT_EQ(spies.calls().size(), 1u);
                }
            }
    }
}

// A pitch that counts as negative is refused by the stepped primitive,
// which writes nothing; the turn-over runs all the same, on what the
// destination held.
TEST(PlanarToRgb, Rg24RefusedPitchStillTurnsOver) {
    PlayedTier played(PrimTierW7);
    const int w = 8, h = 4, line = 3 * w;
    const std::vector<uint8_t> frame = PlanarBytes(FCC_I420, RandomYuv(w, h, 6));
    const std::vector<uint8_t> before = pixmoor_test::RandomBytes(size_t(line) * h, 8);
    for (bool flip : {false, true}) {
        XFormPtr x = Ready(FCC_I420, FCC_RG24, w, h, kTopDown, flip ? kBottomUp : kTopDown);
        GuardedBuffer buf(before.size());
        std::copy(before.begin(), before.end(), buf.data());
        x->XForm(frame.data(), buf.data(), 0x80000000u);
        std::vector<uint8_t> expected = before;
        if (flip) SwapRows(expected, 0, line, line, h);
        EXPECT_EQ(buf.Contents(), expected);
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

// "RG32": the line size gives tight rows; 0 starts every row one byte
// later than a tight row would, so the picture runs H-1 bytes past
// DestBufferSize; any other pitch leaves its gap untouched.
TEST(PlanarToRgb, Rg32PitchRules) {
    PlayedTier played(PrimTierA6);
    const int w = 12, h = 8;
    const YuvFrame f = RandomYuv(w, h, 9);
    for (uint32_t pitch : {uint32_t(4 * w), 0u, uint32_t(4 * w + 8), uint32_t(4 * w + 1), uint32_t(-4 * w)}) {
        SCOPED_TRACE(pitch);
        ExpectModel(Convert(FCC_I420, FCC_RG32, f, PrimTierA6, pitch));
    }
    XFormPtr x = Ready(FCC_I420, FCC_RG32, w, h);
    const std::vector<uint8_t> frame = PlanarBytes(FCC_I420, f);
    GuardedBuffer buf(static_cast<size_t>(x->DestBufferSize()) + h - 1, kFill);
    x->XForm(frame.data(), buf.data(), 0);
    EXPECT_TRUE(buf.GuardsIntact());
    EXPECT_NE(buf[x->DestBufferSize() + h - 2], kFill);  // last byte: the zero of the last pixel
    EXPECT_EQ(buf[x->DestBufferSize() + h - 2], 0);
    EXPECT_EQ(buf[4 * w], kFill);  // the byte that 0 skips after the first row
}

// "RG55" and "RG56": the pitch has no default; 0 lays every row on the
// first one, which keeps the last row's pixels.
TEST(PlanarToRgb, Rgb16PitchRules) {
    PlayedTier played(PrimTierW7);
    const int w = 36, h = 8;
    const YuvFrame f = RandomYuv(w, h, 10);
    for (uint32_t dest : {FCC_RG55, FCC_RG56})
        for (uint32_t pitch : {uint32_t(2 * w), 0u, uint32_t(2 * w + 6), uint32_t(2 * w + 1), uint32_t(w),
                               uint32_t(-2 * w)}) {
            SCOPED_TRACE(Name(dest) + " " + std::to_string(int32_t(pitch)));
            ExpectModel(Convert(FCC_I420, dest, f, PrimTierW7, pitch));
        }
    for (uint32_t dest : {FCC_RG55, FCC_RG56}) {
        XFormPtr x = Ready(FCC_I420, dest, w, h);
        const std::vector<uint8_t> frame = PlanarBytes(FCC_I420, f);
        GuardedBuffer buf(x->DestBufferSize(), kFill);
        x->XForm(frame.data(), buf.data(), 0);
        const std::vector<uint8_t> tight = ModelRepackRows(dest, ModelPlanarRows(f, PrimTierW7).data(), w, h);
        EXPECT_TRUE(std::equal(tight.end() - 2 * w, tight.end(), buf.data()));
        EXPECT_TRUE(std::all_of(buf.data() + 2 * w, buf.data() + buf.size(), [](uint8_t b) { return b == kFill; }));
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

// Black is 0; full colour is 0x7FFF in "RG55" (bit 15 clear) and 0xFFFF in
// "RG56", in every tier.
TEST(PlanarToRgb, Rgb16BlackAndFullColour) {
    for (int tier : yuv420_model::kTiers) {
        PlayedTier played(tier);
        for (uint32_t dest : {FCC_RG55, FCC_RG56})
            for (int luma : {0, 255}) {
                YuvFrame f = YuvFrame::Make(8, 4);
                std::fill(f.y.begin(), f.y.end(), uint8_t(luma));
                std::fill(f.u.begin(), f.u.end(), 128);
                std::fill(f.v.begin(), f.v.end(), 128);
                XFormPtr x = Ready(FCC_YV12, dest, 8, 4);
                const std::vector<uint8_t> frame = PlanarBytes(FCC_YV12, f);
                std::vector<uint8_t> out(x->DestBufferSize(), kFill);
                x->XForm(frame.data(), out.data(), 16);
                const unsigned full = dest == FCC_RG55 ? 0x7FFF : 0xFFFF;
                for (size_t i = 0; i < out.size(); i += 2)
                    ASSERT_EQ(out[i] + 256u * out[i + 1], luma == 0 ? 0u : full) << Name(dest) << " " << i;
            }
    }
}

// Should the primitive fail, the buffered roads pack whatever rgbBuffer
// holds: here the previous frame.  "RG24" then leaves its destination as
// it was.
TEST(PlanarToRgb, AFailedPrimitiveLeavesTheBufferAndTheLoopRunsOn) {
    PlayedTier played(PrimTierM6);
    const int w = 8, h = 4;
    const YuvFrame first = RandomYuv(w, h, 11), second = RandomYuv(w, h, 12);
    for (uint32_t dest : kPlanarDests) {
        SCOPED_TRACE(Name(dest));
        XFormPtr x = Ready(FCC_I420, dest, w, h, kTopDown, kTopDown);
        const uint32_t pitch = static_cast<uint32_t>(BytesPerPixel(dest) * w);
        std::vector<uint8_t> a(x->DestBufferSize(), kFill), b(x->DestBufferSize(), kFill);
        x->XForm(PlanarBytes(FCC_I420, first).data(), a.data(), pitch);
        SlotSpies failing(true);
        x->XForm(PlanarBytes(FCC_I420, second).data(), b.data(), pitch);
        if (dest == FCC_RG24)
            EXPECT_TRUE(std::all_of(b.begin(), b.end(), [](uint8_t v) { return v == kFill; }));
        else
            EXPECT_EQ(a, b);
    }
}

// The expansion and packing loops of "RG32", "RG55" and "RG56" at every
// instruction-set level: vector blocks and scalar tails, tight rows, the
// pitches with a gap and without a default.
TEST(PlanarToRgb, LoopsGiveTheModelAtEveryLevel) {
    PlayedTier played(PrimTierPx);
    pixmoor_test::ForEachIsaLevel([] {
        uint32_t seed = 40;
        for (int w : FastRowWidths()) {
            const YuvFrame f = RandomYuv(w, 4, seed++);
            for (uint32_t dest : {FCC_RG32, FCC_RG55, FCC_RG56}) {
                const uint32_t tight = static_cast<uint32_t>(BytesPerPixel(dest) * w);
                for (uint32_t pitch : {tight, 0u, tight + 6, uint32_t(-int32_t(tight))}) {
                    SCOPED_TRACE(Name(dest) + " " + std::to_string(w) + " pitch " + std::to_string(int32_t(pitch)));
                    ExpectModel(Convert(FCC_I420, dest, f, PrimTierPx, pitch));
                }
            }
        }
    });
}

// A zero size passes Init.  The primitive then refuses it, "RG24" writes
// nothing at all, and the loops of the other three still run one round:
// one pixel, whose bytes come from the empty buffer; "RG32" sets its
// fourth byte to 0.
TEST(PlanarToRgb, ZeroSizeWritesOnePixelOnlyThroughTheLoops) {
    PlayedTier played(PrimTierW7);
    const std::vector<uint8_t> frame(16, 0x80);
    pixmoor_test::ForEachIsaLevel([&] {
    for (uint32_t dest : kPlanarDests) {
        SCOPED_TRACE(Name(dest));
        XFormPtr x = Ready(FCC_I420, dest, 0, 0);
        EXPECT_EQ(x->DestBufferSize(), 0);
        GuardedBuffer buf(8, kFill);
        // Pitches that keep the one row at the start of the buffer.
        x->XForm(frame.data(), buf.data(), dest == FCC_RG32 ? 0u : 4u);
        const int written = dest == FCC_RG24 ? 0 : BytesPerPixel(dest);
        EXPECT_TRUE(std::all_of(buf.data() + written, buf.data() + 8, [](uint8_t v) { return v == kFill; }));
        if (dest == FCC_RG32) {
            EXPECT_EQ(buf[3], 0);
        }
        EXPECT_TRUE(buf.GuardsIntact());
    }
    });
}

TEST(PlanarToRgb, DestBufferSize) {
    PlayedTier played(PrimTierPx);
    const std::pair<uint32_t, int32_t> at320[] = {
        {FCC_RG24, 230400}, {FCC_RG32, 307200}, {FCC_RG55, 153600}, {FCC_RG56, 153600}};
    for (uint32_t src : kPlanarSources)
        for (auto [dest, bytes] : at320) {
            EXPECT_EQ(Ready(src, dest, 320, 240)->DestBufferSize(), bytes);
            EXPECT_EQ(Ready(src, dest, 176, 144)->DestBufferSize(), bytes / 76800 * 25344);
            EXPECT_EQ(Ready(src, dest, 0, 0)->DestBufferSize(), 0);
            EXPECT_EQ(Create(src, dest)->DestBufferSize(), 0);
        }
}

}  // namespace

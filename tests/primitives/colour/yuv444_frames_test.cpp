// Every member in every tier on seeded random frames of many sizes, steps
// and start addresses, bit for bit against the model; no byte outside the
// samples moves (line gaps, guards, byte 3 of 4-byte pixels), and the
// source is left as it was.
#include <gtest/gtest.h>

#include "yuv444_harness.h"

using namespace yuv444_harness;
using namespace yuv444_model;

namespace {

bool Check(Member m, int tier, int w, int h, const Layouting& l, uint32_t seed) {
    const std::vector<Trio> in = RandomPixels(w, h, seed);
    const RunResult r = RunMember(m, EntriesOf(tier), in, w, h, l, seed);
    const bool ok = r.status == PrimStatusOk && r.outsideUntouched && r.out == ModelFrame(m, tier, in, w, h);
    EXPECT_TRUE(ok) << Describe(m, tier, w, h) << " pads " << l.srcPad << "/" << l.dstPad << " offsets "
                    << l.srcOffset << "/" << l.dstOffset << ": status " << r.status << ", outside untouched "
                    << r.outsideUntouched;
    return ok;
}

// Widths 1 to 70 pass every block bound (4, 8, 16 pixels) several times,
// with every tail length; tight and padded steps; heights of one and more
// lines.
TEST(Yuv444Frames, SmallFramesMatchTheModel) {
    uint32_t seed = 1;
    for (Member m : kMembers)
        for (int tier : kTiers)
            for (int h : {1, 2, 3})
                for (int w = 1; w <= 70; ++w) {
                    const Layouting l{(w % 3) * 5, (w % 4) * 3, w % 5, (w * 7) % 16};
                    if (!Check(m, tier, w, h, l, seed++)) return;
                }
}

TEST(Yuv444Frames, LargeFramesMatchTheModel) {
    const int sizes[][2] = {{641, 5}, {1024, 3}, {333, 7}, {352, 4}, {1920, 2}};
    uint32_t seed = 1000;
    for (Member m : kMembers)
        for (int tier : kTiers)
            for (const auto& s : sizes)
                if (!Check(m, tier, s[0], s[1], Layouting{13, 9, 3, 5}, seed++)) return;
}

// The planes to planes members bring each destination plane to a boundary
// before their vector loop; every start address modulo 16, with widths
// around the boundary and block sizes, gives the model's bytes.
TEST(Yuv444Frames, EveryDestinationAlignmentOfThePlaneMembers) {
    uint32_t seed = 5000;
    for (Member m : {kRgbPlanesToYuvPlanes, kYuvPlanesToRgbPlanes})
        for (int tier : kTiers)
            for (int offset = 0; offset < 16; ++offset)
                for (int w : {1, 2, 7, 8, 9, 15, 16, 17, 23, 24, 31, 32, 33, 40, 47, 48, 49, 64, 100})
                    if (!Check(m, tier, w, 2, Layouting{offset % 3, (16 - offset) % 7, offset ^ 5, offset}, seed++))
                        return;
}

// Step shorter than a line: accepted, lines overlap; nothing outside the
// region (as the caller's steps lay it) is written.
TEST(Yuv444Frames, StepShorterThanTheLineIsAccepted) {
    for (int tier : kTiers) {
        std::vector<uint8_t> src(64, 9), dst(64, 0);
        const Entries& e = EntriesOf(tier);
        EXPECT_EQ(e.rgbToYuv(src.data(), 1, dst.data(), 2, 4, 3), PrimStatusOk);
        EXPECT_EQ(e.yuvaToRgba(src.data(), 4, dst.data(), 3, 4, 3), PrimStatusOk);
    }
}

}  // namespace

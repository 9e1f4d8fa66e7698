// The 4:2:0 members at every instruction-set level against the scalar
// model: the wider-vector forms inside the tier entries must give exactly
// the tier's bytes, on widths around each vector step (16, 32 and 64
// pixels) and their tails, odd sizes and padded steps; widths of an odd
// number of 64-pixel steps (352, 416) and those plus a tail, where the
// 32-pixel form takes over after the 64-pixel one.
#include <gtest/gtest.h>

#include "isa_levels.h"
#include "yuv420_harness.h"
#include "yuv420_model.h"

using namespace yuv420_harness;

namespace {

const int kWidths[] = {1, 2, 3, 15, 16, 17, 30, 31, 32, 33, 34, 47, 48, 49, 62, 63, 64, 65, 66, 95, 96,
                       97, 98, 127, 128, 129, 130, 131, 190, 191, 192, 193, 254, 256, 257, 258, 321,
                       352, 353, 414, 416, 446, 447};
const int kHeights[] = {1, 2, 3, 5};

template <class Check>
void ForEachFrame(Check check) {
    pixmoor_test::ForEachIsaLevel([&] {
        uint32_t seed = 7;
        for (int tier : yuv420_model::kTiers)
            for (bool planes : {false, true})
                for (int w : kWidths)
                    for (int h : kHeights) {
                        SCOPED_TRACE(::testing::Message() << yuv420_model::TierName(tier) << (planes ? " planes " : " packed ")
                                                          << w << "x" << h);
                        check(tier, planes, w, h, seed++);
                        if (::testing::Test::HasFatalFailure()) return;
                    }
    });
}

// The forward member on frames that `make` gives, against the model.
template <RgbFrame (*Make)(int w, int h, uint32_t seed)>
void CheckForwardFrames() {
    ForEachFrame([](int tier, bool planes, int w, int h, uint32_t seed) {
        const RgbFrame in = Make(w, h, seed);
        const ForwardOut got = RunForward(tier, planes, (seed & 1) != 0, in, 3);
        ASSERT_EQ(got.result.status, PrimStatusOk);
        ASSERT_TRUE(got.result.outsideUntouched);
        ASSERT_TRUE(Same(got.frame, yuv420_model::Forward(in, static_cast<Tier>(tier), planes)));
    });
}

TEST(Yuv420IsaLevels, ForwardMatchesTheModelAtEveryLevel) { CheckForwardFrames<&RandomRgb>(); }

// Channels near 0 and 255 only: blocks whose V needs the clamp at both ends
// (reds and greens) and whose U reaches its extremes, which random frames
// seldom give.
RgbFrame ExtremeRgb(int w, int h, uint32_t seed) {
    RgbFrame f = RandomRgb(w, h, seed);
    for (std::vector<uint8_t>* c : {&f.r, &f.g, &f.b})
        for (uint8_t& s : *c) s = (s & 0x80) ? static_cast<uint8_t>(255 - (s & 3)) : static_cast<uint8_t>(s & 3);
    return f;
}

TEST(Yuv420IsaLevels, ForwardOfExtremeColoursMatchesTheModelAtEveryLevel) { CheckForwardFrames<&ExtremeRgb>(); }

TEST(Yuv420IsaLevels, InverseMatchesTheModelAtEveryLevel) {
    ForEachFrame([](int tier, bool planes, int w, int h, uint32_t seed) {
        const YuvFrame in = RandomYuv(w, h, seed);
        const InverseOut got = RunInverse(tier, planes, (seed & 1) != 0, in, 3);
        ASSERT_EQ(got.result.status, PrimStatusOk);
        ASSERT_TRUE(got.result.outsideUntouched);
        ASSERT_TRUE(Same(got.frame, yuv420_model::Inverse(in, static_cast<Tier>(tier), planes)));
    });
}

}  // namespace

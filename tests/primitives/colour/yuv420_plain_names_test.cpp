// The plain names of the members outside the dispatch table run the tier
// that PrimGetTier reports.
#include <gtest/gtest.h>

#include "yuv420_harness.h"

using namespace yuv420_harness;

namespace {

class TierScope {
public:
    explicit TierScope(int32_t tier) : saved_(PrimCurrentTier) { PrimCurrentTier = tier; }
    ~TierScope() { PrimCurrentTier = saved_; }

private:
    int32_t saved_;
};

// Frames where the wide and narrow arithmetic and a6's odd row all show.
TEST(Yuv420PlainNames, RunTheReportedTier) {
    const int w = 40, h = 6;
    const RgbFrame rgb = RandomRgb(w, h, 5);
    const YuvFrame yuv = RandomYuv(w, h, 6);
    for (int tier : yuv420_model::kTiers) {
        SCOPED_TRACE(yuv420_model::TierName(tier));
        TierScope scope(tier);
        ASSERT_EQ(PrimGetTier(), tier);
        const TierEntries plain{nullptr,
                                ImgRGBToYUV420_Step,
                                ImgRGBPlanesToYUV420,
                                ImgRGBPlanesToYUV420_Step,
                                nullptr,
                                nullptr,
                                ImgYUV420ToRGBPlanes,
                                ImgYUV420ToRGBPlanes_Step};
        const TierEntries& prefixed = Entries(tier);

        Yuv420Planes a(w, h, 2), b(w, h, 2);
        a.Bind();
        b.Bind();
        PackedRgb packed(w, h, 1);
        packed.Load(rgb);
        EXPECT_EQ(plain.rgbToYuv420Step(packed.p.buf.data(), packed.p.step, a.ptrs, a.steps, w, h), 0);
        EXPECT_EQ(prefixed.rgbToYuv420Step(packed.p.buf.data(), packed.p.step, b.ptrs, b.steps, w, h), 0);
        EXPECT_TRUE(Same(a.Read(w, h), b.Read(w, h)));

        RgbPlanes planes(w, h, 0);
        planes.Load(rgb);
        planes.Bind();
        const uint8_t* const sp[3] = {planes.ptrs[0], planes.ptrs[1], planes.ptrs[2]};
        EXPECT_EQ(plain.rgbPlanesToYuv420(sp, a.ptrs, w, h), 0);
        EXPECT_EQ(prefixed.rgbPlanesToYuv420(sp, b.ptrs, w, h), 0);
        EXPECT_TRUE(Same(a.Read(w, h), b.Read(w, h)));
        EXPECT_EQ(plain.rgbPlanesToYuv420Step(sp, w, a.ptrs, a.steps, w, h), 0);
        EXPECT_EQ(prefixed.rgbPlanesToYuv420Step(sp, w, b.ptrs, b.steps, w, h), 0);
        EXPECT_TRUE(Same(a.Read(w, h), b.Read(w, h)));

        Yuv420Planes src(w, h, 0);
        src.Load(yuv);
        src.Bind();
        const uint8_t* const yp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
        RgbPlanes outA(w, h, 0), outB(w, h, 0);
        outA.Bind();
        outB.Bind();
        EXPECT_EQ(plain.yuv420ToRgbPlanes(yp, outA.ptrs, w, h), 0);
        EXPECT_EQ(prefixed.yuv420ToRgbPlanes(yp, outB.ptrs, w, h), 0);
        EXPECT_TRUE(Same(outA.Read(w, h), outB.Read(w, h)));
        EXPECT_EQ(plain.yuv420ToRgbPlanesStep(yp, src.steps, outA.ptrs, w, w, h), 0);
        EXPECT_EQ(prefixed.yuv420ToRgbPlanesStep(yp, src.steps, outB.ptrs, w, w, h), 0);
        EXPECT_TRUE(Same(outA.Read(w, h), outB.Read(w, h)));
    }
}

}  // namespace

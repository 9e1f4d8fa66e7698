#include <gtest/gtest.h>

#include <pixmoor/geometry.h>

#include "core/convert_plan.h"
#include "core/errors.h"
#include "core/resize_plan.h"
#include "core/tier_reason.h"

using namespace pixmoor_tool;

namespace {

bool AnyPair(uint32_t, uint32_t) { return true; }
bool NoPair(uint32_t, uint32_t) { return false; }

ConvertOptions Convert(const char* from, const char* to) {
    ConvertOptions o;
    o.from = from;
    o.to = to;
    return o;
}

// Runs `f` and returns the usage error's text ("" if none was thrown).
template <typename F>
std::string UsageError(F f) {
    try {
        f();
    } catch (const ToolError& e) {
        EXPECT_EQ(e.exitStatus(), kExitUsage) << e.what();
        return e.what();
    }
    return "";
}

}  // namespace

TEST(ToolConvertPlan, TopDownFilesByDefault) {
    const ConvertPlan p = PlanConversion(Convert("I420", "RG24"), {352, 288}, false, AnyPair);
    EXPECT_EQ(p.srcOrientation, 1);
    EXPECT_EQ(p.destOrientation, 1);
    EXPECT_FALSE(p.destBottomUp);
    EXPECT_EQ(p.destPitch, 1056u);  // explicit tight pitch, never 0
    EXPECT_EQ(p.inputFrameBytes, 152064);
    EXPECT_EQ(p.outputFrameBytes, 304128);
}

TEST(ToolConvertPlan, NativeOrientationsAreTheLibraryDefaults) {
    ConvertOptions o = Convert("I420", "RG32");
    o.native = true;
    const ConvertPlan p = PlanConversion(o, {16, 8}, false, AnyPair);
    EXPECT_EQ(p.srcOrientation, 0);
    EXPECT_EQ(p.destOrientation, 0);
    EXPECT_TRUE(p.destBottomUp);  // RGB's natural rows run bottom first
    EXPECT_EQ(p.destPitch, 64u);  // 0 would shift every row by a byte on this pair
}

TEST(ToolConvertPlan, ExplicitOrientations) {
    ConvertOptions o = Convert("RG24", "I420");
    o.srcOrient = "bottom-up";
    o.destOrient = "default";
    const ConvertPlan p = PlanConversion(o, {16, 8}, false, AnyPair);
    EXPECT_EQ(p.srcOrientation, 2);
    EXPECT_EQ(p.destOrientation, 0);
    EXPECT_FALSE(p.destBottomUp);  // I420's natural rows run top first
    EXPECT_EQ(p.destPitch, 0u);
    EXPECT_EQ(p.outputFrameBytes, 16 * 8 * 3 / 2);
}

TEST(ToolConvertPlan, PitchChecks) {
    ConvertOptions o = Convert("YUY2", "RG56");
    o.destPitch = 40;
    const ConvertPlan p = PlanConversion(o, {16, 8}, false, AnyPair);
    EXPECT_EQ(p.destPitch, 40u);
    EXPECT_EQ(p.outputFrameBytes, 320);
    o.destPitch = 31;
    EXPECT_NE(UsageError([&] { PlanConversion(o, {16, 8}, false, AnyPair); }).find("less than a RG56 row"),
              std::string::npos);
    ConvertOptions toI420 = Convert("YUY2", "I420");
    toI420.destPitch = 64;
    EXPECT_NE(UsageError([&] { PlanConversion(toI420, {16, 8}, false, AnyPair); }).find("RGB destinations only"),
              std::string::npos);
}

TEST(ToolConvertPlan, ChecksInOrderFormatPairSize) {
    EXPECT_NE(UsageError([] { PlanConversion(Convert("XXXX", "RG24"), {322, 240}, false, NoPair); })
                  .find("unknown format code 'XXXX' for --from"),
              std::string::npos);
    EXPECT_NE(UsageError([] { PlanConversion(Convert("yuy2", "YV12"), {322, 240}, false, NoPair); })
                  .find("unsupported format pair yuy2 -> YV12"),
              std::string::npos);
    EXPECT_EQ(UsageError([] { PlanConversion(Convert("I420", "RG24"), {322, 240}, false, AnyPair); }),
              "size 322x240 can't be converted I420 -> RG24: width and height must be multiples of 4");
    EXPECT_NE(UsageError([] { PlanConversion(Convert("I420", "RG24"), {320, 242}, false, AnyPair); }), "");
}

TEST(ToolConvertPlan, AliasesGoToTheFactoryAsTyped) {
    uint32_t seenSrc = 0, seenDst = 0;
    const ConvertPlan p = PlanConversion(Convert("YUNV", "rg55"), {16, 8}, false, [&](uint32_t s, uint32_t d) {
        seenSrc = s, seenDst = d;
        return true;
    });
    EXPECT_EQ(seenSrc, FCC_YUNV);
    EXPECT_EQ(seenDst, FCC_rg55);
    EXPECT_EQ(p.src.info->code, FCC_YUY2);
    EXPECT_EQ(p.layout, Rgb555Layout::HighAligned);  // the packed pairs' own 5-5-5 words
    EXPECT_EQ(PlanConversion(Convert("RG24", "RG55"), {16, 8}, false, AnyPair).layout, Rgb555Layout::Standard);
}

TEST(ToolConvertPlan, Y4mInputIsI420) {
    EXPECT_EQ(PlanConversion(Convert("", "RG24"), {16, 8}, true, AnyPair).src.info->code, FCC_I420);
    EXPECT_EQ(PlanConversion(Convert("i420", "RG24"), {16, 8}, true, AnyPair).src.typed, FCC_i420);
    EXPECT_NE(UsageError([] { PlanConversion(Convert("YUY2", "RG24"), {16, 8}, true, AnyPair); }).find("Y4M input"),
              std::string::npos);
    EXPECT_NE(UsageError([] { PlanConversion(Convert("", "RG24"), {16, 8}, false, AnyPair); }).find("--from"),
              std::string::npos);
}

namespace {

ResizeOptions Resize(const char* format, const char* out) {
    ResizeOptions o;
    o.format = format;
    o.outSize = out;
    return o;
}

}  // namespace

TEST(ToolResizePlan, PlanarFormatsCropAndPad) {
    uint32_t code = 0, bits = 0;
    const ResizePlan p = PlanResize(Resize("IYUV", "176x144"), {352, 288}, false, [&](uint32_t c, uint32_t b) {
        code = c, bits = b;
        return true;
    });
    EXPECT_TRUE(p.cropPad);
    EXPECT_EQ(code, FCC_IYUV);
    EXPECT_EQ(bits, 12u);
    EXPECT_EQ(p.inputFrameBytes, 152064);
    EXPECT_EQ(p.outputFrameBytes, 38016);
    EXPECT_NE(UsageError([] { PlanResize(Resize("I420", "175x144"), {352, 288}, false, AnyPair); }).find("even sizes"),
              std::string::npos);
    EXPECT_NE(UsageError([] { PlanResize(Resize("YV12", "176x144"), {352, 287}, false, AnyPair); }).find("odd side"),
              std::string::npos);
}

TEST(ToolResizePlan, RgbCodesReachTheFactoryAsItKnowsThem) {
    const struct {
        const char* format;
        uint32_t code, bits;
    } cases[] = {{"RG24", FCC_RG24, 24}, {"rg24", FCC_rg24, 24}, {"RG32", 0, 32}, {"rg55", 0, 16}, {"RG56", 0, 16}};
    for (const auto& c : cases) {
        uint32_t code = 1, bits = 0;
        const ResizePlan p = PlanResize(Resize(c.format, "7x5"), {5, 3}, false, [&](uint32_t cc, uint32_t b) {
            code = cc, bits = b;
            return true;
        });
        EXPECT_FALSE(p.cropPad) << c.format;
        EXPECT_EQ(code, c.code) << c.format;
        EXPECT_EQ(bits, c.bits) << c.format;
        EXPECT_EQ(p.inputFrameBytes, 5 * 3 * int64_t(c.bits / 8)) << c.format;  // tight rows
    }
}

TEST(ToolResizePlan, PlainRgbNeedsItsDepth) {
    ResizeOptions o = Resize("0rgb", "8x8");
    EXPECT_NE(UsageError([&] { PlanResize(o, {4, 4}, false, AnyPair); }).find("--bits"), std::string::npos);
    o.bits = 32;
    const ResizePlan p = PlanResize(o, {4, 4}, false, AnyPair);
    EXPECT_EQ(p.factoryCode, FCC_0rgb);
    EXPECT_EQ(p.factoryBits, 32u);
    EXPECT_EQ(p.format->code, FCC_RG32);
    ResizeOptions mismatch = Resize("RG32", "8x8");
    mismatch.bits = 24;
    EXPECT_NE(UsageError([&] { PlanResize(mismatch, {4, 4}, false, AnyPair); }).find("does not match"),
              std::string::npos);
}

TEST(ToolResizePlan, UnsupportedFormatsAndY4m) {
    EXPECT_NE(UsageError([] { PlanResize(Resize("YUY2", "8x8"), {4, 4}, false, NoPair); }).find("unsupported format YUY2"),
              std::string::npos);
    EXPECT_NE(UsageError([] { PlanResize(Resize("FOO1", "8x8"), {4, 4}, false, AnyPair); }).find("unknown format"),
              std::string::npos);
    EXPECT_TRUE(PlanResize(Resize("", "8x8"), {4, 4}, true, AnyPair).cropPad);
    EXPECT_NE(UsageError([] { PlanResize(Resize("RG24", "8x8"), {4, 4}, true, AnyPair); }).find("Y4M input"),
              std::string::npos);
    EXPECT_NE(UsageError([] { PlanResize(Resize("", "8x8"), {4, 4}, false, AnyPair); }).find("--format"),
              std::string::npos);
}

TEST(ToolTierReason, FollowsTheDetectionRules) {
    CpuInfo info = {};
    EXPECT_EQ(ExplainTier(false, true, info).tier, PrimTierPx);
    info.family = 6, info.hasMmx = info.hasSse = info.hasSse2 = 1;
    EXPECT_EQ(ExplainTier(true, false, info).tier, PrimTierPx);  // other vendor
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierW7);
    info.hasSse2 = 0;
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierA6);
    info.hasSse = 0;
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierM6);
    info.hasMmx = 0;
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierPx);
    info.family = 15, info.hasMmx = info.hasSse = 1;
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierPx);  // no fall to a6 in family 15
    EXPECT_NE(ExplainTier(true, true, info).reason.find("without SSE2"), std::string::npos);
    info.hasSse2 = 1;
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierW7);
    info.family = 5;
    EXPECT_EQ(ExplainTier(true, true, info).tier, PrimTierPx);
    EXPECT_EQ(TierName(3), "w7");
    EXPECT_EQ(TierNumber("px"), 0);
    EXPECT_EQ(TierNumber("a6"), 2);
    EXPECT_EQ(TierNumber("w7"), 3);
    EXPECT_EQ(TierNumber("W7"), -1);
    EXPECT_EQ(TierName(4), "tier 4");
}

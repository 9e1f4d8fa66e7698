// Wrappers of the 4:2:0 members: every bad argument in every position gives
// its status, the checks run in their fixed order (outer pointers, size,
// plane pointers, steps), and a failing call writes nothing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "guarded_buffer.h"
#include "yuv420_harness.h"

using namespace yuv420_harness;
using pixmoor_test::GuardedBuffer;

namespace {

constexpr int kW = 6, kH = 4;
constexpr size_t kBufferBytes = 3 * kW * kH;

// Every argument of every shape; each member reads the ones it takes.
struct Args {
    GuardedBuffer srcBufs[3] = {GuardedBuffer(kBufferBytes), GuardedBuffer(kBufferBytes), GuardedBuffer(kBufferBytes)};
    GuardedBuffer dstBufs[3] = {GuardedBuffer(kBufferBytes), GuardedBuffer(kBufferBytes), GuardedBuffer(kBufferBytes)};
    const uint8_t* src;
    const uint8_t* srcPlanes[3];
    uint8_t* dst;
    uint8_t* dstPlanes[3];
    int32_t srcStep = 3 * kW, dstStep = 3 * kW;
    int32_t srcSteps[3] = {kW, kW, kW};
    int32_t dstSteps[3] = {kW, kW, kW};
    bool srcPlanesNull = false, dstPlanesNull = false, srcStepsNull = false, dstStepsNull = false;
    int32_t width = kW, height = kH;

    Args() {
        for (int i = 0; i < 3; ++i) {
            srcBufs[i].FillRandom(static_cast<uint32_t>(i + 1));
            srcPlanes[i] = srcBufs[i].data();
            dstPlanes[i] = dstBufs[i].data();
        }
        src = srcBufs[0].data();
        dst = dstBufs[0].data();
    }
    const uint8_t* const* SrcPlanes() const { return srcPlanesNull ? nullptr : srcPlanes; }
    uint8_t* const* DstPlanes() const { return dstPlanesNull ? nullptr : dstPlanes; }
    const int32_t* SrcSteps() const { return srcStepsNull ? nullptr : srcSteps; }
    const int32_t* DstSteps() const { return dstStepsNull ? nullptr : dstSteps; }
    bool NothingWritten() const { return pixmoor_test::AllUntouched(dstBufs); }
};

struct Defect {
    std::string name;
    PrimStatus status;
    std::function<void(Args&)> apply;
};

// Defects of each argument kind, in check order within their stage.
Defect NullOuter(const std::string& name, std::function<void(Args&)> f) { return {name, -8, std::move(f)}; }
Defect NullPlane(const std::string& name, std::function<void(Args&)> f) { return {name, -8, std::move(f)}; }
Defect BadSize(const std::string& name, std::function<void(Args&)> f) { return {name, -6, std::move(f)}; }
Defect BadStep(const std::string& name, std::function<void(Args&)> f) { return {name, -14, std::move(f)}; }

std::vector<Defect> SizeDefects() {
    return {BadSize("width 0", [](Args& a) { a.width = 0; }), BadSize("width -1", [](Args& a) { a.width = -1; }),
            BadSize("height 0", [](Args& a) { a.height = 0; }),
            BadSize("height -7", [](Args& a) { a.height = -7; })};
}
std::vector<Defect> SrcPlaneDefects() {
    std::vector<Defect> d;
    for (int i = 0; i < 3; ++i) d.push_back(NullPlane("src[" + std::to_string(i) + "]", [i](Args& a) { a.srcPlanes[i] = nullptr; }));
    return d;
}
std::vector<Defect> DstPlaneDefects() {
    std::vector<Defect> d;
    for (int i = 0; i < 3; ++i) d.push_back(NullPlane("dst[" + std::to_string(i) + "]", [i](Args& a) { a.dstPlanes[i] = nullptr; }));
    return d;
}
std::vector<Defect> SrcStepsDefects() {
    std::vector<Defect> d;
    for (int i = 0; i < 3; ++i) {
        d.push_back(BadStep("srcStep[" + std::to_string(i) + "] 0", [i](Args& a) { a.srcSteps[i] = 0; }));
        d.push_back(BadStep("srcStep[" + std::to_string(i) + "] -3", [i](Args& a) { a.srcSteps[i] = -3; }));
    }
    return d;
}
std::vector<Defect> DstStepsDefects() {
    std::vector<Defect> d;
    for (int i = 0; i < 3; ++i) {
        d.push_back(BadStep("dstStep[" + std::to_string(i) + "] 0", [i](Args& a) { a.dstSteps[i] = 0; }));
        d.push_back(BadStep("dstStep[" + std::to_string(i) + "] -1", [i](Args& a) { a.dstSteps[i] = -1; }));
    }
    return d;
}
Defect SrcStep(int32_t v) { return BadStep("srcStep " + std::to_string(v), [v](Args& a) { a.srcStep = v; }); }
Defect DstStep(int32_t v) { return BadStep("dstStep " + std::to_string(v), [v](Args& a) { a.dstStep = v; }); }

std::vector<Defect> Concat(std::initializer_list<std::vector<Defect>> parts) {
    std::vector<Defect> all;
    for (const auto& p : parts) all.insert(all.end(), p.begin(), p.end());
    return all;
}

struct Member {
    std::string name;
    std::vector<Defect> defects;  // in the order the wrapper checks them
    std::function<PrimStatus(const TierEntries&, Args&)> call;
};

std::vector<Member> Members() {
    const Defect nullSrc = NullOuter("src", [](Args& a) { a.src = nullptr; });
    const Defect nullDst = NullOuter("dst", [](Args& a) { a.dst = nullptr; });
    const Defect nullSrcPlanes = NullOuter("src planes array", [](Args& a) { a.srcPlanesNull = true; });
    const Defect nullDstPlanes = NullOuter("dst planes array", [](Args& a) { a.dstPlanesNull = true; });
    const Defect nullSrcSteps = NullOuter("src steps array", [](Args& a) { a.srcStepsNull = true; });
    const Defect nullDstSteps = NullOuter("dst steps array", [](Args& a) { a.dstStepsNull = true; });
    return {
        {"ImgRGBToYUV420", Concat({{nullSrc, nullDstPlanes}, SizeDefects(), DstPlaneDefects()}),
         [](const TierEntries& e, Args& a) { return e.rgbToYuv420(a.src, a.DstPlanes(), a.width, a.height); }},
        {"ImgRGBToYUV420_Step",
         Concat({{nullSrc, nullDstPlanes, nullDstSteps}, SizeDefects(), DstPlaneDefects(), {SrcStep(0), SrcStep(-1)}, DstStepsDefects()}),
         [](const TierEntries& e, Args& a) {
             return e.rgbToYuv420Step(a.src, a.srcStep, a.DstPlanes(), a.DstSteps(), a.width, a.height);
         }},
        {"ImgRGBPlanesToYUV420", Concat({{nullSrcPlanes, nullDstPlanes}, SizeDefects(), SrcPlaneDefects(), DstPlaneDefects()}),
         [](const TierEntries& e, Args& a) { return e.rgbPlanesToYuv420(a.SrcPlanes(), a.DstPlanes(), a.width, a.height); }},
        {"ImgRGBPlanesToYUV420_Step",
         Concat({{nullSrcPlanes, nullDstPlanes, nullDstSteps}, SizeDefects(), SrcPlaneDefects(), DstPlaneDefects(),
                 {SrcStep(0), SrcStep(-1)}, DstStepsDefects()}),
         [](const TierEntries& e, Args& a) {
             return e.rgbPlanesToYuv420Step(a.SrcPlanes(), a.srcStep, a.DstPlanes(), a.DstSteps(), a.width, a.height);
         }},
        {"ImgYUV420ToRGB", Concat({{nullSrcPlanes, nullDst}, SizeDefects(), SrcPlaneDefects()}),
         [](const TierEntries& e, Args& a) { return e.yuv420ToRgb(a.SrcPlanes(), a.dst, a.width, a.height); }},
        {"ImgYUV420ToRGB_Step",
         Concat({{nullSrcPlanes, nullSrcSteps, nullDst}, SizeDefects(), SrcPlaneDefects(), SrcStepsDefects(), {DstStep(0), DstStep(-2)}}),
         [](const TierEntries& e, Args& a) {
             return e.yuv420ToRgbStep(a.SrcPlanes(), a.SrcSteps(), a.dst, a.dstStep, a.width, a.height);
         }},
        {"ImgYUV420ToRGBPlanes", Concat({{nullSrcPlanes, nullDstPlanes}, SizeDefects(), SrcPlaneDefects(), DstPlaneDefects()}),
         [](const TierEntries& e, Args& a) { return e.yuv420ToRgbPlanes(a.SrcPlanes(), a.DstPlanes(), a.width, a.height); }},
        {"ImgYUV420ToRGBPlanes_Step",
         Concat({{nullSrcPlanes, nullSrcSteps, nullDstPlanes}, SizeDefects(), SrcPlaneDefects(), DstPlaneDefects(),
                 SrcStepsDefects(), {DstStep(0), DstStep(-2)}}),
         [](const TierEntries& e, Args& a) {
             return e.yuv420ToRgbPlanesStep(a.SrcPlanes(), a.SrcSteps(), a.DstPlanes(), a.dstStep, a.width, a.height);
         }},
    };
}

TEST(Yuv420Wrappers, GoodArgumentsSucceed) {
    for (int tier : yuv420_model::kTiers)
        for (const Member& m : Members()) {
            Args a;
            EXPECT_EQ(m.call(Entries(tier), a), PrimStatusOk) << m.name << " " << yuv420_model::TierName(tier);
        }
}

TEST(Yuv420Wrappers, EachBadArgumentGivesItsStatusAndWritesNothing) {
    for (int tier : yuv420_model::kTiers)
        for (const Member& m : Members())
            for (const Defect& d : m.defects) {
                Args a;
                d.apply(a);
                EXPECT_EQ(m.call(Entries(tier), a), d.status) << m.name << " " << d.name;
                EXPECT_TRUE(a.NothingWritten()) << m.name << " " << d.name;
            }
}

// With two bad arguments the one checked first decides the status.
TEST(Yuv420Wrappers, ChecksRunInTheirFixedOrder) {
    for (int tier : yuv420_model::kTiers)
        for (const Member& m : Members())
            for (size_t i = 0; i < m.defects.size(); ++i)
                for (size_t j = i + 1; j < m.defects.size(); ++j) {
                    Args a;
                    m.defects[j].apply(a);
                    m.defects[i].apply(a);
                    EXPECT_EQ(m.call(Entries(tier), a), m.defects[i].status)
                        << m.name << ": " << m.defects[i].name << " before " << m.defects[j].name;
                    EXPECT_TRUE(a.NothingWritten());
                }
}

TEST(Yuv420Wrappers, NamedEdgeCases) {
    for (int tier : yuv420_model::kTiers) {
        const TierEntries& e = Entries(tier);
        {  // width 0 with good pointers
            Args a;
            EXPECT_EQ(e.rgbToYuv420(a.src, a.dstPlanes, 0, kH), -6);
            EXPECT_EQ(e.yuv420ToRgb(a.srcPlanes, a.dst, kW, -1), -6);
        }
        {  // null src with width 0: the pointers come first
            Args a;
            EXPECT_EQ(e.rgbToYuv420(nullptr, a.dstPlanes, 0, kH), -8);
        }
        {  // a null plane pointer with width 0: the size comes first
            Args a;
            a.dstPlanes[1] = nullptr;
            EXPECT_EQ(e.rgbToYuv420(a.src, a.dstPlanes, 0, kH), -6);
        }
        {  // srcStep 0 with good pointers
            Args a;
            EXPECT_EQ(e.rgbToYuv420Step(a.src, 0, a.dstPlanes, a.dstSteps, kW, kH), -14);
            EXPECT_TRUE(a.NothingWritten());
        }
        {  // a plane step is tested only once every plane pointer is good
            Args a;
            a.srcSteps[0] = 0;
            a.srcPlanes[2] = nullptr;
            EXPECT_EQ(e.yuv420ToRgbStep(a.srcPlanes, a.srcSteps, a.dst, 0, kW, kH), -8);
        }
        {  // planes to packed: plane steps before dstStep
            Args a;
            a.srcSteps[2] = -1;
            EXPECT_EQ(e.yuv420ToRgbStep(a.srcPlanes, a.srcSteps, a.dst, 0, kW, kH), -14);
        }
    }
}

// No check compares a step with the width: a step shorter than the line
// is accepted (the lines then overlap).
TEST(Yuv420Wrappers, StepShorterThanTheLineIsAccepted) {
    for (int tier : yuv420_model::kTiers) {
        const TierEntries& e = Entries(tier);
        Args a;
        EXPECT_EQ(e.rgbToYuv420Step(a.src, 1, a.dstPlanes, a.dstSteps, kW, kH), PrimStatusOk);
        const int32_t ones[3] = {1, 1, 1};
        EXPECT_EQ(e.yuv420ToRgbStep(a.srcPlanes, ones, a.dst, 3 * kW, kW, kH), PrimStatusOk);
        EXPECT_EQ(e.yuv420ToRgbPlanesStep(a.srcPlanes, a.srcSteps, a.dstPlanes, 2, kW, kH), PrimStatusOk);
    }
}

}  // namespace

// Wrappers of the 4:4:4 members: every bad argument gives its status, the
// checks run in their fixed order (outer pointers, size, plane pointers,
// steps), and a failing call writes nothing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "guarded_buffer.h"
#include "yuv444_harness.h"

using namespace yuv444_harness;
using namespace yuv444_model;
using pixmoor_test::GuardedBuffer;

namespace {

constexpr int kW = 9, kH = 3;
constexpr size_t kBytes = 4 * kW * kH;

// Every argument any shape takes; each member reads the ones it needs.
struct Args {
    GuardedBuffer srcBufs[3] = {GuardedBuffer(kBytes), GuardedBuffer(kBytes), GuardedBuffer(kBytes)};
    GuardedBuffer dstBufs[3] = {GuardedBuffer(kBytes), GuardedBuffer(kBytes), GuardedBuffer(kBytes)};
    const uint8_t* src;
    uint8_t* dst;
    const uint8_t* srcPlanes[3];
    uint8_t* dstPlanes[3];
    bool srcPlanesNull = false, dstPlanesNull = false;
    int32_t srcStep = 4 * kW, dstStep = 4 * kW;
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
    bool NothingWritten() const { return pixmoor_test::AllUntouched(dstBufs); }
};

PrimStatus Call(Member m, const Entries& e, Args& a) {
    switch (m) {
        case kRgbToYuv: return e.rgbToYuv(a.src, a.srcStep, a.dst, a.dstStep, a.width, a.height);
        case kRgbaToYuva: return e.rgbaToYuva(a.src, a.srcStep, a.dst, a.dstStep, a.width, a.height);
        case kRgbPlanesToYuvPlanes:
            return e.rgbPlanesToYuvPlanes(a.SrcPlanes(), a.srcStep, a.DstPlanes(), a.dstStep, a.width, a.height);
        case kRgbToYuvPlanes: return e.rgbToYuvPlanes(a.src, a.srcStep, a.DstPlanes(), a.dstStep, a.width, a.height);
        case kYuvToRgb: return e.yuvToRgb(a.src, a.srcStep, a.dst, a.dstStep, a.width, a.height);
        case kYuvaToRgba: return e.yuvaToRgba(a.src, a.srcStep, a.dst, a.dstStep, a.width, a.height);
        case kYuvPlanesToRgbPlanes:
            return e.yuvPlanesToRgbPlanes(a.SrcPlanes(), a.srcStep, a.DstPlanes(), a.dstStep, a.width, a.height);
        case kYuvPlanesToRgb: return e.yuvPlanesToRgb(a.SrcPlanes(), a.srcStep, a.dst, a.dstStep, a.width, a.height);
    }
    return 1;
}

struct Defect {
    std::string name;
    PrimStatus status;
    std::function<void(Args&)> apply;
};

// The defects a member can meet, in the order its wrapper checks them.
std::vector<Defect> DefectsInCheckOrder(Member m) {
    const Layout in = SourceLayout(m), out = DestLayout(m);
    std::vector<Defect> d;
    // 1. outer pointers
    if (in == kPlanes)
        d.push_back({"src planes array", -8, [](Args& a) { a.srcPlanesNull = true; }});
    else
        d.push_back({"src", -8, [](Args& a) { a.src = nullptr; }});
    if (out == kPlanes)
        d.push_back({"dst planes array", -8, [](Args& a) { a.dstPlanesNull = true; }});
    else
        d.push_back({"dst", -8, [](Args& a) { a.dst = nullptr; }});
    // 2. size
    d.push_back({"width 0", -6, [](Args& a) { a.width = 0; }});
    d.push_back({"width -1", -6, [](Args& a) { a.width = -1; }});
    d.push_back({"height 0", -6, [](Args& a) { a.height = 0; }});
    d.push_back({"height -5", -6, [](Args& a) { a.height = -5; }});
    // 3. plane pointers, source first
    for (int i = 0; i < 3 && in == kPlanes; ++i)
        d.push_back({"src[" + std::to_string(i) + "]", -8, [i](Args& a) { a.srcPlanes[i] = nullptr; }});
    for (int i = 0; i < 3 && out == kPlanes; ++i)
        d.push_back({"dst[" + std::to_string(i) + "]", -8, [i](Args& a) { a.dstPlanes[i] = nullptr; }});
    // 4. steps in argument order
    d.push_back({"srcStep 0", -14, [](Args& a) { a.srcStep = 0; }});
    d.push_back({"srcStep -1", -14, [](Args& a) { a.srcStep = -1; }});
    d.push_back({"dstStep 0", -14, [](Args& a) { a.dstStep = 0; }});
    d.push_back({"dstStep -4", -14, [](Args& a) { a.dstStep = -4; }});
    return d;
}

TEST(Yuv444Wrappers, GoodArgumentsSucceed) {
    for (int tier = 0; tier <= kPlain; ++tier)
        for (Member m : kMembers) {
            Args a;
            EXPECT_EQ(Call(m, EntriesOf(tier), a), PrimStatusOk) << MemberName(m) << " " << tier;
        }
}

TEST(Yuv444Wrappers, EachBadArgumentGivesItsStatusAndWritesNothing) {
    for (int tier = 0; tier <= kPlain; ++tier)
        for (Member m : kMembers)
            for (const Defect& d : DefectsInCheckOrder(m)) {
                Args a;
                d.apply(a);
                EXPECT_EQ(Call(m, EntriesOf(tier), a), d.status) << MemberName(m) << " " << d.name;
                EXPECT_TRUE(a.NothingWritten()) << MemberName(m) << " " << d.name;
            }
}

// With two bad arguments the one checked first decides the status.
TEST(Yuv444Wrappers, ChecksRunInTheirFixedOrder) {
    for (int tier : kTiers)
        for (Member m : kMembers) {
            const std::vector<Defect> d = DefectsInCheckOrder(m);
            for (size_t i = 0; i < d.size(); ++i)
                for (size_t j = i + 1; j < d.size(); ++j) {
                    Args a;
                    d[j].apply(a);
                    d[i].apply(a);
                    EXPECT_EQ(Call(m, EntriesOf(tier), a), d[i].status)
                        << MemberName(m) << ": " << d[i].name << " before " << d[j].name;
                    EXPECT_TRUE(a.NothingWritten());
                }
        }
}

TEST(Yuv444Wrappers, NamedEdgeCases) {
    for (int tier : kTiers) {
        const Entries& e = EntriesOf(tier);
        {  // width 0 with good pointers
            Args a;
            EXPECT_EQ(e.yuvaToRgba(a.src, a.srcStep, a.dst, a.dstStep, 0, kH), -6);
        }
        {  // null src with width 0: the pointers come first
            Args a;
            EXPECT_EQ(e.yuvaToRgba(nullptr, a.srcStep, a.dst, a.dstStep, 0, kH), -8);
        }
        {  // a null plane pointer with width 0: the size comes first
            Args a;
            a.srcPlanes[1] = nullptr;
            EXPECT_EQ(e.yuvPlanesToRgbPlanes(a.srcPlanes, a.srcStep, a.dstPlanes, a.dstStep, 0, kH), -6);
        }
        {  // srcStep 0 with good pointers writes nothing
            Args a;
            EXPECT_EQ(e.rgbToYuv(a.src, 0, a.dst, a.dstStep, kW, kH), -14);
            EXPECT_TRUE(a.NothingWritten());
        }
        {  // a step is tested only once every plane pointer is good
            Args a;
            a.dstPlanes[2] = nullptr;
            EXPECT_EQ(e.rgbToYuvPlanes(a.src, 0, a.dstPlanes, 0, kW, kH), -8);
        }
    }
}

}  // namespace

// Wrappers of the 4:2:2 and 16-bit members: each bad argument gives its
// status, two bad arguments give the status of the one checked first
// (outer pointers, size, plane pointers in array order source first, steps
// in argument order with plane steps before dstStep), and a failing call
// writes nothing.
#include <gtest/gtest.h>

#include <pixmoor/primitives/colour.h>

#include <functional>
#include <string>
#include <vector>

#include "guarded_buffer.h"
#include "yuv420_model.h"

using pixmoor_test::GuardedBuffer;

namespace {

constexpr int kW = 6, kH = 4;
constexpr size_t kBytes = 4 * kW * kH;

// The arguments of every shape.  `which` names one argument to spoil.
struct Args {
    GuardedBuffer in[3] = {GuardedBuffer(kBytes), GuardedBuffer(kBytes), GuardedBuffer(kBytes)};
    GuardedBuffer out[3] = {GuardedBuffer(kBytes), GuardedBuffer(kBytes), GuardedBuffer(kBytes)};
    const uint8_t* src = nullptr;
    uint8_t* dst = nullptr;
    const uint8_t* srcPlanes[3];
    uint8_t* dstPlanes[3];
    int32_t srcStep = 3 * kW, dstStep = 3 * kW;
    int32_t srcSteps[3] = {kW, kW, kW}, dstSteps[3] = {kW, kW, kW};
    bool nullSrcArray = false, nullDstArray = false, nullSrcSteps = false, nullDstSteps = false;
    int32_t width = kW, height = kH;

    Args() {
        for (int i = 0; i < 3; ++i) {
            in[i].FillRandom(static_cast<uint32_t>(11 + i));
            srcPlanes[i] = in[i].data();
            dstPlanes[i] = out[i].data();
        }
        src = in[0].data();
        dst = out[0].data();
    }
    const uint8_t* const* SrcArray() const { return nullSrcArray ? nullptr : srcPlanes; }
    uint8_t* const* DstArray() const { return nullDstArray ? nullptr : dstPlanes; }
    const int32_t* SrcSteps() const { return nullSrcSteps ? nullptr : srcSteps; }
    const int32_t* DstSteps() const { return nullDstSteps ? nullptr : dstSteps; }
    uint16_t* Words() const { return reinterpret_cast<uint16_t*>(dst); }
    bool NothingWritten() const { return pixmoor_test::AllUntouched(out); }
};

struct Defect {
    std::string name;
    PrimStatus status;
    std::function<void(Args&)> apply;
};

using Defects = std::vector<Defect>;

// The argument kinds of the shapes, each with its defects.
Defect Outer(const char* name, std::function<void(Args&)> f) { return {name, -8, std::move(f)}; }
const Defect kNullSrc = Outer("src", [](Args& a) { a.src = nullptr; });
const Defect kNullDst = Outer("dst", [](Args& a) { a.dst = nullptr; });
const Defect kNullSrcArray = Outer("src array", [](Args& a) { a.nullSrcArray = true; });
const Defect kNullDstArray = Outer("dst array", [](Args& a) { a.nullDstArray = true; });
const Defect kNullSrcSteps = Outer("srcStep array", [](Args& a) { a.nullSrcSteps = true; });
const Defect kNullDstSteps = Outer("dstStep array", [](Args& a) { a.nullDstSteps = true; });

Defects Size() {
    return {{"width 0", -6, [](Args& a) { a.width = 0; }},
            {"width -2", -6, [](Args& a) { a.width = -2; }},
            {"height 0", -6, [](Args& a) { a.height = 0; }},
            {"height -1", -6, [](Args& a) { a.height = -1; }}};
}
Defects Planes(bool source) {
    Defects d;
    for (int i = 0; i < 3; ++i)
        d.push_back({std::string(source ? "src[" : "dst[") + std::to_string(i) + "]", -8, [source, i](Args& a) {
                         if (source)
                             a.srcPlanes[i] = nullptr;
                         else
                             a.dstPlanes[i] = nullptr;
                     }});
    return d;
}
Defects PlaneSteps(bool source) {
    Defects d;
    for (int i = 0; i < 3; ++i)
        for (int32_t bad : {0, -5})
            d.push_back({std::string(source ? "srcStep[" : "dstStep[") + std::to_string(i) + "] " + std::to_string(bad), -14,
                         [source, i, bad](Args& a) { (source ? a.srcSteps : a.dstSteps)[i] = bad; }});
    return d;
}
Defects Step(bool source) {
    Defects d;
    for (int32_t bad : {0, -1})
        d.push_back({std::string(source ? "srcStep " : "dstStep ") + std::to_string(bad), -14,
                     [source, bad](Args& a) { (source ? a.srcStep : a.dstStep) = bad; }});
    return d;
}

Defects Concat(std::initializer_list<Defects> parts) {
    Defects all;
    for (const auto& p : parts) all.insert(all.end(), p.begin(), p.end());
    return all;
}

// One member of one tier: its name, its defects in check order, its call.
struct Member {
    std::string name;
    Defects defects;
    std::function<PrimStatus(Args&)> call;
};

template <typename Fn>
std::vector<Member> Tiers(const std::string& name, const Defects& defects, const Fn (&entries)[5],
                          std::function<PrimStatus(Fn, Args&)> call) {
    static const char* const tiers[5] = {"px", "m6", "a6", "w7", "plain"};
    std::vector<Member> m;
    for (int t = 0; t < 5; ++t) {
        const Fn fn = entries[t];
        m.push_back({name + " " + tiers[t], defects, [fn, call](Args& a) { return call(fn, a); }});
    }
    return m;
}

#define ENTRIES(name) {px_##name, m6_##name, a6_##name, w7_##name, name}

using PackedToPacked = PrimStatus (*)(const uint8_t*, int32_t, uint8_t*, int32_t, int32_t, int32_t);
using PackedToPlanes = PrimStatus (*)(const uint8_t*, int32_t, uint8_t* const[3], const int32_t[3], int32_t, int32_t);
using PackedToPlanesCompact = PrimStatus (*)(const uint8_t*, uint8_t* const[3], int32_t, int32_t);
using PlanesToPacked = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t*, int32_t, int32_t, int32_t);
using PlanesToPackedCompact = PrimStatus (*)(const uint8_t* const[3], uint8_t*, int32_t, int32_t);
using FullToPlanes = PrimStatus (*)(const uint8_t* const[3], int32_t, uint8_t* const[3], const int32_t[3], int32_t, int32_t);
using PlanesToFull = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t* const[3], int32_t, int32_t, int32_t);
using PlanesToPlanesCompact = PrimStatus (*)(const uint8_t* const[3], uint8_t* const[3], int32_t, int32_t);
using PlanesToWords = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint16_t*, int32_t, int32_t, int32_t);

std::vector<Member> AllMembers() {
    std::vector<Member> all;
    auto add = [&all](std::vector<Member> m) { all.insert(all.end(), m.begin(), m.end()); };

    const Defects packedToPacked = Concat({{kNullSrc, kNullDst}, Size(), Step(true), Step(false)});
    const PackedToPacked yuv422ToRgb[5] = ENTRIES(ImgYUV422ToRGB);
    add(Tiers<PackedToPacked>("ImgYUV422ToRGB", packedToPacked, yuv422ToRgb, [](PackedToPacked f, Args& a) {
        return f(a.src, a.srcStep, a.dst, a.dstStep, a.width, a.height);
    }));

    const Defects packedToPlanes =
        Concat({{kNullSrc, kNullDstArray, kNullDstSteps}, Size(), Planes(false), Step(true), PlaneSteps(false)});
    const PackedToPlanes rgbToPlanes[5] = ENTRIES(ImgRGBToYUV422Planes_Step);
    add(Tiers<PackedToPlanes>("ImgRGBToYUV422Planes_Step", packedToPlanes, rgbToPlanes, [](PackedToPlanes f, Args& a) {
        return f(a.src, a.srcStep, a.DstArray(), a.DstSteps(), a.width, a.height);
    }));
    const PackedToPlanesCompact rgbToPlanesC[5] = ENTRIES(ImgRGBToYUV422Planes);
    add(Tiers<PackedToPlanesCompact>("ImgRGBToYUV422Planes", Concat({{kNullSrc, kNullDstArray}, Size(), Planes(false)}),
                                     rgbToPlanesC, [](PackedToPlanesCompact f, Args& a) {
                                         return f(a.src, a.DstArray(), a.width, a.height);
                                     }));

    const Defects planesToPacked =
        Concat({{kNullSrcArray, kNullSrcSteps, kNullDst}, Size(), Planes(true), PlaneSteps(true), Step(false)});
    const PlanesToPacked planesToRgb[5] = ENTRIES(ImgYUV422PlanesToRGB_Step);
    add(Tiers<PlanesToPacked>("ImgYUV422PlanesToRGB_Step", planesToPacked, planesToRgb, [](PlanesToPacked f, Args& a) {
        return f(a.SrcArray(), a.SrcSteps(), a.dst, a.dstStep, a.width, a.height);
    }));
    const PlanesToPackedCompact planesToRgbC[5] = ENTRIES(ImgYUV422PlanesToRGB);
    add(Tiers<PlanesToPackedCompact>("ImgYUV422PlanesToRGB", Concat({{kNullSrcArray, kNullDst}, Size(), Planes(true)}),
                                     planesToRgbC, [](PlanesToPackedCompact f, Args& a) {
                                         return f(a.SrcArray(), a.dst, a.width, a.height);
                                     }));

    const FullToPlanes fullToPlanes[5] = ENTRIES(ImgRGBPlanesToYUV422Planes_Step);
    add(Tiers<FullToPlanes>("ImgRGBPlanesToYUV422Planes_Step",
                            Concat({{kNullSrcArray, kNullDstArray, kNullDstSteps}, Size(), Planes(true), Planes(false),
                                    Step(true), PlaneSteps(false)}),
                            fullToPlanes, [](FullToPlanes f, Args& a) {
                                return f(a.SrcArray(), a.srcStep, a.DstArray(), a.DstSteps(), a.width, a.height);
                            }));
    const PlanesToFull planesToFull[5] = ENTRIES(ImgYUV422PlanesToRGBPlanes_Step);
    add(Tiers<PlanesToFull>("ImgYUV422PlanesToRGBPlanes_Step",
                            Concat({{kNullSrcArray, kNullSrcSteps, kNullDstArray}, Size(), Planes(true), Planes(false),
                                    PlaneSteps(true), Step(false)}),
                            planesToFull, [](PlanesToFull f, Args& a) {
                                return f(a.SrcArray(), a.SrcSteps(), a.DstArray(), a.dstStep, a.width, a.height);
                            }));
    const Defects planesToPlanesCompact = Concat({{kNullSrcArray, kNullDstArray}, Size(), Planes(true), Planes(false)});
    const PlanesToPlanesCompact rgbPlanesToPlanesC[5] = ENTRIES(ImgRGBPlanesToYUV422Planes);
    const PlanesToPlanesCompact planesToRgbPlanesC[5] = ENTRIES(ImgYUV422PlanesToRGBPlanes);
    auto compactCall = [](PlanesToPlanesCompact f, Args& a) { return f(a.SrcArray(), a.DstArray(), a.width, a.height); };
    add(Tiers<PlanesToPlanesCompact>("ImgRGBPlanesToYUV422Planes", planesToPlanesCompact, rgbPlanesToPlanesC, compactCall));
    add(Tiers<PlanesToPlanesCompact>("ImgYUV422PlanesToRGBPlanes", planesToPlanesCompact, planesToRgbPlanesC, compactCall));

    const PlanesToWords words[6][5] = {ENTRIES(ImgYUV420ToRGB565), ENTRIES(ImgYUV420ToBGR565), ENTRIES(ImgYUV420ToRGB555),
                                       ENTRIES(ImgYUV420ToBGR555), ENTRIES(ImgYUV420ToRGB444), ENTRIES(ImgYUV420ToBGR444)};
    const char* const wordNames[6] = {"ImgYUV420ToRGB565", "ImgYUV420ToBGR565", "ImgYUV420ToRGB555",
                                      "ImgYUV420ToBGR555", "ImgYUV420ToRGB444", "ImgYUV420ToBGR444"};
    for (int i = 0; i < 6; ++i)
        add(Tiers<PlanesToWords>(wordNames[i], planesToPacked, words[i], [](PlanesToWords f, Args& a) {
            return f(a.SrcArray(), a.SrcSteps(), a.Words(), a.dstStep, a.width, a.height);
        }));
    return all;
}

TEST(Yuv422Rgb16Wrappers, GoodArgumentsSucceed) {
    for (const Member& m : AllMembers()) {
        Args a;
        EXPECT_EQ(m.call(a), PrimStatusOk) << m.name;
        EXPECT_FALSE(a.NothingWritten()) << m.name;
    }
}

TEST(Yuv422Rgb16Wrappers, EachBadArgumentGivesItsStatusAndWritesNothing) {
    for (const Member& m : AllMembers())
        for (const Defect& d : m.defects) {
            Args a;
            d.apply(a);
            EXPECT_EQ(m.call(a), d.status) << m.name << ": " << d.name;
            EXPECT_TRUE(a.NothingWritten()) << m.name << ": " << d.name;
        }
}

TEST(Yuv422Rgb16Wrappers, ChecksRunInTheirFixedOrder) {
    for (const Member& m : AllMembers())
        for (size_t i = 0; i < m.defects.size(); ++i)
            for (size_t j = i + 1; j < m.defects.size(); ++j) {
                Args a;
                m.defects[j].apply(a);
                m.defects[i].apply(a);
                EXPECT_EQ(m.call(a), m.defects[i].status) << m.name << ": " << m.defects[i].name << " before "
                                                          << m.defects[j].name;
                EXPECT_TRUE(a.NothingWritten()) << m.name;
            }
}

// The 16-bit members test dstStep before halving it: 1 passes (a step of
// 0 words, every line on the first), 0 does not.
TEST(Yuv422Rgb16Wrappers, WordStepIsCheckedInBytes) {
    for (const Member& m : AllMembers()) {
        if (m.name.find("ImgYUV420To") != 0) continue;
        Args a;
        a.dstStep = 1;
        EXPECT_EQ(m.call(a), PrimStatusOk) << m.name;
        EXPECT_TRUE(a.out[0].GuardsIntact()) << m.name;
        for (size_t i = 2 * kW; i < a.out[0].size(); ++i) ASSERT_EQ(a.out[0][i], GuardedBuffer::kCanary) << m.name;
    }
}

// No check compares a step with the width.
TEST(Yuv422Rgb16Wrappers, StepShorterThanTheLineIsAccepted) {
    for (const Member& m : AllMembers()) {
        Args a;
        a.srcStep = 1;
        a.dstStep = 2;
        for (int i = 0; i < 3; ++i) a.srcSteps[i] = a.dstSteps[i] = 1;
        EXPECT_EQ(m.call(a), PrimStatusOk) << m.name;
    }
}

}  // namespace

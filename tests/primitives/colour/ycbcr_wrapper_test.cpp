// Wrappers of the YCbCr members: every bad argument gives its status, the
// checks run in their fixed order (outer pointers, size, plane pointers,
// steps; in ImgYCbCr422ToRGBC2P3 the steps before the plane pointers), and
// a failing call writes nothing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ycbcr_harness.h"

using namespace ycbcr_harness;

namespace {

constexpr int kW = 6, kH = 4;

// A good call of a member, with copies of the pointer and step arrays that
// a defect may spoil.
struct Call {
    Side src, dst;
    Bound bound;
    int32_t srcSteps[3], dstSteps[3];
    std::vector<std::vector<uint8_t>> before;
    explicit Call(const Member& m)
        : src(m.src, kW, kH, 2, 0, 1), dst(m.dst, kW, kH, 2, 0, 2), bound(src, dst), before(dst.Contents()) {
        for (int i = 0; i < 3; ++i) {
            srcSteps[i] = src.steps[i];
            dstSteps[i] = dst.steps[i];
        }
        bound.args.srcSteps = srcSteps;
        bound.args.dstSteps = dstSteps;
    }
    Args& args() { return bound.args; }
    bool NothingWritten() const { return dst.Contents() == before && dst.GuardsIntact(); }
};

struct Defect {
    std::string name;
    PrimStatus status;
    std::function<void(Call&)> apply;
};

bool Planar(Kind k) { return k == kP3 || k == kP3x420; }

// The defects of a member in the order its wrapper tests them.
std::vector<Defect> DefectsInOrder(const Member& m) {
    std::vector<Defect> outer, size, planes, steps;
    if (Planar(m.src)) {
        outer.push_back({"src planes array", -8, [](Call& c) { c.args().srcPlanes = nullptr; }});
        for (int i = 0; i < 3; ++i)
            planes.push_back({"src[" + std::to_string(i) + "]", -8, [i](Call& c) { c.bound.srcPlanes[i] = nullptr; }});
    } else {
        outer.push_back({"src", -8, [](Call& c) { c.args().src = nullptr; }});
    }
    if (m.src == kP3x420) {
        outer.push_back({"src steps array", -8, [](Call& c) { c.args().srcSteps = nullptr; }});
        for (int i = 0; i < 3; ++i)
            steps.push_back({"srcStep[" + std::to_string(i) + "]", -14, [i](Call& c) { c.srcSteps[i] = -i; }});
    } else {
        steps.push_back({"srcStep 0", -14, [](Call& c) { c.args().srcStep = 0; }});
        steps.push_back({"srcStep -1", -14, [](Call& c) { c.args().srcStep = -1; }});
    }
    if (Planar(m.dst)) {
        outer.push_back({"dst planes array", -8, [](Call& c) { c.args().dstPlanes = nullptr; }});
        for (int i = 0; i < 3; ++i)
            planes.push_back({"dst[" + std::to_string(i) + "]", -8, [i](Call& c) { c.bound.dstPlanes[i] = nullptr; }});
    } else {
        outer.push_back({"dst", -8, [](Call& c) { c.args().dst = nullptr; }});
    }
    if (m.dst == kP3x420) {
        outer.push_back({"dst steps array", -8, [](Call& c) { c.args().dstSteps = nullptr; }});
        for (int i = 0; i < 3; ++i)
            steps.push_back({"dstStep[" + std::to_string(i) + "]", -14, [i](Call& c) { c.dstSteps[i] = -i; }});
    } else {
        steps.push_back({"dstStep 0", -14, [](Call& c) { c.args().dstStep = 0; }});
        steps.push_back({"dstStep -2", -14, [](Call& c) { c.args().dstStep = -2; }});
    }
    size = {{"width 0", -6, [](Call& c) { c.args().width = 0; }},
            {"width -1", -6, [](Call& c) { c.args().width = -1; }},
            {"height 0", -6, [](Call& c) { c.args().height = 0; }},
            {"height -7", -6, [](Call& c) { c.args().height = -7; }}};
    std::vector<Defect> all = outer;
    all.insert(all.end(), size.begin(), size.end());
    // The one exception to the order: this member tests its steps first.
    const bool stepsFirst = std::string(m.name) == "ImgYCbCr422ToRGBC2P3";
    const auto& third = stepsFirst ? steps : planes;
    const auto& fourth = stepsFirst ? planes : steps;
    all.insert(all.end(), third.begin(), third.end());
    all.insert(all.end(), fourth.begin(), fourth.end());
    return all;
}

TEST(YCbCrWrappers, GoodArgumentsSucceed) {
    for (const Member& m : Members())
        for (int tier : kTiers) {
            Call c(m);
            EXPECT_EQ(m.tiers[tier](c.args()), 0) << m.name << " " << TierName(tier);
        }
}

TEST(YCbCrWrappers, EachBadArgumentGivesItsStatusAndWritesNothing) {
    for (const Member& m : Members())
        for (int tier : kTiers)
            for (const Defect& d : DefectsInOrder(m)) {
                Call c(m);
                d.apply(c);
                EXPECT_EQ(m.tiers[tier](c.args()), d.status) << m.name << " " << TierName(tier) << " " << d.name;
                EXPECT_TRUE(c.NothingWritten()) << m.name << " " << d.name;
            }
}

// With two bad arguments the one tested first decides the status.
TEST(YCbCrWrappers, ChecksRunInTheirFixedOrder) {
    for (const Member& m : Members()) {
        const std::vector<Defect> defects = DefectsInOrder(m);
        for (int tier : kTiers)
            for (size_t i = 0; i < defects.size(); ++i)
                for (size_t j = i + 1; j < defects.size(); ++j) {
                    Call c(m);
                    defects[j].apply(c);
                    defects[i].apply(c);
                    EXPECT_EQ(m.tiers[tier](c.args()), defects[i].status)
                        << m.name << " " << TierName(tier) << ": " << defects[i].name << " before " << defects[j].name;
                    EXPECT_TRUE(c.NothingWritten());
                }
    }
}

// The exception spelled out: a zero step and a null plane pointer give -14
// in ImgYCbCr422ToRGBC2P3, -8 in the planes-source 4:2:2 member.
TEST(YCbCrWrappers, TheOneMemberThatTestsStepsBeforePlanes) {
    for (int tier : kTiers) {
        {
            Call c(Find("ImgYCbCr422ToRGBC2P3"));
            c.bound.dstPlanes[1] = nullptr;
            c.args().dstStep = 0;
            EXPECT_EQ(Find("ImgYCbCr422ToRGBC2P3").tiers[tier](c.args()), -14);
            EXPECT_TRUE(c.NothingWritten());
        }
        {
            Call c(Find("ImgRGBToYCbCr422P3C2"));
            c.bound.srcPlanes[1] = nullptr;
            c.args().srcStep = 0;
            EXPECT_EQ(Find("ImgRGBToYCbCr422P3C2").tiers[tier](c.args()), -8);
            EXPECT_TRUE(c.NothingWritten());
        }
    }
}

// No check compares a step with the line: a short step is accepted.
TEST(YCbCrWrappers, StepShorterThanTheLineIsAccepted) {
    for (const Member& m : Members())
        for (int tier : kTiers) {
            Call c(m);
            c.args().srcStep = 1;
            c.args().dstStep = 2;
            EXPECT_EQ(m.tiers[tier](c.args()), 0) << m.name;
        }
}

}  // namespace

// Wrappers of the gray members and of the analogue 4:2:2 member, in every
// tier and under the plain names: each bad argument gives its status, the
// checks run in their order (src and dst, size, srcStep, dstStep), a null
// weights pointer is no failure, and a failing call writes nothing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "gray_harness.h"

using namespace gray_harness;

namespace {

// One member of one tier, with its pointers untyped.
using Call = std::function<PrimStatus(const void*, int32_t, void*, int32_t, int32_t, int32_t, const float*)>;

struct Member {
    std::string name;
    Call call;
};

template <typename Sample>
void AddDepth(std::vector<Member>& out, const std::string& depth, RgbFn<Sample> const (&plainRgb)[2],
              ColorFn<Sample> const (&plainColor)[2]) {
    const DepthEntries<Sample>& e = Entries<Sample>();
    const char* layouts[2] = {"C3", "AC4"};
    for (int l = 0; l < 2; ++l) {
        auto rgb = [](RgbFn<Sample> f) {
            return [f](const void* s, int32_t ss, void* d, int32_t ds, int32_t w, int32_t h, const float*) {
                return f(static_cast<const Sample*>(s), ss, static_cast<Sample*>(d), ds, w, h);
            };
        };
        auto color = [](ColorFn<Sample> f) {
            return [f](const void* s, int32_t ss, void* d, int32_t ds, int32_t w, int32_t h, const float* k) {
                return f(static_cast<const Sample*>(s), ss, static_cast<Sample*>(d), ds, w, h, k);
            };
        };
        for (int t = 0; t < 4; ++t) {
            const std::string tier = gray_model::TierName(t);
            out.push_back({tier + "_ImgRGBToGray" + depth + layouts[l], rgb(e.rgb[t][l])});
            out.push_back({tier + "_ImgColorToGray" + depth + layouts[l], color(e.color[t][l])});
        }
        out.push_back({"ImgRGBToGray" + depth + layouts[l], rgb(plainRgb[l])});
        out.push_back({"ImgColorToGray" + depth + layouts[l], color(plainColor[l])});
    }
}

std::vector<Member> AllMembers() {
    std::vector<Member> m;
    static RgbFn<uint8_t> const r8[2] = {ImgRGBToGray8uC3, ImgRGBToGray8uAC4};
    static ColorFn<uint8_t> const c8[2] = {ImgColorToGray8uC3, ImgColorToGray8uAC4};
    static RgbFn<uint16_t> const r16u[2] = {ImgRGBToGray16uC3, ImgRGBToGray16uAC4};
    static ColorFn<uint16_t> const c16u[2] = {ImgColorToGray16uC3, ImgColorToGray16uAC4};
    static RgbFn<int16_t> const r16s[2] = {ImgRGBToGray16sC3, ImgRGBToGray16sAC4};
    static ColorFn<int16_t> const c16s[2] = {ImgColorToGray16sC3, ImgColorToGray16sAC4};
    static RgbFn<float> const r32f[2] = {ImgRGBToGray32fC3, ImgRGBToGray32fAC4};
    static ColorFn<float> const c32f[2] = {ImgColorToGray32fC3, ImgColorToGray32fAC4};
    AddDepth<uint8_t>(m, "8u", r8, c8);
    AddDepth<uint16_t>(m, "16u", r16u, c16u);
    AddDepth<int16_t>(m, "16s", r16s, c16s);
    AddDepth<float>(m, "32f", r32f, c32f);
    auto analog = [](Analog422Fn f) {
        return [f](const void* s, int32_t ss, void* d, int32_t ds, int32_t w, int32_t h, const float*) {
            return f(static_cast<const uint8_t*>(s), ss, static_cast<uint8_t*>(d), ds, w, h);
        };
    };
    for (int t = 0; t < 4; ++t)
        m.push_back({std::string(gray_model::TierName(t)) + "_ImgRGBToYUV422C3C2", analog(Analog422Entry(t))});
    m.push_back({"ImgRGBToYUV422C3C2", analog(ImgRGBToYUV422C3C2)});
    return m;
}

constexpr int kW = 5, kH = 3;
constexpr int32_t kStep = 64;  // room for any layout of 5 pixels

struct Args {
    bool nullSrc = false, nullDst = false;
    int32_t srcStep = kStep, dstStep = kStep, width = kW, height = kH;
};

struct Case {
    std::string name;
    PrimStatus status;
    Args args;
};

std::vector<Case> Cases() {
    std::vector<Case> c;
    auto add = [&](const std::string& n, PrimStatus s, auto f) {
        Args a;
        f(a);
        c.push_back({n, s, a});
    };
    // Outer pointers come first, before the size and the steps.
    add("null src", -8, [](Args& a) { a.nullSrc = true; });
    add("null dst", -8, [](Args& a) { a.nullDst = true; });
    add("null src and dst", -8, [](Args& a) { a.nullSrc = a.nullDst = true; });
    add("null src, width 0", -8, [](Args& a) { a.nullSrc = true; a.width = 0; });
    add("null dst, height -1, steps 0", -8, [](Args& a) { a.nullDst = true; a.height = -1; a.srcStep = a.dstStep = 0; });
    // Then the size, before the steps.
    add("width 0", -6, [](Args& a) { a.width = 0; });
    add("width -3", -6, [](Args& a) { a.width = -3; });
    add("height 0", -6, [](Args& a) { a.height = 0; });
    add("height -2147483648", -6, [](Args& a) { a.height = INT32_MIN; });
    add("width 0, srcStep 0", -6, [](Args& a) { a.width = 0; a.srcStep = 0; });
    add("height 0, dstStep -1", -6, [](Args& a) { a.height = 0; a.dstStep = -1; });
    // Then srcStep, then dstStep.
    add("srcStep 0", -14, [](Args& a) { a.srcStep = 0; });
    add("srcStep -64", -14, [](Args& a) { a.srcStep = -64; });
    add("dstStep 0", -14, [](Args& a) { a.dstStep = 0; });
    add("dstStep -1", -14, [](Args& a) { a.dstStep = -1; });
    add("both steps 0", -14, [](Args& a) { a.srcStep = a.dstStep = 0; });
    return c;
}

TEST(GrayWrappers, StatusOfEachBadArgumentInCheckOrder) {
    const std::vector<Member> members = AllMembers();
    ASSERT_EQ(members.size(), 17u * 5u);
    for (const Member& m : members)
        for (const Case& c : Cases()) {
            GuardedBuffer src(kStep * kH);
            src.FillRandom(1);
            GuardedBuffer dst(kStep * kH);
            const Args& a = c.args;
            const PrimStatus s = m.call(a.nullSrc ? nullptr : src.data(), a.srcStep, a.nullDst ? nullptr : dst.data(),
                                        a.dstStep, a.width, a.height, gray_model::DefaultWeights());
            EXPECT_EQ(s, c.status) << m.name << ": " << c.name;
            bool untouched = dst.GuardsIntact();
            for (size_t i = 0; i < dst.size(); ++i) untouched = untouched && dst[i] == GuardedBuffer::kCanary;
            EXPECT_TRUE(untouched) << m.name << ": " << c.name;
        }
}

// A null weights pointer is no failure: the defaults are used.
TEST(GrayWrappers, NullWeightsAreAccepted) {
    for (const Member& m : AllMembers()) {
        GuardedBuffer src(kStep * kH), dst(kStep * kH);
        src.FillRandom(2);
        EXPECT_EQ(m.call(src.data(), kStep, dst.data(), kStep, kW, kH, nullptr), 0) << m.name;
        EXPECT_TRUE(dst.GuardsIntact()) << m.name;
    }
}

// No check compares a step with the line: a byte step of 1 passes, and for
// 16-bit samples it becomes a step of 0 samples, so every line reads and
// writes the first one.
TEST(GrayWrappers, StepOfOneByteOverlaysSixteenBitLines) {
    for (int tier : gray_model::kTiers) {
        const Source<uint16_t> src = RandomSource<uint16_t>(7, 1, 3, 0, 9);
        GuardedBuffer dst(14);
        ASSERT_EQ(Entries<uint16_t>().rgb[tier][0](src.data.data(), 1, reinterpret_cast<uint16_t*>(dst.data()), 1, 7, 4),
                  0);
        const std::vector<uint16_t> expected = Model(tier, nullptr, src);
        EXPECT_EQ(0, std::memcmp(dst.data(), expected.data(), 14)) << gray_model::TierName(tier);
        EXPECT_TRUE(dst.GuardsIntact());
    }
}

}  // namespace

// Every member in every tier on all 2^24 triples of samples, bit for bit
// against the model; and for the vector tiers, how far each channel stays
// from the wide arithmetic.
//
// The narrow kernels other than ImgYUVAToRGBA have factors that are fixed
// but a scale of their intermediate values that is this library's own
// choice (see yuv444_model.h).  The bound they keep against the wide
// arithmetic is part of their contract: every sample within 1 of the wide
// value of the same member.
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "isa_levels.h"
#include "yuv444_harness.h"

using namespace yuv444_harness;
using namespace yuv444_model;

namespace {

// 16 frames of 4096 by 256 pixels hold every triple once; triple i stands
// at line (i >> 12) & 255, column i & 4095 of frame i >> 20.
constexpr int kWidth = 4096, kHeight = 256, kFrames = 16;

struct Frame {
    int bpp;
    std::vector<uint8_t> packed;
    std::vector<uint8_t> planes[3];
    uint8_t* ptrs[3];
    explicit Frame(Layout l) : bpp(BytesPerPixel(l)) {
        const size_t n = static_cast<size_t>(kWidth) * kHeight;
        if (l == kPlanes) {
            for (int k = 0; k < 3; ++k) {
                planes[k].assign(n, 0);
                ptrs[k] = planes[k].data();
            }
        } else {
            packed.assign(n * bpp, 0);
            ptrs[0] = ptrs[1] = ptrs[2] = packed.data();
        }
    }
    int32_t Step() const { return packed.empty() ? kWidth : kWidth * bpp; }
    uint8_t* Packed() { return ptrs[0]; }
    uint8_t* const* Planes() { return ptrs; }
    const uint8_t* const* ConstPlanes() const { return const_cast<const uint8_t* const*>(ptrs); }
    uint8_t& At(size_t i, int k) { return packed.empty() ? planes[k][i] : packed[i * bpp + k]; }
};

struct Stats {
    int maxNarrowFromWide[3] = {0, 0, 0};
    uint64_t differFromWide[3] = {0, 0, 0};
    uint64_t mismatches = 0;
};

Stats Sweep(Member m, int tier) {
    Frame src(SourceLayout(m)), dst(DestLayout(m));
    const Entries& e = EntriesOf(tier);
    Stats st;
    for (int f = 0; f < kFrames; ++f) {
        const size_t n = static_cast<size_t>(kWidth) * kHeight;
        for (size_t i = 0; i < n; ++i) {
            const uint32_t t = static_cast<uint32_t>(f) << 20 | static_cast<uint32_t>(i);
            src.At(i, 0) = static_cast<uint8_t>(t >> 16);
            src.At(i, 1) = static_cast<uint8_t>(t >> 8);
            src.At(i, 2) = static_cast<uint8_t>(t);
        }
        const PrimStatus s = Call(m, e, src, dst, kWidth, kHeight);
        EXPECT_EQ(s, PrimStatusOk);
        for (size_t i = 0; i < n; ++i) {
            const Trio in{{src.At(i, 0), src.At(i, 1), src.At(i, 2)}};
            const Trio got{{dst.At(i, 0), dst.At(i, 1), dst.At(i, 2)}};
            const Trio want = Model(m, tier, in, static_cast<int>(i % kWidth), kWidth);
            if (!(got == want) && st.mismatches++ < 5)
                ADD_FAILURE() << MemberName(m) << " " << TierName(tier) << " at (" << in.s[0] << ", " << in.s[1] << ", "
                              << in.s[2] << ") column " << i % kWidth << ": got (" << got.s[0] << ", " << got.s[1]
                              << ", " << got.s[2] << ") want (" << want.s[0] << ", " << want.s[1] << ", " << want.s[2]
                              << ")";
            const Trio wide = Wide(m, in);
            for (int k = 0; k < 3; ++k) {
                const int d = std::abs(got.s[k] - wide.s[k]);
                st.maxNarrowFromWide[k] = std::max(st.maxNarrowFromWide[k], d);
                st.differFromWide[k] += d != 0;
            }
        }
    }
    return st;
}

class Yuv444Exhaustive : public ::testing::TestWithParam<Member> {};

TEST_P(Yuv444Exhaustive, EveryTierMatchesItsModelAndStaysNearTheWideArithmetic) {
    const Member m = GetParam();
    for (int tier : kTiers) {
        SCOPED_TRACE(TierName(tier));
        const Stats st = Sweep(m, tier);
        EXPECT_EQ(st.mismatches, 0u);
        for (int k = 0; k < 3; ++k) {
            if (tier == kPx || tier == kM6) {
                EXPECT_EQ(st.maxNarrowFromWide[k], 0);
            } else {
                EXPECT_LE(st.maxNarrowFromWide[k], 1) << "channel " << k;
            }
            const double share = 100.0 * st.differFromWide[k] / (uint64_t{1} << 24);
            RecordProperty(std::string(TierName(tier)) + "_channel" + std::to_string(k) + "_percent", std::to_string(share));
            std::printf("%-24s %s channel %d: max %d, %.3f%% differ from wide\n", MemberName(m), TierName(tier), k,
                        st.maxNarrowFromWide[k], share);
        }
    }
}

// ImgYUVAToRGBA is a dispatch row with vector forms at each instruction-set
// level; each level's forms must give every triple's bytes, in every tier.
TEST(Yuv444ExhaustiveLevels, YuvaToRgbaMatchesItsModelAtEveryLevel) {
    pixmoor_test::ForEachIsaLevel([] {
        for (int tier : kTiers) {
            SCOPED_TRACE(TierName(tier));
            EXPECT_EQ(Sweep(kYuvaToRgba, tier).mismatches, 0u);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AllMembers, Yuv444Exhaustive, ::testing::ValuesIn(kMembers),
                         [](const ::testing::TestParamInfo<Member>& info) { return std::string(MemberName(info.param)); });

}  // namespace

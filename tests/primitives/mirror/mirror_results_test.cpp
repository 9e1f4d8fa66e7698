// Every mirror member in every tier against the scalar model, on random
// images of many sizes, alignments and steps, with canaries around every
// buffer, at every instruction-set level the processor offers.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "guarded_buffer.h"
#include "isa_levels.h"
#include "mirror_model.h"

using namespace mirror_test;
using pixmoor_test::GuardedBuffer;

namespace {

struct Case {
    int32_t width, height, axis;
    int32_t srcExtra, dstExtra;   // step beyond the line's bytes
    int32_t srcOffset, dstOffset; // bytes from a 64-byte boundary
};

// Runs one case of one member and tier; returns false after reporting.
void RunCase(const Member& m, int tier, const Case& c, uint32_t seed) {
    const int32_t lineBytes = c.width * m.pixelBytes();
    const int32_t srcStep = lineBytes + c.srcExtra;
    const int32_t dstStep = lineBytes + c.dstExtra;
    const Geometry g{c.width, c.height, c.axis};
    const auto span = [&](int32_t step) {
        return static_cast<size_t>(step & m.stepMask()) * (c.height - 1) + lineBytes;
    };
    SCOPED_TRACE(::testing::Message() << m.name << " " << kTierNames[tier] << " " << c.width << "x" << c.height
                                      << " axis " << c.axis << " steps " << srcStep << "," << dstStep << " offsets "
                                      << c.srcOffset << "," << c.dstOffset);
    if (m.inPlace) {
        GuardedBuffer image(span(srcStep) + c.srcOffset);
        image.FillRandom(seed);
        const std::vector<uint8_t> before = image.Contents();
        std::vector<uint8_t> expected = before;
        ModelInPlace(m, before.data() + c.srcOffset, expected.data() + c.srcOffset, srcStep, g);
        ASSERT_EQ(m.inPlaceCall[tier](image.data() + c.srcOffset, srcStep, c.width, c.height, c.axis), 0);
        ASSERT_EQ(image.Contents(), expected);
        ASSERT_TRUE(image.GuardsIntact());
    } else {
        GuardedBuffer src(span(srcStep) + c.srcOffset);
        GuardedBuffer dst(span(dstStep) + c.dstOffset);
        src.FillRandom(seed);
        dst.FillRandom(seed + 1);
        const std::vector<uint8_t> source = src.Contents();
        std::vector<uint8_t> expected = dst.Contents();
        ModelToDestination(m, source.data() + c.srcOffset, srcStep, expected.data() + c.dstOffset, dstStep, g);
        ASSERT_EQ(m.toDestination[tier](src.data() + c.srcOffset, srcStep, dst.data() + c.dstOffset, dstStep, c.width,
                                        c.height, c.axis),
                  0);
        ASSERT_EQ(dst.Contents(), expected);
        ASSERT_EQ(src.Contents(), source);
        ASSERT_TRUE(src.GuardsIntact());
        ASSERT_TRUE(dst.GuardsIntact());
    }
}

// Widths in pixels: tiny, odd, around every block size of the kernels.
std::vector<int32_t> Widths(const Member& m) {
    std::vector<int32_t> widths = {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 15, 16, 17, 23, 24, 25, 31, 32, 33, 47, 48, 49, 63, 64, 65, 100, 129, 257};
    // Lines of exactly 63, 64 and 65 bytes where the pixel size allows, and
    // lines around 16 and 32 bytes.
    for (int32_t bytes : {15, 16, 17, 31, 32, 33, 63, 64, 65, 127, 128, 129})
        if (bytes % m.pixelBytes() == 0) widths.push_back(bytes / m.pixelBytes());
    return widths;
}

class MirrorResults : public ::testing::TestWithParam<int> {};

TEST_P(MirrorResults, MatchTheModelInEveryTier) {
    pixmoor_test::ForEachIsaLevel([&] {
        const Member m = AllMembers()[GetParam()];
        std::mt19937 rng(1234 + GetParam());
        const int32_t heights[] = {1, 2, 3, 4, 5, 8, 9};
        for (int tier = 0; tier < 5; ++tier) {
            for (int32_t axis = 0; axis < 3; ++axis) {
                for (int32_t width : Widths(m)) {
                    for (int32_t height : heights) {
                        Case c{width, height, axis,
                               static_cast<int32_t>(rng() % 3 == 0 ? 0 : rng() % 40),
                               static_cast<int32_t>(rng() % 3 == 0 ? 0 : rng() % 40),
                               static_cast<int32_t>(rng() % 4 == 0 ? 0 : rng() % 32),
                               static_cast<int32_t>(rng() % 4 == 0 ? 0 : rng() % 32)};
                        RunCase(m, tier, c, rng());
                        if (HasFatalFailure()) return;
                    }
                }
            }
        }
    });
}

// Every source and destination alignment against a 16-byte boundary, on
// widths that reach the vector blocks.
TEST_P(MirrorResults, EveryAlignmentInEveryTier) {
    pixmoor_test::ForEachIsaLevel([&] {
        const Member m = AllMembers()[GetParam()];
        std::mt19937 rng(99 + GetParam());
        for (int tier = 0; tier < 4; ++tier)
            for (int32_t axis = 0; axis < 3; ++axis)
                for (int32_t srcOffset = 0; srcOffset < 16; ++srcOffset)
                    for (int32_t dstOffset = 0; dstOffset < 16; dstOffset += (m.inPlace ? 16 : 1)) {
                        const int32_t width = 1 + static_cast<int32_t>(rng() % (160 / m.pixelBytes() + 8));
                        Case c{width, 3, axis, static_cast<int32_t>(rng() % 20), static_cast<int32_t>(rng() % 20),
                               srcOffset, dstOffset};
                        RunCase(m, tier, c, rng());
                        if (HasFatalFailure()) return;
                    }
    });
}

// Images around the size from which the w7 tier streams its stores
// (height times source step above 131000).
TEST_P(MirrorResults, AroundTheStreamingThreshold) {
    pixmoor_test::ForEachIsaLevel([&] {
        const Member m = AllMembers()[GetParam()];
        std::mt19937 rng(7 + GetParam());
        const int32_t width = 1000 / m.pixelBytes();
        const int32_t step = width * m.pixelBytes() + (1000 - width * m.pixelBytes());  // 1000 bytes
        for (int tier = 0; tier < 4; ++tier)
            for (int32_t axis = 0; axis < 3; ++axis)
                for (int32_t height : {130, 131, 132}) {
                    Case c{width, height, axis, step - width * m.pixelBytes(), static_cast<int32_t>(rng() % 24),
                           static_cast<int32_t>(rng() % 16), static_cast<int32_t>(rng() % 16)};
                    RunCase(m, tier, c, rng());
                    if (HasFatalFailure()) return;
                }
    });
}

std::string MemberName(const ::testing::TestParamInfo<int>& info) { return AllMembers()[info.param].name; }

INSTANTIATE_TEST_SUITE_P(AllMembers, MirrorResults, ::testing::Range(0, 18), MemberName);

}  // namespace

// Pictures above 16 MiB, which the wide copy of axis 0 streams, at odd
// widths and alignments; the plain tier and the streaming one.
TEST(MirrorLargePictures, AxisZeroMatchesTheModel) {
    const Member members[] = {AllMembers()[0], AllMembers()[7]};  // 8uC1, 32sC3
    pixmoor_test::ForEachIsaLevel([&] {
        for (const Member& m : members) {
            const int32_t width = 17000 / m.pixelBytes() + 1;
            const int32_t height = (17 << 20) / (width * m.pixelBytes()) + 1;
            for (int tier : {0, 3}) {
                RunCase(m, tier, Case{width, height, 0, 4, 0, 3, 5}, 11u + static_cast<uint32_t>(tier));
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    });
}

// Lines of some thousands of bytes, around the length from which the wide
// copy hands lines to the block move, on every member, axis and tier.
TEST(MirrorLongLines, MatchTheModelInEveryTier) {
    pixmoor_test::ForEachIsaLevel([&] {
        for (const Member& m : AllMembers())
            for (int32_t bytes : {8191, 8192, 9001})
                for (int32_t axis = 0; axis < 3; ++axis)
                    for (int tier = 0; tier < 4; ++tier) {
                        const int32_t width = bytes / m.pixelBytes() + 1;
                        RunCase(m, tier, Case{width, 3, axis, 8, 0, 1, 7}, static_cast<uint32_t>(bytes + tier));
                        if (::testing::Test::HasFatalFailure()) return;
                    }
    });
}

// All 2^24 sample triples through the members whose pixels stand alone
// (and through the 4:2:2 inverse, one pair per triple), every tier, bit for
// bit against the models.  The sweep runs one 256 by 256 image for each
// value of the first channel.
#include <gtest/gtest.h>

#include "ycbcr_harness.h"
#include "sweep_stride.h"

using namespace ycbcr_harness;

namespace {

// Writes triple (a, row, column) into every pixel of an image of 256 by
// 256.  A 4:2:2 source is 512 wide and holds the pair (a, row, a, pair
// index) instead, so both pixels of pair j see the triple (a, row, j).
void FillTriples(Side& s, int a) {
    for (int y = 0; y < 256; ++y) {
        uint8_t* base[3] = {s.planes[0].buf.data() + s.LineStart(0, y), nullptr, nullptr};
        if (s.kind == kP3)
            for (int i = 1; i < 3; ++i) base[i] = s.planes[i].buf.data() + s.LineStart(i, y);
        for (int x = 0; x < s.width; ++x) {
            const uint8_t t[3] = {uint8_t(a), uint8_t(y), uint8_t(s.kind == kC2 ? x >> 1 : x)};
            if (s.kind == kP3) {
                for (int i = 0; i < 3; ++i) base[i][x] = t[i];
            } else if (s.kind == kC2) {
                uint8_t* p = base[0] + 2 * x;
                p[0] = t[0];
                p[1] = (x & 1) ? t[2] : t[1];  // U on even pixels, V on odd
            } else {
                uint8_t* p = base[0] + 3 * x;
                p[0] = t[0], p[1] = t[1], p[2] = t[2];
            }
        }
    }
}

void Sweep(const char* name, int tier) {
    const Member& m = Find(name);
    const int w = m.src == kC2 ? 512 : 256;
    Side src(m.src, w, 256, 0, 0, 1);
    Side dst(m.dst, w, 256, 0, 0, 2);
    Bound b(src, dst);
    for (int a = 0; a < 256; a += pixmoor_test::SweepStride()) {
        FillTriples(src, a);
        Expected e(dst);
        Expect(tier, m, src, e, w, 256);
        ASSERT_EQ(m.tiers[tier](b.args), 0);
        ASSERT_TRUE(dst.Contents() == e.bytes) << name << " " << TierName(tier) << " first channel " << a;
    }
}

TEST(YCbCrExhaustive, InterleavedInverse) {
    for (int t : kTiers) Sweep("ImgYCbCrToRGBC3", t);
}
TEST(YCbCrExhaustive, InterleavedForward) {
    for (int t : kTiers) Sweep("ImgRGBToYCbCrC3", t);
}
TEST(YCbCrExhaustive, PlanesInverse) {
    for (int t : kTiers) Sweep("ImgYCbCrToRGBP3", t);
}
TEST(YCbCrExhaustive, PlanesForward) {
    for (int t : kTiers) Sweep("ImgRGBToYCbCrP3", t);
}
TEST(YCbCrExhaustive, FourTwoTwoInverse) {
    for (int t : kTiers) Sweep("ImgYCbCr422ToRGBC2C3", t);
}

}  // namespace

// Edge cases of the threshold family: levels equal to samples, zero
// magnitudes, zero and negative levels, the documented differences between
// tiers, the rounding of 16-bit complex scaling, and the wrapper checks.
#include <gtest/gtest.h>
#include <pixmoor/primitives/signal.h>

#include <cmath>
#include <array>
#include <limits>

#include "signal_test_support.h"

using namespace signal_test;

namespace {

using Limit32f = PrimStatus (*)(const float*, float*, int32_t, float, SigCmpOp);
using Limit32fI = PrimStatus (*)(float*, int32_t, float, SigCmpOp);
const Limit32f kLimit32f[4] = {px_SigThreshold32f, m6_SigThreshold32f, a6_SigThreshold32f, w7_SigThreshold32f};
const Limit32fI kLimit32fI[4] = {px_SigThreshold32fI, m6_SigThreshold32fI, a6_SigThreshold32fI,
                                 w7_SigThreshold32fI};

const float kNaN = std::numeric_limits<float>::quiet_NaN();
const float kInf = std::numeric_limits<float>::infinity();

uint32_t Bits(float f) {
    uint32_t b;
    std::memcpy(&b, &f, 4);
    return b;
}

float Limit32(int tier, float x, float level, SigCmpOp op) {
    float out = 99.0f;
    EXPECT_EQ(kLimit32f[tier](&x, &out, 1, level, op), PrimStatusOk);
    float inPlace = x;
    EXPECT_EQ(kLimit32fI[tier](&inPlace, 1, level, op), PrimStatusOk);
    EXPECT_EQ(Bits(inPlace), Bits(out));
    return out;
}

TEST(SignalThresholdEdges, EqualToLevelStaysInBothDirections) {
    for (int tier = 0; tier < 4; ++tier)
        for (float level : {0.5f, -3.0f, 1e30f, -kInf, kInf}) {
            EXPECT_EQ(Bits(Limit32(tier, level, level, SigCmpLT)), Bits(level)) << tier;
            EXPECT_EQ(Bits(Limit32(tier, level, level, SigCmpGT)), Bits(level)) << tier;
        }
    int16_t s = 7;
    EXPECT_EQ(w7_SigThresholdLT16sI(&s, 1, 7), 0);
    EXPECT_EQ(s, 7);
    EXPECT_EQ(m6_SigThresholdGT16sI(&s, 1, 7), 0);
    EXPECT_EQ(s, 7);
    double d = -2.5;
    EXPECT_EQ(a6_SigThresholdGTVal64fI(&d, 1, -2.5, 9.0), 0);
    EXPECT_EQ(d, -2.5);
    EXPECT_EQ(a6_SigThresholdLTVal64fI(&d, 1, -2.5, 9.0), 0);
    EXPECT_EQ(d, -2.5);
    // A complex element whose magnitude is the level stays.
    SigComplex32f c = {3.0f, -4.0f};
    EXPECT_EQ(px_SigThresholdGT32fcI(&c, 1, 5.0f), 0);
    EXPECT_EQ(c.re, 3.0f);
    EXPECT_EQ(c.im, -4.0f);
    EXPECT_EQ(w7_SigThresholdLT32fcI(&c, 1, 5.0f), 0);
    EXPECT_EQ(c.re, 3.0f);
    SigComplex16s c16 = {-3, 4};
    EXPECT_EQ(m6_SigThresholdLT16scI(&c16, 1, 5), 0);
    EXPECT_EQ(m6_SigThresholdGT16scI(&c16, 1, 5), 0);
    EXPECT_EQ(c16.re, -3);
    EXPECT_EQ(c16.im, 4);
}

TEST(SignalThresholdEdges, RealLimitsByValue) {
    const float in[6] = {-2.0f, -0.5f, 0.25f, 1.0f, 3.0f, -7.0f};
    for (int tier = 0; tier < 4; ++tier) {
        float out[6];
        ASSERT_EQ(kLimit32f[tier](in, out, 6, 0.25f, SigCmpLT), 0);
        const float lt[6] = {0.25f, 0.25f, 0.25f, 1.0f, 3.0f, 0.25f};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(out[i], lt[i]) << tier << " " << i;
        ASSERT_EQ(kLimit32f[tier](in, out, 6, -1.0f, SigCmpGT), 0);
        const float gt[6] = {-2.0f, -1.0f, -1.0f, -1.0f, -1.0f, -7.0f};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(out[i], gt[i]) << tier << " " << i;
    }
    const int16_t s[4] = {-5, 0, 5, 32767};
    int16_t r[4];
    ASSERT_EQ(a6_SigThresholdLTVal16s(s, r, 4, 0, -100), 0);
    EXPECT_EQ(r[0], -100);
    EXPECT_EQ(r[1], 0);
    ASSERT_EQ(px_SigThresholdGTVal16s(s, r, 4, 0, 1), 0);
    EXPECT_EQ(r[2], 1);
    EXPECT_EQ(r[3], 1);
    EXPECT_EQ(r[0], -5);
}

// Not-a-number samples: px limits them from below and leaves them from
// above; the packed forms give the level both ways; m6 goes by the pattern.
TEST(SignalThresholdEdges, NotANumberSamplesDifferByTier) {
    const float negNaN = -kNaN;
    EXPECT_EQ(Limit32(0, kNaN, 1.0f, SigCmpLT), 1.0f);
    EXPECT_TRUE(std::isnan(Limit32(0, kNaN, 1.0f, SigCmpGT)));
    for (int tier : {2, 3}) {
        EXPECT_EQ(Limit32(tier, kNaN, 1.0f, SigCmpLT), 1.0f);
        EXPECT_EQ(Limit32(tier, kNaN, 1.0f, SigCmpGT), 1.0f);
        EXPECT_EQ(Limit32(tier, negNaN, -1.0f, SigCmpGT), -1.0f);
    }
    // m6, positive level: a positive NaN pattern lies above every finite
    // pattern, a negative one below.
    EXPECT_TRUE(std::isnan(Limit32(1, kNaN, 1.0f, SigCmpLT)));
    EXPECT_EQ(Limit32(1, kNaN, 1.0f, SigCmpGT), 1.0f);
    EXPECT_EQ(Limit32(1, negNaN, 1.0f, SigCmpLT), 1.0f);
    EXPECT_TRUE(std::isnan(Limit32(1, negNaN, 1.0f, SigCmpGT)));
    // m6, negative level: unsigned order puts the negative NaN beyond every
    // negative number, that is below in value, and the positive NaN above.
    EXPECT_EQ(Limit32(1, negNaN, -1.0f, SigCmpLT), -1.0f);
    EXPECT_EQ(Limit32(1, kNaN, -1.0f, SigCmpGT), -1.0f);
    // The 64-bit real limits follow the same orderings.
    const double dNaN = std::numeric_limits<double>::quiet_NaN();
    double d = dNaN;
    EXPECT_EQ(px_SigThresholdLT64fI(&d, 1, 2.0), 0);
    EXPECT_EQ(d, 2.0);
    d = dNaN;
    EXPECT_EQ(px_SigThresholdGT64fI(&d, 1, 2.0), 0);
    EXPECT_TRUE(std::isnan(d));
    d = dNaN;
    EXPECT_EQ(w7_SigThresholdGT64fI(&d, 1, 2.0), 0);
    EXPECT_EQ(d, 2.0);
    d = dNaN;
    EXPECT_EQ(m6_SigThresholdLT64fI(&d, 1, 2.0), 0);
    EXPECT_TRUE(std::isnan(d));
}

// Negative zero against a zero level: px keeps it, m6 sees its pattern as
// below, and the packed forms give the level on a tie.
TEST(SignalThresholdEdges, NegativeZeroAgainstZeroLevel) {
    EXPECT_EQ(Bits(Limit32(0, -0.0f, 0.0f, SigCmpLT)), 0x80000000u);
    EXPECT_EQ(Bits(Limit32(0, -0.0f, 0.0f, SigCmpGT)), 0x80000000u);
    EXPECT_EQ(Bits(Limit32(1, -0.0f, 0.0f, SigCmpLT)), 0u);
    EXPECT_EQ(Bits(Limit32(1, -0.0f, 0.0f, SigCmpGT)), 0x80000000u);
    EXPECT_EQ(Bits(Limit32(1, 0.0f, -0.0f, SigCmpGT)), 0x80000000u);
    for (int tier : {2, 3}) {
        EXPECT_EQ(Bits(Limit32(tier, -0.0f, 0.0f, SigCmpLT)), 0u);
        EXPECT_EQ(Bits(Limit32(tier, -0.0f, 0.0f, SigCmpGT)), 0u);
    }
}

TEST(SignalThresholdEdges, InfinitiesOrderInEveryTier) {
    for (int tier = 0; tier < 4; ++tier) {
        EXPECT_EQ(Limit32(tier, -kInf, -1e38f, SigCmpLT), -1e38f);
        EXPECT_EQ(Limit32(tier, kInf, 1e38f, SigCmpGT), 1e38f);
        EXPECT_EQ(Limit32(tier, kInf, 1e38f, SigCmpLT), kInf);
        EXPECT_EQ(Limit32(tier, 5.0f, -kInf, SigCmpGT), -kInf);
    }
}

// Alignment boundaries: a long vector mixing every case at each
// start offset gives the model of its tier (packed lanes, single steps and
// the rest one by one all order alike).
TEST(SignalThresholdEdges, PackedFormsAgreeAcrossAlignment) {
    std::vector<float> input;
    const float specials[] = {kNaN, -kNaN, -0.0f, 0.0f, 1.0f, -1.0f, kInf, -kInf, 0.5f};
    for (int i = 0; i < 75; ++i) input.push_back(specials[i % 9] * (i % 2 ? 1.0f : 2.0f));
    for (int tier : {2, 3})
        for (std::size_t offset = 0; offset < 36; ++offset) {
            PlacedVector v(input.size() * 4, offset);
            v.Fill(input);
            ASSERT_EQ(kLimit32fI[tier](v.as<float>(), 75, 0.5f, SigCmpLT), 0);
            for (int i = 0; i < 75; ++i) {
                const float x = input[i];
                const float want = (x > 0.5f) ? x : 0.5f;
                ASSERT_EQ(Bits(v.Get<float>(i)), Bits(want)) << tier << " " << offset << " " << i;
            }
            ASSERT_TRUE(v.GuardsIntact());
        }
}

TEST(SignalThresholdEdges, ZeroMagnitudeBelowBecomesLevelAndZero) {
    for (int tier = 0; tier < 4; ++tier) {
        const auto lt32 = std::array<PrimStatus (*)(const SigComplex32f*, SigComplex32f*, int32_t, float), 4>{
            px_SigThresholdLT32fc, m6_SigThresholdLT32fc, a6_SigThresholdLT32fc, w7_SigThresholdLT32fc}[tier];
        SigComplex32f z = {0.0f, 0.0f}, out = {9, 9};
        ASSERT_EQ(lt32(&z, &out, 1, 2.5f), 0);
        EXPECT_EQ(out.re, 2.5f);
        EXPECT_EQ(Bits(out.im), 0u);
        // The destination's imaginary part is written as zero, even from a
        // negative zero; in place the part is left as it was.
        SigComplex32f nz = {0.0f, -0.0f};
        ASSERT_EQ(lt32(&nz, &out, 1, 2.5f), 0);
        EXPECT_EQ(Bits(out.im), 0u);
        // A zero level leaves it as it is.
        ASSERT_EQ(lt32(&nz, &out, 1, 0.0f), 0);
        EXPECT_EQ(Bits(out.re), 0u);
        EXPECT_EQ(Bits(out.im), 0x80000000u);
    }
    SigComplex32f nz = {-0.0f, -0.0f};
    ASSERT_EQ(a6_SigThreshold32fcI(&nz, 1, 1.5f, SigCmpLT), 0);
    EXPECT_EQ(nz.re, 1.5f);
    EXPECT_EQ(Bits(nz.im), 0x80000000u);

    SigComplex64f z64 = {0.0, 0.0};
    ASSERT_EQ(m6_SigThresholdLT64fcI(&z64, 1, 4.0), 0);
    EXPECT_EQ(z64.re, 4.0);
    EXPECT_EQ(z64.im, 0.0);
    SigComplex16s z16 = {0, 0}, o16 = {1, 1};
    ASSERT_EQ(w7_SigThresholdLT16sc(&z16, &o16, 1, 300), 0);
    EXPECT_EQ(o16.re, 300);
    EXPECT_EQ(o16.im, 0);
    ASSERT_EQ(px_SigThresholdLT16scI(&z16, 1, 0), 0);
    EXPECT_EQ(z16.re, 0);
    EXPECT_EQ(z16.im, 0);
}

TEST(SignalThresholdEdges, ZeroLevelAboveZeroesEveryNonzeroElement) {
    const SigComplex32f in32[3] = {{1.0f, -2.0f}, {0.0f, 1e-30f}, {-5.0f, 0.0f}};
    SigComplex32f out32[3];
    const SigComplex16s in16[3] = {{1, -2}, {0, -32768}, {-32768, -32768}};
    SigComplex16s out16[3];
    const SigComplex64f in64[2] = {{1e300, 1e300}, {-1.0, 1.0}};
    SigComplex64f out64[2];
    for (auto f : {px_SigThresholdGT32fc, m6_SigThresholdGT32fc, a6_SigThresholdGT32fc, w7_SigThresholdGT32fc}) {
        ASSERT_EQ(f(in32, out32, 3, 0.0f), 0);
        for (auto& c : out32) EXPECT_TRUE(c.re == 0 && c.im == 0);
    }
    for (auto f : {px_SigThresholdGT16sc, m6_SigThresholdGT16sc, a6_SigThresholdGT16sc, w7_SigThresholdGT16sc}) {
        ASSERT_EQ(f(in16, out16, 3, 0), 0);
        for (auto& c : out16) EXPECT_TRUE(c.re == 0 && c.im == 0);
    }
    for (auto f : {px_SigThresholdGT64fc, m6_SigThresholdGT64fc, a6_SigThresholdGT64fc, w7_SigThresholdGT64fc}) {
        ASSERT_EQ(f(in64, out64, 2, 0.0), 0);
        for (auto& c : out64) EXPECT_TRUE(c.re == 0 && c.im == 0);
    }
}

TEST(SignalThresholdEdges, ComplexScalingByRootOfRatio) {
    SigComplex32f c = {3.0f, 4.0f};
    ASSERT_EQ(px_SigThresholdGT32fcI(&c, 1, 2.5f), 0);
    EXPECT_EQ(c.re, 1.5f);
    EXPECT_EQ(c.im, 2.0f);
    SigComplex64f d = {-0.3, 0.4};
    ASSERT_EQ(w7_SigThresholdLT64fcI(&d, 1, 1.0), 0);
    EXPECT_EQ(d.re, -0.3 * std::sqrt(1.0 / (0.09 + 0.16000000000000003)));
    EXPECT_NEAR(std::hypot(d.re, d.im), 1.0, 1e-15);
}

// Worked values of the integer rule, and the magnitude after scaling lying
// within a unit or two of the level.
TEST(SignalThresholdEdges, Complex16ScalingInIntegers) {
    SigComplex16s c = {3, 4};
    ASSERT_EQ(px_SigThresholdGT16scI(&c, 1, 2), 0);  // q = 36/25 and 64/25
    EXPECT_EQ(c.re, 1);
    EXPECT_EQ(c.im, 1);
    c = {-3, 4};
    ASSERT_EQ(w7_SigThresholdLT16scI(&c, 1, 10), 0);  // q = 36 and 64, exact
    EXPECT_EQ(c.re, -6);
    EXPECT_EQ(c.im, 8);
    c = {1, -1};
    ASSERT_EQ(m6_SigThresholdLT16scI(&c, 1, 10), 0);  // q = 50, root 7
    EXPECT_EQ(c.re, 7);
    EXPECT_EQ(c.im, -7);
    c = {-32768, -32768};
    ASSERT_EQ(a6_SigThresholdGT16scI(&c, 1, 32767), 0);
    EXPECT_EQ(c.re, -23169);
    EXPECT_EQ(c.im, -23169);

    std::mt19937 rng(9);
    for (int i = 0; i < 20000; ++i) {
        const SigComplex16s x = {int16_t(rng()), int16_t(rng())};
        const int16_t level = int16_t(rng() % 32768);
        SigComplex16s r;
        ASSERT_EQ(a6_SigThresholdGT16sc(&x, &r, 1, level), 0);
        const double m = std::hypot(double(r.re), double(r.im));
        const double mx = std::hypot(double(x.re), double(x.im));
        if (mx > level) EXPECT_NEAR(m, level, 2.0) << x.re << "," << x.im << " l=" << level;
        else EXPECT_TRUE(r.re == x.re && r.im == x.im);
    }
}

TEST(SignalThresholdEdges, Complex16ValueArrivesAsOneWord) {
    const SigComplex16s in[3] = {{1, 1}, {100, 100}, {-30000, 30000}};
    SigComplex16s out[3];
    const SigComplex16s value = {-7, 12};
    ASSERT_EQ(m6_SigThresholdLTVal16sc(in, out, 3, 50, value), 0);
    EXPECT_TRUE(out[0].re == -7 && out[0].im == 12);
    EXPECT_TRUE(out[1].re == 100 && out[2].re == -30000);
    // 30000^2 * 2 still compares correctly in unsigned 32 bits.
    ASSERT_EQ(px_SigThresholdGTVal16sc(in, out, 3, 32767, value), 0);
    EXPECT_TRUE(out[2].re == -7 && out[2].im == 12);
    EXPECT_TRUE(out[0].re == 1 && out[1].re == 100);
}

// ---- Wrapper checks ----

template <typename Call>
void ExpectRefused(PlacedVector& buffer, PrimStatus want, Call call, const char* what) {
    const auto before = buffer.Contents();
    EXPECT_EQ(call(), want) << what;
    EXPECT_EQ(buffer.Contents(), before) << what;
    EXPECT_TRUE(buffer.GuardsIntact()) << what;
}

template <typename Elem, typename Level, typename I, typename N, typename VI, typename VN>
void CheckWrapperOrder(Level good, Level bad, I inPlace, N toDst, VI valInPlace, VN valToDst, bool complex) {
    PlacedVector src(8 * sizeof(Elem), 0), dst(8 * sizeof(Elem), 0);
    for (std::size_t i = 0; i < src.size(); ++i) src.data()[i] = uint8_t(i * 7 + 1), dst.data()[i] = 0xEE;
    Elem* s = src.as<Elem>();
    Elem* d = dst.as<Elem>();
    const Elem v{};
    for (Level level : {good, bad}) {
        for (int32_t len : {8, 0, -5}) {
            ExpectRefused(src, -8, [&] { return inPlace(nullptr, len, level); }, "null vector");
            ExpectRefused(dst, -8, [&] { return toDst(nullptr, d, len, level); }, "null source");
            ExpectRefused(src, -8, [&] { return toDst(s, nullptr, len, level); }, "null destination");
            ExpectRefused(src, -8, [&] { return valInPlace(nullptr, len, level, v); }, "null vector, value");
            ExpectRefused(dst, -8, [&] { return valToDst(nullptr, d, len, level, v); }, "null source, value");
            ExpectRefused(src, -8, [&] { return valToDst(s, nullptr, len, level, v); }, "null destination, value");
        }
        for (int32_t len : {0, -1, INT32_MIN}) {
            ExpectRefused(src, -6, [&] { return inPlace(s, len, level); }, "length");
            ExpectRefused(dst, -6, [&] { return toDst(s, d, len, level); }, "length");
            ExpectRefused(src, -6, [&] { return valInPlace(s, len, level, v); }, "length, value");
            ExpectRefused(dst, -6, [&] { return valToDst(s, d, len, level, v); }, "length, value");
        }
    }
    if (complex) {
        ExpectRefused(src, -19, [&] { return inPlace(s, 8, bad); }, "level");
        ExpectRefused(dst, -19, [&] { return toDst(s, d, 8, bad); }, "level");
        ExpectRefused(src, -19, [&] { return valInPlace(s, 8, bad, v); }, "level, value");
        ExpectRefused(dst, -19, [&] { return valToDst(s, d, 8, bad, v); }, "level, value");
    } else {
        EXPECT_EQ(inPlace(s, 8, bad), 0);
        EXPECT_EQ(toDst(s, d, 8, bad), 0);
    }
}

#define CHECK_ORDER(p, sfx, Elem, good, bad, complex)                                                       \
    CheckWrapperOrder<Elem>(                                                                                \
        good, bad, [](Elem* v, int32_t n, decltype(good) l) { return p##SigThreshold##sfx##I(v, n, l, SigCmpGT); }, \
        [](const Elem* s, Elem* d, int32_t n, decltype(good) l) { return p##SigThresholdLT##sfx(s, d, n, l); },     \
        [](Elem* v, int32_t n, decltype(good) l, Elem x) { return p##SigThresholdGTVal##sfx##I(v, n, l, x); },     \
        [](const Elem* s, Elem* d, int32_t n, decltype(good) l, Elem x) {                                    \
            return p##SigThresholdLTVal##sfx(s, d, n, l, x);                                                 \
        },                                                                                                   \
        complex)

#define CHECK_ORDER_TIER(p)                                                                   \
    CHECK_ORDER(p, 32f, float, 1.0f, -1.0f, false);                                           \
    CHECK_ORDER(p, 64f, double, 1.0, -1.0, false);                                            \
    CHECK_ORDER(p, 16s, int16_t, int16_t(1), int16_t(-1), false);                             \
    CHECK_ORDER(p, 32fc, SigComplex32f, 1.0f, -1.0f, true);                                   \
    CHECK_ORDER(p, 32fc, SigComplex32f, 1.0f, std::numeric_limits<float>::quiet_NaN(), true); \
    CHECK_ORDER(p, 64fc, SigComplex64f, 1.0, -1e-300, true);                                  \
    CHECK_ORDER(p, 64fc, SigComplex64f, 1.0, -std::numeric_limits<double>::quiet_NaN(), true); \
    CHECK_ORDER(p, 16sc, SigComplex16s, int16_t(1), int16_t(-1), true);                       \
    CHECK_ORDER(p, 16sc, SigComplex16s, int16_t(1), int16_t(-32768), true)

TEST(SignalThresholdEdges, WrapperChecksInOrderAndWriteNothing) {
    CHECK_ORDER_TIER(px_);
    CHECK_ORDER_TIER(m6_);
    CHECK_ORDER_TIER(a6_);
    CHECK_ORDER_TIER(w7_);
}

TEST(SignalThresholdEdges, NegativeZeroLevelIsNotNegative) {
    SigComplex32f c = {1.0f, 1.0f};
    EXPECT_EQ(w7_SigThresholdGT32fcI(&c, 1, -0.0f), 0);
    EXPECT_TRUE(c.re == 0 && c.im == 0);
    SigComplex64f d = {0.0, 0.0};
    EXPECT_EQ(px_SigThresholdLT64fcI(&d, 1, -0.0), 0);
}

TEST(SignalThresholdEdges, LevelMinusOneOnRealMembers) {
    float f[3] = {-2.0f, -1.0f, 0.0f};
    EXPECT_EQ(w7_SigThresholdLT32fI(f, 3, -1.0f), 0);
    EXPECT_EQ(f[0], -1.0f);
    EXPECT_EQ(f[2], 0.0f);
    int16_t s[2] = {-2, 3};
    EXPECT_EQ(px_SigThresholdGT16sI(s, 2, -1), 0);
    EXPECT_EQ(s[0], -2);
    EXPECT_EQ(s[1], -1);
    SigComplex16s c = {1, 1};
    EXPECT_EQ(px_SigThreshold16scI(&c, 1, -1, SigCmpLT), -19);
}

// The plain names of members outside the dispatch table run the tier that
// PrimGetTier reports.
TEST(SignalThresholdEdges, PlainNamesFollowTheCurrentTier) {
    const int32_t saved = PrimCurrentTier;
    for (int tier = 0; tier < 4; ++tier) {
        PrimCurrentTier = tier;
        const float in[2] = {kNaN, -0.0f};
        float viaPlain[2], viaTier[2];
        ASSERT_EQ(SigThresholdGT32f(in, viaPlain, 2, 0.0f), 0);
        ASSERT_EQ(kLimit32f[tier](in, viaTier, 2, 0.0f, SigCmpGT), 0);
        EXPECT_EQ(std::memcmp(viaPlain, viaTier, sizeof viaPlain), 0) << tier;
        ASSERT_EQ(SigThresholdLT32f(in, viaPlain, 2, 0.0f), 0);
        ASSERT_EQ(kLimit32f[tier](in, viaTier, 2, 0.0f, SigCmpLT), 0);
        EXPECT_EQ(std::memcmp(viaPlain, viaTier, sizeof viaPlain), 0) << tier;
        int16_t s = 5;
        EXPECT_EQ(SigThresholdGT16sI(&s, 1, 2), 0);
        EXPECT_EQ(s, 2);
        SigComplex16s c = {1, 1};
        EXPECT_EQ(SigThresholdLTVal16scI(&c, 1, -1, c), -19);
    }
    PrimCurrentTier = saved;
}

}  // namespace

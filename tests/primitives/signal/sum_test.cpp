// Sum members against scalar models of the plan each tier follows: the same
// accumulators taking the same elements in the same order, compared bit for
// bit; integer sums against exact 64-bit totals and a scale model written
// from the rounding rule.
#include <gtest/gtest.h>
#include <pixmoor/primitives/signal.h>

#include <algorithm>
#include <limits>

#include "primitives/signal/sum_kernels.h"
#include "signal_test_support.h"

using namespace signal_test;

namespace {

struct SumTier {
    const char* name;
    int tier;
    PrimStatus (*sum32f)(const float*, int32_t, float*, PrimAlgHint);
    PrimStatus (*sum64f)(const double*, int32_t, double*);
    PrimStatus (*sum32fc)(const SigComplex32f*, int32_t, SigComplex32f*, PrimAlgHint);
    PrimStatus (*sum16s32s)(const int16_t*, int32_t, int32_t*, int32_t);
    PrimStatus (*sum16sc32sc)(const SigComplex16s*, int32_t, SigComplex32s*, int32_t);
    PrimStatus (*sum16s)(const int16_t*, int32_t, int16_t*, int32_t);
    PrimStatus (*sum16sc)(const SigComplex16s*, int32_t, SigComplex16s*, int32_t);
};

#define SUM_TIER(p, t)                                                                              \
    SumTier {                                                                                       \
        #p, t, p##SigSum32f, p##SigSum64f, p##SigSum32fc, p##SigSum16s32sSfs, p##SigSum16sc32scSfs, \
            p##SigSum16sSfs, p##SigSum16scSfs                                                       \
    }
const SumTier kTiers[4] = {SUM_TIER(px_, 0), SUM_TIER(m6_, 1), SUM_TIER(a6_, 2), SUM_TIER(w7_, 3)};

const PrimAlgHint kHints[] = {PrimAlgHintFast, PrimAlgHintAccurate, static_cast<PrimAlgHint>(0),
                              static_cast<PrimAlgHint>(7)};

// ---- Models of the float plans, read element by element from raw bytes. ----

template <typename T>
T At(const uint8_t* p, std::size_t i) {
    T v;
    std::memcpy(&v, p + i * sizeof(T), sizeof(T));
    return v;
}

// Plain tier, real vectors: two accumulators alternate over rounds of
// twelve (while twenty remain) and of four (while four remain).  Floats join
// them and add the rest one after another onto the joined total; doubles add
// the rest to the even accumulator before the join.
template <typename T>
double ModelPair(const uint8_t* p, int32_t n) {
    double acc[2] = {0.0, 0.0};
    int32_t i = 0;
    while (n - i >= 20)
        for (int k = 0; k < 12; ++k, ++i) acc[k % 2] += At<T>(p, i);
    while (n - i >= 4)
        for (int k = 0; k < 4; ++k, ++i) acc[k % 2] += At<T>(p, i);
    if (sizeof(T) == 8) {
        for (; i < n; ++i) acc[0] += At<T>(p, i);
        return acc[0] + acc[1];
    }
    double total = acc[0] + acc[1];
    for (; i < n; ++i) total += At<T>(p, i);
    return total;
}

// Plain tier, complex floats: one accumulator per part, in order.
void ModelRunning32fc(const uint8_t* p, int32_t n, double* re, double* im) {
    *re = 0.0;
    *im = 0.0;
    for (int32_t i = 0; i < n; ++i) {
        *re += At<float>(p, 2 * i);
        *im += At<float>(p, 2 * i + 1);
    }
}

// Eight accumulators a1..a8 over values v(0..n-1).
template <typename Get>
double ModelEight(int32_t n, Get v) {
    double a[9] = {0, 0, 0, 0, 0, 0, 0, 0, 0};
    int32_t i = 0;
    while (n - i >= 8)
        for (int k = 1; k <= 8; ++k, ++i) a[k] += v(i);
    for (; i < n; ++i) a[8] += v(i);
    return (a[8] + a[3] + (a[5] + a[1])) + (a[6] + a[2] + (a[4] + a[7]));
}

// Fast form: `width` floats an element.  Single elements to a 16-byte
// boundary when aligned to the element, then blocks of 32768 elements in
// four 4-lane float accumulators.
void ModelFast(const uint8_t* p, int32_t n, int width, double* first, double* second) {
    const uintptr_t addr = reinterpret_cast<uintptr_t>(p);
    const bool aligned = addr % (4u * width) == 0;
    int32_t i = 0;
    if (aligned) {
        while (i < n && (addr + 4u * width * i) % 16 != 0) {
            *first += At<float>(p, std::size_t(i) * width);
            if (width == 2) *second += At<float>(p, std::size_t(i) * width + 1);
            ++i;
        }
    }
    while (i < n) {
        const int32_t count = std::min<int32_t>(32768, n - i);
        const std::size_t base = std::size_t(i) * width;
        const int32_t m = count * width;
        float acc[4][4] = {};
        int32_t j = 0;
        for (; m - j >= 16; j += 16)
            for (int a = 0; a < 4; ++a)
                for (int l = 0; l < 4; ++l) acc[a][l] += At<float>(p, base + j + 4 * a + l);
        float lane[4];
        for (int l = 0; l < 4; ++l) lane[l] = (acc[0][l] + acc[1][l]) + (acc[2][l] + acc[3][l]);
        for (; m - j >= 4; j += 4)
            for (int l = 0; l < 4; ++l) lane[l] += At<float>(p, base + j + l);
        if (m - j >= 2) {
            lane[0] += At<float>(p, base + j);
            lane[1] += At<float>(p, base + j + 1);
            j += 2;
        }
        if (j < m) lane[0] += At<float>(p, base + j);
        const float f0 = lane[0] + lane[2];
        const float f1 = lane[1] + lane[3];
        *first += f0;
        if (width == 1) *first += f1;
        else *second += f1;
        i += count;
    }
}

// w7 doubles: one element into a1 to reach a 16-byte boundary (when the
// vector is 8-byte aligned), then the eight-lane rotation with the tail in a8.
double ModelPacked64f(const uint8_t* p, int32_t n) {
    const uintptr_t addr = reinterpret_cast<uintptr_t>(p);
    double a[8] = {0, 0, 0, 0, 0, 0, 0, 0};
    int32_t i = 0;
    if (addr % 8 == 0 && addr % 16 != 0) a[0] += At<double>(p, i++);
    while (n - i >= 8)
        for (int k = 0; k < 8; ++k, ++i) a[k] += At<double>(p, i);
    for (; i < n; ++i) a[7] += At<double>(p, i);
    return (a[7] + a[2] + (a[4] + a[0])) + (a[5] + a[1] + (a[3] + a[6]));
}

double Expected32f(int tier, PrimAlgHint hint, const uint8_t* p, int32_t n) {
    if (tier == 0) return ModelPair<float>(p, n);
    if (tier >= 2 && hint == PrimAlgHintFast) {
        double t = 0.0, unused = 0.0;
        ModelFast(p, n, 1, &t, &unused);
        return t;
    }
    return ModelEight(n, [&](int32_t i) { return double(At<float>(p, i)); });
}

double Expected64f(int tier, const uint8_t* p, int32_t n) {
    if (tier == 0) return ModelPair<double>(p, n);
    if (tier == 3) return ModelPacked64f(p, n);
    return ModelEight(n, [&](int32_t i) { return At<double>(p, i); });
}

void Expected32fc(int tier, PrimAlgHint hint, const uint8_t* p, int32_t n, double* re, double* im) {
    *re = 0.0;
    *im = 0.0;
    if (tier == 0) return ModelRunning32fc(p, n, re, im);
    if (tier >= 2 && hint == PrimAlgHintFast) return ModelFast(p, n, 2, re, im);
    *re = ModelEight(n, [&](int32_t i) { return double(At<float>(p, 2 * std::size_t(i))); });
    *im = ModelEight(n, [&](int32_t i) { return double(At<float>(p, 2 * std::size_t(i) + 1)); });
}

std::vector<int32_t> FloatLengths() {
    std::vector<int32_t> lengths;
    for (int32_t n = 1; n <= 70; ++n) lengths.push_back(n);
    for (int32_t n : {97, 255, 1000, 4099, 32767, 32768, 32769, 32768 + 17, 65536 + 3, 100003})
        lengths.push_back(n);
    return lengths;
}

const std::size_t kOffsets[] = {0, 1, 2, 4, 8, 12, 16, 20, 28};

// Calls `check(src, n, offset)` for every test length and start offset, the
// vector holding `width` mixed values of type T per element.
template <typename T, typename Check>
void ForEachPlacedVector(int width, uint32_t seed, Check check) {
    for (int32_t n : FloatLengths()) {
        const auto values = MixedFloats<T>(std::size_t(n) * width, seed + n);
        for (std::size_t offset : kOffsets) {
            PlacedVector src(values.size() * sizeof(T), offset);
            src.Fill(values);
            check(src, n, offset);
            ASSERT_TRUE(src.GuardsIntact());
            if (::testing::Test::HasFatalFailure()) return;
        }
    }
}

TEST(SignalSum, Float32AgainstEachTierPlan) {
    ForEachPlacedVector<float>(1, 100, [](PlacedVector& src, int32_t n, std::size_t offset) {
        for (const SumTier& t : kTiers)
            for (PrimAlgHint hint : kHints) {
                PlacedVector out(sizeof(float), offset % 4 == 0 ? 0 : 3);
                ASSERT_EQ(t.sum32f(src.as<float>(), n, out.as<float>(), hint), PrimStatusOk);
                const float expected = static_cast<float>(Expected32f(t.tier, hint, src.data(), n));
                ASSERT_TRUE(SameBits(out.Get<float>(0), expected))
                    << t.name << " n=" << n << " offset=" << offset << " hint=" << hint << " got "
                    << out.Get<float>(0) << " want " << expected;
                ASSERT_TRUE(out.GuardsIntact());
            }
    });
}

TEST(SignalSum, Float64AgainstEachTierPlan) {
    ForEachPlacedVector<double>(1, 200, [](PlacedVector& src, int32_t n, std::size_t offset) {
        for (const SumTier& t : kTiers) {
            PlacedVector out(sizeof(double), offset);
            ASSERT_EQ(t.sum64f(src.as<double>(), n, out.as<double>()), PrimStatusOk);
            const double expected = Expected64f(t.tier, src.data(), n);
            ASSERT_TRUE(SameBits(out.Get<double>(0), expected)) << t.name << " n=" << n << " offset=" << offset;
            ASSERT_TRUE(out.GuardsIntact());
        }
    });
}

TEST(SignalSum, Complex32AgainstEachTierPlan) {
    ForEachPlacedVector<float>(2, 300, [](PlacedVector& src, int32_t n, std::size_t offset) {
        for (const SumTier& t : kTiers)
            for (PrimAlgHint hint : kHints) {
                PlacedVector out(sizeof(SigComplex32f), offset);
                ASSERT_EQ(t.sum32fc(src.as<SigComplex32f>(), n, out.as<SigComplex32f>(), hint), PrimStatusOk);
                double re, im;
                Expected32fc(t.tier, hint, src.data(), n, &re, &im);
                ASSERT_TRUE(SameBits(out.Get<float>(0), static_cast<float>(re)))
                    << t.name << " n=" << n << " offset=" << offset << " hint=" << hint;
                ASSERT_TRUE(SameBits(out.Get<float>(1), static_cast<float>(im)))
                    << t.name << " n=" << n << " offset=" << offset << " hint=" << hint;
                ASSERT_TRUE(out.GuardsIntact());
            }
    });
}

// The models tell the plans apart: on the same data the tiers' plans give
// different bits somewhere, so agreement above is not agreement by chance.
TEST(SignalSum, PlansGiveDifferentBitsOnMixedData) {
    int pairVsEight = 0, eightVsFast = 0, eightVsPacked = 0;
    ForEachPlacedVector<float>(1, 500, [&](PlacedVector& src, int32_t n, std::size_t) {
        const float px = float(Expected32f(0, PrimAlgHintFast, src.data(), n));
        const float m6 = float(Expected32f(1, PrimAlgHintFast, src.data(), n));
        const float w7 = float(Expected32f(3, PrimAlgHintFast, src.data(), n));
        pairVsEight += !SameBits(px, m6);
        eightVsFast += !SameBits(m6, w7);
    });
    ForEachPlacedVector<double>(1, 600, [&](PlacedVector& src, int32_t n, std::size_t) {
        eightVsPacked += !SameBits(Expected64f(1, src.data(), n), Expected64f(3, src.data(), n));
    });
    EXPECT_GT(pairVsEight, 0);
    EXPECT_GT(eightVsFast, 0);
    EXPECT_GT(eightVsPacked, 0);
}

// The plans really differ: on data with cancellation the fast form and the
// eight-accumulator form part in the last bits, which is what the hint allows.
TEST(SignalSum, FastHintDiffersOnlyInRounding) {
    const int32_t n = 100000;
    const auto values = MixedFloats<float>(n, 77, false);
    float fast = 0, accurate = 0, plain = 0;
    ASSERT_EQ(w7_SigSum32f(values.data(), n, &fast, PrimAlgHintFast), PrimStatusOk);
    ASSERT_EQ(w7_SigSum32f(values.data(), n, &accurate, PrimAlgHintAccurate), PrimStatusOk);
    ASSERT_EQ(px_SigSum32f(values.data(), n, &plain, PrimAlgHintFast), PrimStatusOk);
    double exact = 0;
    for (float v : values) exact += v;
    // Within a few units of the last place of a float of this size.
    const double ulp = std::ldexp(1.0, std::ilogb(exact) - 23);
    EXPECT_NEAR(fast, exact, 8 * ulp);
    EXPECT_NEAR(accurate, exact, ulp);
    EXPECT_NEAR(plain, exact, ulp);
}

TEST(SignalSum, LengthOneGivesTheElementInEveryForm) {
    const float f = -3.25f;
    const double d = 1e300;
    const SigComplex32f c = {1.5f, -7.0f};
    const int16_t s = -32768;
    const SigComplex16s sc = {32767, -32768};
    for (const SumTier& t : kTiers) {
        for (PrimAlgHint hint : kHints) {
            float rf = 0;
            SigComplex32f rc = {0, 0};
            EXPECT_EQ(t.sum32f(&f, 1, &rf, hint), 0);
            EXPECT_EQ(rf, f) << t.name;
            EXPECT_EQ(t.sum32fc(&c, 1, &rc, hint), 0);
            EXPECT_EQ(rc.re, c.re);
            EXPECT_EQ(rc.im, c.im);
        }
        double rd = 0;
        EXPECT_EQ(t.sum64f(&d, 1, &rd), 0);
        EXPECT_EQ(rd, d) << t.name;
        int32_t r32 = 0;
        int16_t r16 = 0;
        SigComplex32s rc32 = {0, 0};
        SigComplex16s rc16 = {0, 0};
        EXPECT_EQ(t.sum16s32s(&s, 1, &r32, 0), 0);
        EXPECT_EQ(r32, -32768);
        EXPECT_EQ(t.sum16s(&s, 1, &r16, 0), 0);
        EXPECT_EQ(r16, -32768);
        EXPECT_EQ(t.sum16sc32sc(&sc, 1, &rc32, 0), 0);
        EXPECT_EQ(rc32.re, 32767);
        EXPECT_EQ(rc32.im, -32768);
        EXPECT_EQ(t.sum16sc(&sc, 1, &rc16, 0), 0);
        EXPECT_EQ(rc16.re, 32767);
        EXPECT_EQ(rc16.im, -32768);
    }
}

// ---- Integer sums ----

// Right shift with round half to even, written from the rule's meaning:
// the nearest integer to total / 2^s, ties to the even one.
int64_t ModelRoundShift(int64_t total, int s) {
    const int64_t unit = int64_t{1} << s;
    int64_t q = total >= 0 ? total / unit : -((-total + unit - 1) / unit);  // floor
    const int64_t r = total - q * unit;
    const int64_t half = unit / 2;
    if (r > half || (r == half && (q & 1) != 0)) ++q;
    return q;
}

int32_t ModelScale(int64_t total, int32_t sf) {
    auto clamp32 = [](int64_t v) {
        return static_cast<int32_t>(std::max<int64_t>(INT32_MIN, std::min<int64_t>(INT32_MAX, v)));
    };
    if (sf > 0) return sf >= 49 ? 0 : clamp32(ModelRoundShift(total, sf));
    const int32_t v = clamp32(total);
    if (sf == 0 || v == 0) return v;
    if (sf <= -32) return v > 0 ? INT32_MAX : INT32_MIN;
    return clamp32(static_cast<int64_t>(v) * (int64_t{1} << -sf));
}

int16_t Clamp16(int32_t v) { return static_cast<int16_t>(std::max(-32768, std::min(32767, v))); }

std::vector<int32_t> IntLengths() {
    std::vector<int32_t> lengths;
    for (int32_t n = 1; n <= 80; ++n) lengths.push_back(n);
    for (int32_t n : {255, 1023, 65535, 65536, 65537, 65536 + 31, 131072, 131073, 200001}) lengths.push_back(n);
    return lengths;
}

const int32_t kScaleFactors[] = {0, 1, 2, 3, 5, 15, 16, 17, 31, 32, 47, 48, 49, 50, 1000, INT32_MAX,
                                 -1, -2, -15, -16, -30, -31, -32, -33, -1000, INT32_MIN};

TEST(SignalSum, Integer16AgainstExactTotals) {
    for (int32_t n : IntLengths()) {
        auto values = RandomShorts(2 * std::size_t(n), 400 + n);
        if (n % 3 == 0) std::fill(values.begin(), values.end(), int16_t(-32768));
        if (n % 5 == 0) std::fill(values.begin(), values.end(), int16_t(32767));
        for (std::size_t offset : {0, 1, 2, 4, 6, 10, 14}) {
            PlacedVector src(2 * n * sizeof(int16_t), offset);
            src.Fill(values);
            int64_t exact = 0, exactRe = 0, exactIm = 0;
            for (int32_t i = 0; i < n; ++i) exact += values[i];
            for (int32_t i = 0; i < n; ++i) exactRe += values[2 * i], exactIm += values[2 * i + 1];
            for (const SumTier& t : kTiers)
                for (int32_t sf : kScaleFactors) {
                    PlacedVector out(sizeof(SigComplex32s), offset % 4);
                    ASSERT_EQ(t.sum16s32s(src.as<int16_t>(), n, out.as<int32_t>(), sf), 0);
                    ASSERT_EQ(out.Get<int32_t>(0), ModelScale(exact, sf)) << t.name << " n=" << n << " sf=" << sf;
                    ASSERT_EQ(t.sum16s(src.as<int16_t>(), n, out.as<int16_t>(), sf), 0);
                    ASSERT_EQ(out.Get<int16_t>(0), Clamp16(ModelScale(exact, sf)));
                    ASSERT_EQ(t.sum16sc32sc(src.as<SigComplex16s>(), n, out.as<SigComplex32s>(), sf), 0);
                    ASSERT_EQ(out.Get<int32_t>(0), ModelScale(exactRe, sf)) << t.name << " n=" << n;
                    ASSERT_EQ(out.Get<int32_t>(1), ModelScale(exactIm, sf)) << t.name << " n=" << n;
                    ASSERT_EQ(t.sum16sc(src.as<SigComplex16s>(), n, out.as<SigComplex16s>(), sf), 0);
                    ASSERT_EQ(out.Get<int16_t>(0), Clamp16(ModelScale(exactRe, sf)));
                    ASSERT_EQ(out.Get<int16_t>(1), Clamp16(ModelScale(exactIm, sf)));
                    ASSERT_TRUE(out.GuardsIntact() && src.GuardsIntact());
                }
        }
    }
}

// Vectors of one repeated sample give a known total.
int32_t SumOf(const SumTier& t, int16_t sample, int32_t n, int32_t sf) {
    std::vector<int16_t> v(n, sample);
    int32_t r = 12345;
    EXPECT_EQ(t.sum16s32s(v.data(), n, &r, sf), 0);
    return r;
}

int32_t SumOfTotal(const SumTier& t, int32_t total, int32_t sf) {
    // One or two samples that add up to `total` (|total| < 65536).
    std::vector<int16_t> v;
    int32_t rest = total;
    while (rest > 32767) v.push_back(32767), rest -= 32767;
    while (rest < -32768) v.push_back(-32768), rest += 32768;
    v.push_back(static_cast<int16_t>(rest));
    int32_t r = 12345;
    EXPECT_EQ(t.sum16s32s(v.data(), static_cast<int32_t>(v.size()), &r, sf), 0);
    return r;
}

TEST(SignalSum, ScaleFactorRoundsTiesToEven) {
    for (const SumTier& t : kTiers) {
        EXPECT_EQ(SumOfTotal(t, 3, 1), 2) << t.name;
        EXPECT_EQ(SumOfTotal(t, 1, 1), 0) << t.name;
        EXPECT_EQ(SumOfTotal(t, -1, 1), 0) << t.name;
        EXPECT_EQ(SumOfTotal(t, -3, 1), -2) << t.name;
        EXPECT_EQ(SumOfTotal(t, 5, 1), 2) << t.name;
        EXPECT_EQ(SumOfTotal(t, 7, 1), 4) << t.name;
        EXPECT_EQ(SumOfTotal(t, 6, 2), 2) << t.name;   // 1.5 -> 2
        EXPECT_EQ(SumOfTotal(t, 10, 2), 2) << t.name;  // 2.5 -> 2
        EXPECT_EQ(SumOfTotal(t, 11, 2), 3) << t.name;
        EXPECT_EQ(SumOfTotal(t, -10, 2), -2) << t.name;
        EXPECT_EQ(SumOfTotal(t, -6, 2), -2) << t.name;
    }
}

TEST(SignalSum, LargeScaleFactors) {
    const int32_t big = 200000;  // total 32767 * 200000 needs 33 bits
    for (const SumTier& t : kTiers) {
        EXPECT_EQ(SumOf(t, 32767, big, 49), 0) << t.name;
        EXPECT_EQ(SumOf(t, -32768, big, 49), 0) << t.name;
        EXPECT_EQ(SumOf(t, 1, 1, INT32_MAX), 0) << t.name;
        // 48 still shifts: a total of -1 rounds to 0, but the sign bit of a
        // negative total shifted by 48 keeps -1 for large magnitudes.
        EXPECT_EQ(SumOf(t, -32768, big, 48), ModelScale(-32768LL * big, 48)) << t.name;
        EXPECT_EQ(SumOf(t, 32767, big, 0), INT32_MAX) << t.name;
        EXPECT_EQ(SumOf(t, -32768, big, 0), INT32_MIN) << t.name;
        EXPECT_EQ(SumOf(t, 32767, big, 2), (int32_t)((32767LL * big + 2) >> 2)) << t.name;
    }
}

TEST(SignalSum, ScaleFactor48MayNotGiveZero) {
    // A 16-bit total can't reach 2^47, so build the case on the scale step
    // alone through the largest sums of many blocks.
    const int32_t n = 65536 * 32;  // 2^21 samples of -32768: total -2^36
    for (const SumTier& t : kTiers) {
        EXPECT_EQ(SumOf(t, -32768, n, 36), -1) << t.name;
        EXPECT_EQ(SumOf(t, -32768, n, 37), 0) << t.name;   // -0.5 ties to even 0
        EXPECT_EQ(SumOf(t, -32768, n, 48), 0) << t.name;
    }
}

// The scale step on totals that no 16-bit vector of this size can reach:
// 48 is the last factor that still rounds, so 0.5 ties to 0 but 0.75 gives 1.
TEST(SignalSum, ScaleStepOnLargeTotals) {
    using pixmoor::signal::ScaleSum;
    const int64_t two47 = int64_t{1} << 47;
    EXPECT_EQ(ScaleSum(two47, 48), 0);
    EXPECT_EQ(ScaleSum(3 * (two47 / 2), 48), 1);
    EXPECT_EQ(ScaleSum(-3 * (two47 / 2), 48), -1);
    EXPECT_EQ(ScaleSum(3 * two47, 48), 2);      // 1.5 ties to 2
    EXPECT_EQ(ScaleSum(3 * two47, 49), 0);
    EXPECT_EQ(ScaleSum(INT64_C(1) << 62, 48), 16384);
    std::mt19937_64 rng(11);
    for (int i = 0; i < 200000; ++i) {
        const int64_t total = static_cast<int64_t>(rng()) >> (1 + rng() % 62);  // within 2^62
        const int32_t sf = static_cast<int32_t>(rng() % 100) - 50;
        ASSERT_EQ(ScaleSum(total, sf), ModelScale(total, sf)) << total << " " << sf;
    }
}

TEST(SignalSum, NegativeScaleFactorsShiftWithSaturation) {
    for (const SumTier& t : kTiers) {
        for (int32_t sf : {-1, -5, -31, -32, -40, INT32_MIN}) EXPECT_EQ(SumOfTotal(t, 0, sf), 0) << t.name;
        EXPECT_EQ(SumOfTotal(t, 1, -31), INT32_MAX) << t.name;
        EXPECT_EQ(SumOfTotal(t, -1, -31), INT32_MIN) << t.name;
        EXPECT_EQ(SumOfTotal(t, 1, -30), 1 << 30) << t.name;
        EXPECT_EQ(SumOfTotal(t, -2, -30), INT32_MIN) << t.name;
        EXPECT_EQ(SumOfTotal(t, -3, -30), INT32_MIN) << t.name;
        EXPECT_EQ(SumOfTotal(t, 1, -32), INT32_MAX) << t.name;
        EXPECT_EQ(SumOfTotal(t, -1, -32), INT32_MIN) << t.name;
        EXPECT_EQ(SumOfTotal(t, 5, INT32_MIN), INT32_MAX) << t.name;
        EXPECT_EQ(SumOfTotal(t, 32767, -16), 32767 << 16) << t.name;
        EXPECT_EQ(SumOfTotal(t, 32768, -16), INT32_MAX) << t.name;
        EXPECT_EQ(SumOfTotal(t, -32768, -16), INT32_MIN) << t.name;
        EXPECT_EQ(SumOfTotal(t, -32769, -16), INT32_MIN) << t.name;
        EXPECT_EQ(SumOfTotal(t, 3, -1), 6) << t.name;
        EXPECT_EQ(SumOfTotal(t, -3, -2), -12) << t.name;
    }
}

TEST(SignalSum, BlockBoundariesGiveExactTotals) {
    for (const SumTier& t : kTiers)
        for (int32_t n : {65536, 65537}) {
            // -32768 * 65536 is exactly the 32-bit minimum; one more saturates.
            EXPECT_EQ(SumOf(t, -32768, n, 0), INT32_MIN) << t.name;
            // -0.5 past -32768 ties to the even -32768.
            EXPECT_EQ(SumOf(t, -32768, n, 16), -32768) << t.name;
            EXPECT_EQ(SumOf(t, 32767, n, 0), 32767 * n) << t.name;
            EXPECT_EQ(SumOf(t, -32768, n, 1), -16384 * n) << t.name;
        }
}

TEST(SignalSum, SixteenBitResultsSaturateTheWideResult) {
    for (const SumTier& t : kTiers) {
        std::vector<int16_t> big(70000, 32767), low(70000, -32768);
        int16_t r = 0;
        EXPECT_EQ(t.sum16s(big.data(), 70000, &r, 0), 0);
        EXPECT_EQ(r, 32767);
        EXPECT_EQ(t.sum16s(low.data(), 70000, &r, 0), 0);
        EXPECT_EQ(r, -32768);
        EXPECT_EQ(t.sum16s(big.data(), 2, &r, 1), 0);
        EXPECT_EQ(r, 32767);
        std::vector<SigComplex16s> c(70000, SigComplex16s{-32768, -32768});
        SigComplex16s rc = {0, 0};
        EXPECT_EQ(t.sum16sc(c.data(), 70000, &rc, 0), 0);
        EXPECT_EQ(rc.re, -32768);
        EXPECT_EQ(static_cast<uint16_t>(rc.im), 0x8000);
        c.assign(3, SigComplex16s{20000, -20000});
        EXPECT_EQ(t.sum16sc(c.data(), 3, &rc, 0), 0);
        EXPECT_EQ(rc.re, 32767);
        EXPECT_EQ(rc.im, -32768);
    }
}

// ---- Wrapper checks: null pointers first, then the length; nothing written. ----

template <typename Call>
void ExpectStatusAndUntouched(PlacedVector& out, PrimStatus want, Call call) {
    const auto before = out.Contents();
    EXPECT_EQ(call(), want);
    EXPECT_EQ(out.Contents(), before);
    EXPECT_TRUE(out.GuardsIntact());
}

TEST(SignalSum, WrapperChecksInOrder) {
    float f[4] = {1, 2, 3, 4};
    double d[4] = {1, 2, 3, 4};
    SigComplex32f c[2] = {{1, 2}, {3, 4}};
    int16_t s[4] = {1, 2, 3, 4};
    SigComplex16s sc[2] = {{1, 2}, {3, 4}};
    for (const SumTier& t : kTiers) {
        PlacedVector out(16, 0);
        for (int32_t len : {4, 0, -1, INT32_MIN}) {
            // A null pointer wins over a bad length.
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum32f(nullptr, len, out.as<float>(), PrimAlgHintFast); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum32f(f, len, nullptr, PrimAlgHintFast); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum64f(nullptr, len, out.as<double>()); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum64f(d, len, nullptr); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum32fc(nullptr, len, out.as<SigComplex32f>(), PrimAlgHintAccurate); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum32fc(c, len, nullptr, PrimAlgHintAccurate); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16s32s(nullptr, len, out.as<int32_t>(), 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16s32s(s, len, nullptr, 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16sc32sc(nullptr, len, out.as<SigComplex32s>(), 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16sc32sc(sc, len, nullptr, 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16s(nullptr, len, out.as<int16_t>(), 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16s(s, len, nullptr, 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16sc(nullptr, len, out.as<SigComplex16s>(), 0); });
            ExpectStatusAndUntouched(out, -8, [&] { return t.sum16sc(sc, len, nullptr, 0); });
        }
        for (int32_t len : {0, -1, INT32_MIN}) {
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum32f(f, len, out.as<float>(), PrimAlgHintFast); });
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum64f(d, len, out.as<double>()); });
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum32fc(c, len, out.as<SigComplex32f>(), PrimAlgHintFast); });
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum16s32s(s, len, out.as<int32_t>(), 3); });
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum16sc32sc(sc, len, out.as<SigComplex32s>(), 3); });
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum16s(s, len, out.as<int16_t>(), 3); });
            ExpectStatusAndUntouched(out, -6, [&] { return t.sum16sc(sc, len, out.as<SigComplex16s>(), 3); });
        }
    }
}

// The plain names of the members outside the dispatch table run the tier
// that PrimGetTier reports.
TEST(SignalSum, PlainNamesFollowTheCurrentTier) {
    const auto values = MixedFloats<double>(1001, 5);
    const int32_t saved = PrimCurrentTier;
    for (int tier = 0; tier < 4; ++tier) {
        PrimCurrentTier = tier;
        double viaPlain = 0, viaTier = 0;
        EXPECT_EQ(SigSum64f(values.data() + 1, 1000, &viaPlain), 0);
        EXPECT_EQ(kTiers[tier].sum64f(values.data() + 1, 1000, &viaTier), 0);
        EXPECT_TRUE(SameBits(viaPlain, viaTier)) << tier;
        int32_t r = 0;
        const int16_t s[3] = {1, 2, 4};
        EXPECT_EQ(SigSum16s32sSfs(s, 3, &r, 1), 0);
        EXPECT_EQ(r, 4);
    }
    PrimCurrentTier = saved;
}

}  // namespace

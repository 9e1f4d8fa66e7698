// Every threshold member of every tier against the scalar models, on seeded
// vectors of many lengths and alignments that mix ordinary samples with
// equal-to-level samples, zeros of both signs, infinities and not-a-number
// values; in place and to a destination.
#include <gtest/gtest.h>
#include <pixmoor/primitives/signal.h>

#include <limits>
#include <string>

#include "signal_test_support.h"
#include "threshold_models.h"

using namespace signal_test;

namespace {

template <typename Elem, typename Level>
struct Members {
    PrimStatus (*limitI)(Elem*, int32_t, Level, SigCmpOp);
    PrimStatus (*limit)(const Elem*, Elem*, int32_t, Level, SigCmpOp);
    PrimStatus (*ltI)(Elem*, int32_t, Level);
    PrimStatus (*lt)(const Elem*, Elem*, int32_t, Level);
    PrimStatus (*gtI)(Elem*, int32_t, Level);
    PrimStatus (*gt)(const Elem*, Elem*, int32_t, Level);
    PrimStatus (*ltValI)(Elem*, int32_t, Level, Elem);
    PrimStatus (*ltVal)(const Elem*, Elem*, int32_t, Level, Elem);
    PrimStatus (*gtValI)(Elem*, int32_t, Level, Elem);
    PrimStatus (*gtVal)(const Elem*, Elem*, int32_t, Level, Elem);
};

#define MEMBERS(p, sfx)                                                                                  \
    {                                                                                                    \
        p##SigThreshold##sfx##I, p##SigThreshold##sfx, p##SigThresholdLT##sfx##I, p##SigThresholdLT##sfx, \
            p##SigThresholdGT##sfx##I, p##SigThresholdGT##sfx, p##SigThresholdLTVal##sfx##I,             \
            p##SigThresholdLTVal##sfx, p##SigThresholdGTVal##sfx##I, p##SigThresholdGTVal##sfx           \
    }
#define TIERS(sfx) {MEMBERS(px_, sfx), MEMBERS(m6_, sfx), MEMBERS(a6_, sfx), MEMBERS(w7_, sfx)}

const Members<float, float> k32f[4] = TIERS(32f);
const Members<double, double> k64f[4] = TIERS(64f);
const Members<int16_t, int16_t> k16s[4] = TIERS(16s);
const Members<SigComplex32f, float> k32fc[4] = TIERS(32fc);
const Members<SigComplex64f, double> k64fc[4] = TIERS(64fc);
const Members<SigComplex16s, int16_t> k16sc[4] = TIERS(16sc);
const char* const kTierNames[4] = {"px", "m6", "a6", "w7"};

// ---- Sample generators ----

template <typename T>
T Special(std::mt19937& rng, T level) {
    const T inf = std::numeric_limits<T>::infinity();
    const T nan = std::numeric_limits<T>::quiet_NaN();
    const T pick[] = {level, T(0), -T(0), inf, -inf, nan, -nan, std::numeric_limits<T>::denorm_min(),
                      -std::numeric_limits<T>::max(), std::nextafter(level, inf), std::nextafter(level, -inf)};
    return pick[rng() % (sizeof(pick) / sizeof(pick[0]))];
}

template <typename T>
T Sample(std::mt19937& rng, T level) {
    if (rng() % 4 == 0) return Special(rng, level);
    return T(std::ldexp(std::uniform_real_distribution<double>(-1, 1)(rng), int(rng() % 10)));
}
inline int16_t Sample(std::mt19937& rng, int16_t level) {
    switch (rng() % 8) {
        case 0: return level;
        case 1: return int16_t(-32768);
        case 2: return int16_t(32767);
        default: return int16_t(rng());
    }
}
template <typename C>
C SampleComplex(std::mt19937& rng, double level) {
    using R = decltype(C::re);
    C c;
    switch (rng() % 10) {
        case 0: c.re = 0; c.im = 0; break;
        case 1: c.re = -R(0); c.im = -R(0); break;
        case 2: c.re = R(level); c.im = 0; break;          // magnitude equal to the level
        case 3: c.re = 0; c.im = R(-level); break;
        case 4: c.re = Special<R>(rng, R(level)); c.im = R(1); break;
        default:
            c.re = R(std::ldexp(std::uniform_real_distribution<double>(-1, 1)(rng), int(rng() % 8)));
            c.im = R(std::ldexp(std::uniform_real_distribution<double>(-1, 1)(rng), int(rng() % 8)));
    }
    return c;
}
SigComplex32f SampleOf(std::mt19937& rng, SigComplex32f*, float level) { return SampleComplex<SigComplex32f>(rng, level); }
SigComplex64f SampleOf(std::mt19937& rng, SigComplex64f*, double level) { return SampleComplex<SigComplex64f>(rng, level); }
SigComplex16s SampleOf(std::mt19937& rng, SigComplex16s*, int16_t level) {
    switch (rng() % 8) {
        case 0: return {0, 0};
        case 1: return {level, 0};
        case 2: return {0, int16_t(-level)};
        case 3: return {int16_t(-32768), int16_t(-32768)};
        case 4: return {int16_t(rng() % 7 - 3), int16_t(rng() % 7 - 3)};
        default: return {int16_t(rng()), int16_t(rng())};
    }
}
template <typename T>
T SampleOf(std::mt19937& rng, T*, T level) { return Sample(rng, level); }

// Levels: ordinary and special for real types; non-negative for complex.
template <typename T>
std::vector<T> RealLevels() {
    const T inf = std::numeric_limits<T>::infinity();
    return {T(0.5), T(-1), T(0), -T(0), T(3.75), T(-0.125), inf, -inf, std::numeric_limits<T>::quiet_NaN()};
}
std::vector<float> LevelsOf(float*) { return RealLevels<float>(); }
std::vector<double> LevelsOf(double*) { return RealLevels<double>(); }
std::vector<int16_t> LevelsOf(int16_t*) { return {0, -1, 100, -32768, 32767, 7}; }
std::vector<float> LevelsOf(SigComplex32f*) { return {0.0f, -0.0f, 0.75f, 2.5f, 1e-20f, std::numeric_limits<float>::infinity()}; }
std::vector<double> LevelsOf(SigComplex64f*) { return {0.0, 0.75, 2.5, 1e-200, 1e200}; }
std::vector<int16_t> LevelsOf(SigComplex16s*) { return {0, 1, 3, 100, 5000, 32767}; }

template <typename Elem>
bool SameElement(const Elem& a, const Elem& b) { return std::memcmp(&a, &b, sizeof(Elem)) == 0; }

template <typename Elem>
std::string Show(const Elem& e) {
    std::string s;
    const uint8_t* b = reinterpret_cast<const uint8_t*>(&e);
    char buf[4];
    for (std::size_t i = sizeof(Elem); i-- > 0;) {
        std::snprintf(buf, sizeof buf, "%02x", b[i]);
        s += buf;
    }
    return s;
}

std::vector<int32_t> ThresholdLengths() {
    std::vector<int32_t> v;
    for (int32_t n = 1; n <= 40; ++n) v.push_back(n);
    for (int32_t n : {47, 48, 49, 63, 64, 65, 100, 257, 1031}) v.push_back(n);
    return v;
}

// Runs one member both ways and compares every element with the model.
template <typename Elem, typename Level, typename CallI, typename Call>
void CheckAgainstModel(int tier, Kind kind, const std::vector<Elem>& input, std::size_t offset, Level level, Elem value,
                       CallI callInPlace, Call callTo, const std::string& what) {
    const int32_t n = static_cast<int32_t>(input.size());
    const std::size_t bytes = input.size() * sizeof(Elem);
    PlacedVector inPlace(bytes, offset), src(bytes, offset), dst(bytes, (offset * 3) % 16);
    inPlace.Fill(input);
    src.Fill(input);
    ASSERT_EQ(callInPlace(inPlace.as<Elem>(), n), PrimStatusOk) << what;
    ASSERT_EQ(callTo(src.as<Elem>(), dst.as<Elem>(), n), PrimStatusOk) << what;
    ASSERT_TRUE(inPlace.GuardsIntact() && src.GuardsIntact() && dst.GuardsIntact()) << what;
    for (int32_t i = 0; i < n; ++i) {
        ASSERT_TRUE(SameElement(src.Get<Elem>(i), input[i])) << what << " source changed at " << i;
        const Elem wantI = Model(tier, kind, true, input[i], level, value);
        const Elem want = Model(tier, kind, false, input[i], level, value);
        ASSERT_TRUE(SameElement(inPlace.Get<Elem>(i), wantI))
            << what << " in place, n=" << n << " offset=" << offset << " i=" << i << " x=" << Show(input[i])
            << " got " << Show(inPlace.Get<Elem>(i)) << " want " << Show(wantI);
        ASSERT_TRUE(SameElement(dst.Get<Elem>(i), want))
            << what << " to dst, n=" << n << " offset=" << offset << " i=" << i << " x=" << Show(input[i])
            << " got " << Show(dst.Get<Elem>(i)) << " want " << Show(want);
    }
}

template <typename Elem, typename Level>
void CheckFamily(const Members<Elem, Level> (&tiers)[4], const std::vector<std::size_t>& offsets, uint32_t seed) {
    std::mt19937 rng(seed);
    for (Level level : LevelsOf(static_cast<Elem*>(nullptr))) {
        for (int32_t n : ThresholdLengths()) {
            std::vector<Elem> input(n);
            for (auto& e : input) e = SampleOf(rng, static_cast<Elem*>(nullptr), level);
            const Elem value = SampleOf(rng, static_cast<Elem*>(nullptr), level);
            const std::size_t offset = offsets[rng() % offsets.size()];
            for (int tier = 0; tier < 4; ++tier) {
                const auto& m = tiers[tier];
                const std::string name = kTierNames[tier];
                for (SigCmpOp op : {SigCmpLT, SigCmpGT, SigCmpOp(1), SigCmpOp(3), SigCmpOp(5), SigCmpOp(-4)}) {
                    const Kind kind = op == SigCmpGT ? Kind::LimitAbove : Kind::LimitBelow;
                    CheckAgainstModel(
                        tier, kind, input, offset, level, value,
                        [&](Elem* v, int32_t len) { return m.limitI(v, len, level, op); },
                        [&](const Elem* s, Elem* d, int32_t len) { return m.limit(s, d, len, level, op); },
                        name + " Threshold op " + std::to_string(op));
                }
                CheckAgainstModel(
                    tier, Kind::LimitBelow, input, offset, level, value,
                    [&](Elem* v, int32_t len) { return m.ltI(v, len, level); },
                    [&](const Elem* s, Elem* d, int32_t len) { return m.lt(s, d, len, level); }, name + " LT");
                CheckAgainstModel(
                    tier, Kind::LimitAbove, input, offset, level, value,
                    [&](Elem* v, int32_t len) { return m.gtI(v, len, level); },
                    [&](const Elem* s, Elem* d, int32_t len) { return m.gt(s, d, len, level); }, name + " GT");
                CheckAgainstModel(
                    tier, Kind::ReplaceBelow, input, offset, level, value,
                    [&](Elem* v, int32_t len) { return m.ltValI(v, len, level, value); },
                    [&](const Elem* s, Elem* d, int32_t len) { return m.ltVal(s, d, len, level, value); },
                    name + " LTVal");
                CheckAgainstModel(
                    tier, Kind::ReplaceAbove, input, offset, level, value,
                    [&](Elem* v, int32_t len) { return m.gtValI(v, len, level, value); },
                    [&](const Elem* s, Elem* d, int32_t len) { return m.gtVal(s, d, len, level, value); },
                    name + " GTVal");
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

TEST(SignalThreshold, Real32fEveryTierAgainstModel) {
    CheckFamily(k32f, {0, 4, 8, 12, 16, 20, 24, 28, 1, 2, 3}, 1);
}
TEST(SignalThreshold, Real64fEveryTierAgainstModel) { CheckFamily(k64f, {0, 8, 16, 24, 4, 1}, 2); }
TEST(SignalThreshold, Real16sEveryTierAgainstModel) { CheckFamily(k16s, {0, 2, 6, 14, 1}, 3); }
TEST(SignalThreshold, Complex32fEveryTierAgainstModel) { CheckFamily(k32fc, {0, 8, 16, 24, 4, 2}, 4); }
TEST(SignalThreshold, Complex64fEveryTierAgainstModel) { CheckFamily(k64fc, {0, 8, 16, 1}, 5); }
TEST(SignalThreshold, Complex16sEveryTierAgainstModel) { CheckFamily(k16sc, {0, 4, 8, 12, 2, 1}, 6); }

}  // namespace

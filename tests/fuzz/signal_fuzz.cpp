// Fuzzes the signal primitives, sums and the threshold family, in every tier
// and under their plain names: null vectors and outputs, lengths below 1,
// negative and not-a-number levels, any relation code, vectors at any byte
// offset holding exactly `len` elements, and samples that include zeros of
// both signs, infinities and not-a-numbers.  A rejected call must return the
// status of the first failing check and write nothing; an accepted sum must
// be the exact sum within the rounding its form allows (the integer forms
// exactly, with their scaling and saturation), and an accepted threshold
// must give, element by element, what the signal suite's scalar models of
// each kind and tier give.
#include <pixmoor/pixmoor.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "fuzz_support.h"
#include "tests/primitives/signal/threshold_models.h"

using namespace pixmoor_fuzz;

namespace {

const char* const kEntryNames[5] = {"plain", "px", "m6", "a6", "w7"};
#define T5(name) {name, px_##name, m6_##name, a6_##name, w7_##name}

template <typename T>
T Get(const uint8_t* p, size_t i) {
    T v;
    std::memcpy(&v, p + i * sizeof(T), sizeof(T));
    return v;
}

template <typename E>
struct Elem {  // the real type of an element and whether it is complex
    using Real = E;
    static constexpr bool kComplex = false;
};
template <>
struct Elem<SigComplex16s> {
    using Real = int16_t;
    static constexpr bool kComplex = true;
};
template <>
struct Elem<SigComplex32f> {
    using Real = float;
    static constexpr bool kComplex = true;
};
template <>
struct Elem<SigComplex64f> {
    using Real = double;
    static constexpr bool kComplex = true;
};

// A real sample: small values mostly, then the awkward ones.
template <typename R>
R ReadReal(FuzzInput& in) {
    const uint8_t how = in.Byte();
    if (std::is_integral<R>::value) {
        if (how < 128) return static_cast<R>(static_cast<int>(how) - 64);
        return static_cast<R>(in.U16());
    }
    if (how < 160) return static_cast<R>(static_cast<int>(how) - 80) / 4;
    switch (how % 8) {
        case 0: return static_cast<R>(0.0);
        case 1: return static_cast<R>(-0.0);
        case 2: return std::numeric_limits<R>::infinity();
        case 3: return -std::numeric_limits<R>::infinity();
        case 4: return std::numeric_limits<R>::quiet_NaN();
        case 5: return static_cast<R>(static_cast<int32_t>(in.U32()) / 65536.0);
        default: return static_cast<R>(static_cast<int32_t>(in.U16()) - 32768) / 8;
    }
}

template <typename E>
E ReadElement(FuzzInput& in) {
    using R = typename Elem<E>::Real;
    if constexpr (Elem<E>::kComplex) {
        E e;
        e.re = ReadReal<R>(in);
        e.im = ReadReal<R>(in);
        return e;
    } else {
        return ReadReal<R>(in);
    }
}

int32_t ReadLength(FuzzInput& in, int32_t largest) {
    const uint8_t how = in.Byte();
    if (how < 200) return 1 + in.U16() % largest;
    if (how < 215) return 0;
    if (how < 230) return -static_cast<int32_t>(in.Byte());
    if (how < 240) return 65530 + in.Byte() % 16;  // around the integer sums' block
    const int32_t any = in.I32();
    return any > 0 ? 1 + any % 70000 : any;
}

// ---- Threshold family.

template <typename E, typename L>
struct ThresholdSet {
    const char* name;
    PrimStatus (*rel[5])(E*, int32_t, L, SigCmpOp);
    PrimStatus (*relTo[5])(const E*, E*, int32_t, L, SigCmpOp);
    PrimStatus (*lt[5])(E*, int32_t, L);
    PrimStatus (*ltTo[5])(const E*, E*, int32_t, L);
    PrimStatus (*gt[5])(E*, int32_t, L);
    PrimStatus (*gtTo[5])(const E*, E*, int32_t, L);
    PrimStatus (*ltVal[5])(E*, int32_t, L, E);
    PrimStatus (*ltValTo[5])(const E*, E*, int32_t, L, E);
    PrimStatus (*gtVal[5])(E*, int32_t, L, E);
    PrimStatus (*gtValTo[5])(const E*, E*, int32_t, L, E);
};
#define THRESHOLD_SET(sfx, E, L)                                                                         \
    ThresholdSet<E, L> {                                                                                 \
        #sfx, T5(SigThreshold##sfx##I), T5(SigThreshold##sfx), T5(SigThresholdLT##sfx##I),               \
            T5(SigThresholdLT##sfx), T5(SigThresholdGT##sfx##I), T5(SigThresholdGT##sfx),                \
            T5(SigThresholdLTVal##sfx##I), T5(SigThresholdLTVal##sfx), T5(SigThresholdGTVal##sfx##I),    \
            T5(SigThresholdGTVal##sfx)                                                                   \
    }

const auto kThreshold32f = THRESHOLD_SET(32f, float, float);
const auto kThreshold32fc = THRESHOLD_SET(32fc, SigComplex32f, float);
const auto kThreshold64f = THRESHOLD_SET(64f, double, double);
const auto kThreshold64fc = THRESHOLD_SET(64fc, SigComplex64f, double);
const auto kThreshold16s = THRESHOLD_SET(16s, int16_t, int16_t);
const auto kThreshold16sc = THRESHOLD_SET(16sc, SigComplex16s, int16_t);

// Parts agree exactly, or within one step of the last place where a tier's
// vector form may round otherwise than the plain form.
template <typename R>
bool PartClose(R got, R want, bool loose) {
    if (std::memcmp(&got, &want, sizeof(R)) == 0) return true;
    if (!loose) return false;
    if constexpr (std::is_integral<R>::value) {
        return std::abs(static_cast<int>(got) - static_cast<int>(want)) <= 1;
    } else {
        if (std::isnan(got) || std::isnan(want)) return std::isnan(got) && std::isnan(want);
        return std::nextafter(want, got) == got;
    }
}

template <typename E>
bool ElementClose(const E& got, const E& want, bool loose) {
    if constexpr (Elem<E>::kComplex)
        return PartClose(got.re, want.re, loose) && PartClose(got.im, want.im, loose);
    else
        return PartClose(got, want, false);
}

template <typename E, typename L>
void CheckThreshold(FuzzInput& in, const ThresholdSet<E, L>& set, uint32_t entry) {
    using signal_test::Kind;
    const uint8_t form = in.Byte() % 10;  // relation, LT, GT, LTVal, GTVal; in place or to a destination
    const bool inPlace = form % 2 == 0;
    const int32_t len = ReadLength(in, 300);
    const uint8_t nulls = in.Byte();
    const bool nullSrc = nulls == 0xFF, nullDst = nulls == 0xFE && !inPlace;
    const L level = ReadReal<L>(in);
    const uint8_t relHow = in.Byte();
    const int32_t rel = relHow < 110 ? SigCmpLT : relHow < 220 ? SigCmpGT : static_cast<int32_t>(in.U32() % 9);
    const E value = ReadElement<E>(in);

    PrimStatus expected = PrimStatusOk;
    if (nullSrc || nullDst)
        expected = PrimStatusNullPointer;
    else if (len < 1)
        expected = PrimStatusSizeError;
    else if (Elem<E>::kComplex && (level < 0 || std::isnan(static_cast<double>(level))))
        expected = PrimStatusNegativeLevel;
    const bool accepted = expected == PrimStatusOk;
    const size_t n = accepted ? static_cast<size_t>(len) : 2;

    ExactBuffer src(n * sizeof(E), in.Byte() % 16), dst(n * sizeof(E), in.Byte() % 16);
    for (size_t i = 0; i < n; ++i) {
        const E e = ReadElement<E>(in);
        std::memcpy(src.data() + i * sizeof(E), &e, sizeof(E));
    }
    for (size_t i = 0; i < dst.size(); ++i) dst.data()[i] = static_cast<uint8_t>(0x5C ^ i);
    const std::vector<uint8_t> srcBefore = src.Contents(), dstBefore = dst.Contents();
    E* vec = nullSrc ? nullptr : reinterpret_cast<E*>(src.data());
    E* to = nullDst ? nullptr : reinterpret_cast<E*>(dst.data());

    Kind kind = Kind::LimitBelow;
    PrimStatus status = 0;
    switch (form / 2) {
        case 0:
            kind = rel == SigCmpGT ? Kind::LimitAbove : Kind::LimitBelow;  // any other code counts as below
            status = inPlace ? set.rel[entry](vec, len, level, static_cast<SigCmpOp>(rel))
                             : set.relTo[entry](vec, to, len, level, static_cast<SigCmpOp>(rel));
            break;
        case 1:
            kind = Kind::LimitBelow;
            status = inPlace ? set.lt[entry](vec, len, level) : set.ltTo[entry](vec, to, len, level);
            break;
        case 2:
            kind = Kind::LimitAbove;
            status = inPlace ? set.gt[entry](vec, len, level) : set.gtTo[entry](vec, to, len, level);
            break;
        case 3:
            kind = Kind::ReplaceBelow;
            status = inPlace ? set.ltVal[entry](vec, len, level, value) : set.ltValTo[entry](vec, to, len, level, value);
            break;
        default:
            kind = Kind::ReplaceAbove;
            status = inPlace ? set.gtVal[entry](vec, len, level, value) : set.gtValTo[entry](vec, to, len, level, value);
    }
    FUZZ_CHECK(status == expected, "threshold %s form %d %s len %d: status %d, expected %d", set.name, form,
               kEntryNames[entry], len, status, expected);
    if (!inPlace) FUZZ_CHECK(src.Equals(srcBefore), "threshold %s changed its source", set.name);
    if (!accepted) {
        FUZZ_CHECK(src.Equals(srcBefore) && dst.Equals(dstBefore), "threshold %s wrote after a failed check",
                   set.name);
        return;
    }
    const uint8_t* out = inPlace ? src.data() : dst.data();
    // The plain names run px: nothing in this program selects a tier.
    const int tier = entry == 0 ? 0 : static_cast<int>(entry) - 1;
    const bool loose = tier != 0 && (kind == Kind::LimitBelow || kind == Kind::LimitAbove);
    for (size_t i = 0; i < n; ++i) {
        const E x = Get<E>(srcBefore.data(), i);
        const E want = signal_test::Model(tier, kind, inPlace, x, level, value);
        const E got = Get<E>(out, i);
        FUZZ_CHECK(ElementClose(got, want, loose), "threshold %s form %d rel %d %s: element %zu of %d differs",
                   set.name, form, rel, kEntryNames[entry], i, len);
    }
}

// ---- Sums.

// The integer forms' scaling of an exact total, then the saturation to the
// 32-bit range, as their rules give it.
int64_t ScaleTotal(int64_t total, int32_t s) {
    auto saturate32 = [](int64_t v) {
        return std::max<int64_t>(std::numeric_limits<int32_t>::min(), std::min<int64_t>(std::numeric_limits<int32_t>::max(), v));
    };
    if (s > 0) {
        if (s >= 49) return 0;
        const int64_t bit = (total >> s) & 1;
        return saturate32((total + (int64_t{1} << (s - 1)) - 1 + bit) >> s);
    }
    int64_t v = saturate32(total);
    if (s == 0 || v == 0) return v;
    const int32_t shift = -s;
    if (shift >= 32) return v > 0 ? std::numeric_limits<int32_t>::max() : std::numeric_limits<int32_t>::min();
    if (v > (int64_t{0x7fffffff} >> shift)) return std::numeric_limits<int32_t>::max();
    if (v < (int64_t{-0x7fffffff - 1} >> shift)) return std::numeric_limits<int32_t>::min();
    return v * (int64_t{1} << shift);
}

int64_t Saturate16(int64_t v) { return std::max<int64_t>(-32768, std::min<int64_t>(32767, v)); }

void CheckSum(FuzzInput& in, uint32_t entry) {
    using Sum32f = PrimStatus (*)(const float*, int32_t, float*, PrimAlgHint);
    using Sum64f = PrimStatus (*)(const double*, int32_t, double*);
    using Sum32fc = PrimStatus (*)(const SigComplex32f*, int32_t, SigComplex32f*, PrimAlgHint);
    using Sum16s32s = PrimStatus (*)(const int16_t*, int32_t, int32_t*, int32_t);
    using Sum16sc32sc = PrimStatus (*)(const SigComplex16s*, int32_t, SigComplex32s*, int32_t);
    using Sum16s = PrimStatus (*)(const int16_t*, int32_t, int16_t*, int32_t);
    using Sum16sc = PrimStatus (*)(const SigComplex16s*, int32_t, SigComplex16s*, int32_t);
    static const Sum32f k32f[5] = T5(SigSum32f);
    static const Sum64f k64f[5] = T5(SigSum64f);
    static const Sum32fc k32fc[5] = T5(SigSum32fc);
    static const Sum16s32s k16s32s[5] = T5(SigSum16s32sSfs);
    static const Sum16sc32sc k16sc32sc[5] = T5(SigSum16sc32scSfs);
    static const Sum16s k16s[5] = T5(SigSum16sSfs);
    static const Sum16sc k16sc[5] = T5(SigSum16scSfs);

    const uint8_t member = in.Byte() % 7;
    const int32_t len = ReadLength(in, 3000);
    const uint8_t nulls = in.Byte();
    const bool nullSrc = nulls == 0xFF, nullOut = nulls == 0xFE;
    const uint8_t hintHow = in.Byte();
    const PrimAlgHint hint = static_cast<PrimAlgHint>(hintHow < 120 ? 1 : hintHow < 240 ? 2 : hintHow);
    const int32_t scale = static_cast<int8_t>(in.Byte()) % 52;
    const PrimStatus expected = nullSrc || nullOut ? PrimStatusNullPointer : len < 1 ? PrimStatusSizeError : 0;
    const bool accepted = expected == PrimStatusOk;
    const size_t n = accepted ? static_cast<size_t>(len) : 2;
    const bool isFloat = member <= 2, complex = member == 2 || member == 4 || member == 6;
    const size_t partBytes = member == 1 ? 8 : isFloat ? 4 : 2;
    const size_t parts = n * (complex ? 2 : 1);
    ExactBuffer src(parts * partBytes, in.Byte() % 16);
    // Finite samples: the rounding bounds below hold for them.
    std::vector<long double> values(parts);
    for (size_t i = 0; i < parts; ++i) {
        const uint8_t b = in.Byte();
        if (isFloat) {
            const double v = b < 200 ? (static_cast<int>(b) - 100) / 8.0 : (static_cast<int32_t>(in.U32()) / 4096.0);
            values[i] = member == 1 ? static_cast<long double>(v) : static_cast<long double>(static_cast<float>(v));
            if (member == 1)
                std::memcpy(src.data() + i * 8, &v, 8);
            else {
                const float f = static_cast<float>(v);
                std::memcpy(src.data() + i * 4, &f, 4);
            }
        } else {
            const int16_t v = static_cast<int16_t>(b < 128 ? (b - 64) * 3 : in.U16());
            values[i] = v;
            std::memcpy(src.data() + i * 2, &v, 2);
        }
    }
    const std::vector<uint8_t> before = src.Contents();
    alignas(16) uint8_t outBytes[32];
    std::memset(outBytes, 0xE7, sizeof outBytes);
    void* out = nullOut ? nullptr : outBytes;
    const void* from = nullSrc ? nullptr : src.data();
    PrimStatus status;
    switch (member) {
        case 0: status = k32f[entry](static_cast<const float*>(from), len, static_cast<float*>(out), hint); break;
        case 1: status = k64f[entry](static_cast<const double*>(from), len, static_cast<double*>(out)); break;
        case 2:
            status = k32fc[entry](static_cast<const SigComplex32f*>(from), len, static_cast<SigComplex32f*>(out), hint);
            break;
        case 3: status = k16s32s[entry](static_cast<const int16_t*>(from), len, static_cast<int32_t*>(out), scale); break;
        case 4:
            status = k16sc32sc[entry](static_cast<const SigComplex16s*>(from), len, static_cast<SigComplex32s*>(out),
                                      scale);
            break;
        case 5: status = k16s[entry](static_cast<const int16_t*>(from), len, static_cast<int16_t*>(out), scale); break;
        default:
            status = k16sc[entry](static_cast<const SigComplex16s*>(from), len, static_cast<SigComplex16s*>(out), scale);
    }
    FUZZ_CHECK(status == expected, "sum %d %s len %d: status %d, expected %d", member, kEntryNames[entry], len, status,
               expected);
    FUZZ_CHECK(src.Equals(before), "a sum changed its source");
    const size_t outParts = complex ? 2 : 1;
    const size_t outBytesUsed = outParts * (member <= 1 ? partBytes : member <= 2 ? 4 : member <= 4 ? 4 : 2);
    for (size_t i = accepted ? outBytesUsed : 0; i < sizeof outBytes; ++i)
        FUZZ_CHECK(outBytes[i] == 0xE7, "sum %d %s wrote byte %zu (status %d)", member, kEntryNames[entry], i, status);
    if (!accepted) return;

    const int tier = entry == 0 ? 0 : static_cast<int>(entry) - 1;
    for (size_t part = 0; part < outParts; ++part) {
        long double exact = 0, magnitude = 0;
        for (size_t i = part; i < parts; i += outParts) exact += values[i], magnitude += std::fabs(values[i]);
        if (isFloat) {
            const double got = member == 1 ? Get<double>(outBytes, part) : Get<float>(outBytes, part);
            const bool fast = member != 1 && hint == 1 && tier >= 2;
            const long double eps = fast ? std::ldexp(1.0L, -23) : std::ldexp(1.0L, -52);
            const long double store = member == 1 ? std::ldexp(1.0L, -52) : std::ldexp(1.0L, -23);
            const long double bound = (static_cast<long double>(n) + 2) * eps * magnitude + store * std::fabs(exact) + 1e-300L;
            FUZZ_CHECK(std::fabs(static_cast<long double>(got) - exact) <= bound,
                       "sum %d %s hint %d len %d: %.17g, exact %.17Lg", member, kEntryNames[entry], hint, len, got, exact);
        } else {
            int64_t want = ScaleTotal(static_cast<int64_t>(exact), scale);
            int64_t got;
            if (member <= 4) {
                got = Get<int32_t>(outBytes, part);
            } else {
                want = Saturate16(want);
                got = Get<int16_t>(outBytes, part);
            }
            FUZZ_CHECK(got == want, "sum %d %s len %d scale %d part %zu: %lld, model %lld", member, kEntryNames[entry],
                       len, scale, part, static_cast<long long>(got), static_cast<long long>(want));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const uint8_t what = in.Byte() % 7;
    const uint32_t entry = in.Below(5);
    switch (what) {
        case 0: CheckSum(in, entry); break;
        case 1: CheckThreshold(in, kThreshold32f, entry); break;
        case 2: CheckThreshold(in, kThreshold32fc, entry); break;
        case 3: CheckThreshold(in, kThreshold64f, entry); break;
        case 4: CheckThreshold(in, kThreshold64fc, entry); break;
        case 5: CheckThreshold(in, kThreshold16s, entry); break;
        default: CheckThreshold(in, kThreshold16sc, entry);
    }
    return 0;
}

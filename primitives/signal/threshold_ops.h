// Element operations of the threshold family.  Each maps one source element
// to its result; the drivers apply them along a vector.  The real limits
// come in three orderings, one for each means the tiers use: comparison of
// values (px), comparison of bit patterns as integers (m6), and the packed
// minimum and maximum (a6, w7), which differ on not-a-number samples and on
// zeros of opposite sign.
#ifndef PIXMOOR_PRIMITIVES_SIGNAL_THRESHOLD_OPS_H
#define PIXMOOR_PRIMITIVES_SIGNAL_THRESHOLD_OPS_H

#include <pixmoor/runtime.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace pixmoor {
namespace signal {

// ---- Real elements ----

// Plain comparison by value.  Limiting from below keeps only samples at or
// above the level, so a not-a-number sample becomes the level; limiting from
// above replaces only samples greater than the level.
template <typename T, bool kGt>
struct ValueLimit {
    T level;
    T operator()(T x) const {
        if (kGt) return x > level ? level : x;
        return x >= level ? x : level;
    }
};

// Packed minimum (from above) and maximum (from below) against the level,
// with the operand order of the packed instructions: the level wins ties
// and unordered pairs.
template <typename T, bool kGt>
struct MinMaxLimit {
    T level;
    T operator()(T x) const {
        if (kGt) return x < level ? x : level;
        return x > level ? x : level;
    }
};

template <typename T> struct PatternOf;
template <> struct PatternOf<float> { using Signed = int32_t; using Unsigned = uint32_t; };
template <> struct PatternOf<double> { using Signed = int64_t; using Unsigned = uint64_t; };

// Comparison of bit patterns.  For a level with the sign bit clear, signed
// order of the patterns is the value order for every finite sample; for a
// level with the sign bit set, unsigned order reversed is.  Not-a-number
// samples and negative zero fall where their patterns put them.
template <typename T, bool kGt>
struct PatternLimit {
    using S = typename PatternOf<T>::Signed;
    using U = typename PatternOf<T>::Unsigned;

    explicit PatternLimit(T levelValue) : level(levelValue) {
        std::memcpy(&levelBits, &level, sizeof(T));
        levelNegative = levelBits < 0;
    }
    T operator()(T x) const {
        S bits;
        std::memcpy(&bits, &x, sizeof(T));
        bool below, above;
        if (!levelNegative) {
            below = bits < levelBits;
            above = bits > levelBits;
        } else {
            below = static_cast<U>(bits) > static_cast<U>(levelBits);
            above = static_cast<U>(bits) < static_cast<U>(levelBits);
        }
        return (kGt ? above : below) ? level : x;
    }

    T level;
    S levelBits;
    bool levelNegative;
};

// Replacement value for samples strictly beyond the level.
template <typename T, bool kGt>
struct ValueReplace {
    T level;
    T value;
    T operator()(T x) const { return (kGt ? x > level : x < level) ? value : x; }
};

// ---- Complex float elements, compared by squared magnitude in double ----

template <typename C>
inline double SquaredMagnitude(const C& x) {
    const double re = x.re;
    const double im = x.im;
    return re * re + im * im;
}

// Beyond the level, both parts are scaled by sqrt(L / p): one division and
// one root per element.  From below, an element of magnitude zero becomes
// (level, 0); in place its imaginary part is left as it is.
template <typename C, bool kGt, bool kInPlace>
struct ComplexScaleLimit {
    using R = decltype(C::re);
    ComplexScaleLimit(R levelValue) : level(levelValue), levelSquared(double(levelValue) * double(levelValue)) {}
    C operator()(C x) const {
        const double p = SquaredMagnitude(x);
        if (kGt ? !(p > levelSquared) : !(p < levelSquared)) return x;
        if (!kGt && p == 0.0) {
            x.re = level;
            if (!kInPlace) x.im = 0;
            return x;
        }
        const double factor = std::sqrt(levelSquared / p);
        x.re = static_cast<R>(double(x.re) * factor);
        x.im = static_cast<R>(double(x.im) * factor);
        return x;
    }

    R level;
    double levelSquared;
};

template <typename C, bool kGt>
struct ComplexReplace {
    using R = decltype(C::re);
    ComplexReplace(R levelValue, C replacement)
        : levelSquared(double(levelValue) * double(levelValue)), value(replacement) {}
    C operator()(C x) const {
        const double p = SquaredMagnitude(x);
        return (kGt ? p > levelSquared : p < levelSquared) ? value : x;
    }

    double levelSquared;
    C value;
};

// ---- Complex 16-bit elements, in integers ----

inline uint32_t SquaredMagnitude16(SigComplex16s x) {
    return static_cast<uint32_t>(int32_t{x.re} * x.re) + static_cast<uint32_t>(int32_t{x.im} * x.im);
}

// Each part becomes sqrt(L * part^2 / p), the root taken in double and
// truncated, then corrected by one where the integer square shows it short.
template <bool kGt, bool kInPlace>
struct Complex16ScaleLimit {
    explicit Complex16ScaleLimit(int16_t levelValue)
        : level(levelValue), levelSquared(int64_t{levelValue} * levelValue) {}

    int16_t ScalePart(int16_t part, uint32_t p) const {
        const int64_t numerator = levelSquared * (int64_t{part} * part);
        const int64_t q = numerator / p;
        const bool exact = numerator % p == 0;
        int64_t r = static_cast<int64_t>(std::sqrt(static_cast<double>(q)));
        const int64_t next = (r + 1) * (r + 1);
        if ((kGt || !exact) ? q >= next : q > next) ++r;
        return static_cast<int16_t>(part < 0 ? -r : r);
    }

    SigComplex16s operator()(SigComplex16s x) const {
        const uint32_t p = SquaredMagnitude16(x);
        if (kGt ? p <= levelSquared : p >= levelSquared) return x;
        if (!kGt && p == 0) {
            x.re = level;
            if (!kInPlace) x.im = 0;
            return x;
        }
        const SigComplex16s scaled = {ScalePart(x.re, p), ScalePart(x.im, p)};
        return scaled;
    }

    int16_t level;
    int64_t levelSquared;
};

template <bool kGt>
struct Complex16Replace {
    Complex16Replace(int16_t levelValue, SigComplex16s replacement)
        : levelSquared(static_cast<uint32_t>(int32_t{levelValue} * levelValue)), value(replacement) {}
    SigComplex16s operator()(SigComplex16s x) const {
        const uint32_t p = SquaredMagnitude16(x);
        return (kGt ? p > levelSquared : p < levelSquared) ? value : x;
    }

    uint32_t levelSquared;
    SigComplex16s value;
};

}  // namespace signal
}  // namespace pixmoor

#endif

// Scalar models of the threshold family, one element at a time, written from
// the rules of each kind and tier.
#ifndef PIXMOOR_TESTS_SIGNAL_THRESHOLD_MODELS_H
#define PIXMOOR_TESTS_SIGNAL_THRESHOLD_MODELS_H

#include <pixmoor/primitives/signal.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace signal_test {

enum class Kind { LimitBelow, LimitAbove, ReplaceBelow, ReplaceAbove };

inline bool Above(Kind k) { return k == Kind::LimitAbove || k == Kind::ReplaceAbove; }
inline bool Replaces(Kind k) { return k == Kind::ReplaceBelow || k == Kind::ReplaceAbove; }

// Real samples.  The tiers order float samples differently:
//  px: by value; below, an unordered pair counts as below the level.
//  m6: by bit pattern, signed for a level with the sign clear, unsigned and
//      reversed for a level with the sign set.
//  a6, w7: packed maximum (below) or minimum (above) with the level as the
//      second operand, which wins ties and unordered pairs.
template <typename T>
T ModelRealLimit(int tier, bool above, T x, T l) {
    if (!std::is_floating_point<T>::value || tier == 0) {
        const bool replace = above ? x > l : (x < l || std::isunordered(x, l));
        return replace ? l : x;
    }
    if (tier == 1) {
        using S = typename std::conditional<sizeof(T) == 4, int32_t, int64_t>::type;
        using U = typename std::make_unsigned<S>::type;
        S xs, ls;
        std::memcpy(&xs, &x, sizeof(T));
        std::memcpy(&ls, &l, sizeof(T));
        bool below, beyond;
        if (ls >= 0) {
            below = xs < ls;
            beyond = xs > ls;
        } else {
            below = U(xs) > U(ls);
            beyond = U(xs) < U(ls);
        }
        return (above ? beyond : below) ? l : x;
    }
    if (std::isnan(x) || std::isnan(l)) return l;
    if (above) return x < l ? x : l;
    return x > l ? x : l;
}

template <typename T>
T ModelRealReplace(bool above, T x, T l, T v) {
    return (above ? x > l : x < l) ? v : x;
}

// Complex floats: squared magnitude in double against the squared level.
template <typename C>
C ModelComplexLimit(bool above, bool inPlace, C x, double l) {
    using R = decltype(C::re);
    const double p = double(x.re) * double(x.re) + double(x.im) * double(x.im);
    const double L = l * l;
    C r = x;
    if (above && p > L) {
        const double f = std::sqrt(L / p);
        r.re = R(double(x.re) * f);
        r.im = R(double(x.im) * f);
    } else if (!above && p < L) {
        if (p == 0) {
            r.re = R(l);
            r.im = inPlace ? x.im : R(0);
        } else {
            const double f = std::sqrt(L / p);
            r.re = R(double(x.re) * f);
            r.im = R(double(x.im) * f);
        }
    }
    return r;
}

template <typename C>
C ModelComplexReplace(bool above, C x, double l, C v) {
    const double p = double(x.re) * double(x.re) + double(x.im) * double(x.im);
    return (above ? p > l * l : p < l * l) ? v : x;
}

// Largest r with r * r <= q, by bisection on integers.
inline int64_t IntegerRoot(int64_t q) {
    int64_t lo = 0, hi = 3037000499;  // root of the largest int64
    while (lo < hi) {
        const int64_t mid = lo + (hi - lo + 1) / 2;
        if (mid * mid <= q) lo = mid;
        else hi = mid - 1;
    }
    return lo;
}

// Complex 16-bit: each part becomes the root of L * part^2 / p, rounded down
// twice (the division and the root), with its sign.
inline SigComplex16s ModelComplex16Limit(bool above, bool inPlace, SigComplex16s x, int16_t l) {
    const int64_t re2 = int64_t(x.re) * x.re, im2 = int64_t(x.im) * x.im;
    const int64_t p = re2 + im2;
    const int64_t L = int64_t(l) * l;
    if (above ? p <= L : p >= L) return x;
    if (!above && p == 0) return SigComplex16s{l, inPlace ? x.im : int16_t(0)};
    auto part = [&](int16_t v, int64_t sq) {
        const int64_t r = IntegerRoot(L * sq / p);
        return int16_t(v < 0 ? -r : r);
    };
    return SigComplex16s{part(x.re, re2), part(x.im, im2)};
}

inline SigComplex16s ModelComplex16Replace(bool above, SigComplex16s x, int16_t l, SigComplex16s v) {
    const uint32_t p = uint32_t(int32_t(x.re) * x.re) + uint32_t(int32_t(x.im) * x.im);
    const uint32_t L = uint32_t(int32_t(l) * l);
    return (above ? p > L : p < L) ? v : x;
}

// One model entry point per element type.
inline float Model(int tier, Kind k, bool, float x, float l, float v) {
    return Replaces(k) ? ModelRealReplace(Above(k), x, l, v) : ModelRealLimit(tier, Above(k), x, l);
}
inline double Model(int tier, Kind k, bool, double x, double l, double v) {
    return Replaces(k) ? ModelRealReplace(Above(k), x, l, v) : ModelRealLimit(tier, Above(k), x, l);
}
inline int16_t Model(int tier, Kind k, bool, int16_t x, int16_t l, int16_t v) {
    return Replaces(k) ? ModelRealReplace(Above(k), x, l, v) : ModelRealLimit(tier, Above(k), x, l);
}
inline SigComplex32f Model(int, Kind k, bool inPlace, SigComplex32f x, float l, SigComplex32f v) {
    return Replaces(k) ? ModelComplexReplace(Above(k), x, l, v) : ModelComplexLimit(Above(k), inPlace, x, l);
}
inline SigComplex64f Model(int, Kind k, bool inPlace, SigComplex64f x, double l, SigComplex64f v) {
    return Replaces(k) ? ModelComplexReplace(Above(k), x, l, v) : ModelComplexLimit(Above(k), inPlace, x, l);
}
inline SigComplex16s Model(int, Kind k, bool inPlace, SigComplex16s x, int16_t l, SigComplex16s v) {
    return Replaces(k) ? ModelComplex16Replace(Above(k), x, l, v) : ModelComplex16Limit(Above(k), inPlace, x, l);
}

}  // namespace signal_test

#endif

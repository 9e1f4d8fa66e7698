// Packed kernels of the real float members of tiers a6 and w7: the limits by
// packed minimum and maximum, and the replacement kinds by packed compare
// and select.  Single precision uses the first streaming extensions; the
// double precision limit of w7 uses 2-lane doubles.
//
// Without SSE2 the same operations run element by element in plain code.
// Every lane of the packed kernels is one element by itself, so that gives
// the same values: the packed minimum keeps x only where x < level (the
// level wins ties and not-a-number), the packed maximum only where
// x > level, and the replacement takes the value where x is strictly beyond
// the level (an unordered element stays).
#include "primitives/signal/threshold_kernels.h"
#include "primitives/vector_build.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>
#endif

namespace pixmoor {
namespace signal {

namespace {
#ifdef PIXMOOR_HAVE_SSE2
// Loads, stores and lane count of one register of T.
template <typename T> struct Lanes;
template <> struct Lanes<float> {
    using V = __m128;
    static constexpr int32_t kCount = 4;
    static V Set1(float x) { return _mm_set1_ps(x); }
    static V Single(float x) { return _mm_set_ss(x); }
    static float First(V v) { return _mm_cvtss_f32(v); }
    static V Load(const float* p, bool aligned) { return aligned ? _mm_load_ps(p) : _mm_loadu_ps(p); }
    static void Store(float* p, V v, bool aligned) { aligned ? _mm_store_ps(p, v) : _mm_storeu_ps(p, v); }
    static V Min(V a, V b) { return _mm_min_ps(a, b); }
    static V Max(V a, V b) { return _mm_max_ps(a, b); }
};
template <> struct Lanes<double> {
    using V = __m128d;
    static constexpr int32_t kCount = 2;
    static V Set1(double x) { return _mm_set1_pd(x); }
    static V Single(double x) { return _mm_set_sd(x); }
    static double First(V v) { return _mm_cvtsd_f64(v); }
    static V Load(const double* p, bool aligned) { return aligned ? _mm_load_pd(p) : _mm_loadu_pd(p); }
    static void Store(double* p, V v, bool aligned) { aligned ? _mm_store_pd(p, v) : _mm_storeu_pd(p, v); }
    static V Min(V a, V b) { return _mm_min_pd(a, b); }
    static V Max(V a, V b) { return _mm_max_pd(a, b); }
};

// The level is the second operand of the minimum and maximum: it wins ties
// and not-a-number lanes.
template <typename T, bool kAbove>
struct PackedLimit {
    typename Lanes<T>::V level;
    typename Lanes<T>::V operator()(typename Lanes<T>::V x) const {
        return kAbove ? Lanes<T>::Min(x, level) : Lanes<T>::Max(x, level);
    }
};

// Lanes strictly beyond the level take the value; unordered lanes stay.
template <bool kAbove>
struct PackedReplace {
    __m128 level;
    __m128 value;
    __m128 operator()(__m128 x) const {
        const __m128 beyond = kAbove ? _mm_cmpgt_ps(x, level) : _mm_cmplt_ps(x, level);
        return _mm_or_ps(_mm_and_ps(beyond, value), _mm_andnot_ps(beyond, x));
    }
};

template <typename T, typename Op>
inline void ApplyOne(const T* src, T* dst, int32_t i, const Op& op) {
    StoreAt(dst, i, Lanes<T>::First(op(Lanes<T>::Single(LoadAt<T>(src, i)))));
}

// Rounds of 32 bytes (two registers) from element i; returns where they end.
template <typename T, typename Op>
int32_t ApplyRounds(const T* src, T* dst, int32_t i, int32_t n, const Op& op, bool alignedLoads,
                    bool alignedStores) {
    using L = Lanes<T>;
    constexpr int32_t kRound = 2 * L::kCount;
    for (; n - i >= kRound; i += kRound) {
        if (alignedStores) _mm_prefetch(reinterpret_cast<const char*>(src + i) + 64, _MM_HINT_NTA);
        const typename L::V a = L::Load(src + i, alignedLoads);
        const typename L::V b = L::Load(src + i + L::kCount, alignedLoads);
        L::Store(dst + i, op(a), alignedStores);
        L::Store(dst + i + L::kCount, op(b), alignedStores);
    }
    return i;
}

// When both vectors are aligned to their element: single steps until the
// destination reaches a 32-byte boundary, aligned stores, and a prefetch 64
// bytes ahead of the source; otherwise unaligned accesses from the first
// element.  The rest goes one by one through the same operation.
template <typename T, typename Op>
void ApplyPacked(const T* src, T* dst, int32_t n, const Op& op) {
    int32_t i = 0;
    if (IsAligned(src, sizeof(T)) && IsAligned(dst, sizeof(T))) {
        for (; i < n && !IsAligned(dst + i, 32); ++i) ApplyOne(src, dst, i, op);
        i = ApplyRounds(src, dst, i, n, op, IsAligned(src + i, 16), true);
    } else {
        i = ApplyRounds(src, dst, i, n, op, false, false);
    }
    for (; i < n; ++i) ApplyOne(src, dst, i, op);
}

template <typename T>
void Limit(const T* src, T* dst, int32_t n, T level, bool above) {
    const typename Lanes<T>::V l = Lanes<T>::Set1(level);
    if (above) ApplyPacked(src, dst, n, PackedLimit<T, true>{l});
    else ApplyPacked(src, dst, n, PackedLimit<T, false>{l});
}

void Replace(const float* src, float* dst, int32_t n, float level, float value, bool above) {
    const __m128 l = _mm_set1_ps(level);
    const __m128 v = _mm_set1_ps(value);
    if (above) ApplyPacked(src, dst, n, PackedReplace<true>{l, v});
    else ApplyPacked(src, dst, n, PackedReplace<false>{l, v});
}
#else
template <typename T>
void Limit(const T* src, T* dst, int32_t n, T level, bool above) {
    if (above) ApplyEach(src, dst, n, [level](T x) { return x < level ? x : level; });
    else ApplyEach(src, dst, n, [level](T x) { return x > level ? x : level; });
}

void Replace(const float* src, float* dst, int32_t n, float level, float value, bool above) {
    if (above) ApplyEach(src, dst, n, [level, value](float x) { return x > level ? value : x; });
    else ApplyEach(src, dst, n, [level, value](float x) { return x < level ? value : x; });
}
#endif
}  // namespace

void MinMaxLimit32f(const float* src, float* dst, int32_t n, float level, bool above) {
    Limit(src, dst, n, level, above);
}

void MinMaxLimit64f(const double* src, double* dst, int32_t n, double level, bool above) {
    Limit(src, dst, n, level, above);
}

void PackedReplace32f(const float* src, float* dst, int32_t n, float level, float value, bool above) {
    Replace(src, dst, n, level, value, above);
}

}  // namespace signal
}  // namespace pixmoor

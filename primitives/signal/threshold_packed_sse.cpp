// Packed kernels of the real float members of tiers a6 and w7: the limits by
// packed minimum and maximum, and the replacement kinds by packed compare
// and select.
#include <xmmintrin.h>

#include "primitives/signal/threshold_kernels.h"

namespace pixmoor {
namespace signal {

namespace {
// The level is the second operand of the minimum and maximum: it wins ties
// and not-a-number lanes.
struct PackedMin {
    __m128 level;
    __m128 operator()(__m128 x) const { return _mm_min_ps(x, level); }
};
struct PackedMax {
    __m128 level;
    __m128 operator()(__m128 x) const { return _mm_max_ps(x, level); }
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

template <typename Op>
inline void ApplyOne(const float* src, float* dst, int32_t i, const Op& op) {
    StoreAt(dst, i, _mm_cvtss_f32(op(_mm_set_ss(LoadAt<float>(src, i)))));
}

template <bool kAlignedLoads, bool kAlignedStores, typename Op>
int32_t ApplyRounds(const float* src, float* dst, int32_t i, int32_t n, const Op& op) {
    for (; n - i >= 8; i += 8) {
        if (kAlignedStores) _mm_prefetch(reinterpret_cast<const char*>(src + i) + 64, _MM_HINT_NTA);
        const __m128 a = kAlignedLoads ? _mm_load_ps(src + i) : _mm_loadu_ps(src + i);
        const __m128 b = kAlignedLoads ? _mm_load_ps(src + i + 4) : _mm_loadu_ps(src + i + 4);
        if (kAlignedStores) {
            _mm_store_ps(dst + i, op(a));
            _mm_store_ps(dst + i + 4, op(b));
        } else {
            _mm_storeu_ps(dst + i, op(a));
            _mm_storeu_ps(dst + i + 4, op(b));
        }
    }
    return i;
}

// Eight floats a round.  When both vectors are 4-byte aligned: single steps
// until the destination reaches a 32-byte boundary, aligned stores, and a
// prefetch 64 bytes ahead of the source; otherwise unaligned accesses from
// the first element.  The rest goes one by one through the same operation.
template <typename Op>
void ApplyPacked(const float* src, float* dst, int32_t n, const Op& op) {
    int32_t i = 0;
    if (IsAligned(src, 4) && IsAligned(dst, 4)) {
        for (; i < n && !IsAligned(dst + i, 32); ++i) ApplyOne(src, dst, i, op);
        i = IsAligned(src + i, 16) ? ApplyRounds<true, true>(src, dst, i, n, op)
                                   : ApplyRounds<false, true>(src, dst, i, n, op);
    } else {
        i = ApplyRounds<false, false>(src, dst, i, n, op);
    }
    for (; i < n; ++i) ApplyOne(src, dst, i, op);
}
}  // namespace

void MinMaxLimit32f(const float* src, float* dst, int32_t n, float level, bool above) {
    const __m128 l = _mm_set1_ps(level);
    if (above) ApplyPacked(src, dst, n, PackedMin{l});
    else ApplyPacked(src, dst, n, PackedMax{l});
}

void PackedReplace32f(const float* src, float* dst, int32_t n, float level, float value, bool above) {
    const __m128 l = _mm_set1_ps(level);
    const __m128 v = _mm_set1_ps(value);
    if (above) ApplyPacked(src, dst, n, PackedReplace<true>{l, v});
    else ApplyPacked(src, dst, n, PackedReplace<false>{l, v});
}

}  // namespace signal
}  // namespace pixmoor

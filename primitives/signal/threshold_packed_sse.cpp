// Packed minimum and maximum of the real float limits of tiers a6 and w7.
#include <xmmintrin.h>

#include "primitives/signal/threshold_kernels.h"

namespace pixmoor {
namespace signal {

namespace {
template <bool kAbove>
inline __m128 Limit(__m128 x, __m128 level) {
    // The level is the second operand: it wins ties and not-a-number lanes.
    return kAbove ? _mm_min_ps(x, level) : _mm_max_ps(x, level);
}

template <bool kAbove>
inline void LimitOne(const float* src, float* dst, int32_t i, __m128 level) {
    StoreAt(dst, i, _mm_cvtss_f32(Limit<kAbove>(_mm_set_ss(LoadAt<float>(src, i)), level)));
}

template <bool kAbove, bool kAlignedLoads, bool kAlignedStores>
int32_t LimitRounds(const float* src, float* dst, int32_t i, int32_t n, __m128 level) {
    for (; n - i >= 8; i += 8) {
        if (kAlignedStores) _mm_prefetch(reinterpret_cast<const char*>(src + i) + 64, _MM_HINT_NTA);
        const __m128 a = kAlignedLoads ? _mm_load_ps(src + i) : _mm_loadu_ps(src + i);
        const __m128 b = kAlignedLoads ? _mm_load_ps(src + i + 4) : _mm_loadu_ps(src + i + 4);
        if (kAlignedStores) {
            _mm_store_ps(dst + i, Limit<kAbove>(a, level));
            _mm_store_ps(dst + i + 4, Limit<kAbove>(b, level));
        } else {
            _mm_storeu_ps(dst + i, Limit<kAbove>(a, level));
            _mm_storeu_ps(dst + i + 4, Limit<kAbove>(b, level));
        }
    }
    return i;
}

template <bool kAbove>
void Run(const float* src, float* dst, int32_t n, float levelValue) {
    const __m128 level = _mm_set1_ps(levelValue);
    int32_t i = 0;
    if (IsAligned(src, 4) && IsAligned(dst, 4)) {
        for (; i < n && !IsAligned(dst + i, 32); ++i) LimitOne<kAbove>(src, dst, i, level);
        i = IsAligned(src + i, 16) ? LimitRounds<kAbove, true, true>(src, dst, i, n, level)
                                   : LimitRounds<kAbove, false, true>(src, dst, i, n, level);
    } else {
        i = LimitRounds<kAbove, false, false>(src, dst, i, n, level);
    }
    for (; i < n; ++i) LimitOne<kAbove>(src, dst, i, level);
}
}  // namespace

void MinMaxLimit32f(const float* src, float* dst, int32_t n, float level, bool above) {
    if (above) Run<true>(src, dst, n, level);
    else Run<false>(src, dst, n, level);
}

}  // namespace signal
}  // namespace pixmoor

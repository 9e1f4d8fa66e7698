// Four-lane single-precision row sums.  Each lane keeps its own column
// coordinate and sums in float; only the row totals pass to double.  For
// 8-bit images this departs from the reference once a row sum needs more
// than 24 bits, which the fast form accepts.
#include <emmintrin.h>
#include <xmmintrin.h>

#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {
namespace {

// All four lanes, or lane 0 alone with the other lanes kept.
struct FourLaneOps {
    static __m128 Add(__m128 a, __m128 b) { return _mm_add_ps(a, b); }
    static __m128 Mul(__m128 a, __m128 b) { return _mm_mul_ps(a, b); }
};
struct LaneZeroOps {
    static __m128 Add(__m128 a, __m128 b) { return _mm_add_ss(a, b); }
    static __m128 Mul(__m128 a, __m128 b) { return _mm_mul_ss(a, b); }
};

// Channel c of pixels i .. i+3, one in each lane.  One-channel rows convert
// four samples at once; interleaved rows gather.
template <typename T, int Channels, int Stride>
inline __m128 LoadQuad(const uint8_t* row, int32_t i, int c) {
    if constexpr (Channels == 1 && Stride == 1 && sizeof(T) == 1) {
        int32_t packed;
        std::memcpy(&packed, row + i, 4);
        const __m128i zero = _mm_setzero_si128();
        return _mm_cvtepi32_ps(_mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(packed), zero), zero));
    } else if constexpr (Channels == 1 && Stride == 1) {
        return _mm_loadu_ps(reinterpret_cast<const float*>(SampleAt<T, Stride>(row, i, 0)));
    } else {
        return _mm_set_ps(SampleAs<float, T, Stride>(row, i + 3, c), SampleAs<float, T, Stride>(row, i + 2, c),
                          SampleAs<float, T, Stride>(row, i + 1, c), SampleAs<float, T, Stride>(row, i, c));
    }
}

// The four lanes added in lane order, in single precision.
inline float LaneTotal(__m128 lanes) {
    float l[4];
    _mm_storeu_ps(l, lanes);
    float total = l[0] + l[1];
    total = total + l[2];
    return total + l[3];
}

template <typename T, int Channels, int Stride>
void FourLaneFloatRow(const uint8_t* row, int32_t width, double sums[3][4]) {
    constexpr uintptr_t kAlignMask = sizeof(T) == 1 ? 3 : 15;
    __m128 s[Channels][4];
    for (auto& channel : s)
        for (auto& lanes : channel) lanes = _mm_setzero_ps();
    __m128 x = _mm_setzero_ps();
    const __m128 one = _mm_set1_ps(1.0f);
    const __m128 four = _mm_set1_ps(4.0f);

    auto single = [&](int32_t i) {
        for (int c = 0; c < Channels; ++c)
            AddPixel<LaneZeroOps>(s[c], _mm_set_ss(SampleAs<float, T, Stride>(row, i, c)), x);
        x = _mm_add_ps(x, one);
    };

    // Single pixels until the source is aligned (bounded by the row: a pixel
    // size that never reaches the boundary sends the whole row this way).
    int32_t i = 0;
    while (i < width && (reinterpret_cast<uintptr_t>(SampleAt<T, Stride>(row, i, 0)) & kAlignMask) != 0) single(i++);

    x = _mm_add_ps(x, _mm_set_ps(3.0f, 2.0f, 1.0f, 0.0f));
    for (; width - i >= 4; i += 4) {
        if constexpr (sizeof(T) == 4) {
            // Non-temporal prefetch of the next 32 bytes; a hint only, it never faults.
            const uintptr_t ahead = reinterpret_cast<uintptr_t>(SampleAt<T, Stride>(row, i, 0)) + 32;
            _mm_prefetch(reinterpret_cast<const char*>(ahead), _MM_HINT_NTA);
        }
        for (int c = 0; c < Channels; ++c) AddPixel<FourLaneOps>(s[c], LoadQuad<T, Channels, Stride>(row, i, c), x);
        x = _mm_add_ps(x, four);
    }
    for (; i < width; ++i) single(i);

    for (int c = 0; c < Channels; ++c)
        for (int k = 0; k < 4; ++k) sums[c][k] = static_cast<double>(LaneTotal(s[c][k]));
}

}  // namespace

const RowSumsFn kFourLaneFloatRowSums[kMemberCount] = PIXMOOR_ROW_SUMS_TABLE(FourLaneFloatRow);

}  // namespace pixmoor::moments

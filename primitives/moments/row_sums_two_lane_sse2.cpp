// Two-lane double row sums: lane 0 takes the even and lane 1 the odd columns
// of each group of four pixels, each lane with its own column coordinate.
// The per-pixel products are those of the reference; only the order in which
// the sums are added differs.
#include <emmintrin.h>

#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {
namespace {

struct DoubleLaneOps {
    static __m128d Add(__m128d a, __m128d b) { return _mm_add_pd(a, b); }
    static __m128d Mul(__m128d a, __m128d b) { return _mm_mul_pd(a, b); }
};

// Channel c of pixels i .. i+3 as two lane pairs (i, i+1) and (i+2, i+3).
// One-channel rows convert four samples at once; interleaved rows gather.
template <typename T, int Channels, int Stride>
inline void LoadQuad(const uint8_t* row, int32_t i, int c, __m128d& low, __m128d& high) {
    if constexpr (Channels == 1 && Stride == 1 && sizeof(T) == 1) {
        int32_t packed;
        std::memcpy(&packed, row + i, 4);
        const __m128i zero = _mm_setzero_si128();
        const __m128i words = _mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(packed), zero), zero);
        low = _mm_cvtepi32_pd(words);
        high = _mm_cvtepi32_pd(_mm_shuffle_epi32(words, _MM_SHUFFLE(1, 0, 3, 2)));
    } else if constexpr (Channels == 1 && Stride == 1) {
        const __m128 samples = _mm_loadu_ps(reinterpret_cast<const float*>(SampleAt<T, Stride>(row, i, 0)));
        low = _mm_cvtps_pd(samples);
        high = _mm_cvtps_pd(_mm_movehl_ps(samples, samples));
    } else {
        low = _mm_set_pd(SampleAs<double, T, Stride>(row, i + 1, c), SampleAs<double, T, Stride>(row, i, c));
        high = _mm_set_pd(SampleAs<double, T, Stride>(row, i + 3, c), SampleAs<double, T, Stride>(row, i + 2, c));
    }
}

template <typename T, int Channels, int Stride>
void TwoLaneRow(const uint8_t* row, int32_t width, double sums[3][4]) {
    __m128d s[Channels][4];
    for (auto& channel : s)
        for (auto& lanes : channel) lanes = _mm_setzero_pd();
    __m128d x = _mm_set_pd(1.0, 0.0);
    const __m128d one = _mm_set1_pd(1.0);
    const __m128d two = _mm_set1_pd(2.0);

    // One pixel into lane 0; lane 1 adds zeros.
    auto single = [&](int32_t i) {
        for (int c = 0; c < Channels; ++c)
            AddPixel<DoubleLaneOps>(s[c], _mm_set_pd(0.0, SampleAs<double, T, Stride>(row, i, c)), x);
        x = _mm_add_pd(x, one);
    };
    auto quad = [&](int32_t i) {
        const __m128d xHigh = _mm_add_pd(x, two);
        for (int c = 0; c < Channels; ++c) {
            __m128d low, high;
            LoadQuad<T, Channels, Stride>(row, i, c, low, high);
            AddPixel<DoubleLaneOps>(s[c], low, x);
            AddPixel<DoubleLaneOps>(s[c], high, xHigh);
        }
        x = _mm_add_pd(xHigh, two);
    };

    int32_t i = 0;
    if constexpr (sizeof(T) == 4) {
        // Float rows start on a 16-byte boundary for the vector loop.
        while (i < width && (reinterpret_cast<uintptr_t>(SampleAt<T, Stride>(row, i, 0)) & 15) != 0) single(i++);
    }
    for (; width - i >= 4; i += 4) quad(i);
    for (; i < width; ++i) single(i);

    for (int c = 0; c < Channels; ++c)
        for (int k = 0; k < 4; ++k) {
            const __m128d total = _mm_add_sd(s[c][k], _mm_unpackhi_pd(s[c][k], s[c][k]));
            sums[c][k] = _mm_cvtsd_f64(total);
        }
}

}  // namespace

const RowSumsFn kTwoLaneRowSums[kMemberCount] = PIXMOOR_ROW_SUMS_TABLE(TwoLaneRow);

}  // namespace pixmoor::moments

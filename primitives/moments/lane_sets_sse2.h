// Lane sets in 128-bit vector registers: two double lanes and four float
// lanes, with the same interface as the plain lane sets (lane_sets_portable.h).
// One-channel rows load and convert four samples at once; interleaved rows
// gather their channel.  PIXMOOR_MOMENTS_SSE2 says whether they exist; a
// build may set it to 0 to run the plain lane sets instead.
#ifndef PIXMOOR_PRIMITIVES_MOMENTS_LANE_SETS_SSE2_H
#define PIXMOOR_PRIMITIVES_MOMENTS_LANE_SETS_SSE2_H

#include "primitives/vector_build.h"

#ifndef PIXMOOR_MOMENTS_SSE2
#ifdef PIXMOOR_HAVE_SSE2
#define PIXMOOR_MOMENTS_SSE2 1
#else
#define PIXMOOR_MOMENTS_SSE2 0
#endif
#endif

#if PIXMOOR_MOMENTS_SSE2

#include <emmintrin.h>
#include <xmmintrin.h>

#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {

// Four bytes widened to four 32-bit integers.
inline __m128i WidenFourBytes(const uint8_t* at) {
    int32_t packed;
    std::memcpy(&packed, at, 4);
    const __m128i zero = _mm_setzero_si128();
    return _mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(packed), zero), zero);
}

inline __m128 LoadFourFloats(const uint8_t* at) { return _mm_loadu_ps(reinterpret_cast<const float*>(at)); }

struct DoubleLanesSse2 {
    using Scalar = double;
    using V = __m128d;
    static constexpr int kLanes = 2;

    static V Splat(double value) { return _mm_set1_pd(value); }
    static V Zero() { return _mm_setzero_pd(); }
    static V Ramp() { return _mm_set_pd(1.0, 0.0); }
    static V Low(double value) { return _mm_set_sd(value); }
    struct All {
        static V Add(V a, V b) { return _mm_add_pd(a, b); }
        static V Mul(V a, V b) { return _mm_mul_pd(a, b); }
    };
    struct Lane0 {
        static V Add(V a, V b) { return _mm_add_sd(a, b); }
        static V Mul(V a, V b) { return _mm_mul_sd(a, b); }
    };
    static void Store(double* out, V v) { _mm_storeu_pd(out, v); }

    // Pixels i, i+1 into out[0] and i+2, i+3 into out[1].
    template <typename T, int Channels, int Stride>
    static void Load(const uint8_t* row, int32_t i, int c, V out[2]) {
        if constexpr (Channels == 1 && Stride == 1 && sizeof(T) == 1) {
            const __m128i words = WidenFourBytes(row + i);
            out[0] = _mm_cvtepi32_pd(words);
            out[1] = _mm_cvtepi32_pd(_mm_shuffle_epi32(words, _MM_SHUFFLE(1, 0, 3, 2)));
        } else if constexpr (Channels == 1 && Stride == 1) {
            const __m128 samples = LoadFourFloats(SampleAt<T, Stride>(row, i, 0));
            out[0] = _mm_cvtps_pd(samples);
            out[1] = _mm_cvtps_pd(_mm_movehl_ps(samples, samples));
        } else {
            out[0] = _mm_set_pd(SampleAs<double, T, Stride>(row, i + 1, c), SampleAs<double, T, Stride>(row, i, c));
            out[1] =
                _mm_set_pd(SampleAs<double, T, Stride>(row, i + 3, c), SampleAs<double, T, Stride>(row, i + 2, c));
        }
    }

    static void PrefetchAhead(const uint8_t* at) {
        _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(at) + 32), _MM_HINT_NTA);
    }
};

struct FloatLanesSse {
    using Scalar = float;
    using V = __m128;
    static constexpr int kLanes = 4;

    static V Splat(float value) { return _mm_set1_ps(value); }
    static V Zero() { return _mm_setzero_ps(); }
    static V Ramp() { return _mm_set_ps(3.0f, 2.0f, 1.0f, 0.0f); }
    static V Low(float value) { return _mm_set_ss(value); }
    struct All {
        static V Add(V a, V b) { return _mm_add_ps(a, b); }
        static V Mul(V a, V b) { return _mm_mul_ps(a, b); }
    };
    struct Lane0 {
        static V Add(V a, V b) { return _mm_add_ss(a, b); }
        static V Mul(V a, V b) { return _mm_mul_ss(a, b); }
    };
    static void Store(float* out, V v) { _mm_storeu_ps(out, v); }

    // Pixels i .. i+3, one in each lane.
    template <typename T, int Channels, int Stride>
    static void Load(const uint8_t* row, int32_t i, int c, V out[1]) {
        if constexpr (Channels == 1 && Stride == 1 && sizeof(T) == 1) {
            out[0] = _mm_cvtepi32_ps(WidenFourBytes(row + i));
        } else if constexpr (Channels == 1 && Stride == 1) {
            out[0] = LoadFourFloats(SampleAt<T, Stride>(row, i, 0));
        } else {
            out[0] = _mm_set_ps(SampleAs<float, T, Stride>(row, i + 3, c), SampleAs<float, T, Stride>(row, i + 2, c),
                                SampleAs<float, T, Stride>(row, i + 1, c), SampleAs<float, T, Stride>(row, i, c));
        }
    }

    static void PrefetchAhead(const uint8_t* at) {
        _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(at) + 32), _MM_HINT_NTA);
    }
};

}  // namespace pixmoor::moments

#endif

#endif

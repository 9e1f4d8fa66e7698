// The fast single precision sum of tiers a6 and w7 (hint 1).  Four 4-lane
// float accumulators take sixteen floats a round inside blocks of 32768
// elements, so that the single precision error of a block stays bounded; a
// double total collects the two values each block folds to.  Without SSE
// the four lanes are four floats in plain code, added lane by lane in the
// same order, which rounds every sum as the vector adds do.
#include <algorithm>
#include <cstring>

#include "primitives/signal/element_access.h"
#include "primitives/signal/sum_kernels.h"
#include "primitives/vector_build.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <xmmintrin.h>
#endif

namespace pixmoor {
namespace signal {

namespace {
constexpr int32_t kFastBlock = 0x8000;

#ifdef PIXMOOR_HAVE_SSE2
using Four = __m128;
inline Four Zero() { return _mm_setzero_ps(); }
inline Four Add(Four a, Four b) { return _mm_add_ps(a, b); }
inline Four LoadFour(const float* p, bool aligned) { return aligned ? _mm_load_ps(p) : _mm_loadu_ps(p); }
// Two floats into lanes 0 and 1, one float into lane 0; the others are 0.
inline Four LoadTwo(const float* p) { return _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(p)); }
inline Four LoadOne(float x) { return _mm_set_ss(x); }
// out[0] = lane0 + lane2, out[1] = lane1 + lane3.
inline void FoldHalves(Four a, float out[2]) {
    a = _mm_add_ps(a, _mm_movehl_ps(a, a));
    out[0] = _mm_cvtss_f32(a);
    out[1] = _mm_cvtss_f32(_mm_shuffle_ps(a, a, 1));
}
#else
struct Four {
    float lane[4];
};
inline Four Zero() { return Four{{0.0f, 0.0f, 0.0f, 0.0f}}; }
inline Four Add(Four a, Four b) {
    for (int k = 0; k < 4; ++k) a.lane[k] += b.lane[k];
    return a;
}
inline Four LoadFour(const float* p, bool) {
    Four f;
    std::memcpy(f.lane, p, sizeof f.lane);
    return f;
}
inline Four LoadTwo(const float* p) {
    Four f = Zero();
    std::memcpy(f.lane, p, 2 * sizeof(float));
    return f;
}
inline Four LoadOne(float x) { return Four{{x, 0.0f, 0.0f, 0.0f}}; }
inline void FoldHalves(Four a, float out[2]) {
    out[0] = a.lane[0] + a.lane[2];
    out[1] = a.lane[1] + a.lane[3];
}
#endif

// Sums `count` floats from `p`.  The four accumulators are joined, then the
// groups of four, two and one go into the first; its lanes fold to
// out[0] = lane0 + lane2 and out[1] = lane1 + lane3.
void FoldBlock(const float* p, int32_t count, bool aligned, float out[2]) {
    Four a0 = Zero();
    Four a1 = Zero();
    Four a2 = Zero();
    Four a3 = Zero();
    int32_t i = 0;
    for (; count - i >= 16; i += 16) {
        a0 = Add(a0, LoadFour(p + i, aligned));
        a1 = Add(a1, LoadFour(p + i + 4, aligned));
        a2 = Add(a2, LoadFour(p + i + 8, aligned));
        a3 = Add(a3, LoadFour(p + i + 12, aligned));
    }
    a0 = Add(Add(a0, a1), Add(a2, a3));
    for (; count - i >= 4; i += 4) a0 = Add(a0, LoadFour(p + i, aligned));
    if (count - i >= 2) {
        a0 = Add(a0, LoadTwo(p + i));
        i += 2;
    }
    if (i < count) a0 = Add(a0, LoadOne(LoadAt<float>(p, i)));
    FoldHalves(a0, out);
}

// Walks a vector of `n` elements of `width` floats: single elements into the
// totals until a 16-byte boundary (when the vector is aligned to its
// element), then whole blocks through FoldBlock.
void SumFast(const float* src, int32_t n, int32_t width, double* first, double* second) {
    const bool aligned = IsAligned(src, 4 * static_cast<uintptr_t>(width));
    int32_t i = 0;
    if (aligned) {
        for (; i < n && !IsAligned(src + ElementOffset(i, width), 16); ++i) {
            *first += static_cast<double>(LoadAt<float>(src, ElementOffset(i, width)));
            if (width == 2) *second += static_cast<double>(LoadAt<float>(src, ElementOffset(i, width) + 1));
        }
    }
    while (i < n) {
        const int32_t count = std::min(kFastBlock, n - i);
        float folded[2];
        FoldBlock(src + ElementOffset(i, width), count * width, aligned, folded);
        *first += static_cast<double>(folded[0]);
        *second += static_cast<double>(folded[1]);
        i += count;
    }
}
}  // namespace

double SumFast32f(const float* src, int32_t n) {
    // Both folded values go into the one total, the first lane pair first.
    double total = 0.0;
    double* const t = &total;
    SumFast(src, n, 1, t, t);
    return total;
}

void SumFast32fc(const float* src, int32_t n, double* re, double* im) {
    *re = 0.0;
    *im = 0.0;
    SumFast(src, n, 2, re, im);
}

}  // namespace signal
}  // namespace pixmoor

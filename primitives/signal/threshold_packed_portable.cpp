// The packed kernels of the real float members of tiers a6 and w7 in plain
// code, for processors without SSE2.  Every lane of the packed kernels is
// one element by itself, so element by element in any order gives the same
// values: the packed minimum keeps x only where x < level (the level wins
// ties and not-a-number), the packed maximum only where x > level, and the
// replacement takes the value where x is strictly beyond the level (an
// unordered element stays).
#include "primitives/signal/threshold_kernels.h"
#include "primitives/vector_build.h"

#ifndef PIXMOOR_HAVE_SSE2

namespace pixmoor {
namespace signal {

namespace {
template <typename T>
void Limit(const T* src, T* dst, int32_t n, T level, bool above) {
    if (above) ApplyEach(src, dst, n, [level](T x) { return x < level ? x : level; });
    else ApplyEach(src, dst, n, [level](T x) { return x > level ? x : level; });
}
}  // namespace

void MinMaxLimit32f(const float* src, float* dst, int32_t n, float level, bool above) {
    Limit(src, dst, n, level, above);
}

void MinMaxLimit64f(const double* src, double* dst, int32_t n, double level, bool above) {
    Limit(src, dst, n, level, above);
}

void PackedReplace32f(const float* src, float* dst, int32_t n, float level, float value, bool above) {
    if (above) ApplyEach(src, dst, n, [level, value](float x) { return x > level ? value : x; });
    else ApplyEach(src, dst, n, [level, value](float x) { return x < level ? value : x; });
}

}  // namespace signal
}  // namespace pixmoor

#endif

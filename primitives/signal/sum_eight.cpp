// The eight-accumulator plan of the m6 tier, which a6 and w7 also follow for
// every hint but the fast one.  Each accumulator adds its elements in order;
// the join order is fixed, so every tier that uses the plan gives the same
// bits.
#include "primitives/signal/element_access.h"
#include "primitives/signal/sum_kernels.h"

namespace pixmoor {
namespace signal {

namespace {
template <typename T>
double EightPlan(const T* src, int32_t n, int32_t stride) {
    double acc[8] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    const std::ptrdiff_t step = stride;
    int32_t i = 0;
    for (; n - i >= 8; i += 8)
        for (int k = 0; k < 8; ++k) acc[k] += static_cast<double>(LoadAt<T>(src, (i + k) * step));
    // The accumulator used last in a round takes the rest.
    for (; i < n; ++i) acc[7] += static_cast<double>(LoadAt<T>(src, i * step));
    return JoinEight(acc);
}
}  // namespace

double SumEightPlan32f(const float* src, int32_t n, int32_t stride) { return EightPlan(src, n, stride); }
double SumEightPlan64f(const double* src, int32_t n, int32_t stride) { return EightPlan(src, n, stride); }

}  // namespace signal
}  // namespace pixmoor

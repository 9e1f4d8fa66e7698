// Sum plans of the plain tier: two accumulators for the real forms, one
// running total per part for complex floats, and the exact integer blocks
// that every tier but w7 uses.
#include "primitives/signal/element_access.h"
#include "primitives/signal/sum_kernels.h"

namespace pixmoor {
namespace signal {

namespace {
// The even and odd accumulators over the whole groups of four, which the
// main loop takes twelve and then four at a time; splitting at even
// positions keeps every element in the same accumulator either way.
template <typename T>
int32_t AddPairs(const T* src, int32_t n, double* even, double* odd) {
    const int32_t whole = n & ~3;
    double a0 = 0.0;
    double a1 = 0.0;
    for (int32_t i = 0; i < whole; i += 2) {
        a0 += static_cast<double>(LoadAt<T>(src, i));
        a1 += static_cast<double>(LoadAt<T>(src, i + 1));
    }
    *even = a0;
    *odd = a1;
    return whole;
}
}  // namespace

double SumPairPlan32f(const float* src, int32_t n) {
    double even, odd;
    int32_t i = AddPairs(src, n, &even, &odd);
    double total = even + odd;
    for (; i < n; ++i) total += static_cast<double>(LoadAt<float>(src, i));
    return total;
}

double SumPairPlan64f(const double* src, int32_t n) {
    double even, odd;
    int32_t i = AddPairs(src, n, &even, &odd);
    for (; i < n; ++i) even += LoadAt<double>(src, i);
    return even + odd;
}

double SumRunning32f(const float* src, int32_t n, int32_t stride) {
    double total = 0.0;
    for (int32_t i = 0; i < n; ++i) total += static_cast<double>(LoadAt<float>(src, static_cast<std::ptrdiff_t>(i) * stride));
    return total;
}

int64_t SumExact16s(const int16_t* src, int32_t n, int32_t stride) {
    // 65536 samples of at most 32768 in size fit a signed 32-bit sum.
    constexpr int32_t kBlock = 0x10000;
    int64_t total = 0;
    for (int32_t start = 0; start < n; start += kBlock) {
        const int32_t end = n - start > kBlock ? start + kBlock : n;
        int32_t a0 = 0;
        int32_t a1 = 0;
        int32_t i = start;
        for (; i + 1 < end; i += 2) {
            a0 += LoadAt<int16_t>(src, static_cast<std::ptrdiff_t>(i) * stride);
            a1 += LoadAt<int16_t>(src, static_cast<std::ptrdiff_t>(i + 1) * stride);
        }
        if (i < end) a0 += LoadAt<int16_t>(src, static_cast<std::ptrdiff_t>(i) * stride);
        // The block's sum still fits 32 bits; it is widened only to join
        // the 64-bit total.
        total += static_cast<int64_t>(a0 + a1);
    }
    return total;
}

}  // namespace signal
}  // namespace pixmoor

// Row kernels of the sum members.  Each returns the unrounded total of the
// plan that its tier follows; the wrappers round it once on the store.
#ifndef PIXMOOR_PRIMITIVES_SIGNAL_SUM_KERNELS_H
#define PIXMOOR_PRIMITIVES_SIGNAL_SUM_KERNELS_H

#include <cstdint>

namespace pixmoor {
namespace signal {

// Plain tier.  Two accumulators take the even and the odd positions of every
// whole group of four; the float form joins them before the last (at most
// three) elements, the double form adds those to the even one first.
double SumPairPlan32f(const float* src, int32_t n);
double SumPairPlan64f(const double* src, int32_t n);
// One running total over every stride-th float (one part of a complex vector).
double SumRunning32f(const float* src, int32_t n, int32_t stride);

// Eight accumulators in rotation, the tail into the eighth, joined in a fixed
// order.  `stride` is 1 for real vectors and 2 for one part of a complex one.
double SumEightPlan32f(const float* src, int32_t n, int32_t stride);
double SumEightPlan64f(const double* src, int32_t n, int32_t stride);
// The fixed joining order of eight accumulators a1..a8 (acc[0]..acc[7]).
inline double JoinEight(const double acc[8]) {
    return (acc[7] + acc[2] + (acc[4] + acc[0])) + (acc[5] + acc[1] + (acc[3] + acc[6]));
}

// The fast single precision form: blocks of 32768 elements in 4-lane float
// accumulators, each block folded to two floats that a double total collects.
// The complex form folds the lanes to a real and an imaginary value.
double SumFast32f(const float* src, int32_t n);
void SumFast32fc(const float* src, int32_t n, double* re, double* im);

// Packed double lanes, eight elements a round after one step to a 16-byte
// boundary.
double SumPacked64f(const double* src, int32_t n);

// Exact sums of 16-bit samples, in 32-bit blocks of 65536 collected in 64
// bits.  `stride` is 1 for real vectors and 2 for one part of a complex one.
int64_t SumExact16s(const int16_t* src, int32_t n, int32_t stride);
// The packed form: both totals at once for a complex vector (`complex` set,
// n complex elements), or the real total in totals[0].
void SumExact16sPacked(const int16_t* src, int32_t n, bool complex, int64_t totals[2]);

// Scale factor with round to nearest even, then saturation to 32 bits.
int32_t ScaleSum(int64_t total, int32_t scaleFactor);

}  // namespace signal
}  // namespace pixmoor

#endif

// Row kernels of the threshold family: one driver that applies an element
// operation along a vector (in place when source and destination are the
// same), and the packed kernel of the real float limits of tiers a6 and w7.
#ifndef PIXMOOR_PRIMITIVES_SIGNAL_THRESHOLD_KERNELS_H
#define PIXMOOR_PRIMITIVES_SIGNAL_THRESHOLD_KERNELS_H

#include <cstdint>

#include "primitives/signal/element_access.h"

namespace pixmoor {
namespace signal {

template <typename Elem, typename Op>
void ApplyEach(const Elem* src, Elem* dst, int32_t n, const Op& op) {
    for (int32_t i = 0; i < n; ++i) StoreAt(dst, i, op(LoadAt<Elem>(src, i)));
}

// Packed kernels of the real float members of tiers a6 and w7, 32 bytes a
// round: when both vectors are aligned to their element, single steps until the
// destination reaches a 32-byte boundary, then aligned stores with a
// prefetch 64 bytes ahead of the source; otherwise unaligned accesses from
// the first element.  The rest goes one by one through the same operation.
// Packed minimum (`above` set) or maximum against the level:
void MinMaxLimit32f(const float* src, float* dst, int32_t n, float level, bool above);
// The same in 2-lane doubles, for w7 (a6 has no packed doubles):
void MinMaxLimit64f(const double* src, double* dst, int32_t n, double level, bool above);
// The value for samples strictly beyond the level:
void PackedReplace32f(const float* src, float* dst, int32_t n, float level, float value, bool above);

}  // namespace signal
}  // namespace pixmoor

#endif

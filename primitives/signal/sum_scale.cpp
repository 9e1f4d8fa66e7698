// Scale factor of the integer sums: a right shift with round to nearest and
// ties to even for positive factors, then saturation to 32 bits, and a left
// shift with saturation for negative factors.
#include <cstdint>

#include "primitives/signal/sum_kernels.h"

namespace pixmoor {
namespace signal {

int32_t ScaleSum(int64_t total, int32_t scaleFactor) {
    if (scaleFactor > 0) {
        // A 64-bit total of 16-bit samples has fewer than 48 magnitude bits.
        if (scaleFactor >= 49) return 0;
        const int64_t half = (int64_t{1} << (scaleFactor - 1)) - 1;
        const int64_t odd = (total >> scaleFactor) & 1;
        total = (total + half + odd) >> scaleFactor;
    }
    int32_t value;
    if (total > INT32_MAX) value = INT32_MAX;
    else if (total < INT32_MIN) value = INT32_MIN;
    else value = static_cast<int32_t>(total);
    if (scaleFactor >= 0 || value == 0) return value;

    const int64_t shift = -static_cast<int64_t>(scaleFactor);
    if (shift >= 32) return value > 0 ? INT32_MAX : INT32_MIN;
    if (value > (INT32_MAX >> shift)) return INT32_MAX;
    if (value < (INT32_MIN >> shift)) return INT32_MIN;
    return static_cast<int32_t>(static_cast<uint32_t>(value) << shift);
}

}  // namespace signal
}  // namespace pixmoor

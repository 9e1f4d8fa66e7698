// The step of the outermost loop of an exhaustive sweep (all 2^24 colours,
// all triples).  1, every value, unless the environment variable
// PIXMOOR_SWEEP_STRIDE asks for every n-th: a run under emulation does, to
// stay within its time budget.  A stride that divides 255 (3, 5, 15, 17)
// keeps both ends, 0 and 255, of a loop over one channel.
#ifndef PIXMOOR_TESTS_SUPPORT_SWEEP_STRIDE_H
#define PIXMOOR_TESTS_SUPPORT_SWEEP_STRIDE_H

#include <cstdlib>

namespace pixmoor_test {

inline int SweepStride() {
    static const int stride = [] {
        const char* text = std::getenv("PIXMOOR_SWEEP_STRIDE");
        const int value = text != nullptr ? std::atoi(text) : 1;
        return value > 1 ? value : 1;
    }();
    return stride;
}

}  // namespace pixmoor_test

#endif

// Helpers shared by the size transform tests: owning handles, a scalar model
// of the scaler's error accumulator and byte-exact line arithmetic.
#ifndef PIXMOOR_TESTS_SIZE_SIZE_TEST_SUPPORT_H
#define PIXMOOR_TESTS_SIZE_SIZE_TEST_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <pixmoor/size.h>

#include "guarded_buffer.h"
#include "size/size_xform_internals.h"

namespace size_test {

using pixmoor_test::GuardedBuffer;
using X = SizeXFormInternals;
using Frame = std::vector<uint8_t>;

using Transform = std::unique_ptr<CSizeXForm>;

// A byte count from a signed size; negative counts as none.
inline size_t Bytes(int32_t n) { return n > 0 ? static_cast<size_t>(n) : 0; }

inline Transform Make(uint32_t fourcc, uint32_t bits) { return Transform(CSizeXForm::CreateInstance(fourcc, bits)); }

// Bytes of a padded RGB line, reckoned here independently of the library.
inline int32_t PaddedLine(int32_t width, int32_t bytesPerPixel) { return (width * bytesPerPixel + 3) / 4 * 4; }

// 2000 times the ratio of input to output: 1 / (out / in) * 2000, in double
// precision, truncated toward zero.
inline int32_t AccumulatorStep(int32_t inLen, int32_t outLen) {
    const double ratio = static_cast<double>(outLen) / static_cast<double>(inLen);
    return static_cast<int32_t>((1.0 / ratio) * 2000.0);
}

// Nearest-neighbour selection by the error accumulator, item by item: each
// input item weighs 2000; an item is shown while the error, less 2000, is
// negative, and shown again while adding the step keeps it negative.
struct Selection {
    std::vector<int32_t> shown;  // for each output item, the input item it shows
    int32_t unconsumed = 0;      // input items never reached
};

inline Selection SelectByAccumulator(int32_t inLen, int32_t outLen, int32_t step) {
    Selection s;
    int64_t error = 0;
    int32_t item = 0;
    auto full = [&] { return static_cast<int32_t>(s.shown.size()) >= outLen; };
    while (item < inLen && !full()) {
        error -= 2000;
        if (error < 0) {
            s.shown.push_back(item);
            error += step;
            while (error < 0 && !full()) {
                s.shown.push_back(item);
                error += step;
            }
        }
        ++item;
    }
    s.unconsumed = inLen - item;
    return s;
}

}  // namespace size_test

#endif

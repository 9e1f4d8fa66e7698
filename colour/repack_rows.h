// The byte loop that turns a tight picture of 3-byte pixels (blue, green,
// red) into rows of another RGB format, one pixel at a time.  Shared by the
// roads that repack a caller's "RG24" frame and by the planar roads that
// expand or pack the primitive's intermediate picture.
#ifndef PIXMOOR_COLOUR_REPACK_ROWS_H
#define PIXMOOR_COLOUR_REPACK_ROWS_H

#include <cstdint>

#include "colour/fast_rows.h"
#include "geometry/wrapping.h"

namespace pixmoor {

// Writes `height` rows of `width` pixels through Store, reading the source
// without gaps, and moves `gap` bytes on (or back) after each written row.
// Both loops count down and test at the end of a round, so a count of 0
// still runs one round: a picture of zero size writes one pixel.  Whole
// vector blocks of a row go first where the processor has them.
template <class Store>
void RepackBgrRows(const uint8_t* src, uint8_t* out, int32_t width, int32_t height, int32_t gap) {
    // Rows that follow one another without a gap are one long row to these
    // loops: the same stores in the same order, one vector call a picture.
    if (gap == 0 && width > 0 && height > 1 && int64_t{width} * height <= INT32_MAX) {
        width *= height;
        height = 1;
    }
    const int32_t rowPixels = width > 1 ? width : 1;
    const RepackRowKernel fast = FastRepackRow(Store::kKind);
    int32_t rowsLeft = height;
    do {
        const int32_t done = fast != nullptr ? fast(src, out, rowPixels) : 0;
        src += 3 * done;
        out += Store::kBytes * done;
        for (int32_t pixelsLeft = rowPixels - done; pixelsLeft > 0; --pixelsLeft) {
            Store::Put(out, src[0], src[1], src[2]);
            src += 3;
            out += Store::kBytes;
        }
        out = Step(out, gap);
    } while (--rowsLeft > 0);
}

}  // namespace pixmoor

#endif

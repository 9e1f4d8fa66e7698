// The scalar model of the mirror members, written from their contract:
// where each pixel lands, which bytes of it move, and how lines are walked.
#ifndef PIXMOOR_TESTS_MIRROR_MODEL_H
#define PIXMOOR_TESTS_MIRROR_MODEL_H

#include <cstdint>
#include <cstring>

#include "mirror_members.h"

namespace mirror_test {

struct Geometry {
    int32_t width, height, axis;
};

// Row and column of the source pixel that lands on (row, column).
inline void SourceOf(const Geometry& g, int32_t row, int32_t column, int32_t* fromRow, int32_t* fromColumn) {
    *fromRow = g.axis == 1 ? row : g.height - 1 - row;
    *fromColumn = g.axis == 0 ? column : g.width - 1 - column;
}

// To a destination: every destination pixel receives the moved bytes of its
// source pixel; everything else of the destination stays.
inline void ModelToDestination(const Member& m, const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                               const Geometry& g) {
    const int32_t fromStep = srcStep & m.stepMask();
    const int32_t toStep = dstStep & m.stepMask();
    for (int32_t row = 0; row < g.height; ++row)
        for (int32_t column = 0; column < g.width; ++column) {
            int32_t r, c;
            SourceOf(g, row, column, &r, &c);
            std::memcpy(dst + static_cast<int64_t>(row) * toStep + column * m.pixelBytes(),
                        src + static_cast<int64_t>(r) * fromStep + c * m.pixelBytes(), m.movedBytes());
        }
}

// In place: the same, read from a copy of the image taken before the call;
// each pixel keeps its own alpha.
inline void ModelInPlace(const Member& m, const uint8_t* before, uint8_t* image, int32_t step, const Geometry& g) {
    ModelToDestination(m, before, step, image, step, g);
}

}  // namespace mirror_test

#endif

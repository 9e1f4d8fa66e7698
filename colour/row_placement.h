// Where the rows of an RGB destination go, for the scalar roads that write
// one row after the other and honour a destination pitch with a default.
#ifndef PIXMOOR_COLOUR_ROW_PLACEMENT_H
#define PIXMOOR_COLOUR_ROW_PLACEMENT_H

#include <cstdint>

#include "geometry/wrapping.h"

namespace pixmoor {

// The first row's start, and the step from the end of a written row (the
// start plus lineSize) to the start of the next one.
struct RowPlacement {
    uint8_t* start;
    int32_t gap;
};

// With P the pitch (lineSize when destPitch is 0): unflipped, rows go down
// from the destination's first byte, P apart; flipped, the first row goes to
// row H-1 and each next row P bytes before the previous one.
inline RowPlacement PlaceRows(uint8_t* dst, uint32_t destPitch, int32_t lineSize, int32_t height, bool flip) {
    const int32_t pitch = destPitch != 0 ? static_cast<int32_t>(destPitch) : lineSize;
    if (flip) return RowPlacement{Step(dst, WrapMul(WrapSub(height, 1), pitch)), WrapSub(0, WrapAdd(lineSize, pitch))};
    return RowPlacement{dst, WrapSub(pitch, lineSize)};
}

}  // namespace pixmoor

#endif

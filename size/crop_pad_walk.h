// The walk of crop and pad through the three planes, written once and
// compiled in each unit that moves the bytes its own way.
//
// The including unit defines PIXMOOR_CROP_PAD_TARGET (the function attribute
// of its instruction set, or nothing) and, before including, the two movers
//   CopyBytes(dst, src, bytes)   bytes above 0 copied
//   ZeroBytes(dst, bytes)        bytes above 0 set to zero
// Everything here stays local to the including unit.
#ifndef PIXMOOR_SIZE_CROP_PAD_WALK_H
#define PIXMOOR_SIZE_CROP_PAD_WALK_H

#include <cstdint>

#include "geometry/wrapping.h"
#include "size/i420_crop_pad.h"

namespace {

// A margin: zero fill when there is padding, otherwise a skip of the source.
PIXMOOR_CROP_PAD_TARGET inline void WalkMargin(int32_t padBytes, int32_t skipBytes, const uint8_t*& src,
                                               uint8_t*& dst) {
    if (padBytes > 0) {
        ZeroBytes(dst, padBytes);
        dst = pixmoor::Step(dst, padBytes);
    } else {
        src = pixmoor::Step(src, skipBytes);
    }
}

PIXMOOR_CROP_PAD_TARGET inline void WalkStrip(const PlaneStrip& s, const uint8_t*& src, uint8_t*& dst) {
    WalkMargin(s.topPadBytes, s.topSkipBytes, src, dst);
    for (int32_t row = 0; row < s.rows; ++row) {
        WalkMargin(s.leftPadBytes, s.leftSkipBytes, src, dst);
        if (s.copyBytes > 0) CopyBytes(dst, src, s.copyBytes);
        src = pixmoor::Step(src, s.copyBytes);
        dst = pixmoor::Step(dst, s.copyBytes);
        WalkMargin(s.leftPadBytes, s.leftSkipBytes, src, dst);
    }
    WalkMargin(s.topPadBytes, s.topSkipBytes, src, dst);
}

// The three strips in order, source and destination running on from one
// plane to the next.
PIXMOOR_CROP_PAD_TARGET void WalkStrips(const PlaneStrip* strips, int32_t count, const uint8_t* src, uint8_t* dst) {
    for (int32_t plane = 0; plane < count; ++plane) WalkStrip(strips[plane], src, dst);
}

}  // namespace

#endif

// The inverse 4:2:0 conversion of each tier written straight into 4-byte
// pixels: the three channels in the order ImgYUV420ToRGB writes them, then
// a zero byte.  Every pixel gets the bytes that the tier's ImgYUV420ToRGB
// gives it, odd last column and line included, so a caller that would
// convert into a 3-byte picture and then widen each pixel to four bytes can
// take this single pass instead.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_RGB0_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_RGB0_H

#include <pixmoor/runtime.h>

#include <cstdint>

#include "primitives/colour/image_layouts.h"

namespace pixmoor::colour {

// `tier` is px, m6, a6 or w7; the planes are compact (the steps
// ImgYUV420ToRGB derives from the width), rows of the output are `dstStep`
// bytes apart.  No argument is checked: the caller makes sure that
// ImgYUV420ToRGB would accept the same planes, size and a non-null output.
void Yuv420ToRgb0(PrimTier tier, const uint8_t* const planes[3], uint8_t* dst, int32_t dstStep, int32_t width,
                  int32_t height);

// One line pair of an even `width`, converted as Yuv420ToRgb0 converts it
// into the lines `top` and `bottom`, its samples (the two luma lines and
// the line of each chroma plane) also copied to `kept` on the way, for a
// caller that keeps the planes aside.
void Yuv420PairToRgb0Keeping(PrimTier tier, const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                             int32_t width, const Yuv420Lines<uint8_t>& kept);

}  // namespace pixmoor::colour

#endif

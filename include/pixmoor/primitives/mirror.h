/* Mirror primitives: turn an image about its horizontal axis, its vertical
   axis or both, to a destination or in place.  C linkage; compiles as C99 and
   as C++.

   Arguments are checked in this order, with the same codes in every member:
   a null pointer gives PrimStatusNullPointer, a step below 1
   PrimStatusStepError, a width or height below 1 PrimStatusSizeError, an
   axis other than the three below PrimStatusBadFlipMode; a failed check
   writes nothing.  Buffers are not tested for overlap, nor steps against the
   width.  The 16-bit members walk lines on the step rounded down to a
   multiple of 2, the 32-bit members on a multiple of 4.  AC4 members mirror
   three channels and never touch the fourth (alpha) of any pixel they
   write. */
#ifndef PIXMOOR_PRIMITIVES_MIRROR_H
#define PIXMOOR_PRIMITIVES_MIRROR_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

typedef PIXMOOR_ENUM(MirrorAxis) {
    MirrorHorizontalAxis = 0, /* reverses the order of the lines */
    MirrorVerticalAxis = 1,   /* reverses the pixels within each line */
    MirrorBothAxes = 2        /* both */
} MirrorAxis;

#define PIXMOOR_MIRROR_TO_DESTINATION(name, type)                                                   \
    PIXMOOR_TIERED(PrimStatus, name, (const type* src, int32_t srcStep, type* dst, int32_t dstStep, \
                                      int32_t width, int32_t height, MirrorAxis axis))
#define PIXMOOR_MIRROR_IN_PLACE(name, type) \
    PIXMOOR_TIERED(PrimStatus, name, (type* srcDst, int32_t step, int32_t width, int32_t height, MirrorAxis axis))

PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror8uC1, uint8_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror8uC3, uint8_t);   /* dispatch row 17 */
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror8uAC4, uint8_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror16uC1, uint16_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror16uC3, uint16_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror16uAC4, uint16_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror32sC1, int32_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror32sC3, int32_t);
PIXMOOR_MIRROR_TO_DESTINATION(ImgMirror32sAC4, int32_t);

PIXMOOR_MIRROR_IN_PLACE(ImgMirror8uC1I, uint8_t);
PIXMOOR_MIRROR_IN_PLACE(ImgMirror8uC3I, uint8_t);        /* dispatch row 16 */
PIXMOOR_MIRROR_IN_PLACE(ImgMirror8uAC4I, uint8_t);       /* dispatch row 18 */
PIXMOOR_MIRROR_IN_PLACE(ImgMirror16uC1I, uint16_t);
PIXMOOR_MIRROR_IN_PLACE(ImgMirror16uC3I, uint16_t);
PIXMOOR_MIRROR_IN_PLACE(ImgMirror16uAC4I, uint16_t);
PIXMOOR_MIRROR_IN_PLACE(ImgMirror32sC1I, int32_t);
PIXMOOR_MIRROR_IN_PLACE(ImgMirror32sC3I, int32_t);
PIXMOOR_MIRROR_IN_PLACE(ImgMirror32sAC4I, int32_t);

#undef PIXMOOR_MIRROR_TO_DESTINATION
#undef PIXMOOR_MIRROR_IN_PLACE

PIXMOOR_EXTERN_C_END

#endif

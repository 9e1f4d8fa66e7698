/* RGB to and from planar YUV 4:2:0, full range.  C linkage; compiles as C99
   and as C++.

   Planes are passed as arrays of three pointers in the order Y, U, V (or R,
   G, B), plane steps as arrays of three byte distances in the same order.
   The U and V planes of 4:2:0 hold ceil(width/2) samples a line and
   ceil(height/2) lines.  The compact forms derive their steps: 3 * width for
   packed RGB, width for a full-size plane, ceil(width/2) for a chroma plane.

   Every member returns 0, or -8 for a null pointer, -6 for a width or height
   below 1, -14 for a step below 1; on failure nothing is written.

   Sources of the packed RGB forms: the tail of a row may read up to 2 bytes
   past the last pixel of a line in some tiers; no such byte affects a
   result. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* Packed RGB (bytes R, G, B) to Y, U, V planes. */
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUV420,
               (const uint8_t* src, uint8_t* const dst[3], int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUV420_Step,
               (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                const int32_t dstStep[3], int32_t width, int32_t height));

/* R, G, B planes (one step for the three) to Y, U, V planes. */
PIXMOOR_TIERED(PrimStatus, ImgRGBPlanesToYUV420,
               (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgRGBPlanesToYUV420_Step,
               (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                const int32_t dstStep[3], int32_t width, int32_t height));

/* Y, U, V planes to packed RGB (bytes R, G, B). */
PIXMOOR_TIERED(PrimStatus, ImgYUV420ToRGB,
               (const uint8_t* const src[3], uint8_t* dst, int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgYUV420ToRGB_Step,
               (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                int32_t dstStep, int32_t width, int32_t height));

/* Y, U, V planes to R, G, B planes (one step for the three). */
PIXMOOR_TIERED(PrimStatus, ImgYUV420ToRGBPlanes,
               (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgYUV420ToRGBPlanes_Step,
               (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                int32_t dstStep, int32_t width, int32_t height));

PIXMOOR_EXTERN_C_END

#endif

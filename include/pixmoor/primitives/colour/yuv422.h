/* RGB to and from YUV 4:2:2, full range: one chroma pair serves two
   horizontally adjacent pixels of one line.  C linkage; compiles as C99 and
   as C++.

   Packed 4:2:2 holds bytes Y0 U Y1 V for each pair of pixels.  Planar 4:2:2
   holds a full-size Y plane and U, V planes of ceil(width/2) samples a line
   and full height; planes are passed as arrays of three pointers in the
   order Y, U, V (or R, G, B), plane steps as arrays of three byte distances.
   The compact forms derive their steps: 3 * width for packed RGB, width for
   a full-size plane, ceil(width/2) for a chroma plane.

   ImgYUV422ToRGB: at an odd width of 3 or more the last pixel takes Y and U
   from its own two bytes and V from the byte before them (the V of the
   previous pair); at width 1 byte 1 serves as both U and V.

   Every member returns 0, or -8 for a null pointer, -6 for a width or height
   below 1, -14 for a step below 1; on failure nothing is written. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* Packed 4:2:2 to packed RGB (bytes R, G, B). */
PIXMOOR_TIERED(PrimStatus, ImgYUV422ToRGB,
               (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));

/* Packed RGB to Y, U, V planes of 4:2:2. */
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUV422Planes_Step,
               (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                const int32_t dstStep[3], int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUV422Planes,
               (const uint8_t* src, uint8_t* const dst[3], int32_t width, int32_t height));

/* Y, U, V planes of 4:2:2 to packed RGB. */
PIXMOOR_TIERED(PrimStatus, ImgYUV422PlanesToRGB_Step,
               (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                int32_t dstStep, int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgYUV422PlanesToRGB,
               (const uint8_t* const src[3], uint8_t* dst, int32_t width, int32_t height));

/* R, G, B planes (one step for the three) to Y, U, V planes of 4:2:2. */
PIXMOOR_TIERED(PrimStatus, ImgRGBPlanesToYUV422Planes_Step,
               (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                const int32_t dstStep[3], int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgRGBPlanesToYUV422Planes,
               (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                int32_t height));

/* Y, U, V planes of 4:2:2 to R, G, B planes (one step for the three). */
PIXMOOR_TIERED(PrimStatus, ImgYUV422PlanesToRGBPlanes_Step,
               (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                int32_t dstStep, int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgYUV422PlanesToRGBPlanes,
               (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                int32_t height));

PIXMOOR_EXTERN_C_END

#endif

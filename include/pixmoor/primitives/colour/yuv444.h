/* RGB to and from YUV without subsampling (4:4:4), full range.  C linkage;
   compiles as C99 and as C++.

   Every pixel is converted by itself.  Packed forms hold 3 bytes a pixel
   (R, G, B or Y, U, V in memory order), or 4 bytes a pixel, whose byte 3 is
   neither read nor written.  Plane sets are arrays of three pointers in the
   order R, G, B or Y, U, V, all planes of full size and sharing one step.
   Steps are byte distances between neighbouring lines.

   Every member returns 0, or -8 for a null pointer, -6 for a width or height
   below 1, -14 for a step below 1; on failure nothing is written.

   The vector tiers keep their own narrow arithmetic: their samples may
   differ from the plain tiers' by one. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV444_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV444_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* Packed RGB to packed YUV, 3 bytes a pixel. */
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUV,
               (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));
/* The same with 4 bytes a pixel; byte 3 of each destination pixel keeps its
   value. */
PIXMOOR_TIERED(PrimStatus, ImgRGBAToYUVA,
               (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));
/* R, G, B planes (one step) to Y, U, V planes (one step). */
PIXMOOR_TIERED(PrimStatus, ImgRGBPlanesToYUVPlanes,
               (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                int32_t dstStep, int32_t width, int32_t height));
/* Packed RGB to Y, U, V planes (one step for the three). */
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUVPlanes,
               (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                int32_t width, int32_t height));

/* Packed YUV to packed RGB, 3 bytes a pixel. */
PIXMOOR_TIERED(PrimStatus, ImgYUVToRGB,
               (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));
/* The same with 4 bytes a pixel; byte 3 of each destination pixel keeps its
   value.  The plain name is a dispatch stub. */
PIXMOOR_TIERED(PrimStatus, ImgYUVAToRGBA,
               (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));
/* Y, U, V planes (one step) to R, G, B planes (one step). */
PIXMOOR_TIERED(PrimStatus, ImgYUVPlanesToRGBPlanes,
               (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                int32_t dstStep, int32_t width, int32_t height));
/* Y, U, V planes (one step for the three) to packed RGB. */
PIXMOOR_TIERED(PrimStatus, ImgYUVPlanesToRGB,
               (const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));

PIXMOOR_EXTERN_C_END

#endif

/* Planar YUV 4:2:0 to 16-bit RGB words, full range.  C linkage; compiles as
   C99 and as C++.

   Source planes are passed as an array of three pointers in the order Y, U,
   V with an array of three steps; U and V hold ceil(width/2) samples a line
   and ceil(height/2) lines.  Each pixel becomes one 16-bit word:

     RGB565  red bits 11-15, green 5-10, blue 0-4   BGR565  red 0-4, blue 11-15
     RGB555  red bits 10-14, green 5-9,  blue 0-4   BGR555  red 0-4, blue 10-14
     RGB444  red bits 8-11,  green 4-7,  blue 0-3   BGR444  red 0-3, blue 8-11

   Unused high bits are 0.  Each field keeps the top bits of its 8-bit
   channel, with no rounding and no dither.

   dstStep is in bytes; it is counted in whole words, so an odd dstStep
   loses its low bit.  A width or height of 1 passes the checks and writes
   nothing.

   Every member returns 0, or -8 for a null pointer, -6 for a width or height
   below 1, -14 for a step below 1; on failure nothing is written. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB16_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB16_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* All six members take the same arguments. */
#define PIXMOOR_YUV420_TO_RGB16(name)                                                   \
    PIXMOOR_TIERED(PrimStatus, name,                                                    \
                   (const uint8_t* const src[3], const int32_t srcStep[3], uint16_t* dst, \
                    int32_t dstStep, int32_t width, int32_t height))

PIXMOOR_YUV420_TO_RGB16(ImgYUV420ToRGB565);
PIXMOOR_YUV420_TO_RGB16(ImgYUV420ToBGR565);
PIXMOOR_YUV420_TO_RGB16(ImgYUV420ToRGB555);
PIXMOOR_YUV420_TO_RGB16(ImgYUV420ToBGR555);
PIXMOOR_YUV420_TO_RGB16(ImgYUV420ToRGB444);
PIXMOOR_YUV420_TO_RGB16(ImgYUV420ToBGR444);

#undef PIXMOOR_YUV420_TO_RGB16

PIXMOOR_EXTERN_C_END

#endif

/* RGB to and from video-range YCbCr (luma 16..235, chroma 16..240 around
   128), at 4:4:4, 4:2:2 and 4:2:0, interleaved or in planes, and the
   conversions that pack the result into 16-bit RGB words.  C linkage;
   compiles as C99 and as C++.

   Layouts: C3 is bytes R, G, B (or Y, Cb, Cr); AC4 is four bytes a pixel
   whose fourth byte is never read nor written; C2 is 4:2:2 interleaved as
   Y0, Cb, Y1, Cr for each pair of pixels; P3 is three planes R, G, B or Y,
   Cb, Cr, with one step for the three planes of a side, except in the 4:2:0
   members, which take an array of three steps (the Cb and Cr planes of
   4:2:0 hold ceil(width/2) samples a line and ceil(height/2) lines).

   16-bit words are stored in native order.  Steps are byte distances; a
   member that writes 16-bit words halves its destination step (an odd step
   loses its low bit).  In the "RGB" word orders red takes the high field and
   blue bits 0 up; in the "BGR" orders red takes bits 0 up.  A 4:2:2 source
   of width 1 is converted row by row into three plain bytes R, G, B at the
   start of each destination row, also by the 16-bit members, whose rows are
   then the halved step apart in bytes: such a call writes no 16-bit word.

   Every member returns 0, or -8 for a null pointer, -6 for a width or height
   below 1, -14 for a step below 1; the checks run in that order (plane
   pointers inside an array after the size, before the steps; in
   ImgYCbCr422ToRGBC2P3 alone the steps before the plane pointers).  On
   failure nothing is written. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* Members of interleaved source and destination. */
#define PIXMOOR_YCBCR_BYTES_(name)                                                         \
    PIXMOOR_TIERED(PrimStatus, name,                                                       \
                   (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,    \
                    int32_t width, int32_t height))
/* Members of interleaved source that write 16-bit words. */
#define PIXMOOR_YCBCR_TO_WORDS_(name)                                                      \
    PIXMOOR_TIERED(PrimStatus, name,                                                       \
                   (const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,   \
                    int32_t width, int32_t height))
/* Members of three planes each side, one step a side. */
#define PIXMOOR_YCBCR_PLANES_(name)                                                        \
    PIXMOOR_TIERED(PrimStatus, name,                                                       \
                   (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],   \
                    int32_t dstStep, int32_t width, int32_t height))

/* 4:2:2 interleaved. */
PIXMOOR_YCBCR_BYTES_(ImgRGBToYCbCr422C3C2);
PIXMOOR_YCBCR_BYTES_(ImgYCbCr422ToRGBC2C3);
PIXMOOR_TIERED(PrimStatus, ImgRGBToYCbCr422P3C2,
               (const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgYCbCr422ToRGBC2P3,
               (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                int32_t width, int32_t height));

/* 4:2:2 interleaved to 16-bit words. */
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCr422ToBGR565);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCr422ToRGB565);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCr422ToBGR555);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCr422ToRGB555);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCr422ToBGR444);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCr422ToRGB444);

/* 4:2:0: packed RGB to Y, Cb, Cr planes and back, three plane steps. */
PIXMOOR_TIERED(PrimStatus, ImgRGBToYCbCr420C3P3,
               (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                const int32_t dstStep[3], int32_t width, int32_t height));
PIXMOOR_TIERED(PrimStatus, ImgYCbCr420ToRGBP3C3,
               (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                int32_t dstStep, int32_t width, int32_t height));

/* 4:4:4. */
PIXMOOR_YCBCR_PLANES_(ImgRGBToYCbCrP3);
PIXMOOR_YCBCR_PLANES_(ImgYCbCrToRGBP3);
PIXMOOR_YCBCR_BYTES_(ImgRGBToYCbCrC3);
PIXMOOR_YCBCR_BYTES_(ImgYCbCrToRGBC3);
PIXMOOR_YCBCR_BYTES_(ImgRGBToYCbCrAC4);
PIXMOOR_YCBCR_BYTES_(ImgYCbCrToRGBAC4);

/* 4:4:4 interleaved to 16-bit words. */
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCrToRGB444);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCrToBGR444);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCrToRGB555);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCrToBGR555);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCrToRGB565);
PIXMOOR_YCBCR_TO_WORDS_(ImgYCbCrToBGR565);

#undef PIXMOOR_YCBCR_BYTES_
#undef PIXMOOR_YCBCR_TO_WORDS_
#undef PIXMOOR_YCBCR_PLANES_

PIXMOOR_EXTERN_C_END

#endif

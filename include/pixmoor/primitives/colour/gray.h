/* RGB to one gray channel at 8-bit, 16-bit and float depth, and RGB to a
   packed 4:2:2 YUV of analogue scaling.  C linkage; compiles as C99 and as
   C++.

   Sources are interleaved R, G, B (C3) or R, G, B, A (AC4; the fourth
   sample of a pixel is never read).  Steps are distances in bytes between
   neighbouring lines; the 16-bit members use the step shifted right by 1,
   the float members shifted right by 2, so a step that is no multiple of
   the sample size loses its low bits.

   The RGBToGray members use the weights 0.299, 0.587, 0.114.  The
   ColorToGray members take three float weights for R, G and B as their last
   argument; a null pointer there selects the same defaults.

   8-bit gray is (R w0 + G w1 + B w2) >> 12 with each weight turned into
   the integer part of w * 4096 + 0.5; the sum is not clamped, its low byte
   is stored.  16-bit gray truncates the weighted sum toward zero; the
   signed members weigh the samples raised by 32768 and take 32768 off the
   result.  Float gray rounds the weighted sum to float.  The vector tiers
   may differ from the plain tiers in the last bit of a result.

   ImgRGBToYUV422C3C2 writes Y0, U, Y1, V for each pair of pixels, and Y, U
   alone for the last pixel of an odd width.

   Every member returns 0, or -8 for a null src or dst, -6 for a width or
   height below 1, -14 for a step below 1 (srcStep tested first); on
   failure nothing is written. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_GRAY_H
#define PIXMOOR_PRIMITIVES_COLOUR_GRAY_H

#include <pixmoor/runtime.h>

/* The argument lists: source, source step, destination, destination step,
   width, height; the ColorToGray members add the weights. */
#define PIXMOOR_GRAY_PARAMS(Sample)                                                       \
    (const Sample* src, int32_t srcStep, Sample* dst, int32_t dstStep, int32_t width, \
     int32_t height)
#define PIXMOOR_GRAY_WEIGHTED_PARAMS(Sample)                                              \
    (const Sample* src, int32_t srcStep, Sample* dst, int32_t dstStep, int32_t width, \
     int32_t height, const float* weights)

PIXMOOR_EXTERN_C_BEGIN

/* Default weights. */
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray8uC3, PIXMOOR_GRAY_PARAMS(uint8_t));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray16uC3, PIXMOOR_GRAY_PARAMS(uint16_t));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray16sC3, PIXMOOR_GRAY_PARAMS(int16_t));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray32fC3, PIXMOOR_GRAY_PARAMS(float));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray8uAC4, PIXMOOR_GRAY_PARAMS(uint8_t));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray16uAC4, PIXMOOR_GRAY_PARAMS(uint16_t));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray16sAC4, PIXMOOR_GRAY_PARAMS(int16_t));
PIXMOOR_TIERED(PrimStatus, ImgRGBToGray32fAC4, PIXMOOR_GRAY_PARAMS(float));

/* Caller's weights (R, G, B); null selects the defaults. */
PIXMOOR_TIERED(PrimStatus, ImgColorToGray8uC3, PIXMOOR_GRAY_WEIGHTED_PARAMS(uint8_t));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray16uC3, PIXMOOR_GRAY_WEIGHTED_PARAMS(uint16_t));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray16sC3, PIXMOOR_GRAY_WEIGHTED_PARAMS(int16_t));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray32fC3, PIXMOOR_GRAY_WEIGHTED_PARAMS(float));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray8uAC4, PIXMOOR_GRAY_WEIGHTED_PARAMS(uint8_t));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray16uAC4, PIXMOOR_GRAY_WEIGHTED_PARAMS(uint16_t));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray16sAC4, PIXMOOR_GRAY_WEIGHTED_PARAMS(int16_t));
PIXMOOR_TIERED(PrimStatus, ImgColorToGray32fAC4, PIXMOOR_GRAY_WEIGHTED_PARAMS(float));

/* Packed RGB (bytes R, G, B) to packed 4:2:2 (bytes Y0 U Y1 V). */
PIXMOOR_TIERED(PrimStatus, ImgRGBToYUV422C3C2, PIXMOOR_GRAY_PARAMS(uint8_t));

PIXMOOR_EXTERN_C_END

#endif

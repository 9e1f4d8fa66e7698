/* Moments primitives: spatial moments up to order three of 8-bit and float
   images, kept per channel in a state record and read out as spatial,
   central, normalised or invariant values.  C linkage; compiles as C99 and
   as C++. */
#ifndef PIXMOOR_PRIMITIVES_MOMENTS_H
#define PIXMOOR_PRIMITIVES_MOMENTS_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* A pixel position, or an offset by which an image is shifted. */
typedef struct ImgPoint {
    int32_t x;
    int32_t y;
} ImgPoint;

/* The value of `magic` while a state record is valid. */
enum { ImgMomentStateMagic = 33 };

/* Moments of one image, 400 bytes, made by ImgMomentStateAlloc and owned by
   the caller until ImgMomentStateFree.  Block c of channelMoments holds, at
   index 4q + p, M(p,q) = sum over the pixels of x^p y^q value, for the ten
   pairs with p + q <= 3; the other six elements stay zero. */
typedef struct ImgMomentState {
    int32_t magic;          /* ImgMomentStateMagic while valid */
    PrimAlgHint hint;       /* as given at allocation; 2 asks for the accurate form */
    int32_t channelCount;   /* -1 until the first compute, then 1 or 3 */
    uint32_t reserved;
    double channelMoments[3][16];
} ImgMomentState;

/* State records. */
PIXMOOR_TIERED(PrimStatus, ImgMomentStateAlloc, (ImgMomentState** state, PrimAlgHint hint));
PIXMOOR_TIERED(PrimStatus, ImgMomentStateFree, (ImgMomentState* state));

/* Compute the moments of an image into a state; `srcStep` is the distance in
   bytes between rows.  The AC4 forms read four elements a pixel and use the
   first three. */
#define PIXMOOR_MOMENTS_COMPUTE_MEMBER(name, sample) \
    PIXMOOR_TIERED(PrimStatus, name,                 \
                   (const sample* src, int32_t srcStep, int32_t width, int32_t height, ImgMomentState* state))
PIXMOOR_MOMENTS_COMPUTE_MEMBER(ImgMoments8uC1, uint8_t);
PIXMOOR_MOMENTS_COMPUTE_MEMBER(ImgMoments8uC3, uint8_t);
PIXMOOR_MOMENTS_COMPUTE_MEMBER(ImgMoments8uAC4, uint8_t);
PIXMOOR_MOMENTS_COMPUTE_MEMBER(ImgMoments32fC1, float);
PIXMOOR_MOMENTS_COMPUTE_MEMBER(ImgMoments32fC3, float);
PIXMOOR_MOMENTS_COMPUTE_MEMBER(ImgMoments32fAC4, float);
#undef PIXMOOR_MOMENTS_COMPUTE_MEMBER

/* Read-outs.  m is the order in x, n the order in y, m + n at most 3. */
PIXMOOR_TIERED(PrimStatus, ImgGetSpatialMoment,
               (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, ImgPoint offset,
                double* value));
PIXMOOR_TIERED(PrimStatus, ImgGetCentralMoment,
               (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, double* value));
PIXMOOR_TIERED(PrimStatus, ImgGetNormalizedSpatialMoment,
               (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, ImgPoint offset,
                double* value));
PIXMOOR_TIERED(PrimStatus, ImgGetNormalizedCentralMoment,
               (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, double* value));
PIXMOOR_TIERED(PrimStatus, ImgGetHuMoments, (const ImgMomentState* state, int32_t channel, double hu[7]));

PIXMOOR_EXTERN_C_END

#endif

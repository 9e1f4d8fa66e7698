// The plain names of the dispatch rows: each a tail call through its slot.
#include <pixmoor/runtime.h>
#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/primitives/moments.h>
#include <pixmoor/primitives/signal.h>

#include "runtime/dispatch.h"

PIXMOOR_DISPATCH_STUB(0, const PrimVersion*, SigGetLibVersion, (void), ())
PIXMOOR_DISPATCH_STUB(1, float*, SigMalloc32f, (int32_t count), (count))
PIXMOOR_DISPATCH_STUB(2, void, SigFree, (void* block), (block))
PIXMOOR_DISPATCH_STUB(3, PrimStatus, SigThreshold32fI, (float* srcDst, int32_t len, float level, SigCmpOp relOp),
                      (srcDst, len, level, relOp))
PIXMOOR_DISPATCH_STUB(4, PrimStatus, SigSum32f, (const float* src, int32_t len, float* sum, PrimAlgHint hint),
                      (src, len, sum, hint))
PIXMOOR_DISPATCH_STUB(5, const char*, SigGetStatusString, (PrimStatus status), (status))
PIXMOOR_DISPATCH_STUB(6, const PrimVersion*, ImgGetLibVersion, (void), ())
PIXMOOR_DISPATCH_STUB(7, PrimStatus, ImgMomentStateAlloc, (ImgMomentState** state, PrimAlgHint hint),
                      (state, hint))
PIXMOOR_DISPATCH_STUB(8, PrimStatus, ImgMomentStateFree, (ImgMomentState* state), (state))
PIXMOOR_DISPATCH_STUB(9, PrimStatus, ImgMoments32fC1,
                      (const float* src, int32_t srcStep, int32_t width, int32_t height, ImgMomentState* state),
                      (src, srcStep, width, height, state))
PIXMOOR_DISPATCH_STUB(10, PrimStatus, ImgGetSpatialMoment,
                      (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, ImgPoint offset,
                       double* value),
                      (state, m, n, channel, offset, value))
PIXMOOR_DISPATCH_STUB(11, PrimStatus, ImgRGBToYUV420,
                      (const uint8_t* src, uint8_t* const dst[3], int32_t width, int32_t height),
                      (src, dst, width, height))
PIXMOOR_DISPATCH_STUB(12, PrimStatus, ImgYUV420ToRGB,
                      (const uint8_t* const src[3], uint8_t* dst, int32_t width, int32_t height),
                      (src, dst, width, height))
PIXMOOR_DISPATCH_STUB(13, PrimStatus, ImgYUV420ToRGB_Step,
                      (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst, int32_t dstStep,
                       int32_t width, int32_t height),
                      (src, srcStep, dst, dstStep, width, height))
PIXMOOR_DISPATCH_STUB(14, PrimStatus, ImgYUVAToRGBA,
                      (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t width,
                       int32_t height),
                      (src, srcStep, dst, dstStep, width, height))
PIXMOOR_DISPATCH_STUB(15, PrimStatus, ImgYUV422ToRGB,
                      (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t width,
                       int32_t height),
                      (src, srcStep, dst, dstStep, width, height))
PIXMOOR_DISPATCH_STUB(16, PrimStatus, ImgMirror8uC3I,
                      (uint8_t* srcDst, int32_t step, int32_t width, int32_t height, MirrorAxis axis),
                      (srcDst, step, width, height, axis))
PIXMOOR_DISPATCH_STUB(17, PrimStatus, ImgMirror8uC3,
                      (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t width,
                       int32_t height, MirrorAxis axis),
                      (src, srcStep, dst, dstStep, width, height, axis))
PIXMOOR_DISPATCH_STUB(18, PrimStatus, ImgMirror8uAC4I,
                      (uint8_t* srcDst, int32_t step, int32_t width, int32_t height, MirrorAxis axis),
                      (srcDst, step, width, height, axis))

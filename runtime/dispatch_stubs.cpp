// The plain names of the dispatch rows: each a tail call through its slot.
// Rows 3, 4 and 7 to 15 get their stubs here when their families land.
#include <pixmoor/runtime.h>
#include <pixmoor/primitives/mirror.h>

#include "runtime/dispatch.h"

PIXMOOR_DISPATCH_STUB(0, const PrimVersion*, SigGetLibVersion, (void), ())
PIXMOOR_DISPATCH_STUB(1, float*, SigMalloc32f, (int32_t count), (count))
PIXMOOR_DISPATCH_STUB(2, void, SigFree, (void* block), (block))
PIXMOOR_DISPATCH_STUB(5, const char*, SigGetStatusString, (PrimStatus status), (status))
PIXMOOR_DISPATCH_STUB(6, const PrimVersion*, ImgGetLibVersion, (void), ())
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

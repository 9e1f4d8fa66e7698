// Stage 1 of Init and the per-frame routine of "RG24" to "I420".
#include "colour/rgb24_to_i420.h"

#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/runtime.h>

#include "geometry/wrapping.h"

CColorXFormRG24ToI420::~CColorXFormRG24ToI420() {
    delete[] flipBuffer;
    flipBuffer = nullptr;
}

bool CColorXFormRG24ToI420::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->srcOrientation = pixmoor::ResolveOrientation(srcOrientation, pixmoor::kRgbNatural);
    xformRoutine = pixmoor::RG24ToI420Routine;
    srcLineSize = RGBLineSize(size.cx, 24);
    // Allocated whether a flip will be needed or not.  This class has always
    // replaced the pointer without releasing a buffer from an earlier Init
    // and without testing the allocation: a missing buffer shows only when a
    // flip runs, as a status that the routine drops.
    flipBuffer = pixmoor::NewByteBlock(pixmoor::WrapMul(srcLineSize, size.cy));
    PrimSelectBestTier();  // the result is not needed: the slots always hold some tier
    return CColorXFormToI420::Init(size, srcOrientation, destOrientation);
}

namespace pixmoor {

void RG24ToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t) {
    const auto* t = static_cast<const CColorXFormRG24ToI420*>(xform);
    const int32_t width = t->size.cx;
    const int32_t height = t->size.cy;
    const uint8_t* rgb = src;
    if (t->Flips()) {
        // Row r of the source goes to row H-1-r of flipBuffer, which is then
        // converted in its place.  Should the buffer be missing, both
        // primitives refuse the null pointer and the destination stays as
        // it was.
        ImgMirror8uC3(src, t->srcLineSize, t->flipBuffer, t->srcLineSize, width, height, MirrorHorizontalAxis);
        rgb = t->flipBuffer;
    }
    // The primitive reads red, green, blue; the source holds blue, green,
    // red.  Giving it the V location as its second plane and the U location
    // as its third puts each chroma plane where "I420" keeps it.  Source
    // rows are taken as 3*W bytes, which is the line size at every width
    // Init accepts.
    uint8_t* const planes[3] = {dst, Step(dst, t->destVOffset), Step(dst, t->destUOffset)};
    ImgRGBToYUV420(rgb, planes, width, height);
}

}  // namespace pixmoor

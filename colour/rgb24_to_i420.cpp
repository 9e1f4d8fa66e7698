// Stage 1 of Init of "RG24" to "I420".
#include "colour/rgb24_to_i420.h"

#include <pixmoor/runtime.h>

#include "colour/pointer_steps.h"

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

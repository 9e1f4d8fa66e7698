// Stage 1 of Init of the planar 4:2:0 to RGB classes.
#include "colour/planar_to_rgb.h"

#include <pixmoor/runtime.h>

#include "colour/pointer_steps.h"

using pixmoor::WrapAdd;
using pixmoor::WrapMul;

template <class Dest>
void CColorXFormPlanarSource<Dest>::SetPlaneFields(AbsSIZE size) {
    srcYSize = WrapMul(size.cx, size.cy);
    srcChromaSize = srcYSize / 4;
    const int32_t first = srcYSize;
    const int32_t second = WrapAdd(srcYSize, srcChromaSize);
    const bool uFirst = this->srcFCC == FCC_I420;
    srcUOffset = uFirst ? first : second;
    srcVOffset = uFirst ? second : first;
}

bool CColorXFormPlanarToRG24::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->srcOrientation = pixmoor::ResolveOrientation(srcOrientation, pixmoor::kYuvNatural);
    xformRoutine = pixmoor::PlanarToRG24Routine;
    SetPlaneFields(size);
    rgbLineSize = RGBLineSize(size.cx, 24);
    PrimSelectBestTier();  // the result is not needed: the slots always hold some tier
    return CColorXFormToRG24::Init(size, srcOrientation, destOrientation);
}

template <class Dest, CColorXForm::XFormRoutine Routine>
CColorXFormPlanarBuffered<Dest, Routine>::~CColorXFormPlanarBuffered() {
    delete[] rgbBuffer;
    rgbBuffer = nullptr;
}

template <class Dest, CColorXForm::XFormRoutine Routine>
bool CColorXFormPlanarBuffered<Dest, Routine>::Init(AbsSIZE size, CColorXForm::EOrientation srcOrientation,
                                                    CColorXForm::EOrientation destOrientation) {
    this->SetPlaneFields(size);
    PrimSelectBestTier();
    delete[] rgbBuffer;
    rgbBuffer = nullptr;
    // "RG32" keeps a buffer of its own destination's size, larger than the
    // 3 bytes a pixel that are used; the 16-bit destinations take just those.
    const int32_t bytes = Dest::kDestFCC == FCC_RG32 ? RGBImageSize(size.cx, size.cy, 32)
                                                     : WrapMul(WrapMul(size.cx, size.cy), 3);
    rgbBuffer = pixmoor::NewByteBlock(bytes);
    if (rgbBuffer == nullptr) return false;  // before any orientation is resolved
    this->srcOrientation = pixmoor::ResolveOrientation(srcOrientation, pixmoor::kYuvNatural);
    this->xformRoutine = Routine;
    return Dest::Init(size, srcOrientation, destOrientation);
}

template class CColorXFormPlanarSource<CColorXFormToRG24>;
template class CColorXFormPlanarSource<CColorXFormToRG32>;
template class CColorXFormPlanarSource<CColorXFormToRG55>;
template class CColorXFormPlanarSource<CColorXFormToRG56>;
template class CColorXFormPlanarBuffered<CColorXFormToRG32, pixmoor::PlanarToRG32Routine>;
template class CColorXFormPlanarBuffered<CColorXFormToRG55, pixmoor::PlanarToRG55Routine>;
template class CColorXFormPlanarBuffered<CColorXFormToRG56, pixmoor::PlanarToRG56Routine>;

// Stage 2 of Init: each destination format resolves the destination
// orientation and sets the destination geometry.
#include <cmath>

#include "geometry/wrapping.h"
#include "colour/transform_classes.h"

using pixmoor::WrapAdd;
using pixmoor::WrapMul;

using pixmoor::TruncateToInt32;

bool CColorXFormToI420::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->destOrientation = pixmoor::ResolveOrientation(destOrientation, pixmoor::kYuvNatural);
    const int32_t area = WrapMul(size.cx, size.cy);
    destBufferSize = TruncateToInt32(static_cast<double>(area) * 1.5);
    destYSize = area;
    destChromaSize = area / 4;
    destUOffset = area;
    destVOffset = WrapAdd(area, area / 4);
    return CColorXForm::Init(size, srcOrientation, destOrientation);
}

template <uint32_t DestFCC>
bool CColorXFormToRGB<DestFCC>::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->destOrientation = pixmoor::ResolveOrientation(destOrientation, pixmoor::kRgbNatural);
    destBufferSize = RGBImageSize(size.cx, size.cy, kBitsPerPixel);
    destLineSize = RGBLineSize(size.cx, kBitsPerPixel);
    return CColorXForm::Init(size, srcOrientation, destOrientation);
}

template class CColorXFormToRGB<FCC_RG24>;
template class CColorXFormToRGB<FCC_RG32>;
template class CColorXFormToRGB<FCC_RG55>;
template class CColorXFormToRGB<FCC_RG56>;

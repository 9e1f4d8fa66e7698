// Stage 1 of Init and the per-frame routines of the planar 4:2:0 to RGB
// classes.
#include "colour/planar_to_rgb.h"

#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/runtime.h>

#include "colour/pixel_stores.h"
#include "colour/planar_rg32_one_pass.h"
#include "colour/repack_rows.h"
#include "geometry/wrapping.h"

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
    // A zero size still gets one pixel's bytes: the expansion and packing
    // loops run one round whatever the size, and must read inside the block.
    constexpr int32_t kOnePixel = 3;
    rgbBuffer = pixmoor::NewByteBlock(bytes > 0 ? bytes : kOnePixel);
    if (rgbBuffer == nullptr) return false;  // before any orientation is resolved
    if constexpr (Dest::kDestFCC == FCC_RG32) pixmoor::MarkRG32BufferFresh(rgbBuffer, size);
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

namespace pixmoor {
namespace {

// The plane array handed to the primitive: Y, then the V plane where the
// primitive reads U, then the U plane where it reads V.  The primitive
// writes red, green, blue; with the chroma planes exchanged its bytes come
// out in the destination's blue, green, red order, each chroma plane with
// the gain it has on the packed roads.  The offsets already tell "I420" and
// "YV12" apart, so one order serves both.
template <class Planar>
struct SourcePlanes {
    const uint8_t* planes[3];
    SourcePlanes(const Planar* t, const uint8_t* src)
        : planes{src, Step(src, t->srcVOffset), Step(src, t->srcUOffset)} {}
};

// The roads through the 3-byte intermediate picture: convert into
// rgbBuffer, then write it out through Store, `gap` bytes skipped after each
// row.  The primitive's status is dropped: should it fail, the loop runs
// over whatever the buffer holds.  Orientation is not looked at.
template <class Store, class Planar>
void ConvertThroughBuffer(const Planar* t, const uint8_t* src, uint8_t* dst, int32_t gap) {
    const SourcePlanes<Planar> in(t, src);
    ImgYUV420ToRGB(in.planes, t->rgbBuffer, t->size.cx, t->size.cy);
    RepackBgrRows<Store>(t->rgbBuffer, dst, t->size.cx, t->size.cy, gap);
}

// The 16-bit destinations: the pitch has no default, so 0 gives a gap of
// minus a line and every row lands on the first one.
template <class Planar, class Store>
void PackThroughBuffer(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    const auto* t = static_cast<const Planar*>(xform);
    ConvertThroughBuffer<Store>(t, src, dst, WrapSub(static_cast<int32_t>(destPitch), t->destLineSize));
}

}  // namespace

void PlanarToRG24Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    const auto* t = static_cast<const CColorXFormPlanarToRG24*>(xform);
    const int32_t width = t->size.cx;
    const int32_t height = t->size.cy;
    const SourcePlanes<CColorXFormPlanarToRG24> in(t, src);
    if (destPitch == 0 || destPitch == static_cast<uint32_t>(t->rgbLineSize)) {
        ImgYUV420ToRGB(in.planes, dst, width, height);
    } else {
        const int32_t chromaLine = width >> 1;
        const int32_t srcSteps[3] = {width, chromaLine, chromaLine};
        ImgYUV420ToRGB_Step(in.planes, srcSteps, dst, static_cast<int32_t>(destPitch), width, height);
    }
    // The turn-over walks rows of rgbLineSize bytes whatever pitch the rows
    // went out with: with a pitch of its own and a flip, the mirror works on
    // another grid than the one written.  Frames are expected to stay so.
    if (t->Flips()) ImgMirror8uC3I(dst, t->rgbLineSize, width, height, MirrorHorizontalAxis);
}

void PlanarToRG32Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    const auto* t = static_cast<const CColorXFormPlanarToRG32*>(xform);
    // A pitch of 0 is no default line here: each row starts one byte after
    // the end of the one before, so the picture runs H-1 bytes past
    // destBufferSize.
    const int32_t gap = destPitch == 0 ? 1 : WrapSub(static_cast<int32_t>(destPitch), t->destLineSize);
    if (ConvertRG32InOnePass(t, SourcePlanes<CColorXFormPlanarToRG32>(t, src).planes, dst, gap)) return;
    RestoreRG32Picture(t);
    ConvertThroughBuffer<StoreBgr32>(t, src, dst, gap);
}

void PlanarToRG55Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    PackThroughBuffer<CColorXFormPlanarToRG55, StoreRgb555>(xform, src, dst, destPitch);
}

void PlanarToRG56Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    PackThroughBuffer<CColorXFormPlanarToRG56, StoreRgb565>(xform, src, dst, destPitch);
}

}  // namespace pixmoor

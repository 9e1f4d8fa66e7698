// Crop and pad of planar 4:2:0 frames.  Init works the geometry out once
// into three PlaneStrip records; the per-frame routine is a plain walk.
#include "size/i420_crop_pad.h"

#include <cstring>

#include "geometry/wrapping.h"
#include "size/i420_crop_pad_avx2.h"

using pixmoor::TruncateToInt32;
using pixmoor::WrapMul;
using pixmoor::WrapSub;

namespace {

// The margin of one direction: pad bytes where the frame grows, skipped
// source bytes where it shrinks.  An odd difference gives the smaller half,
// and the extra line or column is neither copied nor padded.
struct Margin {
    int32_t kept;  // lines or bytes taken from the source
    int32_t pad;
    int32_t skip;
};

Margin CentreMargin(int32_t inLen, int32_t outLen, int32_t bytesPerUnitOut, int32_t bytesPerUnitIn) {
    if (outLen > inLen) return {inLen, WrapMul(WrapSub(outLen, inLen) / 2, bytesPerUnitOut), 0};
    return {outLen, 0, WrapMul(WrapSub(inLen, outLen) / 2, bytesPerUnitIn)};
}

// Chroma takes every luma number halved (signed, toward zero).  For the
// vertical margins that is half the luma byte count, twice what half the
// lines of half the width would be: a frame whose height changes writes (or
// in the crop case skips) twice the chroma border the plane needs.  Frames
// produced so far have that layout, and it is kept.
PlaneStrip HalveStrip(const PlaneStrip& luma) {
    return {luma.rows / 2,        luma.copyBytes / 2,    luma.topPadBytes / 2,
            luma.topSkipBytes / 2, luma.leftPadBytes / 2, luma.leftSkipBytes / 2};
}

// The plain movers of the walk.
inline void CopyBytes(uint8_t* dst, const uint8_t* src, int32_t bytes) {
    std::memcpy(dst, src, static_cast<size_t>(bytes));
}

inline void ZeroBytes(uint8_t* dst, int32_t bytes) { std::memset(dst, 0, static_cast<size_t>(bytes)); }

}  // namespace

#define PIXMOOR_CROP_PAD_TARGET
#include "size/crop_pad_walk.h"

bool CSizeXFormI420CropPad::Init(AbsSIZE in, AbsSIZE out, XFormType type, XFormInterpType interp) {
    if (type == XFormScale) return false;

    const Margin vertical = CentreMargin(in.cy, out.cy, out.cx, in.cx);
    const Margin horizontal = CentreMargin(in.cx, out.cx, 1, 1);
    PlaneStrip& luma = strips[kLuma];
    luma.rows = vertical.kept;
    luma.topPadBytes = vertical.pad;
    luma.topSkipBytes = vertical.skip;
    luma.copyBytes = horizontal.kept;
    luma.leftPadBytes = horizontal.pad;
    luma.leftSkipBytes = horizontal.skip;
    strips[kFirstChroma] = HalveStrip(luma);
    strips[kSecondChroma] = strips[kFirstChroma];

    xformRoutine = &CSizeXFormI420CropPad::CropPadI420;
    // 1.5 bytes a pixel, taken in floating point from the 32-bit area and
    // truncated, so an odd area loses its half byte.
    destBufferSize = TruncateToInt32(static_cast<double>(WrapMul(out.cx, out.cy)) * 1.5);
    return CSizeXForm::Init(in, out, type, interp);
}

int32_t CSizeXFormI420CropPad::CropPadI420(CSizeXForm* object, const uint8_t* src, uint8_t* dst) {
    const CSizeXFormI420CropPad& self = *static_cast<CSizeXFormI420CropPad*>(object);
#if PIXMOOR_HAVE_X86_TARGETS
    if (pixmoor::isa::Has(pixmoor::isa::kAvx2)) {
        WalkStripsAvx2(self.strips, kPlanes, src, dst);
        return 0;
    }
#endif
    WalkStrips(self.strips, kPlanes, src, dst);
    return 0;
}

// The frame shared by the size transforms: factory, base Init with its
// equal-size short cut, and the per-frame entry.
#include <pixmoor/size.h>

#include <cstring>
#include <new>

#include "size/i420_crop_pad.h"
#include "size/rgb_scale.h"

namespace {

constexpr uint32_t kCodeIYUVLower = MakeFourCC('i', 'y', 'u', 'v');

bool IsPlanarCode(uint32_t fourcc) {
    return fourcc == FCC_I420 || fourcc == FCC_IYUV || fourcc == FCC_YV12 || fourcc == FCC_i420 ||
           fourcc == kCodeIYUVLower || fourcc == FCC_yv12;
}

bool IsOdd(int32_t v) { return (v & 1) != 0; }

}  // namespace

CSizeXForm::CSizeXForm(uint32_t fourcc, uint32_t bits)
    : initialised(0),
      needsXForm(1),
      fourCC(fourcc),
      bitsPerPixel(bits),
      inputSize(),
      outputSize(),
      destBufferSize(0),
      xformType(XFormCropPad),
      interpType(InterpDefault),
      xformRoutine(nullptr) {}

// The forbidden constructors zero the sizes and copy nothing.
CSizeXForm::CSizeXForm() : CSizeXForm(0, 0) {}

CSizeXForm::CSizeXForm(const CSizeXForm&) : CSizeXForm() {}

CSizeXForm& CSizeXForm::operator=(const CSizeXForm&) { return *this; }

CSizeXForm::~CSizeXForm() = default;

CSizeXForm* CSizeXForm::CreateInstance(uint32_t fourcc, uint32_t bits) {
    // The order of the tests decides: planar codes first, then the plain RGB
    // code (0 or "0rgb") whose depth is taken unchecked, then 24-bit RGB.
    if (IsPlanarCode(fourcc)) return new (std::nothrow) CSizeXFormI420CropPad(FCC_I420, 12);
    if (fourcc == 0 || fourcc == FCC_0rgb) return new (std::nothrow) CSizeXFormRGBScale(0, bits);
    if (fourcc == FCC_RG24 || fourcc == FCC_rg24) return new (std::nothrow) CSizeXFormRGBScale(0, 24);
    return nullptr;
}

bool CSizeXForm::IsSupported(uint32_t fourcc, uint32_t bits, AbsSIZE in, AbsSIZE out, XFormType type) {
    CSizeXForm* probe = CreateInstance(fourcc, bits);
    if (probe == nullptr) return false;
    const bool ok = probe->Init(in, out, type, InterpDefault);
    delete probe;
    return ok;
}

int32_t CSizeXForm::SupportedInterp(int32_t capacity, SInterpInfo* info) {
    if (capacity >= 1) {
        info[0].interpType = 1;
        info[0].interpAux = 1;
    }
    return 1;
}

bool CSizeXForm::Init(AbsSIZE in, AbsSIZE out, XFormType type, XFormInterpType interp) {
    // The test looks at the sizes of the previous Init, not at the arguments:
    // a fresh object (all zero) always passes, and only an Init that follows
    // one with an odd size fails.
    if (IsOdd(inputSize.cx) || IsOdd(inputSize.cy) || IsOdd(outputSize.cx) || IsOdd(outputSize.cy))
        return false;
    inputSize = in;
    outputSize = out;
    xformType = type;
    interpType = interp;
    if (in.cx == out.cx && in.cy == out.cy) needsXForm = 0;
    initialised = 1;
    return true;
}

void CSizeXForm::XForm(const uint8_t* src, uint8_t* dst) {
    if (needsXForm) {
        xformRoutine(this, src, dst);
        return;
    }
    if (destBufferSize > 0) std::memcpy(dst, src, static_cast<size_t>(destBufferSize));
}

int32_t CSizeXForm::DestBufferSize() const { return destBufferSize; }

AbsSIZE& CSizeXForm::GetInputSize() { return inputSize; }

AbsSIZE& CSizeXForm::GetOutputSize() { return outputSize; }

// The root of the colour transforms: construction, the last stage of Init,
// the per-frame call and the static helpers that need no leaf class.
#include <new>

#include "colour/transform_classes.h"

CColorXForm::CColorXForm(uint32_t src, uint32_t dest)
    : initialised(false),
      srcFCC(src),
      destFCC(dest),
      size(),
      destBufferSize(0),
      xformRoutine(nullptr),
      srcOrientation(OrientDefault),
      destOrientation(OrientDefault) {}

// Never used to make a transform; they exist so that nobody else can copy one.
CColorXForm::CColorXForm() : size() {}
CColorXForm::CColorXForm(const CColorXForm&) : size() {}
CColorXForm& CColorXForm::operator=(const CColorXForm&) { return *this; }

CColorXForm::~CColorXForm() = default;

// Last stage, after the leaf and destination stages have done their work:
// the size test.  A failure leaves `size` and `initialised` as they were.
bool CColorXForm::Init(AbsSIZE size, EOrientation, EOrientation) {
    if ((size.cx & 3) != 0 || (size.cy & 3) != 0) return false;
    this->size = size;
    initialised = true;
    return true;
}

void CColorXForm::XForm(const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    xformRoutine(this, src, dst, destPitch);
}

int32_t CColorXForm::DestBufferSize() const { return destBufferSize; }

bool CColorXForm::IsSupported(uint32_t src, uint32_t dest, AbsSIZE size, EOrientation srcOrientation,
                              EOrientation destOrientation) {
    CColorXForm* xform = CreateInstance(src, dest);
    if (xform == nullptr) return false;
    const bool ok = xform->Init(size, srcOrientation, destOrientation);
    delete xform;
    return ok;
}

namespace {
// Spelling families that name one format.  Only these are told apart from a
// real conversion; lower case, "YV12" and the RGB codes are not considered.
int SpellingFamily(uint32_t code) {
    switch (code) {
        case FCC_IYUV: case FCC_I420: return 1;
        case FCC_UYVY: case FCC_Y422: case FCC_UYNV: return 2;
        case FCC_YUY2: case FCC_YUNV: case FCC_V422: return 3;
        default: return 0;
    }
}
}  // namespace

bool CColorXForm::NeedsConversion(uint32_t codeA, uint32_t codeB) {
    if (codeA == codeB) return true;
    const int family = SpellingFamily(codeA);
    return family == 0 || family != SpellingFamily(codeB);
}

uint8_t* pixmoor::NewByteBlock(int32_t count) {
    return new (std::nothrow) uint8_t[static_cast<uint32_t>(count)];
}
